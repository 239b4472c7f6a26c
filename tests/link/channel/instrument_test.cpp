// The channel against the simulated receiver, over a real connection.
#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "tests/support/fixture.h"
#include "tests/support/instrumentProcess.h"

namespace tarvik {

namespace {

class ChannelToInstrument : public ProgramTest {
protected:
    ~ChannelToInstrument() override
    {
        ChannelDisconnect();
    }

    void Connect(const QStringList& arguments = {})
    {
        instrument_ = std::make_unique<InstrumentProcess>(
            arguments + QStringList{ QStringLiteral("--port"), QString::fromLatin1(kFourDigitPorts) });
        EXPECT_EQ(
            ChannelConnect(QStringLiteral("127.0.0.1"), instrument_->Port(), identification_), ChannelStatus::Success);
    }

    /// Names of a walk, folders followed by "|".
    static QStringList Walk(FileClass fileClass)
    {
        QStringList names;
        bool nothing = false;
        EXPECT_EQ(ChannelStartFind(fileClass, nothing), ChannelStatus::Success);
        ChannelRow row;
        while (!nothing && !row.Last && ChannelNextFile(row) == ChannelStatus::Success)
            names << (row.Type == ChannelRowType::Folder ? row.Name + u'|' : row.Name);
        return names;
    }

    static ChannelPresence Found(FileClass fileClass, const QString& name)
    {
        ChannelFound found;
        EXPECT_EQ(ChannelFind(fileClass, name, found), ChannelStatus::Success);
        return found.Result;
    }

