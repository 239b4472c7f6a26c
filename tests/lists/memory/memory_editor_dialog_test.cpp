// The entry dialog, opened from the memory list editor.
#include "tests/lists/editor/list_form_fixture.h"

#include "lists/editor/editorGeneral.h"
#include "lists/memory/fmEditorMemoryListProp.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

namespace tarvik {

namespace {

class MemoryEditorDialog : public ListFormTest {
protected:
    ~MemoryEditorDialog() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    bool CanDelete()
    {
        return Find<QPushButton>(form, "BtDel").isEnabled();
    }
    /// Runs `during` on the entry dialog when it is open.
    static void InDialog(const std::function<void(QWidget&)>& during)
    {
        QTimer::singleShot(0, qApp, [during] {
            auto* dialog = dynamic_cast<fmEditorMemoryListProp*>(DialogTop());
            ASSERT_NE(dialog, nullptr);
            during(*dialog);
        });
    }
};

} // namespace

TEST_F(MemoryEditorDialog, EditScrollsToItsRow)
{
    Open(StoredList({ 5, 500 }));
    for (const auto& [top, expectedTop] : { std::pair(500, 5), std::pair(0, 0) }) {
        Find<QScrollBar>(form, "VScroll1").setValue(0);
        form.CellSetFocus(5, 3);
        Find<QScrollBar>(form, "VScroll1").setValue(top);
        QString title;
        InDialog([&](QWidget& dialog) {
            title = dialog.windowTitle();
            EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), expectedTop);
            Type(dialog, "TbFrequency", "300");
            Click(dialog, "BtOk");
        });
        Click(form, "BtEdit");
        EXPECT_EQ(title, "Memory Entry - 5");
        EXPECT_EQ(form.focusWidget(), &Cell(3, 5 - expectedTop));
    }
    Find<QScrollBar>(form, "VScroll1").setValue(500);
    form.CellSetFocus(510, 3);
    Find<QScrollBar>(form, "VScroll1").setValue(0);
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 491); // the row is the last one of the page
        Click(dialog, "BtCancel");
    });
    Click(form, "BtEdit");
    Find<QScrollBar>(form, "VScroll1").setValue(0);
    EXPECT_EQ(CellText(3, 5), "300.000000");
    Find<QScrollBar>(form, "VScroll1").setValue(500);
    EXPECT_EQ(CellText(3, 0), "600.000000");
}

TEST_F(MemoryEditorDialog, DoubleClickOpensEntry)
{
    Open(StoredList({ 5 }));
    for (const QString& name : { CellName(3, 5), CellName(0, 5), CellName(4, 5) }) {
        QString title;
        InDialog([&title](QWidget& dialog) {
            title = dialog.windowTitle();
            Click(dialog, "BtCancel");
        });
        QWidget& cell = FindControl(form, name);
        QTest::mouseClick(&cell, Qt::LeftButton);
        QTest::mouseDClick(&cell, Qt::LeftButton);
        EXPECT_EQ(title, "Memory Entry - 5");
    }
}

TEST_F(MemoryEditorDialog, DoubleClickOnCheckBoxOpensEntryAndKeepsTheStatus)
{
    Open(StoredList({ 5 }));
    bool isShown = false;
    InDialog([&isShown](QWidget& dialog) {
        isShown = true;
        EXPECT_EQ(Find<QComboBox>(dialog, "CbStatus").currentIndex(), 0);
        Click(dialog, "BtCancel");
    });
    QWidget& cell = Cell(1, 5);
    QTest::mouseClick(&cell, Qt::LeftButton);
    EXPECT_TRUE(IsChecked(5));
    QTest::mouseDClick(&cell, Qt::LeftButton);
    EXPECT_TRUE(isShown);
    EXPECT_FALSE(IsChecked(5));
}

TEST_F(MemoryEditorDialog, EntryEditedInDialogIsShownAndSetsDirty)
{
    Open(StoredList({ 5 }));
    form.CellSetFocus(5, 3);
    InDialog([](QWidget& dialog) {
        Type(dialog, "TbFrequency", "300");
        Find<QComboBox>(dialog, "CbModulation").setCurrentIndex(1);
        Click(dialog, "BtOk");
    });
    Click(form, "BtEdit");
    EXPECT_EQ(CellText(3, 5), "300.000000");
    EXPECT_EQ(CellText(4, 5), "AM");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(MemoryEditorDialog, OkOnUnusedRowSetsDirty)
{
    Open();
    form.CellSetFocus(5, 3);
    InDialog([](QWidget& dialog) { Click(dialog, "BtOk"); });
    Click(form, "BtEdit");
    EXPECT_EQ(CellText(4, 5), "FM");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_TRUE(CanDelete());
}

TEST_F(MemoryEditorDialog, CancelInDialogChangesNothing)
{
    Open(StoredList({ 5 }));
    form.CellSetFocus(5, 3);
    InDialog([](QWidget& dialog) {
        Type(dialog, "TbFrequency", "300");
        Click(dialog, "BtCancel");
    });
    Click(form, "BtEdit");
    EXPECT_EQ(CellText(3, 5), "105.000000");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEditorDialog, CancelAfterRefusedOkKeepsNumbersWithoutDirty)
{
    Open(StoredList({ 5 }));
    form.CellSetFocus(5, 3);
    Answers().Expect(12815, Ok);
    InDialog([](QWidget& dialog) {
        Type(dialog, "TbFrequency", "300");
        Find<QComboBox>(dialog, "CbModulation").setCurrentIndex(5);
        Find<QComboBox>(dialog, "CbBandwidth").setCurrentIndex(15);
        Click(dialog, "BtOk");
        Click(dialog, "BtCancel");
    });
    Click(form, "BtEdit");
    EXPECT_EQ(CellText(3, 5), "300.000000");
    EXPECT_EQ(CellText(4, 5), "FM");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEditorDialog, DeleteInDialogClearsRowAndItsNumber)
{
    Open(StoredList({ 0, 5 }));
    form.CellSetFocus(5, 3);
    InDialog([](QWidget& dialog) { Click(dialog, "BtDelete"); });
    Click(form, "BtEdit");
    EXPECT_EQ(CellText(2, 5), "0");
    EXPECT_EQ(CellText(3, 5), "");
    EXPECT_TRUE(Editor().EditorDirty);
    TypeCell(3, 5, "200"); // row 0 has number 0
    EXPECT_EQ(CellText(2, 5), "5");
}

TEST_F(MemoryEditorDialog, OkOnRowDeletedInDialogGivesItAFreeNumber)
{
    Open(StoredList({ 0, 5 }));
    form.CellSetFocus(5, 3);
    InDialog([](QWidget& dialog) { Click(dialog, "BtDelete"); });
    Click(form, "BtEdit");
    InDialog([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Memory Entry - 0"); // as the other row
        Click(dialog, "BtOk");
    });
    Click(form, "BtEdit");
    EXPECT_EQ(CellText(2, 5), "5");
}

TEST_F(MemoryEditorDialog, BadCellPreventsOpeningDialog)
{
    Open(StoredList({ 5 }));
    TypeCell(3, 5, "abc");
    Answers().Expect(12765, Ok);
    form.ShowEditorDialog();
    EXPECT_TRUE(Cell(3, 5).hasFocus());
}

} // namespace tarvik
