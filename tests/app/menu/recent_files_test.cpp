// The list of recent files, and what opening one does.
#include "app/menu/recentFiles.h"

#include "app/state/dialogStack.h"
#include "app/state/project.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeFrameDocuments.h"
#include "tests/support/fixture.h"

#include <QDir>

namespace tarvik {

namespace {

class RecentFilesTest : public ProgramTest {
protected:
    FakeFrameDocuments documents_;
};

} // namespace

TEST_F(RecentFilesTest, NewestIsFirst)
{
    EXPECT_TRUE(RecentFiles().isEmpty());
    RecentFileAdd("/a.png");
    RecentFileAdd("/b.tvm");
    EXPECT_EQ(RecentFiles(), QStringList({ "/b.tvm", "/a.png" }));
}

TEST_F(RecentFilesTest, NinthIsKeptAndTenthGivesWay)
{
    for (int number = 1; number <= 9; ++number)
        RecentFileAdd(QStringLiteral("/%1.png").arg(number));
    EXPECT_EQ(RecentFiles().size(), 9);
    EXPECT_EQ(RecentFiles().last(), "/1.png");
    RecentFileAdd("/10.png");
    EXPECT_EQ(RecentFiles().size(), 9);
    EXPECT_EQ(RecentFiles().first(), "/10.png");
    EXPECT_EQ(RecentFiles().last(), "/2.png");
}

TEST_F(RecentFilesTest, FileIsListedOnceByItsFullPath)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(Folder()));
    QDir().mkdir("sub");
    const QString here = QDir::currentPath(); // without links
    RecentFileAdd(here + "/a.png");
    RecentFileAdd("/b.png");
    RecentFileAdd("a.png");
    RecentFileAdd(here + "//./a.png");
    RecentFileAdd(here + "/sub/../a.png");
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(RecentFiles(), QStringList({ here + "/a.png", "/b.png" }));
}

TEST_F(RecentFilesTest, ClearEmptiesList)
{
    RecentFileAdd("/a.png");
    RecentFilesClear();
    EXPECT_TRUE(RecentFiles().isEmpty());
}

TEST_F(RecentFilesTest, CaptionHasDigitAndLiteralPath)
{
    EXPECT_EQ(RecentFileCaption(1, "/home/a.png"), QDir::toNativeSeparators("&1 /home/a.png"));
    EXPECT_EQ(RecentFileCaption(9, "/R&S/a\tb.png"), QDir::toNativeSeparators("&9 /R&&S/a b.png"));
}

TEST_F(RecentFilesTest, CaptionOfLongPathKeepsNameAndWholeFolders)
{
    const QString fits = '/' + QString(20, 'a') + '/' + QString(20, 'b') + '/' + QString(17, 'c');
    ASSERT_EQ(fits.size(), 60);
    EXPECT_EQ(RecentFileCaption(1, fits), QDir::toNativeSeparators("&1 " + fits));
    EXPECT_EQ(RecentFileCaption(1, fits + 'c'),
        QDir::toNativeSeparators(QStringLiteral("&1 …/") + QString(20, 'b') + '/' + QString(18, 'c')));
}

TEST_F(RecentFilesTest, CaptionOfLongNameKeepsItsEnd)
{
    EXPECT_EQ(
        RecentFileCaption(1, '/' + QString(200, 'x') + "12.png"), QStringLiteral("&1 …") + QString(53, 'x') + "12.png");
    const QString wide = QString::fromUcs4(U"\U0001F4E1"); // two units of UTF-16
    const QString caption = RecentFileCaption(1, '/' + wide.repeated(100) + "a.png");
    EXPECT_EQ(caption, QStringLiteral("&1 …") + wide.repeated(27) + "a.png");
}

TEST_F(RecentFilesTest, OpensWhileBusyAndRemembersAsLastFile)
{
    bool idle = true;
    QString opened;
    documents_.OnOpen = [&](const QString& path) {
        idle = Program().Idle;
        opened = path;
    };
    RecentFileOpen("/folder/a.png");
    EXPECT_EQ(opened, "/folder/a.png");
    EXPECT_FALSE(idle);
    EXPECT_TRUE(Program().Idle);
    EXPECT_EQ(Program().LastFile.Path, "/folder/a.png");
}

TEST_F(RecentFilesTest, FailureLeavesListUnchanged)
{
    RecentFileAdd("/a.png");
    RecentFileAdd("/b.png");
    documents_.Opens = false;
    RecentFileOpen("/a.png");
    EXPECT_EQ(RecentFiles(), QStringList({ "/b.png", "/a.png" }));
}

TEST_F(RecentFilesTest, NothingOpensWhileDialogIsOpen)
{
    FakeDialog dialog;
    DialogStackPush(dialog);
    RecentFileOpen("/a.png");
    EXPECT_TRUE(documents_.Opened.isEmpty());
    EXPECT_EQ(Program().LastFile.Path, "");
}

} // namespace tarvik
