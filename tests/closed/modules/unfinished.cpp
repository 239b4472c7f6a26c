// A module of an earlier version: fills a smaller table than the program's and ignores the rest.
#include "closed/tvgen.h"

static int16_t NoTime(const char*, int16_t*, int16_t*, int16_t*, int16_t*, int16_t*, int16_t*)
{
    return 1;
}

static int16_t Fill(TvGenApi* api)
{
    api->GenFileDateAndTime = NoTime;
    return 0;
}

TV_MODULE(TvGenApi, Fill, 4, 0, 0, 0)
