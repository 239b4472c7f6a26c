#include "lists/memory/memoryCells.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "link/classes/textRules.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/translate.h"

namespace tarvik {

namespace {

constexpr CellFormat kNumberCell{ "##0", 1.0 };

bool CheckFrequency(MemoryRecord& record, QString& text)
{
    const QString shown = CellText(record.Frequency, kMegahertzCell);
    double value = 0;
    if (!CheckCellScaled(text, value, Limits().FrequencyHz, kMegahertzCell))
        return false;
    if (text != shown)
        record.Frequency = value;
    return true;
}

bool CheckDescription(MemoryRecord& record, const QString& text)
{
    if (!ValidText(text)) {
        MsgOk(TextId::ForbiddenCharacter);
        return false;
    }
    record.Description = text;
    return true;
}

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
        return CheckFrequency(record, text);
    return column != kMemoryColumnDescription || CheckDescription(record, text);
}

std::vector<int> ColumnsOfNewMemoryRow(int typedColumn)
{
    std::vector<int> columns{ kMemoryColumnNumber, kMemoryColumnStatus, kMemoryColumnDemodulation,
        kMemoryColumnDescription };
    std::erase(columns, typedColumn);
    return columns;
}

} // namespace tarvik
