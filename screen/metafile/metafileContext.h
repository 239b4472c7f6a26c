// screen/metafile/metafileContext.h: the device context in which the records of a metafile paint.
#pragma once

#include "screen/metafile/metafileMapping.h"

#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QString>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>
#include <queue>
#include <span>
#include <variant>
#include <vector>

namespace tarvik {

/// A COLORREF: 0x00BBGGRR, 0x01 with a palette index, or 0x02BBGGRR.
using MetafileColour = quint32;

struct MetafilePen {
    enum class Line { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4, None = 5, InsideFrame = 6 };
    Line Style = Line::Solid; ///< unknown values of a file are drawn solid
    int Width = 0; ///< logical units; 0 means one pixel
    MetafileColour Colour = 0;
    Qt::PenCapStyle Cap = Qt::RoundCap;
    Qt::PenJoinStyle Join = Qt::RoundJoin;
};

struct MetafileBrush {
    enum class Kind { Solid, None, Hatched, Pattern };
    Kind Style = Kind::Solid;
    MetafileColour Colour = 0xFFFFFF;
    int Hatch = 0; ///< 0 to 5: horizontal, vertical, falling, rising, cross, diagonal cross
    QImage Picture; ///< Format_RGB32 for a pattern; Format_Mono if text and background colour apply
};

struct MetafileFont {
    int Height = 0; ///< logical units: line height, or character height if negative; 0 for the default
    int Width = 0; ///< average character width; 0 for that of the font
    int Escapement = 0; ///< 0.1 degrees, counter-clockwise
    int Weight = 0; ///< 0 for normal, otherwise 1 to 1000
    bool Italic = false;
    bool Underline = false;
    bool StrikeOut = false;
    quint8 CharacterSet = 0;
    quint8 PitchAndFamily = 0;
    QString Face;
};

struct MetafileRegion {
    struct Part {
        QPoint Corner;
        QPoint Opposite; ///< exclusive
    };
    QVector<Part> Parts; ///< logical units
};

struct MetafilePalette {
    QVector<QRgb> Colours;
};

/// A selected object survives the reuse of its index.
template <typename Object>
using MetafileShared = std::shared_ptr<Object>;
using MetafileObject = std::variant<std::monostate, MetafileShared<MetafilePen>, MetafileShared<MetafileBrush>,
    MetafileShared<MetafileFont>, MetafileShared<MetafileRegion>, MetafileShared<MetafilePalette>>;

/// ROP2 codes, numbered from 1: the code less 1 holds in four bits the result for (paint, picture) of 11, 10, 01 and
/// 00.
enum MetafileRop2 : int { kRop2Invert = 6, kRop2Nop = 11, kRop2Copy = 13 };

/// The state that SaveDC saves.
struct MetafileState {
    explicit MetafileState(const tvpicture::MetafileFrame& frame);

    MetafileMapping Mapping;
    QPoint Position; ///< logical units
    MetafileShared<MetafilePen> Pen;
    MetafileShared<MetafileBrush> Brush;
    MetafileShared<MetafileFont> Font;
    MetafileShared<MetafilePalette> Palette;
    int Rop2 = kRop2Copy;
    Qt::FillRule FillRule = Qt::OddEvenFill;
    bool Opaque = true; ///< gaps of lines, hatches and text show the background colour
    MetafileColour BackColour = 0xFFFFFF;
    MetafileColour TextColour = 0;
    int TextAlign = 0;
    int CharacterExtra = 0; ///< logical units, as is BreakExtra
    int BreakExtra = 0; ///< for all blanks of a text in total
    int BreakCount = 0;
    int StretchMode = 1;
    std::optional<QRegion> Clip; ///< pixels
};

class MetafileContext {
public:
    MetafileContext(const tvpicture::MetafileFrame& frame, QImage& picture);

    MetafileState State;

    [[nodiscard]] QImage& Picture()
    {
        return picture_;
    }
    void End(); ///< ends painting

    /// The painter, clipped, for copying to the picture.
    QPainter& Painter();

    [[nodiscard]] bool Save(); ///< false beyond the supported depth
    void Restore(int level); ///< -1 is the state saved last, 1 the first

    /// Objects get the lowest free index. Unused indexes are ignored.
    [[nodiscard]] bool Create(MetafileObject object);
    void Delete(int number);
    [[nodiscard]] MetafileObject Object(int number) const;

    /// Charges the work budget of a picture, so that a small file cannot occupy the program for hours. The unit is
    /// about one painted pixel; each record costs some too. False once it is exhausted.
    [[nodiscard]] bool Spend(qint64 pixels);
    [[nodiscard]] bool SpendArea(const QRect& area); ///< the part within the picture
    [[nodiscard]] bool KeepPixels(qint64 pixels); ///< pixels of pictures held by objects

    [[nodiscard]] QColor Colour(MetafileColour colour) const;

    /// QPainter's composition mode for a ROP2.
    static QPainter::CompositionMode ModeOf(int rop2);

    /// Pen and brush of State, in pixels.
    [[nodiscard]] QPen PenToPaint() const;
    [[nodiscard]] QBrush BrushToPaint(const MetafileBrush& brush) const;

private:
    QImage& picture_;
    std::unique_ptr<QPainter> painter_;
    std::optional<QRegion> clip_; ///< currently set on the painter
    std::vector<MetafileState> saved_;
    std::vector<MetafileObject> objects_;
    std::priority_queue<int, std::vector<int>, std::greater<>> freeNumbers_;
    qint64 work_ = 0;
    qint64 keptPixels_ = 0;
};

/// Plays the records of one function. False for an invalid record.
struct MetafileHandler {
    quint16 Function = 0;
    int Words = 0; ///< minimum number of parameters
    bool (*Play)(MetafileContext&, const tvpicture::MetafileParameters&) = nullptr;
};

} // namespace tarvik
