#include "closed/tvfio.h"

int16_t TvFioBind(TvFioApi* api)
{
    return api == nullptr || api->Size < sizeof(TvFioApi) ? 1 : 0;
}
