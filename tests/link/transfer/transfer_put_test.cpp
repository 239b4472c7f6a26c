// Uploading selected rows.
#include "tests/link/transfer/transfer_fixture.h"

#include "link/classes/model.h"
#include "link/documents/file.h"

namespace tarvik {

namespace {

class Upload : public TransferTest {
protected:
    void Run()
    {
        TransferPutFiles(pc_, instr_);
    }

    QString PutFile(const QString& name) const
    {
        return QStringLiteral("PutFile %1 %2 10000").arg(Local(name), name);
    }

    static QString DateOf(const QString& name)
    {
        return QStringLiteral("Send MMEM:FILE:DATE \"%1\", 2025, 4, 5").arg(name);
    }

    static QString TimeOf(const QString& name)
    {
        return QStringLiteral("Send MMEM:FILE:TIME \"%1\", 6, 7, 8").arg(name);
    }

    /// Answers with the buttons for all.
    void ExpectYesAll(int id)
    {
        Answers().ExpectWhile(id, Yes, [] { TheMessage().YesAll = true; });
    }

    void ExpectNoAll(int id)
    {
        Answers().ExpectWhile(id, No, [] { TheMessage().NoAll = true; });
    }
};

} // namespace

TEST_F(Upload, NewFileIsUploadedWithItsDate)
{
    AddFile(pc_, "a.png");
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png", PutFile("a.png"), DateOf("a.png"), TimeOf("a.png") }));
}

TEST_F(Upload, RowsNotSelectedAreSkipped)
{
    AddFile(pc_, "a.png").Selected = false;
    AddFile(pc_, "b.png");
    Run();
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(Shown, QStringList({ "pump", "maximum 1", "label Copying to the instrument: b.png", "value 1", "pump" }));
}

TEST_F(Upload, FilesAreCountedOneByOne)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    Run();
    EXPECT_EQ(Shown,
        QStringList({ "pump", "maximum 2", "label Copying to the instrument: a.png", "value 1", "pump",
            "label Copying to the instrument: b.png", "value 2", "pump" }));
}

TEST_F(Upload, FoldersOnlyAreRefusedWithoutProgress)
{
    AddFolder(pc_, "One");
    AddFolder(pc_, "Two");
    Answers().Expect(12744, { QStringLiteral("One") }, Ok);
    Answers().Expect(12744, { QStringLiteral("Two") }, Ok);
    Run();
    EXPECT_TRUE(fake_.Log.isEmpty());
    EXPECT_EQ(ShownOf("maximum"), QStringList({ "maximum 0" }));
    EXPECT_TRUE(ShownOf("value").isEmpty());
}

TEST_F(Upload, FolderAmongFilesIsNotCounted)
{
    AddFolder(pc_, "One");
    AddFile(pc_, "a.png");
    Answers().Expect(12744, { QStringLiteral("One") }, Ok);
    Run();
    EXPECT_EQ(ShownOf("maximum"), QStringList({ "maximum 1" }));
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1" }));
}

TEST_F(Upload, TargetListIsUnchanged)
{
    AddFile(instr_, "there.png");
    AddFile(pc_, "a.png");
    Run();
    EXPECT_EQ(instr_.Rows.size(), 1U);
}

TEST_F(Upload, FailedLookupEndsJobAndKeepsLink)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    for (const ChannelStatus status : { ChannelStatus::LinkFailed, ChannelStatus::Refused }) {
        fake_.Log.clear();
        fake_.Answer("FindFile", status);
        fake_.Gone = true;
        Answers().Expect(12703, Ok);
        Run();
        EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png" }));
        EXPECT_TRUE(fake_.Connected);
    }
}

TEST_F(Upload, UnknownPresenceSkipsFileWithoutMessage)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    fake_.Exists["a.png"] = { static_cast<ChannelPresence>(2), ChannelRowType::File };
    Run();
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 2" }));
}

