// tests/support/unbindModule.h: runs a test without one of the closed modules.
#pragma once

#include "closed/loader.h"

#include <functional>
#include <vector>

namespace tarvik {

/// Unbinds `unbound`. The other modules keep their operations, fakes included. ProgramTest binds all modules again for
/// the next test.
inline void UnbindModule(Module unbound)
{
    std::vector<std::function<void()>> restores;
    const auto keep = [&](Module module, auto& table) {
        if (module != unbound && ModuleIsBound(module)) {
            restores.push_back([module, &table, before = table] {
                table = before;
                ModuleMarkBound(module);
            });
        }
    };
    keep(Module::General, TvGen());
    keep(Module::Language, TvLng());
    keep(Module::Channel, TvScpi());
    keep(Module::ListStore, TvFio());
    keep(Module::Traces, TvSwp());
    keep(Module::Pictures, TvImg());
    ModulesReset();
    for (const auto& restore : restores)
        restore();
}

} // namespace tarvik
