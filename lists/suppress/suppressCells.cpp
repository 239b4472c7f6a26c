#include "lists/suppress/suppressCells.h"

#include "lists/values/fieldCheck.h"

namespace tarvik {

QString SuppressCellText(const SuppressRow& row, int column)
{
    if (!row.Used)
        return {};
    switch (column) {
    case kSuppressColumnStart:
        return CellText(row.StartFrequency, kMegahertzCell);
    case kSuppressColumnStop:
        return CellText(row.StopFrequency, kMegahertzCell);
    case kSuppressColumnDescription:
        return row.Description;
    default:
        return {};
    }
}

bool CheckSuppressCell(SuppressRow& row, int column, QString& text)
{
    switch (column) {
    case kSuppressColumnStart:
        return CheckStoredCell(text, row.StartFrequency, Limits().FrequencyHz, kMegahertzCell);
    case kSuppressColumnStop:
        return CheckStoredCell(text, row.StopFrequency, Limits().FrequencyHz, kMegahertzCell);
    case kSuppressColumnDescription:
        return CheckCellText(text, row.Description);
    default:
        return true;
    }
}

} // namespace tarvik