TEST_F(Upload, ExistingFileIsReplacedOnYes)
{
    AddFile(pc_, "a.png");
    StoreOnBothSides("a.png");
    Answers().Expect(12734, { QStringLiteral("a.png") }, Yes);
    Run();
    EXPECT_EQ(fake_.Log,
        QStringList({ "FindFile a.png", "RemoveFile a.png", PutFile("a.png"), DateOf("a.png"), TimeOf("a.png") }));
    EXPECT_EQ(ShownOf("pump").size(), 4);
}

TEST_F(Upload, AnyAnswerButYesSkipsFileAndJobContinues)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    StoreOnBothSides("a.png");
    for (const MsgResult answer : { No, Cancel, MsgResult::None }) {
        fake_.Log.clear();
        Answers().Expect(12734, { QStringLiteral("a.png") }, answer);
        Run();
        EXPECT_EQ(fake_.Count("RemoveFile"), 0);
        EXPECT_EQ(fake_.Log.value(2), PutFile("b.png"));
    }
}

TEST_F(Upload, YesAllReplacesRestWithoutAsking)
{
    for (const char* name : { "a.png", "b.png", "c.png" }) {
        AddFile(pc_, QString::fromLatin1(name));
        StoreOnBothSides(QString::fromLatin1(name));
    }
    Answers().Expect(12734, No);
    ExpectYesAll(12734);
    Run();
    EXPECT_EQ(fake_.Count("RemoveFile"), 2);
    EXPECT_EQ(fake_.Count("PutFile"), 2);
}

TEST_F(Upload, NoAllSkipsExistingFilesWithoutAsking)
{
    for (const char* name : { "a.png", "b.png", "new.png" })
        AddFile(pc_, QString::fromLatin1(name));
    StoreOnBothSides("a.png");
    StoreOnBothSides("b.png");
    ExpectNoAll(12734);
    Run();
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(fake_.Count("RemoveFile"), 0);
    EXPECT_EQ(ShownOf("value").last(), "value 3");
}

TEST_F(Upload, AnswersForAllDoNotCarryOverToNextJob)
{
    AddFile(pc_, "a.png");
    StoreOnBothSides("a.png");
    ExpectYesAll(12734);
    Run();
    EXPECT_FALSE(TheMessage().YesAll);
    ExpectNoAll(12734);
    Run();
    EXPECT_FALSE(TheMessage().NoAll);
    TheMessage().YesAll = true; // left by another job
    Answers().Expect(12734, No);
    Run();
    EXPECT_EQ(fake_.Count("PutFile"), 1);
}

TEST_F(Upload, ClassesWithOneListAskYesOrNoWithoutLookup)
{
    const int questions[] = { 12735, 0, 12736, 12737 };
    for (const FileClass fileClass : { FileClassAntennaList, FileClassMemoryList, FileClassSuppressList }) {
        ModFileInit(fileClass);
        pc_.Rows.clear();
        fake_.Log.clear();
        AddFile(pc_, "list");
        auto buttons = MsgButtons::Ok;
        Answers().ExpectWhile(
            questions[FileClassNumber(fileClass) - 1], Yes, [&buttons] { buttons = TheMessage().Buttons(); });
        Run();
        EXPECT_EQ(buttons, MsgButtons::YesNo);
        EXPECT_EQ(fake_.Log.size(), 1) << "neither find nor remove nor stamp";
        EXPECT_TRUE(fake_.Log.first().startsWith("Put")) << fileClass;
    }
}

TEST_F(Upload, SingleListIsKeptOnNo)
{
    ModFileInit(FileClassAntennaList);
    AddFile(pc_, "list");
    Answers().Expect(12735, { QStringLiteral("list") }, No);
    Run();
    EXPECT_TRUE(fake_.Log.isEmpty());
}

