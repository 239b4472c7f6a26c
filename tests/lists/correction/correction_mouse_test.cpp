// The correction set editor with a real mouse and keyboard.
#include "tests/lists/editor/real_input_fixture.h"

#include "tests/lists/correction/correction_fixture.h"
#include "tests/support/fakeHelp.h"

#include "lists/correction/FmEditorCorrectionSet.h"
#include "screen/diagram/FmDatasetViewer.h"

#include <QTabBar>
#include <QTabWidget>

namespace tarvik {

namespace {

const QColor kInvalid(0xDD, 0x77, 0x77);

class RealCorrectionEditor : public RealEditor<FmEditorCorrectionSet> {
protected:
    /// Opens a set of 40 entries in each table, entry n at 30 + n MHz.
    void OpenSet()
    {
        SetEditorType(FileClassCorrectionSet);
        CorrSet set;
        CorrHeaderTexts texts{ "Mast", "Dipole", "Works", "7", "30", "1000" };
        for (const CorrBox box : kCorrBoxes)
            ASSERT_TRUE(CheckCorrBox(box, texts, set));
        for (const CorrTableId table : kCorrTables) {
            std::vector<CorrRow> rows(kCorrRows);
            for (int row = 0; row < 40; ++row) {
                CorrRow& cells = rows[static_cast<size_t>(row)];
                TypeCorrCell(cells, table, 0, QString::number(30 + row));
                TypeCorrCell(cells, table, 1, "1");
                if (table == CorrTableId::KFactor)
                    TypeCorrCell(cells, table, 2, "2");
                cells.Invalid = {};
            }
            ASSERT_FALSE(ValidateCorrTab(table, rows, set.Records).has_value());
            ASSERT_TRUE(SortCorrRecords(table, set.Records));
        }
        ASSERT_TRUE(SetCorrHeader(set));
        ASSERT_TRUE(SaveCorrSet(FilePath("Mast.tvc")));
        OpenActive(FilePath("Mast.tvc"));
    }

