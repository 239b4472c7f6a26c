// The CSV format of a K-factor table: number, frequency in Hz, passive and active factor of each used row.
#include "app/text/textId.h"
#include "lists/editor/csvRows.h"
#include "lists/kfactor/kfactorTable.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr qsizetype kTypicalLineBytes = 40;

enum Column : qsizetype { ColumnNumber, ColumnFrequency, ColumnPassive, ColumnActive, ColumnCount };

bool IsInOrder(const CsvRows& rows, int number)
{
    double value = 0;
    return rows.FieldCount() == ColumnCount && rows.Number(ColumnNumber, value) && std::trunc(value) == number;
}

/// Reads the next entry; false after the last one, or after a message.
bool ReadEntry(CsvRows& rows, KfactorTable& table)
{
    if (!rows.Next())
        return false;
    if (table.Count == kKfactorRows)
        return rows.FieldCount() > 1 && rows.RefuseLength();
    KfactorEntry& entry = table.Row(table.Count);
    entry.Used = true;
    return rows.Require(IsInOrder(rows, table.Count + 1), TextId::CsvBadLine)
        && rows.Real(ColumnFrequency, entry.Frequency, Limits().FrequencyHz, TextId::CsvBadFrequency)
        && rows.Real(ColumnPassive, entry.Passive, Limits().KFactorLevel, TextId::CsvBadPassive)
        && rows.Real(ColumnActive, entry.Active, Limits().KFactorLevel, TextId::CsvBadActive);
}

void ReadKfactorCsvLines(CsvSource& source, KfactorTable& table)
{
    CsvRows rows(source);
    table.Count = 0;
    while (ReadEntry(rows, table))
        ++table.Count;
    std::fill(table.Rows.begin() + table.Count, table.Rows.end(), KfactorEntry());
}

std::optional<CsvWriter> BuildFile(const KfactorTable& table)
{
    const CsvHeader header{ table.Name, table.Description };
    if (!CsvCanHold(header))
        return {};
    CsvWriter writer(kKfactorRows * kTypicalLineBytes);
    CsvWriteHeader(writer, TextId::KfactorTableKeyword, header);
    for (int row = 0; row < kKfactorRows; ++row) {
        const KfactorEntry& entry = table.Row(row);
        if (!entry.Used)
            continue;
        writer.Integer(row + 1);
        writer.Number(entry.Frequency);
        writer.Number(entry.Passive);
        writer.Number(entry.Active);
        writer.EndLine();
    }
    return writer;
}

} // namespace

bool ReadKfactorCsv(const QString& path, KfactorTable& table)
{
    return CsvReadFile(path, [&](CsvSource& source) { return ReadKfactorCsv(source, table); });
}

bool ReadKfactorCsv(CsvSource& source, KfactorTable& table)
{
    CsvHeader header;
    if (!CsvFindSeparator(source) || !CsvReadHeader(source, TextId::KfactorTableKeyword, header))
        return false;
    table.Name = header.Name;
    table.Description = header.Description;
    ReadKfactorCsvLines(source, table);
    return true;
}

bool WriteKFactorCSVFile(const QString& path, const KfactorTable& table)
{
    return CsvWriteFile(path, [&] { return BuildFile(table); });
}

QByteArray KfactorCsv(const KfactorTable& table)
{
    const std::optional<CsvWriter> writer = BuildFile(table);
    return writer.has_value() ? writer->Bytes() : QByteArray();
}

} // namespace tarvik
