// screen/window/palette.h: choosing colours and palette of a document that is on the screen.
#pragma once

#include "screen/document/color.h"

namespace tarvik {

/// ColorStore; `redraw` shows the effect at once.
void ColorSet(quint32 colour, WindowId id, int index, bool redraw);

/// PaletteStore; `redraw` shows the effect at once.
void PaletteSet(qint16 number, WindowId id, bool redraw);

/// The program-wide black-and-white flag: it follows the active document.
bool BlackAndWhite();

/// The choice that `FmPalette` offers for one window, with its effect behind the dialog.
class PaletteChoice {
public:
    /// Remembers the present palette of the window.
    explicit PaletteChoice(WindowId id);

    qint16 Remembered() const
    {
        return remembered_;
    }

    /// An option was clicked: stored and drawn.
    void Choose(qint16 number);

    /// Puts the remembered palette back, if it is another one.
    void Cancel();

private:
    WindowId id_;
    qint16 remembered_;
};

} // namespace tarvik
