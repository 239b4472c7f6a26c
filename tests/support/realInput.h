// tests/support/realInput.h: keys and clicks that xdotool sends through the display server. For tests on a display with
// a window manager.
#pragma once

#include <QPoint>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace tarvik {

inline bool Reaches(const std::function<bool()>& state)
{
    return QTest::qWaitFor(state, 10000);
}

/// Runs xdotool while this program handles its events.
inline void XDo(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    EXPECT_TRUE(process.waitForStarted());
    EXPECT_TRUE(Reaches([&process] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitCode(), 0) << arguments.join(u' ').toStdString();
}

/// Moves the pointer to a position on the screen.
inline void XMove(QPoint at)
{
    XDo({ QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()) });
}

inline void XClick(QPoint at, const QString& button = QStringLiteral("1"))
{
    XMove(at);
    XDo({ QStringLiteral("click"), button });
}

} // namespace tarvik
