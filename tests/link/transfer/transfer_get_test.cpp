// Downloading selected rows and the active data set.
#include "tests/link/transfer/transfer_fixture.h"

#include "app/platform/paths.h"
#include "app/values/general.h"
#include "link/classes/model.h"
#include "link/documents/file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvik {

namespace {

const QDateTime kRowDate(QDate(2025, 4, 5), QTime(6, 7, 8));

class Download : public TransferTest {
protected:
    void Run()
    {
        TransferGetFiles(instr_, pc_);
    }

    QString GetFile(const QString& name) const
    {
        return QStringLiteral("GetFile %1 %2 10000").arg(name, Local(name));
    }

    QDateTime ChangedOf(const QString& name) const
    {
        return QFileInfo(FilePath(name)).lastModified();
    }
};

class DownloadActive : public TransferTest {
protected:
    QString Get(const QString& name) const
    {
        return QStringLiteral("GetActiveDatasetFile %1 15000").arg(Local(name));
    }

    void StoreAllNames()
    {
        for (int number = 0; number < 1000; ++number)
            StoreLocal(QStringLiteral("Active%1.set").arg(number, 3, 10, QLatin1Char('0')));
    }
};

} // namespace

TEST_F(Download, FileIsDownloadedWithItsDate)
{
    AddFile(instr_, "a.png");
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ GetFile("a.png") }));
    EXPECT_EQ(Contents(FilePath("a.png")), fake_.Contents);
    EXPECT_EQ(ChangedOf("a.png"), kRowDate);
    EXPECT_FALSE(HasReadOnlyAttribute(FilePath("a.png")));
    EXPECT_EQ(Shown, QStringList({ "pump", "maximum 1", "label Copying to the PC: a.png", "value 1", "pump" }));
}

TEST_F(Download, EveryClassHasItsOwnOperation)
{
    const char* calls[] = { "GetAntennaListFile", "GetKfactorTableFile", "GetMemoryListFile", "GetSuppressListFile",
        "GetFile", "GetCorrectionSetFile", "GetFile" };
    for (const FileClass fileClass : kClassesOfAllKinds) {
        ModFileInit(fileClass);
        instr_.Rows.clear();
        fake_.Log.clear();
        const QString name = QStringLiteral("f%1").arg(FileClassNumber(fileClass));
        AddFile(instr_, name);
        Run();
        EXPECT_EQ(fake_.Log.size(), 1);
        EXPECT_EQ(fake_.Count(QLatin1String(calls[FileClassNumber(fileClass) - 1]) + ' ' + name), 1) << fileClass;
    }
}

TEST_F(Download, AllButClassesWithOneListKeepDate)
{
    for (const FileClass fileClass : kClassesOfAllKinds) {
        ModFileInit(fileClass);
        instr_.Rows.clear();
        const QString name = QStringLiteral("f%1").arg(FileClassNumber(fileClass));
        AddFile(instr_, name);
        Run();
        const bool keeps =
            fileClass != FileClassAntennaList && fileClass != FileClassMemoryList && fileClass != FileClassSuppressList;
        EXPECT_EQ(ChangedOf(name) == kRowDate, keeps) << fileClass;
    }
}

TEST_F(Download, FoldersAreRefusedAndNotCounted)
{
    AddFolder(instr_, "One");
    AddFile(instr_, "a.png");
    Answers().Expect(12745, { QStringLiteral("One") }, Ok);
    Run();
    EXPECT_EQ(ShownOf("maximum"), QStringList({ "maximum 1" }));
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1" }));
}

TEST_F(Download, ExistingFileIsMovedToTrashOnYes)
{
    StoreLocal("a.png");
    AddFile(instr_, "a.png");
    Answers().Expect(12734, { Local("a.png") }, Yes);
    Run();
    EXPECT_EQ(Trash, QStringList({ "a.png" }));
    EXPECT_EQ(Contents(FilePath("a.png")), fake_.Contents);
}

TEST_F(Download, AnyAnswerButYesKeepsFileAndJobContinues)
{
    StoreLocal("a.png");
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    for (const MsgResult answer : { No, Cancel, MsgResult::None }) {
        QFile::remove(FilePath("b.png"));
        fake_.Log.clear();
        Answers().Expect(12734, { Local("a.png") }, answer);
        Run();
        EXPECT_EQ(fake_.Log, QStringList({ GetFile("b.png") }));
        EXPECT_EQ(Contents(FilePath("a.png")), "a.png");
    }
    EXPECT_TRUE(Trash.isEmpty());
}

