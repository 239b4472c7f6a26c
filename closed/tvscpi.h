/* closed/tvscpi.h: the instrument channel. One connection at a time; no handle is passed. */
#pragma once

#include "closed/module.h"

typedef struct TvScpiApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* 0 while connected, non-zero otherwise: mind the inverted sense. */
    int16_t (*scpiGetConnected)(void);

    /* Ends the connection; does nothing without one. */
    void (*scpiDisconnect)(void);
} TvScpiApi;

#if defined(__cplusplus)
int16_t TvScpiBind(TvScpiApi* api);
#endif
