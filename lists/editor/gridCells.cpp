#include "lists/editor/gridCells.h"

#include "app/forms/darkColor.h"

#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStyleOptionHeader>
#include <QStylePainter>

namespace tarvik {

namespace {

constexpr QRgb kCurrentRowColour = 0xFFBBBB55;
constexpr QRgb kFocusedColour = 0xFFEEEE88;
constexpr int kTextMarginPx = 5;
constexpr int kEditMarginPx = 2; ///< built into QLineEdit

QPalette CellPalette(QPalette palette, const QColor& background, const QColor& text)
{
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::WindowText, text);
    return palette;
}

/// The system's text colour if it is dark, else black.
QColor TextOnFixedBackground(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    return IsDark(text) ? text : QColor(Qt::black);
}

/// Makes a check box visible in its cell: white on the fixed backgrounds, with a light frame on dark ones.
QPalette IndicatorPalette(QPalette cell, const QPalette& system)
{
    if (cell.color(QPalette::Base) != system.color(QPalette::Base)) {
        cell.setColor(QPalette::Base, Qt::white);
        cell.setColor(QPalette::Text, Qt::black);
        cell.setColor(QPalette::Window, Qt::lightGray);
    } else if (IsDark(cell.color(QPalette::Base))) {
        cell.setColor(QPalette::Window, Qt::lightGray);
    }
    return cell;
}

} // namespace

CellPalettes MakeCellPalettes(const QPalette& palette, bool plainWindowText)
{
    const QColor plainText = palette.color(QPalette::Active, plainWindowText ? QPalette::Text : QPalette::ButtonText);
    const QColor text = TextOnFixedBackground(palette);
    return { CellPalette(palette, palette.color(QPalette::Active, QPalette::Base), plainText),
        CellPalette(palette, QColor::fromRgb(kCurrentRowColour), text),
        CellPalette(palette, QColor::fromRgb(kFocusedColour), text) };
}

GridText::GridText(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setTextMargins(kTextMarginPx - kEditMarginPx, 0, kTextMarginPx - kEditMarginPx, 0);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void GridText::paintEvent(QPaintEvent* event)
{
    if (hasFocus()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    const QRect area = rect().adjusted(kTextMarginPx, 0, -kTextMarginPx, 0);
    painter.drawText(area, int(alignment()) | Qt::TextSingleLine, text());
}

GridCheck::GridCheck(QWidget* parent)
    : QCheckBox(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool GridCheck::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void GridCheck::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.fillRect(rect(), palette().base());
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter,
        QSize(style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this),
            style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this)),
        rect());
    option.palette = IndicatorPalette(palette(), parentWidget()->palette());
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);
}

GridRowLabel::GridRowLabel(QWidget* parent)
    : QLabel(parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void GridRowLabel::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.fillRect(rect(), palette().button());
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect().adjusted(0, 0, -kTextMarginPx, 0), alignment(), text());
}

GridHeader::GridHeader(QWidget* parent, bool canBeClicked)
    : QLabel(parent)
    , canBeClicked_(canBeClicked)
{
}

void GridHeader::SetSortMark(SortMark mark)
{
    mark_ = mark;
    update();
}

void GridHeader::enterEvent(QEnterEvent*)
{
    update();
}

void GridHeader::leaveEvent(QEvent*)
{
    update();
}

void GridHeader::mousePressEvent(QMouseEvent* event)
{
    pressed_ = canBeClicked_ && event->button() == Qt::LeftButton;
    update();
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    update();
    if (clicked)
        Q_EMIT Clicked();
}

void GridHeader::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionHeader option;
    option.initFrom(this);
    option.state |= QStyle::State_Raised;
    option.state.setFlag(QStyle::State_MouseOver, canBeClicked_ && underMouse());
    option.state.setFlag(QStyle::State_Sunken, pressed_);
    option.position = QStyleOptionHeader::Middle;
    painter.drawControl(QStyle::CE_HeaderSection, option);

    QRect textArea = rect().adjusted(kTextMarginPx, 0, -kTextMarginPx, 0);
    if (mark_ != SortMark::None) {
        const int size = style()->pixelMetric(QStyle::PM_HeaderMarkSize, &option, this);
        const Qt::Alignment side = alignment().testFlag(Qt::AlignRight) ? Qt::AlignLeft : Qt::AlignRight;
        option.rect = QStyle::alignedRect(layoutDirection(), side | Qt::AlignVCenter, QSize(size, size), textArea);
        option.sortIndicator = mark_ == SortMark::Up ? QStyleOptionHeader::SortUp : QStyleOptionHeader::SortDown;
        painter.drawPrimitive(QStyle::PE_IndicatorHeaderArrow, option);
    }
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(textArea, int(alignment()) | Qt::TextSingleLine, text());
}

} // namespace tarvik
