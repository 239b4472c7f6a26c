#include "closed/tvfio/suppresslist.h"

#include <tuple>
#include <utility>

namespace tvfio {

namespace {

/// Included ranges come before excluded ones, any other setting last.
int RankOfInclude(int16_t include)
{
    return include == 1 ? 0 : include == 0 ? 1 : 2;
}

bool ComesBefore(const SuppressRecord& left, const SuppressRecord& right)
{
    const auto key = [](const SuppressRecord& range) {
        return std::tuple(range.StartFrequency, range.StopFrequency, RankOfInclude(range.Include));
    };
    return key(left) < key(right);
}

/// Extends the last range of `merged` with the same setting as `next`, if the two meet.
bool Absorb(std::vector<SuppressRecord>& merged, const SuppressRecord& next)
{
    const auto last = std::find_if(
        merged.rbegin(), merged.rend(), [&](const SuppressRecord& range) { return range.Include == next.Include; });
    if (last == merged.rend() || next.StartFrequency > last->StopFrequency)
        return false;
    last->StopFrequency = std::max(last->StopFrequency, next.StopFrequency);
    if (last->Description.Length == 0)
        last->Description = next.Description;
    return true;
}

} // namespace

SuppressList& SuppressList::Current()
{
    static SuppressList list;
    return list;
}

void SuppressList::SortByRange()
{
    Sort(ComesBefore);
}

void SuppressList::SortAndMerge()
{
    std::vector<SuppressRecord> ranges = UsedRecords();
    for (SuppressRecord& range : ranges) {
        if (range.StopFrequency < range.StartFrequency)
            std::swap(range.StartFrequency, range.StopFrequency);
    }
    std::stable_sort(ranges.begin(), ranges.end(), ComesBefore);

    std::vector<SuppressRecord> merged;
    for (const SuppressRecord& range : ranges) {
        if (!Absorb(merged, range))
            merged.push_back(range);
    }
    // Growth can have changed the order of ranges with different settings and the same start.
    std::stable_sort(merged.begin(), merged.end(), ComesBefore);
    Refill(merged);
}

} // namespace tvfio
