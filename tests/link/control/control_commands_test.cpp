// The commands of the file control window: jobs and lists.
#include "tests/link/control/control_fixture.h"

#include "app/message/message.h"
#include "app/state/project.h"

#include <QDir>
#include <QFileInfo>

namespace tarvik {

namespace {

using ControlJobs = ControlTest;
using ControlLists = ControlTest;

const QString kCopying = QStringLiteral("Copying files...");
const QString kDeleting = QStringLiteral("Deleting files...");

QString Job(int type, const QString& status)
{
    return QStringLiteral("job %1 \"%2\"").arg(type).arg(status);
}

} // namespace

TEST_F(ControlJobs, UploadDisablesButtonsAndShowsStatus)
{
    OnPc({ "Van.tvm" });
    Open(FileClassMemoryList);
    Select(ControlSide::Pc, { "Van.tvm" });
    Frame.Status = "before";
    ControlUpload(Control);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", Job(7, kCopying), "buttons 1", "transfers 1 0" }));
    EXPECT_EQ(Frame.Status, "before");
    EXPECT_FALSE(Program().StatusHold);
}

TEST_F(ControlJobs, UploadDoesNothingWithoutFile)
{
    OnPc({ "+folder" });
    Open(FileClassMemoryList);
    ControlUpload(Control);
    Select(ControlSide::Pc, { "folder" });
    ControlUpload(Control);
    EXPECT_EQ(Asked, QStringList());
}

TEST_F(ControlJobs, UploadOfSeveralFilesDoesNothingForClassesWithOneList)
{
    for (const FileClass fileClass : { FileClassAntennaList, FileClassMemoryList, FileClassSuppressList }) {
        OnPc({ "a" + ModGetExtension(fileClass), "b" + ModGetExtension(fileClass) });
        Open(fileClass);
        ControlSelectAll(Control, ControlSide::Pc);
        EXPECT_EQ(Asked.last(), "transfers 0 0") << fileClass;
        Asked.clear();
        ControlUpload(Control);
        EXPECT_EQ(Asked, QStringList()) << fileClass;
    }
}

TEST_F(ControlJobs, UploadAcceptsSeveralFilesOfOtherClasses)
{
    OnPc({ "a.tvc", "b.tvc" });
    Open(FileClassCorrectionSet);
    Select(ControlSide::Pc, { "a.tvc", "b.tvc" });
    ControlUpload(Control);
    EXPECT_TRUE(Asked.contains(Job(7, kCopying)));
}

TEST_F(ControlJobs, DownloadRunsForAnySelectedRow)
{
    OnInstr({ "Van.tvm" });
    Open(FileClassMemoryList);
    ControlDownload(Control);
    EXPECT_EQ(Asked, QStringList());
    Select(ControlSide::Instr, { "Van.tvm" });
    ControlDownload(Control);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", Job(8, kCopying), "buttons 1", "transfers 0 1" }));
}

TEST_F(ControlJobs, DeleteAsksFirst)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    ControlDelete(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList()) << "nothing is selected";
    Select(ControlSide::Pc, { "a.tvk" });
    Answers().Expect(12732, No);
    ControlDelete(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList({ "focus pc", "transfers 1 0" }));
    Asked.clear();
    Answers().Expect(12732, Yes);
    ControlDelete(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", Job(10, kDeleting), "buttons 1", "focus pc", "transfers 1 0" }));
}

TEST_F(ControlJobs, DeleteOnInstrumentRunsItsOwnJob)
{
    OnInstr({ "a.tvk" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Instr, { "a.tvk" });
    Answers().Expect(12732, Yes);
    ControlDelete(Control, ControlSide::Instr);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", Job(9, kDeleting), "buttons 1", "focus instr", "transfers 0 1" }));
}

TEST_F(ControlJobs, DelKeyOnPcKeepsButtonsAndReadsListAgain)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Pc, { "a.tvk" });
    DuringJob = [this] { EXPECT_FALSE(ControlCanClose(Control)); };
    QFile::remove(FilePath("pc/a.tvk"));
    Answers().Expect(12732, Yes);
    ControlDeleteByKey(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList({ Job(10, {}), "focus pc", "transfers 0 0" }));
    EXPECT_EQ(Names(ControlSide::Pc), QStringList());
}

