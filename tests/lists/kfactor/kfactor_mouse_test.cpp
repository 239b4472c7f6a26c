// The K-factor table and the suppress list editor with a real mouse and keyboard.
#include "tests/lists/editor/real_input_fixture.h"
#include "tests/support/fakeHelp.h"

#include "lists/kfactor/FmEditorKfactor.h"
#include "lists/suppress/FmEditorSuppress.h"
#include "screen/diagram/FmDatasetViewer.h"

#include <QCheckBox>

namespace tarvik {

namespace {

class RealKfactorEditor : public RealEditor<FmEditorKfactor> {
protected:
    /// Opens a table of 30 rows, row n at 30 + n MHz.
    void OpenTable()
    {
        KfactorTable table;
        table.Name = QStringLiteral("Mast");
        for (int row = 0; row < 30; ++row)
            table.Row(row) = { true, 30e6 + 1e6 * row, 1, 2 };
        ASSERT_TRUE(WriteKfactorFile(FilePath("Mast.tvk"), table));
        OpenActive(FilePath("Mast.tvk"));
    }

    /// Runs `open`, which shows a diagram, and closes it.
    static void CloseDiagram(const std::function<void()>& open)
    {
        bool wasShown = false;
        InDialog<FmDatasetViewer>([&](FmDatasetViewer&) {
            wasShown = true;
            Press({ "alt+F4" });
        });
        open();
        EXPECT_TRUE(Reaches([&] { return wasShown && dynamic_cast<FmDatasetViewer*>(DialogTop()) == nullptr; }));
    }
};

class RealSuppressEditor : public RealEditor<FmEditorSuppress> {
protected:
    void OpenList()
    {
        SuppressTable table;
        table.Name = QStringLiteral("Bands");
        for (int row = 0; row < 3; ++row)
            table.Row(row) = { true, kInclude, 30e6 - 1e6 * row, 31e6 - 1e6 * row, QStringLiteral("Row %1").arg(row) };
        ASSERT_TRUE(WriteSuppressFile(FilePath("Bands.tvs"), table));
        OpenActive(FilePath("Bands.tvs"));
    }
};

} // namespace

TEST_F(RealKfactorEditor, RowsAreTypedByTabOverThePage)
{
    OpenActive();
    ClickOn("TbCol1[18]");
    XDo({ "type", "30\t1\t2\t31\t3\t4" });
    EXPECT_TRUE(ReachesText("TbCol3[19]", "4"));
    Press({ "Return" }); // to the next page
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 1; }));
    EXPECT_TRUE(ReachesFocus("TbCol3[19]"));
    EXPECT_EQ(TextIn("LbCol0[19]"), "21");
    EXPECT_EQ(TextIn("TbCol3[18]"), "4.00");
    EXPECT_EQ(TextIn("TbCol1[17]"), "30.000000");
    XDo({ "type", "5" });
    Press({ "Page_Down" });
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 21; }));
    EXPECT_EQ(Kfactors().Row(20).Active, 5);
    Press({ "Page_Up", "Page_Up" });
    EXPECT_TRUE(ReachesFocus("TbCol3[0]"));
    EXPECT_EQ(TextIn("LbCol0[0]"), "1");
    EXPECT_EQ(Kfactors().Row(19).Frequency, 31e6);
    EXPECT_EQ(messages_.Shown, QList<int>());
}

TEST_F(RealKfactorEditor, BadCellIsReportedOnceByEveryKey)
{
    OpenTable();
    ClickOn("TbCol2[19]");
    for (const char* key : { "Tab", "Return", "Page_Down", "Up", "shift+Tab", "alt+r" }) {
        TypeText("x");
        ASSERT_TRUE(ReachesText("TbCol2[19]", "x"));
        Press({ key });
        ExpectMessages({ 12765 });
        EXPECT_TRUE(ReachesFocus("TbCol2[19]")) << key;
        EXPECT_EQ(Bar().value(), 0) << key;
    }
}

TEST_F(RealKfactorEditor, HeaderSortsNothing)
{
    OpenTable();
    Type(form, "TbCol1[0]", "90");
    for (const char* header : { "LbHdr0", "LbHdr1", "LbHdr2", "LbHdr3" })
        ClickOn(header);
    EXPECT_EQ(TextIn("TbCol1[0]"), "90");
    EXPECT_EQ(TextIn("TbCol1[1]"), "31.000000");
    EXPECT_TRUE(IsFocused("TbCol1[0]"));
}

