#include "lists/editor/csvRows.h"

#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"
#include "link/classes/textRules.h"
#include "lists/values/fieldCheck.h"

#include <algorithm>

namespace tarvik {

bool CsvRows::Next()
{
    const bool hasLine = CsvNextLine(source_, fields_);
    if (hasLine)
        ++line_;
    return hasLine;
}

bool CsvRows::Refuse(TextNumber<1> message) const
{
    MsgOkNum(message, line_);
    return false;
}

bool CsvRows::RefuseLength() const
{
    MsgOk2(TextId::CsvTooManyLines, source_.FileName, QStringLiteral("1"));
    return false;
}

bool CsvRows::Number(qsizetype column, double& value) const
{
    return StrToDoubleChecked(fields_.At(column), value);
}

bool CsvRows::Real(qsizetype column, double& value, Range<double> limits, TextNumber<1> message) const
{
    return ParseFieldDouble(fields_.At(column), value, limits, message, line_);
}

bool CsvRows::Integer(qsizetype column, std::int16_t& value, Range<std::int16_t> limits, TextNumber<1> message) const
{
    return ParseFieldInt(fields_.At(column), value, limits, message, line_);
}

bool CsvRows::Text(qsizetype column, QString& text, qsizetype longest, TextNumber<1> message) const
{
    const QByteArrayView field = fields_.At(column);
    text = FromAnsi(field.first(std::min(field.size(), longest)));
    return Require(ValidText(field), message);
}

} // namespace tarvik
