#include "bench/paintWatch.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace tarvik {

namespace {

constexpr QSize kWindow(792, 560);
constexpr int kLabels = 30;

/// Draws lines and labels, and nothing else.
class BareDiagram final : public QWidget {
public:
    BareDiagram(std::vector<QPolygonF> lines, QWidget* parent)
        : QWidget(parent)
        , lines_(std::move(lines))
    {
        setObjectName(QStringLiteral("BareDiagram"));
        resize(kWindow);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::lightGray);
        for (int label = 0; label < kLabels; ++label)
            painter.drawText(10 + label * 20, 20 + label * 15, QString::number(label * 12.3));
        DrawLines(painter, lines_);
    }

private:
    std::vector<QPolygonF> lines_;
};

} // namespace

PaintWatch::PaintWatch(const QString& name)
    : name_(name)
{
    qApp->installEventFilter(this);
}

bool PaintWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && watched->objectName() == name_ && !isPainted_) {
        isPainted_ = true;
        QTimer::singleShot(0, qApp, [this, window = static_cast<QWidget*>(watched)->window()] {
            painted_ = std::chrono::steady_clock::now();
            window->close();
        });
    }
    return false;
}

double PaintWatch::Ms(const std::function<void()>& show)
{
    isPainted_ = false;
    const auto start = std::chrono::steady_clock::now();
    show();
    if (!isPainted_)
        qFatal("not painted");
    return std::chrono::duration<double, std::milli>(painted_ - start).count();
}

std::vector<QPolygonF> LinesOf(const TraceSet& set, QSize size)
{
    std::vector<QPolygonF> lines;
    for (const Trace& trace : set.Traces) {
        uint32_t bytes = 0;
        const auto* samples = static_cast<const double*>(TraceBlockOf(trace.Handle, &bytes));
        if (samples == nullptr)
            continue;
        QPolygonF line;
        for (int at = 0; at < TVSWP_SAMPLES; ++at)
            line.append({ size.width() * at / 629.0,
                size.height() * (1 - (samples[at] - set.YBottom) / (set.YTop - set.YBottom)) });
        lines.push_back(line);
    }
    return lines;
}

void DrawLines(QPainter& painter, const std::vector<QPolygonF>& lines)
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPolygonF& line : lines) {
        painter.setPen(QPen(Qt::black, 4)); // the outline
        painter.drawPolyline(line);
        painter.setPen(QPen(Qt::red, 2));
        painter.drawPolyline(line);
    }
}

void ShowBareDiagram(const TraceSet& traces, QWidget* parent)
{
    QDialog dialog(parent);
    dialog.resize(kWindow);
    new BareDiagram(LinesOf(traces, kWindow), &dialog);
    dialog.exec();
}

} // namespace tarvik
