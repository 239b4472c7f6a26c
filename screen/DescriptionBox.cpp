#include "screen/DescriptionBox.h"

#include "app/form.h"
#include "screen/description.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocument>

namespace {

/// As the box tells its own text.
QString WithLineFeeds(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

DescriptionBox::DescriptionBox(QWidget* parent)
    : QPlainTextEdit(parent)
{
    NameControl(this, QStringLiteral("TbDescription"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(true);
    setAcceptDrops(false); // a file that is dropped here is the frame's
    document()->setDocumentMargin(0);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { Q_EMIT Edited(toPlainText()); });
}

void DescriptionBox::SetText(const QString& text)
{
    const QString lines = WithLineFeeds(text);
    if (toPlainText() == lines)
        return;
    const QSignalBlocker silence(this);
    setPlainText(lines);
    moveCursor(QTextCursor::End);
}

void DescriptionBox::SetPlace(const QRect& place, const QFont& font)
{
    if (this->font() != font)
        setFont(font);
    setGeometry(place);
    verticalScrollBar()->setValue(0); // a line that was typed below the edge had scrolled it
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

/// Without a selection there is no text to copy: the frame copies the picture.
void DescriptionBox::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy) && !textCursor().hasSelection())
        event->ignore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void DescriptionBox::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // all of it is seen
}

void DescriptionBox::insertFromMimeData(const QMimeData* source)
{
    insertPlainText(WithLineFeeds(DescrNormalised(source->text())));
}
