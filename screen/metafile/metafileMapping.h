// screen/metafile/metafileMapping.h: maps the logical units of a metafile to pixels.
#pragma once

#include "closed/pictures/metafile.h"

#include <QPoint>
#include <QPointF>
#include <QRect>

namespace tarvik {

/// Lengths are differences of mapped points, so that adjacent shapes meet without a gap.
class MetafileMapping {
public:
    explicit MetafileMapping(const tvpicture::MetafileFrame& frame);

    /// Modes with units of a fixed size point upwards and ignore the extents; MapText uses the units of the frame,
    /// pixels in nearly all files.
    void SetMode(quint16 mode);

    void SetWindowOrigin(QPoint origin);
    void MoveWindowOrigin(QPoint by);
    void SetWindowExtent(QPoint extent); ///< an extent of 0 is ignored, as everywhere in this class
    void ScaleWindowExtent(QPoint by, QPoint over);

    /// Pixels.
    void SetViewportOrigin(QPoint origin);
    void MoveViewportOrigin(QPoint by);
    void SetViewportExtent(QPoint extent);
    void ScaleViewportExtent(QPoint by, QPoint over);

    [[nodiscard]] QPoint ToDevice(QPoint logical) const;

    /// The pixels between two corners; the bottom right one is exclusive. Normalised.
    [[nodiscard]] QRect ToDevice(QPoint corner, QPoint opposite) const;

    /// Pixels per unit; negative if the axis is reversed.
    [[nodiscard]] QPointF Scale() const
    {
        return scale_;
    }

    /// Absolute length in pixels along an axis, at most 16 million.
    [[nodiscard]] double Across(int units) const;
    [[nodiscard]] double Down(int units) const;

private:
    void Update();

    tvpicture::MetafileFrame frame_;
    quint16 mode_ = tvpicture::MapAnisotropic;
    QPoint windowOrigin_;
    QPointF windowExtent_;
    QPoint viewportOrigin_;
    QPointF viewportExtent_;
    QPointF scale_;
};

} // namespace tarvik
