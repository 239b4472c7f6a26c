#include "app/frame/KeyboardFilter.h"

#include "app/forms/dialog.h"
#include "app/forms/form.h"
#include "app/frame/keyboardHook.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/platform/processState.h"
#include "app/state/project.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QWhatsThis>
#include <QWidget>

#include <utility>

namespace tarvik {

namespace {

/// The same event object goes to its window, to the widget with the focus, and to that widget's parents. The top bit of
/// its timestamp marks it as handled.
constexpr quint64 kHandledMark = quint64(1) << 63;

bool& ArrowHeld()
{
    static ProcessState<bool> held;
    return held.Get();
}

void NoteArrow(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down)
        ArrowHeld() = event.type() == QEvent::KeyPress;
}

bool FocusKeepsEscape()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus->property(kKeepsEscapeProperty).toBool();
}

/// True if Escape ends a list, a menu, a mode or an in-place edit.
bool EscapeEndsSomethingElse()
{
    return QApplication::activePopupWidget() != nullptr || QWhatsThis::inWhatsThisMode() || FocusKeepsEscape();
}

bool IsEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool FocusTakesLines()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus->inputMethodHints() & Qt::ImhMultiLine;
}

QWidget* ControlOf(QObject* watched)
{
    if (auto* control = qobject_cast<QWidget*>(watched))
        return control;
    return QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : QApplication::activeWindow();
}

} // namespace

KeyboardFilter::KeyboardFilter(QObject* parent)
    : QObject(parent)
{
}

void KeyboardFilter::Install()
{
    qApp->installEventFilter(this);
}

void KeyboardFilter::Remove()
{
    qApp->removeEventFilter(this);
}

bool KeyboardFilter::ArrowKeyIsHeld()
{
    return ArrowHeld();
}

bool KeyboardFilter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return OnKey(watched, *static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:
        NoteEscape(*static_cast<QKeyEvent*>(event));
        return false;
    case QEvent::ApplicationDeactivate:
        ArrowHeld() = false;
        Program().ShiftDown = false; // its release goes to another program
        escapeIsOurs_ = false;
        return false;
    case QEvent::QueryWhatsThis:
        event->setAccepted(HelpNumberOf(qobject_cast<QWidget*>(watched)) != 0);
        return event->isAccepted();
    case QEvent::WhatsThis:
        return PopUpHelpOf(watched, static_cast<QHelpEvent*>(event)->globalPos());
    case QEvent::MouseButtonRelease:
        return PopUpHelpOfDisabledItem(watched, *static_cast<QMouseEvent*>(event));
    default:
        return false;
    }
}

bool KeyboardFilter::OnKey(QObject* watched, QKeyEvent& event)
{
    const bool isRepeatedRelease = event.type() == QEvent::KeyRelease && event.isAutoRepeat();
    if ((event.timestamp() & kHandledMark) != 0 || isRepeatedRelease) // a held key has not been released
        return false;
    if (IsEnter(event) && IsRepeat(event) && !FocusTakesLines())
        return true; // it would answer the message that the first press has caused, and cause it again
    event.setTimestamp(event.timestamp() | kHandledMark);
    NoteArrow(event);
    if (event.key() == Qt::Key_Escape && !IsOurEscape(event))
        return false;
    const HookKey key{ event.key(), event.type() == QEvent::KeyRelease, event.isAutoRepeat() };
    if (PassToHook(key))
        return true;
    const bool goesDown = !key.Released && !key.AutoRepeat;
    if (key.Key == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier && goesDown)
        return OpenMenuOf(watched);
    return key.Key == Qt::Key_F1 && goesDown && ShowTopicOf(watched);
}

/// Under X the toolkit finds a repeat only if release and press are in its queue together. They have the same time.
bool KeyboardFilter::IsRepeat(const QKeyEvent& event)
{
    static const bool isX = QGuiApplication::platformName() == QLatin1String("xcb");
    if (event.type() == QEvent::KeyRelease)
        releasedAt_ = event.timestamp();
    else if (event.isAutoRepeat() || (isX && releasedAt_ != 0 && event.timestamp() == releasedAt_))
        return true;
    return false;
}

/// Precedes the key press. A drop-down list closes on it, so that the key press finds no list.
void KeyboardFilter::NoteEscape(QKeyEvent& event)
{
    if (event.key() != Qt::Key_Escape || (event.timestamp() & kHandledMark) != 0)
        return;
    event.setTimestamp(event.timestamp() | kHandledMark);
    escapeHadOther_ = EscapeEndsSomethingElse();
}

/// An Escape that closes a list, a menu or a file dialog, ends an edit in place, or leaves the What's This mode, must
/// not close the form below as well, neither on press nor on release.
bool KeyboardFilter::IsOurEscape(const QKeyEvent& event)
{
    if (event.type() == QEvent::KeyRelease)
        return std::exchange(escapeIsOurs_, false) && escapeDepth_ == 0; // else it would answer the question
    const bool isForOther = std::exchange(escapeHadOther_, false) || EscapeEndsSomethingElse();
    escapeIsOurs_ = !isForOther && (DialogIsActive() || !DialogIsOpen());
    return escapeIsOurs_;
}

/// An Escape that closes a form may ask a question. Neither its own release nor that of the Escape that answers it
/// closes anything.
bool KeyboardFilter::PassToHook(const HookKey& key)
{
    if (key.Key != Qt::Key_Escape)
        return KeyboardHookKey(key);
    escapeWasNested_ = escapeDepth_ > 0;
    ++escapeDepth_;
    const bool isSwallowed = KeyboardHookKey(key);
    --escapeDepth_;
    if (escapeDepth_ == 0 && std::exchange(escapeWasNested_, false))
        escapeIsOurs_ = false;
    return isSwallowed;
}

bool KeyboardFilter::ShowTopicOf(QObject* watched)
{
    const int help = HelpNumberOf(ControlOf(watched));
    if (help != 0)
        ShowHelp(help);
    return help != 0;
}

/// As the Menu key does, for keyboards without one.
bool KeyboardFilter::OpenMenuOf(QObject* watched)
{
    QWidget* control = ControlOf(watched);
    if (QApplication::focusWidget() != nullptr) // the event goes to the window first
        control = QApplication::focusWidget();
    if (control == nullptr || QApplication::activePopupWidget() != nullptr)
        return false;
    const QPoint at = control->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, at, control->mapToGlobal(at));
    return QApplication::sendEvent(control, &menu) && menu.isAccepted();
}

bool KeyboardFilter::PopUpHelpOf(QObject* watched, QPoint position)
{
    auto* control = qobject_cast<QWidget*>(watched);
    const int help = HelpNumberOf(control);
    if (help != 0)
        ShowPopupHelp(control, help, position);
    return help != 0;
}

/// A menu shows help only for enabled items, but users ask about disabled ones.
bool KeyboardFilter::PopUpHelpOfDisabledItem(QObject* watched, const QMouseEvent& event)
{
    auto* menu = QWhatsThis::inWhatsThisMode() ? qobject_cast<QMenu*>(watched) : nullptr;
    const QAction* action = menu == nullptr ? nullptr : menu->actionAt(event.position().toPoint());
    const int help = action == nullptr || action->isEnabled() ? 0 : action->property(kHelpNumberProperty).toInt();
    if (help == 0)
        return false;
    menu->close();
    ShowPopupHelp(QApplication::activeWindow(), help, event.globalPosition().toPoint());
    return true;
}

} // namespace tarvik
