#include "screen/document/description.h"

#include "tests/support/screens.h"

namespace tarvik {

namespace {

class Descriptions : public ScreenTest {
protected:
    /// Opens a window with the description `text`.
    WindowId Shown(const QString& text, int columns = 70)
    {
        const WindowId id = Open();
        WindowAt(id).DescriptionVisible = true;
        WindowAt(id).Description = text;
        WindowAt(id).DescriptionColumns = static_cast<qint16>(columns);
        return id;
    }

    static bool IsValid(const QString& text, WindowType type)
    {
        int value = 0;
        return ValidInt(text, DescrColumnsOf(type), value);
    }
};

QString Letters(qsizetype count)
{
    return QString(count, u'x');
}

} // namespace

TEST_F(Descriptions, ColumnLimitsDependOnType)
{
    const DescriptionColumns screen = DescrColumnsOf(WindowType::Screen);
    EXPECT_EQ(screen.Default, 70);
    EXPECT_EQ(screen.Least, 40);
    EXPECT_EQ(screen.Most, 100);
    const DescriptionColumns diagram = DescrColumnsOf(WindowType::DataSet);
    EXPECT_EQ(diagram.Default, 90);
    EXPECT_EQ(diagram.Least, 60);
    EXPECT_EQ(diagram.Most, 110);
}

TEST_F(Descriptions, ColumnLimitsAreInclusive)
{
    EXPECT_FALSE(IsValid(QStringLiteral("39"), WindowType::Screen));
    EXPECT_TRUE(IsValid(QStringLiteral("40"), WindowType::Screen));
    EXPECT_TRUE(IsValid(QStringLiteral("100"), WindowType::Screen));
    EXPECT_FALSE(IsValid(QStringLiteral("101"), WindowType::Screen));
    EXPECT_FALSE(IsValid(QStringLiteral("59"), WindowType::DataSet));
    EXPECT_TRUE(IsValid(QStringLiteral("60"), WindowType::DataSet));
    EXPECT_TRUE(IsValid(QStringLiteral("110"), WindowType::DataSet));
    EXPECT_FALSE(IsValid(QStringLiteral("111"), WindowType::DataSet));
}

TEST_F(Descriptions, ColumnsAreA16BitInteger)
{
    int value = 5;
    EXPECT_TRUE(ValidInt(QStringLiteral(" 70 "), DescrColumnsOf(WindowType::Screen), value));
    EXPECT_EQ(value, 70);
    for (const char* text : { "", " ", "x", "70x", "7 0", "70.5", "65606", "99999999999" })
        EXPECT_FALSE(ValidInt(QLatin1String(text), DescrColumnsOf(WindowType::Screen), value)) << text;
    EXPECT_EQ(value, 70);
}

TEST_F(Descriptions, AreVisibleUnlessMaximised)
{
    const WindowId id = Shown({});
    EXPECT_TRUE(DescrVisible(id));
    Views[id].WindowState = WinState::Maximised;
    EXPECT_FALSE(DescrVisible(id));
    EXPECT_EQ(DescrHeight(id), 0);
    Views[id].WindowState = WinState::Minimised;
    EXPECT_TRUE(DescrVisible(id));
    WindowAt(id).DescriptionVisible = false;
    EXPECT_FALSE(DescrVisible(id));
    EXPECT_FALSE(DescrVisible(0));
    EXPECT_FALSE(DescrVisible(100));
}

TEST_F(Descriptions, HeightIsLinesPlusOnePixel)
{
    const WindowId id = Shown({});
    const int line = DescrLineHeight(id);
    EXPECT_EQ(DescrHeight(id), line + 1) << "an empty text is one line";
    WindowAt(id).Description = QStringLiteral("a\r\nb\r\n");
    EXPECT_EQ(DescrLineCount(id), 3);
    EXPECT_EQ(DescrHeight(id), 3 * line + 1);
}

TEST_F(Descriptions, FontIsBoldInScreenWindowsOnly)
{
    EXPECT_TRUE(DescrFont(WindowType::Screen).bold());
    EXPECT_FALSE(DescrFont(WindowType::DataSet).bold());
    EXPECT_EQ(DescrFont(WindowType::Screen).family(), QLatin1String("Courier New"));
    EXPECT_EQ(DescrFont(WindowType::Screen).pixelSize(), 12); // 9 points
}

TEST_F(Descriptions, LineHoldsExactNumberOfColumns)
{
    for (const int columns : { 40, 70, 100 }) {
        const WindowId id = Shown(Letters(columns), columns);
        EXPECT_EQ(DescrLineCount(id), 1) << columns;
        WindowAt(id).Description = Letters(columns + 1);
        EXPECT_EQ(DescrLines(WindowAt(id).Description, id), (QStringList{ Letters(columns), Letters(1) }));
    }
}

TEST_F(Descriptions, BreakAtWordsIfPossible)
{
    const WindowId id = Shown({}, 40);
    const QString text = Letters(30) + u' ' + Letters(20);
    const QStringList lines = DescrLines(text, id);
    EXPECT_EQ(lines, (QStringList{ Letters(30) + u' ', Letters(20) }));
    EXPECT_EQ(DescrLines(Letters(90), id), (QStringList{ Letters(40), Letters(40), Letters(10) }));
}

TEST_F(Descriptions, AcceptEitherLineEnd)
{
    const WindowId id = Shown({});
    const QStringList expected{ QStringLiteral("a"), QString(), QStringLiteral("b") };
    EXPECT_EQ(DescrLines(QStringLiteral("a\r\n\r\nb"), id), expected);
    EXPECT_EQ(DescrLines(QStringLiteral("a\n\nb"), id), expected);
}

TEST_F(Descriptions, AreCentredAboveBottom)
{
    const WindowId id = Shown(QStringLiteral("a\r\nb"));
    const int line = DescrLineHeight(id);
    const int width = DescrWidth(id);
    const DescriptionLayout layout = DescrLayout(id, { width + 101, 500 });
    EXPECT_TRUE(layout.Visible);
    EXPECT_EQ(layout.Text, QRect(50, 500 - 2 * line, width, 2 * line));
    EXPECT_EQ(layout.LineTop, 500 - 2 * line - 1);
}

TEST_F(Descriptions, OverlapNarrowWindowOnBothSides)
{
    const WindowId id = Shown({});
    const int width = DescrWidth(id);
    EXPECT_EQ(DescrLayout(id, { width + 1, 500 }).Text.left(), 0);
    EXPECT_EQ(DescrLayout(id, { width - 1, 500 }).Text.left(), 0);
    const QRect text = DescrLayout(id, { width - 100, 500 }).Text;
    EXPECT_EQ(text.left(), -50);
    EXPECT_EQ(text.width(), width);
}

TEST_F(Descriptions, AreOutOfViewWhileHidden)
{
    const WindowId id = Open();
    const DescriptionLayout layout = DescrLayout(id, { 300, 200 });
    EXPECT_FALSE(layout.Visible);
    EXPECT_GE(layout.Text.top(), 200);
    EXPECT_GE(layout.LineTop, 200);
}

TEST_F(Descriptions, FitKeepsTenLines)
{
    const QString ten = Letters(400);
    EXPECT_EQ(DescrFit(ten, 40), ten);
    EXPECT_EQ(DescrFit(ten + u'y', 40), ten);
    EXPECT_EQ(DescrFit(Letters(700), 40), ten);
    EXPECT_EQ(DescrFit({}, 40), QString());
}

TEST_F(Descriptions, FitStopsBeforeTenthLineEnd)
{
    QString text;
    for (int line = 1; line <= 12; ++line)
        text += QString::number(line) + QStringLiteral("\r\n");
    const QString kept = DescrFit(text, 70);
    EXPECT_TRUE(kept.endsWith(QStringLiteral("\r\n10"))) << kept.toStdString();
    EXPECT_EQ(kept.count(u'\n'), 9);
}

TEST_F(Descriptions, FitCountsPositionsAcrossLineEnds)
{
    // The second line ends at position 80 by columns, although the line end at 41 has already started another line.
    const QString text = Letters(39) + QStringLiteral("\r\n") + Letters(500);
    EXPECT_EQ(DescrFit(text, 40), text.left(400));
}

TEST_F(Descriptions, AreStoredWithoutTrailingBlanksAndControlCharacters)
{
    EXPECT_EQ(DescrNormalised(QStringLiteral(" a\tb\n \nc  ")), QStringLiteral(" a b\r\n \r\nc"));
    EXPECT_EQ(DescrNormalised(QStringLiteral("a\r\nb\rc\n")), QStringLiteral("a\r\nb\r\nc\r\n"));
    EXPECT_EQ(DescrNormalised(QStringLiteral("\x01")), QString());
}

TEST_F(Descriptions, AreCutToRecordLength)
{
    const QString full = Letters(kDescriptionLength);
    EXPECT_EQ(DescrStored(full), full);
    EXPECT_EQ(DescrStored(full + u'y'), full);
    EXPECT_EQ(DescrStored(Letters(1000) + QString(500, u' ') + u'y'), Letters(1000)) << "blanks at the new end go too";
    EXPECT_EQ(DescrStored(u'\n' + Letters(kDescriptionLength)).size(), kDescriptionLength) << "a line end is two";
}

TEST_F(Descriptions, AreNotCutInsideSurrogatePair)
{
    const QString almost = Letters(kDescriptionLength - 1);
    EXPECT_EQ(DescrStored(almost + QStringLiteral("\nx")), almost);
    EXPECT_EQ(DescrStored(almost + QStringLiteral("\U0001f4e1")), almost);
}

TEST_F(Descriptions, FitCountsCoincidingEndsOnce)
{
    // The line end at position 40 coincides with the end of the first line by columns.
    const QString text = Letters(39) + QStringLiteral("\r\n") + Letters(500);
    EXPECT_EQ(DescrFit(text, 40).size(), 400);
    // The tenth line starts after nine line ends; it ends by columns, at a line end, or not at all.
    const QString nine = QStringLiteral("\r\n").repeated(9);
    EXPECT_EQ(DescrFit(nine + Letters(800), 40).size(), 400);
    EXPECT_EQ(DescrFit(nine + QStringLiteral("a\r\n"), 40), nine + u'a');
    EXPECT_EQ(DescrFit(nine + QStringLiteral("a"), 40), nine + u'a');
}

} // namespace tarvik
