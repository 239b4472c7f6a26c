// Texts of metafiles.
#include "screen/metafile/metafileFont.h"
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

enum Align { UpdatePosition = 1, Right = 2, Centre = 6, Bottom = 8, Baseline = 24 };

/// 200 by 100 pixels, line height of 20 pixels, transparent background.
MetafileBuilder Page()
{
    return MetafileBuilder(QSize(200, 100)).Font(20, "DejaVu Sans").Select(0).Record(0x0102, { 1 });
}

MetafileBuilder& Align(MetafileBuilder& builder, int align)
{
    return builder.Record(0x012E, { align });
}

MetafileBuilder& Write(MetafileBuilder& builder, QPoint at, const QByteArray& text)
{
    const QByteArray filled = text + QByteArray(text.size() % 2, '\0');
    return builder.Record(
        0x0521, { static_cast<int>(text.size()) }, filled + ByteWriter().Add16(at.y()).Add16(at.x()).Bytes());
}

MetafileBuilder& WriteSpaced(MetafileBuilder& builder, QPoint at, const QByteArray& text, int advance)
{
    ByteWriter more;
    more.Add(text).Add(QByteArray(text.size() % 2, '\0'));
    for (qsizetype i = 0; i < text.size(); ++i)
        more.Add16(advance);
    return builder.Record(0x0A32, { at.y(), at.x(), static_cast<int>(text.size()), 0 }, more.Bytes());
}

/// The extent of an H aligned to the middle of the page.
QRect DrawnWith(int align)
{
    MetafileBuilder builder = Page();
    return Drawn(Painted(Write(Align(builder, align), { 100, 50 }, "H")));
}

/// Three words of a font: weight; italic and underline, strike-out and character set; pitch and family.
MetafileBuilder PageWithFont(
    int weight, int slantAndUnderline, int stroke, int pitch = 0, const QByteArray& face = "DejaVu Sans")
{
    MetafileBuilder builder(QSize(200, 100));
    builder.Record(0x02FB, { 20, 0, 0, 0, weight, slantAndUnderline, stroke, 0, pitch << 8 }, face + '\0').Select(0);
    return builder.Record(0x0102, { 1 });
}

QImage WrittenWith(MetafileBuilder builder, const QByteArray& text = "H H")
{
    return Painted(Write(builder, { 10, 10 }, text));
}

MetafileFontFace FaceFor(quint8 set, bool symbols = false)
{
    return { QFont(), QFontMetricsF(QFont()), 1, 0, set, symbols };
}

} // namespace

TEST(MetafileText, IsAlignedHorizontally)
{
    EXPECT_GE(DrawnWith(0).left(), 100);
    EXPECT_LE(DrawnWith(Right).right(), 100);
    EXPECT_NEAR(DrawnWith(Centre).center().x(), 100, 1);
}

TEST(MetafileText, IsAlignedVertically)
{
    EXPECT_GT(DrawnWith(0).top(), 50);
    EXPECT_LE(DrawnWith(0).bottom(), 70);
    EXPECT_LT(DrawnWith(Bottom).bottom(), DrawnWith(Baseline).bottom() - 2);
    EXPECT_GE(DrawnWith(Bottom).top(), 30);
    EXPECT_EQ(DrawnWith(Baseline).bottom(), 49);
}

TEST(MetafileText, HeightIsOfLineOrCharacter)
{
    MetafileBuilder line(QSize(200, 100));
    MetafileBuilder letters(QSize(200, 100));
    line.Font(40, "DejaVu Sans").Select(0).Record(0x0102, { 1 });
    letters.Font(-40, "DejaVu Sans").Select(0).Record(0x0102, { 1 });
    const int lineHeight = Drawn(Painted(Write(line, { 10, 10 }, "H"))).height();
    const int letterHeight = Drawn(Painted(Write(letters, { 10, 10 }, "H"))).height();
    EXPECT_NEAR(letterHeight, 40 * 0.73, 2);
    EXPECT_LT(lineHeight, letterHeight);
}

TEST(MetafileText, SizesAreScaled)
{
    MetafileBuilder builder(QSize(200, 100));
    builder.Font(-400, "DejaVu Sans").Select(0).Record(0x0102, { 1 }).Window(0, 0, 2000, 1000);
    EXPECT_NEAR(Drawn(Painted(Write(builder, { 100, 100 }, "H"))).height(), 40 * 0.73, 2);
}

TEST(MetafileText, FontWidthStretchesText)
{
    MetafileBuilder builder(QSize(200, 100));
    builder.Record(0x02FB, { -20, 30, 0, 0, 400, 0, 0, 0, 0 }, QByteArray("DejaVu Sans\0", 12)).Select(0);
    builder.Record(0x0102, { 1 });
    const int wide = Drawn(Painted(Write(builder, { 5, 5 }, "HHH"))).width();
    MetafileBuilder plain(QSize(200, 100));
    plain.Font(-20, "DejaVu Sans").Select(0).Record(0x0102, { 1 });
    EXPECT_GT(wide, 2 * Drawn(Painted(Write(plain, { 5, 5 }, "HHH"))).width());
}

