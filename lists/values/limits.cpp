#include "lists/values/limits.h"

#include "app/platform/processState.h"
#include "closed/loader.h"

namespace tarvik {

namespace {

template <typename Number>
using LimitGetter = void (*)(std::int16_t* status, Number* value);

template <typename Number>
void Read(LimitGetter<Number> getter, Number& value)
{
    std::int16_t ignoredStatus = 0;
    getter(&ignoredStatus, &value);
}

template <typename Number>
void Read(LimitGetter<Number> minimum, LimitGetter<Number> maximum, Range<Number>& range)
{
    Read(minimum, range.Min);
    Read(maximum, range.Max);
}

} // namespace

InstrumentLimits& Limits()
{
    static ProcessState<InstrumentLimits> limits;
    return limits.Get();
}

void ReadInstrumentLimits()
{
    if (!ModuleIsBound(Module::ListStore))
        return;
    const TvFioApi& store = TvFio();
    InstrumentLimits& limits = Limits();
    Read(store.GetMinFrequencyApplication, store.GetMaxFrequencyApplication, limits.FrequencyHz);
    Read(store.GetMinAntennaConverterOffset, store.GetMaxAntennaConverterOffset, limits.AntennaConverterOffsetHz);
    Read(store.GetMinKFactorLevel, store.GetMaxKFactorLevel, limits.KFactorLevel);
    Read(store.GetMinSquelchLevel, store.GetMaxSquelchLevel, limits.SquelchLevel);
    Read(store.GetMinDfSquelchLevel, store.GetMaxDfSquelchLevel, limits.DfSquelchLevel);
    Read(store.GetMinDfMeasTimeInSec, store.GetMaxDfMeasTimeInSec, limits.DfMeasTimeSec);
    Read(store.GetMinAntennaNr, store.GetMaxAntennaNr, limits.AntennaNr);
    Read(store.GetMinAntennaCode, store.GetMaxAntennaCode, limits.AntennaCode);
    Read(store.GetMinNorthOffset, store.GetMaxNorthOffset, limits.NorthOffset);
    Read(store.GetMinAntennaBitPattern, store.GetMaxAntennaBitPattern, limits.AntennaBitPattern);
    Read(store.GetMaxAntennasIncluded, limits.MaxAntennasIncluded);
    Read(store.GetMinMemoryNr, store.GetMaxMemoryNr, limits.MemoryNr);
}

} // namespace tarvik
