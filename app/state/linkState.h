// app/state/linkState.h: whether an instrument is connected.
#pragma once

namespace tarvik {

/// True while the instrument is connected; false without the channel module.
bool LinkIsUp();

} // namespace tarvik
