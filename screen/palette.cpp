#include "screen/palette.h"

#include "screen/screenWindow.h"

void ColorSet(quint32 colour, WindowId id, int index, bool redraw)
{
    ColorStore(colour, id, index);
    if (redraw)
        DrawScreenWindow(id);
}

void PaletteSet(qint16 number, WindowId id, bool redraw)
{
    PaletteStore(number, id);
    if (redraw)
        DrawScreenWindow(id);
}

PaletteState& ThePalette()
{
    static PaletteState state;
    return state;
}

void PaletteReset()
{
    ThePalette() = {};
}

PaletteChoice::PaletteChoice(WindowId id)
    : id_(id)
    , remembered_(PaletteOf(id))
{
    ThePalette().BlackAndWhite = remembered_ == PaletteBlackAndWhite;
}

void PaletteChoice::Choose(qint16 number)
{
    PaletteSet(number, id_, true);
    ThePalette().BlackAndWhite = number == PaletteBlackAndWhite;
}

void PaletteChoice::Cancel()
{
    if (PaletteOf(id_) == remembered_)
        return;
    Choose(remembered_);
}
