#include "screen/document/compose.h"

#include "screen/document/color.h"
#include "screen/document/description.h"
#include "screen/document/screenStatus.h"

#include <QPainter>

#include <algorithm>

namespace tarvik {

namespace {

/// Paints the separator line, then the text, at the same position as in a window of the picture's size. In a picture
/// narrower than the block the text starts at the left edge, since a picture can't be scrolled.
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
    const DocumentPicture* picture = PictureOf(id);
    if (picture == nullptr || !WindowAt(id).GraphicsValid)
        return {};
    const QImage& graph = picture->Graph;
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
