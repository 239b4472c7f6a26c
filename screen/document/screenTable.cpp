#include "screen/document/screenTable.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"

namespace tarvik {

ColorDefaults& TheColorDefaults()
{
    static ProcessState<ColorDefaults> defaults;
    return defaults.Get();
}

std::array<ScreenRecord, kDocumentsOfType + 1>& ScreenTable()
{
    static ProcessState<std::array<ScreenRecord, kDocumentsOfType + 1>> table;
    return table.Get();
}

void ScreenTableClear()
{
    ScreenTable() = {};
}

ScreenRecord* ScreenOf(WindowId id)
{
    if (WindowTypeOf(id) != WindowType::Screen)
        return nullptr;
    return &ScreenTable().at(static_cast<size_t>(WindowDocumentIndex(id)));
}

ScreenRecord& ScreenInitialise(WindowId id)
{
    Q_ASSERT(ScreenOf(id) != nullptr);
    const ColorDefaults& defaults = TheColorDefaults();
    ScreenRecord& record = *ScreenOf(id);
    record = {};
    record.SourceTag = WindowSubtypeOf(id);
    record.DocumentIndex = WindowDocumentIndex(id);
    record.Date = TheSeams().Now();
    record.Colours[ColourBackground] = defaults.Background;
    record.Colours[ColourForeground] = defaults.Foreground;
    record.Colours[ColourMarker] = defaults.Marker;
    record.Colours[ColourText] = defaults.Text;
    record.PalNr = defaults.PalNr;
    return record;
}

void ScreenFree(WindowId id)
{
    if (ScreenRecord* record = ScreenOf(id))
        *record = {};
}

} // namespace tarvik
