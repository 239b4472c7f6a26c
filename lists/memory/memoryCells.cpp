#include "lists/memory/memoryCells.h"

#include "app/text/textId.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/translate.h"

namespace tarvik {

namespace {

constexpr CellFormat kNumberCell{ "##0", 1.0 };

} // namespace

QString MemoryCellText(const MemoryRecord& record, int column)
{
    if (column == kMemoryColumnNumber)
        return CellText(record.Number, kNumberCell);
    if (!record.Used)
        return {};
    switch (column) {
    case kMemoryColumnFrequency:
        return CellText(record.Frequency, kMegahertzCell);
    case kMemoryColumnDemodulation:
        return CodeToStr(kDemodulationCodes, record.Demodulation);
    case kMemoryColumnDescription:
        return record.Description;
    default:
        return {};
    }
}

bool CheckMemoryCell(MemoryRecord& record, int column, QString& text)
{
    if (column == kMemoryColumnFrequency)
        return CheckStoredCell(text, record.Frequency, Limits().FrequencyHz, kMegahertzCell);
    return column != kMemoryColumnDescription || CheckCellText(text, record.Description);
}

std::vector<int> ColumnsOfNewMemoryRow(int typedColumn)
{
    std::vector<int> columns{ kMemoryColumnNumber, kMemoryColumnStatus, kMemoryColumnDemodulation,
        kMemoryColumnDescription };
    std::erase(columns, typedColumn);
    return columns;
}

} // namespace tarvik
