#include "closed/tvswp.h"

int16_t TvSwpBind(TvSwpApi* api)
{
    return api == nullptr || api->Size < sizeof(TvSwpApi) ? 1 : 0;
}
