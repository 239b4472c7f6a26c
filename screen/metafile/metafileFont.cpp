#include "screen/metafile/metafileFont.h"

#include "app/text/ansi.h"

#include <QStringDecoder>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace tarvik {

namespace {

constexpr int kDefaultHeightPx = 16;
constexpr int kMaxFontPx = 4096; ///< larger characters show at most part of a stroke
constexpr int kMeasuredPx = 128;

enum CharacterSet : quint8 {
    SetSymbol = 2,
    SetJapanese = 128,
    SetKorean = 129,
    SetChineseSimplified = 134,
    SetChineseTraditional = 136,
};

const char* CodePageOf(quint8 set)
{
    switch (set) {
    case SetJapanese:
        return "shift_jis";
    case SetKorean:
        return "windows-949";
    case SetChineseSimplified:
        return "gbk";
    case SetChineseTraditional:
        return "big5";
    case 161:
        return "windows-1253";
    case 162:
        return "windows-1254";
    case 177:
        return "windows-1255";
    case 178:
        return "windows-1256";
    case 186:
        return "windows-1257";
    case 204:
        return "windows-1251";
    case 238:
        return "windows-1250";
    default:
        return nullptr;
    }
}

/// True for a lead byte of a double-byte character.
bool IsLead(uchar byte, quint8 set)
{
    switch (set) {
    case SetJapanese:
        return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case SetKorean:
    case SetChineseSimplified:
    case SetChineseTraditional:
        return byte >= 0x81 && byte <= 0xFE;
    default:
        return false;
    }
}

/// The symbol font's characters for the bytes from 0x20 and from 0xA0: Greek letters and mathematical signs.
constexpr std::u16string_view kSymbols = u" !∀#∃%&∋()∗+,−./0123456789:;<=>?"
                                         u"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
                                         u"‾αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼";
constexpr std::u16string_view kUpperSymbols = u"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵"
                                              u"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
                                              u"◊〈®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪ 〉∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭";
constexpr unsigned kFirstSymbol = 0x20;
constexpr unsigned kFirstUpperSymbol = 0xA0;
static_assert(kSymbols.size() == 0x7F - kFirstSymbol && kUpperSymbols.size() == 0xFF - kFirstUpperSymbol);

QString SymbolText(const QByteArray& bytes)
{
    QString text;
    for (const char letter : bytes) {
        const unsigned byte = static_cast<uchar>(letter);
        if (byte >= kFirstSymbol && byte - kFirstSymbol < kSymbols.size())
            text += QChar(kSymbols[byte - kFirstSymbol]);
        else if (byte >= kFirstUpperSymbol && byte - kFirstUpperSymbol < kUpperSymbols.size())
            text += QChar(kUpperSymbols[byte - kFirstUpperSymbol]);
        else
            text += FromAnsi(QByteArrayView(&letter, 1));
    }
    return text;
}

bool IsSymbolFont(const MetafileFont& wanted)
{
    return wanted.CharacterSet == SetSymbol && wanted.Face.compare(u"Symbol", Qt::CaseInsensitive) == 0;
}

/// A symbol font lacks the Unicode code points of its signs and would show blanks: use an ordinary font of similar
/// design.
void SetFamily(QFont& font, const MetafileFont& wanted)
{
    if (IsSymbolFont(wanted)) {
        font.setStyleHint(QFont::Serif);
        font.setFamilies({ QStringLiteral("Times New Roman") });
        return;
    }
    constexpr int kFixedPitch = 1;
    const int family = wanted.PitchAndFamily >> 4;
    if ((wanted.PitchAndFamily & 0x3) == kFixedPitch || family == 3)
        font.setStyleHint(QFont::TypeWriter);
    else
        font.setStyleHint(family == 1 ? QFont::Serif : QFont::SansSerif);
    if (!wanted.Face.isEmpty())
        font.setFamilies({ wanted.Face });
}

/// Font size in pixels for a character height, or for a line height, which includes leading.
int PixelSize(QFont font, double height, bool ofLine)
{
    double pixels = height;
    if (ofLine) {
        font.setPixelSize(kMeasuredPx);
        const QFontMetricsF metrics(font);
        pixels = height * kMeasuredPx / (metrics.ascent() + metrics.descent());
    }
    return std::clamp(static_cast<int>(std::lround(pixels)), 1, kMaxFontPx);
}

double StretchOf(const QFont& font, double letterWidth)
{
    constexpr double kNarrowest = 0.01;
    constexpr double kWidest = 100;
    const double average = QFontMetricsF(font).averageCharWidth();
    return letterWidth > 0 && average > 0 ? std::clamp(letterWidth / average, kNarrowest, kWidest) : 1;
}

} // namespace

MetafileFontFace FaceOf(const MetafileContext& context)
{
    const MetafileFont& wanted = *context.State.Font;
    const MetafileMapping& mapping = context.State.Mapping;
    QFont font;
    SetFamily(font, wanted);
    font.setWeight(static_cast<QFont::Weight>(wanted.Weight == 0 ? QFont::Normal : std::clamp(wanted.Weight, 1, 1000)));
    font.setItalic(wanted.Italic);
    font.setUnderline(wanted.Underline);
    font.setStrikeOut(wanted.StrikeOut);
    const double height = wanted.Height == 0 ? kDefaultHeightPx : mapping.Down(wanted.Height);
    font.setPixelSize(PixelSize(font, height, wanted.Height >= 0));
    const double stretch = StretchOf(font, mapping.Across(wanted.Width));
    return { font, QFontMetricsF(font), stretch, wanted.Escapement / 10.0, wanted.CharacterSet, IsSymbolFont(wanted) };
}

QVector<QByteArray> SplitCharacters(const QByteArray& bytes, quint8 characterSet)
{
    QVector<QByteArray> characters;
    for (qsizetype at = 0; at < bytes.size();) {
        const bool two = at + 1 < bytes.size() && IsLead(static_cast<uchar>(bytes[at]), characterSet);
        characters.append(bytes.mid(at, two ? 2 : 1));
        at += characters.last().size();
    }
    return characters;
}

QString DecodeMetafileText(const QByteArray& bytes, const MetafileFontFace& face)
{
    if (face.Symbols)
        return SymbolText(bytes);
    if (const char* const page = CodePageOf(face.CharacterSet)) {
        QStringDecoder decoder(page);
        if (decoder.isValid())
            return decoder.decode(bytes);
    }
    return FromAnsi(bytes);
}

} // namespace tarvik
