// The tabs of the correction set editor: cells, commands, wheel.
#include "tests/lists/correction/correction_form_fixture.h"

#include "app/platform/seams.h"
#include "closed/loader.h"

#include <QApplication>
#include <QGroupBox>
#include <QTabBar>
#include <QTest>

namespace tarvik {

namespace {

const QColor kInvalid(0xDD, 0x77, 0x77);
const QColor kFocused(0xDD, 0xDD, 0x77);

class CorrectionTabs : public CorrectionForm {
protected:
    void ClickTab(int index)
    {
        ClickWithoutCheck(index);
        EXPECT_EQ(Tabs().currentIndex(), index);
    }
    void ClickWithoutCheck(int index)
    {
        auto& bar = *Tabs().tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
    }
    GridLines& Angles(int index)
    {
        return Find<GridLines>(form, QStringLiteral("AZ_TbCol_azimuth[%1]").arg(index));
    }
};

} // namespace

TEST_F(CorrectionTabs, HeadersHaveTheirTexts)
{
    ShowTextNumbers();
    FmEditorCorrectionSet other;
    const QList<std::pair<QString, int>> headers{ { "KT_LbHdr_freq", 10776 }, { "KT_LbHdr_passive", 10777 },
        { "KT_LbHdr_active", 10778 }, { "OP_LbHdr_freq", 10930 }, { "OP_LbHdr_deg", 10931 }, { "AZ_LbHdr_freq", 10932 },
        { "AZ_LbHdr_azimuth", 10933 } };
    for (const auto& [name, number] : headers)
        EXPECT_EQ(TextOf(other, name), QStringLiteral("text %1").arg(number));
}

TEST_F(CorrectionTabs, CellsTakeTheirLengths)
{
    Open();
    const QList<std::pair<QString, qsizetype>> lengths{ { "KT_TbCol_freq[0]", 13 }, { "KT_TbCol_passive[0]", 6 },
        { "KT_TbCol_active[0]", 6 }, { "OP_TbCol_freq[0]", 13 }, { "OP_TbCol_deg[0]", 6 }, { "AZ_TbCol_freq[0]", 13 } };
    for (const auto& [name, length] : lengths) {
        Type(form, name, QString(20, u'1'));
        EXPECT_EQ(TextOf(form, name).size(), length) << name.toStdString();
    }
    Angles(0).setFocus();
    Angles(0).insertPlainText(QString(998, u'1'));
    QTest::keyClicks(&Angles(0), "234");
    EXPECT_EQ(Angles(0).Text().size(), 999);
}

TEST_F(CorrectionTabs, IncompleteRowIsMarkedAndBlocksSortAndSave)
{
    Open();
    TypeHeader();
    TypeAndLeave("KT_TbCol_freq[3]", "85");
    EXPECT_EQ(Background("KT_TbCol_passive[3]"), kFocused);
    EXPECT_EQ(Background("KT_TbCol_active[3]"), kInvalid);
    Answers().Expect(12894, { QStringLiteral("4") }, Ok);
    Click(form, "KT_BtSort");
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_passive[3]"));
    Answers().Expect(12894, { QStringLiteral("4") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(CorrectionTabs, BadCellIsMarkedAndKeepsNoFocus)
{
    Open();
    TypeAndLeave("KT_TbCol_freq[0]", "x");
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_passive[0]"));
    EXPECT_EQ(Background("KT_TbCol_freq[0]"), kInvalid);
}

TEST_F(CorrectionTabs, DeleteEmptiesTheCurrentRow)
{
    Open(StoredSet("Mast.tvc"));
    Tabs().setCurrentIndex(1);
    EXPECT_TRUE(HasFocus(form, "OP_TbCol_freq[0]"));
    EXPECT_TRUE(FindControl(form, "OP_BtDelete").isEnabled());
    Click(form, "OP_BtDelete");
    EXPECT_EQ(TextOf(form, "OP_TbCol_deg[0]"), "");
    EXPECT_FALSE(FindControl(form, "OP_BtDelete").isEnabled());
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionTabs, FaultOnAnotherTabIsShown)
{
    Open(StoredSet("Mast.tvc"));
    Tabs().setCurrentIndex(2);
    TypeAndLeave("AZ_TbCol_freq[1]", "x");
    Tabs().setCurrentIndex(0);
    Answers().Expect(12894, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(Tabs().currentIndex(), 2);
    EXPECT_TRUE(HasFocus(form, "AZ_TbCol_freq[1]"));
}

TEST_F(CorrectionTabs, WheelOverTheFrameTurnsAPage)
{
    Open(StoredSet("Mast.tvc"));
    const auto centreOf = [this](const QString& name) {
        QWidget& control = FindControl(form, name);
        return control.mapToGlobal(control.rect().center());
    };
    const QPoint frame = centreOf("KFactorGroup");
    form.MouseWheel(0, -120, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    form.MouseWheel(0, -60, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20); // half a notch
    form.MouseWheel(0, -60, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 40);
    form.MouseWheel(0, 120, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    const QPoint head = centreOf("TbAntName");
    form.MouseWheel(0, 120, head.x(), head.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    Tabs().setCurrentIndex(2);
    const QPoint azimuth = centreOf("AzimuthGroup");
    form.MouseWheel(0, -120, azimuth.x(), azimuth.y());
    EXPECT_EQ(TopRow("AZ_VScroll"), 9);
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
}

TEST_F(CorrectionTabs, ViewSortsAndShowsTheTabsTable)
{
    FakeDatasetForms diagrams;
    Open(StoredSet("Mast.tvc"));
    Click(form, "KT_BtView");
    Tabs().setCurrentIndex(1);
    Click(form, "OP_BtView");
    EXPECT_EQ(diagrams.Names, QStringList(2, "Correction Set Editor - Mast.tvc"));
    EXPECT_TRUE(Editor().EditorDirty); // sorting is a change
}

TEST_F(CorrectionTabs, EmptyTablesDoNotHinderSaveButOneEntryDoes)
{
    Open();
    TypeHeader();
    TypeRow(0, "85", "1", "2");
    Answers().Expect(12772, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    TypeRow(1, "30", "3", "4");
    AnswerFolder(Folder());
    ASSERT_TRUE(form.Save());
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor - Mast.TVC");
    EXPECT_EQ(TextOf(form, "KT_TbCol_freq[0]"), "30.000000"); // saving sorts
    GiveUp();
    CorrSet saved;
    ASSERT_TRUE(LoadCorrSet(FilePath("Mast.tvc"), saved));
    EXPECT_EQ(UsedCorrEntries(CorrTableId::KFactor, saved.Records), 2);
    EXPECT_EQ(UsedCorrEntries(CorrTableId::Omniphase, saved.Records), 0);
    EXPECT_EQ(saved.Header.StartFrequencyHz, 8000);
}

TEST_F(CorrectionTabs, TypingUsesTheRowAndIsAChange)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "KT_TbCol_passive[5]", "1");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_TRUE(FindControl(form, "KT_BtDelete").isEnabled());
    EXPECT_EQ(Background("KT_TbCol_freq[5]"), kInvalid);
    Type(form, "KT_TbCol_passive[5]", "");
    EXPECT_FALSE(FindControl(form, "KT_BtDelete").isEnabled());
    EXPECT_EQ(Background("KT_TbCol_freq[5]"), form.palette().color(QPalette::Base));
}

TEST_F(CorrectionTabs, CellThatIsBeingTypedIsJudgedBeforeASave)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "KT_TbCol_freq[1]", "x");
    Answers().Expect(12894, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_freq[1]"));
}

TEST_F(CorrectionTabs, CellIsJudgedWhenATabIsClicked)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "KT_TbCol_passive[1]", "x");
    ClickTab(1);
    EXPECT_TRUE(HasFocus(form, "OP_TbCol_freq[0]"));
    ClickTab(0);
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_freq[0]"));
    EXPECT_EQ(Background("KT_TbCol_passive[1]"), kInvalid);
}

TEST_F(CorrectionTabs, AnglesAreRewrittenWhenATabIsClicked)
{
    Open(StoredSet("Mast.tvc"));
    ClickTab(2);
    Angles(1).setFocus();
    Angles(1).SelectAll();
    QTest::keyClicks(&Angles(1), "12|-5,5|370");
    ClickTab(0);
    EXPECT_EQ(Angles(1).Text(), "12.00 | -5.50 | 360.00");
}

TEST_F(CorrectionTabs, TabClickKeepsTheFocusInABadHeaderBox)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "TbAntCode", "x");
    Answers().Expect(12765, Ok);
    ClickWithoutCheck(1);
    EXPECT_TRUE(HasFocus(form, "TbAntCode"));
    EXPECT_EQ(Tabs().currentIndex(), 0);
}

TEST_F(CorrectionTabs, TabClickGoesToTheFirstCellInView)
{
    Open(StoredSet("Mast.tvc"));
    Find<QScrollBar>(form, "OP_VScroll").setValue(20);
    ClickTab(1);
    EXPECT_EQ(TopRow("OP_VScroll"), 20);
    EXPECT_TRUE(HasFocus(form, "OP_TbCol_freq[0]"));
    EXPECT_EQ(TextOf(form, "OP_LbCol_row[0]"), "21");
}

TEST_F(CorrectionTabs, TablesAreCheckedFromTheFirstTabOn)
{
    Open(StoredSet("Mast.tvc"));
    ClickTab(2);
    TypeAndLeave("AZ_TbCol_freq[2]", "x");
    ClickTab(1);
    TypeAndLeave("OP_TbCol_freq[3]", "x");
    ClickTab(0);
    TypeAndLeave("KT_TbCol_freq[4]", "x");
    const QList<std::pair<QString, QString>> faults{ { "KT_TbCol_freq[4]", "5" }, { "OP_TbCol_freq[3]", "4" },
        { "AZ_TbCol_freq[2]", "3" } };
    for (const auto& [cell, row] : faults) {
        Answers().Expect(12894, { row }, Ok);
        EXPECT_FALSE(form.Save());
        EXPECT_TRUE(HasFocus(form, cell)) << cell.toStdString();
        Answers().Verify();
        Click(form, cell.first(3) + "BtDelete");
    }
}

TEST_F(CorrectionTabs, SortShowsTheFirstRows)
{
    Open(StoredSet("Mast.tvc"));
    Find<QScrollBar>(form, "KT_VScroll").setValue(7);
    FindControl(form, "KT_TbCol_freq[3]").setFocus();
    EXPECT_FALSE(FindControl(form, "KT_BtDelete").isEnabled());
    Click(form, "KT_BtSort");
    EXPECT_EQ(TopRow("KT_VScroll"), 0);
    EXPECT_TRUE(FindControl(form, "KT_BtDelete").isEnabled()) << "the first row is the current one";
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionTabs, PointerIsBusyDuringSort)
{
    Open(StoredSet("Mast.tvc"));
    static Qt::CursorShape shape = Qt::ArrowCursor;
    static QWidget* busy = nullptr;
    busy = &form;
    TvFio().AntCorrSortKFactor = [](KfactorCorrEntry*, std::int16_t count) -> std::int16_t {
        shape = busy->cursor().shape();
        EXPECT_EQ(count, 2);
        return 0;
    };
    Click(form, "KT_BtSort");
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CorrectionTabs, DeleteScrollsToTheCurrentRowAndStaysThere)
{
    Open(StoredSet("Mast.tvc"));
    FindControl(form, "KT_TbCol_freq[1]").setFocus();
    Find<QScrollBar>(form, "KT_VScroll").setValue(100);
    Click(form, "KT_BtDelete");
    EXPECT_EQ(TopRow("KT_VScroll"), 1);
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_freq[0]"));
    EXPECT_EQ(TextOf(form, "KT_TbCol_active[0]"), "");
}

TEST_F(CorrectionTabs, PageKeysMoveByTheVisibleRows)
{
    Open(StoredSet("Mast.tvc"));
    Key(form, "KT_TbCol_freq[0]", Qt::Key_PageDown);
    EXPECT_EQ(TopRow("KT_VScroll"), 1);
    ClickTab(2);
    Key(form, "AZ_TbCol_freq[0]", Qt::Key_PageDown);
    EXPECT_EQ(TopRow("AZ_VScroll"), 1);
    EXPECT_TRUE(HasFocus(form, "AZ_TbCol_freq[8]"));
    Find<QScrollBar>(form, "AZ_VScroll").setValue(991);
    Key(form, "AZ_TbCol_freq[8]", Qt::Key_Down);
    EXPECT_TRUE(HasFocus(form, "AZ_TbCol_freq[8]"));
}

TEST_F(CorrectionTabs, LongAngleListScrollsInItsCell)
{
    Open(StoredSet("Mast.tvc"));
    ClickTab(2);
    GridLines& cell = Angles(1);
    EXPECT_EQ(cell.height(), FindControl(form, "KT_TbCol_freq[0]").height() + 2 * form.fontMetrics().lineSpacing());
    QStringList angles;
    for (int angle = 0; angle < 60; ++angle)
        angles.append(QString::number(angle));
    cell.setFocus();
    cell.SelectAll();
    QTest::keyClicks(&cell, angles.join(u'|'));
    EXPECT_GT(cell.verticalScrollBar()->value(), 0) << "the caret is in view";
    Key(Qt::Key_Tab);
    EXPECT_TRUE(cell.Text().startsWith("0.00 | 1.00 | 2.00"));
    EXPECT_TRUE(cell.Text().endsWith(" | 59.00"));
    EXPECT_EQ(cell.verticalScrollBar()->value(), 0) << "its beginning is shown";
    EXPECT_EQ(Background("AZ_TbCol_azimuth[1]"), form.palette().color(QPalette::Base));
}

TEST_F(CorrectionTabs, RealWheelOverCellsAndScrollBarTurnsAPage)
{
    Open(StoredSet("Mast.tvc"));
    Wheel(FindControl(form, "KT_TbCol_freq[3]"));
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    Wheel(FindControl(form, "KT_VScroll"));
    EXPECT_EQ(TopRow("KT_VScroll"), 40);
    Wheel(FindControl(form, "KT_BtSort"), 120);
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    Wheel(FindControl(form, "TbAntName"), 120);
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    for (int turn = 0; turn < 2; ++turn)
        Wheel(FindControl(form, "KT_TbCol_freq[3]"), 120);
    EXPECT_EQ(TopRow("KT_VScroll"), 0);
}

} // namespace tarvik
