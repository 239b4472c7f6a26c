#include "closed/tvfio/calls.h"

int16_t TvFioBind(TvFioApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvFioApi))
        return 1;
    BindMemoryCalls(*api);
    BindLimitCalls(*api);
    BindCheckCalls(*api);
    return 0;
}
