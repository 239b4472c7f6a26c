// tests/support/fakeCommands.h: binds a command to what a test wants to see.
#pragma once

#include "app/menu/commands.h"

#include <array>
#include <functional>
#include <utility>

namespace tarvik {

inline std::array<std::function<void()>, static_cast<size_t>(Command::Count)>& CommandRuns()
{
    static std::array<std::function<void()>, static_cast<size_t>(Command::Count)> runs;
    return runs;
}

/// A plain function for each command, which runs what the test has bound.
template <size_t... At>
constexpr std::array<CommandFunction, sizeof...(At)> CommandFunctions(std::index_sequence<At...>)
{
    return { [] { CommandRuns()[At](); }... };
}

/// Binds `command` until all state is reset. What `run` refers to must live until then or the command must not run.
inline void BindCommand(Command command, std::function<void()> run)
{
    static constexpr auto functions = CommandFunctions(std::make_index_sequence<static_cast<size_t>(Command::Count)>());
    const auto at = static_cast<size_t>(command);
    CommandRuns()[at] = std::move(run);
    const CommandBinding binding{ command, functions[at] };
    CommandsBind({ &binding, 1 });
}

} // namespace tarvik
