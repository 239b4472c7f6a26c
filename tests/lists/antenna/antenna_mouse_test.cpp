// The antenna list editor with a real mouse and keyboard.
#include "tests/lists/editor/real_input_fixture.h"

#include "tests/lists/antenna/antenna_fixture.h"
#include "tests/support/fakeHelp.h"

#include "lists/antenna/FmEditorAntenna.h"
#include "lists/bindEditors.h"
#include "lists/correction/FmEditorCorrectionSet.h"
#include "lists/kfactor/FmEditorKfactor.h"

#include <QCheckBox>
#include <QComboBox>

namespace tarvik {

namespace {

class RealAntennaEditor : public AntennaTest<RealEditor<FmEditorAntenna>> {
protected:
    /// Opens a list of three antennas.
    void OpenList()
    {
        ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List(QList<AntennaRow>(3, FullRow()))));
        Editor().EditorIsOpen = true; // as OpenEditor does
        OpenActive(FilePath("Site.tva"));
    }

    void TypeBadStartFrequency()
    {
        ClickOn("TbStartFreq");
        TypeText("x");
        ASSERT_TRUE(ReachesText("TbStartFreq", "x"));
    }

    bool IsCurrent(int index)
    {
        return Background(QStringLiteral("CbCol1[%1]").arg(index)) == QColor(0xBB, 0xBB, 0x55)
            || IsFocused(QStringLiteral("CbCol1[%1]").arg(index));
    }

    void ExpectFirstRowKept()
    {
        ExpectMessages({ 12765 });
        EXPECT_TRUE(ReachesFocus("TbStartFreq"));
        EXPECT_EQ(TextIn("TbStartFreq"), "x");
        EXPECT_TRUE(IsCurrent(0));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
};

/// Controls that a click would move the focus to.
class RealAntennaEditorBadNumber : public RealAntennaEditor, public testing::WithParamInterface<const char*> { };

} // namespace

TEST_P(RealAntennaEditorBadNumber, IsNotLeft)
{
    OpenList();
    TypeBadStartFrequency();
    ClickOn(GetParam());
    ExpectFirstRowKept();
    EXPECT_FALSE(form.IsClosed());
    TypeText("40"); // the number can be corrected
    ClickOn("TbCol3[1]");
    EXPECT_TRUE(ReachesFocus("TbCol3[1]"));
    EXPECT_TRUE(IsCurrent(1));
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    ClickOn("LbCol0[0]");
    EXPECT_TRUE(ReachesText("TbStartFreq", "40.000000"));
}

INSTANTIATE_TEST_SUITE_P(Click, RealAntennaEditorBadNumber,
    testing::Values(
        "TbCol3[1]", "CbCol1[1]", "LbCol0[1]", "TbStopFreq", "CbPassiveBits", "BtSelectKfactor", "BtSave", "TbName"));

/// Help takes the focus without a check; the click on a row is the first to check.
TEST_F(RealAntennaEditor, BadNumberKeepsRowAfterHelp)
{
    FakeHelp help;
    OpenList();
    for (const char* target : { "TbCol3[1]", "CbCol1[1]", "LbCol0[1]" }) {
        TypeBadStartFrequency();
        ClickOn("BtHelp");
        ASSERT_TRUE(ReachesFocus("BtHelp"));
        ClickOn(target);
        ExpectFirstRowKept();
        EXPECT_TRUE(Find<QCheckBox>(form, "CbCol1[1]").isChecked());
    }
    EXPECT_EQ(help.Topics.size(), 3);
}

TEST_F(RealAntennaEditor, HeaderSortsNothing)
{
    OpenList();
    Type(form, "TbCol3[0]", "Zenith");
    for (const char* header : { "LbHdr0", "LbHdr1", "LbHdr3" })
        ClickOn(header);
    EXPECT_EQ(TextIn("TbCol3[0]"), "Zenith");
    EXPECT_EQ(TextIn("TbCol3[1]"), "Dipole");
}

TEST_F(RealAntennaEditor, BitsAreChosenByMouseAndKeys)
{
    OpenList();
    auto& passive = Find<QComboBox>(form, "CbPassiveBits");
    ClickOn("CbPassiveBits");
    ASSERT_TRUE(Reaches([] { return QApplication::activePopupWidget() != nullptr; }));
    Press({ "Down", "Return" });
    EXPECT_TRUE(Reaches([&] { return passive.currentText() == "11"; }));
    Press({ "alt+b", "Up" });
    EXPECT_TRUE(Reaches([this] { return Find<QComboBox>(form, "CbActiveBits").currentText() == "00"; }));
    EXPECT_TRUE(Editor().EditorDirty);
    ClickOn("TbCol3[1]");
    EXPECT_TRUE(Reaches([&] { return passive.currentText() == "10"; }));
    ClickOn("TbCol3[0]");
    EXPECT_TRUE(Reaches([&] { return passive.currentText() == "11"; }));
}

