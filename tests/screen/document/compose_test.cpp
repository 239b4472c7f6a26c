#include "screen/document/compose.h"

#include "screen/window/descriptionEdit.h"
#include "screen/window/palette.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

class Composing : public ScreenTest {
protected:
    /// The number of pixels in these rows that differ from the colour.
    static int CountDifferent(const QImage& image, int top, int bottom, QColor colour)
    {
        int others = 0;
        for (int row = top; row < bottom; ++row) {
            for (int column = 0; column < image.width(); ++column)
                others += image.pixelColor(column, row) == colour ? 0 : 1;
        }
        return others;
    }
};

const QColor kPaper(0xCE, 0xCF, 0xCE);

} // namespace

TEST_F(Composing, WithoutDescriptionGivesPicture)
{
    const WindowId id = Open();
    EXPECT_EQ(ComposeWindow(id), Picture());
}

TEST_F(Composing, PictureHasSizeInWindow)
{
    const WindowId id = Open();
    Views[id].Client = { 321, 442 };
    ApplySize(id);
    EXPECT_EQ(ComposeWindow(id).size(), QSize(321, 221));
}

TEST_F(Composing, DescriptionIsBelowSeparatorLine)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    DescrSetText(id, QStringLiteral("Channel 16\nCalling"));
    const QImage whole = ComposeWindow(id);
    const int line = DescrLineHeight(id);
    ASSERT_EQ(whole.size(), QSize(642, 442 + 2 * line + 1));
    EXPECT_EQ(whole.copy(0, 0, 642, 442), Picture());
    EXPECT_EQ(CountDifferent(whole, 442, 443, Qt::black), 0);
    EXPECT_GT(CountDifferent(whole, 443, 443 + line, kPaper), 0);
    EXPECT_GT(CountDifferent(whole, 443 + line, 443 + 2 * line, kPaper), 0);
}

TEST_F(Composing, EmptyDescriptionIsBlank)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    const QImage whole = ComposeWindow(id);
    EXPECT_EQ(CountDifferent(whole, 443, whole.height(), kPaper), 0);
}

TEST_F(Composing, TextStartsAsInWindow)
{
    const WindowId id = Open(WindowSubtype::File, Picture({ 900, 100 }));
    DescrSetVisible(true, id);
    DescrSetText(id, QStringLiteral("x"));
    const QImage whole = ComposeWindow(id);
    const QRect place = Views[id].Layout.Text;
    EXPECT_EQ(
        CountDifferent(whole.copy(0, 101, place.left(), whole.height() - 101), 0, whole.height() - 101, kPaper), 0);
    const QImage letter = whole.copy(place.left(), 101, 10, whole.height() - 101);
    EXPECT_GT(CountDifferent(letter, 0, letter.height(), kPaper), 0);
}

TEST_F(Composing, TextOfNarrowPictureStartsAtEdge)
{
    const WindowId id = Open(WindowSubtype::File, Picture({ 100, 100 }));
    DescrSetVisible(true, id);
    DescrSetText(id, QStringLiteral("x"));
    const QImage whole = ComposeWindow(id);
    EXPECT_GT(CountDifferent(whole.copy(0, 101, 10, whole.height() - 101), 0, whole.height() - 101, kPaper), 0);
}

TEST_F(Composing, GlyphHigherThanLineStaysOutOfPicture)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    DescrSetText(id, QString(QChar(u'B')) + QChar(0x0301)); // a combination without a precomposed glyph
    EXPECT_EQ(ComposeWindow(id).copy(0, 0, 642, 442), Picture());
}

TEST_F(Composing, BlackAndWhiteHasWhitePaper)
{
    const WindowId id = Open(WindowSubtype::File, Picture({ 200, 100 }, Qt::white));
    DescrSetVisible(true, id);
    PaletteSet(PaletteNumber::BlackAndWhite, id, true);
    const QImage whole = ComposeWindow(id);
    EXPECT_EQ(CountDifferent(whole, 0, 100, Qt::black), 0);
    EXPECT_EQ(CountDifferent(whole, 101, whole.height(), Qt::white), 0);
}

TEST_F(Composing, TextHasNoColouredEdges)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    PaletteSet(PaletteNumber::BlackAndWhite, id, true);
    DescrSetText(id, QStringLiteral("The quick brown fox"));
    const QImage whole = ComposeWindow(id);
    EXPECT_TRUE(whole.copy(0, 443, whole.width(), whole.height() - 443).isGrayscale());
}

TEST_F(Composing, WithoutPictureGivesNull)
{
    EXPECT_TRUE(ComposeWindow(0).isNull());
    EXPECT_TRUE(ComposeWindow(TakeSlot(WindowType::Screen)).isNull());
}

} // namespace tarvik
