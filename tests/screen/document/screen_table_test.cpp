#include "screen/document/color.h"
#include "tests/support/screens.h"

namespace tarvik {

using ScreenDocuments = ScreenTest;

TEST_F(ScreenDocuments, BelongToScreenWindowsOnly)
{
    const WindowId diagram = TakeSlot(WindowType::DataSet);
    const WindowId screen = Open();
    EXPECT_EQ(ScreenOf(0), nullptr);
    EXPECT_EQ(ScreenOf(diagram), nullptr);
    EXPECT_EQ(ScreenOf(screen), &ScreenTable()[1]);
}

TEST_F(ScreenDocuments, StartWithColoursSetLast)
{
    TheColorDefaults() = { 0x010203, 0x040506, 0x070809, 0x0A0B0C, PaletteNumber::BlackAndWhite };
    const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
    WindowInitialise(slot, {}, 0);
    const ScreenRecord& record = ScreenInitialise(slot.Id);
    EXPECT_EQ(record.Colours[ColourBackground], 0x010203u);
    EXPECT_EQ(record.Colours[ColourForeground], 0x040506u);
    EXPECT_EQ(record.Colours[ColourMarker], 0x070809u);
    EXPECT_EQ(record.Colours[ColourText], 0x0A0B0Cu);
    EXPECT_EQ(record.PalNr, PaletteNumber::BlackAndWhite);
    EXPECT_EQ(record.SourceTag, WindowSubtype::File);
    EXPECT_EQ(record.DocumentIndex, 1);
    EXPECT_EQ(record.Date, moment_);
    EXPECT_EQ(record.ZoomState, 0);
    EXPECT_TRUE(record.Master.isNull());
    EXPECT_TRUE(record.Graph.isNull());
}

TEST_F(ScreenDocuments, AreResetInReusedWindow)
{
    const WindowId id = Open();
    ScreenOf(id)->ZoomState = 3;
    ScreenOf(id)->PalNr = PaletteNumber::BlackAndWhite;
    const ScreenRecord& record = ScreenInitialise(id);
    EXPECT_EQ(record.ZoomState, 0);
    EXPECT_EQ(record.PalNr, PaletteNumber::Colour);
    EXPECT_TRUE(record.Master.isNull());
    EXPECT_TRUE(record.Graph.isNull());
}

TEST_F(ScreenDocuments, AreClearedWhenFreed)
{
    const WindowId id = Open();
    ASSERT_FALSE(ScreenOf(id)->Master.isNull());
    ScreenFree(id);
    EXPECT_TRUE(ScreenOf(id)->Master.isNull());
    EXPECT_TRUE(ScreenOf(id)->Graph.isNull());
    EXPECT_FALSE(ScreenOf(id)->Date.isValid());
}

} // namespace tarvik
