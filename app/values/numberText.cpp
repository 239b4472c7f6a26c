#include "app/values/numberText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tarvik {

namespace {

/// Nobody types, and no program writes, a longer number.
constexpr qsizetype kLongestNumber = 400;

char16_t Unit(QChar character)
{
    return character.unicode();
}

char16_t Unit(char character)
{
    return static_cast<unsigned char>(character);
}

bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool IsNumberUnit(char16_t unit)
{
    switch (unit) {
    case u'+':
    case u'-':
    case u'e':
    case u'E':
    case u'.':
    case u',':
    case u' ':
        return true;
    default:
        return IsDigit(unit);
    }
}

bool IsSpace(QChar character)
{
    return character.isSpace();
}

bool IsSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool IsDigitOfAnyScript(QChar character)
{
    return character.category() == QChar::Number_DecimalDigit && !IsDigit(Unit(character));
}

bool IsMinus(QChar character)
{
    return character == QChar(0x2212);
}

bool IsDecimalMark(QChar character, QChar ofRegion)
{
    const bool isPlain = character == u'.' || character == u',';
    return !isPlain && (character == ofRegion || character == QChar(0x066B));
}

/// Written around a number or its sign in regions that write from right to left.
bool IsDirectionMark(QChar character)
{
    return character == QChar(0x200E) || character == QChar(0x200F) || character == QChar(0x061C);
}

template <typename Text>
Text NumberPart(Text text)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), [](auto character) { return IsSpace(character); });
    const auto end = std::find_if_not(begin, text.end(), [](auto character) { return IsNumberUnit(Unit(character)); });
    return text.sliced(begin - text.begin(), end - begin);
}

} // namespace

bool HoldsNumber(QStringView text)
{
    const QStringView part = NumberPart(text);
    return std::any_of(part.begin(), part.end(), [](QChar character) { return IsDigit(Unit(character)); });
}

bool IsNumberSign(QChar character, QChar decimalMark)
{
    return IsDigitOfAnyScript(character) || IsMinus(character) || IsDirectionMark(character)
        || IsDecimalMark(character, decimalMark);
}

QString PlainNumber(QString typed, QChar decimalMark)
{
    const QChar plainMark = typed.contains(u',') ? u',' : u'.'; // a second mark is an error, not a group mark
    for (QChar& character : typed) {
        if (IsDigitOfAnyScript(character))
            character = QChar(u'0' + character.digitValue());
        else if (IsMinus(character))
            character = u'-';
        else if (IsDecimalMark(character, decimalMark))
            character = plainMark;
    }
    typed.removeIf(IsDirectionMark);
    return typed;
}

bool ReadNumber(QByteArrayView text, double& value)
{
    const QByteArrayView part = NumberPart(text);
    if (part.size() > kLongestNumber)
        return false;
    std::array<char, kLongestNumber> buffer;
    const bool hasComma = part.contains(',');
    const char dropped = hasComma ? '.' : ',';
    char* end = std::remove_copy(part.begin(), part.end(), buffer.begin(), dropped);
    if (hasComma)
        std::replace(buffer.begin(), end, ',', '.');

    const char* begin = buffer.begin();
    if (begin != end && *begin == '+')
        ++begin;
    const bool twoSigns = begin != buffer.begin() && begin != end && *begin == '-';
    double number = 0;
    const auto [rest, error] = std::from_chars(begin, static_cast<const char*>(end), number);
    if (twoSigns || error != std::errc())
        return false;
    const auto isFurtherNumber = [](char character) {
        return IsDigit(Unit(character)) || QByteArrayView("+-.").contains(character);
    };
    if (std::any_of(rest, static_cast<const char*>(end), isFurtherNumber))
        return false;
    value = number;
    return true;
}

} // namespace tarvik
