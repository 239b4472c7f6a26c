// The CSV form of a memory list: 1024 lines of 19 columns, unused rows included.
#include "app/message/message.h"
#include "app/text/ansi.h"
#include "closed/loader.h"
#include "link/classes/textRules.h"
#include "lists/editor/csv.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/translate.h"

#include <QFileInfo>

#include <algorithm>
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
    explicit MemoryCsvReader(MemoryTable& table)
        : table_(table)
    {
    }

    /// The rows behind the header; false after a message.
    bool ReadRows(CsvSource& source)
    {
        while (CsvNextLine(source, fields_)) {
            if (row_ == kMemoryRows) {
                MsgOk2(kTextCsvTooManyLines, source.FileName, QStringLiteral("1"));
                return false;
            }
            if (!ReadRow())
                return false;
            ++row_;
        }
        if (row_ < kMemoryRows)
            MsgOk(kTextTooFewLines);
        return row_ == kMemoryRows;
    }

private:
    bool Refuse(int messageId) const
    {
        MsgOkNum(messageId, row_ + 1);
        return false;
    }

    bool Require(bool condition, int messageId) const
    {
        return condition || Refuse(messageId);
    }

    bool Real(Column column, double& value, Range<double> limits, int messageId) const
    {
        return ParseFieldDouble(fields_.At(column), value, limits, messageId, row_ + 1);
    }

    template <typename Integer>
    bool Code(Column column, const CodeTexts& texts, const CodeTable& table, Integer& value, int messageId) const
    {
        const int code = texts.CodeOf(fields_.At(column));
        if (code < 0 || code > table.LastCode())
            return Refuse(messageId);
        value = static_cast<Integer>(code);
        return true;
    }

    bool ReadRow()
    {
        MemoryRecord& record = table_.Row(row_);
        return ReadPlace() && ReadNumber(record) && ReadReceiver(record) && ReadSwitches(record)
            && CheckReceiver(record) && ReadDescription(record) && ReadDirectionFinding(record);
    }

    bool ReadPlace() const
    {
        double line = 0;
        const bool inPlace = StrToDoubleChecked(fields_.At(ColumnLine), line) && line == row_;
        return Require(inPlace && fields_.Count() >= kColumnsAtLeast, kTextCsvBadLine);
    }

    bool ReadNumber(MemoryRecord& record)
    {
        const Range<std::int16_t> limits{ 0, Limits().MemoryNr.Max };
        if (!ParseFieldInt(fields_.At(ColumnNumber), record.Number, limits, kTextBadNumber, row_ + 1))
            return false;
        const auto number = static_cast<size_t>(record.Number);
        if (number >= numbers_.size() || numbers_.test(number))
            return Refuse(kTextBadNumber);
        numbers_.set(number);
        return true;
    }

    bool ReadReceiver(MemoryRecord& record)
    {
        std::int16_t used = 0;
        const bool isRead = Code(ColumnUsed, texts_.Used, kUsedStatusCodes, used, 12805)
            && Code(ColumnStatus, texts_.Status, kMemoryStatusCodes, record.Status, 12796)
            && Real(ColumnFrequency, record.Frequency, Limits().FrequencyHz, 12792)
            && Code(ColumnDemodulation, texts_.Demodulation, kDemodulationCodes, record.Demodulation, 12797)
            && Code(ColumnBandwidth, texts_.Bandwidth, kBandwidthCodes, record.Bandwidth, 12798);
        record.Used = used != 0;
        return isRead;
    }

    bool ReadSwitches(MemoryRecord& record)
    {
        return Real(ColumnSquelchLevel, record.SquelchLevel, Limits().SquelchLevel, 12799)
            && Code(ColumnSquelchStatus, texts_.Squelch, kSquelchStatusCodes, record.SquelchStatus, 12800)
            && ParseFieldInt(fields_.At(ColumnAntennaNumber), record.AntennaNumber, Limits().AntennaNr, 12801, row_ + 1)
            && Code(ColumnAttenuator, texts_.Attenuator, kAttenuatorStatusCodes, record.AttenuatorStatus, 12802)
            && Code(ColumnAfc, texts_.Afc, kAfcStatusCodes, record.AfcStatus, 12803);
    }

    bool CheckReceiver(const MemoryRecord& record) const
    {
        return Require(TvFio().CheckBandwidthAndDemodulation(record.Bandwidth, record.Demodulation) != 0, 12811)
            && Require(TvFio().CheckAutoFreqControlAndDemodulation(record.AfcStatus, record.Demodulation) != 0, 12812);
    }

    bool ReadDescription(MemoryRecord& record) const
    {
        if (fields_.Count() <= ColumnDescription)
            return true;
        const QByteArrayView text = fields_.At(ColumnDescription);
        record.Description = FromAnsi(text.first(std::min<qsizetype>(text.size(), kTextLength)));
        return Require(ValidText(text), kTextBadDescription);
    }

    /// All of these columns or none. The DF squelch is read with the texts of the plain squelch, so that a third
    /// value, which the writer knows, is refused.
    bool ReadDirectionFinding(MemoryRecord& record)
    {
        if (fields_.Count() <= ColumnDfSquelchStatus)
            return true;
        return Code(ColumnDfSquelchStatus, texts_.Squelch, kSquelchStatusCodes, record.DfSquelchStatus,
                   kTextBadDfSquelch)
            && Real(ColumnDfSquelchLevel, record.DfSquelchLevel, Limits().DfSquelchLevel, 12807)
            && Real(ColumnDfTime, record.DfMeasurementTime, Limits().DfMeasTimeSec, 12808)
            && Code(ColumnSpan, texts_.Span, kFrequencySpanCodes, record.FrequencySpan, 12809)
            && Code(ColumnDfStep, texts_.DfStep, kDfStepCodes, record.DfStep, 12810)
            && Require(TvFio().CheckIfPanSpanAndIfPanStep(record.FrequencySpan, record.DfStep) != 0, 12814)
            && Code(ColumnDfBandwidth, texts_.DfBandwidth, kDfBandwidthCodes, record.DfBandwidth, 12896);
    }

    MemoryTable& table_;
    MemoryTexts texts_;
    CsvFields fields_;
    int row_ = 0;
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

