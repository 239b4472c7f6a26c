#include "closed/tvfio/calls.h"
#include "closed/tvfio/memorylist.h"

namespace tvfio {

namespace {

using Record = MemoryRecord;

template <auto Member, const auto& Rule>
constexpr auto kStage = CallStage<MemoryList, Member, Rule>;
template <auto Member>
constexpr auto kGet = CallGet<MemoryList, Member>;

void GetNumber(int16_t* status, int16_t index, int16_t* value)
{
    if (!MemoryList::IsIndex(index))
        return Answer(status, Fail(MemoryList::kNoSuchIndex));
    Answer(status, CopyOut(MemoryList::Current().Number(index), value));
}

void SortList(int16_t* status, int16_t key)
{
    Answer(status, Guarded([key] { return MemoryList::Current().SortByKey(key); }));
}

void BindReceiverFields(TvFioApi& api)
{
    api.MemoryGetMemItemNumber = GetNumber;
    api.MemorySetMemItemNumber = kStage<&Record::MemItemNumber, memoryRules::kNumber>;
    api.MemoryGetFrequency = kGet<&Record::Frequency>;
    api.MemorySetFrequency = kStage<&Record::Frequency, memoryRules::kFrequency>;
    api.MemoryGetDemodulation = kGet<&Record::Demodulation>;
    api.MemorySetDemodulation = kStage<&Record::Demodulation, memoryRules::kDemodulation>;
    api.MemoryGetBandWidth = kGet<&Record::BandWidth>;
    api.MemorySetBandWidth = kStage<&Record::BandWidth, memoryRules::kBandwidth>;
    api.MemoryGetSquelchLevel = kGet<&Record::SquelchLevel>;
    api.MemorySetSquelchLevel = kStage<&Record::SquelchLevel, memoryRules::kSquelchLevel>;
    api.MemoryGetSquelchSetting = kGet<&Record::SquelchSetting>;
    api.MemorySetSquelchSetting = kStage<&Record::SquelchSetting, memoryRules::kSquelchSetting>;
    api.MemoryGetAntennaNumber = kGet<&Record::AntennaNumber>;
    api.MemorySetAntennaNumber = kStage<&Record::AntennaNumber, memoryRules::kAntennaNumber>;
    api.MemoryGetAttenuatorSetting = kGet<&Record::AttenuatorSetting>;
    api.MemorySetAttenuatorSetting = kStage<&Record::AttenuatorSetting, memoryRules::kAttenuator>;
    api.MemoryGetAFCSetting = kGet<&Record::AFCSetting>;
    api.MemorySetAFCSetting = kStage<&Record::AFCSetting, memoryRules::kAfc>;
    api.MemoryGetDescription = CallGetText<MemoryList, &Record::Description>;
    api.MemorySetDescription = CallStageText<MemoryList, &Record::Description, memoryRules::kDescription>;
    api.MemoryGetSuppressed = kGet<&Record::Suppressed>;
    api.MemorySetSuppressed = kStage<&Record::Suppressed, memoryRules::kStatus>;
}

void BindDirectionFields(TvFioApi& api)
{
    api.MemoryGetDfSquelchSetting = kGet<&Record::DfSquelchSetting>;
    api.MemorySetDfSquelchSetting = kStage<&Record::DfSquelchSetting, memoryRules::kDfSquelchSetting>;
    api.MemoryGetDfSquelchLevel = kGet<&Record::DfSquelchLevel>;
    api.MemorySetDfSquelchLevel = kStage<&Record::DfSquelchLevel, memoryRules::kDfSquelchLevel>;
    api.MemoryGetDfMeasurementTime = kGet<&Record::DfMeasurementTime>;
    api.MemorySetDfMeasurementTime = kStage<&Record::DfMeasurementTime, memoryRules::kDfMeasurementTime>;
    api.MemoryGetFrequencySpan = kGet<&Record::FrequencySpan>;
    api.MemorySetFrequencySpan = kStage<&Record::FrequencySpan, memoryRules::kFrequencySpan>;
    api.MemoryGetDfStep = kGet<&Record::DfStep>;
    api.MemorySetDfStep = kStage<&Record::DfStep, memoryRules::kDfStep>;
    api.MemoryGetReserved1 = kGet<&Record::Reserved1>;
    api.MemorySetReserved1 = kStage<&Record::Reserved1, memoryRules::kDfBandwidth>;
    api.MemoryGetReserved2 = kGet<&Record::Reserved2>;
    api.MemorySetReserved2 = kStage<&Record::Reserved2, kAnyInt>;
    api.MemoryGetReserved3 = kGet<&Record::Reserved3>;
    api.MemorySetReserved3 = kStage<&Record::Reserved3, kAnyInt>;
}

} // namespace

void BindMemoryCalls(TvFioApi& api)
{
    FIO_BIND_LIST(api, MemoryList, MemoryList);
    api.MemoryListGetMaxNumberOfItems = CallGetCapacity<MemoryList>;
    api.MemoryListSort = SortList;
    api.MemoryListItemIsInUse = CallIsUsed<MemoryList>;
    api.MemorySetData = CallCommit<MemoryList>;
    BindReceiverFields(api);
    BindDirectionFields(api);
}

} // namespace tvfio
