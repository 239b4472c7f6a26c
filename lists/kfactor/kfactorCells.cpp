#include "lists/kfactor/kfactorCells.h"

#include "lists/values/fieldCheck.h"

namespace tarvik {

namespace {

/// The value of a column, how its cell shows it, and its limits.
struct Column {
    double KfactorEntry::*Value;
    CellFormat Format;
    Range<double> Bounds;
};

Column ColumnOf(int column)
{
    switch (column) {
    case kKfactorColumnPassive:
        return { &KfactorEntry::Passive, kLevelCell, Limits().KFactorLevel };
    case kKfactorColumnActive:
        return { &KfactorEntry::Active, kLevelCell, Limits().KFactorLevel };
    default:
        return { &KfactorEntry::Frequency, kMegahertzCell, Limits().FrequencyHz };
    }
}

} // namespace

QString KfactorCellText(const KfactorEntry& entry, int column)
{
    const Column shown = ColumnOf(column);
    return entry.Used ? CellText(entry.*shown.Value, shown.Format) : QString();
}

bool CheckKfactorCell(KfactorEntry& entry, int column, QString& text)
{
    const Column checked = ColumnOf(column);
    return CheckStoredCell(text, entry.*checked.Value, checked.Bounds, checked.Format);
}

} // namespace tarvik
