#include "closed/tvfio/memorylist.h"

#include <numeric>

namespace tvfio {

namespace {

bool StatusThenNumber(const MemoryRecord& left, const MemoryRecord& right)
{
    return left.Suppressed != right.Suppressed ? left.Suppressed < right.Suppressed
                                               : left.MemItemNumber < right.MemItemNumber;
}

int CompareNumber(const MemoryRecord& left, const MemoryRecord& right)
{
    return left.MemItemNumber - right.MemItemNumber;
}

int CompareFrequency(const MemoryRecord& left, const MemoryRecord& right)
{
    return left.Frequency < right.Frequency ? -1 : (left.Frequency > right.Frequency ? 1 : 0);
}

int CompareDescription(const MemoryRecord& left, const MemoryRecord& right)
{
    return CompareNoCase(left.Description.View(), right.Description.View());
}

using Compare = int (*)(const MemoryRecord& left, const MemoryRecord& right);
constexpr std::array<Compare, 3> kCompares{ CompareNumber, CompareFrequency, CompareDescription };

} // namespace

void MemoryList::Commit(int index)
{
    if (Staged.MemItemNumber < 0)
        Staged.MemItemNumber = Number(index);
    SlotList::Commit(index);
}

int16_t MemoryList::Number(int index)
{
    if (numbersOf_ != Changes || Changes == 0)
        RenumberUnused();
    return numbers_[static_cast<size_t>(index)];
}

void MemoryList::RenumberUnused()
{
    std::bitset<kMemoryItems> taken;
    for (size_t i = 0; i < kMemoryItems; ++i) {
        numbers_[i] = Used[i] ? Records[i].MemItemNumber : static_cast<int16_t>(i);
        if (Used[i])
            taken.set(static_cast<size_t>(numbers_[i]));
    }
    const std::bitset<kMemoryItems> inUse = taken;
    size_t spare = 0;
    for (size_t i = 0; i < kMemoryItems; ++i) {
        if (Used[i] || !inUse[i])
            continue;
        // A number is spare if no entry uses it and the place with that index is in use.
        while (inUse[spare] || !Used[spare])
            ++spare;
        numbers_[i] = static_cast<int16_t>(spare++);
    }
    numbersOf_ = Changes;
}

FioStatus MemoryList::SortByKey(int key)
{
    if (key < 0 || key > 6)
        return Fail(FioStatus::SortKeyUnknown);
    if (key == 0) {
        Sort(StatusThenNumber);
        return FioStatus::Ok;
    }
    const Compare compare = kCompares[static_cast<size_t>(key - 1) / 2];
    const int direction = key % 2 == 1 ? 1 : -1;
    Sort([&](const MemoryRecord& left, const MemoryRecord& right) { return direction * compare(left, right) < 0; });
    return FioStatus::Ok;
}

MemoryList& MemoryList::Current()
{
    static MemoryList list;
    return list;
}

} // namespace tvfio