TEST_F(RealAntennaEditor, KeysWalkThroughPanel)
{
    OpenList();
    Press({ "alt+m" });
    EXPECT_TRUE(ReachesFocus("TbAntennaName"));
    for (const char* next :
        { "TbStartFreq", "TbStopFreq", "TbFreqOffset", "CbPassiveBits", "CbActiveBits", "TbAntennaCode" }) {
        Press({ next == QLatin1String("CbActiveBits") || next == QLatin1String("TbAntennaCode") ? "Tab" : "Return" });
        EXPECT_TRUE(ReachesFocus(next)) << next;
    }
    EXPECT_FALSE(Editor().EditorDirty);
    Press({ "alt+i" });
    EXPECT_TRUE(ReachesFocus("TbCorrectionSet"));
}

TEST_F(RealAntennaEditor, WheelAndScrollBarShowOtherRows)
{
    OpenList();
    ClickOn("TbCol3[4]", "5");
    EXPECT_TRUE(Reaches([this] { return Bar().value() == QApplication::wheelScrollLines(); }));
    ClickOn("FrProperties", "5");
    QCoreApplication::processEvents();
    EXPECT_EQ(Bar().value(), QApplication::wheelScrollLines());
    Drag(Bar(), 1000);
    EXPECT_TRUE(Reaches([this] { return Bar().value() == 79; }));
    EXPECT_EQ(TextIn("LbCol0[19]"), "99");
    EXPECT_EQ(TextIn("TbAntennaName"), "Dipole") << "the row is still selected";
    Press({ "Down" });
    EXPECT_TRUE(ReachesFocus("TbCol3[0]")) << "a key returns to it";
    EXPECT_EQ(TextIn("LbCol0[0]"), "2");
}

TEST_F(RealAntennaEditor, EscapeAsksAboutChanges)
{
    OpenList();
    ClickOn("TbKfactor");
    TypeText("Whip");
    ExpectEscapeAsks();
}

TEST_F(RealAntennaEditor, F1ShowsTheTopicOfTheControl)
{
    FakeHelp help;
    OpenList();
    ClickOn("TbCol3[0]");
    Press({ "F1" });
    Press({ "alt+k", "F1" });
    Press({ "alt+q", "F1" });
    EXPECT_TRUE(Reaches([&] { return help.Topics == QList<int>({ 11991, 10726, 11991 }); }));
}

TEST_F(RealAntennaEditor, TableOfNestedEditorIsLinked)
{
    BindListEditors();
    OpenList();
    AnswerFolder(Folder());
    bool wasSaved = false;
    InDialog<FmEditorKfactor>([&](FmEditorKfactor& nested) {
        XDo({ "type", "Whip" });
        for (const char* cell : { "TbCol1[0]", "TbCol1[1]" }) {
            XClick(FindControl(nested, cell).mapToGlobal(QPoint(9, 9)));
            XDo({ "type", cell == QLatin1String("TbCol1[0]") ? "20\t1\t2\t" : "80\t3\t4\t" });
        }
        Press({ "alt+s" });
        wasSaved = Reaches([] { return !Editor().EditorDirty; });
        Press({ "alt+c" });
    });
    Press({ "alt+w" });
    EXPECT_TRUE(ReachesText("TbKfactor", "Whip"));
    EXPECT_TRUE(wasSaved);
    EXPECT_TRUE(QFile::exists(FilePath("Whip.tvk")));
    EXPECT_EQ(TextIn("TbStartFreq"), "20.000000");
    EXPECT_EQ(TextIn("TbStopFreq"), "80.000000");
    EXPECT_TRUE(Reaches([this] { return form.isActiveWindow(); }));
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_EQ(messages_.Shown, QList<int>());
}

TEST_F(RealAntennaEditor, SetOfNestedEditorIsLinked)
{
    BindListEditors();
    OpenList();
    AnswerFolder(Folder());
    InDialog<FmEditorCorrectionSet>([&](FmEditorCorrectionSet&) {
        XDo({ "type", "Loop\t\tRoof loop" });
        Press({ "alt+s" });
        EXPECT_TRUE(Reaches([] { return !Editor().EditorDirty; }));
        Press({ "alt+c" });
    });
    ClickOn("BtNewCorrectionSet");
    EXPECT_TRUE(ReachesText("TbCorrectionSet", "Loop"));
    EXPECT_TRUE(QFile::exists(FilePath("Loop.tvc")));
    EXPECT_TRUE(ReachesFocus("BtNewCorrectionSet"));
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(RealAntennaEditor, NestedEditorThatIsClosedChangesNothing)
{
    BindListEditors();
    OpenList();
    InDialog<FmEditorKfactor>([](FmEditorKfactor&) { Press({ "alt+c" }); });
    ClickOn("BtNewKfactor");
    EXPECT_TRUE(ReachesFocus("BtNewKfactor"));
    EXPECT_FALSE(form.IsClosed());
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_FALSE(Editor().EditorDirty);
}

} // namespace tarvik
