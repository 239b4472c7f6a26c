// app/forms/darkColor.h: whether a colour of the palette is dark.
#pragma once

#include <QColor>

namespace tarvik {

/// True for a colour closer to black than to white.
inline bool IsDark(const QColor& color)
{
    constexpr int kMiddleLightness = 128;
    return color.lightness() < kMiddleLightness;
}

} // namespace tarvik
