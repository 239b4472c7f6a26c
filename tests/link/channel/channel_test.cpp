// The channel in the program's types: operation, argument order and time-out of each file class.
#include "link/channel/channel.h"

#include "link/classes/model.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class ChannelCalls : public ProgramTest {
protected:
    FakeChannel fake_;

    QString Local() const
    {
        return FilePath(QStringLiteral("a.tvx"));
    }
};

struct ClassRow {
    FileClass Class;
    const char* Noun; ///< in the names of the operations
    int TimeoutMs;
    int ReplaceTimeoutMs;
};

constexpr ClassRow kClassRows[] = {
    { FileClassAntennaList, "AntennaList", 15000, 15000 },
    { FileClassKfactorTable, "KfactorTable", 15000, 15000 },
    { FileClassMemoryList, "MemoryList", 15000, 15000 },
    { FileClassSuppressList, "SuppressList", 15000, 15000 },
    { FileClassScreenShot, "", 10000, 10000 },
    { FileClassCorrectionSet, "CorrectionSet", 15000, 10000 },
    { FileClassUnknown, "", 10000, 10000 },
};

} // namespace

TEST_F(ChannelCalls, GetAndPutUseOperationAndTimeoutOfClass)
{
    for (const ClassRow& row : kClassRows) {
        fake_.Log.clear();
        EXPECT_EQ(ChannelGet(row.Class, QStringLiteral("r"), Local()), ChannelStatus::Success);
        EXPECT_EQ(ChannelPut(row.Class, Local(), QStringLiteral("r"), true), ChannelStatus::Success);
        EXPECT_EQ(ChannelPut(row.Class, Local(), QStringLiteral("r"), false), ChannelStatus::Success);
        const QString noun = QString::fromLatin1(row.Noun);
        EXPECT_EQ(fake_.Log,
            QStringList({ QStringLiteral("Get%1File r %2 %3").arg(noun, Local()).arg(row.TimeoutMs),
                QStringLiteral("Put%1File %2 r %3").arg(noun, Local()).arg(row.ReplaceTimeoutMs),
                QStringLiteral("Put%1File %2 r %3").arg(noun, Local()).arg(row.TimeoutMs) }));
    }
}

TEST_F(ChannelCalls, WalkUsesStartOperationOfClass)
{
    for (const ClassRow& row : kClassRows) {
        fake_.Log.clear();
        bool nothing = false;
        EXPECT_EQ(ChannelStartFind(row.Class, nothing), ChannelStatus::Success);
        EXPECT_TRUE(nothing);
        const QString noun = *row.Noun != '\0' ? QString::fromLatin1(row.Noun) : QStringLiteral("All");
        EXPECT_EQ(fake_.Log, QStringList(QStringLiteral("StartFind%1Files").arg(noun)));
    }
}

TEST_F(ChannelCalls, WalkReturnsRowsUpToLast)
{
    fake_.Rows = { { QStringLiteral("Müller \"1\".png"), ChannelRowType::File, false, 2026, 11, 21, 6, 5, 4 },
        { QStringLiteral("Old"), ChannelRowType::Folder, false, 1999, 1, 2, 0, 0, 0 } };
    bool nothing = true;
    ASSERT_EQ(ChannelStartFind(FileClassScreenShot, nothing), ChannelStatus::Success);
    EXPECT_FALSE(nothing);
    ChannelRow row;
    ASSERT_EQ(ChannelNextFile(row), ChannelStatus::Success);
    EXPECT_EQ(row.Name, QStringLiteral("Müller \"1\".png"));
    EXPECT_FALSE(row.Last);
    EXPECT_EQ(row.Second, 4);
    ASSERT_EQ(ChannelNextFile(row), ChannelStatus::Success);
    EXPECT_EQ(row.Type, ChannelRowType::Folder);
    EXPECT_TRUE(row.Last);
}

TEST_F(ChannelCalls, RemoveAndFindUseOperationsOfFamiliesWithOwnFolder)
{
    fake_.Exists[QStringLiteral("n")] = { ChannelPresence::Exists, ChannelRowType::Folder };
    const std::pair<FileClass, const char*> rows[] = { { FileClassKfactorTable, "KfactorTable" },
        { FileClassCorrectionSet, "CorrectionSet" }, { FileClassScreenShot, "" }, { FileClassUnknown, "" } };
    for (const auto& [fileClass, noun] : rows) {
        fake_.Log.clear();
        ChannelFound found;
        EXPECT_EQ(ChannelRemove(fileClass, QStringLiteral("n")), ChannelStatus::Success);
        EXPECT_EQ(ChannelFind(fileClass, QStringLiteral("n"), found), ChannelStatus::Success);
        EXPECT_EQ(found.Result, ChannelPresence::Exists);
        EXPECT_EQ(found.Type, ChannelRowType::Folder);
        const QString find =
            *noun != '\0' ? QStringLiteral("FindIn%1Files n").arg(QLatin1String(noun)) : QStringLiteral("FindFile n");
        EXPECT_EQ(fake_.Log, QStringList({ QStringLiteral("Remove%1File n").arg(QLatin1String(noun)), find }));
    }
}

