// app/state/dialogStack.h: which dialogs are open, oldest first. dialog.h moves forms on and off.
#pragma once

#include <vector>

namespace tarvik {

/// What the stack needs of a form. The form outlives its stay on the stack.
class DialogForm {
public:
    virtual ~DialogForm() = default;

    /// Loads the form and shows it; returns when it is closed if `blocking`. A form that unloads itself while
    /// loading is not shown.
    virtual void RunDialog(bool blocking) = 0;

    /// True while the form's window has the activation.
    virtual bool HasActivation() const = 0;

    /// Asks the form to close; it may refuse.
    virtual void Unload() = 0;

    /// True for a form that holds nothing of the user's: it is unloaded when the system wants the program to end.
    virtual bool GoesWithProgram() const
    {
        return false;
    }

    /// Centres the form on its screen and trims its system menu; `removeClose` takes the close entry out.
    virtual void PrepareWindow(bool removeClose) = 0;

    /// Shows or clears the busy pointer on this form.
    virtual void ShowBusyPointer(bool busy) = 0;
};

void DialogStackPush(DialogForm& form);

/// The newest form leaves; nothing on an empty stack.
void DialogStackPop();

/// Empties the stack without touching its forms.
void DialogReset();

bool DialogIsOpen();

/// True when the active window is one of the forms on the stack.
bool DialogIsActive();

/// The newest form, null without one.
DialogForm* DialogTop();

/// Oldest first.
const std::vector<DialogForm*>& DialogStack();

} // namespace tarvik
