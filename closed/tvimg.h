/* closed/tvimg.h: PNG and PCX decoding and encoding, and the size of pictures of every kind.

   Paths are UTF-8, so that every file name can be passed. Every operation returns 0 for success; a file that is refused
   leaves the context as it was, or cleared; nothing is written half: a file appears whole or not at all. Sizes in
   pixels. */
#pragma once

#include "closed/module.h"

/* Largest width and height that is accepted, and most pixels of one picture: checked before memory is taken. */
#define TVIMG_MAX_SIDE 32767
#define TVIMG_MAX_PIXELS (128 * 1024 * 1024)

/* A picture in memory: rows of 32-bit pixels 0xffRRGGBB from top to bottom. The caller owns the pixels. */
typedef struct TvImgContext {
    uint32_t* Pixels;
    int32_t Width;
    int32_t Height;
    int32_t Stride; /* pixels from one row to the next */
} TvImgContext;

typedef struct ScreenImageInfo {
    int32_t Kind; /* 1 bitmap, 2 PCX, 3 PNG, 4 metafile: what the content is, whatever the file is called */
    int32_t Width;
    int32_t Height;
} ScreenImageInfo;

typedef struct TvImgApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Recognises the four kinds by their content. Non-zero for a missing or unreadable file, another format, a header
       that is cut short, and a size of 0 or beyond the limits. */
    int16_t (*ImgGetFileInfo)(const char* path, ScreenImageInfo* info);

    /* Decodes into a context of the picture's size. Transparent places let the context's colours through. */
    int16_t (*ImgPngToDc)(const char* path, const TvImgContext* context);

    /* Decodes into memory of the module, until the next call. */
    int16_t (*ImgPcxToMem)(const char* path, int32_t* width, int32_t* height);

    /* Paints what ImgPcxToMem decoded, raising `workCounter` by one for each line. `mode` is 1. */
    int16_t (*ImgMemToDc)(const TvImgContext* context, int16_t mode, int32_t* workCounter);

    /* Writes the upper left `width` by `height` pixels of the context. */
    int16_t (*ImgDcToPng)(const char* path, const TvImgContext* context, int32_t width, int32_t height);

    /* The same as PCX of 24 bits, run-length coded, raising `workCounter` by one for each line. `mode` is 1. */
    int16_t (*ImgDcToPcx)(const char* path, const TvImgContext* context, int32_t width, int32_t height, int16_t mode,
        int32_t* workCounter);
} TvImgApi;

#if defined(__cplusplus)
int16_t TvImgBind(TvImgApi* api);
#endif
