// app/menu/FrameMenus.h: the frame's menu bar and right-click menus, made from the table of menu.h.
#pragma once

#include "app/menu/menu.h"
#include "app/text/textNumber.h"

#include <QHash>
#include <QObject>
#include <QPoint>

class QAction;
class QMainWindow;
class QMdiSubWindow;
class QMenu;

namespace tarvik {

class FrameMenus final : public QObject {
    Q_OBJECT
public:
    /// Makes the menus without texts. Their parent is `frame`.
    explicit FrameMenus(QMainWindow* frame);

    /// Sets captions, help numbers and pictures, once texts are available.
    void SetTexts();

    void Apply(const MenuOutcome& outcome);

    /// Updates the check marks of tool bar, status bar, automatic tiling and description.
    void ShowToggles();

    /// Opens pop-up `name` at screen position `at`, if the program, or the document in the newest dialog, can act.
    void Popup(const QString& name, const QPoint& at);

    /// Help number of the highlighted entry of an open menu or the menu bar; empty without one.
    std::optional<int> HighlightedHelp() const;

private:
    void AddGroup(const MenuGroup& group, QMenu* menu);
    void AddEntry(const MenuEntry& entry, QMenu* menu);
    void SetEntryText(QAction* action, TextNumber<0> text, int help, Command run = Command::None);
    void ListWindows();
    void AddWindow(QMenu* menu, QMdiSubWindow* window, int number);
    void SetConnectCaption(const ConnectCaption& caption);
    void SetPopupStates(const MenuGroup& group);
    QAction* Action(const char* name) const;

    QMainWindow* frame_;
    QHash<QString, QAction*> actions_; ///< by entry name; a menu's own action under the menu's name
    QHash<QString, QMenu*> popups_;
    QList<QAction*> windowList_; ///< at the end of the Window menu; made when it opens
};

} // namespace tarvik
