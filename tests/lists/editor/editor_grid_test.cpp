#include "tests/lists/editor/list_form_fixture.h"

#include "lists/editor/editorGeneral.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

namespace {

const QColor kMarked(0xBB, 0xBB, 0x55);
const QColor kFocused(0xEE, 0xEE, 0x88);

class Grid : public ListFormTest {
protected:
    ~Grid() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    QScrollBar& Bar()
    {
        return Find<QScrollBar>(form, "VScroll1");
    }
    void Scroll(int topRow)
    {
        Bar().setValue(topRow);
    }
    /// The row whose cell has the focus.
    int FocusedRow(int column)
    {
        for (int index = 0; index < 20; ++index) {
            if (Cell(column, index).hasFocus())
                return Bar().value() + index;
        }
        return -1;
    }
    void KeyIn(int column, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        EXPECT_GE(FocusedRow(column), 0);
    }
};

} // namespace

TEST_F(Grid, ShowsTwentyRowsAndScrollsToLast)
{
    Open();
    EXPECT_EQ(Bar().minimum(), 0);
    EXPECT_EQ(Bar().maximum(), 1004);
    EXPECT_EQ(Bar().pageStep(), 20);
    EXPECT_EQ(CellText(0, 0), "0");
    EXPECT_EQ(CellText(0, 19), "19");
    Scroll(1004);
    EXPECT_EQ(CellText(0, 0), "1004");
    EXPECT_EQ(CellText(0, 19), "1023");
    EXPECT_EQ(CellText(2, 19), "1023");
}

TEST_F(Grid, CellsAreNamedByColumnAndRow)
{
    Open();
    EXPECT_EQ(Cell(3, 7).accessibleName(), "Frequency (MHz) 7");
    Scroll(100);
    EXPECT_EQ(Cell(3, 7).accessibleName(), "Frequency (MHz) 107");
    EXPECT_EQ(Cell(1, 0).accessibleName(), "Suppressed 100");
}

