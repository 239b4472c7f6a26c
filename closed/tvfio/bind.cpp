#include "closed/tvfio/calls.h"

int16_t TvFioBind(TvFioApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvFioApi))
        return 1;
    tvfio::BindAntennaCalls(*api);
    tvfio::BindKfactorCalls(*api);
    tvfio::BindMemoryCalls(*api);
    tvfio::BindSuppressCalls(*api);
    tvfio::BindCorrectionCalls(*api);
    tvfio::BindLimitCalls(*api);
    tvfio::BindCheckCalls(*api);
    return 0;
}
