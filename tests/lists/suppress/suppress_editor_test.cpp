#include "tests/lists/editor/editor_form_fixture.h"
#include "tests/support/fakeHelp.h"

#include "closed/loader.h"
#include "lists/suppress/FmEditorSuppress.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

namespace {

class SuppressEditor : public EditorFormTest<FmEditorSuppress> {
protected:
    QString StoredList(const QString& fileName, const QList<std::pair<double, double>>& ranges)
    {
        SuppressTable table;
        table.Name = QStringLiteral("Bands");
        table.Description = QStringLiteral("fm");
        for (qsizetype row = 0; row < ranges.size(); ++row)
            table.Row(static_cast<int>(row)) = { true, kInclude, ranges.at(row).first, ranges.at(row).second, {} };
        EXPECT_TRUE(WriteSuppressFile(FilePath(fileName), table));
        return FilePath(fileName);
    }
    bool IsChecked(int index)
    {
        return Find<QCheckBox>(form, QStringLiteral("CbCol1[%1]").arg(index)).isChecked();
    }
    int TopRow()
    {
        return Find<QScrollBar>(form, "VScroll1").value();
    }
};

} // namespace

TEST_F(SuppressEditor, HasItsControls)
{
    Open();
    ExpectControls(form,
        { "TbName", "TbDescr", "CbExt", "BtNew", "BtOpen", "BtSave", "BtClose", "BtHelp", "BtSort", "BtSortMerge",
            "BtDelete", "VScroll1", "LbCol0[0]", "CbCol1[19]", "TbCol2[0]", "TbCol3[19]", "TbCol4[0]" });
    EXPECT_EQ(form.objectName(), "FmEditorSuppress");
    EXPECT_EQ(form.windowTitle(), "Suppress List Editor");
    EXPECT_EQ(TextIn("LbCol0[0]"), "0");
    EXPECT_EQ(TextIn("LbCol0[5]"), "5");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").maximum(), 80);
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").itemText(0), ".TVS");
    ExpectNothingClipped(form);
}

TEST_F(SuppressEditor, TabOrderIsReadingOrder)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    ExpectTabOrder(form);
}

TEST_F(SuppressEditor, CommandsHaveTheirMnemonics)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    ExpectMnemonics(form);
}

TEST_F(SuppressEditor, ControlsHaveTheirTopics)
{
    Open();
    const QList<std::pair<QString, int>> topics{ { "TbName", 10764 }, { "CbExt", 10764 }, { "TbDescr", 10745 },
        { "LbHdr0", 11997 }, { "LbCol0[3]", 11997 }, { "CbCol1[0]", 11997 }, { "TbCol2[9]", 11997 },
        { "TbCol4[19]", 11997 }, { "VScroll1", 11997 }, { "FrSuppressLst", 11997 }, { "BtSort", 10724 },
        { "BtSortMerge", 10720 }, { "BtDelete", 10712 }, { "BtNew", 10718 }, { "BtOpen", 10714 }, { "BtSave", 10716 },
        { "BtHelp", 10734 }, { "BtClose", 10710 } };
    for (const auto& [name, topic] : topics)
        EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), topic) << name.toStdString();
}

TEST_F(SuppressEditor, HelpShowsItsTopic)
{
    FakeHelp help;
    Open();
    Click(form, "BtHelp");
    EXPECT_EQ(help.Topics, QList<int>{ 11997 });
}

TEST_F(SuppressEditor, RowIsUsedWhileCheckedOrFilled)
{
    Open();
    EXPECT_FALSE(IsEnabled("BtDelete"));
    form.CellSetFocus(2, 1);
    Click(form, "CbCol1[2]");
    EXPECT_TRUE(IsChecked(2));
    EXPECT_TRUE(IsEnabled("BtDelete"));
    EXPECT_TRUE(Editor().EditorDirty);
    TypeIn("TbCol4[2]", "x");
    Click(form, "CbCol1[2]");
    EXPECT_TRUE(IsEnabled("BtDelete"));
    TypeIn("TbCol4[2]", "");
    EXPECT_FALSE(IsEnabled("BtDelete"));
}

TEST_F(SuppressEditor, CellsAreCheckedWhenLeft)
{
    Open();
    TypeAndLeave("TbCol2[0]", "9000");
    EXPECT_EQ(TextIn("TbCol2[0]"), "8000.000000");
    TypeIn("TbCol4[0]", "a;b");
    Answers().Expect(12764, QStringList(), Ok);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(IsFocused("TbCol4[0]"));
}

TEST_F(SuppressEditor, LastFourDescriptionsTakeTwentyCharacters)
{
    Open();
    TypeIn("TbCol4[15]", QString(40, u'a'));
    EXPECT_EQ(TextIn("TbCol4[15]").size(), 32);
    TypeIn("TbCol4[16]", QString(40, u'a'));
    EXPECT_EQ(TextIn("TbCol4[16]").size(), 20);
}

