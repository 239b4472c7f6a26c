#include "lists/values/fieldCheck.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "app/values/numberText.h"
#include "app/values/region.h"
#include "app/values/strings.h"
#include "link/classes/textRules.h"

#include <cmath>
#include <limits>

namespace tarvik {

namespace {

/// Shows `message` if `report` is set; false.
bool Refuse(TextNumber<0> message, bool report)
{
    if (report)
        MsgOk(message);
    return false;
}

/// The number of a cell, not yet scaled.
bool ReadCell(const QString& text, double& number, CellReport report)
{
    if (text.isEmpty())
        return Refuse(TextId::NumberMissing, report.Empty);
    return StrToDoubleChecked(text, number) || Refuse(TextId::NotANumber, report.Bad);
}

/// `number` times `scale`. A product within rounding error of a whole number becomes that number: MHz typed with six
/// decimals give whole Hz.
double Scaled(double number, double scale)
{
    constexpr double kRelativeError = 4 * std::numeric_limits<double>::epsilon();
    const double product = number * scale;
    const double whole = std::round(product);
    return scale != 1.0 && std::abs(product - whole) <= std::abs(product) * kRelativeError ? whole : product;
}

std::int16_t RoundToInt16(double number, Range<std::int16_t> limits)
{
    return static_cast<std::int16_t>(
        std::lround(Clamp(number, static_cast<double>(limits.Min), static_cast<double>(limits.Max))));
}

} // namespace

QChar DecimalSeparator()
{
    return IniDecimalChar().front();
}

bool StrToDouble(const QString& text, double& value)
{
    return ReadNumber(PlainNumber(text, DecimalSeparator()).toLatin1(), value);
}

bool StrToDoubleChecked(const QString& text, double& value)
{
    const QString plain = PlainNumber(text, DecimalSeparator());
    return IsNumberText(plain) && ReadNumber(plain.toLatin1(), value);
}

bool StrToDoubleChecked(QByteArrayView text, double& value)
{
    return ReadNumber(text, value);
}

QString CellText(double value, const CellFormat& format)
{
    QString text = FormatPicture(value / format.Scale, QString::fromLatin1(format.Picture));
    const bool endsWithDigit = !text.isEmpty() && text.back() >= u'0' && text.back() <= u'9';
    if (!endsWithDigit)
        text.chop(1); // the decimal separator
    return text;
}

bool CheckCellScaled(QString& text, double& value, Range<double> limits, const CellFormat& format, CellReport report)
{
    double number = 0;
    if (!ReadCell(text, number, report))
        return false;
    value = Clamp(Scaled(number, format.Scale), limits.Min, limits.Max);
    text = CellText(value, format);
    return true;
}

bool CheckStoredCell(QString& text, double& value, Range<double> limits, const CellFormat& format)
{
    const QString shown = CellText(value, format);
    double typed = 0;
    if (!CheckCellScaled(text, typed, limits, format))
        return false;
    if (text != shown)
        value = typed;
    return true;
}

bool CheckCellDouble(QString& text, double& value, Range<double> limits, const char* picture, CellReport report)
{
    return CheckCellScaled(text, value, limits, { picture, 1.0 }, report);
}

bool CheckCellInt(
    QString& text, std::int16_t& value, Range<std::int16_t> limits, const char* picture, CellReport report)
{
    double number = 0;
    if (!ReadCell(text, number, report))
        return false;
    value = RoundToInt16(number, limits);
    text = CellText(value, { picture, 1.0 });
    return true;
}

bool CheckCellText(const QString& text, QString& value)
{
    if (!ValidText(text)) {
        MsgOk(TextId::ForbiddenCharacter);
        return false;
    }
    value = text;
    return true;
}

bool ParseFieldDouble(QByteArrayView field, double& value, Range<double> limits, TextNumber<1> message, int line)
{
    double number = 0;
    if (!StrToDoubleChecked(field, number)) {
        MsgOkNum(message, line);
        return false;
    }
    value = Clamp(number, limits.Min, limits.Max);
    return true;
}

bool ParseFieldInt(
    QByteArrayView field, std::int16_t& value, Range<std::int16_t> limits, TextNumber<1> message, int line)
{
    double number = 0;
    if (!StrToDoubleChecked(field, number)) {
        MsgOkNum(message, line);
        return false;
    }
    value = RoundToInt16(number, limits);
    return true;
}

} // namespace tarvik
