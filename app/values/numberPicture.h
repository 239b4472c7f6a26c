// app/values/numberPicture.h: numbers as text, digit by digit.
#pragma once

#include <QString>

namespace tarvik {

/// Formats `value` by a picture of "0" (digit always shown), "#" (digit shown if needed) and one ".", which becomes the
/// region's decimal character, even with no digit after it. Rounds to nearest, halves away from zero, on 15 significant
/// decimal digits, so that 0.0000005 in "#0.000000" is 0.000001. A zero result has no sign; infinity and NaN give an
/// empty text.
QString FormatPicture(double value, QStringView picture);

/// `value` in plain notation with a point and no exponent, with at most `significantDigits` (1 to 17) digits and no
/// trailing zeros after the point. Independent of the region.
QString PlainNumberText(double value, int significantDigits = 15);

} // namespace tarvik
