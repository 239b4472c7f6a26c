/* closed/module.h: exports, binding and version of closed modules.

   A module is a shared library in the folder of the executable. It exports two symbols: the function `VbLoad`, which
   fills the caller's table of operations, and the data `TvModuleVersion`, which is read from the file without loading
   it. Only plain C types; text is Windows-1252 and paths are UTF-8, both zero-terminated. No exception leaves a
   module. */
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

/* The version record in the data of each module and executable, found by `Magic`. Each version is four numbers, most
   significant first. */
typedef struct TvVersionRecord {
    char Magic[16];
    uint16_t FileVersion[4];
    uint16_t ProductVersion[4];
} TvVersionRecord;

/* Not a string literal: a program that searches for the mark builds it at run time, so that it does not find its own
   copy. */
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

/* Defines the two exports of a module, from `int16_t bind(Api*)` and the four numbers of its file version. */
#define TV_MODULE(Api, bind, ...)                                                                                      \
    TV_EXTERN_C TV_EXPORT const TvVersionRecord TvModuleVersion = TV_VERSION_RECORD(__VA_ARGS__);                      \
    TV_EXTERN_C TV_EXPORT int16_t VbLoad(void* api)                                                                    \
    {                                                                                                                  \
        return bind((Api*)api);                                                                                        \
    }
