// app/values/numberText.h: the one grammar of numbers that users type and list files hold, in both decimal notations.
#pragma once

#include <QByteArrayView>
#include <QStringView>

namespace tarvik {

/// True for a text with at least one digit before its first character other than a digit, sign, "e", ".", "," or blank.
/// White space in front counts for nothing.
bool HoldsNumber(QStringView text);

/// The number at the start of `text`, in front of the first such character. With a "," every "." is dropped and the
/// comma is the decimal mark. False, with `value` as it was, without a number, for one that a double can't hold, and
/// where digits, signs, points or commas follow the number.
[[nodiscard]] bool ReadNumber(QByteArrayView text, double& value);

} // namespace tarvik
