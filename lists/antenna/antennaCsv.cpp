// The CSV format of an antenna list: twelve fields of each used row. Fields may be missing at the end of a line.
#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"
#include "link/classes/textRules.h"
#include "lists/antenna/antennaList.h"
#include "lists/editor/csvRows.h"
#include "lists/values/translate.h"

namespace tarvik {

namespace {

constexpr qsizetype kTypicalLineBytes = 120;

/// Lines of a file that are read, the header's included.
constexpr int kMaxLines = 101;

enum Column : qsizetype {
    ColumnRow,
    ColumnInclude,
    ColumnName,
    ColumnStart,
    ColumnStop,
    ColumnOffset,
    ColumnPassive,
    ColumnActive,
    ColumnKfactorTable,
    ColumnCode,
    ColumnNorthOffset,
    ColumnCorrectionSet
};

/// "No" and "Yes".
constexpr CodeTable kIncludeCodes{ TextId::IncludeWords, 2, {}, 0 };

class AntennaCsvReader {
public:
    AntennaCsvReader(CsvSource& source, AntennaTable& table)
        : rows_(source)
        , table_(table)
        , linesLeft_(kMaxLines - static_cast<int>(source.Bytes.first(source.At).count("\r\n")))
    {
    }

    void ReadAttennaData()
    {
        while (rows_.Next()) {
            if (rows_.Line() > linesLeft_) {
                static_cast<void>(rows_.RefuseLength());
                return;
            }
            if (!ReadLine())
                return;
        }
    }

private:
    bool Has(qsizetype column) const
    {
        return rows_.FieldCount() > column;
    }

    /// False after a message. A line of one field has nothing to read.
    bool ReadLine()
    {
        if (!Has(ColumnInclude))
            return true;
        double number = 0;
        const bool isInTable = rows_.Number(ColumnRow, number) && number >= 1 && number < kAntennaRows + 1;
        return rows_.Require(isInTable, TextId::CsvBadRowNumber) && ReadRow(table_.Row(static_cast<int>(number) - 1));
    }

    /// Not in the order of the fields: it decides which error is reported.
    bool ReadRow(AntennaRow& row)
    {
        return ReadFrequencies(row) && ReadSelection(row) && ReadBits(row) && ReadLinks(row)
            && rows_.Require(row.StopFrequency >= row.StartFrequency, TextId::CsvStopBelowStart);
    }

    bool ReadFrequencies(AntennaRow& row) const
    {
        return Real(ColumnStart, row.StartFrequency, Limits().FrequencyHz, TextId::CsvBadStartFrequency)
            && Real(ColumnStop, row.StopFrequency, Limits().FrequencyHz, TextId::CsvBadStopFrequency)
            && Real(ColumnOffset, row.FrequencyOffset, Limits().AntennaConverterOffsetHz, TextId::CsvBadOffset);
    }

    bool ReadSelection(AntennaRow& row) const
    {
        row.Used = true;
        row.Include = static_cast<std::int16_t>(includeTexts_.CodeOf(rows_.Field(ColumnInclude)));
        return Text(ColumnName, row.Name, kTextLength, TextId::CsvBadAntennaName);
    }

    bool ReadBits(AntennaRow& row) const
    {
        return Bits(ColumnPassive, row.PassiveBits, TextId::CsvBadPassiveBits)
            && Bits(ColumnActive, row.ActiveBits, TextId::CsvBadActiveBits);
    }

    /// Code and north offset are reported as the stop frequency is.
    bool ReadLinks(AntennaRow& row) const
    {
        return Text(ColumnKfactorTable, row.KfactorTableName, kLinkNameLength, TextId::CsvBadLinkName)
            && (!Has(ColumnCode)
                || rows_.Integer(ColumnCode, row.AntennaCode, Limits().AntennaCode, TextId::CsvBadStopFrequency))
            && Real(ColumnNorthOffset, row.NorthOffset, Limits().NorthOffset, TextId::CsvBadStopFrequency)
            && Text(ColumnCorrectionSet, row.CorrectionSetName, kLinkNameLength, TextId::CsvBadLinkName);
    }

    // A missing field leaves the value.

