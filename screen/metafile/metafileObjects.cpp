#include "screen/metafile/metafileObjects.h"

#include "app/text/ansi.h"
#include "screen/metafile/metafilePictures.h"
#include "screen/metafile/metafileRegions.h"

#include <algorithm>

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

template <typename Object>
bool CreateOf(MetafileContext& context, Object object)
{
    return context.Create(std::make_shared<Object>(std::move(object)));
}

bool CreatePen(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kLineMask = 0x000F;
    MetafilePen pen;
    pen.Style = static_cast<MetafilePen::Line>(p.Word(0) & kLineMask);
    pen.Width = p.Signed(1);
    pen.Colour = p.Long(3);
    const int cap = p.Word(0) & 0x0F00;
    const int join = p.Word(0) & 0xF000;
    pen.Cap = cap == 0x0100 ? Qt::SquareCap : cap == 0x0200 ? Qt::FlatCap : Qt::RoundCap;
    pen.Join = join == 0x1000 ? Qt::BevelJoin : join == 0x2000 ? Qt::MiterJoin : Qt::RoundJoin;
    return CreateOf(context, pen);
}

bool CreateBrush(MetafileContext& context, const MetafileParameters& p)
{
    enum Style { Solid = 0, Hollow = 1, Hatched = 2 };
    MetafileBrush brush;
    brush.Colour = p.Long(1);
    if (p.Word(0) == Hollow)
        brush.Style = MetafileBrush::Kind::None;
    else if (p.Word(0) == Hatched) {
        brush.Style = MetafileBrush::Kind::Hatched;
        brush.Hatch = p.Word(3);
    }
    return CreateOf(context, brush);
}

bool CreatePatternOf(MetafileContext& context, const std::optional<QImage>& picture)
{
    if (!picture || !context.KeepPixels(qint64{ picture->width() } * picture->height()))
        return false;
    MetafileBrush brush;
    brush.Style = MetafileBrush::Kind::Pattern;
    brush.Picture = *picture;
    return CreateOf(context, brush);
}

bool CreateDibPattern(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kPatternInTextColours = 3;
    const bool isPlain = p.Word(0) == kPatternInTextColours; // the meaning of the colour table is then unspecified
    std::optional<QImage> picture = MetafileDib(context, p, 2, isPlain ? quint16{ 0 } : p.Word(1));
    const bool isMono = isPlain && p.Word(2 + 7) == 1;
    if (picture && isMono)
        picture = MetafileMono(*picture);
    return CreatePatternOf(context, picture);
}

bool CreateDevicePattern(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kPixelsAt = 16; // after the header, a pointer and 18 unused bytes
    return CreatePatternOf(context, MetafileDeviceBitmap(context, p, 0, kPixelsAt));
}

QString Face(const MetafileParameters& p, int word)
{
    const tvpicture::ByteView bytes = p.From(word);
    const auto end = std::find(bytes.begin(), bytes.end(), uint8_t{ 0 });
    constexpr std::ptrdiff_t kLongestFace = 32;
    const auto length = std::min(end - bytes.begin(), kLongestFace);
    return FromAnsi(QByteArrayView(bytes.data(), length));
}

bool CreateFont(MetafileContext& context, const MetafileParameters& p)
{
    MetafileFont font;
    font.Height = p.Signed(0);
    font.Width = p.Signed(1);
    font.Escapement = p.Signed(2);
    font.Weight = p.Signed(4);
    font.Italic = (p.Word(5) & 0xFF) != 0;
    font.Underline = p.Word(5) >> 8 != 0;
    font.StrikeOut = (p.Word(6) & 0xFF) != 0;
    font.CharacterSet = static_cast<quint8>(p.Word(6) >> 8);
    font.PitchAndFamily = static_cast<quint8>(p.Word(8) >> 8);
    font.Face = Face(p, 9);
    return CreateOf(context, font);
}

