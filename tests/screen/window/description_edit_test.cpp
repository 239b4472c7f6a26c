#include "screen/window/descriptionEdit.h"

#include "tests/support/screens.h"

namespace tarvik {

namespace {

class DescriptionEditing : public ScreenTest {
protected:
    DescriptionEditing()
        : id_(Open())
    {
    }

    WindowRecord& Record() const
    {
        return WindowAt(id_);
    }

    /// `count` lines without a line end after the last.
    static QString Lines(int count)
    {
        QStringList lines;
        for (int line = 1; line <= count; ++line)
            lines.append(QString::number(line));
        return lines.join(u'\n');
    }

    static QString Stored(QString text)
    {
        return text.replace(u'\n', QStringLiteral("\r\n"));
    }

    void ExpectWindowIsPictureAndDescription()
    {
        FakeView& view = Views[id_];
        EXPECT_EQ(view.Client, view.Graph + QSize(0, DescrHeight(id_)));
        EXPECT_EQ(ScreenOf(id_)->Graph.size(), view.Graph);
    }

    WindowId id_;
};

} // namespace

TEST_F(DescriptionEditing, ShowingGrowsWindow)
{
    DescrSetVisible(true, id_);
    EXPECT_EQ(Views[id_].Graph, QSize(642, 442));
    EXPECT_EQ(Views[id_].Client, QSize(642, 442 + DescrLineHeight(id_) + 1));
    EXPECT_TRUE(Views[id_].Layout.Visible);
    EXPECT_EQ(Views[id_].Layout.LineTop, 442);
    DescrSetVisible(false, id_);
    EXPECT_EQ(Views[id_].Client, QSize(642, 442));
    EXPECT_FALSE(Views[id_].Layout.Visible);
}

TEST_F(DescriptionEditing, ToggleFlipsTheFlag)
{
    const int drawings = Views[id_].Drawings;
    DescrToggle(id_);
    EXPECT_TRUE(Record().DescriptionVisible);
    EXPECT_GT(Views[id_].Drawings, drawings);
    DescrToggle(id_);
    EXPECT_FALSE(Record().DescriptionVisible);
    DescrToggle(0);
}

TEST_F(DescriptionEditing, HidingKeepsText)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, QStringLiteral("text"));
    DescrSetVisible(false, id_);
    DescrSetVisible(true, id_);
    EXPECT_EQ(Record().Description, QStringLiteral("text"));
}

TEST_F(DescriptionEditing, ShowingInMaximisedWindowClearsText)
{
    DescrTextChanged(id_, QStringLiteral("text"));
    Views[id_].WindowState = WinState::Maximised;
    Views[id_].Description = QStringLiteral("text");
    DescrSetVisible(true, id_);
    EXPECT_EQ(Record().Description, QString());
    EXPECT_EQ(Views[id_].Description, QString());
    EXPECT_TRUE(Record().DescriptionVisible);
}

TEST_F(DescriptionEditing, HidingInMaximisedWindowKeepsText)
{
    DescrTextChanged(id_, QStringLiteral("text"));
    Record().DescriptionVisible = true;
    Views[id_].WindowState = WinState::Maximised;
    DescrSetVisible(false, id_);
    EXPECT_EQ(Record().Description, QStringLiteral("text"));
}

TEST_F(DescriptionEditing, MinimisedWindowIsNotDrawn)
{
    Views[id_].WindowState = WinState::Minimised;
    const int drawings = Views[id_].Drawings;
    const QSize client = Views[id_].Client;
    DescrSetVisible(true, id_);
    EXPECT_EQ(Views[id_].Drawings, drawings);
    EXPECT_EQ(Views[id_].Client, client);
    EXPECT_TRUE(Record().DescriptionVisible);
}

TEST_F(DescriptionEditing, WindowHeightFollowsLines)
{
    DescrSetVisible(true, id_);
    const int drawings = Views[id_].Drawings;
    DescrTextChanged(id_, QStringLiteral("a\nb\n"));
    EXPECT_EQ(Record().Description, QStringLiteral("a\r\nb\r\n"));
    EXPECT_EQ(Views[id_].Client.height(), 442 + 3 * DescrLineHeight(id_) + 1);
    EXPECT_EQ(Views[id_].Layout.LineTop, 442);
    EXPECT_EQ(Views[id_].Drawings, drawings) << "the picture has not changed";
    ExpectWindowIsPictureAndDescription();
}

