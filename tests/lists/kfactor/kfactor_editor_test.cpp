#include "tests/lists/editor/editor_form_fixture.h"
#include "tests/lists/kfactor/kfactor_fixture.h"
#include "tests/support/fakeHelp.h"

#include "closed/loader.h"
#include "lists/kfactor/FmEditorKfactor.h"

#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

namespace {

class KfactorEditor : public EditorFormTest<FmEditorKfactor> {
protected:
    void TypeRow(int index, const QString& frequency, const QString& passive, const QString& active)
    {
        const QStringList texts{ frequency, passive, active };
        for (int column = 1; column <= 3; ++column) {
            TypeIn(QStringLiteral("TbCol%1[%2]").arg(column).arg(index), texts.at(column - 1));
            Key(Qt::Key_Tab); // the cell is checked and stored
        }
    }

    QString StoredTable(const QString& fileName, const QList<double>& frequenciesHz)
    {
        KfactorTable table;
        table.Name = QStringLiteral("Mast");
        table.Description = QStringLiteral("north");
        for (qsizetype row = 0; row < frequenciesHz.size(); ++row)
            table.Row(static_cast<int>(row)) = { true, frequenciesHz.at(row), 1, 2 };
        EXPECT_TRUE(WriteKfactorFile(FilePath(fileName), table));
        return FilePath(fileName);
    }
};

const QColor kFocused(0xDD, 0xDD, 0x77);

} // namespace

TEST_F(KfactorEditor, HasItsControls)
{
    Open();
    ExpectControls(form,
        { "TbName", "TbDescr", "CbExt", "BtNew", "BtOpen", "BtSave", "BtClose", "BtHelp", "BtSort", "BtView",
            "BtDelete", "VScroll1", "LbCol0[0]", "TbCol1[19]", "TbCol2[0]", "TbCol3[19]" });
    EXPECT_EQ(form.objectName(), "FmEditorKfactor");
    EXPECT_EQ(form.windowTitle(), "K-Factor Table Editor");
    EXPECT_EQ(TextIn("LbCol0[0]"), "1");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").maximum(), 980);
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").itemText(0), ".TVK");
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").itemText(1), ".csv");
    ExpectNothingClipped(form);
}

TEST_F(KfactorEditor, HeadersHaveTheirTexts)
{
    ShowTextNumbers();
    FmEditorKfactor other;
    EXPECT_EQ(TextOf(other, "LbHdr1"), "text 10776");
    EXPECT_EQ(TextOf(other, "LbHdr2"), "text 10777");
    EXPECT_EQ(TextOf(other, "LbHdr3"), "text 10778");
}

TEST_F(KfactorEditor, CellsTakeTheirLengths)
{
    Open();
    const QList<qsizetype> lengths{ 13, 6, 6 };
    for (int column = 1; column <= 3; ++column) {
        const QString name = QStringLiteral("TbCol%1[0]").arg(column);
        TypeIn(name, QString(20, u'1'));
        EXPECT_EQ(TextIn(name).size(), lengths.at(column - 1)) << column;
    }
}

TEST_F(KfactorEditor, TabOrderIsReadingOrder)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6 }));
    ExpectTabOrder(form);
}

TEST_F(KfactorEditor, CommandsHaveTheirMnemonics)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6 }));
    ExpectMnemonics(form);
}

TEST_F(KfactorEditor, ControlsHaveTheirTopics)
{
    Open();
    const QList<std::pair<QString, int>> topics{ { "TbName", 10764 }, { "CbExt", 10764 }, { "TbDescr", 10745 },
        { "LbHdr0", 11993 }, { "LbCol0[3]", 11993 }, { "TbCol1[0]", 11993 }, { "TbCol2[9]", 11993 },
        { "TbCol3[19]", 11993 }, { "VScroll1", 11993 }, { "FrKfactors", 11993 }, { "BtSort", 10724 },
        { "BtView", 10722 }, { "BtDelete", 10712 }, { "BtNew", 10718 }, { "BtOpen", 10714 }, { "BtSave", 10716 },
        { "BtHelp", 10734 }, { "BtClose", 10710 } };
    for (const auto& [name, topic] : topics)
        EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), topic) << name.toStdString();
}

TEST_F(KfactorEditor, HelpShowsItsTopic)
{
    FakeHelp help;
    Open();
    Click(form, "BtHelp");
    EXPECT_EQ(help.Topics, QList<int>{ 11993 });
}

