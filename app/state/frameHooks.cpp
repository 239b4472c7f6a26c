#include "app/state/frameHooks.h"

namespace tarvik {

FrameHooks& TheFrameHooks()
{
    static FrameHooks hooks;
    return hooks;
}

void FrameHooksReset()
{
    TheFrameHooks() = {};
}

} // namespace tarvik
