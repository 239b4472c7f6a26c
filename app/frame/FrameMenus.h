// app/frame/FrameMenus.h: the frame's menu bar and right-click menus, made from the table of menu.h.
#pragma once

#include "app/frame/menu.h"
#include "app/text/textNumber.h"

#include <QHash>
#include <QObject>
#include <QPoint>

class QAction;
class QMainWindow;
class QMenu;

namespace tarvik {

class FrameMenus final : public QObject {
    Q_OBJECT
public:
    /// Makes the menus without texts. Their parent is `frame`.
    explicit FrameMenus(QMainWindow* frame);

    /// Captions, help numbers and pictures; to be called once the texts are up.
    void SetTexts();

    void Apply(const MenuOutcome& outcome);

    /// The check marks of what the program state switches: tool bar, status bar, automatic tiling.
    void ShowToggles();

    /// Opens pop-up `name` at a place on the screen, if the program can act.
    void Popup(const QString& name, const QPoint& at);

    /// Help number of the entry that is highlighted in an open menu or in the menu bar; empty while there is none.
    std::optional<int> HighlightedHelp() const;

private:
    void AddGroup(const MenuGroup& group, QMenu* menu);
    void AddEntry(const MenuEntry& entry, QMenu* menu);
    void SetEntryText(QAction* action, TextNumber<0> text, int help);
    void SetConnectCaption(const ConnectCaption& caption);
    void SetPopupStates(const MenuGroup& group);
    QAction* Action(const char* name) const;

    QMainWindow* frame_;
    QHash<QString, QAction*> actions_; ///< by entry name; a menu's own action under the menu's name
    QHash<QString, QMenu*> popups_;
};

} // namespace tarvik