/// A file with a field that holds a separator, with one number twice, or with a name of blanks, which the reader
/// trims, could not be read back.
bool CanBeReadBack(const MemoryTable& table, int rowWithNumberTwice)
{
    if (!ValidListName(table.MemoryListName.trimmed()))
        return false;
    const auto carries = [](const QString& text) { return ValidText(text) && !text.contains(u'\n'); };
    if (!carries(table.MemoryListDescription)) {
        MsgOk(kTextForbiddenCharacter);
        return false;
    }
    for (int row = 0; row < kMemoryRows; ++row) {
        if (carries(table.Row(row).Description))
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
    if (!CanBeReadBack(table, rowWithNumberTwice))
        return {};
    const MemoryTexts texts;
    CsvWriter writer(kMemoryRows * kTypicalLineBytes);
    CsvWriteHeader(writer, kTextMemoryKeyword, { table.MemoryListName, table.MemoryListDescription });
    for (int row = 0; row < kMemoryRows; ++row)
        WriteRow(writer, texts, row, numbers[static_cast<size_t>(row)], table.Row(row));
    return writer;
}

bool ReadFile(const QString& path, MemoryTable& table)
{
    CsvSource source;
    return CsvLoadFile(path, source) && ReadMemoryListCsv(source, table);
}

bool WriteFile(const QString& path, const MemoryTable& table)
{
    const std::optional<CsvWriter> writer = BuildFile(table);
    return writer.has_value() && CsvSaveFile(path, *writer);
}

} // namespace

bool ReadMemoryListCSVFile(const QString& path, MemoryTable& table)
{
    return CsvGuard(QFileInfo(path).fileName(), [&] { return ReadFile(path, table); });
}

bool WriteMemoryListCSVFile(const QString& path, const MemoryTable& table)
{
    return CsvGuard(QFileInfo(path).fileName(), [&] { return MayWriteFile(path) && WriteFile(path, table); });
}

bool ReadMemoryListCsv(CsvSource& source, MemoryTable& table)
{
    CsvHeader header;
    const bool hasHeader =
        ClearMemoryList(table) && CsvFindSeparator(source) && CsvReadHeader(source, kTextMemoryKeyword, header);
    if (!hasHeader || !MemoryCsvReader(table).ReadRows(source))
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
