#include "app/forms/form.h"

#include "app/platform/seams.h"
#include "app/state/frame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QVariant>

namespace tarvik {

namespace {

bool IsPlainEnter(const QKeyEvent& event)
{
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isEnter && (event.modifiers() & ~Qt::KeypadModifier) == 0;
}

} // namespace

FormBase::FormBase(const char* name, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QString::fromLatin1(name));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
}

FormBase::~FormBase() = default;

void FormBase::RunDialog(bool blocking)
{
    loaded_ = true;
    activated_ = false;
    painted_ = false;
    if (!OnLoad()) {
        if (loaded_)
            FinishUnload();
        return;
    }
    if (!loaded_) // unloaded itself while loading
        return;
    show();
    if (blocking && loaded_) // showing runs events, and one of them may have ended the form
        RunLoop();
}

void FormBase::RunLoop()
{
    QEventLoop loop;
    loop_ = &loop;
    loop.exec(QEventLoop::DialogExec);
    loop_ = nullptr;
}

bool FormBase::HasActivation() const
{
    return isActiveWindow();
}

void FormBase::Unload()
{
    if (!loaded_ || refusing_)
        return;
    bool closes = false;
    {
        // A query that shows a message must not run again from an event during the message.
        const QScopedValueRollback refusing(refusing_, true);
        closes = QueryUnload();
    }
    if (closes)
        FinishUnload();
}

void FormBase::FinishUnload()
{
    OnUnload();
    loaded_ = false;
    done(0);
    if (loop_ != nullptr)
        loop_->exit();
    DialogPop();
}

void FormBase::PrepareWindow(bool removeClose)
{
    setWindowFlag(Qt::WindowCloseButtonHint, !removeClose);
    setWindowFlag(Qt::WindowMinimizeButtonHint, false);
    adjustSize();
    if (const QVariant growth = property(kGrowthProperty); growth.isValid())
        resize(size() + growth.toSize());
    const QScreen* where = screen();
    if (where == nullptr)
        return;
    const QRect area = where->availableGeometry();
    move(area.center() - rect().center());
}

void FormBase::ShowBusyPointer(bool busy)
{
    if (busy)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

BusyPointer::BusyPointer(FormBase& form)
    : form_(form)
    , wasBusy_(form.testAttribute(Qt::WA_SetCursor) && form.cursor().shape() == Qt::WaitCursor)
{
    form_.ShowBusyPointer(true);
}

BusyPointer::~BusyPointer()
{
    form_.ShowBusyPointer(wasBusy_);
}

int FormBase::HelpNumber() const
{
    return property(kHelpNumberProperty).toInt();
}

void FormBase::SetHelpNumber(TopicNumber topic)
{
    setProperty(kHelpNumberProperty, topic.Number);
}

void FormBase::WaitUntilPainted()
{
    constexpr int kLongestMs = 500;
    bool isTimeUp = false;
    QTimer timer;
    timer.callOnTimeout([&isTimeUp] { isTimeUp = true; });
    timer.start(kLongestMs);
    TheSeams().PumpUntil([this, &isTimeUp] { return painted_ || isTimeUp; });
}

void FormBase::closeEvent(QCloseEvent* event)
{
    event->ignore(); // Unload decides, and closes by itself
    Unload();
}

void FormBase::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (activated_)
        return;
    activated_ = true;
    QTimer::singleShot(0, this, [this] {
        if (loaded_)
            OnActivate();
    });
}

void FormBase::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        event->accept(); // the keyboard hook has seen it
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()); button != nullptr && IsPlainEnter(*event))
        button->click(); // not the form's default button
    else
        QDialog::keyPressEvent(event);
}

void FormBase::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    painted_ = true;
}

} // namespace tarvik
