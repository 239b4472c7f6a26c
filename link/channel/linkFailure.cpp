#include "link/channel/linkFailure.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "link/channel/channel.h"

namespace tarvik {

bool ReportLinkFailure()
{
    constexpr int kTextTransferFailed = 12704;
    MsgOk(kTextTransferFailed);
    TheSeams().PumpEvents();
    return ChannelEndIfGone();
}

} // namespace tarvik
