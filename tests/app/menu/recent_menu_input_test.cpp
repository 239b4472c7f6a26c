// The recent files in the menu bar with a real mouse and keyboard. Runs on a display with a window manager.
#include "app/menu/recentFiles.h"
#include "tests/app/frame/frame_form_fixture.h"
#include "tests/support/realInput.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QToolTip>

namespace tarvik {

namespace {

class RecentFilesInput : public MainFrame {
protected:
    RecentFilesInput()
    {
        for (const char* name : { "a.tvm", "b.tvm" }) {
            Store(FilePath(name), "x");
            RecentFileAdd(FilePath(name));
        }
        Start();
    }

    static bool IsOpen(const char* menu)
    {
        const QWidget* popup = QApplication::activePopupWidget();
        return popup != nullptr && popup->objectName() == QLatin1String(menu) && popup->isVisible();
    }

    static QPoint CentreOf(const QMenu& menu, QAction& item)
    {
        return menu.mapToGlobal(menu.actionGeometry(&item).center());
    }

    void OpenByMouse()
    {
        const QMenuBar& bar = *frame->menuBar();
        XClick(bar.mapToGlobal(bar.actionGeometry(&Item("MnFile")).center()));
        ASSERT_TRUE(Reaches([] { return IsOpen("MnFile"); }));
        XClick(CentreOf(*Item("MnFile").menu(), Item("MnFileRecent")));
        ASSERT_TRUE(Reaches([] { return IsOpen("MnFileRecent"); }));
    }

    QMenu& Menu()
    {
        return *frame->findChild<QMenu*>("MnFileRecent");
    }
};

} // namespace

TEST_F(RecentFilesInput, KeysAloneOpenFile)
{
    XDo({ "key", "alt+f" });
    ASSERT_TRUE(Reaches([] { return IsOpen("MnFile"); }));
    XDo({ "key", "r" });
    ASSERT_TRUE(Reaches([] { return IsOpen("MnFileRecent"); }));
    XDo({ "key", "2" });
    EXPECT_TRUE(Reaches([this] { return documents.Opened == QStringList("a.tvm"); }));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(RecentFilesInput, ArrowKeysPassMissingFile)
{
    QFile::remove(FilePath("b.tvm"));
    XDo({ "key", "alt+f" });
    ASSERT_TRUE(Reaches([] { return IsOpen("MnFile"); }));
    XDo({ "key", "r" });
    ASSERT_TRUE(Reaches([] { return IsOpen("MnFileRecent"); }));
    ASSERT_TRUE(Reaches([this] { return Menu().activeAction() == &Item("MnFileRecentList[2]"); }));
    XDo({ "key", "Return" });
    EXPECT_TRUE(Reaches([this] { return documents.Opened == QStringList("a.tvm"); }));
}

TEST_F(RecentFilesInput, ClickOpensFileAndTipShowsPath)
{
    OpenByMouse();
    XMove(CentreOf(Menu(), Item("MnFileRecentList[1]")));
    EXPECT_TRUE(Reaches([this] { return QToolTip::text().contains(QDir::toNativeSeparators(FilePath("b.tvm"))); }));
    XClick(CentreOf(Menu(), Item("MnFileRecentList[1]")));
    EXPECT_TRUE(Reaches([this] { return documents.Opened == QStringList("b.tvm"); }));
}

TEST_F(RecentFilesInput, ClickOnMissingFileDoesNothing)
{
    QFile::remove(FilePath("b.tvm"));
    OpenByMouse();
    XClick(CentreOf(Menu(), Item("MnFileRecentList[1]")));
    XClick(CentreOf(Menu(), Item("MnFileRecentClear")));
    EXPECT_TRUE(Reaches([] { return RecentFiles().isEmpty(); }));
    EXPECT_TRUE(documents.Opened.isEmpty());
    EXPECT_FALSE(Item("MnFileRecent").isEnabled());
}

} // namespace tarvik