TEST_F(ControlJobs, DelKeyOnInstrumentDisablesButtonsWithoutStatus)
{
    OnInstr({ "a.tvk" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Instr, { "a.tvk" });
    DuringJob = [this] { OnInstr({}); };
    Answers().Expect(12732, Yes);
    ControlDeleteByKey(Control, ControlSide::Instr);
    EXPECT_EQ(Asked, QStringList({ "buttons 0", Job(9, {}), "buttons 1", "focus instr", "transfers 0 0" }));
    EXPECT_EQ(Names(ControlSide::Instr), QStringList());
}

TEST_F(ControlJobs, DelKeyDoesNothingWithoutSelectionOrAfterNo)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    ControlDeleteByKey(Control, ControlSide::Pc);
    Select(ControlSide::Pc, { "a.tvk" });
    Answers().Expect(12732, No);
    ControlDeleteByKey(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList());
}

TEST_F(ControlJobs, DelKeyWithFoldersOnlyRunsJobThatRefusesEach)
{
    Open(FileClassAntennaList);
    TransferAddRow(Control.LvInstr, "Trip", ChannelRowType::Folder, {});
    TransferAddRow(Control.LvInstr, "Van", ChannelRowType::Folder, {});
    Select(ControlSide::Instr, { "Trip", "Van" });
    DuringJob = TransferRunJob;
    Answers().Expect(12732, Yes);
    Answers().Expect(12741, { "Trip" }, Ok);
    Answers().Expect(12741, { "Van" }, Ok);
    ControlDeleteByKey(Control, ControlSide::Instr);
    EXPECT_TRUE(Asked.contains(Job(9, {})));
    EXPECT_EQ(Instrument.Count("Remove"), 0);
}

TEST_F(ControlJobs, DelKeyWithFoldersOnlyRunsJobOnPcToo)
{
    OnPc({ "+folder" });
    Open(FileClassAntennaList);
    Select(ControlSide::Pc, { "folder" });
    Answers().Expect(12732, Yes);
    ControlDeleteByKey(Control, ControlSide::Pc);
    EXPECT_TRUE(Asked.contains(Job(10, {})));
}

TEST_F(ControlJobs, ButtonsDisabledByFailedRefreshStayDisabled)
{
    OnPc({ "a.tvk" });
    OnInstr({ "b.tvk" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Instr, { "b.tvk" });
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    ControlRefresh(Control, ControlSide::Instr);
    Answers().Expect(12732, Yes);
    ControlDeleteByKey(Control, ControlSide::Instr);
    EXPECT_TRUE(Asked.contains(Job(9, {})));
    ControlOpenRow(Control, ControlSide::Pc, 0);
    EXPECT_FALSE(Asked.contains("buttons 1"));
    EXPECT_TRUE(ControlCanClose(Control));
}

TEST_F(ControlLists, SelectAllSelectsFilesOnly)
{
    OnPc({ "a.tvk", "b.tvk", "+folder" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Pc, { "folder" });
    ControlSelectAll(Control, ControlSide::Pc);
    EXPECT_EQ(TransferCountSelected(Control.LvPc), 2);
    EXPECT_EQ(Asked, QStringList({ "focus pc", "transfers 1 0" }));
}

TEST_F(ControlLists, RefreshReadsPc)
{
    Open(FileClassKfactorTable);
    OnPc({ "a.tvk" });
    ControlRefresh(Control, ControlSide::Pc);
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "a.tvk" }));
    EXPECT_EQ(Asked, QStringList({ "buttons 0", "buttons 1", "focus pc", "transfers 0 0" }));
    EXPECT_EQ(Instrument.Log, QStringList());
}

TEST_F(ControlLists, RefreshReadsInstrumentIfItAnswers)
{
    Open(FileClassKfactorTable);
    OnInstr({ "a.tvk" });
    ControlRefresh(Control, ControlSide::Instr);
    EXPECT_EQ(Names(ControlSide::Instr), QStringList({ "a.tvk" }));
    EXPECT_EQ(Asked, QStringList({ "buttons 0", "buttons 1", "focus instr", "transfers 0 0" }));
    EXPECT_EQ(Instrument.Log.first(), "GetCurrentDirectory");
}

TEST_F(ControlLists, RefreshLeavesButtonsDisabledWithoutAnswer)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    ControlRefresh(Control, ControlSide::Instr);
    EXPECT_EQ(Asked, QStringList({ "buttons 0" }));
    EXPECT_EQ(Instrument.Count("StartFind"), 0);
    Select(ControlSide::Pc, { "a.tvk" });
    ControlUpdate(Control);
    EXPECT_EQ(Asked, QStringList({ "buttons 0" })) << "not even a selection enables one";
    EXPECT_TRUE(ControlCanClose(Control));
}

