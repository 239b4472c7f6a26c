// screen/fit.h: the arithmetic of a screen window's size: the picture keeps its aspect whatever the window does.
#pragma once

#include <QSize>

/// The arrangement in progress.
enum Arrangement { ArrangeCascade = 0, ArrangeTileHorizontally = 1, ArrangeTileVertically = 2, ArrangeIcons = 3,
    ArrangeNone = 65535 };

/// Pixels.
struct FitInput {
    QSize Master; ///< picture at its own size
    QSize Client; ///< of the window, as it is now
    QSize Graph; ///< the visible picture, as it is now
    int DescriptionHeight = 0;
    int StatusHeight = 0;
    int Arranging = ArrangeNone;
};

/// The client size that the window takes, by the rules for a window in normal state.
QSize FitClient(const FitInput& input);

/// Size of the picture above the description, for a window of this client size.
QSize GraphFor(QSize client, bool descriptionVisible, int descriptionTop);
