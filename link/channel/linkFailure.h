// link/channel/linkFailure.h: what every command does after a channel operation has failed.
#pragma once

namespace tarvik {

/// Shows message 12704 and lets events run, then looks whether the link still stands: true when it was gone, and has
/// been ended.
[[nodiscard]] bool ReportLinkFailure();

} // namespace tarvik
