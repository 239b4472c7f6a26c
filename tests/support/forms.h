// tests/support/forms.h: drives a form as a user does, finding its controls by name, and checks what every form owes.
#pragma once

#include "app/forms/form.h"
#include "app/frame/KeyboardFilter.h"
#include "tests/support/fixture.h"

#include <QWidget>

#include <functional>

namespace tarvik {

/// A test with the program's keyboard hook in place.
class FormTest : public ProgramTest {
protected:
    FormTest();
    ~FormTest() override;

private:
    KeyboardFilter keyboard_;
};

/// Loads the form and shows it without waiting for its end; it has the activation afterwards.
void ShowForm(FormBase& form);

/// Runs the form as its callers do. `during` is called once the form is active. A form that is then still open fails
/// the test and is closed. Returns the dialog status.
int RunForm(FormBase& form, const std::function<void()>& during);

/// The control of that name; a missing one, or one of another kind, ends the test program.
QWidget& FindControl(QWidget& form, const QString& name);

template <typename Control>
Control& Find(QWidget& form, const QString& name)
{
    auto* control = qobject_cast<Control*>(&FindControl(form, name));
    if (control == nullptr)
        qFatal("%s is of another kind", qPrintable(name));
    return *control;
}

/// Replaces the text of a text box, key by key. The focus stays in it.
void Type(QWidget& form, const QString& name, const QString& text);

void Click(QWidget& form, const QString& name);

/// Gives the control the focus, then presses and releases the key.
void Key(QWidget& form, const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Presses and releases the key wherever the focus is; the release goes to the window that is active by then.
void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void KeyDown(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void KeyUp(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// One repeat of a held key.
void RepeatKey(Qt::Key key);

/// Turns the wheel over the control, in eighths of a degree.
void Wheel(QWidget& control, int delta = -120);

/// Moves the pointer onto the control, and off it.
void PointAt(QWidget& form, const QString& name);
void PointAway(QWidget& form, const QString& name);

bool HasFocus(QWidget& form, const QString& name);

/// The text that a label, button, text box or combo box shows.
QString TextOf(QWidget& form, const QString& name);

/// Each given control is there under its name, and has an accessible name.
void ExpectControls(QWidget& form, const QStringList& names);

/// Tab reaches every control that can take the focus once, in reading order, and each has an accessible name.
void ExpectTabOrder(QWidget& form);

/// Each push button that can be pressed and each tab has a mnemonic, and no two controls of the form share one.
void ExpectMnemonics(QWidget& form);

/// No label, button or frame title is wider or higher than its control.
void ExpectNothingClipped(QWidget& form);

} // namespace tarvik
