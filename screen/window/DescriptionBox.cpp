#include "screen/window/DescriptionBox.h"

#include "app/forms/form.h"
#include "screen/document/description.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace tarvik {

namespace {

/// Positions the lines by the common rule, whatever fonts they use.
class BoxLayout final : public QPlainTextDocumentLayout {
public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    /// Reports one pixel less for the last block: the box leaves a pixel at its edge unused, and would scroll for it.
    QRectF blockBoundingRect(const QTextBlock& block) const override
    {
        QRectF place = QPlainTextDocumentLayout::blockBoundingRect(block); // performs the layout if needed
        if (!block.isValid())
            return place;
        const QFont font = document()->defaultFont();
        DescriptionPlaceLines(*block.layout(), font);
        const int height = block.layout()->lineCount() * DescriptionPitch(font);
        place.setHeight(block.next().isValid() ? height : height - 1);
        return place;
    }
};

} // namespace

DescriptionBox::DescriptionBox(QWidget* parent)
    : QPlainTextEdit(parent)
{
    NameControl(this, QStringLiteral("TbDescription"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    setAcceptDrops(false); // files dropped here belong to the frame
    auto* text = new QTextDocument(this);
    text->setDocumentLayout(new BoxLayout(text));
    text->setDocumentMargin(0);
    setDocument(text);
    text->setDefaultTextOption(DescriptionBreaks());
    connect(this, &QPlainTextEdit::textChanged, this, &DescriptionBox::Change);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &DescriptionBox::Stand);
}

/// Not toPlainText, which converts non-breaking spaces.
QString DescriptionBox::Text() const
{
    return document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

void DescriptionBox::SetText(const QString& text)
{
    const QString plain = DescriptionPlain(text);
    if (Text() == plain)
        return;
    const QSignalBlocker silence(this);
    if (answering_)
        Replace(plain);
    else
        setPlainText(plain);
    moveCursor(QTextCursor::End);
}

void DescriptionBox::Change()
{
    Tidy();
    const QScopedValueRollback<bool> answering(answering_, true);
    Q_EMIT Edited(Text());
}

/// Line ends and control characters can come from typing, pasting and input methods.
void DescriptionBox::Tidy()
{
    const QString text = Text();
    const QString plain = DescriptionPlain(text);
    if (text == plain)
        return;
    const QSignalBlocker silence(this);
    QTextCursor cursor(document());
    cursor.joinPreviousEditBlock();
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == plain[at])
            continue;
        cursor.setPosition(static_cast<int>(at));
        cursor.setPosition(static_cast<int>(at + 1), QTextCursor::KeepAnchor);
        cursor.insertText(plain.mid(at, 1));
    }
    cursor.endEditBlock();
}

/// Forms one undo step with the typing that caused it.
void DescriptionBox::Replace(const QString& text)
{
    const QString held = Text();
    const auto different = std::mismatch(held.cbegin(), held.cend(), text.cbegin(), text.cend()).first;
    const qsizetype same = different - held.cbegin();
    QTextCursor cursor(document());
    cursor.joinPreviousEditBlock();
    cursor.setPosition(static_cast<int>(same));
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(same));
    cursor.endEditBlock();
}

void DescriptionBox::SetPlace(const QRect& place, const QFont& font)
{
    if (this->font() != font)
        setFont(font);
    if (place.width() != width())
        document()->clearUndoRedoStacks(); // a text that fits the old width need not fit the new one
    place_ = place;
    resize(place.size());
    Stand();
    verticalScrollBar()->setValue(0); // typing below the edge has scrolled it
}

void DescriptionBox::Stand()
{
    const int window = parentWidget()->width();
    int left = place_.left();
    if (hasFocus() && place_.width() > window) {
        const QRect caret = cursorRect();
        left = std::max(std::min({ x(), window - caret.right() - 1, 0 }), -caret.left());
    }
    move(left, place_.top());
}

void DescriptionBox::SetColours(const QColor& paper, const QColor& text)
{
    QPalette colours = palette();
    if (colours.color(QPalette::Base) == paper && colours.color(QPalette::Text) == text)
        return;
    colours.setColor(QPalette::Base, paper);
    colours.setColor(QPalette::Text, text);
    setPalette(colours);
}

/// No scrolling on a click, which is always at a visible position.
void DescriptionBox::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason)
        Stand();
}

void DescriptionBox::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    Stand();
}

/// Without a selection, copying is left to the frame, which copies the picture.
void DescriptionBox::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy) && !textCursor().hasSelection())
        event->ignore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void DescriptionBox::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // all of it is visible
}

/// Limits the work on a text that is too long in any case.
void DescriptionBox::insertFromMimeData(const QMimeData* source)
{
    insertPlainText(DescriptionPlain(source->text().left(kMaxLaidOutCharacters)));
}

} // namespace tarvik