TEST_F(SuppressEditor, DeleteClearsFocusedRow)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 }, { 3e6, 4e6 } }));
    form.CellSetFocus(1, 2);
    Click(form, "BtDelete");
    EXPECT_EQ(TextIn("TbCol2[1]"), "");
    EXPECT_FALSE(IsChecked(1));
    EXPECT_FALSE(IsEnabled("BtDelete"));
    EXPECT_TRUE(IsChecked(0));
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(SuppressEditor, StartAboveStopIsSavedButRefusedFromCsv)
{
    Open();
    TypeAndLeave("TbName", "Bands");
    TypeAndLeave("TbCol2[0]", "20");
    TypeAndLeave("TbCol3[0]", "10");
    Find<QComboBox>(form, "CbExt").setCurrentIndex(1);
    AnswerFolder(Folder());
    ASSERT_TRUE(form.Save());
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(form.windowTitle(), "Suppress List Editor - Bands.csv");
    GiveUp();
    Answers().Expect(12813, { QStringLiteral("1") }, Ok);
    Open(FilePath("Bands.csv"));
    EXPECT_EQ(TextIn("TbCol2[0]"), "20.000000");
}

TEST_F(SuppressEditor, SaveChecksVisibleCellsOnly)
{
    Open();
    TypeAndLeave("TbName", "Bands");
    TypeAndLeave("TbCol2[0]", "20"); // stop stays empty
    Answers().Expect(12771, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol3[0]"));
    form.CellSetFocus(0, 2);
    Find<QScrollBar>(form, "VScroll1").setValue(50);
    AnswerFolder(Folder());
    EXPECT_TRUE(form.Save());
}

TEST_F(SuppressEditor, SavedRowsAreThoseOfTheStore)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    TypeAndLeave("TbCol4[7]", "alone");
    TypeAndLeave("TbCol2[7]", "5");
    TypeAndLeave("TbCol3[7]", "6");
    AnswerFolder(Folder());
    Answers().Expect(12734, { QStringLiteral("Bands.tvs") }, Yes);
    ASSERT_TRUE(form.Save());
    EXPECT_EQ(TextIn("TbCol4[7]"), "alone");
    GiveUp();
    Open(FilePath("Bands.tvs"));
    EXPECT_EQ(TextIn("TbCol2[7]"), "5.000000");
    EXPECT_EQ(TextIn("TbCol2[1]"), "");
}

TEST_F(SuppressEditor, SortAndMergeShowTheirRowsFromTheTop)
{
    Open(StoredList("Bands.tvs", { { 5e6, 6e6 }, { 1e6, 5e6 } }));
    Find<QScrollBar>(form, "VScroll1").setValue(30);
    Click(form, "BtSort");
    EXPECT_EQ(TopRow(), 0);
    EXPECT_EQ(TextIn("TbCol2[0]"), "1.000000");
    EXPECT_TRUE(Editor().EditorDirty);
    Click(form, "BtSortMerge");
    EXPECT_EQ(TextIn("TbCol3[0]"), "6.000000");
    EXPECT_EQ(TextIn("TbCol2[1]"), "");
    EXPECT_EQ(TextIn("TbName"), "Bands");
    EXPECT_EQ(TextIn("TbDescr"), "fm");
}

TEST_F(SuppressEditor, SortValidatesFirst)
{
    for (const QString button : { "BtSort", "BtSortMerge" }) {
        Open();
        Answers().Expect(12766, { QStringLiteral("suppress list") }, Ok);
        Click(form, button);
        EXPECT_TRUE(IsFocused("TbName"));
        EXPECT_FALSE(Editor().EditorDirty);
        GiveUp();
    }
}

TEST_F(SuppressEditor, UnknownSettingNeedsTheUsersChoiceBeforeItsRowIsIncluded)
{
    Store(FilePath("Bands.csv"), "Suppress List,Bands\r\nDescription,\r\n0,maybe,1000000,2000000,\r\n");
    Open(FilePath("Bands.csv"));
    EXPECT_FALSE(IsChecked(0));
    EXPECT_EQ(TextIn("TbCol2[0]"), "1.000000");
    Click(form, "CbCol1[0]");
    EXPECT_TRUE(IsChecked(0));
}

TEST_F(SuppressEditor, CellsTakeTheirLengths)
{
    Open();
    for (const QString name : { "TbCol2[0]", "TbCol2[19]", "TbCol3[0]", "TbCol3[19]" })
        EXPECT_EQ(Find<QLineEdit>(form, name).maxLength(), 13) << name.toStdString();
}

