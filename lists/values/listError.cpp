#include "lists/values/listError.h"

#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"
#include "closed/loader.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

/// A range of statuses whose texts have consecutive numbers in the same order.
struct StatusRun {
    int First;
    int Last;
    TextNumber<0, 1> FirstText;
};

constexpr std::array kRuns{ StatusRun{ 8, 14, TextId::StoreListErrors }, StatusRun{ 16, 16, TextId::StoreSortKeyError },
    StatusRun{ 18, 20, TextId::StoreFileNameErrors }, StatusRun{ 22, 43, TextId::StoreMemoryErrors },
    StatusRun{ 44, 57, TextId::StoreAntennaErrors }, StatusRun{ 60, 61, TextId::StoreRangeErrors },
    StatusRun{ 65, 66, TextId::StoreRangeStopErrors }, StatusRun{ 70, 71, TextId::StoreRowErrors },
    StatusRun{ 72, 75, TextId::StoreKfactorErrors }, StatusRun{ 77, 82, TextId::StoreCorrectionErrors } };

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
        MsgOk1(TextId::StoreException, StoreException());
        return;
    }
    const auto text = run->FirstText + (status - run->First);
    if (item < 0)
        MsgOk(text);
    else
        MsgOkNum(text, item);
}

} // namespace tarvik
