/* closed/tvimg.h: PNG and PCX decoding and encoding. */
#pragma once

#include "closed/module.h"

typedef struct TvImgApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */
} TvImgApi;

#if defined(__cplusplus)
int16_t TvImgBind(TvImgApi* api);
#endif
