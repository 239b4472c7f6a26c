#include "app/state/frameHooks.h"

#include "app/platform/processState.h"

namespace tarvik {

FrameHooks& TheFrameHooks()
{
    static ProcessState<FrameHooks> hooks;
    return hooks.Get();
}

void FrameHooksReset()
{
    TheFrameHooks() = {};
}

} // namespace tarvik
