// The file that a command line or a drop opens.
#include "tests/app/frame/startup_fixture.h"

#include <QDir>

#if defined(Q_OS_UNIX)
#include <sys/resource.h>
#endif

namespace tarvik {

namespace {

class StartFile : public Startup { };

} // namespace

TEST_F(StartFile, OpensBetweenBeginBusyAndEndBusy)
{
    Store(FilePath("a.tvm"), "x");
    bool idle = true;
    int pumps = 0;
    TheSeams().PumpEvents = [&] {
        EXPECT_TRUE(Program().Idle);
        ++pumps;
    };
    documents.OnOpen = [&idle](const QString&) { idle = Program().Idle; };
    EXPECT_TRUE(OpenStartFile(FilePath("a.tvm")));
    EXPECT_FALSE(idle);
    EXPECT_TRUE(Program().Idle);
    EXPECT_EQ(pumps, 1);
}

TEST_F(StartFile, LosesOnePairOfQuotesAndOuterBlanks)
{
    Store(FilePath("a b.tvm"), "x");
    EXPECT_TRUE(OpenStartFile(FilePath("a b.tvm")));
    EXPECT_TRUE(OpenStartFile(u'"' + FilePath("a b.tvm") + u'"'));
    EXPECT_TRUE(OpenStartFile(QStringLiteral("\"  ") + FilePath("a b.tvm") + QStringLiteral(" \"")));
    EXPECT_TRUE(OpenStartFile(QStringLiteral("  ") + FilePath("a b.tvm")));
    EXPECT_FALSE(OpenStartFile(QStringLiteral("\"\"") + FilePath("a b.tvm") + QStringLiteral("\"\"")));
    EXPECT_FALSE(OpenStartFile(u'"' + FilePath("a b.tvm")));
    EXPECT_FALSE(OpenStartFile(QStringLiteral(" \"") + FilePath("a b.tvm") + u'"'));
}

TEST_F(StartFile, IsRememberedByItsFullPath)
{
    Store(FilePath("a.tvm"), "x");
    QString opened;
    documents.OnOpen = [&opened](const QString& path) { opened = path; };
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(Folder()));
    const QString here = QDir::currentPath(); // without links
    EXPECT_TRUE(OpenStartFile(QStringLiteral("a.tvm")));
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(opened, here + "/a.tvm");
    EXPECT_EQ(Program().LastFile.Folder, QDir::toNativeSeparators(here + '/'));
    EXPECT_EQ(Program().LastFile.Path, here + "/a.tvm");
}

#if defined(Q_OS_UNIX)

TEST_F(StartFile, IsIgnoredSilentlyWhenUnreadable)
{
    Store(FilePath("a.tvm"), "x");
    EXPECT_TRUE(OpenStartFile(FilePath("a.tvm"))); // the sanitizer's first look at a file object needs a descriptor
    host.Log.clear();
    SetLastFile(FilePath("before.tvm"));
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{ 0, before.rlim_max }; // no file can be opened, not even by root
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const bool opened = OpenStartFile(FilePath("a.tvm"));
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(opened);
    EXPECT_TRUE(host.Log.isEmpty());
    EXPECT_EQ(Program().LastFile.Name, "before");
}

#endif

TEST_F(StartFile, LeavesTheLastFileUnchangedWhenMissing)
{
    SetLastFile(FilePath("before.tvm"));
    EXPECT_FALSE(OpenStartFile(FilePath("none.tvm")));
    EXPECT_EQ(Program().LastFile.Name, "before");
}

} // namespace tarvik
