#include "tests/support/forms.h"

#include "app/state/project.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QEnterEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

#include <map>

namespace tarvik {

namespace {

std::string NameOf(const QWidget* control)
{
    return control->objectName().isEmpty() ? control->metaObject()->className() : control->objectName().toStdString();
}

bool TakesTab(const QWidget* control, const QWidget& form)
{
    return control->window() == &form && control->isVisible() && control->isEnabled()
        && (control->focusPolicy() & Qt::TabFocus) != 0 && control->focusProxy() == nullptr;
}

/// A part of something larger than what is seen of it.
bool IsScrolled(const QWidget* control)
{
    for (const QWidget* at = control->parentWidget(); at != nullptr; at = at->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(at) != nullptr)
            return true;
    }
    return false;
}

QRect PlaceIn(const QWidget* control, const QWidget& form)
{
    return { control->mapTo(&form, QPoint()), control->size() };
}

/// The second is to the right in the same row, or lower.
bool IsReadAfter(const QRect& first, const QRect& second)
{
    const bool isSameRow = first.top() < second.center().y() && second.top() < first.center().y();
    return isSameRow ? second.left() >= first.left() : second.top() >= first.top() || second.left() > first.right();
}

QWindow* ActiveWindow()
{
    QWindow* window = QGuiApplication::focusWindow();
    if (window == nullptr)
        qFatal("no window is active");
    return window;
}

} // namespace

FormTest::FormTest()
{
    keyboard_.Install();
}

FormTest::~FormTest()
{
    keyboard_.Remove();
}

void ShowForm(FormBase& form)
{
    const bool before = Program().NonModalDialogs;
    Program().NonModalDialogs = true;
    DialogShow(form);
    Program().NonModalDialogs = before;
    if (form.IsClosed())
        return;
    if (!QTest::qWaitForWindowActive(&form))
        ADD_FAILURE() << NameOf(&form) << " does not become active";
    QCoreApplication::processEvents();
}

int RunForm(FormBase& form, const std::function<void()>& during)
{
    QTimer::singleShot(0, &form, [&form, &during] {
        if (!QTest::qWaitForWindowActive(&form))
            ADD_FAILURE() << NameOf(&form) << " does not become active";
        QCoreApplication::processEvents();
        during();
        if (!form.IsClosed()) {
            ADD_FAILURE() << NameOf(&form) << " is still open";
            DialogEnd(form, -1);
        }
    });
    return DialogShow(form);
}

QWidget& FindControl(QWidget& form, const QString& name)
{
    auto* control = form.findChild<QWidget*>(name);
    if (control == nullptr)
        qFatal("%s has no %s", qPrintable(form.objectName()), qPrintable(name));
    return *control;
}

void Type(QWidget& form, const QString& name, const QString& text)
{
    QWidget& box = FindControl(form, name);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(&box, Qt::Key_Delete);
    else
        QTest::keyClicks(&box, text);
}

void Click(QWidget& form, const QString& name)
{
    QTest::mouseClick(&FindControl(form, name), Qt::LeftButton);
}

void Key(QWidget& form, const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    FindControl(form, name).setFocus();
    Key(key, modifiers);
}

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    KeyDown(key, modifiers);
    KeyUp(key, modifiers);
}

void KeyDown(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyPress(ActiveWindow(), key, modifiers);
}

void KeyUp(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (QGuiApplication::focusWindow() != nullptr)
        QTest::keyRelease(ActiveWindow(), key, modifiers);
}

void RepeatKey(Qt::Key key)
{
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, isEnter ? QStringLiteral("\r") : QString(), true);
    QApplication::sendEvent(ActiveWindow(), &event);
}

void Wheel(QWidget& control, int delta)
{
    const QPoint centre = control.rect().center();
    QWheelEvent event(
        centre, control.mapToGlobal(centre), {}, { 0, delta }, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // only spontaneous events propagate to the parent
    qApp->notify(&control, &event);
}

void PointAt(QWidget& form, const QString& name)
{
    QWidget& control = FindControl(form, name);
    const QPointF centre = control.rect().center();
    QEnterEvent event(centre, control.mapTo(&form, centre), control.mapToGlobal(centre));
    QApplication::sendEvent(&control, &event);
}

void PointAway(QWidget& form, const QString& name)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&FindControl(form, name), &event);
}

