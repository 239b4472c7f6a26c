#include "closed/pictures/metafileBounds.h"

#include <algorithm>

namespace tvpicture {

namespace {

/// Layout of the coordinates in a record, starting at a given word.
enum class Shape {
    Point, ///< y, x
    Corners, ///< bottom, right, top, left
    Extent, ///< height, width, y, x
    Points, ///< count, then x and y of each point
    Polygons, ///< number of polygons, number of points of each, then x and y of each point
    Text, ///< count, that many bytes padded to whole words, y, x
};

struct Place {
    uint16_t Function;
    Shape Form;
    int Word;
};

constexpr Place kPlaces[] = {
    { MetaLineTo, Shape::Point, 0 },
    { MetaMoveTo, Shape::Point, 0 },
    { MetaSetPixel, Shape::Point, 2 },
    { MetaExtTextOut, Shape::Point, 0 },
    { MetaTextOut, Shape::Text, 0 },
    { MetaEllipse, Shape::Corners, 0 },
    { MetaRectangle, Shape::Corners, 0 },
    { MetaRoundRect, Shape::Corners, 2 },
    { MetaArc, Shape::Corners, 4 },
    { MetaPie, Shape::Corners, 4 },
    { MetaChord, Shape::Corners, 4 },
    { MetaPatBlt, Shape::Extent, 2 },
    { MetaBitBlt, Shape::Extent, 4 },
    { MetaDibBitBlt, Shape::Extent, 4 },
    { MetaSetDibToDev, Shape::Extent, 5 },
    { MetaStretchBlt, Shape::Extent, 6 },
    { MetaDibStretchBlt, Shape::Extent, 6 },
    { MetaStretchDib, Shape::Extent, 7 },
    { MetaPolygon, Shape::Points, 0 },
    { MetaPolyline, Shape::Points, 0 },
    { MetaPolyPolygon, Shape::Polygons, 0 },
};

void AddPoint(int x, int y, std::optional<MetafileBox>& box)
{
    if (!box)
        box = MetafileBox{ x, y, x, y };
    box->Left = std::min(box->Left, x);
    box->Right = std::max(box->Right, x);
    box->Top = std::min(box->Top, y);
    box->Bottom = std::max(box->Bottom, y);
}

/// Adds points up to the end of the record; the count before them is not trusted.
void AddPoints(const MetafileParameters& p, int word, std::optional<MetafileBox>& box)
{
    for (; word + 1 < p.Words(); word += 2)
        AddPoint(p.Signed(word), p.Signed(word + 1), box);
}

/// Adds the reference point of a text.
void AddText(const MetafileParameters& p, std::optional<MetafileBox>& box)
{
    const int place = 1 + (p.Word(0) + 1) / 2;
    if (place + 1 < p.Words())
        AddPoint(p.Signed(place + 1), p.Signed(place), box);
}

/// Adds a rectangle whose far edges are exclusive.
void AddCorners(int x1, int y1, int x2, int y2, std::optional<MetafileBox>& box)
{
    AddPoint(std::min(x1, x2), std::min(y1, y2), box);
    AddPoint(std::max({ x1, x2, std::min(x1, x2) + 1 }) - 1, std::max({ y1, y2, std::min(y1, y2) + 1 }) - 1, box);
}

} // namespace

void AddBounds(const MetafileRecord& record, std::optional<MetafileBox>& box)
{
    const auto* const place = std::find_if(
        std::begin(kPlaces), std::end(kPlaces), [&](const Place& p) { return p.Function == record.Function; });
    if (place == std::end(kPlaces))
        return;
    const MetafileParameters& p = record.Parameters;
    const int at = place->Word;
    switch (place->Form) {
    case Shape::Point:
        AddPoint(p.Signed(at + 1), p.Signed(at), box);
        break;
    case Shape::Corners:
        AddCorners(p.Signed(at + 3), p.Signed(at + 2), p.Signed(at + 1), p.Signed(at), box);
        break;
    case Shape::Extent: {
        const int x = p.Signed(at + 3);
        const int y = p.Signed(at + 2);
        AddCorners(x, y, x + p.Signed(at + 1), y + p.Signed(at), box);
        break;
    }
    case Shape::Points:
        AddPoints(p, 1, box);
        break;
    case Shape::Polygons:
        AddPoints(p, 1 + p.Word(0), box);
        break;
    case Shape::Text:
        AddText(p, box);
        break;
    }
}

} // namespace tvpicture
