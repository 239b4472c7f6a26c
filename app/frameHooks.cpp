#include "app/frameHooks.h"

FrameHooks& TheFrameHooks()
{
    static FrameHooks hooks;
    return hooks;
}

void FrameHooksReset()
{
    TheFrameHooks() = {};
}
