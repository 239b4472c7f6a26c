#include "screen/document/compose.h"

#include "screen/document/color.h"
#include "screen/document/description.h"
#include "screen/document/screenStatus.h"

#include <QPainter>

#include <algorithm>

namespace tarvik {

namespace {

/// The line that parts it from what is above, then the text, in the same place as in a window of the picture's size; in
/// a picture that is narrower than the block from the left edge on, as nobody can move it there to read the beginning.
void PaintDescription(QPainter& painter, WindowId id, QSize whole)
{
    const DescriptionLayout place = DescrLayout(id, whole);
    if (!place.Visible)
        return;
    painter.setPen(ColorOf(TextColor(id)));
    painter.drawLine(0, place.LineTop, whole.width() - 1, place.LineTop);
    QRect text = place.Text;
    text.moveLeft(std::max(text.left(), 0));
    painter.setClipRect(text);
    DescrLaidOut(WindowAt(id).Description, id).Paint(painter, text.topLeft());
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
    StatusCompose(id, whole, PaperColor(id));
    PaintDescription(painter, id, whole.size());
    return whole;
}

} // namespace tarvik
