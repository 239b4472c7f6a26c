/* closed/module.h: what every closed module shares: how it exports, how it is bound, how it tells its version.

   A module is a shared library beside the executable. It exports two symbols: the function `VbLoad`, which fills
   the caller's table of operations, and the data `TvModuleVersion`, which is read from the file without loading it.
   Plain C types only; text is single-byte (Windows-1252) and paths are UTF-8, closed by a zero. No exception leaves
   a module. */
#pragma once

#include <stdint.h>

#if defined(_WIN32)
#define TV_EXPORT __declspec(dllexport)
#else
#define TV_EXPORT __attribute__((visibility("default"), used))
#endif

#if defined(__cplusplus)
#define TV_EXTERN_C extern "C"
#else
#define TV_EXTERN_C
#endif

/* The version record. It stands in the data of each module and of the executables; a reader finds it by `Magic`.
   Each version is four numbers, most significant first. */
typedef struct TvVersionRecord {
    char Magic[16];
    uint16_t FileVersion[4];
    uint16_t ProductVersion[4];
} TvVersionRecord;

/* Where the record's text is written by a compiler only; whoever searches for it joins it at run time,
   so that the searching program does not find its own literal. */
#define TV_VERSION_MAGIC                                                                                               \
    {                                                                                                                  \
        'T', 'v', '-', 'V', 'e', 'r', 's', 'i', 'o', 'n', '-', 'M', 'a', 'r', 'k', '\x01'                              \
    }

/* The record of a file version of four numbers. TV_PRODUCT_VERSION, four numbers too, comes from the build. */
#define TV_VERSION_RECORD(...)                                                                                         \
    {                                                                                                                  \
        TV_VERSION_MAGIC, { __VA_ARGS__ },                                                                             \
        {                                                                                                              \
            TV_PRODUCT_VERSION                                                                                         \
        }                                                                                                              \
    }

/* Puts the two exports of a module into its entry file: `bind`, of the form `int16_t bind(Api*)`, and the four numbers
   of its file version. */
#define TV_MODULE(Api, bind, ...)                                                                                      \
    TV_EXTERN_C TV_EXPORT const TvVersionRecord TvModuleVersion = TV_VERSION_RECORD(__VA_ARGS__);                      \
    TV_EXTERN_C TV_EXPORT int16_t VbLoad(void* api)                                                                    \
    {                                                                                                                  \
        return bind((Api*)api);                                                                                        \
    }
