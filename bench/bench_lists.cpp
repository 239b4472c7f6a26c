// Reading and writing a memory list of 1024 entries in both forms, and a bare write, flush and rename of as many bytes.
// Takes the folder to write in as its first argument.
#include "app/message.h"
#include "closed/loader.h"
#include "link/model.h"
#include "lists/editorGeneral.h"
#include "lists/limits.h"
#include "lists/memoryList.h"

#include <QCoreApplication>
#include <QFile>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

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

/// The file into the store, and the store's rows into the table.
void ReadBinary(benchmark::State& state)
{
    MemoryTable table;
    for (auto _ : state) {
        if (!ReadMemoryListMRFile(kBinary, table))
            state.SkipWithError("refused");
    }
}

void WriteBinary(benchmark::State& state)
{
    if (!WriteMemoryListDll(FullList()))
        std::abort();
    for (auto _ : state) {
        if (!WriteMemoryListMRFile(targetFolder + QStringLiteral("/list.tvm")))
            state.SkipWithError("refused");
    }
}

/// What any program must do to replace a file so that a power cut leaves the old one or the new one.
void BareReplace(benchmark::State& state)
{
    QFile source(kBinary);
    if (!source.open(QIODevice::ReadOnly))
        std::abort();
    const QByteArray bytes = source.readAll();
    const QByteArray target = QFile::encodeName(targetFolder + QStringLiteral("/bare.bin"));
    const QByteArray temporary = target + ".new";
    for (auto _ : state) {
        const int file = open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        const bool isWritten = file >= 0
            && write(file, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size() && fsync(file) == 0
            && close(file) == 0 && std::rename(temporary.constData(), target.constData()) == 0;
        if (!isWritten)
            state.SkipWithError("not written");
    }
}

BENCHMARK(ReadCsv)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteCsv)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadBinary)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteBinary)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BareReplace)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc != 2)
        return 2;
    targetFolder = QString::fromLocal8Bit(argv[1]);
    MsgSetPresenter([](MessageRequest& request) { request.Result = MsgResultYes; });
    for (const Module module : { Module::Language, Module::ListStore, Module::General }) {
        if (!ModuleLoad(module, QCoreApplication::applicationDirPath() + QLatin1Char('/')))
            return 1;
    }
    ReadInstrumentLimits();
    SetEditorType(FileClassMemoryList);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
