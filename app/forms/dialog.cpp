#include "app/forms/dialog.h"

#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kStatusClosedByOtherMeans = 1;

} // namespace

int DialogShow(DialogForm& form)
{
    ProgramState& program = Program();
    const bool hold = program.StatusHold;
    const QString status = TheFrame()->StatusText();
    program.StatusHold = false;
    StatusClear();

    const int outerResult = program.DialogResult;
    program.DialogResult = kStatusClosedByOtherMeans;
    if (!DialogIsOpen())
        TheFrame()->CloseTip();
    form.RunDialog(!program.NonModalDialogs);
    const int result = program.DialogResult;
    program.DialogResult = outerResult;

    program.StatusHold = hold;
    if (hold)
        TheFrame()->SetStatusText(status);
    else
        StatusSet(status);
    return result;
}

void DialogPush(DialogForm& form, bool removeClose)
{
    DialogStackPush(form);
    form.PrepareWindow(removeClose);
    TheFrame()->MenuUpdate();
}

void DialogPop()
{
    StatusClear();
    DialogStackPop();
    TheFrame()->MenuUpdate();
}

void DialogEnd(DialogForm& form, int status)
{
    Program().DialogResult = status;
    form.Unload();
}

void DialogCancelActive()
{
    const auto& stack = DialogStack();
    const auto active =
        std::find_if(stack.begin(), stack.end(), [](DialogForm* form) { return form->HasActivation(); });
    if (active != stack.end())
        DialogEnd(**active, kStatusClosedByOtherMeans);
}

} // namespace tarvik
