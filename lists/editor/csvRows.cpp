#include "lists/editor/csvRows.h"

#include "app/message/message.h"
#include "app/text/ansi.h"
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

bool CsvRows::Refuse(int messageId) const
{
    MsgOkNum(messageId, line_);
    return false;
}

bool CsvRows::RefuseLength() const
{
    MsgOk2(kTextCsvTooManyLines, source_.FileName, QStringLiteral("1"));
    return false;
}

bool CsvRows::Number(qsizetype column, double& value) const
{
    return StrToDoubleChecked(fields_.At(column), value);
}

bool CsvRows::Real(qsizetype column, double& value, Range<double> limits, int messageId) const
{
    return ParseFieldDouble(fields_.At(column), value, limits, messageId, line_);
}

bool CsvRows::Integer(qsizetype column, std::int16_t& value, Range<std::int16_t> limits, int messageId) const
{
    return ParseFieldInt(fields_.At(column), value, limits, messageId, line_);
}

bool CsvRows::Text(qsizetype column, QString& text, qsizetype longest, int messageId) const
{
    const QByteArrayView field = fields_.At(column);
    text = FromAnsi(field.first(std::min(field.size(), longest)));
    return Require(ValidText(field), messageId);
}

} // namespace tarvik
