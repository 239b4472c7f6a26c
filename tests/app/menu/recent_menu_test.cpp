// The sub-menu of the recent files in the frame.
#include "app/menu/recentFiles.h"
#include "app/text/lang.h"
#include "tests/app/frame/frame_form_fixture.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QMenu>

namespace tarvik {

namespace {

class RecentMenu : public MainFrame {
protected:
    /// Files that exist become recent ones; the last is the newest.
    void AddFiles(const QStringList& names)
    {
        for (const QString& name : names) {
            Store(FilePath(name), "x");
            RecentFileAdd(FilePath(name));
        }
        TheFrame()->MenuUpdate();
    }

    QMenu& Menu()
    {
        return *frame->findChild<QMenu*>("MnFileRecent");
    }

    QStringList Open()
    {
        Q_EMIT Menu().aboutToShow();
        QStringList captions;
        for (const QAction* item : Menu().actions())
            captions.append(item->text());
        return captions;
    }
};

} // namespace

TEST_F(RecentMenu, IsDisabledWithoutFiles)
{
    Start();
    EXPECT_FALSE(Item("MnFileRecent").isEnabled());
    AddFiles({ "a.tvm" });
    EXPECT_TRUE(Item("MnFileRecent").isEnabled());
    EXPECT_EQ(Item("MnFileRecent").menu(), &Menu());
}

TEST_F(RecentMenu, IsEnabledAfterCommandThatOpensFile)
{
    Start();
    BindCommand(Command::FileOpen, [] { RecentFileAdd(QStringLiteral("/a.png")); });
    Item("MnFileOpen").trigger();
    EXPECT_TRUE(Item("MnFileRecent").isEnabled());
}

TEST_F(RecentMenu, ListsFilesNewestFirstAndClear)
{
    Start();
    AddFiles({ "a.tvm", "b & c.tvm" });
    const QString folder = QDir::toNativeSeparators(Folder());
    EXPECT_EQ(Open(), QStringList({ "&1 " + folder + "b && c.tvm", "&2 " + folder + "a.tvm", "", LngStr(12016) }));
    EXPECT_TRUE(Menu().actions()[2]->isSeparator());
    AddFiles({ "a.tvm" });
    EXPECT_EQ(Open().size(), 4) << "made again each time";
    EXPECT_EQ(Open()[0], "&1 " + folder + "a.tvm");
}

TEST_F(RecentMenu, MissingFileIsGrey)
{
    Start();
    AddFiles({ "a.tvm", "gone.tvm" });
    QFile::remove(FilePath("gone.tvm"));
    Open();
    EXPECT_FALSE(Item("MnFileRecentList[1]").isEnabled());
    EXPECT_TRUE(Item("MnFileRecentList[2]").isEnabled());
    Store(FilePath("gone.tvm"), "x");
    Open();
    EXPECT_TRUE(Item("MnFileRecentList[1]").isEnabled());
}

TEST_F(RecentMenu, FolderOfThatNameIsGrey)
{
    Start();
    AddFiles({ "a.tvm" });
    QFile::remove(FilePath("a.tvm"));
    QDir(Folder()).mkdir("a.tvm");
    Open();
    EXPECT_FALSE(Item("MnFileRecentList[1]").isEnabled());
}

TEST_F(RecentMenu, ItemOpensItsFile)
{
    Start();
    AddFiles({ "a.tvm", "b.tvm" });
    Open();
    Item("MnFileRecentList[2]").trigger();
    EXPECT_EQ(documents.Opened, QStringList("a.tvm"));
    EXPECT_TRUE(CanAct());
}

TEST_F(RecentMenu, ClearEmptiesAndDisables)
{
    Start();
    AddFiles({ "a.tvm" });
    Open();
    Item("MnFileRecentClear").trigger();
    EXPECT_TRUE(RecentFiles().isEmpty());
    EXPECT_FALSE(Item("MnFileRecent").isEnabled());
}

TEST_F(RecentMenu, FullPathIsInTipAndStatusBar)
{
    MfMain& main = Start();
    const QString name = QString(80, 'x') + ".tvm";
    AddFiles({ name });
    Open();
    const QString path = QDir::toNativeSeparators(FilePath(name));
    EXPECT_TRUE(Menu().toolTipsVisible());
    EXPECT_TRUE(Item("MnFileRecentList[1]").toolTip().contains(path));
    Item("MnFileRecentList[1]").hover();
    EXPECT_EQ(TextOf(main, "Panel[1]"), path);
    Item("MnFileRecentClear").hover();
    EXPECT_EQ(TextOf(main, "Panel[1]"), "");
    Item("MnFileRecentList[1]").hover();
    Menu().popup({ 0, 0 });
    Menu().hide();
    EXPECT_EQ(TextOf(main, "Panel[1]"), "");
}

TEST_F(RecentMenu, HasHelpNumbers)
{
    Start();
    AddFiles({ "a.tvm" });
    Open();
    EXPECT_EQ(Item("MnFileRecent").property(kHelpNumberProperty).toInt(), 12015);
    EXPECT_EQ(Item("MnFileRecentList[1]").property(kHelpNumberProperty).toInt(), 12015);
    EXPECT_EQ(Item("MnFileRecentClear").property(kHelpNumberProperty).toInt(), 12017);
}

TEST_F(RecentMenu, ScreenReaderReadsDigitAndPath)
{
    Start();
    AddFiles({ "a & b.tvm" });
    Open();
    QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(&Menu());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->childCount(), 3);
    EXPECT_EQ(menu->child(0)->text(QAccessible::Name), "1 " + QDir::toNativeSeparators(FilePath("a & b.tvm")));
    EXPECT_EQ(menu->child(0)->role(), QAccessible::MenuItem);
}

TEST_F(RecentMenu, WindowWithTabInTitleShowsNoKey)
{
    MfMain& main = Start();
    OpenWindows(1)[0]->setWindowTitle("a\tb");
    Q_EMIT main.findChild<QMenu*>("MnWindow")->aboutToShow();
    EXPECT_EQ(Item("MnWindowList[1]").text(), "&1 a b");
}

} // namespace tarvik