TEST_F(DescriptionEditing, EleventhLineIsUndone)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, Lines(10));
    EXPECT_EQ(Record().Description, Stored(Lines(10)));
    const QSize client = Views[id_].Client;
    Views[id_].Description = QStringLiteral("what the control holds");
    DescrTextChanged(id_, Lines(10) + QStringLiteral("\n"));
    EXPECT_EQ(Record().Description, Stored(Lines(10)));
    EXPECT_EQ(Views[id_].Description, Stored(Lines(10)));
    EXPECT_EQ(Views[id_].Client, client);
}

TEST_F(DescriptionEditing, WrappedLineCountsAsTwo)
{
    DescrSetVisible(true, id_);
    const QString nine = Lines(9) + u'\n';
    DescrTextChanged(id_, nine + QString(70, u'x'));
    EXPECT_EQ(DescrLineCount(id_), 10);
    DescrTextChanged(id_, nine + QString(71, u'x'));
    EXPECT_EQ(Record().Description, Stored(nine) + QString(70, u'x'));
}

TEST_F(DescriptionEditing, RestoredTextIsNotAUserChange)
{
    struct Eager {
        static void Change(WindowId id, FakeView& view)
        {
            DescrTextChanged(id, view.Description + u'!');
        }
    };
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, QStringLiteral("kept"));
    Views[id_].OnSized = [this] { Eager::Change(id_, Views[id_]); };
    DescrTextChanged(id_, Lines(11));
    EXPECT_EQ(Record().Description, QStringLiteral("kept"));
}

TEST_F(DescriptionEditing, VeryLongTextIsCut)
{
    Record().DescriptionColumns = 100;
    Record().DescriptionVisible = true;
    const QString blanks(1000, u' ');
    DescrTextChanged(id_, QStringLiteral("a") + blanks + QString(90, u'b') + u'\n' + QString(40, u'c'));
    EXPECT_EQ(Record().Description.size(), 1120);
    EXPECT_EQ(Views[id_].Description, Record().Description) << "no more is shown than is kept";
}

TEST_F(DescriptionEditing, CompleteTextIsNotSetAgain)
{
    Views[id_].Description = QStringLiteral("what the control holds");
    DescrTextChanged(id_, QStringLiteral("a  ") + QString(2000, u' '));
    EXPECT_EQ(Record().Description, QStringLiteral("a"));
    EXPECT_EQ(Views[id_].Description, QStringLiteral("what the control holds"));
}

TEST_F(DescriptionEditing, TrailingBlanksAreDropped)
{
    DescrTextChanged(id_, QStringLiteral(" a  "));
    EXPECT_EQ(Record().Description, QStringLiteral(" a"));
}

TEST_F(DescriptionEditing, UnsavedTextAsksForSaving)
{
    EXPECT_FALSE(Record().Modified);
    DescrTextChanged(id_, QString());
    EXPECT_FALSE(Record().Modified);
    DescrTextChanged(id_, QStringLiteral("a"));
    EXPECT_TRUE(Record().Modified);
    DescrTextChanged(id_, QStringLiteral("a "));
    EXPECT_TRUE(Record().Modified) << "the same text is as little saved as before";
}

TEST_F(DescriptionEditing, WindowBeingResizedIgnoresItsText)
{
    Record().InResize = true;
    const int before = Views[id_].Sizings;
    DescrResize(id_);
    EXPECT_EQ(Views[id_].Sizings, before);
    Record().InResize = false;
    DescrResize(id_);
    EXPECT_EQ(Views[id_].Sizings, before + 1);
}

TEST_F(DescriptionEditing, OwnResizeIsNotAUserResize)
{
    Views[id_].OnSized = [this] { ScreenResized(id_, true); };
    DescrTextChanged(id_, QStringLiteral("a\nb"));
    EXPECT_FALSE(Record().ResizePending);
    EXPECT_FALSE(TheScreenWindows().ResizePending);
}

