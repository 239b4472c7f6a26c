// Drawing the windows of a page: bands, title, picture, description, box, order.
#include "print/page/pagePaint.h"

#include "print/page/pageLayout.h"
#include "screen/bitmap/stretch.h"
#include "screen/document/description.h"
#include "screen/document/screenTable.h"
#include "tests/support/screens.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>

namespace tarvik {

namespace {

constexpr QSize kPaperDots(400, 400);

/// A painter on white paper of 96 dots per inch.
class PagePaint : public ScreenTest {
protected:
    PagePaint()
        : paper(kPaperDots, QImage::Format_RGB32)
    {
        paper.fill(Qt::white);
    }

    PageEntry EntryOf(WindowId id, bool title = false)
    {
        PageEntry entry;
        entry.Window = id;
        entry.Extent = WindowExtentOf(id);
        entry.Title = title;
        entry.Shares = SharesOf(entry.Extent, title);
        return entry;
    }

    WindowId OpenColoured(QColor colour)
    {
        return Open(WindowSubtype::File, Picture({ 200, 100 }, colour));
    }

    WindowId OpenDescribed(const QString& text)
    {
        const WindowId id = OpenColoured(Qt::red);
        WindowAt(id).DescriptionVisible = true;
        WindowAt(id).Description = text;
        return id;
    }

    void Paint(const PageEntry& entry, const QRect& device, const EntryStyle& style = {})
    {
        QPainter painter(&paper);
        PaintEntry(painter, entry, device, style);
    }

    QColor At(int x, int y) const
    {
        return paper.pixelColor(x, y);
    }

    /// Number of pixels in a rectangle that are not white.
    int Inked(const QRect& where) const
    {
        int inked = 0;
        for (int y = where.top(); y <= where.bottom(); ++y) {
            for (int x = where.left(); x <= where.right(); ++x)
                inked += At(x, y) == Qt::white ? 0 : 1;
        }
        return inked;
    }

