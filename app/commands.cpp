#include "app/commands.h"

#include "app/project.h"
#include "app/statusBar.h"

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
