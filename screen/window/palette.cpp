#include "screen/window/palette.h"

#include "screen/window/screenWindow.h"

namespace tarvik {

void ColorSet(quint32 colour, WindowId id, int index, bool redraw)
{
    ColorStore(colour, id, index);
    if (redraw)
        DrawScreenWindow(id);
}

void PaletteSet(PaletteNumber number, WindowId id, bool redraw)
{
    PaletteStore(number, id);
    if (redraw)
        DrawScreenWindow(id);
}

bool BlackAndWhite()
{
    return PaletteOf(WindowTable().Active) == PaletteNumber::BlackAndWhite;
}

PaletteChoice::PaletteChoice(WindowId id)
    : id_(id)
    , remembered_(PaletteOf(id))
{
}

void PaletteChoice::Choose(PaletteNumber number)
{
    PaletteSet(number, id_, true);
}

void PaletteChoice::Cancel()
{
    if (PaletteOf(id_) == remembered_)
        return;
    Choose(remembered_);
}

} // namespace tarvik
