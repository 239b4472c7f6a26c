/* closed/tvswp.h: the traces of a diagram. */
#pragma once

#include "closed/module.h"

typedef struct TvSwpApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */
} TvSwpApi;

#if defined(__cplusplus)
int16_t TvSwpBind(TvSwpApi* api);
#endif
