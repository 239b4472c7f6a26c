#include "app/state/dialogStack.h"

#include "app/platform/processState.h"

#include <algorithm>

namespace tarvik {

namespace {

std::vector<DialogForm*>& Stack()
{
    static ProcessState<std::vector<DialogForm*>> stack;
    return stack.Get();
}

} // namespace

void DialogStackPush(DialogForm& form)
{
    Stack().push_back(&form);
}

void DialogStackPop()
{
    if (!Stack().empty())
        Stack().pop_back();
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

DialogForm* DialogTop()
{
    return Stack().empty() ? nullptr : Stack().back();
}

const std::vector<DialogForm*>& DialogStack()
{
    return Stack();
}

} // namespace tarvik
