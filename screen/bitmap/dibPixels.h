// screen/bitmap/dibPixels.h: the pixels of a device-independent bitmap, plain and run-length encoded.
#pragma once

#include "screen/bitmap/dibHeader.h"

#include <QImage>
#include <QVector>

namespace tarvik {

/// Decodes the pixels that start at `bytes`; the result is as for ReadDib.
std::optional<QImage> DecodeDibPixels(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours);

} // namespace tarvik
