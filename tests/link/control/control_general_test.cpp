// The rules of the file control window: what depends on the file class, loading and unloading, enabled buttons.
#include "tests/link/control/control_fixture.h"

#include "link/connection/connect.h"

#include <QDir>

namespace tarvik {

namespace {

using ControlRulesTest = ControlTest;
using ControlLife = ControlTest;
using ControlButtons = ControlTest;

int EditNumber(FileClass fileClass)
{
    int index = -1;
    GetBtPcEditNumber(fileClass, index);
    return index;
}

} // namespace

TEST_F(ControlRulesTest, NumberEditButtonOfEachClass)
{
    EXPECT_EQ(EditNumber(FileClassAntennaList), 0);
    EXPECT_EQ(EditNumber(FileClassKfactorTable), 1);
    EXPECT_EQ(EditNumber(FileClassMemoryList), 2);
    EXPECT_EQ(EditNumber(FileClassSuppressList), 3);
    EXPECT_EQ(EditNumber(FileClassCorrectionSet), 4);
    EXPECT_EQ(EditNumber(FileClassScreenShot), 5);
    EXPECT_EQ(EditNumber(FileClassUnknown), 5);
    EXPECT_EQ(EditNumber(FileClassNone), 5);
}

TEST_F(ControlRulesTest, GiveEachClassItsIcon)
{
    EXPECT_EQ(ControlRulesOf(FileClassAntennaList).Icon, "MDI_AL_C");
    EXPECT_EQ(ControlRulesOf(FileClassKfactorTable).Icon, "MDI_KT_C");
    EXPECT_EQ(ControlRulesOf(FileClassMemoryList).Icon, "MDI_ML_C");
    EXPECT_EQ(ControlRulesOf(FileClassSuppressList).Icon, "MDI_SL_C");
    EXPECT_EQ(ControlRulesOf(FileClassScreenShot).Icon, "MDI_SCREEN");
    EXPECT_EQ(ControlRulesOf(FileClassCorrectionSet).Icon, "");
}

TEST_F(ControlRulesTest, GiveInstrumentFoldersToScreenShotsOnly)
{
    for (const FileClass fileClass : kFileClasses)
        EXPECT_EQ(ControlRulesOf(fileClass).HasInstrFolders, fileClass == FileClassScreenShot) << fileClass;
}

TEST_F(ControlRulesTest, ShowOnlyNamesForClassesWithOneList)
{
    for (const FileClass fileClass : kFileClasses) {
        const bool isOne =
            fileClass == FileClassAntennaList || fileClass == FileClassMemoryList || fileClass == FileClassSuppressList;
        const ControlRules rules = ControlRulesOf(fileClass);
        EXPECT_EQ(rules.HasDates, !isOne) << fileClass;
        EXPECT_EQ(rules.DeletesOnInstr, !isOne) << fileClass;
        EXPECT_EQ(rules.UploadsOneFile, isOne) << fileClass;
        EXPECT_EQ(rules.MakesNew, fileClass != FileClassScreenShot) << fileClass;
    }
}

TEST_F(ControlLife, RestoresRememberedFolderOfClass)
{
    OnPc({ "Van.tvm", "Van.tva" });
    Open(FileClassMemoryList);
    EXPECT_EQ(CurrentPcFolder(), FilePath("pc"));
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "Van.tvm" }));
    EXPECT_EQ(Transfer().LvPc, &Control.LvPc);
    EXPECT_EQ(Transfer().LvInstr, &Control.LvInstr);
    EXPECT_FALSE(Control.LvPc.HasDates);
    EXPECT_FALSE(Control.LvInstr.HasDates);
}

TEST_F(ControlLife, FallsBackToWorkingDirectoryWithoutMessage)
{
    FileClasses().PcPaths[FileClassMemoryList] = FilePath("gone");
    Open(FileClassMemoryList);
    EXPECT_EQ(CurrentPcFolder(), QDir::currentPath());
    FileClasses().PcPaths[FileClassMemoryList].clear();
    Open(FileClassMemoryList);
    EXPECT_EQ(CurrentPcFolder(), QDir::currentPath());
}

TEST_F(ControlLife, FillsBothListsSortedWithFoldersFirst)
{
    OnPc({ "b.png", "a.png", "+z" });
    OnInstr({ "d.png", "c.png", "+y" });
    Open(FileClassScreenShot);
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "z", "a.png", "b.png" }));
    EXPECT_EQ(Names(ControlSide::Instr), QStringList({ "y", "c.png", "d.png" }));
    EXPECT_TRUE(Control.LvPc.HasDates);
}

TEST_F(ControlLife, ShowsBusyPointerWhileItFillsLists)
{
    ModFileInit(FileClassMemoryList);
    ControlLoad(Control);
    Asked.clear();
    ControlActivate(Control);
    EXPECT_EQ(Asked, QStringList({ "pointer 1", "transfers 0 0", "pointer 0" }));
}

