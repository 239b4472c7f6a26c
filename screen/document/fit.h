// screen/document/fit.h: the arithmetic of a screen window's size: the picture keeps its aspect whatever the window
// does.
#pragma once

#include <QSize>

namespace tarvik {

/// The arrangement in progress, and the codes of the commands.
enum Arrangement {
    ArrangeCascade = 0,
    ArrangeTileHorizontally = 1,
    ArrangeTileVertically = 2,
    ArrangeIcons = 3,
    ArrangeNone = 65535
};

/// Pixels. By dragging a window doesn't become narrower, unless its picture is: there would be no title bar left to
/// take hold of.
inline constexpr int kLeastDraggedWidth = 100;

/// Pixels.
struct FitInput {
    QSize Master; ///< picture at its own size; without one nothing is fitted
    QSize Client; ///< of the window, as it is now
    QSize Graph; ///< the visible picture, as it is now
    int DescriptionHeight = 0;
    int StatusHeight = 0;
    int Arranging = ArrangeNone;
};

/// The client size that the window takes, by the rules for a window in normal state. At least 1 by 1, and at most such
/// that the picture in it is within the limits of pictures; a size that fits stays as it is.
///
/// Where the height leads, the width follows: height times aspect, and over a description or status panel the present
/// width times the height over the height that this width needs. That step leaves the picture somewhat wider or
/// narrower than its aspect; another one comes nearer to it.
QSize FitClient(const FitInput& input);

/// Size of the picture in a window of this client size. `descriptionTop` is where the description's line stands.
QSize GraphFor(QSize client, bool descriptionVisible, int descriptionTop);

} // namespace tarvik
