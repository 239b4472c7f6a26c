// lists/editor/csvRows.h: the rows of a list's CSV file, field by field, with the checks that all lists share.
#pragma once

#include "app/text/textNumber.h"
#include "lists/editor/csv.h"
#include "lists/values/limits.h"
#include "lists/values/translate.h"

namespace tarvik {

/// Walks the lines after the header. A check that fails shows its message with the number of the line, and answers
/// false. A field that the line does not have reads as an empty one.
class CsvRows {
public:
    /// `source` is at the first row, and outlives the walk.
    explicit CsvRows(CsvSource& source)
        : source_(source)
    {
    }

    /// Moves to the next line; false after the last one.
    bool Next();

    /// Number of the present line, counted from 1; after the last one the count of all lines.
    int Line() const
    {
        return line_;
    }

    qsizetype FieldCount() const
    {
        return fields_.Count();
    }
    QByteArrayView Field(qsizetype column) const
    {
        return fields_.At(column);
    }

    bool Refuse(TextNumber<1> message) const;
    bool Require(bool condition, TextNumber<1> message) const
    {
        return condition || Refuse(message);
    }

    /// Message 12781: the file has more lines than its list has rows.
    bool RefuseLength() const;

    /// A number without limits. Shows nothing.
    bool Number(qsizetype column, double& value) const;

    /// Numbers, clamped into `limits`.
    bool Real(qsizetype column, double& value, Range<double> limits, TextNumber<1> message) const;
    bool Integer(qsizetype column, std::int16_t& value, Range<std::int16_t> limits, TextNumber<1> message) const;

    /// The code of a text, which must be one of `texts`.
    template <typename Code>
    bool Coded(qsizetype column, Code& value, const CodeTexts& texts, TextNumber<1> message) const
    {
        const int code = texts.CodeOf(fields_.At(column));
        if (!texts.HasCode(code))
            return Refuse(message);
        value = static_cast<Code>(code);
        return true;
    }

    /// Free text, cut to `longest` characters.
    bool Text(qsizetype column, QString& text, qsizetype longest, TextNumber<1> message) const;

private:
    CsvSource& source_;
    CsvFields fields_;
    int line_ = 0;
};

} // namespace tarvik
