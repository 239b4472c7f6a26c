#include "app/frame/tip.h"

#include "app/text/lang.h"
#include "app/text/textId.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kTicksToShow = 10;
constexpr int kCountAfterMove = 20; ///< the next tip shows on the next tick
constexpr int kCountForgotten = 11;

constexpr int kLeftOfButtonPx = 2;
constexpr int kBelowCentrePx = 18;
constexpr int kWiderThanTextPx = 5;
constexpr int kTallerThanTextPx = 3;
constexpr int kFromScreenEdgePx = 4;

} // namespace

int TipCounter::Tick(int button)
{
    const int before = last_;
    last_ = button;
    if (button == kNoButton) {
        count_ = count_ > kCountForgotten ? count_ - 1 : 0;
        return kNoButton;
    }
    if (before != kNoButton && before != button) {
        count_ = kCountAfterMove;
        return kNoButton;
    }
    count_ = std::max(count_, std::min(count_ + 1, kTicksToShow));
    return count_ >= kTicksToShow ? button : kNoButton;
}

QString TipText(const QString& tip)
{
    const QString shortcut = LngStr(TextId::TipShortcut);
    return shortcut.isEmpty() ? tip : tip + u' ' + shortcut;
}

QRect TipRect(const QRect& button, const QSize& text, const QRect& screen)
{
    QRect tip(button.left() - kLeftOfButtonPx, button.center().y() + kBelowCentrePx, text.width() + kWiderThanTextPx,
        text.height() + kTallerThanTextPx);
    const int rightmost = screen.right() - kFromScreenEdgePx;
    if (tip.right() > rightmost)
        tip.moveRight(rightmost);
    return tip;
}

} // namespace tarvik
