// Dates and locks of copied files.
#include "link/transfer/fileDates.h"

#include "tests/link/transfer/transfer_fixture.h"

#include <QFile>
#include <QFileInfo>

#include <ctime>

namespace tarvik {

namespace {

using PcFileDates = TransferTest;
using InstrFileDates = TransferTest;

/// The time zone of the process, put back at the end.
class TimeZone {
public:
    explicit TimeZone(const char* zone)
        : before_(qgetenv("TZ"))
        , wasSet_(qEnvironmentVariableIsSet("TZ"))
    {
        qputenv("TZ", zone);
        ::tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone()
    {
        if (wasSet_)
            qputenv("TZ", before_);
        else
            qunsetenv("TZ");
        ::tzset();
    }

private:
    QByteArray before_;
    bool wasSet_;
};

const QDateTime kChanged(QDate(2025, 4, 5), QTime(6, 7, 8));

} // namespace

TEST_F(PcFileDates, TimeOfLastAccessIsKept)
{
    StoreLocal("a.png");
    const QDateTime access(QDate(2020, 1, 2), QTime(3, 4, 5));
    QFile file(FilePath("a.png"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(access, QFileDevice::FileAccessTime));
    file.close();
    FileSetPcDate(FilePath("a.png"), kChanged, false);
    EXPECT_EQ(QFileInfo(FilePath("a.png")).lastRead(), access);
    EXPECT_EQ(QFileInfo(FilePath("a.png")).lastModified(), kChanged);
}

TEST_F(PcFileDates, MissingFileIsNotCreated)
{
    FileSetPcDate(FilePath("gone.png"), kChanged, true);
    EXPECT_FALSE(Exists("gone.png"));
}

TEST_F(PcFileDates, SkippedHourIsStamped)
{
    const TimeZone berlin("CET-1CEST,M3.5.0/2,M10.5.0/3");
    StoreLocal("a.png");
    FileListRow& row = AddFile(instr_, "a.png");
    row.SubItems = { "31/03/24", "02:30:00", {} };
    FileSetPcDate(FilePath("a.png"), TransferRowDate(row), false);
    EXPECT_EQ(
        QFileInfo(FilePath("a.png")).lastModified().toUTC(), QDateTime(QDate(2024, 3, 31), QTime(1, 30), Qt::UTC));
}

TEST_F(InstrFileDates, LocksAndUnlocks)
{
    TransferSetLock("a.set", true);
    TransferSetLock("a.set", false);
    EXPECT_EQ(
        fake_.Log, QStringList({ "SendCommand SYST:SET:LOCK \"a.set\"", "SendCommand SYST:SET:UNLOCK \"a.set\"" }));
}

TEST_F(InstrFileDates, QuoteInNameIsDoubled)
{
    FileSetInstrDate("a\"b.png", QDateTime(QDate(2025, 12, 31), QTime(23, 59, 58)), true);
    EXPECT_EQ(fake_.Log,
        QStringList({ "Send MMEM:FILE:DATE \"a\"\"b.png\", 2025, 12, 31",
            "Send MMEM:FILE:TIME \"a\"\"b.png\", 23, 59, 58", "SendCommand SYST:SET:LOCK \"a\"\"b.png\"" }));
}

TEST_F(InstrFileDates, PercentInNameIsNoPlaceholder)
{
    FileSetInstrDate("a%1b%3.png", QDateTime(QDate(2025, 12, 31), QTime(23, 59, 58)), false);
    EXPECT_EQ(fake_.Log,
        QStringList(
            { "Send MMEM:FILE:DATE \"a%1b%3.png\", 2025, 12, 31", "Send MMEM:FILE:TIME \"a%1b%3.png\", 23, 59, 58" }));
}

} // namespace tarvik