TEST(MetafileText, HasTextColour)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0209, { kRed, 0 });
    EXPECT_GT(Count(Painted(Write(builder, { 10, 10 }, "HHH")), 0xFF0000), 10);
}

TEST(MetafileText, IsBoldByWeight)
{
    const int plain = Count(WrittenWith(PageWithFont(0, 0, 0)), 0);
    EXPECT_EQ(Count(WrittenWith(PageWithFont(400, 0, 0)), 0), plain);
    EXPECT_GT(Count(WrittenWith(PageWithFont(700, 0, 0)), 0), plain * 5 / 4);
}

TEST(MetafileText, CanBeSlanted)
{
    const QImage plain = WrittenWith(PageWithFont(400, 0, 0));
    const QImage slanted = WrittenWith(PageWithFont(400, 0x0001, 0));
    EXPECT_NE(slanted, plain);
    EXPECT_EQ(Drawn(slanted).height(), Drawn(plain).height());
}

TEST(MetafileText, CanBeUnderlined)
{
    const QRect plain = Drawn(WrittenWith(PageWithFont(400, 0, 0)));
    const QRect underlined = Drawn(WrittenWith(PageWithFont(400, 0x0100, 0)));
    EXPECT_EQ(underlined.top(), plain.top());
    EXPECT_GT(underlined.bottom(), plain.bottom());
}

TEST(MetafileText, CanBeStruckOut)
{
    const QRect plain = Drawn(WrittenWith(PageWithFont(400, 0, 0), "H H"));
    const QImage struck = WrittenWith(PageWithFont(400, 0, 0x0001), "H H");
    EXPECT_EQ(Drawn(struck).bottom(), plain.bottom());
    const int between = plain.center().x();
    EXPECT_FALSE(Drawn(struck.copy(between, 0, 1, 100)).isEmpty());
    EXPECT_TRUE(Drawn(WrittenWith(PageWithFont(400, 0, 0)).copy(between, 0, 1, 100)).isEmpty());
}

TEST(MetafileText, ReplacementFontKeepsPitch)
{
    const auto width = [](int pitch, const QByteArray& text) {
        return Drawn(WrittenWith(PageWithFont(400, 0, 0, pitch, "No Such Face"), text)).width();
    };
    const int fixed = 1;
    const int modern = 3 << 4;
    for (const int pitch : { fixed, modern })
        EXPECT_NEAR(width(pitch, "HiiiiiiH"), width(pitch, "HMMMMMMH"), 1) << pitch;
    EXPECT_LT(width(2, "HiiiiiiH") + 20, width(2, "HMMMMMMH"));
}

TEST(MetafileText, ReplacementFontKeepsSerifs)
{
    const int roman = 1 << 4;
    const int swiss = 2 << 4;
    EXPECT_NE(WrittenWith(PageWithFont(400, 0, 0, roman, "No Such Face")),
        WrittenWith(PageWithFont(400, 0, 0, swiss, "No Such Face")));
}

TEST(MetafileText, HasRequestedFace)
{
    const auto width = [](const QByteArray& text) {
        return Drawn(WrittenWith(PageWithFont(400, 0, 0, 0, "DejaVu Sans Mono"), text)).width();
    };
    EXPECT_NEAR(width("HiiiiiiH"), width("HMMMMMMH"), 1);
}

TEST(MetafileText, CoversBackgroundUnlessTransparent)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0102, { 2 }).Record(0x0201, { kGreen, 0 });
    const QImage picture = Painted(Write(builder, { 10, 10 }, "HHH"));
    EXPECT_EQ(Drawn(picture).top(), 10);
    EXPECT_EQ(Drawn(picture).left(), 10);
    EXPECT_NEAR(Drawn(picture).height(), 20, 1);
    EXPECT_EQ(At(picture, 10, 10), 0x00FF00U);
}

TEST(MetafileText, IsPositionedByAdvances)
{
    MetafileBuilder builder = Page();
    const QImage picture = Painted(WriteSpaced(builder, { 10, 10 }, "II", 60));
    const QRect drawn = Drawn(picture);
    EXPECT_NEAR(drawn.width(), 60, 4);
    EXPECT_EQ(Count(picture.copy(25, 0, 40, 100), 0xFFFFFF), 40 * 100);
}

