#include "closed/tvscpi.h"

namespace {

/// No operation of this module opens a connection yet, so there is never one to report or to end.
int16_t GetConnected()
{
    return 1;
}

void Disconnect() { }

} // namespace

int16_t TvScpiBind(TvScpiApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvScpiApi))
        return 1;
    api->scpiGetConnected = GetConnected;
    api->scpiDisconnect = Disconnect;
    return 0;
}
