// Rename and new folder on the instrument.
#include "tests/link/files/file_list_fixture.h"
#include "tests/support/fakeChannel.h"

namespace tarvik {

namespace {

class InstrRename : public FileListTest {
protected:
    InstrRename()
    {
        ModFileInit(FileClassScreenShot);
    }

    bool Cancels(const QString& name)
    {
        QString newName = name;
        bool cancel = false;
        TransferRenameInstr(list_, 0, newName, cancel);
        EXPECT_EQ(newName, name.trimmed());
        return cancel;
    }

    void OneFile(const QString& name)
    {
        AddFile(name);
        fake_.Exists[name] = { ChannelPresence::Exists, ChannelRowType::File };
    }

    void OneFolder(const QString& name)
    {
        AddFolder(name);
        fake_.Exists[name] = { ChannelPresence::Exists, ChannelRowType::Folder };
    }

    FakeChannel fake_;
};

class NewInstrFolder : public FileListTest {
protected:
    void AddExisting(const QString& name)
    {
        fake_.Exists[name] = { ChannelPresence::Exists, ChannelRowType::Folder };
    }

    void AddExistingNumbers(int first, int last)
    {
        for (int number = first; number <= last; ++number)
            AddExisting(QStringLiteral("New Folder (%1)").arg(number));
    }