TEST_F(DescriptionEditing, ChangedColumnsKeepPictureSize)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, QString(60, u'x'));
    const QSize picture = Views[id_].Graph;
    const int line = DescrLineHeight(id_);
    const int height = Views[id_].Client.height();
    DescriptionChoice choice(id_);
    ASSERT_TRUE(choice.Apply(QStringLiteral("40")));
    EXPECT_EQ(Views[id_].Graph, picture);
    EXPECT_EQ(Views[id_].Client.height(), height + line);
}

TEST_F(DescriptionEditing, MinimisedWindowIsNotResizedByText)
{
    Views[id_].WindowState = WinState::Minimised;
    Record().ResizePending = true;
    const int before = Views[id_].Sizings;
    DescrTextChanged(id_, QStringLiteral("a\nb"));
    EXPECT_EQ(Views[id_].Sizings, before);
    EXPECT_FALSE(Record().ResizePending);
}

TEST_F(DescriptionEditing, PictureIsFittedIfWindowCannotGrow)
{
    DescrSetVisible(true, id_);
    Views[id_].WindowState = WinState::Normal;
    Views[id_].OnSized = [this] { Views[id_].Client.setHeight(442); };
    const int drawings = Views[id_].Drawings;
    DescrTextChanged(id_, QStringLiteral("a\nb"));
    EXPECT_EQ(Views[id_].Graph.height(), 442 - 2 * DescrLineHeight(id_) - 1);
    EXPECT_EQ(Views[id_].Drawings, drawings + 1);
}

TEST_F(DescriptionEditing, IgnoresWindowThatIsGone)
{
    DescrTextChanged(100, QStringLiteral("a"));
    DescrSetVisible(true, 100);
    EXPECT_FALSE(DescrSetText(100, QStringLiteral("a")));
    EXPECT_EQ(WindowCount(), 1);
}

TEST_F(DescriptionEditing, SetTextSetsWholeText)
{
    DescrSetVisible(true, id_);
    EXPECT_TRUE(DescrSetText(id_, QStringLiteral("a\nb")));
    EXPECT_EQ(Record().Description, QStringLiteral("a\r\nb"));
    EXPECT_EQ(Views[id_].Description, QStringLiteral("a\r\nb"));
    ExpectWindowIsPictureAndDescription();
    EXPECT_FALSE(DescrSetText(id_, Lines(12)));
    EXPECT_EQ(Record().Description, Stored(Lines(10)));
    ExpectWindowIsPictureAndDescription();
}

TEST_F(DescriptionEditing, SetTextKeepsFirstTenLines)
{
    EXPECT_FALSE(DescrSetText(id_, Lines(100000)));
    EXPECT_EQ(Record().Description, Stored(Lines(10)));
    EXPECT_FALSE(DescrSetText(id_, QString(5000000, u'x')));
    EXPECT_EQ(Record().Description, QString(700, u'x'));
    EXPECT_TRUE(DescrSetText(id_, QStringLiteral("a   ")));
    EXPECT_EQ(Record().Description, QStringLiteral("a"));
}

TEST_F(DescriptionEditing, WrappedTextIsCutAfterTenthLine)
{
    QString text;
    for (int word = 0; word < 30; ++word)
        text += QString(33, QChar(u'a' + word % 26)) + u' ';
    EXPECT_FALSE(DescrSetText(id_, text));
    EXPECT_EQ(DescrLineCount(id_), 10);
    EXPECT_EQ(Record().Description, text.left(20 * 34 - 1));
}

TEST_F(DescriptionEditing, NarrowerColumnsCutText)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, QString(700, u'x'));
    DescriptionChoice choice(id_);
    EXPECT_TRUE(choice.Apply(QStringLiteral("40")));
    EXPECT_EQ(Record().DescriptionColumns, 40);
    EXPECT_EQ(Record().Description, QString(400, u'x'));
    EXPECT_EQ(Views[id_].Description, QString(400, u'x'));
    EXPECT_EQ(DescrLineCount(id_), 10);
    ExpectWindowIsPictureAndDescription();
}

