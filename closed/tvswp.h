/* closed/tvswp.h: the traces of a diagram.

   A set of traces is one block of memory with a fixed layout, little-endian. The samples of a trace are in a block of
   their own, which the set names by a handle of four bytes: the caller keeps the table of blocks. */
#pragma once

#include "closed/module.h"

#if defined(__cplusplus)
#include <cstddef>
#endif

#define TVSWP_SAMPLES 630
#define TVSWP_TRACES 3

#pragma pack(push, 4)

typedef struct Trace {
    int32_t SampleCount;
    uint8_t InUse; /* 1 for a series of the set, else 0 */
    uint32_t Handle; /* of SampleCount 64-bit floats; 0 for none */
    uint8_t Reserved[2];
    uint8_t XUnit; /* unit codes */
    uint8_t YUnit;
    double YScale;
    uint8_t XScaleUnit; /* the same as XUnit */
    double XScale; /* 1.0 */
    double Percent; /* 100.0 */
    uint8_t Mode; /* 0 */
    uint32_t Colour; /* 0x00BBGGRR */
} Trace;

typedef struct TraceSet {
    double XStep;
    double XFirst;
    double XLast;
    double YStep;
    double YBottom;
    double YTop;
    int32_t SeriesCount; /* traces in use */
    Trace Traces[TVSWP_TRACES];
} TraceSet;

#pragma pack(pop)

#if defined(__cplusplus)
static_assert(offsetof(Trace, SampleCount) == 0 && offsetof(Trace, InUse) == 4 && offsetof(Trace, Handle) == 8
    && offsetof(Trace, XUnit) == 14 && offsetof(Trace, YUnit) == 15 && offsetof(Trace, YScale) == 16
    && offsetof(Trace, XScaleUnit) == 24 && offsetof(Trace, XScale) == 28 && offsetof(Trace, Percent) == 36
    && offsetof(Trace, Mode) == 44 && offsetof(Trace, Colour) == 48 && sizeof(Trace) == 52);
static_assert(offsetof(TraceSet, XStep) == 0 && offsetof(TraceSet, XFirst) == 8 && offsetof(TraceSet, XLast) == 16
    && offsetof(TraceSet, YStep) == 24 && offsetof(TraceSet, YBottom) == 32 && offsetof(TraceSet, YTop) == 40
    && offsetof(TraceSet, SeriesCount) == 48 && offsetof(TraceSet, Traces) == 52 && sizeof(TraceSet) == 208);
#endif

/* Where traces are drawn: rows of 32-bit pixels 0xffRRGGBB from top to bottom, and the clip rectangle in them. The
   caller owns the pixels. */
typedef struct TvSwpContext {
    uint32_t* Pixels;
    int32_t Width;
    int32_t Height;
    int32_t Stride; /* pixels from one row to the next */
    int32_t Left; /* clip rectangle; Right and Bottom are outside it */
    int32_t Top;
    int32_t Right;
    int32_t Bottom;
    double Scale; /* pixels of the context to a pixel of the screen's nominal resolution: widens the lines */
} TvSwpContext;

/* The block of a handle, or null, and its size in bytes. Valid until the caller's next call. */
typedef const void* (*TvSwpBlock)(uint32_t handle, uint32_t* size);

typedef struct TvSwpApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */

    /* Draws each trace in use as an antialiased line from the left to the right edge of the clip rectangle: sample j of
       n at j / (n - 1) of its width, a value between YBottom and YTop between its bottom and its top. Nothing is drawn
       outside the rectangle. Traces differ by their markers too, by position in the set: discs, squares, triangles. A
       dark outline (a light one for a very dark colour) keeps every colour legible on any background, and crossing
       lines apart. The markers lie on the line, at regular distances.
       A trace whose block is missing or too small, with fewer than 2 samples or with one that is no finite number, is
       not drawn. Returns 0 for success, 1 with unchanged pixels for a null argument, a picture, clip rectangle or scale
       without size or beyond the limits (32767 pixels a side, a scale of 16), limits that are not finite or not
       ascending, and without memory. */
    int16_t (*SwpDrawTraces)(const TvSwpContext* context, const TraceSet* traces, TvSwpBlock block);
} TvSwpApi;

#if defined(__cplusplus)
int16_t TvSwpBind(TvSwpApi* api);
#endif
