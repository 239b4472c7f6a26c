#include "screen/compose.h"

#include "screen/color.h"
#include "screen/description.h"
#include "screen/screenStatus.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

/// At `top` the line that parts it from what is above, then the text, in the same place as in the window.
void PaintDescription(QPainter& painter, WindowId id, int width, int top)
{
    QFont font = DescrFont(WindowTypeOf(id));
    font.setStyleStrategy(QFont::NoSubpixelAntialias); // coloured edges are for the screen that they were made for
    const QFontMetrics metrics(font);
    const int left = std::max((width - DescrWidth(id)) / 2, 0);
    painter.setPen(ColorOf(TextColor(id)));
    painter.drawLine(0, top, width - 1, top);
    painter.setFont(font);
    int baseline = top + 1 + metrics.ascent();
    const QStringList lines = DescrLines(WindowAt(id).Description, id);
    for (const QString& line : lines) {
        painter.drawText(left, baseline, line);
        baseline += metrics.height();
    }
}

} // namespace

QImage ComposeWindow(WindowId id)
{
    const ScreenRecord* record = ScreenOf(id);
    if (record == nullptr || !WindowAt(id).GraphicsValid)
        return {};
    const QImage& graph = record->Graph;
    const int below = StatusHeight(id) + DescrHeight(id);
    if (below == 0)
        return graph;

    QImage whole(graph.width(), graph.height() + below, QImage::Format_RGB32);
    if (whole.isNull())
        return {};
    whole.fill(ColorOf(PaperColor(id)));
    QPainter painter(&whole);
    painter.drawImage(0, 0, graph);
    PaintDescription(painter, id, graph.width(), graph.height() + StatusCompose(id, whole, PaperColor(id)));
    return whole;
}