TEST_F(Upload, OtherClassesOfferButtonsForAll)
{
    StoreOnBothSides("list");
    for (const FileClass fileClass : { FileClassKfactorTable, FileClassScreenShot, FileClassCorrectionSet }) {
        ModFileInit(fileClass);
        pc_.Rows.clear();
        AddFile(pc_, "list");
        auto buttons = MsgButtons::Ok;
        Answers().ExpectWhile(12734, No, [&buttons] { buttons = TheMessage().Buttons(); });
        Run();
        EXPECT_EQ(buttons, MsgButtons::AllChoices);
    }
}

TEST_F(Upload, KfactorTableIsLookedUpReplacedAndGetsNoDate)
{
    ModFileInit(FileClassKfactorTable);
    AddFile(pc_, "t.tvk");
    StoreOnBothSides("t.tvk");
    Answers().Expect(12734, Yes);
    Run();
    EXPECT_EQ(fake_.Log,
        QStringList({ "FindInKfactorTableFiles t.tvk", "RemoveKfactorTableFile t.tvk",
            QStringLiteral("PutKfactorTableFile %1 t.tvk 15000").arg(Local("t.tvk")) }));
}

TEST_F(Upload, CorrectionSetHasLongerTimeoutUnderNewName)
{
    ModFileInit(FileClassCorrectionSet);
    AddFile(pc_, "new.tvc");
    AddFile(pc_, "old.tvc");
    StoreOnBothSides("old.tvc");
    Answers().Expect(12734, Yes);
    Run();
    EXPECT_EQ(fake_.Log,
        QStringList({ "FindInCorrectionSetFiles new.tvc",
            QStringLiteral("PutCorrectionSetFile %1 new.tvc 15000").arg(Local("new.tvc")),
            "FindInCorrectionSetFiles old.tvc", "RemoveCorrectionSetFile old.tvc",
            QStringLiteral("PutCorrectionSetFile %1 old.tvc 10000").arg(Local("old.tvc")) }));
}

TEST_F(Upload, OnlyScreenShotsAndUnknownClassesKeepDate)
{
    for (const FileClass fileClass : kClassesOfAllKinds) {
        ModFileInit(fileClass);
        pc_.Rows.clear();
        fake_.Log.clear();
        AddFile(pc_, "f");
        if (ModHasOneList(fileClass))
            Answers().Expect(QList<int>{ 12735, 0, 12736, 12737 }.at(FileClassNumber(fileClass) - 1), Yes);
        Run();
        EXPECT_EQ(fake_.Count("Send "), fileClass == FileClassScreenShot || fileClass == FileClassUnknown ? 2 : 0)
            << fileClass;
        EXPECT_EQ(fake_.Count("SendCommand"), 0);
    }
}

TEST_F(Upload, FailedRemovalOfOldFileSkipsFile)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    StoreOnBothSides("a.png");
    fake_.Answer("RemoveFile", ChannelStatus::Refused);
    Answers().Expect(12734, Yes);
    Answers().Expect(12746, { QStringLiteral("a.png") }, Ok);
    Run();
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 2" }));
}

TEST_F(Upload, UnreadableFileKeepsOldOneOnInstrument)
{
    AddFile(pc_, "gone.png");
    AddFile(pc_, "b.png");
    fake_.Exists["gone.png"] = { ChannelPresence::Exists, ChannelRowType::File };
    Answers().Expect(12704, Ok);
    Run();
    EXPECT_EQ(fake_.Count("Remove"), 0);
    EXPECT_EQ(fake_.Count("PutFile"), 1);
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 2" }));
}

TEST_F(Upload, RefusedFileIsReportedByNameAndJobContinues)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    fake_.Answer("PutFile", ChannelStatus::Refused);
    Answers().Expect(12723, { QStringLiteral("a.png") }, Ok);
    Run();
    EXPECT_EQ(fake_.Log,
        QStringList({ "FindFile a.png", PutFile("a.png"), "FindFile b.png", PutFile("b.png"), DateOf("b.png"),
            TimeOf("b.png") }));
}

