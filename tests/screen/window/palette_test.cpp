#include "screen/window/palette.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

constexpr auto kUnknownPalette = static_cast<PaletteNumber>(5);

class Palettes : public ScreenTest {
protected:
    /// Opens a drawn window with a picture of one colour.
    void Show(QColor colour)
    {
        id_ = Open(WindowSubtype::File, Picture({ 4, 4 }, colour));
    }

    QColor ShownColour() const
    {
        return ScreenOf(id_)->Graph.pixelColor(0, 0);
    }

    WindowId id_ = 0;
};

} // namespace

TEST_F(Palettes, WhiteBecomesBlackAndBlackBecomesWhite)
{
    Show(Qt::white);
    PaletteSet(PaletteNumber::BlackAndWhite, id_, true);
    EXPECT_EQ(ShownColour(), QColor(Qt::black));
    Show(Qt::black);
    PaletteSet(PaletteNumber::BlackAndWhite, id_, true);
    EXPECT_EQ(ShownColour(), QColor(Qt::white));
}

TEST_F(Palettes, RedHasTheWeightOfBlue)
{
    Show(Qt::red);
    PaletteSet(PaletteNumber::BlackAndWhite, id_, true);
    const int grey = 255 - 29; // 0.114 * 255 = 29.07
    EXPECT_EQ(ShownColour(), QColor(grey, grey, grey));
}

TEST_F(Palettes, ColourReturnsWithoutReload)
{
    Show(Qt::green);
    PaletteSet(PaletteNumber::BlackAndWhite, id_, true);
    EXPECT_EQ(ScreenOf(id_)->Master.pixelColor(0, 0), QColor(Qt::green));
    PaletteSet(PaletteNumber::Colour, id_, true);
    EXPECT_EQ(ShownColour(), QColor(Qt::green));
}

TEST_F(Palettes, SecondDrawingDoesNotInvertAgain)
{
    Show(Qt::white);
    PaletteSet(PaletteNumber::BlackAndWhite, id_, true);
    DrawScreenWindow(id_);
    EXPECT_EQ(ShownColour(), QColor(Qt::black));
}

TEST_F(Palettes, AreStoredWithoutRedrawIfNotRequested)
{
    Show(Qt::white);
    const int drawings = Views[id_].Drawings;
    PaletteSet(PaletteNumber::BlackAndWhite, id_, false);
    ColorSet(0x010203, id_, ColourMarker, false);
    EXPECT_EQ(Views[id_].Drawings, drawings);
    EXPECT_EQ(PaletteOf(id_), PaletteNumber::BlackAndWhite);
    EXPECT_EQ(ColorGet(id_, ColourMarker), 0x010203u);
    ColorSet(0x010204, id_, ColourMarker, true);
    EXPECT_EQ(Views[id_].Drawings, drawings + 1);
    EXPECT_EQ(ColorGet(id_, ColourMarker), 0x010204u);
}

TEST_F(Palettes, ChoiceTakesEffectAtOnce)
{
    Show(Qt::white);
    PaletteChoice choice(id_);
    EXPECT_EQ(choice.Remembered(), PaletteNumber::Colour);
    EXPECT_FALSE(BlackAndWhite());
    choice.Choose(PaletteNumber::BlackAndWhite);
    EXPECT_EQ(ShownColour(), QColor(Qt::black));
    EXPECT_TRUE(BlackAndWhite());
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::BlackAndWhite);
}

TEST_F(Palettes, CancelRestoresPalette)
{
    Show(Qt::white);
    PaletteChoice choice(id_);
    choice.Choose(PaletteNumber::BlackAndWhite);
    choice.Cancel();
    EXPECT_EQ(ShownColour(), QColor(Qt::white));
    EXPECT_EQ(PaletteOf(id_), PaletteNumber::Colour);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::Colour);
    EXPECT_FALSE(BlackAndWhite());
}

TEST_F(Palettes, CancelWithoutChangeDrawsNothing)
{
    Show(Qt::white);
    PaletteChoice choice(id_);
    const int drawings = Views[id_].Drawings;
    choice.Cancel();
    EXPECT_EQ(Views[id_].Drawings, drawings);
}

TEST_F(Palettes, FlagFollowsActiveDocument)
{
    Show(Qt::white);
    const WindowId first = id_;
    Show(Qt::white);
    EXPECT_FALSE(BlackAndWhite());
    PaletteSet(PaletteNumber::BlackAndWhite, first, true);
    EXPECT_FALSE(BlackAndWhite()) << "another document is the active one";
    WindowSetActive(first);
    EXPECT_TRUE(BlackAndWhite());
    WindowSetActive(id_);
    EXPECT_FALSE(BlackAndWhite());
    WindowTable().Active = 0;
    EXPECT_FALSE(BlackAndWhite());
}

TEST_F(Palettes, AnyOtherNumberIsColourOnWhite)
{
    Show(Qt::green);
    PaletteSet(kUnknownPalette, id_, true);
    EXPECT_EQ(ShownColour(), QColor(Qt::green));
    EXPECT_EQ(PaperColor(id_), 0xFFFFFFu);
    EXPECT_FALSE(BlackAndWhite());
}

} // namespace tarvik
