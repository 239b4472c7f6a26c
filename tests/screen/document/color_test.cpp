#include "screen/document/color.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

constexpr auto kUnknownPalette = static_cast<PaletteNumber>(5);

} // namespace

using DocumentColours = ScreenTest;

TEST_F(DocumentColours, AreZeroForNonScreenWindow)
{
    TheColorDefaults().Background = 0x123456;
    EXPECT_EQ(ColorGet(0, ColourBackground), 0u);
    EXPECT_EQ(ColorGet(TakeSlot(WindowType::DataSet), ColourBackground), 0u);
    EXPECT_EQ(ColorGet(Open(), 4), 0u);
    EXPECT_EQ(ColorGet(Open(), -1), 0u);
}

TEST_F(DocumentColours, ForegroundSetsTextToo)
{
    const WindowId id = Open();
    ColorStore(0x112233, id, ColourForeground);
    EXPECT_EQ(ColorGet(id, ColourForeground), 0x112233u);
    EXPECT_EQ(ColorGet(id, ColourText), 0x112233u);
    EXPECT_EQ(TheColorDefaults().Foreground, 0x112233u);
    EXPECT_EQ(TheColorDefaults().Text, 0x112233u);
}

TEST_F(DocumentColours, TextKeepsForeground)
{
    const WindowId id = Open();
    ColorStore(0x112233, id, ColourText);
    EXPECT_EQ(ColorGet(id, ColourText), 0x112233u);
    EXPECT_EQ(ColorGet(id, ColourForeground), 0u);
}

TEST_F(DocumentColours, EachBecomesDefaultOfNewDocuments)
{
    const WindowId id = Open();
    ColorStore(0x010203, id, ColourBackground);
    ColorStore(0x040506, id, ColourMarker);
    PaletteStore(PaletteNumber::BlackAndWhite, id);
    EXPECT_EQ(TheColorDefaults().Background, 0x010203u);
    EXPECT_EQ(TheColorDefaults().Marker, 0x040506u);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::BlackAndWhite);
    EXPECT_EQ(PaletteOf(id), PaletteNumber::BlackAndWhite);
}

TEST_F(DocumentColours, SetDefaultsWithoutDocument)
{
    ColorStore(0x010203, 0, ColourMarker);
    EXPECT_EQ(TheColorDefaults().Marker, 0x010203u);
    ColorStore(0x010203, 0, 9);
    PaletteStore(PaletteNumber::BlackAndWhite, 0);
    EXPECT_EQ(TheColorDefaults().PalNr, PaletteNumber::BlackAndWhite);
    EXPECT_EQ(PaletteOf(0), PaletteNumber::Colour);
}

TEST_F(DocumentColours, PaperIsBackgroundInColourAndWhiteOtherwise)
{
    const WindowId id = Open();
    ColorStore(0x010203, id, ColourBackground);
    EXPECT_EQ(PaperColor(id), 0x010203u);
    PaletteStore(PaletteNumber::BlackAndWhite, id);
    EXPECT_EQ(PaperColor(id), 0xFFFFFFu);
    PaletteStore(kUnknownPalette, id);
    EXPECT_EQ(PaperColor(id), 0xFFFFFFu);
}

TEST_F(DocumentColours, TextColourIsTheFourth)
{
    const WindowId id = Open();
    ColorStore(0x0A0B0C, id, ColourText);
    EXPECT_EQ(TextColor(id), 0x0A0B0Cu);
}

TEST_F(DocumentColours, TransparentPixelsOfNewDocumentShowItsPaper)
{
    TheColorDefaults().Background = 0x010203;
    EXPECT_EQ(PaperOfNewDocument(), 0x010203u);
    TheColorDefaults().PalNr = PaletteNumber::BlackAndWhite;
    EXPECT_EQ(PaperOfNewDocument(), 0xFFFFFFu);
}

TEST_F(DocumentColours, LowByteIsRed)
{
    EXPECT_EQ(ColorOf(0x010203), QColor(3, 2, 1));
}

} // namespace tarvik
