// Deleting selected rows on either side.
#include "tests/link/transfer/transfer_fixture.h"

#include "app/platform/paths.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/values/general.h"
#include "link/classes/model.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvik {

namespace {

using DeleteOnInstr = TransferTest;

class DeleteOnPc : public TransferTest {
protected:
    ~DeleteOnPc() override
    {
        for (const QString& path : protected_)
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void OneFile(const QString& name)
    {
        StoreLocal(name);
        AddFile(pc_, name);
    }

    /// A folder with a file in it.
    void OneFolder(const QString& name)
    {
        ASSERT_TRUE(QDir().mkdir(FilePath(name)));
        StoreLocal(name + "/inside.txt");
        AddFolder(pc_, name);
    }

    void Protect(const QString& name)
    {
        SetReadOnlyAttribute(FilePath(name));
        protected_.append(FilePath(name));
        ASSERT_TRUE(HasReadOnlyAttribute(FilePath(name)));
    }

    static void HoldShift()
    {
        Program().ShiftDown = true;
    }

private:
    QStringList protected_;
};

} // namespace

TEST_F(DeleteOnInstr, EachKindOfFileHasItsOperation)
{
    const char* calls[] = { nullptr, "RemoveKfactorTableFile f", nullptr, nullptr, "RemoveFile f",
        "RemoveCorrectionSetFile f", "RemoveFile f" };
    AddFile(instr_, "f");
    for (const FileClass fileClass : kClassesOfAllKinds) {
        if (ModHasOneList(fileClass))
            continue;
        ModFileInit(fileClass);
        fake_.Log.clear();
        TransferDeleteInstr(instr_);
        EXPECT_EQ(fake_.Log, QStringList({ QString::fromLatin1(calls[FileClassNumber(fileClass) - 1]) }));
    }
}

TEST_F(DeleteOnInstr, SingleListOfClassCannotBeDeleted)
{
    AddFile(instr_, "f");
    for (const FileClass fileClass : { FileClassAntennaList, FileClassMemoryList, FileClassSuppressList }) {
        ModFileInit(fileClass);
        Answers().Expect(12724, { QStringLiteral("f") }, Ok);
        TransferDeleteInstr(instr_);
        EXPECT_TRUE(fake_.Log.isEmpty());
    }
}

TEST_F(DeleteOnInstr, FoldersAreDeletedForScreenShotsAndUnknownClassesOnly)
{
    AddFolder(instr_, "Old");
    for (const FileClass fileClass : kClassesOfAllKinds) {
        ModFileInit(fileClass);
        fake_.Log.clear();
        if (!ModHasInstrFolders(fileClass))
            Answers().Expect(12741, { QStringLiteral("Old") }, Ok);
        TransferDeleteInstr(instr_);
        EXPECT_EQ(fake_.Count("RemoveDirectory Old"),
            fileClass == FileClassScreenShot || fileClass == FileClassUnknown ? 1 : 0);
    }
}

TEST_F(DeleteOnInstr, FoldersOfClassWithOneListAreRefusedOneByOne)
{
    ModFileInit(FileClassAntennaList);
    AddFolder(instr_, "One");
    AddFolder(instr_, "Two");
    Answers().Expect(12741, { QStringLiteral("One") }, Ok);
    Answers().Expect(12741, { QStringLiteral("Two") }, Ok);
    TransferDeleteInstr(instr_);
    EXPECT_TRUE(fake_.Log.isEmpty());
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 2" }));
}

TEST_F(DeleteOnInstr, AllSelectedRowsAreCounted)
{
    AddFolder(instr_, "Old");
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png").Selected = false;
    TransferDeleteInstr(instr_);
    EXPECT_EQ(Shown,
        QStringList({ "pump", "maximum 2", "label Deleting: Old", "value 1", "pump", "label Deleting: a.png", "value 2",
            "pump" }));
}

TEST_F(DeleteOnInstr, RefusedFolderIsReportedByNameAndJobContinues)
{
    AddFolder(instr_, "Old");
    AddFile(instr_, "a.png");
    fake_.Answer("RemoveDirectory", ChannelStatus::Refused);
    Answers().Expect(12741, { QStringLiteral("Old") }, Ok);
    TransferDeleteInstr(instr_);
    EXPECT_EQ(fake_.Count("RemoveFile a.png"), 1);
}

TEST_F(DeleteOnInstr, FailedFileIsReportedByNameAndJobContinues)
{
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    for (const ChannelStatus status : { ChannelStatus::LinkFailed, ChannelStatus::Refused }) {
        fake_.Log.clear();
        fake_.Answer("RemoveFile", status);
        Answers().Expect(12724, { QStringLiteral("a.png") }, Ok);
        TransferDeleteInstr(instr_);
        EXPECT_EQ(fake_.Count("RemoveFile b.png"), 1);
        EXPECT_TRUE(fake_.Connected);
    }
}

TEST_F(DeleteOnInstr, LocalFileStatusIsNotReported)
{
    AddFile(instr_, "a.png");
    fake_.Answer("RemoveFile", ChannelStatus::LocalFile);
    TransferDeleteInstr(instr_);
    EXPECT_EQ(fake_.Count("RemoveFile"), 1);
}

TEST_F(DeleteOnInstr, LostLinkIsNamedAndEndsJob)
{
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    fake_.Answer("RemoveFile", ChannelStatus::LinkFailed);
    fake_.Gone = true;
    Answers().Expect(12724, { QStringLiteral("a.png") }, Ok);
    Answers().Expect(12703, Ok);
    TransferDeleteInstr(instr_);
    EXPECT_EQ(fake_.Log, QStringList({ "RemoveFile a.png", "CheckConnection", "Disconnect" }));
}

TEST_F(DeleteOnInstr, CancelCompletesCurrentFile)
{
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    fake_.OnCall = [](const QString&) { Transfer().TransferCancel = true; };
    TransferDeleteInstr(instr_);
    EXPECT_EQ(fake_.Log, QStringList({ "RemoveFile a.png" }));
}

TEST_F(DeleteOnPc, FilesAndFoldersAreMovedToTrash)
{
    OneFolder("Old");
    OneFile("a.png");
    TransferDeletePc(pc_);
    EXPECT_EQ(Trash, QStringList({ "Old", "a.png" }));
    EXPECT_EQ(Shown,
        QStringList({ "pump", "maximum 2", "label Deleting: Old", "pump", "value 1", "pump", "label Deleting: a.png",
            "pump", "value 2", "pump" }));
}

TEST_F(DeleteOnPc, AnswersForAllOfEarlierJobAreClearedOnEitherSide)
{
    for (void (*job)(FileList&) : { TransferDeletePc, TransferDeleteInstr }) {
        TheMessage().YesAll = true;
        TheMessage().NoAll = true;
        job(pc_);
        EXPECT_FALSE(TheMessage().YesAll);
        EXPECT_FALSE(TheMessage().NoAll);
    }
}

TEST_F(DeleteOnPc, OnlySelectedRowsAreDeleted)
{
    OneFile("a.png");
    OneFile("b.png");
    pc_.Rows.front().Selected = false;
    TransferDeletePc(pc_);
    EXPECT_EQ(Trash, QStringList({ "b.png" }));
    EXPECT_TRUE(Exists("a.png"));
}

TEST_F(DeleteOnPc, ShiftDeletesWithoutTrash)
{
    OneFolder("Old");
    OneFile("a.png");
    HoldShift();
    TransferDeletePc(pc_);
    EXPECT_FALSE(Exists("Old"));
    EXPECT_FALSE(Exists("a.png"));
    EXPECT_TRUE(Trash.isEmpty());
}

TEST_F(DeleteOnPc, ReadOnlyRowsAreKeptWithMessage)
{
    OneFolder("Old");
    OneFile("a.png");
    Protect("Old");
    Protect("a.png");
    for (const bool shift : { false, true }) {
        Program().ShiftDown = shift;
        Answers().Expect(12728, { QStringLiteral("Old") }, Ok);
        Answers().Expect(12728, { QStringLiteral("a.png") }, Ok);
        TransferDeletePc(pc_);
        EXPECT_TRUE(Exists("Old/inside.txt"));
        EXPECT_TRUE(Exists("a.png"));
    }
    EXPECT_TRUE(Trash.isEmpty());
}

TEST_F(DeleteOnPc, ShiftKeepsFolderWithReadOnlyFileWhole)
{
    OneFolder("Old");
    ASSERT_TRUE(QDir().mkdir(FilePath("Old/sub")));
    StoreLocal("Old/sub/locked.txt");
    Protect("Old/sub/locked.txt");
    HoldShift();
    TransferDeletePc(pc_);
    EXPECT_TRUE(Exists("Old/inside.txt"));
    EXPECT_TRUE(Exists("Old/sub/locked.txt"));
}

TEST_F(DeleteOnPc, ShiftOnLinkKeepsTarget)
{
    ASSERT_TRUE(QDir().mkdir(FilePath("kept")));
    StoreLocal("kept/inside.txt");
    ASSERT_TRUE(QFile::link(FilePath("kept"), FilePath("link")));
    AddFolder(pc_, "link");
    HoldShift();
    TransferDeletePc(pc_);
    EXPECT_FALSE(Exists("link"));
    EXPECT_TRUE(Exists("kept/inside.txt"));
}

TEST_F(DeleteOnPc, MissingRowsAreSkippedSilently)
{
    AddFile(pc_, "gone.png");
    AddFolder(pc_, "Gone");
    TransferDeletePc(pc_);
    EXPECT_TRUE(Trash.isEmpty());
    EXPECT_EQ(ShownOf("value").last(), "value 2");
}

TEST_F(DeleteOnPc, RowOfFileDeletesNoFolder)
{
    ASSERT_TRUE(QDir().mkdir(FilePath("a.png")));
    AddFile(pc_, "a.png");
    TransferDeletePc(pc_);
    EXPECT_TRUE(Exists("a.png"));
}

TEST_F(DeleteOnPc, AsksWhereTheTrashCannotTakeAFile)
{
    TrashIsFull = true;
    OneFile("a.png");
    Answers().Expect(12897, { QStringLiteral("a.png") }, No);
    TransferDeletePc(pc_);
    EXPECT_TRUE(Exists("a.png"));
    Answers().Expect(12897, { QStringLiteral("a.png") }, Yes);
    TransferDeletePc(pc_);
    EXPECT_FALSE(Exists("a.png"));
}

TEST_F(DeleteOnPc, AsksOnceForAllThatTheTrashCannotTake)
{
    TrashIsFull = true;
    OneFolder("Old");
    OneFile("a.png");
    Answers().ExpectWhile(12897, Yes, [] { TheMessage().YesAll = true; });
    TransferDeletePc(pc_);
    EXPECT_FALSE(Exists("Old"));
    EXPECT_FALSE(Exists("a.png"));
}

TEST_F(DeleteOnPc, SaysWhatCannotBeDeletedPermanentlyEither)
{
    TrashIsFull = true;
    OneFolder("Old");
    Protect("Old/inside.txt");
    Answers().Expect(12897, { QStringLiteral("Old") }, Yes);
    Answers().Expect(12898, { QStringLiteral("Old") }, Ok);
    TransferDeletePc(pc_);
    EXPECT_TRUE(Exists("Old/inside.txt"));
}

TEST_F(DeleteOnPc, SaysThatNothingCanBeDeletedInAProtectedFolder)
{
    TrashIsFull = true;
    OneFile("a.png");
    Protect("");
    Answers().Expect(12898, { QStringLiteral("a.png") }, Ok);
    TransferDeletePc(pc_);
    QFile::setPermissions(Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(Exists("a.png"));
}

TEST_F(DeleteOnPc, CancelCompletesCurrentFile)
{
    OneFile("a.png");
    OneFile("b.png");
    const auto trash = TheSeams().MoveToTrash;
    TheSeams().MoveToTrash = [trash](const QString& path) {
        Transfer().TransferCancel = true;
        return trash(path);
    };
    TransferDeletePc(pc_);
    EXPECT_EQ(Trash, QStringList({ "a.png" }));
}

} // namespace tarvik
