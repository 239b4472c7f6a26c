#include "app/menu/FrameMenus.h"

#include "app/forms/Pictures.h"
#include "app/forms/form.h"
#include "app/menu/RecentFilesMenu.h"
#include "app/state/linkState.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "app/values/strings.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>

namespace tarvik {

namespace {

bool PicturesFit(const QWidget* widget)
{
    const QStyle* style = widget->style();
    return HasMenuPictures(style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, widget),
        style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, widget));
}

} // namespace

FrameMenus::FrameMenus(QMainWindow* frame)
    : QObject(frame)
    , frame_(frame)
{
    frame->menuBar()->setObjectName(QStringLiteral("MenuBar"));
    for (const MenuGroup& group : MenuBarTable()) {
        auto* menu = new QMenu(frame->menuBar());
        AddGroup(group, menu);
        frame->menuBar()->addMenu(menu);
    }
    Action("MnFileRecent")->setMenu(new RecentFilesMenu(Action("MnFile")->menu()));
    connect(Action("MnWindow")->menu(), &QMenu::aboutToShow, this, &FrameMenus::ListWindows);
    for (const MenuGroup& group : PopupTable()) {
        auto* menu = new QMenu(frame);
        AddGroup(group, menu);
        popups_[QString::fromLatin1(group.Head.Name)] = menu;
    }
}

void FrameMenus::AddGroup(const MenuGroup& group, QMenu* menu)
{
    const QString name = QString::fromLatin1(group.Head.Name);
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    actions_[name] = menu->menuAction();
    for (const MenuEntry& entry : group.Items)
        AddEntry(entry, menu);
    connect(menu, &QMenu::aboutToHide, this, [] { StatusSet({}); });
}

void FrameMenus::AddEntry(const MenuEntry& entry, QMenu* menu)
{
    if (entry.Name == nullptr) {
        menu->addSeparator();
        return;
    }
    QAction* action = menu->addAction(QString());
    action->setObjectName(QString::fromLatin1(entry.Name));
    action->setCheckable(entry.HasCheck);
    actions_[action->objectName()] = action;
    connect(action, &QAction::triggered, this, [this, command = entry.Run] {
        if (!CommandRun(command))
            CommandRunOnDialog(command);
        ShowToggles(); // a checkable action has toggled its mark, whatever the command did
    });
    connect(action, &QAction::hovered, this, [entry] {
        if (const TextNumber<0> hint = MenuHint(entry, LinkIsUp()); !hint.IsNone())
            StatusSetId(hint);
        else
            StatusSet({});
    });
}

/// A menu shows the text after a tab as the item's key; the frame's key handler handles the key itself.
void FrameMenus::SetEntryText(QAction* action, TextNumber<0> text, int help, Command run)
{
    const QString caption = CaptionWithKey(LngStr(text), run);
    action->setText(FrameCaption(caption, IsNtFamily()));
    action->setProperty(kHelpNumberProperty, help);
}

void FrameMenus::SetTexts()
{
    const bool pictures = PicturesFit(frame_);
    const auto setGroup = [this, pictures](const MenuGroup& group) {
        if (!group.Head.Text.IsNone())
            SetEntryText(Action(group.Head.Name), group.Head.Text, group.Head.Help);
        for (const MenuEntry& entry : group.Items) {
            if (entry.Name == nullptr)
                continue;
            SetEntryText(Action(entry.Name), entry.Text, entry.Help, entry.Run);
            if (pictures && entry.Picture != kNoPicture) {
                const auto& button = ToolBarTable()[static_cast<size_t>(entry.Picture)];
                Action(entry.Name)->setIcon(MenuPictureIcon(QString::fromLatin1(button.Picture)));
            }
        }
    };
    for (const MenuGroup& group : MenuBarTable())
        setGroup(group);
    for (const MenuGroup& group : PopupTable())
        setGroup(group);
    ShowToggles();
}

