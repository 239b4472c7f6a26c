// link/channel/linkFailure.h: what every command does after a channel operation has failed.
#pragma once

namespace tarvik {

/// Shows message 12704, processes events and checks the link: true if it was lost, after disconnecting.
[[nodiscard]] bool ReportLinkFailure();

} // namespace tarvik
