#include "link/channel/linkFailure.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"

namespace tarvik {

bool ReportLinkFailure()
{
    MsgOk(TextId::TransferFailed);
    TheSeams().PumpEvents();
    return ChannelDisconnectIfLost();
}

} // namespace tarvik
