#include "tests/lists/editor/list_form_fixture.h"

#include "app/text/lang.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "tests/support/fakeHelp.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

namespace {

class MemoryEditor : public ListFormTest {
protected:
    ~MemoryEditor() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    bool CanDelete()
    {
        return Find<QPushButton>(form, "BtDel").isEnabled();
    }
    /// Saves the list and reads it back.
    MemoryTable Saved()
    {
        const QString folder = FilePath("saved/");
        QDir().mkpath(folder);
        QFile::remove(folder + "Van.tvm");
        AnswerFolder(folder);
        EXPECT_TRUE(form.Save());
        MemoryTable read;
        EXPECT_TRUE(OpenMemoryList(folder + "Van.tvm", read));
        return read;
    }
    QComboBox& Sort()
    {
        return Find<QComboBox>(form, "CbSort");
    }
};

} // namespace

TEST_F(MemoryEditor, UnusedRowShowsOnlyItsNumber)
{
    Open();
    EXPECT_EQ(CellText(2, 5), "5");
    for (const int column : { 3, 4, 5 })
        EXPECT_EQ(CellText(column, 5), "");
    EXPECT_FALSE(IsChecked(5));
    EXPECT_FALSE(CanDelete());
}

TEST_F(MemoryEditor, UsedRowShowsItsFields)
{
    Open(StoredList({ 5 }));
    EXPECT_EQ(CellText(2, 5), "5");
    EXPECT_EQ(CellText(3, 5), "105.000000");
    EXPECT_EQ(CellText(4, 5), "FM");
    EXPECT_EQ(CellText(5, 5), "Row 5");
}

TEST_F(MemoryEditor, TypedFrequencyMakesRowUsedWithItsNumber)
{
    Open();
    TypeCell(3, 5, "145,5");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_TRUE(CanDelete());
    EXPECT_EQ(CellText(4, 5), "FM");
    Key(Qt::Key_Down);
    EXPECT_EQ(CellText(3, 5), "145.500000");
    Find<QLineEdit>(form, "TbName").setText("Van");
    const MemoryRecord record = Saved().Row(5);
    EXPECT_TRUE(record.Used);
    EXPECT_EQ(record.Number, 5);
    EXPECT_EQ(record.Frequency, 145500000);
}

TEST_F(MemoryEditor, DecimalMarkThatCellShowsCanBeTyped)
{
    SetRegion(QLocale(QLocale::Persian, QLocale::Iran));
    Open(StoredList({ 5 }));
    ASSERT_EQ(CellText(3, 5), QStringLiteral("105\u066B000000"));
    TypeCell(3, 5, "100");
    QTest::sendKeyEvent(QTest::Click, &Cell(3, 5), Qt::Key_unknown, QStringLiteral("\u066B"), Qt::NoModifier);
    QTest::keyClicks(&Cell(3, 5), QStringLiteral("5"));
    Key(Qt::Key_Down);
    EXPECT_EQ(CellText(3, 5), QStringLiteral("100\u066B500000"));
    Find<QLineEdit>(form, "TbName").setText("Van");
    EXPECT_EQ(Saved().Row(5).Frequency, 100500000);
}

TEST_F(MemoryEditor, CellTakesNoOtherCharacters)
{
    Open(StoredList({ 5 }));
    TypeCell(3, 5, "100");
    for (const QString& text : { QStringLiteral("\u066C"), QStringLiteral("\u6F22") })
        QTest::sendKeyEvent(QTest::Click, &Cell(3, 5), Qt::Key_unknown, text, Qt::NoModifier);
    EXPECT_EQ(CellText(3, 5), "100");
    TypeCell(5, 5, "Van");
    QTest::sendKeyEvent(QTest::Click, &Cell(5, 5), Qt::Key_unknown, QStringLiteral("\u066B"), Qt::NoModifier);
    EXPECT_EQ(CellText(5, 5), "Van");
}

