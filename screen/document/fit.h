// screen/document/fit.h: computes the size of a screen window so that the picture keeps its aspect ratio.
#pragma once

#include <QSize>

namespace tarvik {

/// The arrangement in progress; values are the command codes.
enum class Arrangement { Cascade = 0, TileHorizontally = 1, TileVertically = 2, Icons = 3, None = 65535 };

/// Minimum width in pixels when dragging, unless the picture is narrower: the title bar must stay usable.
inline constexpr int kMinDraggedWidthPx = 100;

/// Pixels.
struct FitInput {
    QSize Master; ///< original size of the picture; nothing is fitted without one
    QSize Client; ///< current size of the window
    QSize Graph; ///< current size of the visible picture
    int DescriptionHeight = 0;
    int StatusHeight = 0;
    Arrangement Arranging = Arrangement::None;
};

/// The client size of a window in normal state. At least 1 by 1, and such that the picture stays within the limits of
/// pictures; a size that fits is unchanged.
/// Where the height leads, the width follows: height times aspect ratio, and over a
/// description or status panel the current width times the ratio of the height to the height that this width needs.
/// This step only approximates the aspect ratio; repeating it comes closer.
QSize FitClient(const FitInput& input);

/// Size of the picture in a window of this client size. `descriptionTop` is the position of the description's
/// separator line.
QSize GraphFor(QSize client, bool descriptionVisible, int descriptionTop);

} // namespace tarvik
