#include "lists/editor/gridCells.h"

#include "app/forms/darkColor.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStyleOptionHeader>
#include <QStylePainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QWheelEvent>

#include <algorithm>

namespace tarvik {

namespace {

constexpr QRgb kCurrentRowColour = 0xFFBBBB55;
constexpr QRgb kFocusedInRowColour = 0xFFEEEE88;
constexpr QRgb kFocusedColour = 0xFFDDDD77;
constexpr QRgb kInvalidColour = 0xFFDD7777;
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

/// The system's colour if it is dark, else black.
QColor TextOnFixedBackground(const QPalette& palette, QPalette::ColorRole role)
{
    const QColor text = palette.color(QPalette::Active, role);
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

CellPalettes MakeCellPalettes(const QPalette& palette, const CellColours& colours)
{
    const auto fixed = [&palette](QRgb background, QPalette::ColorRole text) {
        return CellPalette(palette, QColor::fromRgb(background), TextOnFixedBackground(palette, text));
    };
    const QPalette::ColorRole plainText = colours.PlainWindowText ? QPalette::Text : QPalette::ButtonText;
    return { CellPalette(
                 palette, palette.color(QPalette::Active, QPalette::Base), palette.color(QPalette::Active, plainText)),
        fixed(kCurrentRowColour, QPalette::Text),
        colours.HighlightsRow ? fixed(kFocusedInRowColour, QPalette::Text)
                              : fixed(kFocusedColour, QPalette::ButtonText),
        fixed(kInvalidColour, QPalette::ButtonText) };
}

bool IsFocusMoved(const QFocusEvent& event)
{
    const Qt::FocusReason reason = event.reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

GridText::GridText(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setTextMargins(kTextMarginPx - kEditMarginPx, 0, kTextMarginPx - kEditMarginPx, 0);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QString GridText::Text() const
{
    return text();
}

void GridText::SetText(const QString& shown)
{
    if (text() != shown) {
        setMaxLength(std::max(limit_, static_cast<int>(shown.size()))); // else it would be cut
        setText(shown);
    }
    if (!hasFocus())
        setCursorPosition(0);
}

void GridText::SelectAll()
{
    selectAll();
}

void GridText::SetLimit(int length)
{
    limit_ = length;
    setMaxLength(length);
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

GridLines::GridLines(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(true);
    setAcceptDrops(false);
    document()->setDocumentMargin(kTextMarginPx - 1);
    setViewportMargins(0, 0, 0, kTextMarginPx - 1); // no part of a further line
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { Q_EMIT Edited(Text()); });
}

QString GridLines::Text() const
{
    return document()->toRawText().replace(QChar::ParagraphSeparator, u' ');
}

void GridLines::SetText(const QString& text)
{
    if (Text() != text)
        setPlainText(text);
    if (!hasFocus())
        moveCursor(QTextCursor::Start);
}

void GridLines::SelectAll()
{
    selectAll();
}

void GridLines::SetLimit(int length)
{
    limit_ = length;
}

bool GridLines::IsCaretInFirstLine() const
{
    QTextCursor caret = textCursor();
    return !caret.movePosition(QTextCursor::Up);
}

bool GridLines::IsCaretInLastLine() const
{
    QTextCursor caret = textCursor();
    return !caret.movePosition(QTextCursor::Down);
}

/// Characters that can be inserted, over the selection if there is one.
int GridLines::Room() const
{
    const QTextCursor caret = textCursor();
    const auto selected = caret.selectionEnd() - caret.selectionStart();
    return std::max(0, limit_ - static_cast<int>(Text().size()) + selected);
}

/// As in a text box, Tab selects the text.
void GridLines::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

/// Shows the beginning of the text, without a selection.
void GridLines::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (IsFocusMoved(*event))
        moveCursor(QTextCursor::Start);
}

void GridLines::insertFromMimeData(const QMimeData* source)
{
    insertPlainText(source->text().simplified().left(Room()));
}

void GridLines::keyPressEvent(QKeyEvent* event)
{
    const QString typed = event->text();
    const bool isCharacter = !typed.isEmpty() && typed.front().isPrint();
    if (isCharacter && Room() < typed.size())
        return;
    QPlainTextEdit::keyPressEvent(event);
}

/// The grid turns its pages; the caret scrolls the text.
void GridLines::wheelEvent(QWheelEvent* event)
{
    event->ignore();
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
