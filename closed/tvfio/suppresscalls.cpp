#include "closed/tvfio/calls.h"
#include "closed/tvfio/suppresslist.h"

namespace tvfio {

namespace {

using Record = SuppressRecord;

template <auto Member, const auto& Rule>
constexpr auto kStage = CallStage<SuppressList, Member, Rule>;
template <auto Member>
constexpr auto kGet = CallGet<SuppressList, Member>;

void SortList(int16_t* status)
{
    Answer(status, Guarded([] {
        SuppressList::Current().SortByRange();
        return FioStatus::Ok;
    }));
}

void SortAndMergeList(int16_t* status)
{
    Answer(status, Guarded([] {
        SuppressList::Current().SortAndMerge();
        return FioStatus::Ok;
    }));
}

} // namespace

void BindSuppressCalls(TvFioApi& api)
{
    FIO_BIND_LIST(api, SuppressList, SuppressList);
    api.SuppressListGetMaxNumberOfItems = CallGetCapacity<SuppressList>;
    api.SuppressListSort = SortList;
    api.SuppressListSortAndMerge = SortAndMergeList;
    api.SuppressIsInUse = CallIsUsed<SuppressList>;
    api.SuppressSetData = CallCommit<SuppressList>;
    api.SuppressGetInclude = kGet<&Record::Include>;
    api.SuppressSetInclude = kStage<&Record::Include, suppressRules::kInclude>;
    api.SuppressGetStartFrequency = kGet<&Record::StartFrequency>;
    api.SuppressSetStartFrequency = kStage<&Record::StartFrequency, suppressRules::kStartFrequency>;
    api.SuppressGetStopFrequency = kGet<&Record::StopFrequency>;
    api.SuppressSetStopFrequency = kStage<&Record::StopFrequency, suppressRules::kStopFrequency>;
    api.SuppressGetDescription = CallGetText<SuppressList, &Record::Description>;
    api.SuppressSetDescription = CallStageText<SuppressList, &Record::Description, suppressRules::kDescription>;
}

} // namespace tvfio
