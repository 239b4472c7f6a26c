// A memory list of 1024 entries between its table and its files: reading both forms, writing CSV. Takes the folder to
// write in as its first argument. The binary file alone, and what its flush costs, is in store_bench.cpp.
#include "app/message/message.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

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

/// The file into the store, and the store's rows into the table.
void ReadBinary(benchmark::State& state)
{
    MemoryTable table;
    for (auto _ : state) {
        if (!ReadMemoryListMRFile(kBinary, table))
            state.SkipWithError("refused");
    }
}

BENCHMARK(ReadCsv)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(WriteCsv)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadBinary)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

} // namespace tarvik

using namespace tarvik;

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