TEST_F(Grid, DownUpAndEnterMoveOneRow)
{
    Open();
    form.CellSetFocus(5, 3);
    KeyIn(3, Qt::Key_Down);
    EXPECT_EQ(FocusedRow(3), 6);
    KeyIn(3, Qt::Key_Return);
    EXPECT_EQ(FocusedRow(3), 7);
    KeyIn(3, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(FocusedRow(3), 8);
    KeyIn(3, Qt::Key_Up);
    EXPECT_EQ(FocusedRow(3), 7);
}

TEST_F(Grid, HeldEnterMovesOnce)
{
    Open(StoredList({ 0 }));
    form.CellSetFocus(0, 3);
    Key(Qt::Key_Return);
    for (int repeat = 0; repeat < 3; ++repeat)
        RepeatKey(Qt::Key_Return);
    EXPECT_EQ(FocusedRow(3), 1);
    for (int repeat = 0; repeat < 3; ++repeat)
        RepeatKey(Qt::Key_Down);
    EXPECT_EQ(FocusedRow(3), 4);
}

TEST_F(Grid, HeldEnterReportsBadCellOnce)
{
    Open(StoredList({ 0 }));
    TypeCell(3, 0, "abc");
    Answers().Expect(12765, Ok);
    Key(Qt::Key_Return);
    for (int repeat = 0; repeat < 3; ++repeat) {
        RepeatKey(Qt::Key_Return);
        RepeatKey(Qt::Key_Enter);
    }
    EXPECT_TRUE(Cell(3, 0).hasFocus());
}

TEST_F(Grid, PageKeysMoveTwentyRows)
{
    Open();
    form.CellSetFocus(3, 5);
    KeyIn(5, Qt::Key_PageDown);
    EXPECT_EQ(FocusedRow(5), 23);
    EXPECT_EQ(Bar().value(), 4); // target minus visible rows plus 1
    KeyIn(5, Qt::Key_PageUp);
    EXPECT_EQ(FocusedRow(5), 3);
    EXPECT_EQ(Bar().value(), 3); // the target
}

TEST_F(Grid, PageDownNearEndGoesToLastRow)
{
    Open();
    Scroll(1004);
    form.CellSetFocus(1020, 3);
    KeyIn(3, Qt::Key_PageDown);
    EXPECT_EQ(FocusedRow(3), 1023);
    KeyIn(3, Qt::Key_Down);
    EXPECT_EQ(FocusedRow(3), 1023);
}

TEST_F(Grid, UpOnFirstRowStaysThere)
{
    Open();
    form.CellSetFocus(0, 3);
    KeyIn(3, Qt::Key_Up);
    EXPECT_EQ(FocusedRow(3), 0);
    EXPECT_EQ(Bar().value(), 0);
}

TEST_F(Grid, ArrowsDoNotToggleCheckBox)
{
    Open();
    form.CellSetFocus(2, 1);
    KeyIn(1, Qt::Key_Down);
    EXPECT_EQ(FocusedRow(1), 3);
    KeyIn(1, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(FocusedRow(1), 2);
    EXPECT_FALSE(IsChecked(2));
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(Grid, OtherKeysAreLeftToCell)
{
    Open(StoredList({ 0 }));
    form.CellSetFocus(0, 3);
    KeyIn(3, Qt::Key_Home);
    KeyIn(3, Qt::Key_Right);
    EXPECT_EQ(Find<QLineEdit>(form, CellName(3, 0)).cursorPosition(), 1);
    EXPECT_EQ(FocusedRow(3), 0);
}

TEST_F(Grid, FocusSelectsWholeTextOfCell)
{
    Open(StoredList({ 0, 1 }));
    form.CellSetFocus(0, 3);
    KeyIn(3, Qt::Key_Down);
    EXPECT_EQ(Find<QLineEdit>(form, CellName(3, 1)).selectedText(), "101.000000");
}

TEST_F(Grid, ColumnsWithoutInputGetNoFocus)
{
    Open();
    form.CellSetFocus(0, 3);
    for (const int column : { 0, 2, 4, 6, -1 })
        form.CellSetFocus(5, column);
    EXPECT_EQ(FocusedRow(3), 0);
}

TEST_F(Grid, CurrentRowAndFocusedCellHaveOwnColours)
{
    Open();
    form.CellSetFocus(5, 3);
    EXPECT_EQ(CellColour(3, 5), kFocused);
    for (const int column : { 1, 2, 4, 5 })
        EXPECT_EQ(CellColour(column, 5), kMarked);
    EXPECT_EQ(CellColour(3, 4), form.palette().color(QPalette::Base));
    KeyIn(3, Qt::Key_Down);
    EXPECT_EQ(CellColour(3, 5), form.palette().color(QPalette::Base));
    EXPECT_EQ(CellColour(5, 5), form.palette().color(QPalette::Base));
    EXPECT_EQ(CellColour(3, 6), kFocused);
}

TEST_F(Grid, CellWithoutFocusHasColourOfItsRow)
{
    Open();
    form.CellSetFocus(5, 3);
    FindControl(form, "BtSort").setFocus();
    EXPECT_EQ(CellColour(3, 5), kMarked);
}

TEST_F(Grid, OtherWindowLeavesCellAsItIs)
{
    Open(StoredList({ 0 }));
    TypeCell(3, 0, "abc");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other)); // without a message
    EXPECT_EQ(CellColour(3, 0), kFocused);
    Answers().Expect(12765, Ok);
    Scroll(100); // still the edited cell
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_EQ(CellText(3, 0), "abc");
}

/// Nothing but the focus says that the cell is being edited.
TEST_F(Grid, EmptyCellOfUsedRowIsCheckedAfterVisitOfOtherWindow)
{
    Open();
    TypeCell(5, 0, "Tower"); // uses the row, which has no frequency
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(Cell(3, 0).hasFocus());
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Answers().Expect(12771, Ok);
    Scroll(100);
    EXPECT_EQ(Bar().value(), 0);
}

TEST_F(Grid, HighlightFollowsRowOnScroll)
{
    Open();
    form.CellSetFocus(5, 3);
    Scroll(2);
    EXPECT_EQ(CellColour(5, 3), kMarked);
    EXPECT_EQ(CellColour(5, 5), form.palette().color(QPalette::Base));
    EXPECT_EQ(FocusedRow(3), 5);
    Scroll(500);
    EXPECT_EQ(CellColour(5, 5), form.palette().color(QPalette::Base));
    Scroll(0);
    EXPECT_EQ(CellColour(5, 5), kMarked);
}

TEST_F(Grid, ArrowScrollsCurrentRowIntoView)
{
    Open();
    form.CellSetFocus(5, 3);
    Scroll(500);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(FocusedRow(3), 6);
    EXPECT_EQ(Bar().value(), 6);
}

TEST_F(Grid, PlainCellsUseButtonTextAndColouredOnesWindowText)
{
    Open();
    form.CellSetFocus(5, 3);
    EXPECT_EQ(Cell(5, 0).palette().color(QPalette::Text), form.palette().color(QPalette::ButtonText));
    EXPECT_EQ(Cell(5, 5).palette().color(QPalette::Text), form.palette().color(QPalette::Text));
}

TEST_F(Grid, LightSystemTextIsBlackOnFixedBackgrounds)
{
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::ButtonText, QColor(0xEE, 0xEE, 0xEE));
    const CellPalettes palettes = MakeCellPalettes(dark, { true, false });
    EXPECT_EQ(palettes[0].color(QPalette::Text), QColor(0xEE, 0xEE, 0xEE));
    EXPECT_EQ(palettes[1].color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(palettes[2].color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(palettes[1].color(QPalette::Base), kMarked);
    EXPECT_EQ(palettes[2].color(QPalette::Base), kFocused);
    EXPECT_EQ(MakeCellPalettes(dark, { true, true })[0].color(QPalette::Text), QColor(Qt::white));
}

TEST_F(Grid, ClickOnLabelMakesRowCurrent)
{
    Open();
    form.CellSetFocus(0, 3);
    Click(form, "LbCol0[4]");
    EXPECT_EQ(FocusedRow(3), 4);
    Click(form, "TbCol4[6]");
    EXPECT_EQ(FocusedRow(3), 6);
}

TEST_F(Grid, WheelScrollsOverCells)
{
    Open();
    Wheel(Cell(3, 5), -120);
    EXPECT_EQ(Bar().value(), QApplication::wheelScrollLines());
}

/// Wheels of a high resolution and touch pads report parts of a notch.
TEST_F(Grid, PartsOfAWheelNotchAddUp)
{
    const int rows = QApplication::wheelScrollLines();
    Open();
    for (int turn = 1; turn <= 16; ++turn) {
        Wheel(Cell(3, 5), -15);
        EXPECT_EQ(Bar().value(), turn * 15 * rows / 120) << turn;
    }
    EXPECT_EQ(Bar().value(), 2 * rows);
    for (int turn = 0; turn < 4; ++turn)
        Wheel(Cell(3, 5), 30);
    EXPECT_EQ(Bar().value(), rows);
    Wheel(Cell(3, 5), -30); // back and forth within a row
    Wheel(Cell(3, 5), 30);
    EXPECT_EQ(Bar().value(), rows);
}

TEST_F(Grid, FillingReportsNoChange)
{
    Open(StoredList({ 0, 5, 30, 1023 }));
    Scroll(500);
    Scroll(1004);
    Scroll(0);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(Grid, BadCellKeepsFocusOnTab)
{
    Open(StoredList({ 0 }));
    TypeCell(3, 0, "abc");
    Answers().Expect(12765, QStringList(), Ok);
    QTest::keyClick(&Cell(3, 0), Qt::Key_Tab);
    EXPECT_TRUE(Cell(3, 0).hasFocus());
    EXPECT_EQ(CellText(3, 0), "abc");
}

TEST_F(Grid, BadCellKeepsFocusOnArrow)
{
    Open(StoredList({ 0, 1 }));
    TypeCell(3, 0, "");
    Answers().Expect(12771, QStringList(), Ok);
    QTest::keyClick(&Cell(3, 0), Qt::Key_Down);
    EXPECT_TRUE(Cell(3, 0).hasFocus());
}

TEST_F(Grid, BadCellKeepsFocusOnClickElsewhere)
{
    Open(StoredList({ 0, 1 }));
    TypeCell(3, 0, "abc");
    Answers().Expect(12765, QStringList(), Ok);
    Click(form, CellName(5, 1));
    EXPECT_TRUE(Cell(3, 0).hasFocus());
}

TEST_F(Grid, ClickAwayFromBadCellIsIgnored)
{
    Open(StoredList({ 0 }));
    TypeCell(3, 0, "abc");
    Answers().Expect(12765, QStringList(), Ok); // one message only: the sort does not run
    Click(form, "BtSort");
    EXPECT_TRUE(Cell(3, 0).hasFocus());
    Answers().Verify();
    TypeCell(3, 0, "120");
    Click(form, "BtSort"); // the next click works
    EXPECT_EQ(CellText(3, 0), "120.000000");
}

TEST_F(Grid, BadCellPreventsScrolling)
{
    Open(StoredList({ 0 }));
    TypeCell(3, 0, "abc");
    Answers().Expect(12765, QStringList(), Ok);
    Scroll(100);
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_EQ(CellText(3, 0), "abc");
    EXPECT_TRUE(Cell(3, 0).hasFocus());
}

TEST_F(Grid, EditedCellIsStoredBeforeScrolling)
{
    Open(StoredList({ 0 }));
    TypeCell(3, 0, "250,5");
    Scroll(100);
    Scroll(0);
    EXPECT_EQ(CellText(3, 0), "250.500000");
}

TEST_F(Grid, CharacterOutsideWindows1252IsRejected)
{
    Open(StoredList({ 0 }));
    auto& box = Find<QLineEdit>(form, CellName(5, 0));
    box.setFocus();
    box.selectAll();
    for (const QChar character : QStringLiteral("a\u4e00\u20ac")) {
        QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, character);
        QApplication::sendEvent(&box, &typed);
    }
    EXPECT_EQ(box.text(), QStringLiteral("a\u20ac"));
}

TEST_F(Grid, RepeatedPageDownEndsOnLastRow)
{
    Open(StoredList({ 0 }));
    form.CellSetFocus(0, 3);
    for (int press = 0; press < 60; ++press)
        form.CellKeyDown(3, Qt::Key_PageDown, 0);
    EXPECT_EQ(FocusedRow(3), 1023);
}

} // namespace tarvik