TEST_F(MemoryEditor, TypedDescriptionMakesRowUsedWithoutFrequency)
{
    Open();
    TypeCell(5, 5, "Tower");
    EXPECT_EQ(CellText(5, 5), "Tower");
    EXPECT_EQ(CellText(4, 5), "FM");
    EXPECT_EQ(CellText(3, 5), "");
    Find<QLineEdit>(form, "TbName").setText("Van");
    AnswerFolder(Folder());
    Answers().Expect(12771, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Cell(3, 5).hasFocus());
}

TEST_F(MemoryEditor, CheckBoxStoresStatusAtOnce)
{
    Open(StoredList({ 5 }));
    Find<QCheckBox>(form, CellName(1, 5)).click();
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(Saved().Row(5).Status, 1);
}

TEST_F(MemoryEditor, CheckBoxMakesRowUsed)
{
    Open();
    Find<QCheckBox>(form, CellName(1, 5)).click();
    EXPECT_TRUE(IsChecked(5));
    EXPECT_EQ(CellText(4, 5), "FM");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(MemoryEditor, ValueOutsideLimitsIsClampedInCell)
{
    Open(StoredList({ 5 }));
    TypeCell(3, 5, "9000");
    Key(Qt::Key_Down);
    EXPECT_EQ(CellText(3, 5), "8000.000000");
}

TEST_F(MemoryEditor, BadDescriptionKeepsFocus)
{
    Open(StoredList({ 5 }));
    TypeCell(5, 5, "a,b");
    Answers().Expect(12764, QStringList(), Ok);
    Key(Qt::Key_Down);
    EXPECT_TRUE(Cell(5, 5).hasFocus());
}

TEST_F(MemoryEditor, DeleteMakesRowUnusedAndKeepsItsNumber)
{
    Open(StoredList({ 4, 5, 6 }));
    form.CellSetFocus(5, 3);
    EXPECT_TRUE(CanDelete());
    Click(form, "BtDel");
    EXPECT_EQ(CellText(2, 5), "5");
    EXPECT_EQ(CellText(3, 5), "");
    EXPECT_EQ(CellText(3, 6), "106.000000"); // nothing is shifted
    EXPECT_TRUE(Cell(3, 5).hasFocus());
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_FALSE(CanDelete());
    const MemoryTable saved = Saved();
    EXPECT_FALSE(saved.Row(5).Used);
    EXPECT_TRUE(saved.Row(6).Used);
}

TEST_F(MemoryEditor, DeleteScrollsToItsRow)
{
    Open(StoredList({ 5, 500 }));
    form.CellSetFocus(5, 3);
    Find<QScrollBar>(form, "VScroll1").setValue(500);
    Click(form, "BtDel");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 5);
    EXPECT_TRUE(Cell(3, 0).hasFocus());
    EXPECT_EQ(CellText(3, 0), "");
    const MemoryTable saved = Saved();
    EXPECT_FALSE(saved.Row(5).Used);
    EXPECT_TRUE(saved.Row(500).Used);
}

TEST_F(MemoryEditor, DeleteIgnoresBadCell)
{
    Open(StoredList({ 5 }));
    TypeCell(3, 5, "abc");
    Click(form, "BtDel");
    EXPECT_EQ(CellText(3, 5), "");
}

TEST_F(MemoryEditor, DeletedRowIsUsedAgainWithItsNumber)
{
    Open(StoredList({ 5 }));
    form.CellSetFocus(5, 3);
    Click(form, "BtDel");
    TypeCell(3, 5, "200");
    Key(Qt::Key_Down);
    EXPECT_EQ(CellText(2, 5), "5");
    EXPECT_EQ(CellText(5, 5), "Row 5"); // the record's values, not blanks
    EXPECT_TRUE(Saved().Row(5).Used);
}

