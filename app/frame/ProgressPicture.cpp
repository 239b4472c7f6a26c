#include "app/frame/ProgressPicture.h"

#include "app/state/progressBar.h"

#include <QPaintEvent>
#include <QPainter>

namespace tarvik {

namespace {

constexpr int kWidthPx = 140;
constexpr int kBarInsetPx = 1;
// Black and white are both legible on the track, since the character at the end of the bar overlaps both.
constexpr QColor kTrack(0xA3, 0xAD, 0xB7);
constexpr QColor kBar(0x1B, 0x55, 0x98);
constexpr QColor kEdge(0x6B, 0x76, 0x82);

} // namespace

ProgressPicture::ProgressPicture(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("progressBar"));
}

void ProgressPicture::ShowPercent(int percent, const QString& text)
{
    percent_ = percent;
    text_ = text;
    setAccessibleDescription(text);
    update();
}

void ProgressPicture::Clear()
{
    percent_ = -1;
    text_.clear();
    setAccessibleDescription({});
    update();
}

QSize ProgressPicture::sizeHint() const
{
    return { kWidthPx, fontMetrics().height() + 4 };
}

void ProgressPicture::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    if (percent_ < 0)
        return;
    QPainter painter(this);
    painter.fillRect(rect(), kTrack); // black characters must be legible on a dark palette too
    const int barWidth = ProgressBarWidth(width(), percent_);
    painter.fillRect(QRect(0, kBarInsetPx, barWidth, height() - 2 * kBarInsetPx), kBar);
    painter.setPen(kEdge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const auto widthOf = [this](QChar character) { return fontMetrics().horizontalAdvance(character); };
    const int baseline = (height() + fontMetrics().ascent() - fontMetrics().descent()) / 2;
    for (const ProgressCharacter& one : ProgressCharacters(text_, width(), percent_, widthOf)) {
        painter.setPen(one.IsWhite ? Qt::white : Qt::black);
        painter.drawText(one.Left, baseline, one.Character);
    }
}

} // namespace tarvik
