// screen/bitmap/pictureLimits.h: size limits of pictures, checked before memory is allocated.
#pragma once

#include "closed/tvimg.h"

#include <QtGlobal>

namespace tarvik {

inline constexpr int kMaxPicturePixels = TVIMG_MAX_PIXELS;

/// True for a size of at least one pixel within the limits of the image module.
constexpr bool IsAllowedPicture(qint64 width, qint64 height)
{
    return width >= 1 && height >= 1 && width <= TVIMG_MAX_SIDE && height <= TVIMG_MAX_SIDE
        && width * height <= kMaxPicturePixels;
}

} // namespace tarvik
