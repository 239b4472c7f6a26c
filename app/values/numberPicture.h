// app/values/numberPicture.h: numbers as text, digit by digit.
#pragma once

#include <QString>

namespace tarvik {

/// `value` by a picture of "0" (digit always shown), "#" (digit shown when needed) and one ".", which comes out as the
/// region's decimal character, even with no digit behind it. Rounds to nearest, halves away from zero, on the number's
/// 15 significant decimal digits, so that 0.0000005 in "#0.000000" is 0.000001. A result of zero bears no sign; a value
/// that is no number gives an empty text.
QString FormatPicture(double value, QStringView picture);

/// `value` in plain notation with a point and no exponent, with at most `significantDigits` (1 to 17) digits; trailing
/// zeros behind the point are left out. No region applies.
QString PlainNumberText(double value, int significantDigits = 15);

} // namespace tarvik