    QTabWidget& Tabs()
    {
        return Find<QTabWidget>(form, "CsTab");
    }
    void ClickTab(int tab)
    {
        const QTabBar& bar = *Tabs().tabBar();
        XClick(bar.mapToGlobal(bar.tabRect(tab).center()));
    }
    bool ReachesTop(const QString& bar, int row)
    {
        return Reaches([&] { return Bar(bar).value() == row; });
    }
};

} // namespace

TEST_F(RealCorrectionEditor, TabsAreChosenByMouseAndMnemonics)
{
    OpenSet();
    ClickTab(1);
    EXPECT_TRUE(ReachesFocus("OP_TbCol_freq[0]"));
    Press({ "alt+a" });
    EXPECT_TRUE(ReachesFocus("AZ_TbCol_freq[0]"));
    Press({ "alt+k" });
    EXPECT_TRUE(ReachesFocus("KT_TbCol_freq[0]"));
    Press({ "alt+i" });
    EXPECT_TRUE(ReachesFocus("OP_TbCol_freq[0]"));
    Press({ "ctrl+Tab" });
    EXPECT_TRUE(ReachesFocus("AZ_TbCol_freq[0]"));
}

/// The focus is in a box of the head with a bad number.
TEST_F(RealCorrectionEditor, BadHeadKeepsTab)
{
    OpenSet();
    ClickOn("TbAntCode");
    TypeText("x");
    ClickTab(1);
    ExpectMessages({ 12765 });
    EXPECT_TRUE(ReachesFocus("TbAntCode"));
    EXPECT_EQ(Tabs().currentIndex(), 0);
    Press({ "alt+a" });
    ExpectMessages({ 12765 });
    EXPECT_TRUE(ReachesFocus("TbAntCode"));
    EXPECT_EQ(Tabs().currentIndex(), 0);
    for (const char* command : { "alt+r", "alt+v", "alt+d", "alt+n" }) {
        Press({ command });
        ExpectMessages({ 12765 });
        EXPECT_TRUE(ReachesFocus("TbAntCode")) << command;
    }
    EXPECT_EQ(TextIn("KT_TbCol_freq[0]"), "30.000000");
    TypeText("9");
    ClickTab(2);
    EXPECT_TRUE(ReachesFocus("AZ_TbCol_freq[0]"));
}

TEST_F(RealCorrectionEditor, CellIsJudgedWhenTheTabChanges)
{
    OpenSet();
    for (const bool byMouse : { false, true }) {
        ClickOn("KT_TbCol_passive[1]");
        TypeText("x");
        byMouse ? ClickTab(1) : Press({ "alt+i" });
        EXPECT_TRUE(ReachesFocus("OP_TbCol_freq[0]"));
        Press({ "alt+k" });
        EXPECT_TRUE(ReachesFocus("KT_TbCol_freq[0]"));
        EXPECT_EQ(Background("KT_TbCol_passive[1]"), kInvalid);
        ClickOn("KT_TbCol_passive[1]");
        TypeText("1");
        Press({ "Return" });
        EXPECT_TRUE(ReachesText("KT_TbCol_passive[1]", "1.00"));
    }
    EXPECT_EQ(messages_.Shown, QList<int>());
}

TEST_F(RealCorrectionEditor, KeysMoveOverThePagesOfEachTab)
{
    OpenSet();
    const std::array<std::tuple<const char*, const char*, const char*, int>, 3> tables{
        { { "alt+k", "KT_VScroll", "KT_TbCol_passive", 20 }, { "alt+i", "OP_VScroll", "OP_TbCol_deg", 20 },
            { "alt+a", "AZ_VScroll", "AZ_TbCol_azimuth", 9 } }
    };
    for (const auto& [mnemonic, bar, column, page] : tables) {
        const auto cell = [column = column](int index) { return QStringLiteral("%1[%2]").arg(column).arg(index); };
        Press({ mnemonic });
        ClickOn(cell(page - 1));
        TypeText("7");
        Press({ "Return" });
        EXPECT_TRUE(ReachesTop(bar, 1)) << column;
        EXPECT_TRUE(ReachesFocus(cell(page - 1))) << column;
        EXPECT_TRUE(ReachesText(cell(page - 2), "7.00")) << column;
        XDo({ "type", "8" });
        EXPECT_TRUE(ReachesText(cell(page - 1), "8")) << "typing replaces the text of " << column;
        Press({ "Page_Down" });
        EXPECT_TRUE(ReachesTop(bar, 1 + page)) << column;
        Press({ "Page_Up", "Page_Up" });
        EXPECT_TRUE(ReachesTop(bar, 0)) << column;
        EXPECT_TRUE(ReachesFocus(cell(0))) << column;
        Press({ "Page_Down" });
        EXPECT_TRUE(ReachesText(cell(page - 1), "8.00")) << column;
    }
    EXPECT_EQ(messages_.Shown, QList<int>());
}

TEST_F(RealCorrectionEditor, AnglesAreReplacedByTyping)
{
    OpenSet();
    Press({ "alt+a", "Tab" });
    EXPECT_TRUE(ReachesFocus("AZ_TbCol_azimuth[0]"));
    XDo({ "type", "12|-5,5|370" });
    Press({ "Tab" });
    EXPECT_TRUE(ReachesText("AZ_TbCol_azimuth[0]", "12.00 | -5.50 | 360.00"));
    EXPECT_TRUE(ReachesFocus("AZ_TbCol_freq[1]"));
    Press({ "shift+Tab" });
    XDo({ "type", "5" });
    EXPECT_TRUE(ReachesText("AZ_TbCol_azimuth[0]", "5"));
    QStringList angles;
    for (int angle = 0; angle < 40; ++angle)
        angles.append(QString::number(angle));
    TypeText(angles.join(u'|'));
    ASSERT_TRUE(ReachesText("AZ_TbCol_azimuth[0]", angles.join(u'|')));
    Press({ "Up" }); // within the lines of the cell
    EXPECT_TRUE(IsFocused("AZ_TbCol_azimuth[0]"));
    Press({ "Down" });
    QCoreApplication::processEvents();
    EXPECT_TRUE(IsFocused("AZ_TbCol_azimuth[0]"));
    Press({ "Down" });
    EXPECT_TRUE(ReachesFocus("AZ_TbCol_azimuth[1]"));
    const auto& left = Find<GridLines>(form, "AZ_TbCol_azimuth[0]");
    EXPECT_FALSE(left.textCursor().hasSelection());
    EXPECT_TRUE(left.IsCaretInFirstLine()) << "a cell shows the beginning";
}

TEST_F(RealCorrectionEditor, WheelTurnsPagesOverTheFrame)
{
    OpenSet();
    ClickOn("KT_TbCol_freq[5]", "5");
    EXPECT_TRUE(ReachesTop("KT_VScroll", 20));
    ClickOn("KT_VScroll", "5");
    EXPECT_TRUE(ReachesTop("KT_VScroll", 40));
    ClickOn("KT_BtSort", "4");
    EXPECT_TRUE(ReachesTop("KT_VScroll", 20));
    for (const char* outside : { "TbAntName", "LbStopUnit", "BtClose" })
        ClickOn(outside, "5");
    ClickOn("KT_LbHdr_freq", "4");
    EXPECT_TRUE(ReachesTop("KT_VScroll", 0));
    ClickTab(2);
    ClickOn("AZ_TbCol_azimuth[3]", "5");
    EXPECT_TRUE(ReachesTop("AZ_VScroll", 9));
    EXPECT_EQ(Bar("KT_VScroll").value(), 0);
    Drag(Bar("AZ_VScroll"), 1000);
    EXPECT_TRUE(ReachesTop("AZ_VScroll", 991));
    EXPECT_EQ(TextIn("AZ_LbCol_row[8]"), "1000");
}

TEST_F(RealCorrectionEditor, HeaderSortsNothing)
{
    OpenSet();
    ClickOn("KT_TbCol_freq[0]");
    TypeText("90");
    for (const char* header : { "KT_LbHdr_row", "KT_LbHdr_freq", "KT_LbHdr_passive", "KT_LbHdr_active" })
        ClickOn(header);
    EXPECT_EQ(TextIn("KT_TbCol_freq[0]"), "90");
    EXPECT_EQ(TextIn("KT_TbCol_freq[1]"), "31.000000");
    EXPECT_TRUE(IsFocused("KT_TbCol_freq[0]"));
}

TEST_F(RealCorrectionEditor, FocusReturnsFromDiagram)
{
    BindDatasetForms();
    OpenSet();
    for (const char* view : { "KT_BtView", "OP_BtView" }) {
        bool wasShown = false;
        InDialog<FmDatasetViewer>([&](FmDatasetViewer&) {
            wasShown = true;
            Press({ "alt+F4" });
        });
        ClickOn(view);
        EXPECT_TRUE(Reaches([&] { return wasShown; })) << view;
        EXPECT_TRUE(ReachesFocus(view));
        ClickTab(1);
    }
}

TEST_F(RealCorrectionEditor, EscapeAsksAboutChangesAndF1ShowsTopics)
{
    FakeHelp help;
    OpenSet();
    ClickTab(2);
    Press({ "Tab", "F1" });
    EXPECT_TRUE(Reaches([&] { return help.Topics == QList<int>{ 11999 }; }));
    XDo({ "type", "3" });
    ExpectEscapeAsks();
}

} // namespace tarvik