TEST_F(MemoryEditor, BadFrequencyOutsidePageDoesNotPreventSave)
{
    const QString path = StoredList({ 0, 500 });
    MemoryTable table;
    ASSERT_TRUE(OpenMemoryList(path, table));
    table.Row(500).Frequency = 1; // below every limit, as another program may have written it
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(WriteMemoryList(path, table));
    Open(path);
    EXPECT_EQ(Saved().Row(500).Frequency, 1);
}

TEST_F(MemoryEditor, ClampingStoredValueSetsDirty)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    UseRow(table, 5, 1); // below every limit, as another program may have written it
    ASSERT_TRUE(WriteMemoryList(FilePath("Van.tvm"), table));
    Open(FilePath("Van.tvm"));
    form.CellSetFocus(5, 3);
    EXPECT_FALSE(Editor().EditorDirty);
    Key(Qt::Key_Down);
    EXPECT_EQ(CellText(3, 5), "0.008000");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(MemoryEditor, UnchangedCellDoesNotSetDirty)
{
    Open(StoredList({ 5 }));
    form.CellSetFocus(5, 3);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Down);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEditor, DeletedRowHidesStatusUntilUsedAgain)
{
    Open(StoredList({ 5 }));
    Find<QCheckBox>(form, CellName(1, 5)).click();
    form.CellSetFocus(5, 3);
    Click(form, "BtDel");
    EXPECT_FALSE(IsChecked(5));
    TypeCell(3, 5, "200");
    EXPECT_TRUE(IsChecked(5));
}

TEST_F(MemoryEditor, PointerIsBusyDuringSort)
{
    Open(StoredList({ 5 }));
    static Qt::CursorShape shape;
    static QWidget* sorted = nullptr;
    sorted = &form;
    TvFio().MemoryListSort = [](int16_t*, int16_t) { shape = sorted->cursor().shape(); };
    Click(form, "BtSort");
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MemoryEditor, SortOffersSevenKeys)
{
    Open();
    EXPECT_EQ(Sort().count(), 7);
    EXPECT_EQ(Sort().currentIndex(), 0);
    for (int key = 0; key < 7; ++key)
        EXPECT_EQ(Sort().itemText(key), LngStr(10817 + key));
}

TEST_F(MemoryEditor, SortOrdersListAndScrollsToTop)
{
    Open(StoredList({ 30, 200, 900 }));
    Find<QScrollBar>(form, "VScroll1").setValue(500);
    Sort().setCurrentIndex(4);
    Click(form, "BtSort");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 0);
    EXPECT_EQ(CellText(3, 0), "1000.000000");
    EXPECT_EQ(CellText(3, 2), "130.000000");
    EXPECT_EQ(CellText(3, 3), "");
    EXPECT_TRUE(Editor().EditorDirty);
}

/// A mnemonic leaves the focus in the cell.
TEST_F(MemoryEditor, SortTakesEditedCellFirst)
{
    Open(StoredList({ 0, 1, 2 }));
    Sort().setCurrentIndex(3);
    TypeCell(3, 0, "250");
    Find<QPushButton>(form, "BtSort").click();
    EXPECT_EQ(CellText(3, 0), "101.000000");
    EXPECT_EQ(CellText(3, 2), "250.000000");
    TypeCell(3, 0, "abc");
    Answers().Expect(12765, Ok);
    Find<QPushButton>(form, "BtSort").click();
    EXPECT_TRUE(Cell(3, 0).hasFocus());
    EXPECT_EQ(CellText(3, 0), "abc");
}

TEST_F(MemoryEditor, SortTakesCellThatWasLeftForHelp)
{
    FakeHelp help;
    Open(StoredList({ 0, 1 }));
    Sort().setCurrentIndex(3);
    TypeCell(3, 0, "250");
    Click(form, "BtHelp");
    Click(form, "BtSort");
    EXPECT_EQ(CellText(3, 1), "250.000000");
}

