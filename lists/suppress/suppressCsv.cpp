// The CSV format of a suppress list: row from 0, setting, start and stop in Hz and description of each used row.
#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"
#include "link/classes/textRules.h"
#include "lists/editor/csvRows.h"
#include "lists/suppress/suppressList.h"

namespace tarvik {

namespace {

constexpr qsizetype kTypicalLineBytes = 60;

enum Column : qsizetype { ColumnRow, ColumnInclude, ColumnStart, ColumnStop, ColumnDescription, ColumnCount };

/// The row that a line is for; -1 after a message.
int RowOfLine(const CsvRows& rows)
{
    double row = 0;
    if (!rows.Require(rows.FieldCount() >= ColumnCount && rows.Number(ColumnRow, row), TextId::CsvBadLine))
        return -1;
    const bool isInTable = row > -1 && row < kSuppressRows;
    return rows.Require(isInTable, TextId::CsvBadRowNumber) ? static_cast<int>(row) : -1;
}

/// A text that is neither Include nor Exclude is not reported.
bool ReadRow(const CsvRows& rows, SuppressTable& table)
{
    const int number = RowOfLine(rows);
    if (number < 0)
        return false;
    SuppressRow& row = table.Row(number);
    row.Used = true;
    row.Include = IncludeStrToStatus(FromAnsi(rows.Field(ColumnInclude).toByteArray()));
    return rows.Real(ColumnStart, row.StartFrequency, Limits().FrequencyHz, TextId::CsvBadStartFrequency)
        && rows.Real(ColumnStop, row.StopFrequency, Limits().FrequencyHz, TextId::CsvBadStopFrequency)
        && rows.Text(ColumnDescription, row.Description, kTextLength, TextId::CsvBadEntryDescription)
        && rows.Require(row.StopFrequency >= row.StartFrequency, TextId::CsvStopBelowStart);
}

void ReadSuppressData(CsvSource& source, SuppressTable& table)
{
    table.Rows = SuppressTable().Rows;
    CsvRows rows(source);
    while (rows.Next() && ReadRow(rows, table)) { }
}

/// False, after a message, if a description contains a separator.
bool CanBeReadBack(const SuppressTable& table, const CsvHeader& header)
{
    if (!CsvCanHold(header))
        return false;
    int line = 0;
    for (const SuppressRow& row : table.Rows) {
        line += row.Used ? 1 : 0;
        if (!row.Used || ValidText(row.Description))
            continue;
        MsgOkNum(TextId::CsvBadEntryDescription, line);
        return false;
    }
    return true;
}

std::optional<CsvWriter> BuildFile(const SuppressTable& table)
{
    const CsvHeader header{ table.Name, table.Description };
    if (!CanBeReadBack(table, header))
        return {};
    CsvWriter writer(kSuppressRows * kTypicalLineBytes);
    CsvWriteHeader(writer, TextId::SuppressListKeyword, header);
    for (int number = 0; number < kSuppressRows; ++number) {
        const SuppressRow& row = table.Row(number);
        if (!row.Used)
            continue;
        writer.Integer(number);
        writer.Text(ToAnsi(IncludeToStr(row.Include)));
        writer.Number(row.StartFrequency);
        writer.Number(row.StopFrequency);
        writer.Text(ToAnsi(row.Description));
        writer.EndLine();
    }
    return writer;
}

} // namespace

bool ReadSuppressCSVFile(const QString& path, SuppressTable& table)
{
    return CsvReadFile(path, [&](CsvSource& source) { return ReadSuppressCsv(source, table); });
}

bool ReadSuppressCsv(CsvSource& source, SuppressTable& table)
{
    CsvHeader header;
    if (!CsvFindSeparator(source) || !CsvReadHeader(source, TextId::SuppressListKeyword, header))
        return false;
    table.Name = header.Name;
    table.Description = header.Description;
    ReadSuppressData(source, table);
    return true;
}

bool WriteSuppressListCSVFile(const QString& path, const SuppressTable& table)
{
    return CsvWriteFile(path, [&] { return BuildFile(table); });
}

QByteArray SuppressCsv(const SuppressTable& table)
{
    const std::optional<CsvWriter> writer = BuildFile(table);
    return writer.has_value() ? writer->Bytes() : QByteArray();
}

} // namespace tarvik
