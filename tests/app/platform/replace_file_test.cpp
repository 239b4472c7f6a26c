#include "app/platform/replaceFile.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFileInfo>

#if defined(Q_OS_UNIX)
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace tarvik {

class ReplaceFileTest : public ProgramTest {
protected:
    QStringList Names() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(ReplaceFileTest, CreatesAFileWithTheUsualPermissions)
{
    QFile plain(FilePath("plain"));
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    plain.close();
    ASSERT_TRUE(ReplaceFile(FilePath("a"), "text"));
    EXPECT_EQ(Contents(FilePath("a")), "text");
    EXPECT_EQ(QFile::permissions(FilePath("a")), QFile::permissions(FilePath("plain")));
    EXPECT_EQ(Names(), QStringList({ "a", "plain" }));
}

TEST_F(ReplaceFileTest, KeepsThePermissionsOfTheOldFile)
{
    Store(FilePath("a"), "old");
    QFile::setPermissions(FilePath("a"), QFile::ReadOwner | QFile::WriteOwner);
    const QFile::Permissions before = QFile::permissions(FilePath("a"));
    ASSERT_TRUE(ReplaceFile(FilePath("a"), "new"));
    EXPECT_EQ(Contents(FilePath("a")), "new");
    EXPECT_EQ(QFile::permissions(FilePath("a")), before);
}

TEST_F(ReplaceFileTest, RefusesAReadOnlyFile)
{
    Store(FilePath("a"), "old");
    QFile::setPermissions(FilePath("a"), QFile::ReadOwner);
    EXPECT_FALSE(ReplaceFile(FilePath("a"), "new"));
    EXPECT_EQ(Contents(FilePath("a")), "old");
    EXPECT_EQ(Names(), QStringList("a"));
}

TEST_F(ReplaceFileTest, RefusesAFolderAndAMissingFolder)
{
    EXPECT_FALSE(ReplaceFile(Folder(), "x"));
    EXPECT_FALSE(ReplaceFile(FilePath("none/a"), "x"));
    EXPECT_TRUE(Names().isEmpty());
}

TEST_F(ReplaceFileTest, FollowsALink)
{
    Store(FilePath("target"), "old");
    ASSERT_TRUE(QFile::link(FilePath("target"), FilePath("link")));
    ASSERT_TRUE(ReplaceFile(FilePath("link"), "new"));
    EXPECT_TRUE(QFileInfo(FilePath("link")).isSymLink());
    EXPECT_EQ(Contents(FilePath("target")), "new");
}

TEST_F(ReplaceFileTest, CreatesTheTargetOfALink)
{
    ASSERT_TRUE(QFile::link(FilePath("target"), FilePath("link")));
    EXPECT_TRUE(CanReplaceFile(FilePath("link")));
    ASSERT_TRUE(ReplaceFile(FilePath("link"), "new"));
    EXPECT_TRUE(QFileInfo(FilePath("link")).isSymLink());
    EXPECT_EQ(Contents(FilePath("target")), "new");
}

TEST_F(ReplaceFileTest, RefusesAnEmptyPath)
{
    EXPECT_FALSE(CanReplaceFile({}));
    EXPECT_FALSE(ReplaceFile({}, "new"));
}

TEST_F(ReplaceFileTest, RemovesLeftOversOfAKilledWriterAboveALinkedFolder)
{
    ASSERT_TRUE(QDir(Folder()).mkpath("other/place"));
    ASSERT_TRUE(QFile::link(FilePath("other/place"), FilePath("here")));
    Store(FilePath("other/.a.tvnew"), "half");
    ASSERT_TRUE(ReplaceFile(FilePath("here/../a"), "new"));
    EXPECT_EQ(QDir(FilePath("other")).entryList(QDir::Files | QDir::Hidden), QStringList("a"));
}

TEST_F(ReplaceFileTest, RemovesLeftOversOfAKilledWriter)
{
    Store(FilePath(".a.tvnew"), "half");
    const QStringList others{ ".a.movie.tvnew", ".a.tvnew.2", ".ab.tvnew", "a.txt" };
    for (const QString& name : others)
        Store(FilePath(name), "of the user");
    ASSERT_TRUE(ReplaceFile(FilePath("a"), "x"));
    EXPECT_EQ(Names(), QStringList(others.mid(0, 3)) + QStringList({ "a", "a.txt" }));
}

TEST_F(ReplaceFileTest, WritesAnEmptyFile)
{
    ASSERT_TRUE(ReplaceFile(FilePath("a"), {}));
    EXPECT_EQ(QFileInfo(FilePath("a")).size(), 0);
}

TEST_F(ReplaceFileTest, AcceptsTheLongestNames)
{
    const QString ascii(251, u'n');
    const QString greek(125, QChar(0x03B1));
    for (const QString& name : { ascii + ".wmf", greek + ".wmf" }) {
        EXPECT_TRUE(CanReplaceFile(FilePath(name)));
        EXPECT_TRUE(ReplaceFile(FilePath(name), "text"));
        EXPECT_EQ(Contents(FilePath(name)), "text");
    }
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(ReplaceFileTest, TrialLeavesTheFolderUnchanged)
{
    Store(FilePath("a.png"), "old");
    EXPECT_TRUE(CanReplaceFile(FilePath("a.png")));
    EXPECT_TRUE(CanReplaceFile(FilePath("b.png")));
    EXPECT_EQ(Contents(FilePath("a.png")), "old");
    EXPECT_EQ(Names(), QStringList("a.png"));
}

TEST_F(ReplaceFileTest, TrialFailsForFolderReadOnlyFileAndMissingFolder)
{
    ASSERT_TRUE(QDir(Folder()).mkdir("a.png"));
    EXPECT_FALSE(CanReplaceFile(FilePath("a.png")));
    Store(FilePath("b.png"), "old");
    QFile::setPermissions(FilePath("b.png"), QFile::ReadOwner);
    EXPECT_FALSE(CanReplaceFile(FilePath("b.png")));
    EXPECT_EQ(Contents(FilePath("b.png")), "old");
    EXPECT_FALSE(CanReplaceFile(FilePath("none/c.png")));
}

#if defined(Q_OS_UNIX)

namespace {

/// Limits files to `bytes` during its lifetime, as a full disk does.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
        : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{ bytes, before_.rlim_max };
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*handler_)(int);
    rlimit before_{};
};

} // namespace

TEST_F(ReplaceFileTest, RefusesAPipe)
{
    ASSERT_EQ(mkfifo(qPrintable(FilePath("pipe")), 0600), 0);
    EXPECT_FALSE(CanReplaceFile(FilePath("pipe")));
    EXPECT_FALSE(ReplaceFile(FilePath("pipe"), "new"));
    EXPECT_EQ(QDir(Folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
        QStringList("pipe"));
}

TEST_F(ReplaceFileTest, LeavesOnlyTheOldFileOnAFullDisk)
{
    Store(FilePath("a"), "old");
    for (const qsizetype size : { 1000, 100000 }) { // below and above the size of the buffer
        const FullDisk disk(500);
        EXPECT_FALSE(ReplaceFile(FilePath("a"), QByteArray(size, 'x'))) << size;
    }
    EXPECT_EQ(Contents(FilePath("a")), "old");
    EXPECT_EQ(Names(), QStringList("a"));
}

TEST_F(ReplaceFileTest, TrialFailsOnAFullDisk)
{
    Store(FilePath("a"), "old");
    const FullDisk disk(0);
    EXPECT_FALSE(CanReplaceFile(FilePath("a")));
    EXPECT_FALSE(CanReplaceFile(FilePath("b")));
    EXPECT_EQ(Names(), QStringList("a"));
}

#endif

} // namespace tarvik