TEST(MetafileText, IsAlignedByAdvances)
{
    MetafileBuilder builder = Page();
    const QRect drawn = Drawn(Painted(WriteSpaced(Align(builder, Right), { 180, 10 }, "II", 60)));
    EXPECT_GE(drawn.left(), 60);
    EXPECT_LT(drawn.left(), 70);
}

TEST(MetafileText, HasExtraSpacing)
{
    MetafileBuilder plain = Page();
    MetafileBuilder wide = Page();
    wide.Record(0x0108, { 20 });
    const int difference =
        Drawn(Painted(Write(wide, { 10, 10 }, "HH"))).width() - Drawn(Painted(Write(plain, { 10, 10 }, "HH"))).width();
    EXPECT_NEAR(difference, 20, 1);
}

TEST(MetafileText, HasExtraSpacingAtBlanksOnly)
{
    MetafileBuilder plain = Page();
    MetafileBuilder wide = Page();
    wide.Record(0x020A, { 2, 30 });
    const int difference = Drawn(Painted(Write(wide, { 10, 10 }, "H H H"))).width()
        - Drawn(Painted(Write(plain, { 10, 10 }, "H H H"))).width();
    EXPECT_NEAR(difference, 30, 2);
}

TEST(MetafileText, IsCondensedByNegativeSpacing)
{
    const auto narrower = [](int function, std::initializer_list<int> extra) {
        MetafileBuilder plain = Page();
        MetafileBuilder narrow = Page();
        narrow.Record(function, extra);
        return Drawn(Painted(Write(plain, { 10, 10 }, "H H H"))).width()
            - Drawn(Painted(Write(narrow, { 10, 10 }, "H H H"))).width();
    };
    EXPECT_NEAR(narrower(0x0108, { -2 }), 8, 1);
    EXPECT_NEAR(narrower(0x020A, { 2, -6 }), 6, 1);
}

TEST(MetafileText, UsesHorizontalAdvancesOfPairs)
{
    ByteWriter more;
    more.Add("IIII").Add16(40).Add16(7).Add16(40).Add16(7).Add16(40).Add16(7).Add16(40).Add16(7);
    MetafileBuilder builder = Page();
    builder.Record(0x0A32, { 10, 10, 4, 0x2000 }, more.Bytes());
    MetafileBuilder single = Page();
    EXPECT_EQ(Painted(builder), Painted(WriteSpaced(single, { 10, 10 }, "IIII", 40)));
}

TEST(MetafileText, RightAlignedMovesPositionLeft)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0214, { 40, 180 });
    Align(builder, UpdatePosition | Right);
    WriteSpaced(builder, { 0, 0 }, "H", 50);
    WriteSpaced(builder, { 0, 0 }, "H", 50);
    const QRect drawn = Drawn(Painted(builder));
    EXPECT_GE(drawn.left(), 80);
    EXPECT_LT(drawn.left(), 90);
    EXPECT_GE(drawn.right(), 130);
}

TEST(MetafileText, KeepsPositionUnlessUpdating)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0214, { 40, 20 });
    Write(builder, { 100, 60 }, "H");
    const QImage picture = Painted(builder.Pen(0, 0, kRed).Select(1).Record(0x0213, { 40, 30 }));
    EXPECT_EQ(Drawn(picture.copy(0, 0, 200, 45)), QRect(20, 40, 10, 1));
}

TEST(MetafileText, MovesPositionWhenUpdating)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0214, { 40, 20 });
    Align(builder, UpdatePosition);
    WriteSpaced(builder, { 0, 0 }, "H", 50);
    WriteSpaced(builder, { 0, 0 }, "H", 50);
    const QRect drawn = Drawn(Painted(builder));
    EXPECT_GE(drawn.left(), 20);
    EXPECT_GE(drawn.right(), 72);
    EXPECT_GE(drawn.top(), 40);
}

TEST(MetafileText, IsRotatedWithFont)
{
    MetafileBuilder builder(QSize(100, 100));
    builder.Font(20, "DejaVu Sans", 900).Select(0).Record(0x0102, { 1 });
    const QRect drawn = Drawn(Painted(Write(builder, { 50, 90 }, "HHHH")));
    EXPECT_GT(drawn.height(), 2 * drawn.width());
    EXPECT_LE(drawn.bottom(), 90);
    EXPECT_GE(drawn.left(), 50);
}

TEST(MetafileText, FillsAndClipsRectangle)
{
    const QByteArray letters = "HHHHHHHHHH";
    MetafileBuilder builder = Page();
    builder.Record(0x0201, { kGreen, 0 });
    builder.Record(0x0A32, { 10, 10, 10, 2 | 4, 5, 5, 45, 35 }, letters);
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(5, 5, 40, 30));
    EXPECT_EQ(At(picture, 5, 34), 0x00FF00U);
    EXPECT_GT(Count(picture, 0x000000), 10);
}

