// app/frame/tip.h: when the tool bar's tip shows, with what text, and where.
#pragma once

#include <QRect>
#include <QSize>
#include <QString>

namespace tarvik {

/// The tip's timer: its first tick comes late, every further one after the short interval.
inline constexpr int kTipFirstIntervalMs = 1000;
inline constexpr int kTipIntervalMs = 50;

inline constexpr int kNoButton = -1;

/// Counts the ticks that the pointer rests on a button.
class TipCounter {
public:
    /// One tick with the pointer over `button`, or over none. Returns the button whose tip is to be shown, kNoButton
    /// when none is.
    int Tick(int button);

    int Count() const
    {
        return count_;
    }

private:
    int count_ = 0;
    int last_ = kNoButton;
};

/// A button's tip, with the shortcut behind a blank when the text for it gives one.
QString TipText(const QString& tip);

/// Place of the tip on the screen: under `button`, as large as `text` and a little more, kept from the right edge.
QRect TipRect(const QRect& button, const QSize& text, const QRect& screen);

} // namespace tarvik
