#include "app/platform/processState.h"

#include <algorithm>
#include <vector>

namespace tarvik {

namespace {

std::vector<RegisteredState*>& Registry()
{
    static std::vector<RegisteredState*> registry; // created by the first state, so destroyed after all of them
    return registry;
}

} // namespace

RegisteredState::RegisteredState()
{
    Registry().push_back(this);
}

RegisteredState::~RegisteredState()
{
    std::erase(Registry(), this);
}

void ResetAllState()
{
    const std::vector<RegisteredState*> states = Registry(); // destroying an old value may register another state
    std::for_each(states.rbegin(), states.rend(), [](RegisteredState* state) { state->Reset(); });
}

} // namespace tarvik
