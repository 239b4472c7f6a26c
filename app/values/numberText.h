// app/values/numberText.h: the grammar of numbers in typed text and list files, in both decimal notations.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace tarvik {

/// True for a text with at least one digit before its first character other than a digit, sign, "e", ".", "," or blank.
/// Leading white space is ignored.
bool HoldsNumber(QStringView text);

/// True for a character that `PlainNumber` replaces or removes.
bool IsNumberSign(QChar character, QChar decimalMark);

/// `typed` with the characters that `ReadNumber` knows: digits of any script, U+2212 (minus) and the decimal marks
/// U+066B and `decimalMark`, which a region may use beside "." and ",". Direction marks are removed, everything else is
/// unchanged.
QString PlainNumber(QString typed, QChar decimalMark);

/// Reads the number at the start of `text`, before the first such character. With a "," every "." is dropped and the
/// comma is the decimal mark. False, with `value` unchanged, if there is no number, if a double can't hold it, or if
/// digits, signs, points or commas follow it.
[[nodiscard]] bool ReadNumber(QByteArrayView text, double& value);

} // namespace tarvik
