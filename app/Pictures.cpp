#include "app/Pictures.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

void EnsureResources()
{
    Q_INIT_RESOURCE(pictures);
}

namespace {

constexpr qreal kDisabledOpacity = 0.38;

QByteArray ReadPicture(const QString& name)
{
    EnsureResources();
    QFile file(QStringLiteral(":/pictures/") + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Lines that follow the text are drawn in `currentColor`, which the renderer itself does not know.
QByteArray InColour(QByteArray picture, const QColor& text)
{
    return picture.replace("currentColor", text.name().toLatin1());
}

void Paint(QPainter& painter, const QByteArray& picture, const QRectF& rect)
{
    QSvgRenderer renderer(picture);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, rect);
}

class PictureEngine final : public QIconEngine {
public:
    explicit PictureEngine(const QByteArray& picture)
        : picture_(picture)
    {
    }

    /// A picture that is paler as a whole: its parts must not show through each other.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        if (mode != QIcon::Disabled) {
            Paint(*painter, InColour(picture_, QGuiApplication::palette().color(QPalette::WindowText)), rect);
            return;
        }
        const qreal scale = painter->device()->devicePixelRatioF();
        QPixmap whole = pixmap(rect.size() * scale, QIcon::Normal, state);
        whole.setDevicePixelRatio(scale);
        painter->save();
        painter->setOpacity(painter->opacity() * kDisabledOpacity);
        painter->drawPixmap(rect.topLeft(), whole);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    bool isNull() override
    {
        return picture_.isEmpty();
    }

    QIconEngine* clone() const override
    {
        return new PictureEngine(*this);
    }

private:
    QByteArray picture_;
};

} // namespace

QIcon PictureIcon(const QString& name)
{
    const QByteArray picture = ReadPicture(name);
    return picture.isEmpty() ? QIcon() : QIcon(new PictureEngine(picture));
}

QPixmap PicturePixmap(const QString& name, qreal devicePixelRatio)
{
    const QByteArray picture = ReadPicture(name);
    if (picture.isEmpty())
        return {};
    const QSize natural = QSvgRenderer(picture).defaultSize();
    QPixmap pixmap(natural * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    Paint(painter, InColour(picture, QGuiApplication::palette().color(QPalette::WindowText)),
        QRectF(QPointF(), QSizeF(natural)));
    return pixmap;
}

QIcon ProgramIcon()
{
    return PictureIcon(QStringLiteral("tarvik"));
}
