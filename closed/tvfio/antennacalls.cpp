#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/calls.h"

namespace tvfio {

namespace {

using Record = AntennaRecord;

template <auto Member, const auto& Rule>
constexpr auto kStage = CallStage<AntennaList, Member, Rule>;
template <auto Member, const auto& Rule>
constexpr auto kStageText = CallStageText<AntennaList, Member, Rule>;
template <auto Member>
constexpr auto kGet = CallGet<AntennaList, Member>;
template <auto Member>
constexpr auto kGetText = CallGetText<AntennaList, Member>;

void BindFields(TvFioApi& api)
{
    api.AntennaGetInclude = kGet<&Record::Include>;
    api.AntennaSetInclude = kStage<&Record::Include, antennaRules::kInclude>;
    api.AntennaGetName = kGetText<&Record::Name>;
    api.AntennaSetName = kStageText<&Record::Name, antennaRules::kName>;
    api.AntennaGetStartFrequency = kGet<&Record::StartFrequency>;
    api.AntennaSetStartFrequency = kStage<&Record::StartFrequency, antennaRules::kStartFrequency>;
    api.AntennaGetStopFrequency = kGet<&Record::StopFrequency>;
    api.AntennaSetStopFrequency = kStage<&Record::StopFrequency, antennaRules::kStopFrequency>;
    api.AntennaGetDefFrequencyOffset = kGet<&Record::DefFrequencyOffset>;
    api.AntennaSetDefFrequencyOffset = kStage<&Record::DefFrequencyOffset, antennaRules::kFrequencyOffset>;
    api.AntennaGetPassiveBits = kGet<&Record::PassiveBits>;
    api.AntennaSetPassiveBits = kStage<&Record::PassiveBits, antennaRules::kPassiveBits>;
    api.AntennaGetActiveBits = kGet<&Record::ActiveBits>;
    api.AntennaSetActiveBits = kStage<&Record::ActiveBits, antennaRules::kActiveBits>;
    api.AntennaGetKFactorTableName = kGetText<&Record::KFactorTableName>;
    api.AntennaSetKFactorTableName = kStageText<&Record::KFactorTableName, antennaRules::kKfactorName>;
    api.AntennaGetAntennaCode = kGet<&Record::AntennaCode>;
    api.AntennaSetAntennaCode = kStage<&Record::AntennaCode, antennaRules::kCode>;
    api.AntennaGetNorthOffset = kGet<&Record::NorthOffset>;
    api.AntennaSetNorthOffset = kStage<&Record::NorthOffset, antennaRules::kNorthOffset>;
    api.AntennaGetCorrectionSetName = kGetText<&Record::CorrectionSetName>;
    api.AntennaSetCorrectionSetName = kStageText<&Record::CorrectionSetName, antennaRules::kCorrectionName>;
}

} // namespace

AntennaList& AntennaList::Current()
{
    static AntennaList list;
    return list;
}

void BindAntennaCalls(TvFioApi& api)
{
    FIO_BIND_LIST(api, AntennaList, AntennaList);
    api.AntennaListGetMaxNumberOfItems = CallGetCapacity<AntennaList>;
    api.AntennaGetUsed = CallIsUsed<AntennaList>;
    api.AntennaSetData = CallCommit<AntennaList>;
    BindFields(api);
}

} // namespace tvfio
