// bench/benchFrame.h: the main frame of a benchmark, at a fixed size.
#pragma once

#include "app/frame/MfMain.h"
#include "app/state/project.h"

#include <QtTest/QTest>

namespace tarvik {

/// Larger than a picture of 1280 x 720 and its window's borders.
inline constexpr QSize kBenchFrame(1400, 900);

/// Shows the frame as the program's start does, without its other steps. False if it does not become active.
inline bool ShowBenchFrame(MfMain& frame)
{
    frame.BuildTexts();
    Program().MainWindowState = WinState::Normal;
    frame.ShowFrame();
    frame.resize(kBenchFrame);
    Program().Started = true;
    return QTest::qWaitForWindowActive(&frame);
}

} // namespace tarvik
