// K-factor tables and correction sets that are linked to an antenna.
#include "tests/lists/antenna/antenna_form_fixture.h"

namespace tarvik {

TEST_F(AntennaForm, NewTableIsLinkedWithItsBand)
{
    OpenList({ FullRow() });
    Editors.WhileShown = [this] {
        EXPECT_EQ(FileClasses().CurrentFileClass, FileClassKfactorTable);
        EXPECT_EQ(Editor().KfactorFileName, "");
        Editor().KfactorFileName = "Whip.tvk";
        Editor().ResultFolder = "/tables";
    };
    Editors.Band = { 20e6, 80e6 };
    Click(form, "BtNewKfactor");
    EXPECT_EQ(Editors.Shown, QList<FileClass>{ FileClassKfactorTable });
    EXPECT_EQ(Editors.ReadTables, QStringList{ "/tables/Whip.tvk" });
    EXPECT_EQ(TextIn("TbKfactor"), "Whip");
    EXPECT_EQ(TextIn("TbStartFreq"), "20.000000");
    EXPECT_EQ(TextIn("TbStopFreq"), "80.000000");
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(AntennaForm, NewTableThatCannotBeReadIsLinkedWithoutBand)
{
    OpenList({ FullRow() });
    Editors.WhileShown = [] { Editor().KfactorFileName = "Whip.csv"; };
    Editors.TableIsReadable = false;
    Editors.Band = { 20e6, 80e6 };
    Click(form, "BtNewKfactor");
    EXPECT_EQ(TextIn("TbKfactor"), "Whip");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
}

TEST_F(AntennaForm, NestedEditorWithoutResultChangesNothing)
{
    OpenList({ FullRow() });
    Editor().KfactorFileName = "before.tvk";
    Click(form, "BtNewKfactor");
    Click(form, "BtNewCorrectionSet");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Array");
    EXPECT_EQ(Editors.ReadTables, QStringList());
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(AntennaForm, SelectedTableMustBeReadable)
{
    OpenList({ FullRow() });
    AnswerFile(FilePath("Whip.tvk"));
    Editors.TableIsReadable = false;
    Click(form, "BtSelectKfactor");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_EQ(FileClasses().PcPaths[FileClassKfactorTable], "");
    Editors.TableIsReadable = true; // an empty table: the band stays
    Click(form, "BtSelectKfactor");
    EXPECT_EQ(TextIn("TbKfactor"), "Whip");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    EXPECT_EQ(FileClasses().PcPaths[FileClassKfactorTable] + u'/', Folder());
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
}

TEST_F(AntennaForm, CorrectionSetsAreLinkedByName)
{
    OpenList({ FullRow() });
    AnswerFile(FilePath("Loop.tvc"));
    Click(form, "BtSelectCorrectionSet");
    EXPECT_EQ(AskedFile.Filters, QStringList{ "Correction sets|*.tvc" });
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Loop");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    EXPECT_EQ(FileClasses().PcPaths[FileClassCorrectionSet] + u'/', Folder());
    Editors.WhileShown = [] { Editor().CorrectionSetFileName = "Array 2.tvc"; };
    Click(form, "BtNewCorrectionSet");
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Array 2");
    ExpectSaved();
    EXPECT_EQ(Saved().Row(0).CorrectionSetName, "Array 2");
}

TEST_F(AntennaForm, SelectedTableIsLinkedWithItsBand)
{
    OpenList({ FullRow() });
    FileClasses().PcPaths[FileClassKfactorTable] = Folder();
    Editors.Band = { 20e6, 80e6 };
    AnswerFile({});
    Click(form, "BtSelectKfactor");
    EXPECT_EQ(AskedFile.InitialFolder, Folder());
    EXPECT_EQ(AskedFile.Filters.last(), "K-factor tables|*.tvk");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast") << "cancelled";
    EXPECT_FALSE(Editor().EditorDirty);
    AnswerFile(FilePath("Whip.tvk"));
    Click(form, "BtSelectKfactor");
    EXPECT_EQ(Editors.ReadTables, QStringList{ FilePath("Whip.tvk") });
    ExpectSaved();
    EXPECT_EQ(Saved().Row(0).KfactorTableName, "Whip");
    EXPECT_EQ(Saved().Row(0).StartFrequency, 20e6);
    EXPECT_EQ(Saved().Row(0).StopFrequency, 80e6);
}

TEST_F(AntennaForm, NewCorrectionSetOpensItsEditor)
{
    OpenList({ FullRow() });
    Editor().CorrectionSetFileName = "before.tvc";
    Editors.WhileShown = [] {
        EXPECT_EQ(FileClasses().CurrentFileClass, FileClassCorrectionSet);
        EXPECT_EQ(Editor().CorrectionSetFileName, "");
    };
    Click(form, "BtNewCorrectionSet");
    EXPECT_EQ(Editors.Shown, QList<FileClass>{ FileClassCorrectionSet });
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_EQ(Editor().EditorType, FileClassAntennaList);
}

TEST_F(AntennaForm, LinkUsesAnEmptyRow)
{
    Open();
    AnswerFile(FilePath("Loop.tvc"));
    Click(form, "BtSelectCorrectionSet");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Loop");
}

TEST_F(AntennaForm, LinkIsTheBaseNameOfTheFile)
{
    OpenList({ FullRow() });
    for (const auto& [file, name] : { std::pair(QStringLiteral("Loop.v2.tvc"), QStringLiteral("Loop.v2")),
             std::pair(QString(50, u'x') + QStringLiteral(".tvc"), QString(40, u'x')) }) {
        AnswerFile(FilePath(file));
        Click(form, "BtSelectCorrectionSet");
        EXPECT_EQ(TextIn("TbCorrectionSet"), name);
    }
}

TEST_F(AntennaForm, LinkWithAForbiddenCharacterIsReportedAtOnce)
{
    OpenList({ FullRow() });
    AnswerFile(FilePath("it's.tvc"));
    Answers().Expect(12764, QStringList(), Ok);
    Click(form, "BtSelectCorrectionSet");
    EXPECT_EQ(TextIn("TbCorrectionSet"), "it's");
    Answers().Verify();
    Answers().Expect(12764, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbCorrectionSet"));
}

TEST_F(AntennaForm, EditOfACorrectionSetHasNoAction)
{
    OpenList({ FullRow() });
    EXPECT_FALSE(FindControl(form, "BtCorrectionSetEdit").isEnabled());
}

} // namespace tarvik
