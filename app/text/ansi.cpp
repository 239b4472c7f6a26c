#include "app/text/ansi.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr ushort kFirstSpecial = 0x80;

/// Bytes 0x80 to 0x9F; the rest of Windows-1252 equals Latin-1. Source: Unicode Consortium, CP1252.TXT.
constexpr std::array<ushort, 32> kSpecials{ 0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
    0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178 };

/// The byte of a character, or -1.
int AnsiByte(ushort unicode)
{
    const bool sameAsLatin1 = unicode < kFirstSpecial || (unicode >= 0xA0 && unicode <= 0xFF);
    if (sameAsLatin1)
        return unicode;
    const auto found = std::find(kSpecials.begin(), kSpecials.end(), unicode);
    return found == kSpecials.end() ? -1 : static_cast<int>(kFirstSpecial + (found - kSpecials.begin()));
}

} // namespace

QByteArray ToAnsi(const QString& text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar character) {
        const int byte = AnsiByte(character.unicode());
        return byte < 0 ? '?' : static_cast<char>(byte);
    });
    return bytes;
}

QString FromAnsi(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const auto code = static_cast<uchar>(byte);
        return code >= kFirstSpecial && code < 0xA0 ? QChar(kSpecials[code - kFirstSpecial]) : QChar(ushort{ code });
    });
    return text;
}

bool IsAnsi(QChar character)
{
    return AnsiByte(character.unicode()) >= 0;
}

bool IsAnsi(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) { return IsAnsi(character); });
}

} // namespace tarvik
