// closed/tvimg/picture.h: what the picture formats share: limits, bytes of files, pixels of contexts.
#pragma once

#include "closed/files/files.h"
#include "closed/tvimg.h"

#include <cstddef>

namespace tvimg {

using tvfile::Bytes;
using tvfile::ByteView;

/// Format of a file's content.
enum class Kind : int32_t { Bitmap = 1, Pcx = 2, Png = 3, Metafile = 4 };

struct PictureSize {
    int64_t Width = 0; ///< pixels
    int64_t Height = 0; ///< pixels
};

/// True for a size of at least one pixel within the limits of the module.
bool IsAllowed(PictureSize size);

/// True if the context has pixels for a picture of this size.
bool IsRoomFor(const TvImgContext* context, PictureSize size);

/// The pixels 0xffRRGGBB of row `y` of a context.
uint32_t* Line(const TvImgContext& context, int64_t y);

constexpr uint32_t kOpaque = 0xff000000;
constexpr uint32_t kOpaqueWhite = 0xffffffff;

/// Fills the context with white, after a decoder has failed half-way.
void Clear(const TvImgContext& context);

/// Blends a colour 0xAARRGGBB, not premultiplied, over an opaque one.
uint32_t Blend(uint32_t over, uint32_t under);

/// Little-endian numbers of a file; the caller has checked the bounds.
uint16_t Word(ByteView bytes, size_t at);
uint32_t DoubleWord(ByteView bytes, size_t at);

/// As above, big-endian.
uint32_t BigDoubleWord(ByteView bytes, size_t at);

} // namespace tvimg
