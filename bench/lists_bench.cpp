// bench/lists_bench.cpp FOLDER: reads a memory list of 1024 entries from a binary and a CSV file, writes it as CSV to
// FOLDER, and reads the binary file without checks for comparison; looks for equal frequencies in tables of 1000 rows.
// store_bench.cpp measures the list store alone.
#include "app/message/message.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/correction/correctionTable.h"
#include "lists/editor/editorGeneral.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"

#include <QCoreApplication>
#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <zlib.h>

namespace tarvik {

namespace {

const QString kCsv = QStringLiteral(EXAMPLES_FOLDER "/Full-1024.csv");
const QString kBinary = QStringLiteral(EXAMPLES_FOLDER "/Full-1024.tvm");
QString targetFolder;

MemoryTable FullList()
{
    MemoryTable table;
    if (!OpenMemoryList(kBinary, table))
        std::abort();
    return table;
}

void ReadCsv(benchmark::State& state)
{
    MemoryTable table;
    for (auto _ : state) {
        if (!ReadMemoryListCSVFile(kCsv, table))
            state.SkipWithError("refused");
    }
}

void WriteCsv(benchmark::State& state)
{
    const MemoryTable table = FullList();
    for (auto _ : state) {
        if (!WriteMemoryListCSVFile(targetFolder + QStringLiteral("/list.csv"), table))
            state.SkipWithError("refused");
    }
}

/// File to store, store to table.
void ReadBinary(benchmark::State& state)
{
    MemoryTable table;
    for (auto _ : state) {
        if (!ReadMemoryListMRFile(kBinary, table))
            state.SkipWithError("refused");
    }
}

/// Reads a number at `at` and advances `at`.
template <typename Number>
void Take(const char*& at, Number& number)
{
    std::memcpy(&number, at, sizeof number);
    at += sizeof number;
}

/// Reads the fields of a record (docs/file-formats.md) without checks.
void TakeRecord(const char* at, MemoryTable& table)
{
    quint16 place = 0;
    quint8 letters = 0;
    Take(at, place);
    MemoryRecord& row = table.Row(place);
    row.Used = true;
    Take(at, row.Number);
    Take(at, row.Frequency);
    Take(at, row.Demodulation);
    Take(at, row.Bandwidth);
    Take(at, row.SquelchLevel);
    for (std::int16_t* field : { &row.SquelchStatus, &row.AntennaNumber, &row.AttenuatorStatus, &row.AfcStatus })
        Take(at, *field);
    Take(at, letters);
    row.Description = QString::fromLatin1(at, letters);
    at += letters;
    Take(at, row.Status);
    Take(at, row.DfSquelchStatus);
    Take(at, row.DfSquelchLevel);
    Take(at, row.DfMeasurementTime);
    Take(at, row.FrequencySpan);
    Take(at, row.DfStep);
    for (std::int32_t* field : { &row.DfBandwidth, &row.Reserved2, &row.Reserved3 })
        Take(at, *field);
}

/// The minimum that reads the records of the file: bytes, checksum, fields.
bool ReadBare(MemoryTable& table)
{
    constexpr qsizetype kHeaderBytes = 20;
    constexpr qsizetype kChecksumAt = 16;
    constexpr quint16 kRecords = 2;
    QFile file(kBinary);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    quint32 wanted = 0;
    std::memcpy(&wanted, bytes.constData() + kChecksumAt, sizeof wanted);
    const auto* const start = reinterpret_cast<const Bytef*>(bytes.constData());
    const uLong head = crc32(0, start, kChecksumAt);
    if (crc32(head, start + kHeaderBytes, static_cast<uInt>(bytes.size() - kHeaderBytes)) != wanted)
        return false;
    const char* at = bytes.constData() + kHeaderBytes;
    for (;;) {
        quint16 section = 0;
        quint32 size = 0;
        Take(at, section);
        Take(at, size);
        if (section == kRecords)
            break;
        at += size;
    }
    quint32 count = 0;
    Take(at, count);
    for (quint32 record = 0; record < count; ++record) {
        quint32 size = 0;
        Take(at, size);
        TakeRecord(at, table);
        at += size;
    }
    return count == kMemoryRows;
}

void BareRead(benchmark::State& state)
{
    MemoryTable table;
    for (auto _ : state) {
        if (!ReadBare(table))
            state.SkipWithError("refused");
    }
    if (table.Rows != FullList().Rows)
        state.SkipWithError("not what the program reads");
}

double FrequencyOf(int row)
{
    return 30e6 + ((row * 7) % kKfactorRows) * 970137.5; // in no order
}

void KfactorDuplicates(benchmark::State& state)
{
    KfactorTable table;
    for (int row = 0; row < kKfactorRows; ++row)
        table.Row(row) = { true, FrequencyOf(row), 1, 2 };
    for (auto _ : state) {
        if (!KfactorMayBeSaved(table))
            state.SkipWithError("refused");
    }
}

void CorrectionDuplicates(benchmark::State& state)
{
    CorrRecords records;
    for (int row = 0; row < kCorrRows; ++row) {
        SetCorrEntryUsed(CorrTableId::KFactor, records, row, true);
        SetCorrValue(CorrTableId::KFactor, records, row, kCorrFrequency, FrequencyOf(row));
    }
    for (auto _ : state) {
        if (CheckCorrDuplicates(CorrTableId::KFactor, records).has_value())
            state.SkipWithError("refused");
    }
}

/// Sorts the frequencies and compares neighbours.
void BareDuplicates(benchmark::State& state)
{
    std::vector<double> frequencies(kKfactorRows);
    for (int row = 0; row < kKfactorRows; ++row)
        frequencies[static_cast<size_t>(row)] = FrequencyOf(row);
    for (auto _ : state) {
        std::vector<double> sorted = frequencies;
        std::sort(sorted.begin(), sorted.end());
        if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end())
            state.SkipWithError("found");
    }
}

BENCHMARK(ReadCsv)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(WriteCsv)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadBinary)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BareRead)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(KfactorDuplicates)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(CorrectionDuplicates)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BareDuplicates)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

class YesPresenter final : public MessagePresenter {
public:
    void Present(MessageRequest& request) override
    {
        request.Result = MsgResult::Yes;
    }
};

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc != 2)
        return 2;
    targetFolder = QString::fromLocal8Bit(argv[1]);
    TheMessagePresenter().Implement<YesPresenter>();
    for (const Module module : { Module::Language, Module::ListStore, Module::General }) {
        if (!ModuleLoad(module, QCoreApplication::applicationDirPath() + QLatin1Char('/')))
            return 1;
    }
    ReadInstrumentLimits();
    SetEditorType(FileClassMemoryList);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
