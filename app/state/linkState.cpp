#include "app/state/linkState.h"

#include "closed/loader.h"

namespace tarvik {

bool LinkIsUp()
{
    return ModuleIsBound(Module::Channel) && TvScpi().scpiGetConnected() == 0;
}

} // namespace tarvik