bool HasFocus(QWidget& form, const QString& name)
{
    return FindControl(form, name).hasFocus();
}

QString TextOf(QWidget& form, const QString& name)
{
    QWidget* control = &FindControl(form, name);
    if (auto* box = qobject_cast<QLineEdit*>(control))
        return box->text();
    if (auto* label = qobject_cast<QLabel*>(control))
        return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(control))
        return button->text();
    if (auto* combo = qobject_cast<QComboBox*>(control))
        return combo->currentText();
    if (auto* frame = qobject_cast<QGroupBox*>(control))
        return frame->title();
    if (auto* lines = qobject_cast<QPlainTextEdit*>(control))
        return lines->toPlainText();
    qFatal("%s shows no text", qPrintable(name));
}

void ExpectControls(QWidget& form, const QStringList& names)
{
    for (const QString& name : names) {
        const auto* control = form.findChild<QWidget*>(name);
        EXPECT_NE(control, nullptr) << NameOf(&form) << " has no " << name.toStdString();
        if (control != nullptr) {
            EXPECT_FALSE(control->accessibleName().isEmpty()) << name.toStdString() << " has no accessible name";
        }
    }
}

void ExpectTabOrder(QWidget& form)
{
    QList<QWidget*> expected;
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (TakesTab(control, form))
            expected.append(control);
    }
    QList<QWidget*> reached;
    for (QWidget* at = form.nextInFocusChain(); at != &form; at = at->nextInFocusChain()) {
        if (TakesTab(at, form))
            reached.append(at);
    }
    EXPECT_EQ(expected.size(), reached.size());
    for (const QWidget* control : expected) {
        EXPECT_EQ(reached.count(const_cast<QWidget*>(control)), 1) << NameOf(control);
        EXPECT_FALSE(control->accessibleName().isEmpty()) << NameOf(control) << " has no accessible name";
    }
    for (int at = 1; at < reached.size(); ++at) {
        EXPECT_TRUE(IsReadAfter(PlaceIn(reached[at - 1], form), PlaceIn(reached[at], form)))
            << NameOf(reached[at - 1]) << " comes before " << NameOf(reached[at]);
    }
}

void ExpectMnemonics(QWidget& form)
{
    std::map<QString, std::string> taken;
    const auto take = [&taken](const QString& caption, const std::string& name, bool isNeeded) {
        const QString keys = QKeySequence::mnemonic(caption).toString();
        if (keys.isEmpty()) {
            EXPECT_FALSE(isNeeded) << name << " has no mnemonic";
            return;
        }
        const auto [at, isFree] = taken.emplace(keys, name);
        EXPECT_TRUE(isFree) << name << " and " << at->second << " share " << keys.toStdString();
    };
    for (const QWidget* control : form.findChildren<QWidget*>()) {
        if (!control->isVisible())
            continue;
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const auto* label = qobject_cast<const QLabel*>(control);
        const auto* tabs = qobject_cast<const QTabBar*>(control);
        if (button != nullptr && !button->text().isEmpty())
            take(button->text(), NameOf(control), button->isEnabled());
        else if (label != nullptr && label->buddy() != nullptr)
            take(label->text(), NameOf(control), false);
        for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab)
            take(tabs->tabText(tab), NameOf(control), true);
    }
}

void ExpectNothingClipped(QWidget& form)
{
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const bool showsText = qobject_cast<QLabel*>(control) != nullptr
            || qobject_cast<QAbstractButton*>(control) != nullptr || qobject_cast<QGroupBox*>(control) != nullptr;
        const auto* button = qobject_cast<QAbstractButton*>(control);
        const bool isPicture = button != nullptr && button->text().isEmpty();
        if (!showsText || isPicture || !control->isVisible())
            continue;
        const auto* label = qobject_cast<QLabel*>(control);
        const bool wraps = label != nullptr && label->wordWrap();
        const QSize needed = control->minimumSizeHint();
        const int height = wraps ? label->heightForWidth(control->width()) : needed.height();
        EXPECT_GE(control->height(), height) << NameOf(control) << " is too low";
        if (!wraps) {
            EXPECT_GE(control->width(), needed.width()) << NameOf(control) << " is too narrow";
        }
        if (!IsScrolled(control)) {
            EXPECT_TRUE(form.rect().contains(PlaceIn(control, form))) << NameOf(control) << " reaches out of its form";
        }
    }
}

} // namespace tarvik
