#include "app/frame/commands.h"

#include "app/state/project.h"
#include "app/state/statusBar.h"

namespace tarvik {

CommandHooks& TheCommandHooks()
{
    static CommandHooks hooks;
    return hooks;
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
