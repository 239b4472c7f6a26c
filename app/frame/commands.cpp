#include "app/frame/commands.h"

#include "app/platform/processState.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"

namespace tarvik {

CommandHooks& TheCommandHooks()
{
    static ProcessState<CommandHooks> hooks;
    return hooks.Get();
}

void CommandHooksReset()
{
    TheCommandHooks() = {};
}

bool CommandRun(Command command)
{
    if (!CanAct())
        return false;
    const std::function<void()> run = TheCommandHooks()[command]; // a copy: the command may bind the table anew
    const bool isBusy = command != Command::FileExit;
    if (isBusy)
        BeginBusy();
    if (run)
        run();
    if (isBusy)
        EndBusy();
    return true;
}

} // namespace tarvik
