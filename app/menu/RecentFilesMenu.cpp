#include "app/menu/RecentFilesMenu.h"

#include "app/forms/form.h"
#include "app/menu/menu.h"
#include "app/menu/recentFiles.h"
#include "app/state/frame.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"

#include <QDir>
#include <QFileInfo>

namespace tarvik {

RecentFilesMenu::RecentFilesMenu(QWidget* parent)
    : QMenu(parent)
{
    setObjectName(QStringLiteral("MnFileRecent"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentFilesMenu::Fill);
    connect(this, &QMenu::aboutToHide, this, [] { StatusSet({}); });
}

void RecentFilesMenu::Fill()
{
    clear();
    const QStringList& files = RecentFiles();
    for (int at = 0; at < files.size(); ++at)
        AddFile(at + 1, files[at]);
    addSeparator();
    QAction* clearList = addAction(FrameCaption(LngStr(TextId::MenuFileRecentClear), IsNtFamily()));
    clearList->setObjectName(QStringLiteral("MnFileRecentClear"));
    clearList->setProperty(kHelpNumberProperty, HelpId::RecentFilesClear);
    connect(clearList, &QAction::hovered, this, [] { StatusSet({}); });
    connect(clearList, &QAction::triggered, this, [] {
        RecentFilesClear();
        TheFrame()->MenuUpdate();
    });
}

void RecentFilesMenu::AddFile(int number, const QString& path)
{
    const QString fullPath = QDir::toNativeSeparators(path);
    QAction* file = addAction(RecentFileCaption(number, path));
    file->setObjectName(QStringLiteral("MnFileRecentList[%1]").arg(number));
    file->setProperty(kHelpNumberProperty, HelpId::RecentFiles);
    file->setToolTip(PlainTip(fullPath));
    file->setEnabled(QFileInfo(path).isFile());
    connect(file, &QAction::hovered, this, [fullPath] { StatusSet(fullPath); });
    connect(file, &QAction::triggered, this, [path] { RecentFileOpen(path); });
}

} // namespace tarvik