/// Scan lines of rectangles: count, top, bottom, left and right of each, and the count again.
bool CreateRegion(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kFirstLine = 11;
    const int lines = p.Word(5);
    MetafileRegion region;
    int at = kFirstLine;
    for (int line = 0; line < lines; ++line) {
        const int numbers = p.Word(at);
        if (numbers % 2 != 0 || at + 3 + numbers > p.Words())
            return false;
        for (int i = 0; i < numbers; i += 2) {
            const int left = p.Signed(at + 3 + i);
            const int right = p.Signed(at + 4 + i);
            region.Parts.append({ { left, p.Signed(at + 1) }, { right, p.Signed(at + 2) } });
        }
        at += 3 + numbers + 1;
    }
    return CreateOf(context, region);
}

/// Colours of four bytes: red, green, blue, and flags for palette devices.
void ReadColours(const MetafileParameters& p, int word, int count, int start, QVector<QRgb>& colours)
{
    for (int i = 0; i < count && start + i < colours.size(); ++i) {
        const quint32 colour = p.Long(word + 2 * i);
        colours[start + i] = qRgb(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
            static_cast<int>(colour >> 16 & 0xFF));
    }
}

bool HoldsColours(const MetafileParameters& p)
{
    return p.Words() >= 2 + 2 * p.Word(1);
}

bool CreatePalette(MetafileContext& context, const MetafileParameters& p)
{
    if (!HoldsColours(p))
        return false;
    MetafilePalette palette;
    palette.Colours.fill(qRgb(0, 0, 0), p.Word(1));
    ReadColours(p, 2, p.Word(1), 0, palette.Colours);
    return CreateOf(context, palette);
}

bool SetPaletteEntries(MetafileContext& context, const MetafileParameters& p)
{
    if (!HoldsColours(p))
        return false;
    ReadColours(p, 2, p.Word(1), p.Word(0), context.State.Palette->Colours);
    return true;
}

bool ResizePalette(MetafileContext& context, const MetafileParameters& p)
{
    if (!context.Spend(p.Word(0)))
        return false;
    QVector<QRgb>& colours = context.State.Palette->Colours;
    const qsizetype known = colours.size();
    colours.resize(p.Word(0));
    for (qsizetype i = known; i < colours.size(); ++i)
        colours[i] = qRgb(0, 0, 0);
    return true;
}

/// Selecting a region sets the clipping.
class Selection {
public:
    explicit Selection(MetafileContext& context)
        : context_(context)
    {
    }

    bool operator()(std::monostate) const
    {
        return true;
    }
    bool operator()(const MetafileShared<MetafilePen>& pen) const
    {
        context_.State.Pen = pen;
        return true;
    }
    bool operator()(const MetafileShared<MetafileBrush>& brush) const
    {
        context_.State.Brush = brush;
        return true;
    }
    bool operator()(const MetafileShared<MetafileFont>& font) const
    {
        context_.State.Font = font;
        return true;
    }
    bool operator()(const MetafileShared<MetafileRegion>& region) const
    {
        const std::optional<QRegion> clip = MetafileDeviceRegion(context_, *region);
        if (clip)
            context_.State.Clip = *clip;
        return clip.has_value();
    }
    bool operator()(const MetafileShared<MetafilePalette>& palette) const
    {
        context_.State.Palette = palette;
        return true;
    }

private:
    MetafileContext& context_;
};

bool SelectObject(MetafileContext& context, const MetafileParameters& p)
{
    return std::visit(Selection(context), context.Object(p.Word(0)));
}

bool DeleteObject(MetafileContext& context, const MetafileParameters& p)
{
    context.Delete(p.Word(0));
    return true;
}

constexpr MetafileHandler kHandlers[] = {
    { 0x00F7, 2, CreatePalette },
    { 0x0037, 2, SetPaletteEntries },
    { 0x0436, 2, SetPaletteEntries }, // AnimatePalette: takes effect at once on a true-colour device
    { 0x0139, 1, ResizePalette },
    { 0x0234, 1, SelectObject },
    { 0x012D, 1, SelectObject },
    { 0x01F0, 1, DeleteObject },
    { 0x02FA, 5, CreatePen },
    { 0x02FB, 9, CreateFont },
    { 0x02FC, 4, CreateBrush },
    { 0x0142, 2, CreateDibPattern },
    { 0x01F9, 16, CreateDevicePattern },
    { 0x06FF, 11, CreateRegion },
};

} // namespace

std::span<const MetafileHandler> MetafileObjectRecords()
{
    return kHandlers;
}

} // namespace tarvik
