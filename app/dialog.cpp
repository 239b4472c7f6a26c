#include "app/dialog.h"

#include "app/frameHooks.h"
#include "app/project.h"
#include "app/statusBar.h"

#include <algorithm>

namespace {

constexpr int kStatusClosedByOtherMeans = 1;

std::vector<DialogForm*>& Stack()
{
    static std::vector<DialogForm*> stack;
    return stack;
}

} // namespace

int DialogShow(DialogForm& form)
{
    ProgramState& program = Program();
    const bool hold = program.StatusHold;
    const QString status = TheFrameHooks().StatusText();
    program.StatusHold = false;
    StatusClear();

    const int outerResult = program.DialogResult;
    program.DialogResult = kStatusClosedByOtherMeans;
    if (!DialogIsOpen())
        TheFrameHooks().CloseTip();
    form.RunDialog(!program.NonModalDialogs);
    const int result = program.DialogResult;
    program.DialogResult = outerResult;

    program.StatusHold = hold;
    if (hold)
        TheFrameHooks().SetStatusText(status);
    else
        StatusSet(status);
    return result;
}

void DialogPush(DialogForm& form, bool removeClose)
{
    Stack().push_back(&form);
    form.PrepareWindow(removeClose);
    TheFrameHooks().MenuUpdate();
}

void DialogPop()
{
    StatusClear();
    if (!Stack().empty())
        Stack().pop_back();
    TheFrameHooks().MenuUpdate();
}

void DialogEnd(DialogForm& form, int status)
{
    Program().DialogResult = status;
    form.Unload();
}

void DialogReset()
{
    Stack().clear();
}

bool DialogIsOpen()
{
    return !Stack().empty();
}

bool DialogIsActive()
{
    return std::any_of(Stack().rbegin(), Stack().rend(), [](DialogForm* form) { return form->HasActivation(); });
}

void DialogCancelActive()
{
    const auto active =
        std::find_if(Stack().begin(), Stack().end(), [](DialogForm* form) { return form->HasActivation(); });
    if (active != Stack().end())
        DialogEnd(**active, kStatusClosedByOtherMeans);
}

DialogForm* DialogTop()
{
    return Stack().empty() ? nullptr : Stack().back();
}

const std::vector<DialogForm*>& DialogStack()
{
    return Stack();
}
