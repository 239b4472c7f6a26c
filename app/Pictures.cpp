#include "app/Pictures.h"

#include <QApplication>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QStyle>
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

/// The whole picture in one colour.
QByteArray InOneColour(const QByteArray& picture, const QColor& colour)
{
    static const QRegularExpression colours(QStringLiteral("#[0-9a-fA-F]{6}"));
    return InColour(QString::fromUtf8(picture).replace(colours, colour.name()).toUtf8(), colour);
}

/// Other styles only tint a highlighted item, and leave its text as it was.
bool StyleFillsHighlight()
{
    const QString style = QApplication::style()->name();
    return style == QLatin1String("fusion") || style == QLatin1String("windows");
}

void Paint(QPainter& painter, const QByteArray& picture, const QRectF& rect)
{
    QSvgRenderer renderer(picture);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, rect);
}

class PictureEngine final : public QIconEngine {
public:
    PictureEngine(const QByteArray& picture, bool isForMenu)
        : picture_(picture)
        , isForMenu_(isForMenu)
    {
    }

    /// A picture that is paler as a whole: its parts must not show through each other.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        if (mode != QIcon::Disabled) {
            Paint(*painter, Coloured(mode), rect);
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
    /// A menu paints the picture of its highlighted item as an active one.
    QByteArray Coloured(QIcon::Mode mode) const
    {
        const QPalette palette = QGuiApplication::palette();
        if (isForMenu_ && mode == QIcon::Active && StyleFillsHighlight())
            return InOneColour(picture_, palette.color(QPalette::HighlightedText));
        return InColour(picture_, palette.color(QPalette::WindowText));
    }

    QByteArray picture_;
    bool isForMenu_;
};

QIcon MakeIcon(const QString& name, bool isForMenu)
{
    const QByteArray picture = ReadPicture(name);
    return picture.isEmpty() ? QIcon() : QIcon(new PictureEngine(picture, isForMenu));
}

} // namespace

QIcon PictureIcon(const QString& name)
{
    return MakeIcon(name, false);
}

QIcon MenuPictureIcon(const QString& name)
{
    return MakeIcon(name, true);
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