    FakeChannel fake_;
};

} // namespace

TEST_F(InstrRename, EmptyNameIsRefused)
{
    OneFile("a.png");
    Answers().Expect(12729, Ok);
    EXPECT_TRUE(Cancels(" "));
    EXPECT_TRUE(fake_.Log.isEmpty());
}

TEST_F(InstrRename, FailedLookupIsReportedAndKeepsLink)
{
    OneFile("a.png");
    fake_.Answer("FindFile", ChannelStatus::Refused);
    Answers().Expect(12704, Ok);
    EXPECT_TRUE(Cancels("b.png"));
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png", "CheckConnection" }));
    EXPECT_TRUE(fake_.Connected);
}

TEST_F(InstrRename, FailedLookupOnLostLinkDisconnects)
{
    OneFile("a.png");
    fake_.Answer("FindFile", ChannelStatus::LinkFailed);
    fake_.Gone = true;
    Answers().Expect(12704, Ok);
    EXPECT_TRUE(Cancels("b.png"));
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png", "CheckConnection", "Disconnect" }));
}

TEST_F(InstrRename, MissingFileIsCancelledWithoutMessage)
{
    AddFile("a.png");
    EXPECT_TRUE(Cancels("b.png"));
    fake_.Exists["a.png"] = { static_cast<ChannelPresence>(2), ChannelRowType::File };
    EXPECT_TRUE(Cancels("b.png"));
    EXPECT_EQ(fake_.Count("Rename"), 0);
}

TEST_F(InstrRename, FolderTakesTrimmedName)
{
    OneFolder("old");
    EXPECT_FALSE(Cancels(" new "));
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile old", "FindFile new", "Rename old new" }));
    ExpectRow("new", "Fnew");
}

TEST_F(InstrRename, FailedLookupOfNewFolderNameDoesNotCancel)
{
    OneFolder("old");
    fake_.Answer("FindFile", ChannelStatus::Success);
    fake_.Answer("FindFile", ChannelStatus::Refused);
    EXPECT_FALSE(Cancels("new"));
    EXPECT_EQ(fake_.Count("Rename"), 0);
    ExpectRow("old", "Fold");
}

TEST_F(InstrRename, FolderCannotTakeInvalidName)
{
    OneFolder("old");
    const QStringList names{ QStringLiteral("sub\\old"), QStringLiteral("sub/old"), QStringLiteral("C:old"),
        QStringLiteral("."), QStringLiteral(".."), QStringLiteral("\u03b1") };
    for (const QString& name : names) {
        Answers().Expect(12742, { QStringLiteral("old") }, Ok);
        EXPECT_TRUE(Cancels(name)) << name.toStdString();
    }
    EXPECT_EQ(fake_.Count("FindFile old"), names.size());
    EXPECT_EQ(fake_.Log.size(), names.size());
    ExpectRow("old", "Fold");
}

TEST_F(InstrRename, FolderCannotTakeNameInUse)
{
    OneFolder("old");
    fake_.Exists["new"] = { ChannelPresence::Exists, ChannelRowType::File };
    Answers().Expect(12730, { QStringLiteral("new") }, Ok);
    EXPECT_TRUE(Cancels("new"));
    fake_.Exists["new"] = { static_cast<ChannelPresence>(7), ChannelRowType::File };
    Answers().Expect(12730, { QStringLiteral("new") }, Ok);
    EXPECT_TRUE(Cancels("new"));
    EXPECT_EQ(fake_.Count("Rename"), 0);
}

TEST_F(InstrRename, RefusedFolderIsReportedByOldName)
{
    OneFolder("old");
    fake_.Answer("Rename", ChannelStatus::Refused);
    Answers().Expect(12742, { QStringLiteral("old") }, Ok);
    EXPECT_TRUE(Cancels("new"));
    ExpectRow("old", "Fold");
}

TEST_F(InstrRename, FileIsRenamedWithoutLookupOfNewName)
{
    OneFile("a.png");
    fake_.Exists["b.png"] = { ChannelPresence::Exists, ChannelRowType::File };
    EXPECT_FALSE(Cancels("b.png"));
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile a.png", "Rename a.png b.png" }));
}

TEST_F(InstrRename, RenamedFileHasKeyOfFolderUntilListIsReadAgain)
{
    OneFile("a.png");
    EXPECT_FALSE(Cancels("b.png"));
    ExpectRow("b.png", "Fb.png");
}

TEST_F(InstrRename, RefusedFileIsReported)
{
    OneFile("a.png");
    fake_.Answer("Rename", ChannelStatus::Refused);
    Answers().Expect(12743, { QStringLiteral("a.png") }, Ok);
    EXPECT_TRUE(Cancels("b.png"));
    ExpectRow("a.png", "a.png");
}

TEST_F(InstrRename, FilesOfOtherClassesAreNotRenamed)
{
    ModFileInit(FileClassUnknown);
    OneFile("a.png");
    Answers().Expect(12743, { QStringLiteral("a.png") }, Ok);
    EXPECT_TRUE(Cancels("b.png"));
    EXPECT_EQ(fake_.Count("Rename"), 0);
}

TEST_F(InstrRename, OtherRowTypeDoesNotCancel)
{
    AddFile("a.png");
    fake_.Exists["a.png"] = { ChannelPresence::Exists, static_cast<ChannelRowType>(2) };
    EXPECT_FALSE(Cancels("b.png"));
    EXPECT_EQ(fake_.Count("Rename"), 0);
    ExpectRow("a.png", "a.png");
}

TEST_F(NewInstrFolder, IsCreatedSelectedAndEdited)
{
    AddFile("a.png");
    Row(0).Selected = true;
    TransferNewFolderInstr(list_);
    EXPECT_EQ(fake_.Log, QStringList({ "FindFile New Folder", "CreateDirectory New Folder" }));
    ASSERT_EQ(list_.Rows.size(), 2U);
    EXPECT_EQ(Row(1).Key, "FNew Folder");
    EXPECT_FALSE(Row(0).Selected);
    EXPECT_TRUE(Row(1).Selected);
    EXPECT_EQ(Log, QStringList({ "focus", "edit 1" }));
}

TEST_F(NewInstrFolder, NumberStartsAtTwo)
{
    AddExisting("New Folder");
    TransferNewFolderInstr(list_);
    EXPECT_EQ(fake_.Log.last(), "CreateDirectory New Folder (2)");
    EXPECT_EQ(Row(0).Text, "New Folder (2)");
}

TEST_F(NewInstrFolder, NumberEndsAtOneHundred)
{
    AddExisting("New Folder");
    AddExistingNumbers(2, 120);
    fake_.Answer("CreateDirectory", ChannelStatus::Refused);
    Answers().Expect(12740, Ok);
    TransferNewFolderInstr(list_);
    EXPECT_EQ(fake_.Count("FindFile"), 100);
    EXPECT_EQ(fake_.Log.last(), "CreateDirectory New Folder (100)");
    EXPECT_TRUE(list_.Rows.empty());
}

TEST_F(NewInstrFolder, UnknownPresenceEndsSearch)
{
    fake_.Exists["New Folder"] = { static_cast<ChannelPresence>(2), ChannelRowType::Folder };
    TransferNewFolderInstr(list_);
    EXPECT_EQ(fake_.Log.last(), "CreateDirectory New Folder");
}

TEST_F(NewInstrFolder, FailedLookupIsReportedAndNothingIsCreated)
{
    fake_.Answer("FindFile", ChannelStatus::Refused);
    Answers().Expect(12740, Ok);
    TransferNewFolderInstr(list_);
    EXPECT_EQ(fake_.Count("CreateDirectory"), 0);
    EXPECT_TRUE(list_.Rows.empty());
    EXPECT_TRUE(Log.isEmpty());
}

TEST_F(NewInstrFolder, FailedLinkEndsSearch)
{
    AddExisting("New Folder");
    AddExistingNumbers(2, 120);
    fake_.Answer("FindFile", ChannelStatus::Success);
    fake_.Answer("FindFile", ChannelStatus::LinkFailed);
    Answers().Expect(12740, Ok);
    TransferNewFolderInstr(list_);
    EXPECT_EQ(fake_.Count("FindFile"), 2);
    EXPECT_EQ(fake_.Count("CreateDirectory"), 0);
}

TEST_F(NewInstrFolder, RefusedFolderIsReported)
{
    fake_.Answer("CreateDirectory", ChannelStatus::Refused);
    Answers().Expect(12740, Ok);
    TransferNewFolderInstr(list_);
    EXPECT_TRUE(list_.Rows.empty());
}

TEST_F(NewInstrFolder, IsShownForAnyClass)
{
    TransferNewFolderInstr(list_); // memory lists have no folders in their list
    EXPECT_EQ(list_.Rows.size(), 1U);
}

} // namespace tarvik
