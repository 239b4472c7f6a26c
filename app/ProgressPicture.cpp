#include "app/ProgressPicture.h"

#include "app/progressBar.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int kWidthPx = 140;
constexpr int kBarInsetPx = 1;
constexpr QColor kTrack(0xF2, 0xF2, 0xF2);
constexpr QColor kBar(0x1F, 0x5F, 0xA8);
constexpr QColor kEdge(0x80, 0x88, 0x90);

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
    painter.fillRect(rect(), kTrack); // a ground of its own: black characters must stay readable on a dark palette
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