TEST_F(RealKfactorEditor, WheelScrollsOverRowsOnly)
{
    OpenTable();
    ClickOn("TbCol1[5]", "5");
    EXPECT_TRUE(Reaches([this] { return Bar().value() == QApplication::wheelScrollLines(); }));
    ClickOn("LbName", "5");
    ClickOn("BtSave", "5");
    ClickOn("TbCol1[5]", "4");
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 0; }));
    Drag(Bar(), 1000);
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 980; }));
    EXPECT_EQ(TextIn("LbCol0[19]"), "1000");
}

TEST_F(RealKfactorEditor, FocusReturnsFromDiagram)
{
    BindDatasetForms();
    OpenTable();
    CloseDiagram([this] { ClickOn("BtView"); });
    EXPECT_TRUE(ReachesFocus("BtView"));
    ClickOn("TbCol2[3]");
    CloseDiagram([] { Press({ "alt+v" }); });
    EXPECT_TRUE(ReachesFocus("TbCol2[3]"));
    EXPECT_FALSE(form.IsClosed());
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(RealKfactorEditor, EscapeAsksAboutChanges)
{
    OpenTable();
    ClickOn("TbCol1[3]");
    TypeText("x"); // a bad cell is discarded with the others
    ExpectEscapeAsks();
}

TEST_F(RealKfactorEditor, F1ShowsTheTopicOfTheControl)
{
    FakeHelp help;
    OpenTable();
    ClickOn("TbCol1[3]");
    Press({ "F1" });
    ClickOn("TbDescr");
    Press({ "F1", "Tab", "F1" });
    EXPECT_TRUE(Reaches([&] { return help.Topics == QList<int>({ 11993, 10745, 11993 }); }));
}

TEST_F(RealSuppressEditor, MnemonicsSortAndMerge)
{
    OpenList();
    Press({ "alt+r" });
    EXPECT_TRUE(ReachesText("TbCol2[0]", "28.000000"));
    Press({ "alt+m" });
    EXPECT_TRUE(ReachesText("TbCol3[0]", "31.000000"));
    EXPECT_EQ(TextIn("TbCol4[0]"), "Row 2");
    EXPECT_EQ(TextIn("TbCol2[1]"), "");
    EXPECT_EQ(messages_.Shown, QList<int>());
}

TEST_F(RealSuppressEditor, KeysMoveThroughAllColumns)
{
    OpenList();
    ClickOn("CbCol1[19]");
    EXPECT_TRUE(Reaches([this] { return Find<QCheckBox>(form, "CbCol1[19]").isChecked(); }));
    Press({ "Down" }); // in a column of check boxes too
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 1; }));
    EXPECT_TRUE(ReachesFocus("CbCol1[19]"));
    Press({ "space" });
    EXPECT_TRUE(Reaches([this] { return Find<QCheckBox>(form, "CbCol1[19]").isChecked(); }));
    XDo({ "type", "\t50\t60\tFM" });
    EXPECT_TRUE(ReachesText("TbCol4[19]", "FM"));
    Press({ "Page_Down" });
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 21; }));
    Press({ "Page_Up" });
    EXPECT_TRUE(ReachesText("TbCol3[0]", "60.000000"));
    EXPECT_EQ(TextIn("LbCol0[0]"), "20");
    EXPECT_EQ(messages_.Shown, QList<int>());
}

TEST_F(RealSuppressEditor, HeaderSortsNothingAndWheelScrolls)
{
    OpenList();
    for (const char* header : { "LbHdr1", "LbHdr2", "LbHdr3", "LbHdr4" })
        ClickOn(header);
    EXPECT_EQ(TextIn("TbCol2[0]"), "30.000000");
    ClickOn("CbCol1[5]", "5");
    EXPECT_TRUE(Reaches([this] { return Bar().value() == QApplication::wheelScrollLines(); }));
    Drag(Bar(), 1000);
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 80; }));
}

TEST_F(RealSuppressEditor, EscapeAsksAboutChangesAndF1ShowsTopics)
{
    FakeHelp help;
    OpenList();
    ClickOn("CbCol1[0]");
    Press({ "F1" });
    EXPECT_TRUE(Reaches([&] { return help.Topics == QList<int>{ 11997 }; }));
    ExpectEscapeAsks();
}

} // namespace tarvik
