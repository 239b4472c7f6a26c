/* closed/tvimg.h: PNG and PCX decoding and encoding, and the size of pictures of every kind.

   Paths are UTF-8, so that every file name can be passed. Every operation returns 0 for success. After a refused file
   the context is unchanged or cleared. A file is written completely or not at all. Sizes are in pixels. */
#pragma once

#include "closed/module.h"

/* Maximum width and height, and maximum number of pixels: checked before memory is allocated. */
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
    int32_t Kind; /* 1 bitmap, 2 PCX, 3 PNG, 4 metafile: by content, not by name */
    int32_t Width;
    int32_t Height;
} ScreenImageInfo;

typedef struct TvImgApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Recognises the four kinds by their content. Non-zero for a missing or unreadable file, another format, a header
       that is cut short, and a size of 0 or beyond the limits. */
    int16_t (*ImgGetFileInfo)(const char* path, ScreenImageInfo* info);

    /* Decodes into a context of the picture's size. The context shows through transparent pixels. */
    int16_t (*ImgPngToDc)(const char* path, const TvImgContext* context);

    /* Decodes into memory of the module, which is valid until the next call. */
    int16_t (*ImgPcxToMem)(const char* path, int32_t* width, int32_t* height);

    /* Paints the picture decoded by ImgPcxToMem, incrementing `workCounter` for each line. `mode` is 1. */
    int16_t (*ImgMemToDc)(const TvImgContext* context, int16_t mode, int32_t* workCounter);

    /* Writes the upper left `width` by `height` pixels of the context. */
    int16_t (*ImgDcToPng)(const char* path, const TvImgContext* context, int32_t width, int32_t height);

    /* As above, as 24-bit run-length coded PCX, incrementing `workCounter` for each line. `mode` is 1. */
    int16_t (*ImgDcToPcx)(const char* path, const TvImgContext* context, int32_t width, int32_t height, int16_t mode,
        int32_t* workCounter);
} TvImgApi;

#if defined(__cplusplus)
int16_t TvImgBind(TvImgApi* api);
#endif
