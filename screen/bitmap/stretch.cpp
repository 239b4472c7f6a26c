#include "screen/bitmap/stretch.h"

#include "screen/bitmap/grey.h"

namespace tarvik {

QImage Stretch(const QImage& picture, QSize size)
{
    return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
}

void ConvertToBlackAndWhite(QImage& picture)
{
    for (int row = 0; row < picture.height(); ++row)
        GreyRow(reinterpret_cast<uint32_t*>(picture.scanLine(row)), picture.width());
}

} // namespace tarvik