    std::unique_ptr<InstrumentProcess> instrument_;
    QString identification_;
};

const QString kScreenShots = QStringLiteral("\\Public\\Screen Shots");

} // namespace

TEST_F(ChannelToInstrument, Connects)
{
    Connect();
    EXPECT_EQ(identification_, QLatin1String("TARVIK,TR-200DF,100042,4.30"));
    EXPECT_TRUE(ChannelIsUp());
    EXPECT_EQ(instrument_->Stop(), 0);
}

TEST_F(ChannelToInstrument, WalksFoldersAndFamilies)
{
    Connect();
    EXPECT_EQ(Walk(FileClassMemoryList), QStringList{ QStringLiteral("Marine-VHF.tvm") });
    EXPECT_EQ(Walk(FileClassKfactorTable).size(), 3);
    ASSERT_EQ(ChannelSetDirectory(kScreenShots), ChannelStatus::Success);
    QString path;
    ASSERT_EQ(ChannelGetDirectory(path), ChannelStatus::Success);
    EXPECT_EQ(path, kScreenShots);
    EXPECT_EQ(Walk(FileClassScreenShot),
        (QStringList{ QStringLiteral("Channel 16.png"), QStringLiteral("Harbour survey|"),
            QStringLiteral("Navigation safety.png") }));
    EXPECT_EQ(ChannelSetDirectory(QStringLiteral("\\None")), ChannelStatus::Refused);
    EXPECT_TRUE(ChannelIsUp());
}

TEST_F(ChannelToInstrument, TransfersFilesBothWays)
{
    Connect();
    const QString local = FilePath(QStringLiteral("list"));
    ASSERT_EQ(ChannelGet(FileClassMemoryList, QStringLiteral("Marine-VHF.tvm"), local), ChannelStatus::Success);
    const QByteArray list = Contents(local);
    EXPECT_EQ(list, Contents(instrument_->Path(QStringLiteral("Public/Memory List/Marine-VHF.tvm"))));
    const QString name = QStringLiteral("März, \"7\".tvm");
    ASSERT_EQ(ChannelPut(FileClassMemoryList, local, name, false), ChannelStatus::Success);
    EXPECT_EQ(Walk(FileClassMemoryList), QStringList{ name });
    EXPECT_EQ(Contents(instrument_->Path(QStringLiteral("Public/Memory List/") + name)), list);
    ASSERT_EQ(ChannelPutActive(local), ChannelStatus::Success);
    ASSERT_EQ(ChannelGetActive(FilePath(QStringLiteral("active"))), ChannelStatus::Success);
    EXPECT_EQ(Contents(FilePath(QStringLiteral("active"))), list);
}

TEST_F(ChannelToInstrument, CreatesRenamesFindsAndRemoves)
{
    Connect();
    ASSERT_EQ(ChannelSetDirectory(kScreenShots), ChannelStatus::Success);
    EXPECT_EQ(ChannelCreateDirectory(QStringLiteral("new")), ChannelStatus::Success);
    EXPECT_EQ(ChannelCreateDirectory(QStringLiteral("new")), ChannelStatus::Refused);
    EXPECT_EQ(ChannelRename(QStringLiteral("new"), QStringLiteral("newer")), ChannelStatus::Success);
    EXPECT_EQ(Found(FileClassScreenShot, QStringLiteral("newer")), ChannelPresence::Exists);
    EXPECT_EQ(ChannelRemoveDirectory(QStringLiteral("newer")), ChannelStatus::Success);
    EXPECT_EQ(Found(FileClassScreenShot, QStringLiteral("newer")), ChannelPresence::Missing);
    EXPECT_EQ(ChannelRemove(FileClassScreenShot, QStringLiteral("Channel 16.png")), ChannelStatus::Success);
    EXPECT_EQ(ChannelRemove(FileClassScreenShot, QStringLiteral("Channel 16.png")), ChannelStatus::Refused);
    EXPECT_TRUE(ChannelIsUp());
}

TEST_F(ChannelToInstrument, UnreadRefusalDoesNotFailNextCommand)
{
    Connect();
    ASSERT_EQ(ChannelSetDirectory(kScreenShots), ChannelStatus::Success);
    ChannelSend(QStringLiteral("MMEM:FILE:DATE \"none\", 2025, 1, 2"));
    ChannelSendCommand(QStringLiteral("SYST:SET:LOCK \"none\""));
    EXPECT_EQ(ChannelCreateDirectory(QStringLiteral("new")), ChannelStatus::Success);
}

TEST_F(ChannelToInstrument, LockedFileIsNotRemoved)
{
    Connect();
    ASSERT_EQ(ChannelSetDirectory(kScreenShots), ChannelStatus::Success);
    ChannelSendCommand(QStringLiteral("SYST:SET:LOCK \"Channel 16.png\""));
    EXPECT_EQ(ChannelRemove(FileClassScreenShot, QStringLiteral("Channel 16.png")), ChannelStatus::Refused);
    ChannelSendCommand(QStringLiteral("SYST:SET:UNLOCK \"Channel 16.png\""));
    EXPECT_EQ(ChannelRemove(FileClassScreenShot, QStringLiteral("Channel 16.png")), ChannelStatus::Success);
}

TEST_F(ChannelToInstrument, FetchesTheDisplay)
{
    Connect();
    const QString local = FilePath(QStringLiteral("screen.png"));
    ASSERT_EQ(ChannelSend(QStringLiteral("DISP:WIND:FETC?")), ChannelStatus::Success);
    ASSERT_EQ(ChannelGetStream(local), ChannelStatus::Success);
    EXPECT_TRUE(Contents(local).startsWith("\x89PNG"));
}

TEST_F(ChannelToInstrument, DetectsInstrumentSwitchedOff)
{
    Connect();
    instrument_->Kill();
    const QString local = FilePath(QStringLiteral("list"));
    Store(local, "old");
    EXPECT_EQ(ChannelGet(FileClassMemoryList, QStringLiteral("Marine-VHF.tvm"), local), ChannelStatus::LinkFailed);
    EXPECT_TRUE(ChannelDisconnectIfLost());
    EXPECT_EQ(Contents(local), "old");
}

TEST_F(ChannelToInstrument, DetectsFaults)
{
    const QString local = FilePath(QStringLiteral("list"));
    Store(local, "old");
    for (const char* kind : { "drop=3", "garbage=3", "refuse=3" }) {
        // The third command, after *IDN? and *CLS.
        Connect({ QStringLiteral("--fault"), QString::fromLatin1(kind) });
        const ChannelStatus expected = kind[0] == 'r' ? ChannelStatus::Refused : ChannelStatus::LinkFailed;
        EXPECT_EQ(ChannelGet(FileClassMemoryList, QStringLiteral("Marine-VHF.tvm"), local), expected) << kind;
        EXPECT_EQ(ChannelDisconnectIfLost(), kind[0] != 'r') << kind;
        EXPECT_EQ(Contents(local), "old") << kind;
        ChannelDisconnect();
    }
}

} // namespace tarvik
