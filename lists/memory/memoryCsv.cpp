// The CSV form of a memory list: 1024 lines of 19 columns, unused rows included.
#include "app/message/message.h"
#include "app/text/ansi.h"
#include "closed/loader.h"
#include "link/classes/textRules.h"
#include "lists/editor/csvRows.h"
#include "lists/memory/memoryList.h"

#include <bitset>
#include <optional>

namespace tarvik {

namespace {

constexpr qsizetype kColumnsAtLeast = 12;
constexpr int kTextBadNumber = 12795;
constexpr int kTextBadDescription = 12804;
constexpr int kTextBadDfSquelch = 12806;
constexpr int kTextTooFewLines = 12817;

/// A line as this program writes it, for the size of the file in memory.
constexpr qsizetype kTypicalLineBytes = 160;

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

/// The texts of all codes, fetched once for a file.
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
            MsgOk(kTextTooFewLines);
        return rows_.Line() == kMemoryRows;
    }

private:
    int Row() const
    {
        return rows_.Line() - 1;
    }

    bool ReadRow(MemoryRecord& record)
    {
        return ReadPlace() && ReadNumber(record) && ReadReceiver(record) && ReadSwitches(record)
            && CheckReceiver(record) && ReadDescription(record) && ReadDirectionFinding(record);
    }

    bool ReadPlace() const
    {
        double line = 0;
        const bool inPlace = rows_.Number(ColumnLine, line) && line == Row();
        return rows_.Require(inPlace && rows_.FieldCount() >= kColumnsAtLeast, kTextCsvBadLine);
    }

    bool ReadNumber(MemoryRecord& record)
    {
        if (!rows_.Integer(ColumnNumber, record.Number, { 0, Limits().MemoryNr.Max }, kTextBadNumber))
            return false;
        const auto number = static_cast<size_t>(record.Number);
        if (number >= numbers_.size() || numbers_.test(number))
            return rows_.Refuse(kTextBadNumber);
        numbers_.set(number);
        return true;
    }

    bool ReadReceiver(MemoryRecord& record) const
    {
        return rows_.Coded(ColumnUsed, record.Used, texts_.Used, 12805)
            && rows_.Coded(ColumnStatus, record.Status, texts_.Status, 12796)
            && rows_.Real(ColumnFrequency, record.Frequency, Limits().FrequencyHz, 12792)
            && rows_.Coded(ColumnDemodulation, record.Demodulation, texts_.Demodulation, 12797)
            && rows_.Coded(ColumnBandwidth, record.Bandwidth, texts_.Bandwidth, 12798);
    }

    bool ReadSwitches(MemoryRecord& record) const
    {
        return rows_.Real(ColumnSquelchLevel, record.SquelchLevel, Limits().SquelchLevel, 12799)
            && rows_.Coded(ColumnSquelchStatus, record.SquelchStatus, texts_.Squelch, 12800)
            && rows_.Integer(ColumnAntennaNumber, record.AntennaNumber, Limits().AntennaNr, 12801)
            && rows_.Coded(ColumnAttenuator, record.AttenuatorStatus, texts_.Attenuator, 12802)
            && rows_.Coded(ColumnAfc, record.AfcStatus, texts_.Afc, 12803);
    }

    bool CheckReceiver(const MemoryRecord& record) const
    {
        const TvFioApi& store = TvFio();
        return rows_.Require(store.CheckBandwidthAndDemodulation(record.Bandwidth, record.Demodulation) != 0, 12811)
            && rows_.Require(
                store.CheckAutoFreqControlAndDemodulation(record.AfcStatus, record.Demodulation) != 0, 12812);
    }

    bool ReadDescription(MemoryRecord& record) const
    {
        return rows_.FieldCount() <= ColumnDescription
            || rows_.Text(ColumnDescription, record.Description, kTextLength, kTextBadDescription);
    }

    /// All of these columns or none. The DF squelch is read with the texts of the plain squelch, so that a third
    /// value, which the writer knows, is refused.
    bool ReadDirectionFinding(MemoryRecord& record) const
    {
        if (rows_.FieldCount() <= ColumnDfSquelchStatus)
            return true;
        return rows_.Coded(ColumnDfSquelchStatus, record.DfSquelchStatus, texts_.Squelch, kTextBadDfSquelch)
            && rows_.Real(ColumnDfSquelchLevel, record.DfSquelchLevel, Limits().DfSquelchLevel, 12807)
            && rows_.Real(ColumnDfTime, record.DfMeasurementTime, Limits().DfMeasTimeSec, 12808)
            && rows_.Coded(ColumnSpan, record.FrequencySpan, texts_.Span, 12809)
            && rows_.Coded(ColumnDfStep, record.DfStep, texts_.DfStep, 12810)
            && rows_.Require(TvFio().CheckIfPanSpanAndIfPanStep(record.FrequencySpan, record.DfStep) != 0, 12814)
            && rows_.Coded(ColumnDfBandwidth, record.DfBandwidth, texts_.DfBandwidth, 12896);
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

/// A file with a field that holds a separator, or with one number twice, could not be read back.
bool CanBeReadBack(const MemoryTable& table, const CsvHeader& header, int rowWithNumberTwice)
{
    if (!CsvCanHold(header))
        return false;
    for (int row = 0; row < kMemoryRows; ++row) {
        if (CsvCanHold(table.Row(row).Description))
            continue;
        MsgOkNum(kTextBadDescription, row + 1);
        return false;
    }
    if (rowWithNumberTwice >= 0)
        MsgOkNum(kTextBadNumber, rowWithNumberTwice + 1);
    return rowWithNumberTwice < 0;
}

/// A file in memory, or nothing after a message.
std::optional<CsvWriter> BuildFile(const MemoryTable& table)
{
    int rowWithNumberTwice = -1;
    const std::vector<std::int16_t> numbers = DistinctMemoryNumbers(table, rowWithNumberTwice);
    const CsvHeader header{ table.MemoryListName, table.MemoryListDescription };
    if (!CanBeReadBack(table, header, rowWithNumberTwice))
        return {};
    const MemoryTexts texts;
    CsvWriter writer(kMemoryRows * kTypicalLineBytes);
    CsvWriteHeader(writer, kTextMemoryKeyword, header);
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
        ClearMemoryList(table) && CsvFindSeparator(source) && CsvReadHeader(source, kTextMemoryKeyword, header);
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
