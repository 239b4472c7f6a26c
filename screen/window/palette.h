// screen/window/palette.h: sets colours and palette of an open document.
#pragma once

#include "screen/document/color.h"

namespace tarvik {

/// As ColorStore; `redraw` shows the effect at once.
void ColorSet(quint32 colour, WindowId id, int index, bool redraw);

/// As PaletteStore; `redraw` shows the effect at once.
void PaletteSet(PaletteNumber number, WindowId id, bool redraw);

/// The program-wide black-and-white flag, which follows the active document.
bool BlackAndWhite();

/// The choice of `FmPalette` for one window, with preview.
class PaletteChoice {
public:
    /// Remembers the current palette of the window.
    explicit PaletteChoice(WindowId id);

    PaletteNumber Remembered() const
    {
        return remembered_;
    }

    /// An option was clicked: stores and draws it.
    void Choose(PaletteNumber number);

    /// Restores the remembered palette.
    void Cancel();

private:
    WindowId id_;
    PaletteNumber remembered_;
};

} // namespace tarvik