TEST_F(ControlLife, DisconnectsAndClosesWithoutAnswer)
{
    ModFileInit(FileClassMemoryList);
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    Answers().Expect(12703, Ok);
    ControlLoad(Control);
    EXPECT_EQ(Instrument.Log, QStringList({ "GetCurrentDirectory", "Disconnect" }));
    ASSERT_EQ(Control.CmbInstr.Items.size(), 1u);
    EXPECT_EQ(Control.CmbInstr.Items[0].Text, "");
    EXPECT_FALSE(Control.CanWork);
    Asked.clear();
    ControlActivate(Control);
    EXPECT_EQ(Asked, QStringList({ "close" }));
    EXPECT_EQ(Instrument.Count("StartFind"), 0);
}

TEST_F(ControlLife, RemembersFoldersOfBothSides)
{
    Open(FileClassScreenShot);
    CurrentPcFolder() = FilePath("elsewhere");
    Instrument.Directory = "\\Public\\Trip";
    ControlUnload();
    EXPECT_EQ(FileClasses().PcPaths[FileClassScreenShot], FilePath("elsewhere"));
    EXPECT_EQ(FileClasses().InstrPaths[FileClassScreenShot], "\\Public\\Trip");
    EXPECT_EQ(Transfer().LvPc, nullptr);
    EXPECT_EQ(Transfer().LvInstr, nullptr);
}

TEST_F(ControlLife, RemembersPublicFolderWhenLinkIsDown)
{
    FileClasses().InstrPaths[FileClassMemoryList] = "\\Public\\Memory List";
    Open(FileClassMemoryList);
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    ControlUnload();
    EXPECT_EQ(FileClasses().InstrPaths[FileClassMemoryList], "\\Public");
}

TEST_F(ControlLife, StaysOpenDuringJobOrConnect)
{
    Open(FileClassMemoryList);
    EXPECT_TRUE(ControlCanClose(Control));
    Connection().ConnectInProgress = true;
    EXPECT_FALSE(ControlCanClose(Control));
    Connection().ConnectInProgress = false;
    OnPc({ "Van.tvm" });
    ControlRefresh(Control, ControlSide::Pc);
    Select(ControlSide::Pc, { "Van.tvm" });
    bool canClose = true;
    DuringJob = [&] { canClose = ControlCanClose(Control); };
    ControlUpload(Control);
    EXPECT_FALSE(canClose);
    EXPECT_TRUE(ControlCanClose(Control));
}

TEST_F(ControlButtons, UploadNeedsOneFileForClassesWithOneList)
{
    OnPc({ "a.tva", "b.tva", "+folder" });
    Open(FileClassAntennaList);
    for (const auto& [names, expected] : std::initializer_list<std::pair<QStringList, QString>>{
             { {}, "transfers 0 0" }, { { "folder" }, "transfers 0 0" }, { { "a.tva" }, "transfers 1 0" },
             { { "a.tva", "folder" }, "transfers 1 0" }, { { "a.tva", "b.tva" }, "transfers 0 0" } }) {
        Select(ControlSide::Pc, names);
        ControlUpdate(Control);
        EXPECT_EQ(Asked.last(), expected) << names.join(' ').toStdString();
    }
}

TEST_F(ControlButtons, UploadAcceptsAnyNumberOfFilesOfOtherClasses)
{
    OnPc({ "a.tvk", "b.tvk", "+folder" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Pc, { "a.tvk", "b.tvk" });
    ControlUpdate(Control);
    EXPECT_EQ(Asked.last(), "transfers 1 0");
    Select(ControlSide::Pc, { "folder" });
    ControlUpdate(Control);
    EXPECT_EQ(Asked.last(), "transfers 0 0");
}

TEST_F(ControlButtons, DownloadNeedsFile)
{
    OnInstr({ "a.png", "+folder" });
    Open(FileClassScreenShot);
    Select(ControlSide::Instr, { "folder" });
    ControlUpdate(Control);
    EXPECT_EQ(Asked.last(), "transfers 0 0");
    Select(ControlSide::Instr, { "folder", "a.png" });
    ControlUpdate(Control);
    EXPECT_EQ(Asked.last(), "transfers 0 1");
}

TEST_F(ControlRulesTest, KeepSelectionFrameInsideList)
{
    const QRect limit = ControlFrameLimit(QSize(322, 223));
    EXPECT_EQ(limit, QRect(0, 0, 300, 200));
    EXPECT_EQ(ControlInsideLimit({ 10, 20 }, limit), QPoint(10, 20));
    EXPECT_EQ(ControlInsideLimit({ -5, 500 }, limit), QPoint(0, 199));
    EXPECT_EQ(ControlInsideLimit({ 400, -1 }, limit), QPoint(299, 0));
    EXPECT_FALSE(ControlFrameLimit(QSize(3, 3)).isEmpty());
}

} // namespace tarvik