TEST(MetafileText, CanBeClippedWithoutFilling)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0201, { kGreen, 0 }).Record(0x0A32, { 10, 10, 10, 4, 5, 5, 45, 35 }, "HHHHHHHHHH");
    const QImage picture = Painted(builder);
    EXPECT_TRUE(QRect(5, 5, 40, 30).contains(Drawn(picture)));
    EXPECT_EQ(Drawn(picture).right(), 44);
    EXPECT_EQ(Count(picture, 0x00FF00), 0);
}

TEST(MetafileText, EmptyTextFillsRectangleOnly)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0201, { kGreen, 0 }).Record(0x0A32, { 0, 0, 0, 2, 5, 5, 45, 35 });
    EXPECT_EQ(Drawn(Painted(builder)), QRect(5, 5, 40, 30));
}

TEST(MetafileText, TruncatedTextIsRefused)
{
    EXPECT_TRUE(Painted(Page().Record(0x0521, { 40, 0x4848, 0, 0 })).isNull());
    EXPECT_TRUE(Painted(Page().Record(0x0A32, { 0, 0, 40, 0, 0x4848 })).isNull());
}

TEST(MetafileCharacters, DependOnCharacterSet)
{
    EXPECT_EQ(DecodeMetafileText("\xB5V \x80", FaceFor(0)), u"µV €"_qs);
    EXPECT_EQ(DecodeMetafileText("\xCF\xF0", FaceFor(204)), u"Пр"_qs);
    EXPECT_EQ(DecodeMetafileText("\xD9", FaceFor(161)), u"Ω"_qs);
    EXPECT_EQ(DecodeMetafileText("\x93\xFA", FaceFor(128)), u"日"_qs);
    EXPECT_EQ(DecodeMetafileText("\xC7\xD1", FaceFor(129)), u"한"_qs);
    EXPECT_EQ(DecodeMetafileText("\xC6\xB5", FaceFor(134)), u"频"_qs);
    EXPECT_EQ(DecodeMetafileText("\xC0W", FaceFor(136)), u"頻"_qs);
    EXPECT_EQ(DecodeMetafileText("\xFD", FaceFor(162)), u"ı"_qs);
    EXPECT_EQ(DecodeMetafileText("\xE0", FaceFor(177)), u"א"_qs);
    EXPECT_EQ(DecodeMetafileText("\xC7", FaceFor(178)), u"ا"_qs);
    EXPECT_EQ(DecodeMetafileText("\xE0", FaceFor(186)), u"ą"_qs);
    EXPECT_EQ(DecodeMetafileText("\xF8", FaceFor(238)), u"ř"_qs);
}

TEST(MetafileCharacters, OfSymbolFontAreGreekLettersAndSigns)
{
    EXPECT_EQ(DecodeMetafileText("mW 5", FaceFor(2, true)), u"μΩ 5"_qs);
    EXPECT_EQ(DecodeMetafileText("\"A`z~", FaceFor(2, true)), u"∀Α‾ζ∼"_qs);
    EXPECT_EQ(DecodeMetafileText("\xA0\xA5\xB0\xB1\xB7\xC0\xD6\xE5\xFE", FaceFor(2, true)), u"€∞°±•ℵ√∑⎭"_qs);
}

TEST(MetafileText, SymbolTextUsesAnotherFont)
{
    constexpr int kSymbolSet = 2 << 8;
    constexpr int kGreekSet = 161 << 8;
    constexpr int kRoman = 0x10;
    const QImage symbols = WrittenWith(PageWithFont(400, 0, kSymbolSet, 0, "Symbol"), "abW");
    EXPECT_EQ(symbols, WrittenWith(PageWithFont(400, 0, kGreekSet, kRoman, "Times New Roman"), "\xE1\xE2\xD9"));
    EXPECT_FALSE(Drawn(symbols).isEmpty());
}

TEST(MetafileCharacters, DoubleByteCharactersStayTogether)
{
    EXPECT_EQ(SplitCharacters("a\x93\xFA", 128), QVector<QByteArray>({ "a", "\x93\xFA" }));
    EXPECT_EQ(SplitCharacters("a\x93", 128), QVector<QByteArray>({ "a", "\x93" }));
    for (const quint8 set : std::initializer_list<quint8>{ 129, 134, 136 })
        EXPECT_EQ(SplitCharacters("\xC7\xD1", set), QVector<QByteArray>({ "\xC7\xD1" })) << int{ set };
    EXPECT_EQ(SplitCharacters("\xA0\xE0\xA1", 128), QVector<QByteArray>({ "\xA0", "\xE0\xA1" })); // half of width
    EXPECT_EQ(SplitCharacters("\x93\xFA", 0), QVector<QByteArray>({ "\x93", "\xFA" }));
}

} // namespace tarvik
