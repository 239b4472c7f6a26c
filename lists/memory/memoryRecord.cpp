#include "lists/memory/memoryRecord.h"

#include <algorithm>
#include <bitset>

namespace tarvik {

namespace {

using Numbers = std::bitset<kMemoryRows>;

bool IsNumber(std::int16_t number)
{
    return number >= 0 && number < kMemoryRows;
}

/// Numbers of all rows but `row`; with `usedOnly`, of used ones.
Numbers NumbersOfOthers(const MemoryTable& table, int row, bool usedOnly)
{
    Numbers taken;
    for (int other = 0; other < kMemoryRows; ++other) {
        const MemoryRecord& record = table.Row(other);
        const bool counts = other != row && (record.Used || !usedOnly);
        if (counts && IsNumber(record.Number))
            taken.set(static_cast<size_t>(record.Number));
    }
    return taken;
}

std::int16_t LowestFree(const Numbers& taken)
{
    std::int16_t number = 0;
    while (number < kMemoryRows - 1 && taken.test(static_cast<size_t>(number)))
        ++number;
    return number;
}

} // namespace

std::vector<std::int16_t> DistinctMemoryNumbers(const MemoryTable& table, int& duplicateRow)
{
    duplicateRow = -1;
    Numbers taken;
    std::vector<std::int16_t> numbers(kMemoryRows);
    const auto take = [&](int row) {
        const std::int16_t number = table.Row(row).Number;
        numbers[static_cast<size_t>(row)] = number;
        if (!IsNumber(number) || taken.test(static_cast<size_t>(number)))
            return false;
        taken.set(static_cast<size_t>(number));
        return true;
    };
    for (int row = 0; row < kMemoryRows; ++row) {
        if (table.Row(row).Used && !take(row) && duplicateRow < 0)
            duplicateRow = row;
    }
    std::vector<int> without;
    for (int row = 0; row < kMemoryRows; ++row) {
        if (!table.Row(row).Used && !take(row))
            without.push_back(row);
    }
    for (const int row : without) {
        numbers[static_cast<size_t>(row)] = LowestFree(taken);
        taken.set(static_cast<size_t>(numbers[static_cast<size_t>(row)]));
    }
    return numbers;
}

void RenumberDuplicates(MemoryTable& table)
{
    int row = -1;
    while (DistinctMemoryNumbers(table, row), row >= 0)
        table.Row(row).Number = LowestFree(NumbersOfOthers(table, row, true));
}

void UseMemoryRow(MemoryTable& table, int row)
{
    MemoryRecord& record = table.Row(row);
    record.Used = true;
    const Numbers used = NumbersOfOthers(table, row, true);
    if (IsNumber(record.Number) && !used.test(static_cast<size_t>(record.Number)))
        return;
    const Numbers all = NumbersOfOthers(table, row, false);
    record.Number = LowestFree(all.all() ? used : all);
}

} // namespace tarvik
