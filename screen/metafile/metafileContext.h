// screen/metafile/metafileContext.h: what the records of a metafile paint with, and on.
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

/// A colour of a record: 0x00BBGGRR, 0x01 and the number of a palette's colour, or 0x02BBGGRR.
using MetafileColour = quint32;

struct MetafilePen {
    enum Line { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4, None = 5, InsideFrame = 6 };
    int Style = Solid;
    int Width = 0; ///< logical units; 0 for one pixel
    MetafileColour Colour = 0;
    Qt::PenCapStyle Cap = Qt::RoundCap;
    Qt::PenJoinStyle Join = Qt::RoundJoin;
};

struct MetafileBrush {
    enum Kind { Solid, None, Hatched, Pattern };
    Kind Style = Solid;
    MetafileColour Colour = 0xFFFFFF;
    int Hatch = 0; ///< 0 to 5: horizontal, vertical, falling, rising, cross, diagonal cross
    QImage Picture; ///< Format_RGB32 of a pattern; Format_Mono where text and background colour make it
};

struct MetafileFont {
    int Height = 0; ///< logical units: of a line, or of the letters alone when negative; 0 for the usual size
    int Width = 0; ///< of an average letter; 0 for that of the font
    int Escapement = 0; ///< 0.1 degrees, counter-clockwise
    int Weight = 0; ///< 0 for normal, else 1 to 1000
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
        QPoint Opposite; ///< outside
    };
    QVector<Part> Parts; ///< logical units
};

struct MetafilePalette {
    QVector<QRgb> Colours;
};

/// A selected object lives on when its number is given to another one.
template <typename Object>
using MetafileShared = std::shared_ptr<Object>;
using MetafileObject = std::variant<std::monostate, MetafileShared<MetafilePen>, MetafileShared<MetafileBrush>,
    MetafileShared<MetafileFont>, MetafileShared<MetafileRegion>, MetafileShared<MetafilePalette>>;

/// Ways to combine what is painted with what is there, numbered from 1: the number less 1 tells in four bits the result
/// for (paint, picture) of 11, 10, 01 and 00.
enum MetafileMix : int { kMixInvert = 6, kMixNothing = 11, kMixCopy = 13 };

/// What SaveDC keeps.
struct MetafileState {
    explicit MetafileState(const tvpicture::MetafileFrame& frame);

    MetafileMapping Mapping;
    QPoint Position; ///< logical units
    MetafileShared<MetafilePen> Pen;
    MetafileShared<MetafileBrush> Brush;
    MetafileShared<MetafileFont> Font;
    MetafileShared<MetafilePalette> Palette;
    int Mix = kMixCopy;
    Qt::FillRule FillRule = Qt::OddEvenFill;
    bool Opaque = true; ///< gaps of lines, hatches and texts show the background colour
    MetafileColour BackColour = 0xFFFFFF;
    MetafileColour TextColour = 0;
    int TextAlign = 0;
    int CharacterExtra = 0; ///< logical units, as the next
    int BreakExtra = 0; ///< for all blanks of a text together
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
    void End(); ///< nothing is painted afterwards

    /// The painter, clipped, to copy onto the picture.
    QPainter& Painter();

    [[nodiscard]] bool Save(); ///< false for a depth that no picture needs
    void Restore(int level); ///< -1 the last one saved, 1 the first one

    /// Objects take the lowest number that is free. Numbers without object are ignored.
    [[nodiscard]] bool Create(MetafileObject object);
    void Delete(int number);
    [[nodiscard]] MetafileObject Object(int number) const;

    /// Takes from the work that a picture may cost, so that a small file cannot occupy the program for hours: pixels
    /// touched, and about as many for each record. False when it is used up.
    [[nodiscard]] bool Spend(qint64 pixels);
    [[nodiscard]] bool SpendArea(const QRect& area); ///< as far as it lies within the picture
    [[nodiscard]] bool KeepPixels(qint64 pixels); ///< of pictures that objects hold

    [[nodiscard]] QColor Colour(MetafileColour colour) const;

    /// How QPainter names a mix.
    static QPainter::CompositionMode ModeOf(int mix);

    /// Both are those of State, in pixels.
    [[nodiscard]] QPen PenToPaint() const;
    [[nodiscard]] QBrush BrushToPaint(const MetafileBrush& brush) const;

private:
    QImage& picture_;
    std::unique_ptr<QPainter> painter_;
    std::optional<QRegion> clip_; ///< of the painter
    std::vector<MetafileState> saved_;
    std::vector<MetafileObject> objects_;
    std::priority_queue<int, std::vector<int>, std::greater<>> freeNumbers_;
    qint64 work_ = 0;
    qint64 keptPixels_ = 0;
};

/// Plays the records of one function. Returns false for a record that contradicts itself.
struct MetafileHandler {
    quint16 Function = 0;
    int Words = 0; ///< least number of parameters
    bool (*Play)(MetafileContext&, const tvpicture::MetafileParameters&) = nullptr;
};

} // namespace tarvik
