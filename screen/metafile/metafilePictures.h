// screen/metafile/metafilePictures.h: the bitmaps that the records of a metafile carry.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

/// The device-independent bitmap from a word of a record on, in Format_RGB32. `usage` tells what its colour table is.
/// `lines` is the number of lines that are stored, where that is fewer than its height; 0 for all. Its pixels are taken
/// from the work of the context.
std::optional<QImage> MetafileDib(
    MetafileContext& context, const tvpicture::MetafileParameters& p, int word, quint16 usage, int lines = 0);

/// The bitmap of a device: its head from `word` on, its pixels from `pixelsWord` on. One of a single bit is of
/// Format_Mono: 0 for the text colour, 1 for the background colour.
std::optional<QImage> MetafileDeviceBitmap(
    MetafileContext& context, const tvpicture::MetafileParameters& p, int word, int pixelsWord);

/// A picture of two colours by which of them is the lighter one, as a device bitmap of a single bit.
QImage MetafileMono(const QImage& picture);

} // namespace tarvik
