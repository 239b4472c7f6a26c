/* closed/tvlng.h: texts and control geometry by number. The module next to the executable decides the language. */
#pragma once

#include "closed/module.h"

/* Maximum size of a text with its terminating zero. */
#define TVLNG_MAX_TEXT 4096

typedef struct TvLngApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Stores text `id`, or `fallback` if there is none, in `out` of `outSize` bytes and returns its length. A longer
       text is cut. The variants with arguments replace %1, %2 and %3; placeholders in arguments are not replaced. A
       part in braces is included only if each placeholder in it has an argument; outside braces a placeholder without
       an argument is removed. */
    int32_t (*LngGetStr)(int32_t id, const char* fallback, char* out, int32_t outSize);
    int32_t (*LngGetStr1Arg)(int32_t id, const char* fallback, const char* arg1, char* out, int32_t outSize);
    int32_t (*LngGetStr2Arg)(
        int32_t id, const char* fallback, const char* arg1, const char* arg2, char* out, int32_t outSize);
    int32_t (*LngGetStr3Arg)(int32_t id, const char* fallback, const char* arg1, const char* arg2, const char* arg3,
        char* out, int32_t outSize);

    /* Stores the adjustments for `id`, in the unit of the form, and returns their number (0 to 4). */
    int16_t (*LngGetCtrlSize)(int32_t id, int32_t* left, int32_t* top, int32_t* width, int32_t* height);
} TvLngApi;

/* For programs that link the library: fills `api`. Returns 0 for success. */
#if defined(__cplusplus)
int16_t TvLngBind(TvLngApi* api);
#endif
