#include "screen/window/PictureBox.h"

#include "app/forms/form.h"

#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace tarvik {

PictureBox::PictureBox(QWidget* parent, const char* name, Source source)
    : QWidget(parent)
    , source_(std::move(source))
{
    NameControl(this, QString::fromLatin1(name));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::PictureChanged()
{
    shown_ = {};
    update();
}

const QImage& PictureBox::Picture()
{
    const QSize wanted = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (shown_.isNull() || shownFor_ != wanted) {
        shown_ = source_(wanted);
        shownFor_ = wanted;
    }
    return shown_;
}

void PictureBox::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QImage& picture = Picture();
    if (picture.isNull()) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, picture.size() != shownFor_);
    painter.drawImage(QRectF(rect()), picture);
}

} // namespace tarvik
