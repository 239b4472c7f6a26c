// app/dialog.h: the stack of open dialogs. Forms register here when they load and leave when they unload.
#pragma once

#include <vector>

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

    /// Centres the form on its screen and trims its system menu; `removeClose` takes the close entry out.
    virtual void PrepareWindow(bool removeClose) = 0;

    /// Shows or clears the busy pointer on this form.
    virtual void ShowBusyPointer(bool busy) = 0;
};

/// Runs `form` as a dialog and returns its status: 1 when it was closed by other means than DialogEnd.
int DialogShow(DialogForm& form);

/// Called by a form while it loads.
void DialogPush(DialogForm& form, bool removeClose);

/// Called by a form while it unloads: the newest one leaves.
void DialogPop();

/// Sets the status and unloads the form.
void DialogEnd(DialogForm& form, int status);

/// Empties the stack without touching its forms.
void DialogReset();

bool DialogIsOpen();

/// True when the active window is one of the forms on the stack.
bool DialogIsActive();

/// What the Escape key does: the oldest form on the stack that has the activation ends with status 1.
void DialogCancelActive();

/// The newest form, null without one.
DialogForm* DialogTop();

/// Oldest first.
const std::vector<DialogForm*>& DialogStack();
