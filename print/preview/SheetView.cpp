#include "print/preview/SheetView.h"

#include "app/forms/form.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tarvik {

namespace {

constexpr int kFramePx = 2;

/// Inverting the highest bit of each colour is visible on light, dark and grey alike.
constexpr QColor kInverting(0x80, 0x80, 0x80);

Qt::CursorShape PointerOf(Handle part)
{
    switch (part) {
    case Handle::Top:
    case Handle::Bottom:
        return Qt::SizeVerCursor;
    case Handle::Left:
    case Handle::Right:
        return Qt::SizeHorCursor;
    case Handle::TopRight:
    case Handle::BottomLeft:
        return Qt::SizeBDiagCursor;
    case Handle::TopLeft:
    case Handle::BottomRight:
        return Qt::SizeFDiagCursor;
    default:
        return Qt::ArrowCursor;
    }
}

void InvertFrame(QPainter& painter, const QRect& frame)
{
    const QRect inside = frame.adjusted(kFramePx, kFramePx, -kFramePx, -kFramePx);
    for (const QRect& part : QRegion(frame).subtracted(inside))
        painter.fillRect(part, kInverting);
}

} // namespace

SheetView::SheetView(QWidget* parent)
    : QWidget(parent)
{
    NameControl(this, QStringLiteral("PbPreview"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void SheetView::RedrawPage()
{
    picture_.Draw(size(), devicePixelRatioF());
    update();
}

void SheetView::Show(SheetChange change)
{
    if (change == SheetChange::None)
        return;
    if (change == SheetChange::Page)
        RedrawPage();
    update();
    Q_EMIT Changed();
}

void SheetView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (picture_.Picture().isNull())
        painter.fillRect(rect(), Qt::white);
    else
        painter.drawImage(rect(), picture_.Picture());
    const QRect selected = edit_.SelectedPixels();
    if (selected.isEmpty())
        return;
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    if (edit_.IsDragging())
        InvertFrame(painter, selected);
    for (const QRect& handle : HandlesOf(selected))
        painter.fillRect(handle, kInverting);
}

void SheetView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setFocus();
    Show(edit_.Press(event->position().toPoint()));
    setProperty(kKeepsEscapeProperty, edit_.IsDragging());
    ShowPointer(event->position().toPoint());
}

void SheetView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (edit_.IsDragging() && event->buttons().testFlag(Qt::LeftButton))
        Show(edit_.DragTo(at));
    else
        ShowPointer(at);
}

void SheetView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        EndDrag(edit_.Release());
    ShowPointer(event->position().toPoint());
}

/// Escape abandons a drag; without one it belongs to the form.
void SheetView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && edit_.IsDragging())
        EndDrag(edit_.Abandon());
    else
        QWidget::keyPressEvent(event);
}

/// A message or another window has come up: the button may be released there.
void SheetView::focusOutEvent(QFocusEvent* event)
{
    EndDrag(edit_.Abandon());
    QWidget::focusOutEvent(event);
}

void SheetView::EndDrag(SheetChange change)
{
    setProperty(kKeepsEscapeProperty, false);
    Show(change);
}

void SheetView::ShowPointer(QPoint at)
{
    setCursor(PointerOf(edit_.PartAt(at)));
}

} // namespace tarvik
