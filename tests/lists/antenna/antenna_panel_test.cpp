// The panel with the properties of the selected antenna.
#include "tests/lists/antenna/antenna_form_fixture.h"
#include "tests/support/fakeHelp.h"

#include "closed/loader.h"

namespace tarvik {

TEST_F(AntennaForm, PanelShowsTheSelectedRow)
{
    AntennaRow second = FullRow();
    second.Name = "Whip";
    second.PassiveBits = 3;
    OpenList({ FullRow(), second });
    EXPECT_EQ(TextIn("TbAntennaName"), "Dipole");
    EXPECT_EQ(TextIn("TbFreqOffset"), "-1.000000");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_EQ(Choice("CbPassiveBits"), 2);
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
    Click(form, "LbCol0[1]");
    EXPECT_EQ(TextIn("TbAntennaName"), "Whip");
    EXPECT_EQ(Choice("CbPassiveBits"), 3);
    EXPECT_EQ(Background("TbCol3[0]"), form.palette().color(QPalette::Base));
    EXPECT_EQ(Background("CbCol1[1]"), QColor(0xBB, 0xBB, 0x55));
    Click(form, "LbCol0[5]");
    EXPECT_FALSE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_EQ(TextIn("TbKfactor"), "");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(AntennaForm, EditingUsesTheRow)
{
    Open();
    Type(form, "TbAntennaName", "Log");
    EXPECT_EQ(TextIn("TbCol3[0]"), "Log");
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_TRUE(Editor().EditorDirty);
    Type(form, "TbCol3[0]", "Horn");
    EXPECT_EQ(TextIn("TbAntennaName"), "Horn");
}

TEST_F(AntennaForm, BoxesTakeTheirLengths)
{
    Open();
    for (const auto& [name, length] :
        { std::pair("TbAntennaName", 32), std::pair("TbCol3[0]", 32), std::pair("TbStartFreq", 13),
            std::pair("TbStopFreq", 13), std::pair("TbFreqOffset", 13), std::pair("TbAntennaCode", 3),
            std::pair("TbNorthOffset", 5), std::pair("TbKfactor", 40), std::pair("TbCorrectionSet", 40) })
        EXPECT_EQ(Find<QLineEdit>(form, name).maxLength(), length) << name;
}

TEST_F(AntennaForm, NumbersAreCheckedInTheirOrder)
{
    OpenList({ FullRow() });
    const QStringList boxes{ "TbStartFreq", "TbStopFreq", "TbFreqOffset", "TbNorthOffset", "TbAntennaCode" };
    for (const QString& box : boxes)
        Find<QLineEdit>(form, box).setText("");
    for (const QString& box : boxes) {
        Answers().Expect(12771, QStringList(), Ok);
        EXPECT_FALSE(form.LineValid());
        EXPECT_TRUE(HasFocus(form, box)) << box.toStdString();
        Find<QLineEdit>(form, box).setText("50");
    }
    EXPECT_TRUE(form.LineValid());
}

TEST_F(AntennaForm, EveryBoxOfThePanelMovesOnWithEnter)
{
    OpenList({ FullRow() });
    for (const QString name : { "TbAntennaName", "TbStartFreq", "TbStopFreq", "TbFreqOffset", "TbAntennaCode",
             "TbNorthOffset", "TbKfactor", "TbCorrectionSet" }) {
        FindControl(form, name).setFocus();
        Key(Qt::Key_Return);
        EXPECT_FALSE(HasFocus(form, name)) << name.toStdString();
    }
}

TEST_F(AntennaForm, EnterInPanelActsAsTab)
{
    OpenList({ FullRow() });
    FindControl(form, "TbStartFreq").setFocus();
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus(form, "TbStopFreq"));
}

TEST_F(AntennaForm, TextsOfThePanelAreSavedOnClosing)
{
    for (const auto& [name, field] :
        { std::pair("TbAntennaName", &AntennaRow::Name), std::pair("TbKfactor", &AntennaRow::KfactorTableName),
            std::pair("TbCorrectionSet", &AntennaRow::CorrectionSetName) }) {
        OpenList({ FullRow() });
        Type(form, name, "New");
        Answers().Expect(12769, Yes);
        AnswerFolder(Folder());
        Answers().Expect(12734, { QStringLiteral("Site.tva") }, Yes);
        Click(form, "BtClose");
        EXPECT_TRUE(form.IsClosed());
        EXPECT_EQ(Saved().Row(0).*field, "New") << name;
        QFile::remove(FilePath("Site.tva"));
    }
}

TEST_F(AntennaForm, TextsOfThePanelAreCheckedBeforeTheRowIsLeft)
{
    FakeHelp help;
    OpenList({ FullRow(), FullRow() });
    Type(form, "TbKfactor", "New");
    Click(form, "BtHelp"); // checks no box
    Click(form, "LbCol0[1]");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    Click(form, "LbCol0[0]");
    EXPECT_EQ(TextIn("TbKfactor"), "New");
    Type(form, "TbCorrectionSet", "it's");
    Click(form, "BtHelp");
    Answers().Expect(12764, QStringList(), Ok);
    Click(form, "LbCol0[1]");
    EXPECT_TRUE(HasFocus(form, "TbCorrectionSet"));
    EXPECT_EQ(TextIn("TbCorrectionSet"), "it's");
}

TEST_F(AntennaForm, ChoiceOfBitsChangesItsOwnBitsOnly)
{
    static TvFioApi real;
    real = TvFio();
    AntennaRow second = FullRow();
    second.PassiveBits = 2;
    EXPECT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List({ FullRow(), second })));
    TvFio().AntennaGetActiveBits = [](int16_t* status, int16_t index, int16_t* bits) {
        real.AntennaGetActiveBits(status, index, bits);
        if (index == 2)
            *bits = 7;
    };
    Open(FilePath("Site.tva"));
    TvFio() = real;
    Click(form, "LbCol0[1]");
    EXPECT_EQ(Choice("CbPassiveBits"), 0) << "reset for the active bits";
    EXPECT_EQ(Choice("CbActiveBits"), 1) << "as for the row before";
    Find<QComboBox>(form, "CbPassiveBits").setCurrentIndex(3);
    ExpectSaved();
    EXPECT_EQ(Saved().Row(1).PassiveBits, 3);
    EXPECT_EQ(Saved().Row(1).ActiveBits, 0);
    EXPECT_EQ(Saved().Row(0), FullRow());
}

TEST_F(AntennaForm, BoxesOfAnUnusedRowAreNotChecked)
{
    Open();
    FindControl(form, "TbStartFreq").setFocus();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(form, "TbStopFreq"));
    EXPECT_TRUE(form.LineValid());
    EXPECT_EQ(TextIn("TbStartFreq"), "0.000000") << "not raised to the limit";
    EXPECT_FALSE(Editor().EditorDirty);
}

} // namespace tarvik
