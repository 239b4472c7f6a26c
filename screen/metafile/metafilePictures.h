// screen/metafile/metafilePictures.h: decodes the bitmaps in metafile records.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

/// The device-independent bitmap that starts at a word of a record, in Format_RGB32. `usage` gives the meaning of its
/// colour table. `lines` is the number of lines stored if less than the height; 0 for all. Charges its pixels to the
/// context.
std::optional<QImage> MetafileDib(
    MetafileContext& context, const tvpicture::MetafileParameters& p, int word, quint16 usage, int lines = 0);

/// A device-dependent bitmap: header at `word`, pixels at `pixelsWord`. One bit per pixel gives Format_Mono: 0 is the
/// text colour, 1 the background colour.
std::optional<QImage> MetafileDeviceBitmap(
    MetafileContext& context, const tvpicture::MetafileParameters& p, int word, int pixelsWord);

/// Converts a two-colour picture to a one-bit device bitmap in which the lighter colour is 1.
QImage MetafileMono(const QImage& picture);

} // namespace tarvik
