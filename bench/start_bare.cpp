// bench/start_bare.cpp: reference for the start time: a bare main window with an MDI area and as many menus and tool
// buttons as the program, without functions.
#include "app/menu/menu.h"
#include "bench/firstPaint.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

namespace tarvik {

namespace {

void AddMenus(QMainWindow& window)
{
    for (const MenuGroup& group : MenuBarTable()) {
        QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Menu"));
        for (const MenuEntry& entry : group.Items) {
            if (entry.Name == nullptr)
                menu->addSeparator();
            else
                menu->addAction(QString::fromLatin1(entry.Name));
        }
    }
}

void AddToolBar(QMainWindow& window)
{
    QToolBar* bar = window.addToolBar(QStringLiteral("Tools"));
    for (int button = 0; button < kToolButtons; ++button)
        bar->addAction(window.style()->standardIcon(static_cast<QStyle::StandardPixmap>(button)), QString());
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QMdiArea(&window));
    AddMenus(window);
    AddToolBar(window);
    window.statusBar()->showMessage(QString());
    const FirstPaint first(window, [] { ReportStart(0); });
    window.showMaximized();
    return QApplication::exec();
}
