/* closed/tvlng.h: texts and control geometry by number. The library beside the executable decides the language. */
#pragma once

#include "closed/module.h"

/* Longest text with its closing zero; a caller's buffer of this size holds every text. */
#define TVLNG_MAX_TEXT 4096

typedef struct TvLngApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Text `id`, or `fallback` for a number without text, into `out` of `outSize` bytes; returns the length.
       A longer text is cut. The forms with arguments replace %1, %2 and %3; what an argument holds is taken as it is.
       A part of a text in braces is shown only when each place in it has its argument, and a place without argument
       outside braces shows nothing: so one text serves callers with and without arguments, and none shows "%1". */
    int32_t (*LngGetStr)(int32_t id, const char* fallback, char* out, int32_t outSize);
    int32_t (*LngGetStr1Arg)(int32_t id, const char* fallback, const char* arg1, char* out, int32_t outSize);
    int32_t (*LngGetStr2Arg)(
        int32_t id, const char* fallback, const char* arg1, const char* arg2, char* out, int32_t outSize);
    int32_t (*LngGetStr3Arg)(int32_t id, const char* fallback, const char* arg1, const char* arg2, const char* arg3,
        char* out, int32_t outSize);

    /* Number of adjustments (0 to 4) that exist for `id`; the existing ones are stored, in the form's unit. */
    int16_t (*LngGetCtrlSize)(int32_t id, int32_t* left, int32_t* top, int32_t* width, int32_t* height);
} TvLngApi;

/* The library behind the module, for a program that links it: fills `api`; 0 for success. */
#if defined(__cplusplus)
int16_t TvLngBind(TvLngApi* api);
#endif