TEST_F(ChannelCalls, NameOutsideWindows1252IsNeverSent)
{
    const QString name = QStringLiteral("частота.tvm");
    ChannelFound found;
    EXPECT_EQ(ChannelGet(FileClassMemoryList, name, Local()), ChannelStatus::Refused);
    EXPECT_EQ(ChannelPut(FileClassMemoryList, Local(), name, false), ChannelStatus::Refused);
    EXPECT_EQ(ChannelRemove(FileClassScreenShot, name), ChannelStatus::Refused);
    EXPECT_EQ(ChannelFind(FileClassScreenShot, name, found), ChannelStatus::Refused);
    EXPECT_EQ(ChannelRename(QStringLiteral("a"), name), ChannelStatus::Refused);
    EXPECT_EQ(ChannelCreateDirectory(name), ChannelStatus::Refused);
    EXPECT_EQ(ChannelSetDirectory(name), ChannelStatus::Refused);
    EXPECT_TRUE(fake_.Log.isEmpty());
}

TEST_F(ChannelCalls, ConnectPassesModeAddressPortAndTimeout)
{
    QString identification;
    EXPECT_EQ(ChannelConnect(QStringLiteral("172.17.75.1"), 5555, identification), ChannelStatus::Success);
    EXPECT_EQ(identification, fake_.Identification);
    EXPECT_EQ(fake_.Log, QStringList(QStringLiteral("Connect 1 172.17.75.1 5555 5000")));
    EXPECT_TRUE(ChannelIsUp());
}

TEST_F(ChannelCalls, OnlyLostLinkIsDisconnected)
{
    EXPECT_FALSE(ChannelDisconnectIfLost());
    EXPECT_TRUE(ChannelIsUp());
    fake_.Gone = true;
    EXPECT_TRUE(ChannelDisconnectIfLost());
    EXPECT_FALSE(ChannelIsUp());
    EXPECT_EQ(fake_.Log,
        QStringList(
            { QStringLiteral("CheckConnection"), QStringLiteral("CheckConnection"), QStringLiteral("Disconnect") }));
}

TEST_F(ChannelCalls, ActiveDataSetAndStreamHaveOwnTimeouts)
{
    EXPECT_EQ(ChannelGetActive(Local()), ChannelStatus::Success);
    EXPECT_EQ(ChannelPutActive(Local()), ChannelStatus::Success);
    EXPECT_EQ(ChannelGetStream(Local()), ChannelStatus::Success);
    EXPECT_EQ(fake_.Log,
        QStringList({ QStringLiteral("GetActiveDatasetFile %1 15000").arg(Local()),
            QStringLiteral("PutActiveDatasetFile %1 100000").arg(Local()),
            QStringLiteral("GetFileFromStream %1 5000").arg(Local()) }));
}

TEST_F(ChannelCalls, StatusOfChannelIsReturned)
{
    fake_.Answer(QStringLiteral("GetFile"), ChannelStatus::LocalFile);
    EXPECT_EQ(ChannelGet(FileClassScreenShot, QStringLiteral("r"), Local()), ChannelStatus::LocalFile);
    EXPECT_FALSE(QFile::exists(Local()));
}

TEST(ChannelWords, StatusOutsideRangeIsUnknown)
{
    EXPECT_EQ(ChannelStatusOf(0), ChannelStatus::Success);
    EXPECT_EQ(ChannelStatusOf(1), ChannelStatus::LinkFailed);
    EXPECT_EQ(ChannelStatusOf(2), ChannelStatus::Refused);
    EXPECT_EQ(ChannelStatusOf(3), ChannelStatus::LocalFile);
    for (const int word : { -32768, -2, -1, 4, 5, 32767 })
        EXPECT_EQ(ChannelStatusOf(static_cast<qint16>(word)), ChannelStatus::Unknown) << word;
}

TEST(ChannelWords, RowTypeOutsideRangeIsOther)
{
    EXPECT_EQ(ChannelRowTypeOf(0), ChannelRowType::File);
    EXPECT_EQ(ChannelRowTypeOf(1), ChannelRowType::Folder);
    for (const int word : { -32768, -1, 2, 32767 })
        EXPECT_EQ(ChannelRowTypeOf(static_cast<qint16>(word)), ChannelRowType::Other) << word;
}

TEST(ChannelWords, PresenceOutsideRangeIsUnknown)
{
    EXPECT_EQ(ChannelPresenceOf(0), ChannelPresence::Missing);
    EXPECT_EQ(ChannelPresenceOf(1), ChannelPresence::Exists);
    for (const int word : { -32768, -1, 2, 7, 32767 })
        EXPECT_EQ(ChannelPresenceOf(static_cast<qint16>(word)), ChannelPresence::Unknown) << word;
}

TEST_F(ChannelCalls, UndefinedStatusWordIsUnknown)
{
    fake_.Answer(QStringLiteral("GetFile"), static_cast<ChannelStatus>(9));
    EXPECT_EQ(ChannelGet(FileClassScreenShot, QStringLiteral("r"), Local()), ChannelStatus::Unknown);
}

} // namespace tarvik
