#include "screen/metafile/metafileText.h"

#include "screen/metafile/metafileFont.h"

#include <cmath>
#include <numeric>

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

/// Cost of a font lookup, in pixels.
constexpr qint64 kFontLookupCost = 1 << 14;

enum Option { OptionOpaque = 0x0002, OptionClipped = 0x0004, OptionBothAdvances = 0x2000 };
enum Align { AlignUpdatePosition = 0x0001, AlignHorizontal = 0x0006, AlignVertical = 0x0018 };
enum HorizontalAlign { AlignRight = 2, AlignCentre = 6 };
enum VerticalAlign { AlignTop = 0, AlignBottom = 8, AlignBaseline = 24 };

/// The text of a record, in logical units.
struct Text {
    QPoint At;
    QByteArray Bytes;
    QVector<int> Advances; ///< distance from each byte to the next; empty for the font's own
    int Options = 0;
    QPoint Corner; ///< of the background or clipping rectangle
    QPoint Opposite;
};

/// Characters with their offsets from the start of the text, in pixels.
struct Line {
    QVector<QString> Pieces;
    QVector<double> Places;
    double Width = 0;
};

QByteArray BytesAt(const MetafileParameters& p, int word, int count)
{
    const tvpicture::ByteView bytes = p.From(word);
    return { reinterpret_cast<const char*>(bytes.data()), count };
}

bool HoldsBytes(const MetafileParameters& p, int word, int count)
{
    return static_cast<int>(p.From(word).size()) >= count;
}

double Advance(const MetafileFontFace& face, const QString& piece)
{
    return face.Metrics.horizontalAdvance(piece) * face.Stretch;
}

/// Positions characters by the record's advances; a double-byte character takes those of both bytes.
Line SpacedLine(const MetafileContext& context, const MetafileFontFace& face, const Text& text)
{
    Line line;
    const MetafileMapping& mapping = context.State.Mapping;
    qint64 units = 0;
    qsizetype at = 0;
    for (const QByteArray& bytes : SplitCharacters(text.Bytes, face.CharacterSet)) {
        line.Pieces.append(DecodeMetafileText(bytes, face));
        line.Places.append(static_cast<double>(units) * mapping.Across(1));
        for (qsizetype end = at + bytes.size(); at < end; ++at)
            units += text.Advances[at];
    }
    line.Width = static_cast<double>(units) * mapping.Across(1);
    return line;
}

/// Positions characters by the font's widths plus the extra spacing of the state.
Line NaturalLine(const MetafileContext& context, const MetafileFontFace& face, const QByteArray& bytes)
{
    const MetafileState& state = context.State;
    const QString text = DecodeMetafileText(bytes, face);
    Line line;
    if (state.CharacterExtra == 0 && state.BreakExtra == 0) {
        line.Pieces = { text };
        line.Places = { 0 };
        line.Width = Advance(face, text);
        return line;
    }
    const auto pixels = [&](int units) { return std::copysign(state.Mapping.Across(units), units); };
    const double extra = pixels(state.CharacterExtra);
    const double blank = state.BreakCount > 0 ? pixels(state.BreakExtra) / state.BreakCount : 0;
    for (const QChar letter : text) {
        line.Pieces.append(letter);
        line.Places.append(line.Width);
        line.Width += Advance(face, letter) + extra + (letter == u' ' ? blank : 0);
    }
    return line;
}

/// Position of the left end of the baseline relative to the reference point.
QPointF Offset(const MetafileContext& context, const MetafileFontFace& face, double width)
{
    const int align = context.State.TextAlign;
    QPointF offset;
    if ((align & AlignHorizontal) == AlignCentre)
        offset.setX(-width / 2);
    else if ((align & AlignHorizontal) == AlignRight)
        offset.setX(-width);
    if ((align & AlignVertical) == AlignTop)
        offset.setY(face.Metrics.ascent());
    else if ((align & AlignVertical) == AlignBottom)
        offset.setY(-face.Metrics.descent());
    return offset;
}

void WriteLine(QPainter& painter, const MetafileFontFace& face, const Line& line, QPointF start)
{
    painter.translate(start);
    painter.scale(face.Stretch, 1);
    for (qsizetype i = 0; i < line.Pieces.size(); ++i)
        painter.drawText(QPointF(line.Places[i] / face.Stretch, 0), line.Pieces[i]);
}

