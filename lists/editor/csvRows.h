// lists/editor/csvRows.h: reads the rows of a list's CSV file field by field, with the checks common to all lists.
#pragma once

#include "app/text/textNumber.h"
#include "lists/editor/csv.h"
#include "lists/values/limits.h"
#include "lists/values/translate.h"

namespace tarvik {

/// Iterates over the lines after the header. A failed check returns false after its message with the line number. A
/// missing field reads as empty.
class CsvRows {
public:
    /// `source` is at the first row and outlives this.
    explicit CsvRows(CsvSource& source)
        : source_(source)
    {
    }

    /// Moves to the next line; false after the last one.
    bool Next();

    /// Number of the current line, from 1; after the last one the number of lines.
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

    /// Message 12781: more lines than the list has rows.
    bool RefuseLength() const;

    /// A number without limits. No message.
    bool Number(qsizetype column, double& value) const;

    /// Numbers, clamped to `limits`.
    bool Real(qsizetype column, double& value, Range<double> limits, TextNumber<1> message) const;
    bool Integer(qsizetype column, std::int16_t& value, Range<std::int16_t> limits, TextNumber<1> message) const;

    /// A text that must be one of `texts`; `value` gets its code.
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
