#include "screen/window/DocumentControls.h"

#include "app/forms/form.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "screen/document/color.h"
#include "screen/document/description.h"
#include "screen/window/DescriptionBox.h"
#include "screen/window/PictureBox.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/screenWindow.h"

#include <QFrame>
#include <QKeyEvent>

namespace tarvik {

QFrame* NewDocumentLine(QWidget* window, const char* name)
{
    auto* line = new QFrame(window);
    NameControl(line, QString::fromLatin1(name));
    line->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Plain));
    line->setFixedHeight(1);
    return line;
}

void SetDocumentColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour)
{
    QPalette colours = widget->palette();
    colours.setColor(role, colour);
    widget->setPalette(colours);
}

DocumentControls::DocumentControls(QWidget* window, WindowId id)
    : QObject(window)
    , window_(window)
    , id_(id)
{
    PbGraph = new PictureBox(window, "PbGraph", [id](QSize devicePixels) { return DrawnPicture(id, devicePixels); });
    PbGraph->setFocusPolicy(Qt::StrongFocus);
    LnDescr = NewDocumentLine(window, "LnDescr");
    LnDescr->hide();
    TbDescription = new DescriptionBox(window);
    TbDescription->setAccessibleName(LngStr(TextId::DescriptionLabel));
    TbDescription->hide();
    TbDescription->installEventFilter(this);
    connect(TbDescription, &DescriptionBox::Edited, this, [id](const QString& text) { DescrTextChanged(id, text); });
}

/// If the box with the focus is hidden, the focus stays in the window.
void DocumentControls::LayOutDescription(const DescriptionLayout& layout)
{
    if (!layout.Visible && TbDescription == window_->window()->focusWidget())
        PbGraph->setFocus();
    TbDescription->SetPlace(layout.Text, DescrFont(WindowTypeOf(id_)));
    LnDescr->setGeometry(0, layout.LineTop, window_->width(), 1);
    TbDescription->setVisible(layout.Visible);
    LnDescr->setVisible(layout.Visible);
}

bool DocumentControls::SetColours(quint32 paper, quint32 text)
{
    const std::pair wanted(paper, text);
    if (std::exchange(colours_, wanted) == wanted)
        return false;
    SetDocumentColour(window_, QPalette::Window, ColorOf(paper));
    SetDocumentColour(LnDescr, QPalette::WindowText, ColorOf(text));
    TbDescription->SetColours(ColorOf(paper), ColorOf(text));
    return true;
}

bool DocumentControls::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1)
        PbGraph->setFocus();
    return QObject::eventFilter(watched, event);
}

} // namespace tarvik
