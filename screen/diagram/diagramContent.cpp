#include "screen/diagram/diagramContent.h"

namespace tarvik {

DiagramContent DiagramContentOf(const MultiTraceInput& input, const TraceSet& set)
{
    DiagramContent content{ input.Name, input.XUnit, input.YUnit, {},
        { set.XFirst, set.XLast, set.XStep, set.YBottom, set.YTop, set.YStep, {} } };
    for (int series = 0; series < set.SeriesCount; ++series) {
        const QString& name = input.SeriesNames[static_cast<size_t>(series)];
        content.SeriesNames.push_back(name.isEmpty() ? QString::number(series + 1) : name);
    }
    return content;
}

} // namespace tarvik
