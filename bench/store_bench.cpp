// bench/store_bench.cpp FOLDER: the list store alone: reads and writes the binary file of a memory list of 1024 entries
// in FOLDER, compared with a bare write, flush and rename of as many bytes.
#include "closed/tvfio.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace tarvik {

namespace {

TvFioApi fio;
std::string targetFolder;

std::string ListPath()
{
    return targetFolder + "/store.tvm";
}

void FillList()
{
    int16_t status = 0;
    fio.MemoryListClear(&status);
    fio.MemoryListSetName(&status, "Full list");
    for (int16_t i = 0; i < 1024; ++i) {
        fio.MemorySetMemItemNumber(&status, i);
        fio.MemorySetFrequency(&status, 118e6 + i * 25e3);
        fio.MemorySetDescription(&status, ("Channel with a name " + std::to_string(i)).c_str());
        fio.MemorySetData(&status, i);
    }
    fio.MemoryListSaveFile(&status, ListPath().c_str());
    if (status != 0)
        std::abort();
}

void Load(benchmark::State& state)
{
    FillList();
    int16_t status = 0;
    for (auto _ : state) {
        fio.MemoryListLoadFile(&status, ListPath().c_str());
        if (status != 0)
            state.SkipWithError("refused");
    }
}

void Save(benchmark::State& state)
{
    FillList();
    int16_t status = 0;
    for (auto _ : state) {
        fio.MemoryListSaveFile(&status, ListPath().c_str());
        if (status != 0)
            state.SkipWithError("refused");
    }
}

std::vector<char> SavedBytes()
{
    FillList();
    std::vector<char> bytes(size_t{ 1 } << 20);
    std::FILE* file = std::fopen(ListPath().c_str(), "rb");
    if (file == nullptr)
        std::abort();
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    (void)std::fclose(file);
    return bytes;
}

bool WriteAndFlush(const std::string& path, const std::vector<char>& bytes)
{
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const bool isWritten =
        file >= 0 && write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) && fsync(file) == 0;
    return close(file) == 0 && isWritten;
}

void FlushFolder()
{
    const int folder = open(targetFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    (void)fsync(folder);
    (void)close(folder);
}

void BareReplace(benchmark::State& state)
{
    const std::vector<char> bytes = SavedBytes();
    const std::string target = targetFolder + "/bare.tvm";
    for (auto _ : state) {
        if (!WriteAndFlush(target + ".new", bytes) || std::rename((target + ".new").c_str(), target.c_str()) != 0)
            state.SkipWithError("not written");
    }
}

/// As above, with the folder flushed, so the new name survives a power failure.
void BareReplaceToLast(benchmark::State& state)
{
    const std::vector<char> bytes = SavedBytes();
    const std::string target = targetFolder + "/bare.tvm";
    for (auto _ : state) {
        if (!WriteAndFlush(target + ".new", bytes) || std::rename((target + ".new").c_str(), target.c_str()) != 0)
            state.SkipWithError("not written");
        FlushFolder();
    }
}

BENCHMARK(Load)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(Save)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BareReplace)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BareReplaceToLast)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (argc != 2)
        return 2;
    targetFolder = argv[1];
    fio.Size = sizeof fio;
    if (TvFioBind(&fio) != 0)
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