    bool Real(qsizetype column, double& value, Range<double> limits, TextNumber<1> message) const
    {
        return !Has(column) || rows_.Real(column, value, limits, message);
    }
    bool Text(qsizetype column, QString& text, int longest, TextNumber<1> message) const
    {
        return !Has(column) || rows_.Text(column, text, longest, message);
    }
    bool Bits(qsizetype column, std::int16_t& bits, TextNumber<1> message) const
    {
        if (!Has(column))
            return true;
        const int pattern = ModStrToBitPattern(FromAnsi(rows_.Field(column)));
        if (pattern >= kBitPatterns)
            return rows_.Refuse(message);
        bits = static_cast<std::int16_t>(pattern);
        return true;
    }

    CsvRows rows_;
    AntennaTable& table_;
    int linesLeft_;
    CodeTexts includeTexts_{ kIncludeCodes };
};

bool HasValidTexts(const AntennaRow& row, TextNumber<1>& message)
{
    message = ValidText(row.Name) ? TextId::CsvBadLinkName : TextId::CsvBadAntennaName;
    return ValidText(row.Name) && ValidText(row.KfactorTableName) && ValidText(row.CorrectionSetName);
}

/// False, after a message, if a text contains a separator.
bool CanBeReadBack(const AntennaTable& table, const CsvHeader& header)
{
    if (!CsvCanHold(header))
        return false;
    int line = 0;
    for (const AntennaRow& row : table.Rows) {
        line += row.Used ? 1 : 0;
        TextNumber<1> message = TextId::CsvBadAntennaName;
        if (!row.Used || HasValidTexts(row, message))
            continue;
        MsgOkNum(message, line);
        return false;
    }
    return true;
}

void WriteRow(CsvWriter& writer, const CodeTexts& includeTexts, int number, const AntennaRow& row)
{
    writer.Integer(number);
    writer.Text(includeTexts.TextOf(row.Include != 0 ? 1 : 0));
    writer.Text(ToAnsi(row.Name));
    writer.Number(row.StartFrequency);
    writer.Number(row.StopFrequency);
    writer.Number(row.FrequencyOffset);
    writer.Text(ModBitPatternToStr(row.PassiveBits).toLatin1());
    writer.Text(ModBitPatternToStr(row.ActiveBits).toLatin1());
    writer.Text(ToAnsi(row.KfactorTableName));
    writer.Integer(row.AntennaCode);
    writer.Number(row.NorthOffset);
    writer.Text(ToAnsi(row.CorrectionSetName));
    writer.EndLine();
}

std::optional<CsvWriter> BuildFile(const AntennaTable& table)
{
    const CsvHeader header{ table.Name, table.Description };
    if (!CanBeReadBack(table, header))
        return {};
    const CodeTexts includeTexts(kIncludeCodes);
    CsvWriter writer(kAntennaRows * kTypicalLineBytes);
    CsvWriteHeader(writer, TextId::AntennaListKeyword, header);
    for (int row = 0; row < kAntennaRows; ++row) {
        if (table.Row(row).Used)
            WriteRow(writer, includeTexts, row + 1, table.Row(row));
    }
    return writer;
}

} // namespace

bool ReadAntennaCSVFile(const QString& path, AntennaTable& table)
{
    return CsvReadFile(path, [&](CsvSource& source) { return ReadAntennaCsv(source, table); });
}

bool ReadAntennaCsv(CsvSource& source, AntennaTable& table)
{
    CsvHeader header;
    if (!CsvFindSeparator(source) || !CsvReadHeader(source, TextId::AntennaListKeyword, header))
        return false;
    table.Name = header.Name;
    table.Description = header.Description;
    AntennaCsvReader(source, table).ReadAttennaData();
    return true;
}

bool WriteAntennaCSVFile(const QString& path, const AntennaTable& table)
{
    return CsvWriteFile(path, [&] { return BuildFile(table); });
}

QByteArray AntennaCsv(const AntennaTable& table)
{
    const std::optional<CsvWriter> writer = BuildFile(table);
    return writer.has_value() ? writer->Bytes() : QByteArray();
}

} // namespace tarvik
