#include "print/page/pageTable.h"

#include "app/platform/processState.h"

#include <algorithm>
#include <numeric>

namespace tarvik {

PageState& ThePages()
{
    static ProcessState<PageState> state;
    return state.Get();
}

PageRecord& PresentPage()
{
    return ThePages().Table[static_cast<size_t>(ThePages().Present)];
}

void ClearPage(PageRecord& page)
{
    page.Count = 0;
    page.FrontEntry = kNoEntry;
    page.Entries = {};
}

int HighestEntry(const PageRecord& page)
{
    return page.Count == 0 ? kNoEntry : DrawingOrder(page)[static_cast<size_t>(page.Count - 1)];
}

void BringToFront(PageRecord& page, int entry)
{
    auto order = DrawingOrder(page);
    std::stable_partition(order.begin(), order.begin() + page.Count, [entry](int at) { return at != entry; });
    for (int rank = 0; rank < page.Count; ++rank)
        page.Entries[static_cast<size_t>(order[static_cast<size_t>(rank)])].Order = rank;
    page.FrontEntry = entry;
}

std::array<int, kWindowsPerPage> DrawingOrder(const PageRecord& page)
{
    std::array<int, kWindowsPerPage> order{};
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.begin() + page.Count, [&page](int first, int second) {
        return page.Entries[static_cast<size_t>(first)].Order < page.Entries[static_cast<size_t>(second)].Order;
    });
    return order;
}

} // namespace tarvik
