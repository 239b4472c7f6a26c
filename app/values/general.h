// app/values/general.h: small helpers for numbers, arrays of texts and the system.
#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>

namespace tarvik {

/// True for a text with at least one digit before its first character that can't be part of a number. The rest is
/// ignored, as the conversion ends there too.
bool IsNumberText(const QString& text);

/// True if the region uses the metric system.
bool IsMetric();

/// True on a system of the NT family.
bool IsNtFamily();

/// Equal numbers return the second one.
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

/// The range includes both ends.
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

/// The nearest multiple of `step`, halves upwards. A step of 0, or the largest double, returns the value itself.
double RoundToStep(double value, double step);

double MmFromInch(double inches);
double InchFromMm(double millimetres);

int ArrayLength(const QStringList& array);
QStringList ArrayNew(int length); ///< empty texts
QStringList ArrayJoin(const QStringList& first, const QStringList& second);

/// Moves a file to the trash. True if `path` no longer exists.
bool FileToBin(const QString& path);

/// Asks for a folder; `start` is selected at open. Empty when the user cancelled.
QString BrowseFolder(const QString& title, const QString& start);

} // namespace tarvik
