#include "link/linkFailure.h"

#include "app/message.h"
#include "app/seams.h"
#include "link/channel.h"

bool ReportLinkFailure()
{
    constexpr int kTextTransferFailed = 12704;
    MsgOk(kTextTransferFailed);
    TheSeams().PumpEvents();
    return ChannelEndIfGone();
}
