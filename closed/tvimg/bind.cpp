#include "closed/tvimg.h"

int16_t TvImgBind(TvImgApi* api)
{
    return api == nullptr || api->Size < sizeof(TvImgApi) ? 1 : 0;
}
