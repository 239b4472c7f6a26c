#include "app/forms/focusRules.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

namespace tarvik {

namespace {

constexpr const char* kSkipLeaveCheckProperty = "SkipLeaveCheck";

/// Swallows the mouse press of the control that did not get the focus, and the context menu that the press asks for.
class PressSwallower final : public QObject {
public:
    PressSwallower()
        : QObject(qApp)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!watched->isWidgetType())
            return false;
        if (event->type() == QEvent::ContextMenu)
            return pressed_;
        if (event->type() != QEvent::MouseButtonPress || pressed_)
            return false;
        pressed_ = true;
        deleteLater(); // once the system's event has been handled
        return true;
    }

private:
    bool pressed_ = false;
};

class LeaveCheck final : public QObject {
public:
    LeaveCheck(QWidget* control, std::function<bool()> check, bool knowsExceptions)
        : QObject(control)
        , control_(control)
        , check_(std::move(check))
        , knowsExceptions_(knowsExceptions)
    {
        control->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != control_ || event->type() != QEvent::FocusOut)
            return false;
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (!Leaves(reason) || Run())
            return false;
        control_->setFocus(Qt::OtherFocusReason);
        if (reason == Qt::MouseFocusReason)
            SwallowPress();
        return true;
    }

    bool Run()
    {
        if (running_)
            return true;
        running_ = true; // a message shown by the check moves the focus as well
        const QPointer<LeaveCheck> that(this);
        const bool passed = check_();
        if (that != nullptr)
            running_ = false;
        return passed || that == nullptr;
    }

private:
    bool Leaves(Qt::FocusReason reason) const
    {
        const bool byUser = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason
            || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
        const QWidget* next = QApplication::focusWidget();
        return byUser && next != nullptr && next != control_ && next->window() == control_->window()
            && !(knowsExceptions_ && next->property(kSkipLeaveCheckProperty).toBool());
    }

    QWidget* control_;
    std::function<bool()> check_;
    bool knowsExceptions_;
    bool running_ = false;
};

class EnterFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(parent(), &tab);
        return true;
    }
};

class WheelFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
            return false;
        event->ignore(); // left to the parent
        return true;
    }
};

class SelectAllFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            selects_ = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
            if (selects_)
                static_cast<QLineEdit*>(watched)->selectAll();
        }
        // The release of the click that gave the focus: its press has set the cursor and cleared the selection.
        if (event->type() == QEvent::MouseButtonRelease && selects_) {
            selects_ = false;
            auto* textBox = static_cast<QLineEdit*>(watched);
            if (!textBox->hasSelectedText())
                textBox->selectAll();
        }
        if (event->type() == QEvent::KeyPress)
            selects_ = false;
        return false;
    }

private:
    bool selects_ = false;
};

} // namespace

void SwallowPress()
{
    new PressSwallower;
}

void CheckOnLeave(QWidget* control, std::function<bool()> check)
{
    new LeaveCheck(control, std::move(check), true);
}

void CheckOnEveryLeave(QWidget* control, std::function<bool()> check)
{
    new LeaveCheck(control, std::move(check), false);
}

void SkipLeaveCheck(QWidget* control)
{
    control->setProperty(kSkipLeaveCheckProperty, true);
}

bool CheckFocused(const QWidget* window)
{
    QWidget* focused = window->focusWidget();
    if (focused == nullptr)
        return true;
    for (QObject* child : focused->children()) {
        auto* check = dynamic_cast<LeaveCheck*>(child);
        if (check != nullptr && !check->Run()) {
            focused->setFocus(Qt::OtherFocusReason);
            return false;
        }
    }
    return true;
}

void EnterAsTab(QLineEdit* textBox)
{
    textBox->installEventFilter(new EnterFilter(textBox));
}

void WheelNeedsFocus(QWidget* control)
{
    control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(new WheelFilter(control));
}

void SelectAllOnFocus(QLineEdit* textBox)
{
    textBox->installEventFilter(new SelectAllFilter(textBox));
}

} // namespace tarvik