TEST_F(SuppressEditor, CsvFileShowsItsForm)
{
    Open(StoredList("Bands.csv", { { 1e6, 2e6 } }));
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").currentText(), ".csv");
    EXPECT_EQ(form.windowTitle(), "Suppress List Editor - Bands.csv");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(SuppressEditor, OpenOffersSuppressLists)
{
    Open();
    AnswerFile(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    Click(form, "BtOpen");
    EXPECT_EQ(AskedFile.Filters,
        (QStringList{ "CSV and .TVS files|*.csv;*.tvs", "CSV files|*.csv", "Suppress lists|*.tvs" }));
    EXPECT_EQ(TextIn("TbDescr"), "fm");
}

TEST_F(SuppressEditor, SaveChecksNameThenDescriptionThenCells)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    const auto expectRefused = [this](int message, const QString& focused) {
        Answers().Expect(message, Ok);
        EXPECT_FALSE(form.Save());
        EXPECT_TRUE(IsFocused(focused)) << focused.toStdString();
    };
    for (const QString name : { "TbName", "TbDescr", "TbCol2[0]" }) // by a program, so that no leaving checks it
        Find<QLineEdit>(form, name).setText("a;b");
    expectRefused(12766, "TbName");
    Find<QLineEdit>(form, "TbName").setText("Bands");
    expectRefused(12764, "TbDescr");
    Find<QLineEdit>(form, "TbDescr").setText("");
    expectRefused(12765, "TbCol2[0]");
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(SuppressEditor, FirstBadCellOfThePageGetsTheFocus)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 }, { 3e6, 4e6 } }));
    const auto clear = [this](const QString& name) { // by a program, so that no leaving checks it
        const QSignalBlocker blocker(&FindControl(form, name));
        Find<QLineEdit>(form, name).setText("");
    };
    for (const QString name : { "TbCol2[1]", "TbCol3[0]", "TbCol3[1]" })
        clear(name);
    for (const QString name : { "TbCol3[0]", "TbCol2[1]", "TbCol3[1]" }) {
        Answers().Expect(12771, QStringList(), Ok);
        EXPECT_FALSE(form.Save());
        EXPECT_TRUE(IsFocused(name)) << name.toStdString();
        Find<QLineEdit>(form, name).setText("7");
    }
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(SuppressEditor, RowOfADescriptionOnlyIsUsedAndNeedsItsFrequencies)
{
    Open();
    TypeAndLeave("TbName", "Bands");
    TypeAndLeave("TbCol4[3]", "fm");
    Answers().Expect(12771, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(IsFocused("TbCol2[3]"));
}

TEST_F(SuppressEditor, HeadShowsWhatTheStoreHolds)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    TvFio().SuppressListGetDescription = [](int16_t*, char* text, int32_t) { std::strcpy(text, "kept"); };
    TvFio().SuppressGetStopFrequency = [](int16_t*, int16_t, double* stopHz) { *stopHz = 3e6; };
    AnswerFolder(Folder());
    Answers().Expect(12734, { QStringLiteral("Bands.tvs") }, No);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(TextIn("TbName"), "Bands");
    EXPECT_EQ(TextIn("TbDescr"), "kept");
    EXPECT_EQ(TextIn("TbCol3[0]"), "3.000000");
}

TEST_F(SuppressEditor, FailedSortKeepsRowsAndIsNoChange)
{
    static FmEditorSuppress* shown = nullptr;
    shown = &form;
    TvFio().SuppressListSort = [](int16_t* status) {
        EXPECT_EQ(shown->cursor().shape(), Qt::WaitCursor);
        *status = 16;
    };
    TvFio().SuppressListSortAndMerge = TvFio().SuppressListSort;
    Open(StoredList("Bands.tvs", { { 5e6, 6e6 }, { 1e6, 5e6 } }));
    Find<QScrollBar>(form, "VScroll1").setValue(30);
    for (const QString button : { "BtSort", "BtSortMerge" }) {
        Answers().Expect(12838, QStringList(), Ok);
        Click(form, button);
        EXPECT_FALSE(Editor().EditorDirty);
        EXPECT_EQ(TopRow(), 30);
        EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    }
    Find<QScrollBar>(form, "VScroll1").setValue(0);
    EXPECT_EQ(TextIn("TbCol2[0]"), "5.000000");
}

TEST_F(SuppressEditor, DeletedRowIsNotSaved)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 }, { 3e6, 4e6 } }));
    form.CellSetFocus(0, 2);
    Click(form, "BtDelete");
    AnswerFolder(Folder());
    Answers().Expect(12734, { QStringLiteral("Bands.tvs") }, Yes);
    ASSERT_TRUE(form.Save());
    SuppressTable table;
    ASSERT_TRUE(ReadSuppressFile(FilePath("Bands.tvs"), table));
    EXPECT_EQ(table.Row(0), SuppressRow());
    EXPECT_EQ(table.Row(1).StartFrequency, 3e6);
}