void FrameMenus::Apply(const MenuOutcome& outcome)
{
    for (const MenuGroup& group : MenuBarTable()) {
        Action(group.Head.Name)->setEnabled(outcome.MenusEnabled);
        for (const MenuEntry& entry : group.Items) {
            if (entry.Name == nullptr)
                continue;
            if (const std::optional<bool> enabled = outcome.Entry(entry))
                Action(entry.Name)->setEnabled(*enabled);
        }
    }
    SetConnectCaption(outcome.Connect);
    if (outcome.ResetLiveScreenCaption)
        SetEntryText(
            Action("MnInstrDispSc"), TextId::MenuInstrumentLiveScreen, TextId::MenuInstrumentLiveScreen.Number + 1);
    if (outcome.DescriptionEnabled)
        Action("MnViewDescription")->setEnabled(*outcome.DescriptionEnabled);
    if (outcome.DescriptionChecked)
        Action("MnViewDescription")->setChecked(*outcome.DescriptionChecked);
}

void FrameMenus::ListWindows()
{
    qDeleteAll(windowList_);
    windowList_.clear();
    const auto windows = frame_->findChild<QMdiArea*>()->subWindowList();
    if (windows.isEmpty())
        return;
    QMenu* menu = Action("MnWindow")->menu();
    windowList_.append(menu->addSeparator());
    for (int at = 0; at < windows.size(); ++at)
        AddWindow(menu, windows[at], at + 1);
}

void FrameMenus::AddWindow(QMenu* menu, QMdiSubWindow* window, int number)
{
    constexpr int kLastKey = 9;
    const QString key = number > kLastKey ? QString() : QStringLiteral("&");
    QAction* action = menu->addAction(key + QStringLiteral("%1 ").arg(number) + StrCaption(window->windowTitle()));
    action->setObjectName(QStringLiteral("MnWindowList[%1]").arg(number));
    action->setProperty(kHelpNumberProperty, HelpId::WindowList);
    action->setCheckable(true);
    action->setChecked(window == window->mdiArea()->activeSubWindow());
    connect(action, &QAction::hovered, this, [] { StatusSetId(TextId::WindowListHint); });
    connect(action, &QAction::triggered, window, [window] {
        if (window->isMinimized())
            window->showNormal();
        window->mdiArea()->setActiveSubWindow(window);
    });
    windowList_.append(action);
}

void FrameMenus::SetConnectCaption(const ConnectCaption& caption)
{
    for (const char* name : { "MnInstrConnect", "ClMnInstrConnect" })
        SetEntryText(Action(name), caption.Text, caption.Help);
}

void FrameMenus::ShowToggles()
{
    const ProgramState& program = Program();
    for (const char* name : { "MnViewToolbar", "ClMnViewToolbar", "TbMnHide" })
        Action(name)->setChecked(program.ToolbarOn);
    for (const char* name : { "MnViewStatusBar", "ClMnViewStatusBar", "SbMnHide" })
        Action(name)->setChecked(program.StatusBarOn);
    Action("MnWindowAutotile")->setChecked(program.AutoTile);
    const bool description = TheFrameDocuments()->State().DescriptionVisible;
    for (const char* name : { "MnViewDescription", "ScMnViewDescription", "SwMnViewDescription" })
        Action(name)->setChecked(description);
}

void FrameMenus::Popup(const QString& name, const QPoint& at)
{
    const MenuGroup* group = PopupFind(name);
    if (group == nullptr || (!CanAct() && !CanActOnDialog()))
        return;
    SetPopupStates(*group);
    popups_[name]->popup(at);
}

void FrameMenus::SetPopupStates(const MenuGroup& group)
{
    MenuInput input = MenuInputNow();
    input.CanAct = input.CanAct || CanActOnDialog();
    for (const MenuEntry& entry : group.Items) {
        if (entry.Name != nullptr && entry.When != EnableRule::Untouched)
            Action(entry.Name)->setEnabled(RuleHolds(entry.When, input));
    }
    SetConnectCaption(ConnectCaptionFor(input.LinkUp));
    ShowToggles();
}

std::optional<int> FrameMenus::HighlightedHelp() const
{
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    const QMenuBar* bar = frame_->menuBar();
    const QAction* action = nullptr;
    if (menu != nullptr)
        action = menu->activeAction() != nullptr ? menu->activeAction() : menu->menuAction();
    else if (bar->hasFocus()) // without it the action is only under the pointer
        action = bar->activeAction();
    if (action == nullptr)
        return std::nullopt;
    return action->property(kHelpNumberProperty).toInt();
}

QAction* FrameMenus::Action(const char* name) const
{
    return actions_.value(QString::fromLatin1(name));
}

} // namespace tarvik
