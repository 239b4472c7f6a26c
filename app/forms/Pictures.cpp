#include "app/forms/Pictures.h"

#include <QApplication>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QStyle>
#include <QSvgRenderer>

// Outside any namespace, as the macro requires.
static void InitResources()
{
    Q_INIT_RESOURCE(pictures);
}

namespace tarvik {

void EnsureResources()
{
    InitResources();
}

namespace {

constexpr qreal kDisabledOpacity = 0.38;

QByteArray ReadPicture(const QString& name)
{
    EnsureResources();
    QFile file(QStringLiteral(":/pictures/") + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Lines that follow the text are drawn in `currentColor`, which the renderer does not support.
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

/// Other styles only tint a highlighted item and keep the colour of its text.
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
    PictureEngine(const QString& name, const QByteArray& picture, bool isForMenu)
        : name_(name)
        , picture_(picture)
        , isForMenu_(isForMenu)
    {
    }

    /// One to one in device pixels, to be sharp; at a fractional scale that exceeds `rect` by up to half a pixel.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect.topLeft(), Drawn((QSizeF(rect.size()) * scale).toSize(), scale, mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        return Drawn(size, 1, mode);
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
    /// What the picture is drawn with. A menu paints the picture of its highlighted item as an active one.
    struct Look {
        QColor Colour; ///< of the lines that follow the text
        bool OneColour = false; ///< everything else has it too
        bool Pale = false;
    };

    Look LookOf(QIcon::Mode mode) const
    {
        const QPalette palette = QGuiApplication::palette();
        if (isForMenu_ && mode == QIcon::Active && StyleFillsHighlight())
            return { palette.color(QPalette::HighlightedText), true, false };
        return { palette.color(QPalette::WindowText), false, mode == QIcon::Disabled };
    }

    /// Cached by size and look, since title bars and buttons are painted often.
    QPixmap Drawn(const QSize& devicePixels, qreal scale, QIcon::Mode mode) const
    {
        if (devicePixels.isEmpty())
            return {};
        const Look look = LookOf(mode);
        const QString key = QStringLiteral("picture %1 %2 %3 %4 %5x%6 %7")
                                .arg(name_, look.Colour.name())
                                .arg(look.OneColour)
                                .arg(look.Pale)
                                .arg(devicePixels.width())
                                .arg(devicePixels.height())
                                .arg(scale);
        QPixmap drawn;
        if (QPixmapCache::find(key, &drawn))
            return drawn;
        drawn = Draw(devicePixels, look);
        drawn.setDevicePixelRatio(scale);
        QPixmapCache::insert(key, drawn);
        return drawn;
    }

    QPixmap Draw(const QSize& size, const Look& look) const
    {
        QPixmap drawn = Clear(size);
        QPainter painter(&drawn);
        Paint(painter, look.OneColour ? InOneColour(picture_, look.Colour) : InColour(picture_, look.Colour),
            QRectF(QPointF(), QSizeF(size)));
        painter.end();
        return look.Pale ? Paler(drawn) : drawn;
    }

    static QPixmap Clear(const QSize& size)
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        return pixmap;
    }

    /// Paler as a whole: its parts must not show through each other.
    static QPixmap Paler(const QPixmap& whole)
    {
        QPixmap paler = Clear(whole.size());
        QPainter painter(&paler);
        painter.setOpacity(kDisabledOpacity);
        painter.drawPixmap(0, 0, whole);
        return paler;
    }

    QString name_;
    QByteArray picture_;
    bool isForMenu_;
};

QIcon MakeIcon(const QString& name, bool isForMenu)
{
    const QByteArray picture = ReadPicture(name);
    return picture.isEmpty() ? QIcon() : QIcon(new PictureEngine(name, picture, isForMenu));
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

} // namespace tarvik