TEST_F(KfactorEditor, TypingInEmptyRowUsesItAndClearingFreesIt)
{
    Open();
    EXPECT_FALSE(IsEnabled("BtDelete"));
    TypeIn("TbCol2[3]", "5");
    EXPECT_TRUE(Kfactors().Row(3).Used);
    EXPECT_TRUE(IsEnabled("BtDelete"));
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(TextIn("TbCol1[3]"), "");
    TypeIn("TbCol2[3]", "");
    EXPECT_FALSE(Kfactors().Row(3).Used);
    EXPECT_FALSE(IsEnabled("BtDelete"));
}

TEST_F(KfactorEditor, TypingInUsedRowIsAChange)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6 }));
    EXPECT_FALSE(Editor().EditorDirty);
    TypeIn("TbCol2[1]", "7");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(Kfactors().Row(1).Passive, 1) << "the cell has not been left";
}

TEST_F(KfactorEditor, RowEmptiedByTypingKeepsItsFrequency)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6, 50e6 }));
    for (const QString name : { "TbCol1[1]", "TbCol2[1]", "TbCol3[1]" })
        TypeIn(name, "");
    EXPECT_FALSE(Kfactors().Row(1).Used);
    EXPECT_EQ(Kfactors().Row(1).Frequency, 40e6);
}

TEST_F(KfactorEditor, CellsReachTheTableWhenLeft)
{
    Open();
    TypeRow(0, "85", "1", "-2,5");
    EXPECT_EQ(Kfactors().Row(0).Frequency, 85e6);
    EXPECT_EQ(Kfactors().Row(0).Passive, 1);
    EXPECT_EQ(Kfactors().Row(0).Active, -2.5);
    EXPECT_EQ(TextIn("TbCol3[0]"), "-2.50");
    EXPECT_EQ(TextIn("TbCol1[0]"), "85.000000");
}

TEST_F(KfactorEditor, BadCellKeepsFocus)
{
    Open();
    TypeIn("TbCol1[0]", "x");
    Answers().Expect(12765, QStringList(), Ok);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(IsFocused("TbCol1[0]"));
}

TEST_F(KfactorEditor, FocusedCellHasItsColour)
{
    Open();
    form.CellSetFocus(2, 1);
    EXPECT_EQ(Background("TbCol1[2]"), kFocused);
    EXPECT_EQ(Background("TbCol2[2]"), form.palette().color(QPalette::Base)); // the row is not marked
    form.CellSetFocus(3, 1);
    EXPECT_EQ(Background("TbCol1[2]"), form.palette().color(QPalette::Base));
}

TEST_F(KfactorEditor, DeleteEmptiesRowButKeepsItsFrequency)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6, 50e6 }));
    form.CellSetFocus(1, 1);
    Click(form, "BtDelete");
    EXPECT_EQ(TextIn("TbCol1[1]"), "");
    EXPECT_EQ(TextIn("TbCol3[1]"), "");
    EXPECT_FALSE(IsEnabled("BtDelete"));
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_FALSE(Kfactors().Row(1).Used);
    EXPECT_EQ(Kfactors().Row(1).Frequency, 40e6);
}

TEST_F(KfactorEditor, FrequencyOfDeletedRowIsRefusedFurtherDown)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6, 50e6 }));
    form.CellSetFocus(1, 1);
    Click(form, "BtDelete");
    TypeIn("TbCol1[2]", "40");
    Answers().Expect(12768, { QStringLiteral("3") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol1[2]"));
    TypeIn("TbCol1[2]", "50");
    TypeIn("TbCol1[0]", "40"); // further up it is free
    AnswerFolder(Folder());
    Answers().Expect(12734, { QStringLiteral("Mast.tvk") }, Yes);
    EXPECT_TRUE(form.Save());
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(KfactorEditor, DeletedRowThatIsUsedAgainIsRefusedWithItsOldFrequency)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6, 50e6 }));
    form.CellSetFocus(1, 1);
    Click(form, "BtDelete");
    TypeIn("TbCol1[0]", "40");
    Key(Qt::Key_Tab);
    TypeIn("TbCol2[1]", "5");
    Find<QScrollBar>(form, "VScroll1").setValue(100); // the empty cells of the row are out of view
    Answers().Expect(12768, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(form.Save());
}

TEST_F(KfactorEditor, DeleteScrollsToTheCurrentRowAndStaysThere)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6, 50e6 }));
    form.CellSetFocus(1, 1);
    Find<QScrollBar>(form, "VScroll1").setValue(100);
    Click(form, "BtDelete");
    EXPECT_FALSE(Kfactors().Row(1).Used);
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 1);
    EXPECT_TRUE(IsFocused("TbCol1[0]"));
}

