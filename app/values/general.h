// app/values/general.h: small helpers for numbers, arrays of texts and the system.
#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>

namespace tarvik {

/// True for a text with at least one digit before the first character that no number holds. What follows a number is
/// not looked at, since the conversion ends at the same place.
bool IsNumberText(const QString& text);

/// True where the region measures in metres.
bool IsMetric();

/// True on a system of the NT family.
bool IsNtFamily();

/// Of equal numbers the second one.
template <typename Number>
constexpr Number SmallestOf(Number a, Number b)
{
    return a < b ? a : b;
}

template <typename Number>
constexpr Number LargestOf(Number a, Number b)
{
    return a > b ? a : b;
}

/// Raises `value` to `low`, then lowers it to `high`.
template <typename Number>
constexpr Number Clamp(Number value, Number low, Number high)
{
    return SmallestOf(LargestOf(value, low), high);
}

/// Both ends belong to the range.
template <typename Number>
constexpr bool InRange(Number value, Number low, Number high)
{
    return value >= low && value <= high;
}

template <typename Value>
constexpr void Swap(Value& a, Value& b)
{
    std::swap(a, b);
}

/// `value` times `numerator` over `denominator`, without fraction, at least 1, at most `value`; 1 for a denominator
/// of 0.
int ScaleClamped(int value, int numerator, int denominator);

/// The nearest multiple of `step`, halves upwards. A step of 0, or the largest double as value, gives the value.
double RoundToStep(double value, double step);

double MmFromInch(double inches);
double InchFromMm(double millimetres);

int ArrayLength(const QStringList& array);
QStringList ArrayNew(int length); ///< empty texts
QStringList ArrayJoin(const QStringList& first, const QStringList& second);

/// Moves a file into the trash. True when it is gone from its place.
bool FileToBin(const QString& path);

/// Asks for a folder; `start` is selected at open. Empty when the user cancelled.
QString BrowseFolder(const QString& title, const QString& start);

} // namespace tarvik
