#include "app/values/numberPicture.h"

#include "app/values/region.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace tarvik {

namespace {

constexpr int kSignificantDigits = 15;

/// A number as decimal digits: digit `i` counts 10 to the power of `FirstPower - i`.
struct DecimalDigits {
    bool Negative = false;
    int FirstPower = 0;
    std::string Digits; ///< '0' to '9', at least one; no zero at the end unless the number is zero
};

void DropTrailingZeros(std::string& digits)
{
    const size_t last = digits.find_last_not_of('0');
    digits.erase(last == std::string::npos ? 1 : last + 1);
}

DecimalDigits DigitsOf(double value, int significantDigits)
{
    std::array<char, 32> text{}; // "d.dddddddddddddddde-308" at the longest
    const auto end = std::to_chars(
        text.data(), text.data() + text.size(), std::abs(value), std::chars_format::scientific, significantDigits - 1);
    const char* exponent = std::find(text.data(), end.ptr, 'e');

    DecimalDigits decimal;
    decimal.Negative = value < 0;
    std::copy_if(static_cast<const char*>(text.data()), exponent, std::back_inserter(decimal.Digits),
        [](char character) { return character != '.'; });
    const char* power = exponent + (exponent[1] == '+' ? 2 : 1);
    std::from_chars(power, end.ptr, decimal.FirstPower);
    DropTrailingZeros(decimal.Digits);
    return decimal;
}

bool IsZero(const DecimalDigits& decimal)
{
    return decimal.Digits == "0";
}

/// Adds one to the last digit; a carry out of the first digit adds a digit.
void RaiseLastDigit(DecimalDigits& decimal)
{
    auto digit = decimal.Digits.rbegin();
    for (; digit != decimal.Digits.rend() && *digit == '9'; ++digit)
        *digit = '0';
    if (digit != decimal.Digits.rend()) {
        ++*digit;
        return;
    }
    decimal.Digits.insert(decimal.Digits.begin(), '1');
    ++decimal.FirstPower;
}

/// Keeps the digits down to 10 to the power of minus `decimals`; a half goes away from zero.
void RoundTo(DecimalDigits& decimal, int decimals)
{
    const int kept = decimal.FirstPower + decimals + 1;
    if (kept >= static_cast<int>(decimal.Digits.size()))
        return;
    const bool up = kept >= 0 && decimal.Digits[static_cast<size_t>(kept)] >= '5';
    if (!up && kept <= 0) {
        decimal = {};
        decimal.Digits = "0";
        return;
    }
    decimal.Digits.resize(static_cast<size_t>(std::max(kept, 0)));
    if (decimal.Digits.empty()) { // 0.7 to no decimals: the digit is now one place higher
        decimal.Digits = "1";
        ++decimal.FirstPower;
    } else if (up) {
        RaiseLastDigit(decimal);
    }
    DropTrailingZeros(decimal.Digits);
}

QChar DigitAt(const DecimalDigits& decimal, int power)
{
    const int at = decimal.FirstPower - power;
    const bool isThere = at >= 0 && at < static_cast<int>(decimal.Digits.size());
    return QLatin1Char(isThere ? decimal.Digits[static_cast<size_t>(at)] : '0');
}

/// What a picture asks for.
struct Picture {
    int MinIntegers = 0;
    int MinDecimals = 0;
    int MaxDecimals = 0;
    bool HasPoint = false;
};

Picture ReadPicture(QStringView text)
{
    Picture picture;
    for (const QChar character : text) {
        if (character == u'.')
            picture.HasPoint = true;
        else if (picture.HasPoint && (character == u'0' || character == u'#')) {
            ++picture.MaxDecimals;
            if (character == u'0')
                picture.MinDecimals = picture.MaxDecimals;
        } else if (character == u'0' || picture.MinIntegers > 0)
            ++picture.MinIntegers;
    }
    return picture;
}

int DecimalsOf(const DecimalDigits& decimal)
{
    return std::max(0, static_cast<int>(decimal.Digits.size()) - 1 - decimal.FirstPower);
}

QString Written(const DecimalDigits& decimal, const Picture& picture, QStringView point)
{
    const int integers = std::max(IsZero(decimal) ? 0 : decimal.FirstPower + 1, picture.MinIntegers);
    const int decimals = std::max(DecimalsOf(decimal), picture.MinDecimals);
    QString text;
    text.reserve(1 + std::max(integers, 0) + point.size() + decimals);
    if (decimal.Negative)
        text.append(u'-');
    for (int power = integers - 1; power >= 0; --power)
        text.append(DigitAt(decimal, power));
    if (picture.HasPoint)
        text.append(point);
    for (int place = 1; place <= decimals; ++place)
        text.append(DigitAt(decimal, -place));
    return text;
}

} // namespace

QString FormatPicture(double value, QStringView picture)
{
    if (!std::isfinite(value))
        return {};
    const Picture wanted = ReadPicture(picture);
    DecimalDigits decimal = DigitsOf(value, kSignificantDigits);
    RoundTo(decimal, wanted.MaxDecimals);
    return Written(decimal, wanted, wanted.HasPoint ? IniDecimalChar() : QString());
}

QString PlainNumberText(double value, int significantDigits)
{
    if (!std::isfinite(value))
        return {};
    const DecimalDigits decimal = DigitsOf(value, std::clamp(significantDigits, 1, 17));
    const Picture plain{ 1, 0, 0, DecimalsOf(decimal) > 0 };
    return Written(decimal, plain, u".");
}

} // namespace tarvik
