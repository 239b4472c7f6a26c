// link/bindLink.h: binds the floor of the instrument link; called by the composition.
#pragma once

namespace tarvik {

/// Binds the frame's commands, and sets the ports that the link implements.
void BindLink();

} // namespace tarvik
