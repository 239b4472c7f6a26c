#include "closed/tvfio/calls.h"

int16_t TvFioBind(TvFioApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvFioApi))
        return 1;
    BindAntennaCalls(*api);
    BindKfactorCalls(*api);
    BindMemoryCalls(*api);
    BindSuppressCalls(*api);
    BindCorrectionCalls(*api);
    BindLimitCalls(*api);
    BindCheckCalls(*api);
    return 0;
}
