// bench/receiverScreen.h: what a receiver shows, for figures about pictures.
#pragma once

#include <QImage>

namespace tarvik {

inline constexpr QSize kReceiverScreen(1280, 720);

/// A grid, a trace and text over a waterfall of noise; the same one for a number on every machine.
QImage ReceiverScreen(unsigned number);

} // namespace tarvik
