#include "screen/document/fit.h"

#include "screen/bitmap/pictureLimits.h"

#include <QtMath>

#include <algorithm>
#include <cstdlib>

namespace tarvik {

namespace {

/// The aspect ratio in both directions, with the height of what is below the picture.
class Aspect {
public:
    explicit Aspect(const FitInput& input)
        : ratio_(double(input.Master.width()) / input.Master.height())
        , below_(input.DescriptionHeight + input.StatusHeight)
    {
    }

    QSize ByWidth(int width) const
    {
        return { std::max(width, 1), std::max(qRound(width / ratio_), 1) + below_ };
    }

    /// The block below the picture is scaled along with it, although its height is fixed.
    QSize ByHeight(QSize client) const
    {
        const double needed = client.width() / ratio_ + below_;
        const double width = below_ == 0 ? client.height() * ratio_ : double(client.width()) * client.height() / needed;
        return { std::max(qRound(width), 1), client.height() };
    }

    /// A window is saved at its size and needs that much memory, so it is never larger than a picture may be.
    QSize WithinLimits(QSize client) const
    {
        const double width = client.width();
        const double height = std::max(client.height() - below_, 1);
        if (IsAllowedPicture(client.width(), qint64(height)))
            return client;
        const double scale =
            std::min({ TVIMG_MAX_SIDE / width, TVIMG_MAX_SIDE / height, qSqrt(kMaxPicturePixels / (width * height)) });
        return ByWidth(qFloor(width * scale));
    }

private:
    double ratio_;
    int below_;
};

/// After the user has dragged a border, or the height of the description has changed.
QSize FitDragged(const FitInput& input, const Aspect& aspect, QSize client)
{
    const QSize byWidth = aspect.ByWidth(client.width());
    const QSize byHeight = aspect.ByHeight(client);
    const int widthChange = std::abs(client.width() - input.Graph.width());
    const int heightChange =
        std::abs(input.Graph.height() + input.DescriptionHeight + input.StatusHeight - client.height());
    if (widthChange == 0 && heightChange == 0 && (byWidth == client || byHeight == client))
        return client;
    const QSize fitted = widthChange > heightChange ? byWidth : byHeight;
    const QSize least = aspect.ByWidth(std::min(kMinDraggedWidthPx, input.Master.width()));
    return fitted.width() < least.width() || fitted.height() < least.height() ? least : fitted;
}

QSize Fitted(const FitInput& input, const Aspect& aspect, QSize client)
{
    switch (input.Arranging) {
    case Arrangement::Cascade:
        return client;
    case Arrangement::TileHorizontally:
        return aspect.ByHeight(client);
    case Arrangement::TileVertically: {
        const QSize byWidth = aspect.ByWidth(client.width());
        return byWidth.height() > client.height() ? aspect.ByHeight(client) : byWidth;
    }
    default:
        return FitDragged(input, aspect, client);
    }
}

} // namespace

QSize FitClient(const FitInput& input)
{
    const QSize client = input.Client.expandedTo({ 1, 1 });
    if (input.Master.isEmpty())
        return client;
    const Aspect aspect(input);
    return aspect.WithinLimits(Fitted(input, aspect, client));
}

QSize GraphFor(QSize client, bool descriptionVisible, int descriptionTop)
{
    return { std::max(client.width(), 1), std::max(descriptionVisible ? descriptionTop : client.height(), 1) };
}

} // namespace tarvik
