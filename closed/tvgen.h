/* closed/tvgen.h: general helpers of the instrument family. Paths are UTF-8. */
#pragma once

#include "closed/module.h"

typedef struct TvGenApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Splits a path. The folder ends in the path's separator and the extension, behind the last point of the name,
       comes without that point; a name that begins with its only point has none. `drive` is empty where the platform
       has no drives. Each output holds `outSize` bytes. 0 for success; 1, with empty outputs, for a part that does
       not fit. */
    int16_t (*GenSplitPath)(
        const char* path, char* drive, char* folder, char* baseName, char* extension, int32_t outSize);

    /* Local time of the last change of a file; 0 for success, 1 for a file that can't be asked. */
    int16_t (*GenFileDateAndTime)(
        const char* path, int16_t* year, int16_t* month, int16_t* day, int16_t* hour, int16_t* minute, int16_t* second);

    /* `text` is "month day year", three numbers parted by blanks. Stores the packed date: days since 1899-12-30. A
       year below 100 lies in 1930 to 2029; the last one is 9999. 0 for success, 1 for a day that doesn't exist. */
    int16_t (*GenStrToDate)(const char* text, double* date);

    /* Copies `size` bytes into a block of its own and returns it, null if there is no memory. */
    void* (*GenVbStrToGlobal)(const char* bytes, int32_t size);

    /* Releases a block of GenVbStrToGlobal; null is allowed. */
    void (*GenElemsFree)(void* block);
} TvGenApi;

#if defined(__cplusplus)
int16_t TvGenBind(TvGenApi* api);
#endif
