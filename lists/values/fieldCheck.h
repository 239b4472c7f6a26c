// lists/values/fieldCheck.h: typed and stored numbers: both decimal notations, limits, and the messages of bad input.
#pragma once

#include "app/text/textNumber.h"
#include "lists/values/limits.h"

#include <QByteArrayView>
#include <QString>

namespace tarvik {

/// Second character of one half as the locale writes it.
QChar DecimalSeparator();

/// Takes both notations, as `ReadNumber` does, and the locale's own mark: "1.234,5" and "1234.5" are the same number,
/// and "1,000.5" is 1.0005. False leaves `value` alone.
[[nodiscard]] bool StrToDouble(const QString& text, double& value);

/// The same for text that `IsNumberText` takes for a number.
[[nodiscard]] bool StrToDoubleChecked(const QString& text, double& value);

/// The same for a field of a file, without the way over QString.
[[nodiscard]] bool StrToDoubleChecked(QByteArrayView text, double& value);

/// What a check of a cell reports.
struct CellReport {
    bool Empty = true; ///< message 12771 for an empty text
    bool Bad = true; ///< message 12765 for a text that is no number
};

/// How a cell shows its number: picture of the text, and how many units of the model one unit of the text is.
struct CellFormat {
    const char* Picture = "#0";
    double Scale = 1.0;
};
inline constexpr CellFormat kMegahertzCell{ "#0.000000", 1000000.0 }; ///< MHz in the cell, Hz in the model
inline constexpr CellFormat kLevelCell{ "#0.00", 1.0 };

/// `value` as a cell shows it.
QString CellText(double value, const CellFormat& format);

/// Checks `text`; the number times the scale, clamped into `limits`, goes into `value` and, formatted, back into
/// `text`. False leaves both alone, after the message that `report` asks for.
[[nodiscard]] bool CheckCellScaled(
    QString& text, double& value, Range<double> limits, const CellFormat& format, CellReport report = {});

/// The same without a scale.
[[nodiscard]] bool CheckCellDouble(
    QString& text, double& value, Range<double> limits, const char* picture, CellReport report = {});

/// The same for a whole number, rounded after clamping, halves away from zero.
[[nodiscard]] bool CheckCellInt(
    QString& text, std::int16_t& value, Range<std::int16_t> limits, const char* picture, CellReport report = {});

/// Field of a CSV line: clamped into `limits`. A field that is no number shows `messageId` with `line`.
[[nodiscard]] bool ParseFieldDouble(
    QByteArrayView field, double& value, Range<double> limits, TextNumber<1> message, int line);
[[nodiscard]] bool ParseFieldInt(
    QByteArrayView field, std::int16_t& value, Range<std::int16_t> limits, TextNumber<1> message, int line);

} // namespace tarvik
