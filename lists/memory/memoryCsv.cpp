// The CSV format of a memory list: 1024 lines of 19 fields, unused rows included.
#include "app/message/message.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "link/classes/textRules.h"
#include "lists/editor/csvRows.h"
#include "lists/memory/memoryList.h"

#include <bitset>
#include <optional>

namespace tarvik {

namespace {

constexpr qsizetype kMinColumns = 12;

/// For reserving memory.
constexpr qsizetype kTypicalLineBytes = 160;

/// Indexes of the fields of a line.
enum Column : qsizetype {
    ColumnUsed,
    ColumnLine,
    ColumnNumber,
    ColumnStatus,
    ColumnFrequency,
    ColumnDemodulation,
    ColumnBandwidth,
    ColumnSquelchLevel,
    ColumnSquelchStatus,
    ColumnAntennaNumber,
    ColumnAttenuator,
    ColumnAfc,
    ColumnDescription,
    ColumnDfSquelchStatus,
    ColumnDfSquelchLevel,
    ColumnDfTime,
    ColumnSpan,
    ColumnDfStep,
    ColumnDfBandwidth
};

/// The texts of all codes, fetched once per file.
struct MemoryTexts {
    CodeTexts Used{ kUsedStatusCodes };
    CodeTexts Status{ kMemoryStatusCodes };
    CodeTexts Demodulation{ kDemodulationCodes };
    CodeTexts Bandwidth{ kBandwidthCodes };
    CodeTexts Squelch{ kSquelchStatusCodes };
    CodeTexts Attenuator{ kAttenuatorStatusCodes };
    CodeTexts Afc{ kAfcStatusCodes };
    CodeTexts DfSquelch{ kDfSquelchStatusCodes };
    CodeTexts Span{ kFrequencySpanCodes };
    CodeTexts DfStep{ kDfStepCodes };
    CodeTexts DfBandwidth{ kDfBandwidthCodes };
};

class MemoryCsvReader {
public:
    MemoryCsvReader(CsvSource& source, MemoryTable& table)
        : rows_(source)
        , table_(table)
    {
    }

    /// The rows after the header; false after a message.
    bool ReadRows()
    {
        while (rows_.Next()) {
            if (rows_.Line() > kMemoryRows)
                return rows_.RefuseLength();
            if (!ReadRow(table_.Row(Row())))
                return false;
        }
        if (rows_.Line() < kMemoryRows)
            MsgOk(TextId::CsvTooFewLines);
        return rows_.Line() == kMemoryRows;
    }

private:
    int Row() const
    {
        return rows_.Line() - 1;
    }

    bool ReadRow(MemoryRecord& record)
    {
        return CheckLineNumber() && ReadNumber(record) && ReadReceiver(record) && ReadSwitches(record)
            && CheckReceiver(record) && ReadDescription(record) && ReadDirectionFinding(record);
    }

    bool CheckLineNumber() const
    {
        double line = 0;
        const bool isInOrder = rows_.Number(ColumnLine, line) && line == Row();
        return rows_.Require(isInOrder && rows_.FieldCount() >= kMinColumns, TextId::CsvBadLine);
    }

    bool ReadNumber(MemoryRecord& record)
    {
        if (!rows_.Integer(ColumnNumber, record.Number, { 0, Limits().MemoryNr.Max }, TextId::CsvBadMemoryNumber))
            return false;
        const auto number = static_cast<size_t>(record.Number);
        if (number >= numbers_.size() || numbers_.test(number))
            return rows_.Refuse(TextId::CsvBadMemoryNumber);
        numbers_.set(number);
        return true;
    }

    bool ReadReceiver(MemoryRecord& record) const
    {
        return rows_.Coded(ColumnUsed, record.Used, texts_.Used, TextId::CsvBadUsed)
            && rows_.Coded(ColumnStatus, record.Status, texts_.Status, TextId::CsvBadStatus)
            && rows_.Real(ColumnFrequency, record.Frequency, Limits().FrequencyHz, TextId::CsvBadFrequency)
            && rows_.Coded(ColumnDemodulation, record.Demodulation, texts_.Demodulation, TextId::CsvBadDemodulation)
            && rows_.Coded(ColumnBandwidth, record.Bandwidth, texts_.Bandwidth, TextId::CsvBadBandwidth);
    }

    bool ReadSwitches(MemoryRecord& record) const
    {
        return rows_.Real(ColumnSquelchLevel, record.SquelchLevel, Limits().SquelchLevel, TextId::CsvBadSquelchLevel)
            && rows_.Coded(ColumnSquelchStatus, record.SquelchStatus, texts_.Squelch, TextId::CsvBadSquelch)
            && rows_.Integer(ColumnAntennaNumber, record.AntennaNumber, Limits().AntennaNr, TextId::CsvBadAntennaNumber)
            && rows_.Coded(ColumnAttenuator, record.AttenuatorStatus, texts_.Attenuator, TextId::CsvBadAttenuator)
            && rows_.Coded(ColumnAfc, record.AfcStatus, texts_.Afc, TextId::CsvBadAfc);
    }

    bool CheckReceiver(const MemoryRecord& record) const
    {
        const TvFioApi& store = TvFio();
        return rows_.Require(store.CheckBandwidthAndDemodulation(record.Bandwidth, record.Demodulation) != 0,
                   TextId::CsvBandwidthNotPossible)
            && rows_.Require(store.CheckAutoFreqControlAndDemodulation(record.AfcStatus, record.Demodulation) != 0,
                TextId::CsvAfcNotPossible);
    }

