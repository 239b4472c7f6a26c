#include "screen/document/screenTable.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "screen/bitmap/stretch.h"

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

QSize ScreenRecord::OwnSize() const
{
    return Master.size();
}

QImage ScreenRecord::Draw(QSize devicePixels, double /*scale*/) const
{
    QImage picture = Stretch(Master, devicePixels);
    if (PalNr == PaletteNumber::BlackAndWhite)
        ConvertToBlackAndWhite(picture);
    return picture;
}

/// Converted from the colours of the picture, so that a palette in black and white does not invert it twice.
QImage ScreenRecord::ForPage(QSize /*devicePixels*/, double /*scale*/, bool blackAndWhite) const
{
    QImage picture = Master;
    if (blackAndWhite || PalNr == PaletteNumber::BlackAndWhite)
        ConvertToBlackAndWhite(picture);
    return picture;
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

DocumentPicture* PictureOf(WindowId id)
{
    if (WindowTypeOf(id) == WindowType::DataSet)
        return DatasetTable().at(static_cast<size_t>(WindowDocumentIndex(id))).get();
    return ScreenOf(id);
}

void PictureFree(WindowId id)
{
    if (WindowTypeOf(id) == WindowType::DataSet)
        DatasetTable().at(static_cast<size_t>(WindowDocumentIndex(id))).reset();
    ScreenFree(id);
}

DatasetPictures& DatasetTable()
{
    static ProcessState<DatasetPictures> table;
    return table.Get();
}

} // namespace tarvik