TEST_F(ControlLists, RenameEditsSelectedRow)
{
    OnPc({ "a.tvk", "b.tvk" });
    Open(FileClassKfactorTable);
    ControlRename(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList()) << "no row is selected";
    Select(ControlSide::Pc, { "b.tvk" });
    ControlRename(Control, ControlSide::Pc);
    EXPECT_EQ(Asked, QStringList({ "focus pc", "edit pc 1" }));
}

TEST_F(ControlLists, RenameUsesCurrentRowIfSelected)
{
    OnPc({ "a.tvk", "b.tvk", "c.tvk" });
    Open(FileClassKfactorTable);
    Select(ControlSide::Pc, { "a.tvk", "b.tvk" });
    Control.LvPc.CurrentRow = 1;
    EXPECT_EQ(ControlSelectedRow(Control.LvPc), 1);
    Control.LvPc.CurrentRow = 2; // has the focus but is not selected
    EXPECT_EQ(ControlSelectedRow(Control.LvPc), 0);
}

TEST_F(ControlLists, RenameOnInstrumentIsForScreenShotsOnly)
{
    for (const FileClass fileClass : kFileClasses) {
        const QString name = fileClass == FileClassScreenShot ? QString("a.png") : "a" + ModGetExtension(fileClass);
        OnInstr({ name });
        Open(fileClass);
        Select(ControlSide::Instr, { name });
        ControlRename(Control, ControlSide::Instr);
        ControlRenamed(Control, ControlSide::Instr, "-" + name, "b.png");
        const bool isScreenShot = fileClass == FileClassScreenShot;
        EXPECT_EQ(Asked.contains("edit instr 0"), isScreenShot) << fileClass;
        EXPECT_EQ(Instrument.Count("Rename"), isScreenShot ? 1 : 0) << fileClass;
    }
}

TEST_F(ControlLists, EndOfEditRenamesAndReadsListAgain)
{
    OnPc({ "a.tvc" });
    Open(FileClassCorrectionSet);
    ControlRenamed(Control, ControlSide::Pc, "-a.tvc", "b.tvc");
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "b.tvc" }));
    EXPECT_EQ(Asked, QStringList({ "transfers 0 0" }));
}

TEST_F(ControlLists, FileIsNotMistakenForFolderWithSameKey)
{
    OnPc({ "+oo.tvc", "Foo.tvc" });
    Open(FileClassCorrectionSet);
    EXPECT_EQ(Control.LvPc.Rows[0].Key, Control.LvPc.Rows[1].Key);
    ControlRenamed(Control, ControlSide::Pc, "-Foo.tvc", "Bus.tvc");
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "oo.tvc", "Bus.tvc" }));
}

TEST_F(ControlLists, RefusedNameLeavesListAsOnDisk)
{
    OnPc({ "a.tvc", "b.tvc" });
    Open(FileClassCorrectionSet);
    Answers().Expect(12730, { "b.tvc" }, Ok);
    ControlRenamed(Control, ControlSide::Pc, "-a.tvc", "b.tvc");
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "a.tvc", "b.tvc" }));
}

TEST_F(ControlLists, EndOfEditOfMissingRowDoesNothing)
{
    OnPc({ "a.tvc" });
    Open(FileClassCorrectionSet);
    ControlRenamed(Control, ControlSide::Pc, "-gone.tvc", "b.tvc");
    EXPECT_EQ(Asked, QStringList());
}

TEST_F(ControlLists, RenameOnInstrumentReadsListAgainEvenIfRefused)
{
    OnInstr({ "a.png" });
    Open(FileClassScreenShot);
    Instrument.Answer("Rename", ChannelStatus::Refused);
    Answers().Expect(12743, { "a.png" }, Ok);
    ControlRenamed(Control, ControlSide::Instr, "-a.png", "b.png");
    EXPECT_EQ(Instrument.Count("StartFindAllFiles"), 1);
    EXPECT_EQ(Names(ControlSide::Instr), QStringList({ "a.png" }));
}

TEST_F(ControlLists, ClickOnNameColumnReversesSortedList)
{
    OnPc({ "a.tvk", "b.tvk", "+folder" });
    Open(FileClassKfactorTable);
    ControlHeaderClick(Control, ControlSide::Pc, kFileNameColumn);
    EXPECT_EQ(Names(ControlSide::Pc), QStringList({ "b.tvk", "a.tvk", "folder" }));
}

} // namespace tarvik
