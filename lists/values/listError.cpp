#include "lists/values/listError.h"

#include "app/message/message.h"
#include "app/text/ansi.h"
#include "closed/loader.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr int kTextOfStoreException = 12827;

/// A run of statuses whose texts are numbered in the same order.
struct StatusRun {
    int First;
    int Last;
    int FirstText;
};

constexpr std::array kRuns{ StatusRun{ 8, 14, 12828 }, StatusRun{ 16, 16, 12838 }, StatusRun{ 18, 20, 12835 },
    StatusRun{ 22, 43, 12839 }, StatusRun{ 44, 57, 12868 }, StatusRun{ 60, 61, 12882 }, StatusRun{ 65, 66, 12884 },
    StatusRun{ 70, 71, 12890 }, StatusRun{ 72, 75, 12886 }, StatusRun{ 77, 82, 12861 } };

QString StoreException()
{
    if (!ModuleIsBound(Module::ListStore))
        return {};
    std::int16_t status = 0;
    std::array<char, TVFIO_TEXT_SIZE> text{};
    TvFio().GetExceptionStringTV(&status, text.data(), TVFIO_TEXT_SIZE);
    return FromAnsi(QByteArrayView(text.data(), qstrnlen(text.data(), TVFIO_TEXT_SIZE)));
}

} // namespace

void ShowListError(int status, int item, bool show)
{
    if (!show || status == 0)
        return;
    const auto run = std::find_if(
        kRuns.begin(), kRuns.end(), [status](const StatusRun& at) { return status >= at.First && status <= at.Last; });
    if (run == kRuns.end()) {
        MsgOk1(kTextOfStoreException, StoreException());
        return;
    }
    const int text = run->FirstText + status - run->First;
    if (item < 0)
        MsgOk(text);
    else
        MsgOkNum(text, item);
}

} // namespace tarvik
