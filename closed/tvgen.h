/* closed/tvgen.h: general helpers of the instrument family. Paths are UTF-8. */
#pragma once

#include "closed/module.h"

typedef struct TvGenApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Splits a path. The folder ends with the separator. The extension is the part of the name after its last point; a
       name with only a leading point has none. `drive` is empty on platforms without drives. Each output has `outSize`
       bytes. Returns 0 for success; 1, with empty outputs, if a part does not fit. */
    int16_t (*GenSplitPath)(
        const char* path, char* drive, char* folder, char* baseName, char* extension, int32_t outSize);

    /* Local time of the last change of a file. Returns 0 for success, 1 if it cannot be read. */
    int16_t (*GenFileDateAndTime)(
        const char* path, int16_t* year, int16_t* month, int16_t* day, int16_t* hour, int16_t* minute, int16_t* second);

    /* `text` is "month day year", three numbers separated by blanks. Stores the date as days since 1899-12-30. Years
       below 100 mean 1930 to 2029; the maximum is 9999. Returns 0 for success, 1 for an invalid date. */
    int16_t (*GenStrToDate)(const char* text, double* date);

    /* Copies `size` bytes to a new block and returns it; null if there is not enough memory. */
    void* (*GenVbStrToGlobal)(const char* bytes, int32_t size);

    /* Releases a block of GenVbStrToGlobal; null is allowed. */
    void (*GenElemsFree)(void* block);
} TvGenApi;

#if defined(__cplusplus)
int16_t TvGenBind(TvGenApi* api);
#endif
