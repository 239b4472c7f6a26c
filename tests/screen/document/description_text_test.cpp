#include "screen/document/description.h"

#include <QFontMetrics>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace tarvik {

namespace {

QFont Font()
{
    return DescrFont(WindowType::Screen);
}

int WidthOf(int columns)
{
    return QFontMetrics(Font()).horizontalAdvance(QString(columns, u' ')) + 1;
}

} // namespace

TEST(DescriptionTexts, NormaliseLineEnds)
{
    EXPECT_EQ(DescriptionPlain(QStringLiteral("a\r\nb\nc\rd")), QStringLiteral("a\nb\nc\nd"));
    for (const char16_t end : { u'\u2028', u'\u2029', u'\ufdd0', u'\ufdd1' })
        EXPECT_EQ(DescriptionPlain(QStringLiteral("a") + QChar(end) + u'b'), QStringLiteral("a\nb"));
}

TEST(DescriptionTexts, ReplaceControlCharacters)
{
    EXPECT_EQ(DescriptionPlain(QStringLiteral("a\tb\x01"
                                              "c\u0085d\ufffc")),
        QStringLiteral("a b c d "));
}

TEST(DescriptionTexts, KeepEveryOtherCharacter)
{
    const QString text = QStringLiteral(" 100\u00a0MHz \U0001f4e1 e\u0301\u200d\u00ad ");
    EXPECT_EQ(DescriptionPlain(text), text);
}

TEST(DescriptionTexts, BreakAtWordsButNotAtNonBreakingSpace)
{
    const QString words = QString(8, u'x') + u' ' + QString(8, u'y');
    EXPECT_EQ(DescriptionText(words, Font(), WidthOf(10)).Lines().first(), QString(8, u'x') + u' ');
    const QString fixed = QString(8, u'x') + u'\u00a0' + QString(8, u'y');
    EXPECT_EQ(DescriptionText(fixed, Font(), WidthOf(10)).Lines().first(), fixed.left(10));
}

TEST(DescriptionTexts, CountEveryLine)
{
    EXPECT_EQ(DescriptionText({}, Font(), 100).LineCount(), 1);
    EXPECT_EQ(DescriptionText(QStringLiteral("\n"), Font(), 100).LineCount(), 2);
    EXPECT_EQ(DescriptionText(QString(25, u'x') + QStringLiteral("\ny"), Font(), WidthOf(10)).LineCount(), 4);
}

TEST(DescriptionTexts, ReturnFirstLines)
{
    const QString text = QString(25, u'x') + QStringLiteral("\n\ny\n");
    const DescriptionText laidOut(text, Font(), WidthOf(10)); // 10, 10, 5, 0, 1, 0
    EXPECT_EQ(laidOut.FirstLines(0), QString());
    EXPECT_EQ(laidOut.FirstLines(1), text.left(10));
    EXPECT_EQ(laidOut.FirstLines(2), text.left(20));
    EXPECT_EQ(laidOut.FirstLines(3), text.left(25));
    EXPECT_EQ(laidOut.FirstLines(4), text.left(26));
    EXPECT_EQ(laidOut.FirstLines(5), text.left(28));
    EXPECT_EQ(laidOut.FirstLines(6), text);
    EXPECT_EQ(laidOut.FirstLines(7), text);
}

TEST(DescriptionTexts, KeepLinePitchWithFallbackFonts)
{
    QTextLayout paragraph(QStringLiteral("\u0474\u02f0\u6a5f abcdef \u0474\u02f0\u6a5f"), Font());
    paragraph.setTextOption(DescriptionBreaks());
    paragraph.beginLayout();
    for (QTextLine line = paragraph.createLine(); line.isValid(); line = paragraph.createLine())
        line.setLineWidth(WidthOf(8));
    paragraph.endLayout();
    DescriptionPlaceLines(paragraph, Font());
    ASSERT_EQ(paragraph.lineCount(), 3);
    for (int at = 0; at < 3; ++at) {
        const QTextLine line = paragraph.lineAt(at);
        const double baseline = line.y() + line.ascent();
        EXPECT_NEAR(baseline, at * DescriptionPitch(Font()) + QFontMetrics(Font()).ascent(), 0.02);
        EXPECT_EQ(line.x(), 0);
    }
}

} // namespace tarvik
