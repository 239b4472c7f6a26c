#include "tests/support/forms.h"

#include "app/text/textId.h"
#include "lists/editor/editorGrid.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <set>

namespace tarvik {

namespace {

using Place = std::pair<int, int>;

/// Rows of texts, all used.
class FakeRows final : public GridRows {
public:
    bool IsRowUsed(int) const override
    {
        return true;
    }
    QString CellText(int row, int column) const override
    {
        return Texts.value({ row, column });
    }
    bool IsCellChecked(int, int) const override
    {
        return false;
    }
    void TextChanged(int row, int column, const QString& text) override
    {
        Texts[{ row, column }] = text;
        if (OnText)
            OnText(row);
    }
    void CheckChanged(int row, int, bool) override
    {
        Checked.append(row);
    }
    bool CheckCell(int row, int column, QString& text) override
    {
        Texts[{ row, column }] = text;
        return true;
    }
    bool IsCellInvalid(int row, int column) const override
    {
        return Invalid.contains({ row, column });
    }
    bool MayLeaveRow(int row) override
    {
        Left.append(row);
        return MayLeave;
    }
    void RowSelected(int row) override
    {
        Selected = row;
    }
    void RowOpened(int) override { }
    void HeaderClicked(int) override { }

    QMap<Place, QString> Texts;
    std::set<Place> Invalid;
    QList<int> Left;
    QList<int> Checked;
    bool MayLeave = true;
    int Selected = -1;
    std::function<void(int)> OnText;
};

constexpr int kNumber = 1;
constexpr int kLines = 2;
constexpr int kCheck = 3;

class GridKinds : public FormTest {
protected:
    void Show(GridShape shape = { 100 })
    {
        auto* layout = new QVBoxLayout(&window);
        grid = new EditorGrid(&window, rows, shape,
            { { "KT_LbCol", CellKind::RowLabel, TextId::EditorNew, 0, 5 },
                { "KT_TbCol", CellKind::Number, TextId::EditorNew, 32, 12, false, "KT_LbHdr_freq", 4, 20 },
                { "AZ_TbCol", CellKind::Lines, TextId::EditorNew, 40, 20, false, "AZ_LbHdr" },
                { "CbCol", CellKind::Check, TextId::EditorNew, 0, 12 } });
        layout->addWidget(grid);
        grid->FillRows(true);
        window.show();
        QApplication::setActiveWindow(&window);
    }
    QWidget& Cell(const QString& name, int index)
    {
        return FindControl(window, QStringLiteral("%1[%2]").arg(name).arg(index));
    }
    QColor Background(const QString& name, int index)
    {
        return Cell(name, index).palette().color(QPalette::Base);
    }
    GridLines& Lines(int index)
    {
        return Find<GridLines>(window, QStringLiteral("AZ_TbCol[%1]").arg(index));
    }