TEST_F(Upload, FailureContinuesWhileLinkIsUp)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    fake_.Answer("PutFile", ChannelStatus::LocalFile);
    Answers().Expect(12704, Ok);
    Run();
    EXPECT_EQ(fake_.Count("CheckConnection"), 1);
    EXPECT_EQ(fake_.Count("PutFile"), 2);
    EXPECT_TRUE(fake_.Connected);
}

TEST_F(Upload, EventsAreProcessedBetweenFailureMessageAndLinkCheck)
{
    AddFile(pc_, "a.png");
    fake_.Answer("PutFile", ChannelStatus::LocalFile);
    qsizetype pumpsAtMessage = -1;
    qsizetype pumpsAtLook = -1;
    fake_.OnCall = [&](const QString& call) {
        if (call.startsWith("CheckConnection"))
            pumpsAtLook = ShownOf("pump").size();
    };
    Answers().ExpectWhile(12704, Ok, [&] { pumpsAtMessage = ShownOf("pump").size(); });
    Run();
    EXPECT_EQ(pumpsAtLook, pumpsAtMessage + 1);
}

TEST_F(Upload, LostLinkEndsJobAndDisconnects)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    fake_.Answer("PutFile", ChannelStatus::LinkFailed);
    fake_.Gone = true;
    Answers().Expect(12704, Ok);
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png", PutFile("a.png"), "CheckConnection", "Disconnect" }));
    EXPECT_FALSE(fake_.Connected);
    EXPECT_TRUE(ShownOf("value").isEmpty());
}

TEST_F(Upload, CancelCompletesCurrentFile)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    fake_.OnCall = [](const QString& call) {
        if (call.startsWith("PutFile"))
            Transfer().TransferCancel = true;
    };
    Run();
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png", PutFile("a.png"), DateOf("a.png"), TimeOf("a.png") }));
    EXPECT_EQ(Shown.last(), "pump");
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1" }));
}

TEST_F(Upload, JobUsesRowsItStartedWith)
{
    AddFile(pc_, "a.png");
    AddFile(pc_, "b.png");
    fake_.OnCall = [this](const QString&) { pc_.Rows.clear(); }; // as an event between files might
    Run();
    EXPECT_EQ(fake_.Count("PutFile"), 2);
    EXPECT_EQ(ShownOf("value"), QStringList({ "value 1", "value 2" }));
}

TEST_F(Upload, CancelDuringLastFileHasNoVisibleEffect)
{
    AddFile(pc_, "a.png");
    Run();
    const QStringList log = fake_.Log;
    const QStringList shown = Shown;
    fake_.Log.clear();
    Shown.clear();
    fake_.OnCall = [](const QString&) { Transfer().TransferCancel = true; };
    Run();
    EXPECT_EQ(fake_.Log, log);
    EXPECT_EQ(Shown, shown);
}

TEST_F(Upload, PresetAndLockedRowsAreLockedAfterDateIsSet)
{
    AddFile(pc_, "a.set").Icon = "PresetFile";
    AddFile(pc_, "b.set").Icon = "LockedFile";
    AddFile(pc_, "c.set").Icon = "RestrictedFile";
    Run();
    EXPECT_EQ(fake_.Log.filter("SYST:SET"),
        QStringList({ "SendCommand SYST:SET:LOCK \"a.set\"", "SendCommand SYST:SET:LOCK \"b.set\"" }));
    EXPECT_EQ(fake_.Log.indexOf(TimeOf("a.set")) + 1, fake_.Log.indexOf("SendCommand SYST:SET:LOCK \"a.set\""));
}

TEST_F(Upload, FailureToSetDateIsNotReported)
{
    AddFile(pc_, "a.png");
    fake_.Answer("Send", ChannelStatus::LinkFailed);
    fake_.Answer("Send", ChannelStatus::LinkFailed);
    Run();
    EXPECT_EQ(fake_.Count("Send"), 2);
}

TEST_F(Upload, RowWithoutDateSetsNone)
{
    AddFile(pc_, "a.png").SubItems = {};
    Run();
    EXPECT_EQ(fake_.Count("Send"), 0);
}

} // namespace tarvik