TEST_F(KfactorEditor, DeleteChecksHeadWhenCalledByItsMnemonic)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6 }));
    TypeIn("TbName", "a.b");
    Answers().Expect(12766, Ok);
    Find<QPushButton>(form, "BtDelete").click();
    EXPECT_TRUE(IsFocused("TbName"));
    EXPECT_TRUE(Kfactors().Row(0).Used);
}

TEST_F(KfactorEditor, MissingEntriesAreReportedInTheFirstVisibleRow)
{
    Open();
    TypeIn("TbName", "Mast");
    Find<QScrollBar>(form, "VScroll1").setValue(40);
    Answers().Expect(12772, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol2[0]"));
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 40);
}

TEST_F(KfactorEditor, RefusedSaveKeepsTheTitle)
{
    Open(StoredTable("Mast.tvk", { 85e6, 30e6, 85e6 }));
    Answers().Expect(12768, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(form.windowTitle(), "K-Factor Table Editor - Mast.tvk");
}

TEST_F(KfactorEditor, FileHoldsNameAndDescription)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6 }));
    TypeIn("TbName", "Whip");
    TypeIn("TbDescr", "south");
    AnswerFolder(Folder());
    ASSERT_TRUE(form.Save());
    KfactorTable read;
    ASSERT_TRUE(LoadKfactorFile(FilePath("Whip.tvk"), read));
    EXPECT_EQ(read.Name, "Whip");
    EXPECT_EQ(read.Description, "south");
}