TEST_F(Download, ClassesWithOneListAskYesOrNoForEachFile)
{
    for (const FileClass fileClass : kClassesOfAllKinds) {
        ModFileInit(fileClass);
        instr_.Rows.clear();
        const QString names[] = { QStringLiteral("a%1").arg(FileClassNumber(fileClass)),
            QStringLiteral("b%1").arg(FileClassNumber(fileClass)) };
        QList<MsgButtons> buttons;
        for (const QString& name : names) {
            StoreLocal(name);
            AddFile(instr_, name);
            Answers().ExpectWhile(12734, No, [&buttons] { buttons.append(TheMessage().Buttons()); });
        }
        Run();
        const MsgButtons expected = ModHasOneList(fileClass) ? MsgButtons::YesNo : MsgButtons::AllChoices;
        EXPECT_EQ(buttons, QList<MsgButtons>({ expected, expected })) << fileClass;
    }
}

TEST_F(Download, YesAllReplacesRestThroughTrash)
{
    for (const char* name : { "a.png", "b.png" }) {
        StoreLocal(QString::fromLatin1(name));
        AddFile(instr_, QString::fromLatin1(name));
    }
    Answers().ExpectWhile(12734, Yes, [] { TheMessage().YesAll = true; });
    Run();
    EXPECT_EQ(Trash, QStringList({ "a.png", "b.png" }));
    EXPECT_EQ(fake_.Count("GetFile"), 2);
}

TEST_F(Download, NoAllKeepsRest)
{
    for (const char* name : { "a.png", "b.png" }) {
        StoreLocal(QString::fromLatin1(name));
        AddFile(instr_, QString::fromLatin1(name));
    }
    AddFile(instr_, "new.png");
    Answers().ExpectWhile(12734, No, [] { TheMessage().NoAll = true; });
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ GetFile("new.png") }));
}

TEST_F(Download, AnswersForAllOfEarlierJobAreIgnored)
{
    StoreLocal("a.png");
    AddFile(instr_, "a.png");
    TheMessage().YesAll = true;
    TheMessage().NoAll = true;
    Answers().Expect(12734, No);
    Run();
    EXPECT_EQ(Contents(FilePath("a.png")), "a.png");
}

TEST_F(Download, FullTrashKeepsFileAndNothingIsDownloaded)
{
    TrashIsFull = true;
    StoreLocal("a.png");
    AddFile(instr_, "a.png");
    Answers().Expect(12734, Yes);
    Answers().Expect(12746, { QStringLiteral("a.png") }, Ok);
    Run();
    EXPECT_TRUE(fake_.Log.isEmpty());
    EXPECT_EQ(Contents(FilePath("a.png")), "a.png");
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1" }));
}

TEST_F(Download, FailureContinuesWhileLinkIsUp)
{
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    fake_.Answer("GetFile", ChannelStatus::Refused);
    Answers().Expect(12704, Ok);
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ GetFile("a.png"), "CheckConnection", GetFile("b.png") }));
    EXPECT_FALSE(Exists("a.png"));
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 2" }));
}

TEST_F(Download, LostLinkEndsJobAndDisconnects)
{
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    fake_.Answer("GetFile", ChannelStatus::LinkFailed);
    fake_.Gone = true;
    Answers().Expect(12704, Ok);
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ GetFile("a.png"), "CheckConnection", "Disconnect" }));
}

TEST_F(Download, CancelCompletesCurrentFile)
{
    AddFile(instr_, "a.png");
    AddFile(instr_, "b.png");
    fake_.OnCall = [](const QString&) { Transfer().TransferCancel = true; };
    Run();
    EXPECT_TRUE(Exists("a.png"));
    EXPECT_FALSE(Exists("b.png"));
    EXPECT_EQ(ChangedOf("a.png"), kRowDate);
}

