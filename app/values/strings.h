// app/values/strings.h: numbers, units, paths and dates as text.
#pragma once

#include "app/values/numberPicture.h"

#include <QDate>
#include <QDir>
#include <QString>

namespace tarvik {

/// FormatPicture without a trailing decimal character. The last two parameters have no effect.
QString StrFormatTrim(double value, QStringView picture, int first = 1, int second = 1);

/// Units are compared by their text, which is the trimmed text of a number from 14116 to 14162.

/// Formats `value` by the rule of its unit, and stores prefix and unit in `unit`. With `autoPrefix`, units that take
/// one get an SI prefix. The one unit without a rule (14162) gives an empty text and is unchanged.
QString StrValueFormat(double value, QString& unit, bool autoPrefix);

/// Fixed decimals: `power` minus `decimals` of them (so -1 is one, at power 0), at most 32, of `value` divided by ten
/// to the `power`. `unitText` is prefix and unit.
QString StrValueFixed(double value, int decimals, int power, const QString& unit, QString& unitText);

/// As StrValueFixed, with only the decimals needed, at most 36.
QString StrValueOptional(double value, int decimals, int power, const QString& unit, QString& unitText);

/// `digits` significant digits, without trailing zeros.
QString StrValueSignificant(double value, int digits, const QString& unit, QString& unitText, bool autoPrefix);

/// The SI prefix of a power of ten: empty for 0, "?" for a power that has none.
QString StrPrefix(int power);

/// The largest multiple of 3 to which ten can be raised without exceeding `value`; 0 for zero and below 1E-24.
int PowerOfThousand(double value);

/// Which digit StrDigitPower looks for.
enum class DigitPowerMode { Highest, FirstFraction, Lowest };

/// The power of ten of a digit from 1 to 9 in `text`, a number with optional point and exponent: of the first such
/// digit, of the first one after the point, or of the last one. A number without such a digit gives the power of its
/// last digit; FirstFraction without such a digit after the point gives that of the last digit from 1 to 9.
int StrDigitPower(const QString& text, DigitPowerMode mode);

/// Replaces every `find` from left to right; replacements are not searched again.
QString StrReplace(const QString& text, const QString& find, const QString& replacement);

/// The caption of a menu item that shows `text`, such as a file name, without a mnemonic or a key.
QString StrCaption(QString text);

/// Compares both trimmed, ignoring case.
bool StrEqualNoCase(const QString& a, const QString& b);

/// Removes one trailing separator, or adds one when missing. The root "/" keeps its own.
QString PathNoSlash(const QString& path, QChar separator = QDir::separator());
QString PathWithSlash(const QString& path, QChar separator = QDir::separator());

/// Reads three numbers with anything but digits between them, in the order of the region's short date. `ok` is false,
/// and the result invalid, for a text without three numbers or a day that doesn't exist.
/// With the year first, the third number moves to the front (third, first, second) before numbers that don't fit their
/// place are exchanged: "2024-03-05" is May 3, and a day above 12 makes the text no date.
QDate StrToDate(const QString& text, bool& ok);

} // namespace tarvik
