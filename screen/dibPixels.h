// screen/dibPixels.h: the pixels of a device-independent bitmap, plain and run-length coded.
#pragma once

#include "screen/dibHeader.h"

#include <QImage>
#include <QVector>

/// Decodes the pixels that start at `bytes`; the result as told at ReadDib.
std::optional<QImage> DecodeDibPixels(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours);