TEST_F(SuppressEditor, CheckedRowStaysUsedWithoutTexts)
{
    Open();
    Click(form, "CbCol1[2]");
    TypeIn("TbCol4[2]", "x");
    TypeIn("TbCol4[2]", "");
    EXPECT_TRUE(IsEnabled("BtDelete"));
}

TEST_F(SuppressEditor, EachTextKeepsTheRowUsed)
{
    for (const QString name : { "TbCol2[4]", "TbCol3[4]", "TbCol4[4]" }) {
        Open();
        TypeIn(name, "5");
        EXPECT_TRUE(IsEnabled("BtDelete")) << name.toStdString();
        TypeIn(name, "");
        EXPECT_FALSE(IsEnabled("BtDelete")) << name.toStdString();
        GiveUp();
    }
}

TEST_F(SuppressEditor, TypingIsAnUnsavedChangeAtOnce)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    EXPECT_FALSE(Editor().EditorDirty);
    TypeIn("TbCol2[0]", "1.5");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(SuppressEditor, ChangeOfAnotherRowLeavesTheDeleteButton)
{
    Open();
    Find<QCheckBox>(form, "CbCol1[5]").setChecked(true);
    EXPECT_FALSE(IsEnabled("BtDelete"));
}

TEST_F(SuppressEditor, SortKeepsTheTypedHeadAndShowsThatOfTheStore)
{
    Open(StoredList("Bands.tvs", { { 5e6, 6e6 }, { 1e6, 5e6 } }));
    TypeAndLeave("TbDescr", "typed");
    Click(form, "BtSort");
    EXPECT_EQ(TextIn("TbDescr"), "typed");
    TvFio().SuppressListGetDescription = [](int16_t*, char* text, int32_t) { std::strcpy(text, "kept"); };
    Click(form, "BtSortMerge");
    EXPECT_EQ(TextIn("TbDescr"), "kept");
}

TEST_F(SuppressEditor, SavedFileHasTheHead)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    TypeAndLeave("TbDescr", "new");
    AnswerFolder(Folder());
    Answers().Expect(12734, { QStringLiteral("Bands.tvs") }, Yes);
    ASSERT_TRUE(form.Save());
    SuppressTable table;
    ASSERT_TRUE(ReadSuppressFile(FilePath("Bands.tvs"), table));
    EXPECT_EQ(table.Name, "Bands");
    EXPECT_EQ(table.Description, "new");
}

TEST_F(SuppressEditor, DeleteByKeyChecksTheHeadFirst)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    TypeIn("TbName", "a;b");
    Answers().Expect(12766, Ok);
    Find<QPushButton>(form, "BtDelete").click(); // takes no focus
    EXPECT_TRUE(IsFocused("TbName"));
    EXPECT_EQ(TextIn("TbCol2[0]"), "1.000000");
}

TEST_F(SuppressEditor, FormIsThatOfTheExtensionTextOfTables)
{
    static auto real = TvLng().LngGetStr;
    TvLng().LngGetStr = [](int32_t id, const char* fallback, char* out, int32_t size) {
        return real(id == 11003 ? 10770 : id, fallback, out, size); // another language: CSV files end in .tvc
    };
    Open(StoredList("Bands.tvc", { { 1e6, 2e6 } }));
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").currentIndex(), 1);
}

TEST_F(SuppressEditor, DeleteShowsItsRowAndKeepsTheCell)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 }, { 3e6, 4e6 } }));
    form.CellSetFocus(1, 3);
    Find<QScrollBar>(form, "VScroll1").setValue(30);
    Click(form, "BtDelete");
    EXPECT_EQ(TopRow(), 1);
    EXPECT_TRUE(IsFocused("TbCol3[0]"));
    EXPECT_EQ(TextIn("TbCol3[0]"), "");
}

TEST_F(SuppressEditor, DeleteDiscardsABadCell)
{
    Open(StoredList("Bands.tvs", { { 1e6, 2e6 } }));
    TypeIn("TbCol2[0]", "x");
    Click(form, "BtDelete");
    EXPECT_EQ(TextIn("TbCol2[0]"), "");
    EXPECT_FALSE(IsEnabled("BtDelete"));
}

TEST_F(SuppressEditor, FocusedCellHasItsColour)
{
    Open();
    form.CellSetFocus(3, 2);
    EXPECT_EQ(Background("TbCol2[3]"), QColor(0xDD, 0xDD, 0x77));
    EXPECT_EQ(Background("TbCol3[3]"), form.palette().color(QPalette::Base));
    EXPECT_EQ(
        FindControl(form, "TbCol3[3]").palette().color(QPalette::Text), form.palette().color(QPalette::ButtonText));
}

} // namespace tarvik