TEST_F(DescriptionEditing, NarrowerColumnsLeaveAtMostTenWrappedLines)
{
    DescrSetVisible(true, id_);
    QString text;
    for (int word = 0; word < 20; ++word)
        text += QString(33, u'x') + u' ';
    DescrTextChanged(id_, text);
    DescriptionChoice choice(id_);
    EXPECT_TRUE(choice.Apply(QStringLiteral("40")));
    EXPECT_EQ(DescrLineCount(id_), 10);
}

TEST_F(DescriptionEditing, ShortLinesAreNotCut)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, Lines(10));
    DescriptionChoice choice(id_);
    EXPECT_TRUE(choice.Apply(QStringLiteral("40")));
    EXPECT_EQ(Record().Description, Stored(Lines(10)));
}

TEST_F(DescriptionEditing, LineEndAfterFullLineCountsAgain)
{
    DescrSetVisible(true, id_);
    QStringList lines;
    for (int line = 0; line < 10; ++line)
        lines.append(QString(60, QChar(u'a' + line)));
    DescrTextChanged(id_, lines.join(u'\n'));
    DescriptionChoice choice(id_);
    EXPECT_TRUE(choice.Apply(QStringLiteral("60")));
    EXPECT_EQ(Record().Description, lines.first(9).join(QStringLiteral("\r\n")));
    choice.Cancel();
    EXPECT_EQ(Record().Description, lines.join(QStringLiteral("\r\n")));
}

TEST_F(DescriptionEditing, WiderColumnsRestoreCutText)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, QString(700, u'x'));
    DescriptionChoice choice(id_);
    EXPECT_TRUE(choice.Apply(QStringLiteral("40")));
    EXPECT_TRUE(choice.Apply(QStringLiteral("70")));
    EXPECT_EQ(Record().Description, QString(700, u'x'));
}

TEST_F(DescriptionEditing, CancelRestoresColumnsAndCutText)
{
    DescrSetVisible(true, id_);
    Record().DescriptionColumns = 71;
    DescrTextChanged(id_, QString(700, u'x'));
    Record().Modified = false;
    const QSize client = Views[id_].Client;
    DescriptionChoice choice(id_);
    EXPECT_TRUE(choice.Apply(QStringLiteral("40")));
    EXPECT_TRUE(Record().Modified);
    choice.Cancel();
    EXPECT_EQ(Record().DescriptionColumns, 71);
    EXPECT_EQ(Record().Description, QString(700, u'x'));
    EXPECT_EQ(Views[id_].Description, QString(700, u'x'));
    EXPECT_EQ(Views[id_].Client, client);
    EXPECT_FALSE(Record().Modified);
}

TEST_F(DescriptionEditing, ColumnsOutOfRangeAreReportedAndChangeNothing)
{
    DescrSetVisible(true, id_);
    DescrTextChanged(id_, QStringLiteral("text"));
    DescriptionChoice choice(id_);
    Answers().Expect(12749, { QStringLiteral("100"), QStringLiteral("40") }, Ok);
    EXPECT_FALSE(choice.Apply(QStringLiteral("101")));
    Answers().Expect(12749, { QStringLiteral("100"), QStringLiteral("40") }, Ok);
    EXPECT_FALSE(choice.Apply(QStringLiteral("many")));
    EXPECT_EQ(Record().DescriptionColumns, 70);
    EXPECT_EQ(Record().Description, QStringLiteral("text"));
}

TEST_F(DescriptionEditing, LimitsDependOnType)
{
    EXPECT_EQ(DescriptionChoice(id_).Limits().Default, 70);
    EXPECT_EQ(DescriptionChoice(id_).Columns(), 70);
    const WindowId diagram = TakeSlot(WindowType::DataSet);
    EXPECT_EQ(DescriptionChoice(diagram).Limits().Default, 90);
    DescriptionChoice choice(diagram);
    Answers().Expect(12749, { QStringLiteral("110"), QStringLiteral("60") }, Ok);
    EXPECT_FALSE(choice.Apply(QStringLiteral("59")));
}

} // namespace tarvik