    FakeRows rows;
    QWidget window;
    EditorGrid* grid = nullptr;
};

} // namespace

TEST_F(GridKinds, ControlsHaveTheNamesOfTheirDescription)
{
    GridShape shape{ 100 };
    shape.Name = "KT_Grid";
    shape.ScrollBarName = "KT_VScroll";
    Show(shape);
    ExpectControls(window, { "KT_LbHdr_freq", "KT_VScroll", "KT_TbCol[19]", "AZ_TbCol[0]", "LbHdr0" });
    EXPECT_EQ(grid->objectName(), "KT_Grid");
}

TEST_F(GridKinds, InvalidCellHasItsColourUnlessFocused)
{
    rows.Invalid = { { 2, kNumber }, { 3, kLines } };
    Show();
    EXPECT_EQ(Background("KT_TbCol", 2), QColor(0xDD, 0x77, 0x77));
    EXPECT_EQ(Background("AZ_TbCol", 3), QColor(0xDD, 0x77, 0x77));
    grid->CellSetFocus(2, kNumber);
    EXPECT_EQ(Background("KT_TbCol", 2), QColor(0xDD, 0xDD, 0x77));
    grid->CellSetFocus(4, kNumber);
    EXPECT_EQ(Background("KT_TbCol", 2), QColor(0xDD, 0x77, 0x77));
}

TEST_F(GridKinds, CellsHaveTheButtonTextColourInEveryState)
{
    const QColor buttonText(80, 0, 0);
    QPalette system;
    system.setColor(QPalette::Text, QColor(0, 0, 80));
    system.setColor(QPalette::ButtonText, buttonText);
    const CellPalettes cells = MakeCellPalettes(system, {});
    for (const CellState state : { CellState::Plain, CellState::Focused, CellState::Invalid })
        EXPECT_EQ(cells[static_cast<size_t>(state)].color(QPalette::Text), buttonText) << static_cast<int>(state);
}

TEST_F(GridKinds, OtherCellsOfTheRowAreColouredWhileTyping)
{
    Show();
    rows.OnText = [this](int row) { rows.Invalid = { { row, kLines } }; };
    Type(window, "KT_TbCol[5]", "7");
    EXPECT_EQ(Background("AZ_TbCol", 5), QColor(0xDD, 0x77, 0x77));
}

TEST_F(GridKinds, TextInCellIsThatOfAVisibleCell)
{
    Show();
    Type(window, "KT_TbCol[5]", "7");
    EXPECT_EQ(grid->TextInCell(5, kNumber), "7");
    EXPECT_EQ(grid->TextInCell(50, kNumber), "");
    EXPECT_EQ(grid->TextInCell(5, kCheck), "");
}

TEST_F(GridKinds, LastCellsTakeFewerCharactersButCutNoText)
{
    const QString longText(32, u'7');
    rows.Texts[{ 19, kNumber }] = longText;
    Show();
    Type(window, "KT_TbCol[15]", QString(40, u'1'));
    EXPECT_EQ(grid->TextInCell(15, kNumber).size(), 32);
    Type(window, "KT_TbCol[16]", QString(40, u'1'));
    EXPECT_EQ(grid->TextInCell(16, kNumber).size(), 20);
    EXPECT_EQ(grid->TextInCell(19, kNumber), longText);
    grid->CellSetFocus(19, kNumber);
    EXPECT_TRUE(grid->Commit());
    EXPECT_EQ(rows.Texts.value({ 19, kNumber }), longText);
}

TEST_F(GridKinds, RowThatMayNotBeLeftKeepsTheFocus)
{
    Show();
    grid->CellSetFocus(3, kNumber);
    rows.MayLeave = false;
    QTest::keyClick(&Cell("KT_TbCol", 3), Qt::Key_Down);
    EXPECT_EQ(grid->CurrentRow(), 3);
    QTest::mouseClick(&FindControl(window, "KT_LbCol[6]"), Qt::LeftButton);
    EXPECT_EQ(grid->CurrentRow(), 3);
    QTest::mouseClick(&Cell("KT_TbCol", 6), Qt::LeftButton);
    EXPECT_EQ(grid->CurrentRow(), 3);
    EXPECT_EQ(rows.Selected, 3);
    QTest::mouseClick(&Cell("CbCol", 7), Qt::LeftButton);
    EXPECT_EQ(grid->CurrentRow(), 3);
    EXPECT_EQ(rows.Checked, QList<int>()); // the press is swallowed
    EXPECT_EQ(rows.Left, (QList<int>{ 3, 3, 3, 3 }));
    rows.MayLeave = true;
    QTest::mouseClick(&Cell("KT_TbCol", 6), Qt::LeftButton);
    EXPECT_EQ(grid->CurrentRow(), 6);
}

TEST_F(GridKinds, MovingWithinTheRowAsksNothing)
{
    Show();
    grid->CellSetFocus(3, kNumber);
    QTest::mouseClick(Lines(3).viewport(), Qt::LeftButton);
    EXPECT_EQ(grid->CurrentColumn(), kLines);
    EXPECT_EQ(rows.Left, QList<int>());
}

TEST_F(GridKinds, ArrowsLeaveLinesFromTheFirstAndLastOnly)
{
    GridShape shape{ 100 };
    shape.LinesPerRow = 3;
    shape.VisibleRows = 9;
    rows.Texts[{ 4, kLines }] = QStringLiteral("10.00 | 20.00 | 30.00 | 40.00 | 50.00");
    Show(shape);
    window.resize(200, window.height()); // wraps
    QApplication::processEvents();
    grid->CellSetFocus(4, kLines);
    GridLines& cell = Lines(4);
    cell.moveCursor(QTextCursor::Start);
    ASSERT_FALSE(cell.IsCaretInLastLine());
    QTest::keyClick(&cell, Qt::Key_Down);
    EXPECT_EQ(grid->CurrentRow(), 4);
    QTest::keyClick(&cell, Qt::Key_Up);
    EXPECT_EQ(grid->CurrentRow(), 4);
    EXPECT_TRUE(cell.IsCaretInFirstLine());
    QTest::keyClick(&cell, Qt::Key_Up);
    EXPECT_EQ(grid->CurrentRow(), 3);
    grid->CellSetFocus(4, kLines);
    cell.moveCursor(QTextCursor::End);
    QTest::keyClick(&cell, Qt::Key_Down);
    EXPECT_EQ(grid->CurrentRow(), 5);
    grid->CellSetFocus(4, kLines);
    cell.moveCursor(QTextCursor::Start);
    QTest::keyClick(&cell, Qt::Key_Return);
    EXPECT_EQ(grid->CurrentRow(), 5);
}

TEST_F(GridKinds, LinesTakeTheirLengthAndNoLineEnds)
{
    Show();
    grid->CellSetFocus(2, kLines);
    QTest::keyClicks(&Lines(2), QString(60, u'1'));
    EXPECT_EQ(Lines(2).Text().size(), 40);
    Lines(2).SelectAll();
    QApplication::clipboard()->setText(QStringLiteral("1\n2\r\n3 ") + QString(60, u'4'));
    Lines(2).paste();
    EXPECT_EQ(Lines(2).Text(), QStringLiteral("1 2 3 ") + QString(34, u'4'));
    EXPECT_EQ(rows.Texts.value({ 2, kLines }), Lines(2).Text());
}

TEST_F(GridKinds, WheelIsLeftToTheFormThatTurnsPages)
{
    GridShape shape{ 100 };
    shape.IgnoresWheel = true;
    Show(shape);
    for (QWidget* target : { &Cell("KT_TbCol", 3), Lines(3).viewport(), static_cast<QWidget*>(grid) }) {
        QWheelEvent event(QPointF(2, 2), target->mapToGlobal(QPointF(2, 2)), {}, { 0, -120 }, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &event);
        EXPECT_FALSE(event.isAccepted());
    }
    auto& bar = Find<QScrollBar>(window, "VScroll1");
    EXPECT_EQ(bar.value(), 0);
    grid->TurnPage(false);
    EXPECT_EQ(bar.value(), 20);
    for (int turn = 0; turn < 9; ++turn)
        grid->TurnPage(false);
    EXPECT_EQ(bar.value(), 80);
    grid->TurnPage(true);
    EXPECT_EQ(bar.value(), 60);
}

TEST_F(GridKinds, RowIsAsHighAsItsLines)
{
    Show();
    const int oneLine = Cell("KT_TbCol", 0).height();
    GridShape shape{ 100 };
    shape.LinesPerRow = 3;
    EditorGrid high(nullptr, rows, shape, { { "T", CellKind::Lines, TextId::EditorNew, 9, 20 } });
    high.FillRows(true);
    high.show();
    EXPECT_EQ(FindControl(high, "T[0]").height(), oneLine + 2 * high.fontMetrics().lineSpacing());
}

} // namespace tarvik