TEST_F(Download, PresetAndLockedRowsBecomeReadOnly)
{
    AddFile(instr_, "a.set").Icon = "PresetFile";
    AddFile(instr_, "b.set").Icon = "LockedFile";
    AddFile(instr_, "c.set").Icon = "RestrictedFile";
    Run();
    EXPECT_TRUE(HasReadOnlyAttribute(FilePath("a.set")));
    EXPECT_TRUE(HasReadOnlyAttribute(FilePath("b.set")));
    EXPECT_FALSE(HasReadOnlyAttribute(FilePath("c.set")));
    EXPECT_EQ(ChangedOf("a.set"), kRowDate);
}

TEST_F(Download, FileWithoutDateKeepsTimeOfDownload)
{
    AddFile(instr_, "a.png").SubItems = {};
    const QDateTime before = QDateTime::currentDateTime().addSecs(-2);
    Run();
    EXPECT_GE(ChangedOf("a.png"), before);
}

TEST_F(Download, RecycleReportsWhetherFileIsGone)
{
    StoreLocal("a.png");
    TrashIsFull = true;
    EXPECT_FALSE(FileRecycle(FilePath("a.png")));
    TrashIsFull = false;
    EXPECT_TRUE(FileRecycle(FilePath("a.png")));
    EXPECT_TRUE(FileRecycle(FilePath("a.png"))) << "a missing file counts as gone";
}

TEST_F(DownloadActive, FirstFreeNameIsTaken)
{
    TransferGetActive();
    TransferGetActive();
    EXPECT_EQ(fake_.Log, QStringList({ Get("Active000.set"), Get("Active001.set") }));
}

TEST_F(DownloadActive, GapInNamesIsFilled)
{
    StoreLocal("Active000.set");
    StoreLocal("Active002.set");
    TransferGetActive();
    EXPECT_EQ(fake_.Log, QStringList({ Get("Active001.set") }));
}

TEST_F(DownloadActive, BarShowsOneBeforeAndAfter)
{
    TransferGetActive();
    EXPECT_EQ(Shown, QStringList({ "pump", "maximum 1", "value 1", "value 1" }));
}

TEST_F(DownloadActive, ThousandFilesAskToReplaceOverflowFileEvenIfMissing)
{
    StoreAllNames();
    auto buttons = MsgButtons::Ok;
    Answers().ExpectWhile(12734, Yes, [&buttons] {
        buttons = TheMessage().Buttons();
        EXPECT_EQ(TheMessage().Args, QStringList({ PcFilePath("Active.000") }));
    });
    TransferGetActive();
    EXPECT_EQ(buttons, MsgButtons::YesNo);
    EXPECT_EQ(fake_.Log, QStringList({ Get("Active.000") }));
}

TEST_F(DownloadActive, OverflowFileIsMovedToTrashOnYes)
{
    StoreAllNames();
    StoreLocal("Active.000");
    Answers().Expect(12734, { Local("Active.000") }, Yes);
    TransferGetActive();
    EXPECT_EQ(Trash, QStringList({ "Active.000" }));
    EXPECT_EQ(Contents(FilePath("Active.000")), fake_.Contents);
}

TEST_F(DownloadActive, OverflowFileIsKeptOnNo)
{
    StoreAllNames();
    StoreLocal("Active.000");
    Answers().Expect(12734, { Local("Active.000") }, No);
    TransferGetActive();
    EXPECT_TRUE(fake_.Log.isEmpty());
    EXPECT_EQ(Contents(FilePath("Active.000")), "Active.000");
}

TEST_F(DownloadActive, OverflowFileWithFullTrashEndsJob)
{
    StoreAllNames();
    StoreLocal("Active.000");
    TrashIsFull = true;
    Answers().Expect(12734, Yes);
    Answers().Expect(12746, { QStringLiteral("Active.000") }, Ok);
    TransferGetActive();
    EXPECT_TRUE(fake_.Log.isEmpty());
}

TEST_F(DownloadActive, FailureIsReportedAndLostLinkDisconnects)
{
    fake_.Answer("GetActiveDatasetFile", ChannelStatus::Refused);
    Answers().Expect(12704, Ok);
    TransferGetActive();
    EXPECT_EQ(fake_.Log, QStringList({ Get("Active000.set"), "CheckConnection" }));
    fake_.Answer("GetActiveDatasetFile", ChannelStatus::LinkFailed);
    fake_.Gone = true;
    Answers().Expect(12704, Ok);
    TransferGetActive();
    EXPECT_EQ(fake_.Log.last(), "Disconnect");
}

} // namespace tarvik
