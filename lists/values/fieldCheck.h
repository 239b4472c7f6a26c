// lists/values/fieldCheck.h: checks of numbers typed into cells and read from files: notation, limits, messages.
#pragma once

#include "app/text/textNumber.h"
#include "lists/values/limits.h"

#include <QByteArrayView>
#include <QString>

namespace tarvik {

/// The decimal separator of the locale.
QChar DecimalSeparator();

/// `ReadNumber` for typed text, which may also have the characters of `PlainNumber`. False leaves `value` unchanged.
[[nodiscard]] bool StrToDouble(const QString& text, double& value);

/// As above, but false unless it is an `IsNumberText`.
[[nodiscard]] bool StrToDoubleChecked(const QString& text, double& value);

/// As above for a field of a file, without conversion to QString.
[[nodiscard]] bool StrToDoubleChecked(QByteArrayView text, double& value);

/// Which failures of a cell check show a message.
struct CellReport {
    bool Empty = true; ///< empty text: 12771
    bool Bad = true; ///< not a number: 12765
};

/// How a cell shows its number: the number picture, and the stored value of 1 in the cell.
struct CellFormat {
    const char* Picture = "#0";
    double Scale = 1.0;
};
inline constexpr CellFormat kMegahertzCell{ "#0.000000", 1000000.0 }; ///< MHz in the cell, Hz stored
inline constexpr CellFormat kLevelCell{ "#0.00", 1.0 };

/// `value` as a cell shows it.
QString CellText(double value, const CellFormat& format);

/// Reads `text`, scales it, clamps it to `limits`, stores it in `value` and formats `text`. False leaves both
/// unchanged, after the message that `report` selects.
[[nodiscard]] bool CheckCellScaled(
    QString& text, double& value, Range<double> limits, const CellFormat& format, CellReport report = {});

/// As above for the cell of a stored value: a text that has not changed keeps the digits that the cell does not show.
[[nodiscard]] bool CheckStoredCell(QString& text, double& value, Range<double> limits, const CellFormat& format);

/// As CheckCellScaled with scale 1.
[[nodiscard]] bool CheckCellDouble(
    QString& text, double& value, Range<double> limits, const char* picture, CellReport report = {});

/// As above for an integer: clamped, then rounded, halves away from zero.
[[nodiscard]] bool CheckCellInt(
    QString& text, std::int16_t& value, Range<std::int16_t> limits, const char* picture, CellReport report = {});

/// Stores a free text; false, after message 12764, if it has a forbidden character.
[[nodiscard]] bool CheckCellText(const QString& text, QString& value);

/// Reads a field of a CSV line, clamped to `limits`. False, after `message` with `line`, if it is not a number.
[[nodiscard]] bool ParseFieldDouble(
    QByteArrayView field, double& value, Range<double> limits, TextNumber<1> message, int line);
[[nodiscard]] bool ParseFieldInt(
    QByteArrayView field, std::int16_t& value, Range<std::int16_t> limits, TextNumber<1> message, int line);

} // namespace tarvik