/// Moves the current position to the end of the text.
void MovePosition(MetafileContext& context, double width)
{
    MetafileState& state = context.State;
    const double across = state.Mapping.Across(1);
    const int units = across > 0 ? static_cast<int>(std::lround(std::min(width / across, 65535.0))) : 0;
    if ((state.TextAlign & AlignHorizontal) == AlignRight)
        state.Position.rx() -= units;
    else if ((state.TextAlign & AlignHorizontal) != AlignCentre)
        state.Position.rx() += units;
}

bool SpendText(MetafileContext& context, const MetafileFontFace& face, const Text& text)
{
    const qint64 most = qint64{ context.Picture().width() } * context.Picture().height();
    const auto letter = static_cast<qint64>(face.Metrics.height() * face.Metrics.height());
    return context.Spend(kFontLookupCost + text.Bytes.size() * (kMetafileCharacterCost + std::min(letter, most)));
}

bool Write(MetafileContext& context, Text text)
{
    const MetafileState& state = context.State;
    const bool fromPosition = (state.TextAlign & AlignUpdatePosition) != 0;
    if (fromPosition)
        text.At = state.Position;
    const MetafileFontFace face = FaceOf(context);
    if (!SpendText(context, face, text))
        return false;

    QPainter& painter = context.Painter();
    painter.save();
    const QRect box = state.Mapping.ToDevice(text.Corner, text.Opposite);
    if ((text.Options & OptionOpaque) != 0)
        painter.fillRect(box, context.Colour(state.BackColour));
    if ((text.Options & OptionClipped) != 0)
        painter.setClipRect(box, Qt::IntersectClip);
    const Line line =
        text.Advances.isEmpty() ? NaturalLine(context, face, text.Bytes) : SpacedLine(context, face, text);
    painter.translate(state.Mapping.ToDevice(text.At));
    painter.rotate(-face.Degrees);
    const QPointF start = Offset(context, face, line.Width);
    if (state.Opaque && !text.Bytes.isEmpty())
        painter.fillRect(QRectF(start.x(), start.y() - face.Metrics.ascent(), line.Width,
                             face.Metrics.ascent() + face.Metrics.descent()),
            context.Colour(state.BackColour));
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(face.Font);
    painter.setPen(context.Colour(state.TextColour));
    WriteLine(painter, face, line, start);
    painter.restore();
    if (fromPosition)
        MovePosition(context, line.Width);
    return true;
}

/// count, bytes padded to whole words, y, x
bool TextOut(MetafileContext& context, const MetafileParameters& p)
{
    const int count = p.Word(0);
    const int after = 1 + (count + 1) / 2;
    if (p.Words() < after + 2)
        return false;
    Text text;
    text.At = QPoint(p.Signed(after + 1), p.Signed(after));
    text.Bytes = BytesAt(p, 1, count);
    return Write(context, text);
}

/// y, x, count, options, a rectangle if the options say so, bytes, advances if there is space for them
bool ExtTextOut(MetafileContext& context, const MetafileParameters& p)
{
    Text text;
    text.At = QPoint(p.Signed(1), p.Signed(0));
    const int count = p.Word(2);
    text.Options = p.Word(3);
    int word = 4;
    if ((text.Options & (OptionOpaque | OptionClipped)) != 0) {
        text.Corner = QPoint(p.Signed(4), p.Signed(5));
        text.Opposite = QPoint(p.Signed(6), p.Signed(7));
        word += 4;
    }
    if (!HoldsBytes(p, word, count))
        return false;
    text.Bytes = BytesAt(p, word, count);
    word += (count + 1) / 2;
    // Pairs of horizontal and vertical advances; the vertical ones are not used by any known program and are ignored.
    const int step = (text.Options & OptionBothAdvances) != 0 ? 2 : 1;
    if (p.Words() >= word + step * count) {
        for (int i = 0; i < count; ++i)
            text.Advances.append(p.Signed(word + step * i));
    }
    return Write(context, text);
}

constexpr MetafileHandler kHandlers[] = {
    { tvpicture::MetaTextOut, 3, TextOut },
    { tvpicture::MetaExtTextOut, 4, ExtTextOut },
};

} // namespace

std::span<const MetafileHandler> MetafileTexts()
{
    return kHandlers;
}

} // namespace tarvik