TEST_F(MemoryEditor, FailedSortKeepsRowsAndPage)
{
    Open(StoredList({ 30 }));
    Find<QScrollBar>(form, "VScroll1").setValue(20);
    TvFio().MemoryListSort = [](int16_t* status, int16_t) { *status = 16; };
    Answers().Expect(12838, QStringList(), Ok);
    Click(form, "BtSort");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 20);
    EXPECT_EQ(CellText(3, 10), "130.000000");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEditor, HeadersSortAtOnceAndToggle)
{
    Open(StoredList({ 1, 2, 3 }));
    form.CellSetFocus(0, 3);
    Click(form, "LbHdr3");
    EXPECT_EQ(Sort().currentIndex(), 3);
    EXPECT_EQ(CellText(3, 0), "101.000000");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_TRUE(Cell(3, 0).hasFocus());
    Click(form, "LbHdr3");
    EXPECT_EQ(Sort().currentIndex(), 4);
    EXPECT_EQ(CellText(3, 0), "103.000000");
    EXPECT_EQ(Find<GridHeader>(form, "LbHdr3").Mark(), SortMark::Down);
    Click(form, "LbHdr2");
    EXPECT_EQ(Sort().currentIndex(), 1);
    EXPECT_EQ(Find<GridHeader>(form, "LbHdr3").Mark(), SortMark::None);
    Click(form, "LbHdr5");
    EXPECT_EQ(Sort().currentIndex(), 5);
}

TEST_F(MemoryEditor, SortMarkGoesWithChangeAndWithOtherList)
{
    const QString path = StoredList({ 1, 2 });
    Open(path);
    const auto mark = [this] { return Find<GridHeader>(form, "LbHdr3").Mark(); };
    Click(form, "LbHdr3");
    EXPECT_EQ(mark(), SortMark::Up);
    TypeCell(3, 0, "250");
    EXPECT_EQ(mark(), SortMark::None);
    Click(form, "LbHdr3");
    EXPECT_EQ(mark(), SortMark::Down);
    AnswerFile(path);
    Answers().Expect(12769, No);
    Click(form, "BtOpen");
    EXPECT_EQ(mark(), SortMark::None);
}

TEST_F(MemoryEditor, SavedListIsShownAsItWasWritten)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    UseRow(table, 3, 1e8).Number = 5;
    UseRow(table, 5, 2e8).Number = 5;
    ASSERT_TRUE(WriteMemoryList(FilePath("Van.tvm"), table));
    Open(FilePath("Van.tvm"));
    EXPECT_EQ(CellText(2, 5), "5");
    Find<QComboBox>(form, "CbExt").setCurrentIndex(1);
    AnswerFolder(Folder());
    Answers().Expect(12910, { QStringLiteral("5") }, Yes);
    EXPECT_TRUE(form.Save());
    EXPECT_EQ(CellText(2, 3), "5");
    EXPECT_EQ(CellText(2, 5), "0");
}

TEST_F(MemoryEditor, OtherHeadersDoNothing)
{
    Open(StoredList({ 1 }));
    for (const char* header : { "LbHdr0", "LbHdr1", "LbHdr4" })
        Click(form, header);
    EXPECT_EQ(Sort().currentIndex(), 0);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(MemoryEditor, SavesInBothFormatsAndReadsBack)
{
    Open(StoredList({ 5, 1023 }));
    QDir().mkpath(FilePath("out"));
    AnswerFolder(FilePath("out"));
    Find<QComboBox>(form, "CbExt").setCurrentIndex(1);
    EXPECT_TRUE(form.Save());
    Find<QComboBox>(form, "CbExt").setCurrentIndex(0);
    EXPECT_TRUE(form.Save());
    MemoryTable csv;
    MemoryTable binary;
    ASSERT_TRUE(OpenMemoryList(FilePath("out/Van.csv"), csv));
    ASSERT_TRUE(OpenMemoryList(FilePath("out/Van.tvm"), binary));
    EXPECT_EQ(csv, binary);
    EXPECT_EQ(csv.Row(1023).Description, "Row 1023");
}

} // namespace tarvik
