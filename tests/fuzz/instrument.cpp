// The simulated receiver and its command reader on arbitrary bytes. The result must not depend on how the bytes are
// split, and nothing outside the receiver's folder may be touched.
#include "tools/instrument/instrument.h"
#include "tools/instrument/exampleFiles.h"
#include "tools/instrument/receiver.h"

#include <cstdlib>
#include <filesystem>

namespace tarvik {

namespace {

constexpr std::uint64_t kDiskBytes = 64 * 1024;

/// The reader's events for `bytes`, passed in pieces; blocks are compared by content, not by their split.
std::string Events(std::string_view bytes, size_t pieceBytes)
{
    MessageReader reader;
    std::string events;
    while (!bytes.empty()) {
        std::string_view piece = bytes.substr(0, pieceBytes);
        bytes.remove_prefix(piece.size());
        for (auto event = reader.Next(piece); event != ReaderEvent::NeedsBytes; event = reader.Next(piece)) {
            if (event == ReaderEvent::BlockBytes) {
                events += reader.BlockPiece();
                continue;
            }
            events += static_cast<char>(event);
            if (event != ReaderEvent::Bad)
                events += reader.Current().Header;
        }
    }
    return events;
}

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// A receiver in its own folder, next to a file that no client may reach.
struct Bench {
    std::filesystem::path Folder;
    Storage Disk;

    Bench()
    {
        std::string name = (std::filesystem::temp_directory_path() / "fuzzXXXXXX").string();
        Require(::mkdtemp(name.data()) != nullptr);
        Folder = name;
        std::string reason;
        Require(Disk.Open((Folder / "disk").string(), kDiskBytes, reason));
    }

    ~Bench()
    {
        std::filesystem::remove_all(Folder);
    }
};

/// Draws a display from the memory list that the client has stored.
std::string Display(const Storage& disk)
{
    const std::vector<Carrier> carriers = ReadCarriers(disk);
    const Carrier tuned = carriers.empty() ? Carrier() : carriers.front();
    constexpr int kPoints = 100;
    for (const double level : SweepLevels(carriers, tuned.FrequencyHz, tuned.SpanHz, kPoints, 1))
        Require(level >= kLowestLevel && level <= kHighestLevel);
    return "picture";
}

void Converse(Bench& bench, std::string_view bytes)
{
    Require(MakeReceiverFolders(bench.Disk) == InstrumentError::None);
    Instrument instrument(bench.Disk, Identity(), [&bench] { return Display(bench.Disk); });
    instrument.Reset();
    MessageReader reader;
    Answers answers;
    for (auto event = reader.Next(bytes); event != ReaderEvent::NeedsBytes; event = reader.Next(bytes)) {
        if (event == ReaderEvent::BlockBegins)
            instrument.BeginBlock(reader.Current(), reader.BlockLength());
        else if (event == ReaderEvent::BlockBytes)
            instrument.TakeBlock(reader.BlockPiece());
        else if (event == ReaderEvent::Command)
            instrument.Execute(reader.Current(), answers);
        else
            instrument.ReportBad();
        while (!answers.IsEmpty()) {
            Require(!answers.IsBroken());
            answers.Sent(answers.Peek(4096).size());
        }
    }
    instrument.Reset();
    Require(std::distance(std::filesystem::directory_iterator(bench.Folder), {}) == 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Require(Events(bytes, 1) == Events(bytes, size));
    Require(Events(bytes, 7) == Events(bytes, size));
    Converse(bench, bytes);
    return 0;
}

} // namespace tarvik
