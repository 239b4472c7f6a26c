// tests/fuzz/listFiles.h: invariants of reading arbitrary bytes as a list, with the readers of the editors.
#pragma once

#include "closed/files/filesystem.h"
#include "tests/lists/listFamilies.h"

#include <cstdlib>

namespace tarvik {

inline void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// Binds the modules and the counter of messages, on the first call; selects the list type.
void FuzzStart(FileClass listType);

/// Messages shown since the start.
int FuzzMessages();

/// One file in memory: every path reads it, and what is written replaces it.
class MemoryDisk final : public tvfile::FileSystem {
public:
    explicit MemoryDisk(tvfile::ByteView file);
    ~MemoryDisk() override;

    int Describe(const std::string& path, tvfile::FileInfo& info) override;
    bool IsStillNamed(intptr_t handle, const std::string& path) override;
    int OpenToRead(const std::string& path, intptr_t& handle, uint64_t& bytes) override;
    int Read(intptr_t handle, std::span<uint8_t> room, size_t& got) override;
    void Close(intptr_t handle) override;
    int Create(const std::string& path, uint32_t permissions, intptr_t& handle) override;
    int Write(intptr_t handle, tvfile::ByteView bytes, size_t& written) override;
    int Flush(intptr_t handle) override;
    int Replace(intptr_t handle, const std::string& from, const std::string& to) override;
    void Discard(intptr_t handle, const std::string& path) override;
    void FlushFolder(const std::string& folder) override;

private:
    tvfile::Bytes file_;
    tvfile::Bytes written_;
    size_t at_ = 0;
};

inline constexpr const char* kExistingFile = "/proc/self/exe"; ///< readers ask the system whether there is a file

/// A refused file leaves an empty list and, but for a correction set, shows one message; an accepted one round-trips.
template <typename Family>
void FuzzListFile(tvfile::ByteView file)
{
    FuzzStart(Family::kClass);
    const MemoryDisk disk(file);
    const QString existing = QString::fromLatin1(kExistingFile);
    const int messages = FuzzMessages();
    typename Family::Table table;
    Family::Use(table);
    if (!Family::Read(existing, table)) {
        const typename Family::Table empty;
        Require(Family::ContentOf(table) == Family::ContentOf(empty));
        Require(FuzzMessages() - messages == (Family::kClass == FileClassCorrectionSet ? 0 : 1));
        return;
    }
    Require(Family::Write(QStringLiteral("list") + QLatin1String(Family::kExtension), table));
    const auto written = Family::ContentOf(table);
    Family::Use(table);
    Require(Family::Read(existing, table));
    Require(Family::ContentOf(table) == written);
    Require(FuzzMessages() == messages);
}

/// Values that are read are within their limits. A list that is read without a message round-trips; in an antenna list
/// frequencies that are missing in the file can change first.
template <typename Family>
void FuzzCsv(tvfile::ByteView file)
{
    using Table = typename Family::Table;
    FuzzStart(Family::kClass);
    const int messages = FuzzMessages();
    CsvSource source;
    source.Bytes = QByteArray(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size()));
    Table table;
    const bool isRead = Family::ReadCsv(source, table);
    Require(isRead || FuzzMessages() == messages + 1);
    Require(Family::IsWithinLimits(table));
    if (FuzzMessages() != messages)
        return;

    const auto writtenAndRead = [messages](const Table& list) {
        CsvSource written;
        written.Bytes = Family::Csv(list);
        Table read;
        Require(Family::ReadCsv(written, read) && FuzzMessages() == messages);
        return read;
    };
    const Table second = writtenAndRead(table);
    Require(second == table || Family::kClass == FileClassAntennaList);
    Require(writtenAndRead(second) == second);
}

} // namespace tarvik
