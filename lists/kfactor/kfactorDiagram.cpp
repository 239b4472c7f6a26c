#include "lists/kfactor/kfactorDiagram.h"

#include "app/text/lang.h"
#include "app/text/textId.h"

namespace tarvik {

MultiTraceInput KfactorDiagram(const KfactorTable& table, const QString& title)
{
    MultiTraceInput input;
    input.Name = title;
    input.XUnit = UnitCode::Hertz;
    input.YUnit = UnitCode::DecibelPerMetre;
    input.PointCount = static_cast<qint16>(table.Count);
    input.SeriesCount = 2;
    input.SeriesNames = { LngStr(TextId::KfactorPassiveColumn), LngStr(TextId::KfactorActiveColumn) };
    for (int row = 0; row < table.Count; ++row) {
        const KfactorEntry& entry = table.Row(row);
        input.Points[static_cast<size_t>(row)] = { entry.Frequency, { entry.Passive, entry.Active } };
    }
    return input;
}

} // namespace tarvik