    QImage paper;
};

} // namespace

TEST(EntryBands, WithoutTextsThePictureHasAll)
{
    PageEntry entry;
    const EntryBands bands = BandsOf(entry, QRect(10, 20, 100, 50));
    EXPECT_EQ(bands.Picture, QRect(10, 20, 100, 50));
    EXPECT_TRUE(bands.Title.isEmpty());
    EXPECT_TRUE(bands.Description.isEmpty());
}

TEST(EntryBands, ShareTheHeight)
{
    PageEntry entry;
    entry.Title = true;
    entry.Shares = { 0.1F, 0.7F, 0.2F, 0 };
    const EntryBands bands = BandsOf(entry, QRect(10, 20, 100, 50));
    EXPECT_EQ(bands.Title, QRect(10, 20, 100, 5));
    EXPECT_EQ(bands.Description, QRect(10, 60, 100, 10));
    EXPECT_EQ(bands.Picture, QRect(10, 25, 100, 35));
}

TEST(FontForWidth, ShrinksInStepsUntilTheTextFits)
{
    QImage device(10, 10, QImage::Format_RGB32);
    const QFont start(QStringLiteral("Arial"));
    const QFont wide = FontForWidth(start, 10, QStringLiteral("text"), 10000, &device);
    EXPECT_DOUBLE_EQ(wide.pointSizeF(), 10);
    const auto widthOf = [&device](const QFont& font) {
        return QFontMetricsF(font, &device).horizontalAdvance(QStringLiteral("text"));
    };
    const int width = qFloor(widthOf(wide)) - 2;
    const QFont narrow = FontForWidth(start, 10, QStringLiteral("text"), width, &device);
    EXPECT_LT(narrow.pointSizeF(), 10);
    EXPECT_LE(widthOf(narrow), width);
    QFont next = narrow;
    next.setPointSizeF(narrow.pointSizeF() + kFontStepPoints);
    EXPECT_GT(widthOf(next), width);
    EXPECT_NEAR(FontForWidth(start, 10, QStringLiteral("text"), 1, &device).pointSizeF(), 5, 1e-6) << "at most 5 away";
    EXPECT_DOUBLE_EQ(FontForWidth(start, 3, QStringLiteral("text"), 1, &device).pointSizeF(), 1);
}

TEST_F(PagePaint, PictureFillsItsPlace)
{
    Paint(EntryOf(OpenColoured(Qt::red)), QRect(50, 60, 200, 100));
    EXPECT_EQ(At(50, 60), Qt::red);
    EXPECT_EQ(At(249, 159), Qt::red);
    EXPECT_EQ(Inked(QRect(0, 0, 400, 60)) + Inked(QRect(0, 161, 400, 239)), 0);
    EXPECT_EQ(Inked(QRect(0, 60, 50, 100)) + Inked(QRect(251, 60, 149, 100)), 0);
}

TEST_F(PagePaint, OutlineIsTwoBoxes)
{
    PageEntry entry = EntryOf(OpenColoured(Qt::red));
    entry.Outline = true;
    Paint(entry, QRect(50, 60, 200, 100));
    for (const int inset : { 0, 1 }) {
        EXPECT_EQ(At(50 + inset, 100), Qt::black);
        EXPECT_EQ(At(250 - inset, 100), Qt::black);
        EXPECT_EQ(At(150, 60 + inset), Qt::black);
        EXPECT_EQ(At(150, 160 - inset), Qt::black);
    }
    EXPECT_EQ(At(52, 100), Qt::red);
    EXPECT_EQ(At(251, 100), Qt::white);
}

TEST_F(PagePaint, StyleWithoutBoxDrawsNone)
{
    PageEntry entry = EntryOf(OpenColoured(Qt::red));
    entry.Outline = true;
    Paint(entry, QRect(50, 60, 200, 100), { false, false, false });
    EXPECT_EQ(At(50, 60), Qt::red);
}

TEST_F(PagePaint, TitleStandsAboveItsLine)
{
    const WindowId id = OpenColoured(Qt::red);
    ViewOf(id)->SetCaption("Channel 16");
    const PageEntry entry = EntryOf(id, true);
    const QRect device(0, 0, 400, 218);
    Paint(entry, device);
    const EntryBands bands = BandsOf(entry, device);
    EXPECT_EQ(bands.Title.height(), 18);
    EXPECT_GT(Inked(bands.Title), 50);
    EXPECT_EQ(Inked(QRect(0, 0, 60, 18)), 0) << "centred";
    EXPECT_EQ(At(0, 18), Qt::black);
    EXPECT_EQ(At(399, 18), Qt::black);
    EXPECT_EQ(At(200, 19), Qt::red);
}

TEST_F(PagePaint, TitleThatFitsInNoSizeIsElided)
{
    const WindowId id = OpenColoured(Qt::red);
    ViewOf(id)->SetCaption(QString(300, u'W'));
    Paint(EntryOf(id, true), QRect(100, 100, 200, 109));
    EXPECT_EQ(Inked(QRect(0, 100, 100, 109)) + Inked(QRect(302, 100, 98, 109)), 0);
}

TEST_F(PagePaint, DescriptionStandsBelowThePicture)
{
    const PageEntry entry = EntryOf(OpenDescribed("first\r\nsecond"));
    EXPECT_GT(entry.Shares.Description, 0);
    const QRect device(0, 0, 400, 200 + 2 * entry.Extent.DescriptionHeight);
    Paint(entry, device);
    const EntryBands bands = BandsOf(entry, device);
    EXPECT_EQ(At(200, bands.Description.top() - 1), Qt::black) << "the line above";
    EXPECT_EQ(At(200, bands.Description.top() - 2), Qt::red);
    EXPECT_GT(Inked(bands.Description), 30);
    EXPECT_EQ(Inked(QRect(0, bands.Description.top(), 2, bands.Description.height())), 0);
}

TEST_F(PagePaint, BoxEndsUnderTheDescription)
{
    PageEntry entry = EntryOf(OpenDescribed("only line"));
    entry.Outline = true;
    // A wide entry: the columns limit the font, and the line is lower than its band.
    entry.Shares = { 0, 0.5F, 0.5F, 0 };
    Paint(entry, QRect(0, 0, 300, 300));
    int bottom = 0;
    for (int y = 0; y < 400; ++y)
        bottom = At(150, y) == Qt::black ? y : bottom;
    EXPECT_GT(bottom, 150);
    EXPECT_LT(bottom, 250);
    EXPECT_EQ(Inked(QRect(0, bottom + 1, 400, 399 - bottom)), 0);
}

TEST_F(PagePaint, DescriptionOfAMaximisedWindowIsPrinted)
{
    const WindowId id = OpenDescribed("text");
    const int height = DescrHeight(id);
    ASSERT_GT(height, 0);
    Views[id].WindowState = WinState::Maximised;
    EXPECT_EQ(DescrHeight(id), 0);
    EXPECT_EQ(WindowExtentOf(id).DescriptionHeight, height);
    WindowAt(id).DescriptionVisible = false;
    EXPECT_EQ(WindowExtentOf(id).DescriptionHeight, 0);
}

TEST_F(PagePaint, BlackAndWhiteConvertsOnce)
{
    QImage grey = Picture({ 1, 1 }, Qt::red);
    ConvertToBlackAndWhite(grey);
    const WindowId id = OpenColoured(Qt::red);
    Paint(EntryOf(id), QRect(0, 0, 200, 100), { true });
    EXPECT_EQ(At(100, 50), grey.pixelColor(0, 0));
    ScreenOf(id)->PalNr = PaletteNumber::BlackAndWhite;
    Paint(EntryOf(id), QRect(0, 0, 200, 100), { true });
    EXPECT_EQ(At(100, 50), grey.pixelColor(0, 0));
    Paint(EntryOf(id), QRect(0, 0, 200, 100));
    EXPECT_EQ(At(100, 50), grey.pixelColor(0, 0)) << "as its window shows it";
}

TEST_F(PagePaint, EntriesAreDrawnInTheirOrder)
{
    PageRecord page;
    page.Count = 2;
    page.Entries[0] = EntryOf(OpenColoured(Qt::red));
    page.Entries[1] = EntryOf(OpenColoured(Qt::blue));
    Sheet sheet;
    sheet.Offset = { 0, 0 };
    sheet.DotsPerInch = { 100, 100 };
    for (PageEntry& entry : page.InUse())
        entry.Rectangle = { 1, 1, 2, 1 };
    page.Entries[0].Order = 3;
    page.Entries[1].Order = 2;
    QPainter painter(&paper);
    PaintPage(painter, page, sheet);
    EXPECT_EQ(At(200, 150), Qt::red);
    EXPECT_EQ(At(289, 189), Qt::red) << "ten dots less in each axis";
    EXPECT_EQ(At(291, 150), Qt::white);
    page.Entries[0].Order = 1;
    PaintPage(painter, page, sheet);
    EXPECT_EQ(At(200, 150), Qt::blue);
}

TEST_F(PagePaint, EntryWithoutPictureStaysBlankAndTheRestIsDrawn)
{
    PageRecord page;
    page.Count = 2;
    page.Entries[0] = EntryOf(OpenColoured(Qt::red));
    page.Entries[1] = EntryOf(OpenColoured(Qt::blue));
    page.Entries[0].Outline = true;
    Sheet sheet;
    sheet.Offset = { 0, 0 };
    sheet.DotsPerInch = { 100, 100 };
    page.Entries[0].Rectangle = { 0, 0, 2, 1 };
    page.Entries[1].Rectangle = { 0, 2, 2, 1 };
    WindowFreeSlot(page.Entries[0].Window);
    QPainter painter(&paper);
    PaintPage(painter, page, sheet);
    EXPECT_EQ(Inked(QRect(0, 0, 400, 199)), 0);
    EXPECT_EQ(At(100, 250), Qt::blue);
}

TEST_F(PagePaint, PainterIsUnchangedOnReturn)
{
    QPainter painter(&paper);
    painter.setPen(Qt::green);
    PageEntry entry = EntryOf(OpenDescribed("text"), true);
    entry.Outline = true;
    const QFont font = painter.font();
    PaintEntry(painter, entry, QRect(0, 0, 100, 100), {});
    EXPECT_EQ(painter.pen().color(), Qt::green);
    EXPECT_EQ(painter.font(), font);
    EXPECT_FALSE(painter.hasClipping());
}

} // namespace tarvik
