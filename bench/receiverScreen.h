// bench/receiverScreen.h: pictures of a receiver's display, for benchmarks of pictures.
#pragma once

#include <QImage>

namespace tarvik {

inline constexpr QSize kReceiverScreen(1280, 720);

/// Grid, trace, text and a waterfall of noise; `number` selects the picture, which is the same on every machine.
QImage ReceiverScreen(unsigned number);

} // namespace tarvik
