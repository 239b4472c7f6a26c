// screen/bitmap/pictureLimits.h: how large a picture may be. Checked before memory is taken.
#pragma once

#include "closed/tvimg.h"

#include <QtGlobal>

namespace tarvik {

inline constexpr int kMostPicturePixels = TVIMG_MAX_PIXELS;

/// True for a size that has pixels and stays within the limits of the image module.
constexpr bool IsAllowedPicture(qint64 width, qint64 height)
{
    return width >= 1 && height >= 1 && width <= TVIMG_MAX_SIDE && height <= TVIMG_MAX_SIDE
        && width * height <= kMostPicturePixels;
}

} // namespace tarvik
