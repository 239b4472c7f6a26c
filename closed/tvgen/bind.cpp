#include "closed/tvgen.h"

int16_t TvGenBind(TvGenApi* api)
{
    return api == nullptr || api->Size < sizeof(TvGenApi) ? 1 : 0;
}