    bool ReadDescription(MemoryRecord& record) const
    {
        return rows_.FieldCount() <= ColumnDescription
            || rows_.Text(ColumnDescription, record.Description, kTextLength, TextId::CsvBadEntryDescription);
    }

    /// All of these columns or none. The DF squelch is read with the texts of the receiver's squelch, so its third
    /// value, Gate, is written but refused here.
    bool ReadDirectionFinding(MemoryRecord& record) const
    {
        if (rows_.FieldCount() <= ColumnDfSquelchStatus)
            return true;
        return rows_.Coded(ColumnDfSquelchStatus, record.DfSquelchStatus, texts_.Squelch, TextId::CsvBadDfSquelch)
            && rows_.Real(
                ColumnDfSquelchLevel, record.DfSquelchLevel, Limits().DfSquelchLevel, TextId::CsvBadDfSquelchLevel)
            && rows_.Real(
                ColumnDfTime, record.DfMeasurementTime, Limits().DfMeasTimeSec, TextId::CsvBadDfMeasurementTime)
            && rows_.Coded(ColumnSpan, record.FrequencySpan, texts_.Span, TextId::CsvBadFrequencySpan)
            && rows_.Coded(ColumnDfStep, record.DfStep, texts_.DfStep, TextId::CsvBadDfStep)
            && rows_.Require(TvFio().CheckIfPanSpanAndIfPanStep(record.FrequencySpan, record.DfStep) != 0,
                TextId::CsvSpanNotPossible)
            && rows_.Coded(ColumnDfBandwidth, record.DfBandwidth, texts_.DfBandwidth, TextId::CsvBadDfBandwidth);
    }

    CsvRows rows_;
    MemoryTable& table_;
    MemoryTexts texts_;
    std::bitset<kMemoryRows> numbers_;
};

void WriteRow(CsvWriter& writer, const MemoryTexts& texts, int row, std::int16_t number, const MemoryRecord& record)
{
    writer.Text(texts.Used.TextOf(record.Used ? 1 : 0));
    writer.Integer(row);
    writer.Integer(number);
    writer.Text(texts.Status.TextOf(record.Status));
    writer.Number(record.Frequency);
    writer.Text(texts.Demodulation.TextOf(record.Demodulation));
    writer.Text(texts.Bandwidth.TextOf(record.Bandwidth));
    writer.Number(record.SquelchLevel);
    writer.Text(texts.Squelch.TextOf(record.SquelchStatus));
    writer.Integer(record.AntennaNumber);
    writer.Text(texts.Attenuator.TextOf(record.AttenuatorStatus));
    writer.Text(texts.Afc.TextOf(record.AfcStatus));
    writer.Text(ToAnsi(record.Description));
    writer.Text(texts.DfSquelch.TextOf(record.DfSquelchStatus));
    writer.Number(record.DfSquelchLevel);
    writer.Number(record.DfMeasurementTime);
    writer.Text(texts.Span.TextOf(record.FrequencySpan));
    writer.Text(texts.DfStep.TextOf(record.DfStep));
    writer.Text(texts.DfBandwidth.TextOf(record.DfBandwidth));
    writer.EndLine();
}

/// False, after a message, if a text contains a separator or a number occurs twice.
bool CanBeReadBack(const MemoryTable& table, const CsvHeader& header, int duplicateRow)
{
    if (!CsvCanHold(header))
        return false;
    for (int row = 0; row < kMemoryRows; ++row) {
        if (ValidText(table.Row(row).Description))
            continue;
        MsgOkNum(TextId::CsvBadEntryDescription, row + 1);
        return false;
    }
    if (duplicateRow >= 0)
        MsgOkNum(TextId::CsvBadMemoryNumber, duplicateRow + 1);
    return duplicateRow < 0;
}

/// The file in memory; nothing after a message.
std::optional<CsvWriter> BuildFile(const MemoryTable& table)
{
    int duplicateRow = -1;
    const std::vector<std::int16_t> numbers = DistinctMemoryNumbers(table, duplicateRow);
    const CsvHeader header{ table.MemoryListName, table.MemoryListDescription };
    if (!CanBeReadBack(table, header, duplicateRow))
        return {};
    const MemoryTexts texts;
    CsvWriter writer(kMemoryRows * kTypicalLineBytes);
    CsvWriteHeader(writer, TextId::MemoryListKeyword, header);
    for (int row = 0; row < kMemoryRows; ++row)
        WriteRow(writer, texts, row, numbers[static_cast<size_t>(row)], table.Row(row));
    return writer;
}

} // namespace

bool ReadMemoryListCSVFile(const QString& path, MemoryTable& table)
{
    return CsvReadFile(path, [&](CsvSource& source) { return ReadMemoryListCsv(source, table); });
}

bool WriteMemoryListCSVFile(const QString& path, const MemoryTable& table)
{
    return CsvWriteFile(path, [&] { return BuildFile(table); });
}

bool ReadMemoryListCsv(CsvSource& source, MemoryTable& table)
{
    CsvHeader header;
    const bool hasHeader =
        ClearMemoryList(table) && CsvFindSeparator(source) && CsvReadHeader(source, TextId::MemoryListKeyword, header);
    if (!hasHeader || !MemoryCsvReader(source, table).ReadRows())
        return false;
    table.MemoryListName = header.Name;
    table.MemoryListDescription = header.Description;
    return true;
}

QByteArray MemoryListCsv(const MemoryTable& table)
{
    const std::optional<CsvWriter> writer = BuildFile(table);
    return writer.has_value() ? writer->Bytes() : QByteArray();
}

} // namespace tarvik
