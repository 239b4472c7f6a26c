#include "lists/correction/correctionDiagram.h"

#include "app/text/lang.h"
#include "app/text/textId.h"

namespace tarvik {

MultiTraceInput CorrectionDiagram(CorrTableId table, const CorrRecords& records, const QString& title)
{
    const bool isPhase = table == CorrTableId::Omniphase;
    MultiTraceInput input;
    input.Name = title;
    input.XUnit = UnitCode::Hertz;
    input.YUnit = isPhase ? UnitCode::Degree : UnitCode::DecibelPerMetre;
    input.PointCount = static_cast<qint16>(UsedCorrEntries(table, records));
    input.SeriesCount = 2;
    input.SeriesNames[0] = LngStr(isPhase ? TextId::OmniphasePhaseColumn : TextId::KfactorPassiveColumn);
    input.SeriesNames[1] = isPhase ? QString() : LngStr(TextId::KfactorActiveColumn);
    for (int row = 0; row < input.PointCount; ++row) {
        MultiTracePoint& point = input.Points[static_cast<size_t>(row)];
        point.X = CorrValue(table, records, row, kCorrFrequency);
        point.Y[0] = CorrValue(table, records, row, isPhase ? kCorrPhase : kCorrPassive);
        point.Y[1] = isPhase ? 0 : CorrValue(table, records, row, kCorrActive);
    }
    return input;
}

} // namespace tarvik
