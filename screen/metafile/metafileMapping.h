// screen/metafile/metafileMapping.h: from the logical units of a metafile to the pixels of its picture.
#pragma once

#include "closed/pictures/metafile.h"

#include <QPoint>
#include <QPointF>
#include <QRect>

namespace tarvik {

/// A side length is told by two points, so that neighbours meet without gap.
class MetafileMapping {
public:
    explicit MetafileMapping(const tvpicture::MetafileFrame& frame);

    /// Modes with units of a fixed size count upwards and ignore the extents; MapText stands for the units of the
    /// frame, which are pixels in nearly all files.
    void SetMode(quint16 mode);

    void SetWindowOrigin(QPoint origin);
    void MoveWindowOrigin(QPoint by);
    void SetWindowExtent(QPoint extent); ///< an extent of 0 is ignored, as everywhere here
    void ScaleWindowExtent(QPoint by, QPoint over);

    /// Pixels.
    void SetViewportOrigin(QPoint origin);
    void MoveViewportOrigin(QPoint by);
    void SetViewportExtent(QPoint extent);
    void ScaleViewportExtent(QPoint by, QPoint over);

    [[nodiscard]] QPoint ToDevice(QPoint logical) const;

    /// The pixels between two corners; the lower right one lies outside. The sign of a side is lost.
    [[nodiscard]] QRect ToDevice(QPoint corner, QPoint opposite) const;

    /// Pixels a unit; negative where the axis runs the other way.
    [[nodiscard]] QPointF Scale() const
    {
        return scale_;
    }

    /// Length in pixels along an axis, without sign. At most 16 million, which is far beyond every picture.
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
