// link/bindLink.h: for the composition: which forms the instrument link opens, and what the frame asks of it.
#pragma once

namespace tarvik {

/// Binds the forms of the link to the frame's commands, to the start and to the modules that open them.
void BindLink();

} // namespace tarvik