TEST_F(KfactorEditor, EntriesAreCountedBeforeCellsAreChecked)
{
    Open();
    TypeIn("TbName", "Mast");
    TypeIn("TbCol1[0]", "x");
    Answers().Expect(12772, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol2[0]"));
}

TEST_F(KfactorEditor, OneEntryCanNeitherBeSavedNorSortedNorViewed)
{
    Open();
    TypeIn("TbName", "Mast");
    TypeRow(0, "85", "1", "1");
    for (const QString button : { "BtSave", "BtSort", "BtView" }) {
        Answers().Expect(12772, QStringList(), Ok);
        Click(form, button);
        Answers().Verify();
    }
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(KfactorEditor, NameAndDescriptionAreCheckedFirst)
{
    Open();
    Answers().Expect(12766, { QStringLiteral("K-factor table") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbName"));
    TypeIn("TbName", "None");
    Answers().Expect(12770, { QStringLiteral("K-factor table") }, Ok);
    EXPECT_FALSE(form.Save());
}

TEST_F(KfactorEditor, SaveChecksVisibleRowsOnly)
{
    Open();
    TypeIn("TbName", "Mast");
    TypeRow(0, "85", "1", "1");
    TypeRow(1, "86", "1", "1");
    TypeIn("TbCol1[2]", "87"); // passive and active stay empty
    Answers().Expect(12771, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol2[2]"));
    form.CellSetFocus(2, 1);
    Find<QScrollBar>(form, "VScroll1").setValue(100);
    AnswerFolder(Folder());
    EXPECT_TRUE(form.Save());
}

TEST_F(KfactorEditor, SameFrequencyTwiceIsRefusedWithSecondRow)
{
    Open();
    TypeIn("TbName", "Mast");
    TypeRow(0, "85", "1", "1");
    TypeRow(4, "85", "2", "2");
    Answers().Expect(12768, { QStringLiteral("5") }, Ok);
    Click(form, "BtSave");
    EXPECT_TRUE(IsFocused("TbCol1[4]"));
}

TEST_F(KfactorEditor, RefusedFrequencyScrollsIntoView)
{
    QList<double> frequencies;
    for (int row = 0; row < 60; ++row)
        frequencies.append(1e6 * (row == 50 ? 21 : row + 1));
    Open(StoredTable("Mast.tvk", frequencies));
    Answers().Expect(12768, { QStringLiteral("51") }, Ok);
    Click(form, "BtSort");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 31);
    EXPECT_TRUE(IsFocused("TbCol1[19]"));
}

TEST_F(KfactorEditor, SortOrdersRowsAndLeavesDirtyAlone)
{
    Open(StoredTable("Mast.tvk", { 85e6, 30e6 }));
    Find<QScrollBar>(form, "VScroll1").setValue(7);
    Click(form, "BtSort");
    EXPECT_EQ(TextIn("TbCol1[0]"), "30.000000");
    EXPECT_EQ(TextIn("TbCol1[1]"), "85.000000");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 0);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(KfactorEditor, FirstRowIsTheCurrentOneAfterSort)
{
    Open(StoredTable("Mast.tvk", { 85e6, 30e6 }));
    form.CellSetFocus(5, 1);
    EXPECT_FALSE(IsEnabled("BtDelete"));
    Click(form, "BtSort");
    EXPECT_TRUE(IsEnabled("BtDelete"));
}

TEST_F(KfactorEditor, PageIsCheckedRowByRow)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6, 50e6, 60e6 }));
    TypeIn("TbCol3[1]", "");
    TypeIn("TbCol1[2]", "x");
    TypeIn("TbCol1[3]", "61");
    Answers().Expect(12771, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol3[1]"));
}

TEST_F(KfactorEditor, DiscardedChangesAreForgottenWhenAnotherTableOpens)
{
    Open(StoredTable("Mast.tvk", { 30e6, 40e6 }));
    TypeIn("TbDescr", "south");
    AnswerFile(StoredTable("Whip.tvk", { 50e6, 60e6 }));
    Answers().Expect(12769, No);
    Click(form, "BtOpen");
    EXPECT_EQ(TextIn("TbCol1[0]"), "50.000000");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(KfactorEditor, SortLeavesUnsavedChangesMarked)
{
    Open(StoredTable("Mast.tvk", { 85e6, 30e6 }));
    TypeIn("TbName", "Whip");
    Click(form, "BtSort");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(TextIn("TbName"), "Whip");
    EXPECT_EQ(Kfactors().Name, "Whip");
}

TEST_F(KfactorEditor, PointerIsBusyDuringSort)
{
    Open(StoredTable("Mast.tvk", { 85e6, 30e6 }));
    static Qt::CursorShape shape = Qt::ArrowCursor;
    static QWidget* busy = nullptr;
    busy = &form;
    TvFio().KfactorTableSort = [](std::int16_t* status) {
        shape = busy->cursor().shape();
        *status = 0;
    };
    Click(form, "BtSort");
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(KfactorEditor, ViewSortsTheTableAndShowsItUnderTheTitle)
{
    FakeDatasetForms diagrams;
    Open(StoredTable("Mast.tvk", { 85e6, 30e6 }));
    Click(form, "BtView");
    EXPECT_EQ(diagrams.Names, QStringList{ "K-Factor Table Editor - Mast.tvk" });
    EXPECT_EQ(TextIn("TbCol1[0]"), "30.000000");
}

TEST_F(KfactorEditor, RefusedTableIsNotShown)
{
    FakeDatasetForms diagrams;
    Open(StoredTable("Mast.tvk", { 85e6, 30e6, 85e6 }));
    Answers().Expect(12768, { QStringLiteral("3") }, Ok);
    Click(form, "BtView");
    EXPECT_EQ(diagrams.Names, QStringList());
}

TEST_F(KfactorEditor, CsvFormIsDecidedByTheTablesExtensionText)
{
    Open(StoredTable("Mast.csv", { 30e6, 85e6 }));
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").currentIndex(), 1);
    EXPECT_EQ(form.windowTitle(), "K-Factor Table Editor - Mast.csv");
    EXPECT_EQ(TextIn("TbDescr"), "north");
    SeparateCsvExtensions();
    AnswerFile(StoredTable("Mast.txt", { 30e6, 85e6 }));
    Click(form, "BtOpen");
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").currentIndex(), 1);
}

TEST_F(KfactorEditor, ResultIsNameOfUnchangedTable)
{
    Open(StoredTable("Mast.tvk", { 30e6, 85e6 }));
    form.Unload();
    EXPECT_EQ(Editor().KfactorFileName, "Mast.tvk");
    EXPECT_EQ(Editor().ResultFolder + u'/', Folder());
}

TEST_F(KfactorEditor, ResultIsSetByTheSaveOnClosing)
{
    Open();
    TypeIn("TbName", "Whip");
    TypeRow(0, "85", "1", "1");
    TypeRow(1, "86", "1", "1");
    AnswerFolder(Folder());
    Answers().Expect(12769, Yes);
    form.Unload();
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(Editor().KfactorFileName, "Whip.tvk");
    EXPECT_EQ(Editor().ResultFolder, Folder());
}

TEST_F(KfactorEditor, ResultIsEmptyWithoutNameOrWithDiscardedChanges)
{
    Editor().KfactorFileName = QStringLiteral("before");
    Open();
    form.Unload();
    EXPECT_EQ(Editor().KfactorFileName, "");
    Open();
    TypeIn("TbName", "Whip");
    Answers().Expect(12769, No);
    form.Unload();
    EXPECT_EQ(Editor().KfactorFileName, "");
}

} // namespace tarvik
