#include "app/menu/commands.h"

#include "app/platform/processState.h"
#include "app/state/dialogStack.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"

#include <QScopedValueRollback>

#include <array>
#include <optional>

namespace tarvik {

namespace {

using CommandTable = std::array<CommandFunction, static_cast<std::size_t>(Command::Count)>;

CommandTable NoCommands()
{
    CommandTable table;
    table.fill([] {});
    return table;
}

CommandFunction& FunctionOf(Command command)
{
    static ProcessState<CommandTable> table(NoCommands);
    return table.Get()[static_cast<std::size_t>(command)];
}

} // namespace

void CommandsBind(std::span<const CommandBinding> bindings)
{
    for (const CommandBinding& binding : bindings)
        FunctionOf(binding.Run) = binding.Function;
}

CommandScope::CommandScope(std::span<const CommandBinding> bindings)
{
    for (const CommandBinding& binding : bindings)
        before_.push_back({ binding.Run, FunctionOf(binding.Run) });
    CommandsBind(bindings);
}

CommandScope::~CommandScope()
{
    CommandsBind(before_);
}

bool CommandRun(Command command)
{
    if (!CanAct())
        return false;
    std::optional<BusyScope> busy;
    if (command != Command::FileExit)
        busy.emplace();
    FunctionOf(command)();
    return true;
}

bool CanActOnDialog()
{
    const DialogForm* dialog = DialogTop();
    return dialog != nullptr && dialog->IsDocument() && !Program().DialogBusy;
}

bool CommandRunOnDialog(Command command)
{
    if (!CanActOnDialog())
        return false;
    if (command == Command::FileClose) { // a form stays open while a command runs on it
        DialogTop()->Unload();
        return true;
    }
    const BusyScope busy;
    const QScopedValueRollback runs(Program().DialogBusy, true);
    FunctionOf(command)();
    return true;
}

} // namespace tarvik
