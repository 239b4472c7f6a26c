// app/forms/dialog.h: how forms run as dialogs. Forms register here when they load and leave when they unload.
#pragma once

#include "app/state/dialogStack.h"

namespace tarvik {

/// Runs `form` as a dialog and returns its status: 1 if it was closed by other means than DialogEnd.
int DialogShow(DialogForm& form);

/// Called by a form while it loads.
void DialogPush(DialogForm& form, bool removeClose);

/// Called by a form while it unloads: pops the newest form.
void DialogPop();

/// Sets the status and unloads the form.
void DialogEnd(DialogForm& form, int status);

/// What the Escape key does: ends the oldest active form on the stack with status 1.
void DialogCancelActive();

} // namespace tarvik
