// app/frame/tip.h: when the tool bar's tip shows, with what text, and where.
#pragma once

#include <QRect>
#include <QSize>
#include <QString>

namespace tarvik {

/// Intervals of the tip's timer: to its first tick, and between further ones.
inline constexpr int kTipFirstIntervalMs = 1000;
inline constexpr int kTipIntervalMs = 50;

inline constexpr int kNoButton = -1;

/// Counts the ticks that the pointer rests on a button.
class TipCounter {
public:
    /// One tick with the pointer over `button` or kNoButton. Returns the button whose tip shows, or kNoButton.
    int Tick(int button);

    int Count() const
    {
        return count_;
    }

private:
    int count_ = 0;
    int last_ = kNoButton;
};

/// A button's tip, followed by a blank and the shortcut if its text has one.
QString TipText(const QString& tip);

/// Screen rectangle of the tip: under `button`, slightly larger than `text`, clear of the right edge.
QRect TipRect(const QRect& button, const QSize& text, const QRect& screen);

} // namespace tarvik
