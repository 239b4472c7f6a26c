#include "app/platform/NewFileDevice.h"

#include "tests/closed/failingfilesystem.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>

#include <cerrno>

namespace tarvik {

class NewFileDeviceTest : public ProgramTest {
protected:
    QStringList Names() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(NewFileDeviceTest, ReplacesTheFileWithAllThatWasWritten)
{
    const QByteArray large(1'000'000, 'x');
    Store(FilePath("a"), "old");
    NewFileDevice file(FilePath("a"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write("begin"), 5);
    EXPECT_EQ(file.write(large), large.size());
    EXPECT_TRUE(file.putChar('e'));
    EXPECT_EQ(Contents(FilePath("a")), "old");
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(Contents(FilePath("a")), "begin" + large + 'e');
    EXPECT_EQ(Names(), QStringList("a"));
}

TEST_F(NewFileDeviceTest, MayBeClosedBeforeItsCommit)
{
    NewFileDevice file(FilePath("a"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write("new"), 3);
    file.close();
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(Contents(FilePath("a")), "new");
}

TEST_F(NewFileDeviceTest, WithoutACommitLeavesOnlyTheOldFile)
{
    Store(FilePath("a"), "old");
    {
        NewFileDevice file(FilePath("a"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(QByteArray(1'000'000, 'x')), 1'000'000);
        EXPECT_EQ(Names().size(), 2);
    }
    EXPECT_EQ(Contents(FilePath("a")), "old");
    EXPECT_EQ(Names(), QStringList("a"));
}

TEST_F(NewFileDeviceTest, CommitsOnce)
{
    NewFileDevice file(FilePath("a"));
    EXPECT_FALSE(file.Commit()) << "not open";
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(Contents(FilePath("a")), "");
    EXPECT_FALSE(file.Commit());
    EXPECT_EQ(file.write("x"), -1);
    EXPECT_EQ(Contents(FilePath("a")), "");
}

TEST_F(NewFileDeviceTest, IsSequentialAndWriteOnly)
{
    NewFileDevice file(FilePath("a"));
    EXPECT_FALSE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(file.isSequential());
    EXPECT_FALSE(file.isReadable());
    file.close();
    EXPECT_FALSE(file.open(QIODevice::WriteOnly)) << "a second time";
}

TEST_F(NewFileDeviceTest, DoesNotOpenAnIrreplaceableFile)
{
    Store(FilePath("a"), "old");
    QFile::setPermissions(FilePath("a"), QFile::ReadOwner);
    for (const QString& path : { FilePath("a"), Folder(), FilePath("none/a"), QString() }) {
        NewFileDevice file(path);
        EXPECT_FALSE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        EXPECT_EQ(file.write("x"), -1);
        EXPECT_FALSE(file.Commit());
    }
    EXPECT_EQ(Contents(FilePath("a")), "old");
    EXPECT_EQ(Names(), QStringList("a"));
}

TEST_F(NewFileDeviceTest, DoesNotCommitAfterAFailedWrite)
{
    tvfile::FailingFileSystem disk;
    NewFileDevice file(FilePath("a"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    disk.BytesLeft = 1000;
    EXPECT_EQ(file.write(QByteArray(1'000'000, 'x')), -1);
    disk.BytesLeft = 1'000'000;
    EXPECT_EQ(file.write("y"), -1);
    EXPECT_FALSE(file.Commit());
    EXPECT_FALSE(QFile::exists(FilePath("a")));
}

} // namespace tarvik
