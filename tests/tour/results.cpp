#include "tests/tour/results.h"

#include "lists/memoryList.h"
#include "tests/tour/steps.h"

#include <cstdio>

namespace {

bool Require(bool condition, const char* what)
{
    if (!condition)
        std::fprintf(stderr, "the tour went wrong: %s\n", what);
    return condition;
}

bool IsSorted(const MemoryTable& table)
{
    for (int row = 1; row < kMemoryRows && table.Row(row).Used; ++row) {
        if (table.Row(row).Frequency < table.Row(row - 1).Frequency)
            return false;
    }
    return true;
}

bool AreEqual(const MemoryTable& left, const MemoryTable& right)
{
    for (int row = 0; row < kMemoryRows; ++row) {
        const MemoryRecord& a = left.Row(row);
        const MemoryRecord& b = right.Row(row);
        if (a.Used != b.Used
            || (a.Used
                && (a.Frequency != b.Frequency || a.Number != b.Number || a.Description != b.Description
                    || a.Demodulation != b.Demodulation)))
            return false;
    }
    return left.MemoryListName == right.MemoryListName;
}

} // namespace

bool TourResultsHold(const QString& folder)
{
    const QString base = folder + QString::fromLatin1(kTourListName);
    MemoryTable binary;
    MemoryTable csv;
    return Require(OpenMemoryList(base + QStringLiteral(".tvm"), binary), "the list file cannot be read")
        && Require(OpenMemoryList(base + QStringLiteral(".csv"), csv), "the CSV file cannot be read")
        && Require(binary.Row(0).Used && binary.Row(0).Frequency == kTourFrequencyHz, "the typed frequency is lost")
        && Require(IsSorted(binary), "the list is not sorted")
        && Require(AreEqual(binary, csv), "the two forms hold different lists");
}
