// bench/paintWatch.h: duration until a diagram has been painted, and a bare dialog that draws as many lines and labels.
#pragma once

#include "screen/diagram/traceBlocks.h"

#include <QObject>
#include <QPainter>
#include <QPolygonF>

#include <chrono>
#include <functional>

namespace tarvik {

/// Notes when a widget of a name is painted, and closes its window.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(const QString& name);

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Duration in ms from the start of `show`, which returns when the window is closed, until the painting is
    /// finished.
    double Ms(const std::function<void()>& show);

private:
    QString name_;
    bool isPainted_ = false;
    std::chrono::steady_clock::time_point painted_;
};

/// The traces as points of a picture.
std::vector<QPolygonF> LinesOf(const TraceSet& set, QSize size);

/// Antialiased, with an outline.
void DrawLines(QPainter& painter, const std::vector<QPolygonF>& lines);

/// Shows a bare dialog that draws the traces and some labels, until it is closed. The widget is "BareDiagram".
void ShowBareDiagram(const TraceSet& traces, QWidget* parent);

} // namespace tarvik
