#include "closed/pictures/metafile.h"

#include "closed/pictures/metafileBounds.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tvpicture {

namespace {

constexpr int kMetafileHeaderWords = 9;

struct Pair {
    int X = 0;
    int Y = 0;
};

/// Extents set by the first record of each kind: the size of a file without a placeable header.
struct Extents {
    uint16_t Mode = MapText;
    std::optional<Pair> Origin;
    std::optional<Pair> Window;
    std::optional<Pair> Viewport;
};

/// The header of a metafile of type memory or disk, version 1.0 or 3.0.
bool IsMetafileHeader(const MetafileParameters& header)
{
    const uint16_t type = header.Word(0);
    const uint16_t version = header.Word(2);
    return header.Words() >= kMetafileHeaderWords && (type == 1 || type == 2) && header.Word(1) == kMetafileHeaderWords
        && (version == 0x0100 || version == 0x0300);
}

int Pixels(double units, double unitsPerInch)
{
    const double pixels = std::round(std::abs(units) * kPixelsPerInch / unitsPerInch);
    return std::max(1, static_cast<int>(pixels));
}

std::optional<MetafileFrame> PlaceableFrame(const MetafileParameters& header)
{
    MetafileFrame frame;
    frame.Placeable = true;
    frame.WindowX = header.Signed(3);
    frame.WindowY = header.Signed(4);
    frame.WindowWidth = header.Signed(5) - frame.WindowX;
    frame.WindowHeight = header.Signed(6) - frame.WindowY;
    const int unitsPerInch = header.Word(7);
    if (frame.WindowWidth == 0 || frame.WindowHeight == 0 || unitsPerInch == 0)
        return std::nullopt;
    frame.Width = Pixels(frame.WindowWidth, unitsPerInch);
    frame.Height = Pixels(frame.WindowHeight, unitsPerInch);
    frame.Records = kPlaceableHeaderBytes + kMetafileHeaderBytes;
    return frame;
}

void RecordExtent(const MetafileRecord& record, Extents& extents)
{
    const Pair pair{ record.Parameters.Signed(1), record.Parameters.Signed(0) };
    const bool sized = pair.X != 0 && pair.Y != 0;
    if (record.Function == MetaSetMapMode)
        extents.Mode = record.Parameters.Word(0);
    else if (record.Function == MetaSetWindowOrg && !extents.Origin)
        extents.Origin = pair;
    else if (record.Function == MetaSetWindowExt && !extents.Window && sized)
        extents.Window = pair;
    else if (record.Function == MetaSetViewportExt && !extents.Viewport && sized)
        extents.Viewport = pair;
}

/// The window defines the size: its units have no physical size.
bool HasWindowSize(const Extents& extents)
{
    return extents.Window.has_value() && UnitsPerInch(extents.Mode) == 0;
}

/// One pixel per unit, or fewer if that exceeds the limit.
void SizeUnsized(MetafileFrame& frame)
{
    const int longest = std::max(std::abs(frame.WindowWidth), std::abs(frame.WindowHeight));
    const double unitsPerInch = kPixelsPerInch * std::max(1.0, static_cast<double>(longest) / kLongestUnsizedSide);
    frame.Width = Pixels(frame.WindowWidth, unitsPerInch);
    frame.Height = Pixels(frame.WindowHeight, unitsPerInch);
}

MetafileFrame WindowFrame(const Extents& extents)
{
    MetafileFrame frame;
    const Pair origin = extents.Origin.value_or(Pair());
    frame.WindowX = origin.X;
    frame.WindowY = origin.Y;
    frame.WindowWidth = extents.Window->X;
    frame.WindowHeight = extents.Window->Y;
    if (extents.Viewport) {
        frame.Width = std::abs(extents.Viewport->X);
        frame.Height = std::abs(extents.Viewport->Y);
    } else
        SizeUnsized(frame);
    return frame;
}

MetafileFrame DrawnFrame(const Extents& extents, const MetafileBox& drawn)
{
    MetafileFrame frame;
    frame.WindowX = drawn.Left;
    frame.WindowY = drawn.Top;
    frame.WindowWidth = drawn.Right + 1 - drawn.Left;
    frame.WindowHeight = drawn.Bottom + 1 - drawn.Top;
    const double unitsPerInch = UnitsPerInch(extents.Mode);
    if (unitsPerInch == 0) {
        SizeUnsized(frame);
        return frame;
    }
    frame.Width = Pixels(frame.WindowWidth, unitsPerInch);
    frame.Height = Pixels(frame.WindowHeight, unitsPerInch);
    frame.WindowY = drawn.Bottom;
    frame.WindowHeight = -frame.WindowHeight;
    return frame;
}

std::optional<MetafileFrame> PlainFrame(ByteView bytes)
{
    MetafileRecords records(bytes, kMetafileHeaderBytes);
    MetafileRecord record;
    Extents extents;
    std::optional<MetafileBox> drawn;
    auto step = records.Next(record);
    for (; step == MetafileRecords::Step::Record; step = records.Next(record)) {
        RecordExtent(record, extents);
        AddBounds(record, drawn);
    }
    if (step == MetafileRecords::Step::Broken || (!HasWindowSize(extents) && !drawn))
        return std::nullopt;
    MetafileFrame frame = HasWindowSize(extents) ? WindowFrame(extents) : DrawnFrame(extents, *drawn);
    frame.Records = kMetafileHeaderBytes;
    return frame;
}

} // namespace

double UnitsPerInch(uint16_t mapMode)
{
    switch (mapMode) {
    case MapLoMetric:
        return 254;
    case MapHiMetric:
        return 2540;
    case MapLoEnglish:
        return 100;
    case MapHiEnglish:
        return 1000;
    case MapTwips:
        return 1440;
    default:
        return 0;
    }
}

std::optional<MetafileFrame> ReadMetafileFrame(ByteView bytes)
{
    const MetafileParameters first(bytes.first(std::min(bytes.size(), kPlaceableHeaderBytes)));
    if (first.Long(0) != kPlaceableKey)
        return IsMetafileHeader(first) ? PlainFrame(bytes) : std::nullopt;
    const bool whole = bytes.size() >= kPlaceableHeaderBytes + kMetafileHeaderBytes;
    if (!whole || !IsMetafileHeader(MetafileParameters(bytes.subspan(kPlaceableHeaderBytes))))
        return std::nullopt;
    return PlaceableFrame(first);
}

} // namespace tvpicture
