// app/state/dialogStack.h: which dialogs are open, oldest first. dialog.h pushes and pops forms.
#pragma once

#include <vector>

namespace tarvik {

/// What the stack needs of a form. The form outlives its time on the stack.
class DialogForm {
public:
    virtual ~DialogForm() = default;

    /// Loads the form and shows it; returns when it is closed if `blocking`. A form that unloads itself while
    /// loading is not shown.
    virtual void RunDialog(bool blocking) = 0;

    /// True while the form's window is active.
    virtual bool HasActivation() const = 0;

    /// Asks the form to close; it may refuse.
    virtual void Unload() = 0;

    /// True for a form without user data, which is unloaded when the system asks the program to end.
    virtual bool CanCloseUnasked() const
    {
        return false;
    }

    /// True for a form that is the window of a document: commands on the document run while it is the newest dialog.
    virtual bool IsDocument() const
    {
        return false;
    }

    /// Centres the form on its screen and trims its system menu; `removeClose` removes the close entry.
    virtual void PrepareWindow(bool removeClose) = 0;

    /// Shows or clears the busy pointer on this form.
    virtual void ShowBusyPointer(bool busy) = 0;
};

void DialogStackPush(DialogForm& form);

/// Pops the newest form, if any.
void DialogStackPop();

/// Empties the stack without touching its forms.
void DialogReset();

bool DialogIsOpen();

/// True if the active window is a form on the stack.
bool DialogIsActive();

/// The newest form; null if there is none.
DialogForm* DialogTop();

/// Oldest first.
const std::vector<DialogForm*>& DialogStack();

} // namespace tarvik
