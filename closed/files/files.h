// closed/files/files.h: files on disk: read in pieces, replaced whole or not at all.
#pragma once

#include "closed/files/filesystem.h"

namespace tvfile {

/// Where replacing a file ended.
enum class ReplaceStep {
    Done,
    Describe, ///< the path can't be looked at
    Folder, ///< a folder stands there
    NotRegular, ///< neither file nor folder stands there
    ReadOnly, ///< the file is write-protected
    Busy, ///< another process is replacing the same file
    Create, ///< no file can be made beside it
    Write,
    Replace, ///< the new file could not take the old one's place
};

struct ReplaceResult {
    ReplaceStep Step = ReplaceStep::Done;
    int Error = 0; ///< the system's error number, where there is one
    [[nodiscard]] bool Ok() const
    {
        return Step == ReplaceStep::Done;
    }
};

/// A new file beside `path` that takes its place when it is complete. Until then, and after any failure, `path` is what
/// it was. The new file's name depends on `path` alone, so that what a killed process leaves behind is cleared by the
/// next; one that finds another process at the same file waits for it a little. A link is followed, also to a file that
/// is not there yet; an existing file keeps its permissions, a new one has those that the user gives new files.
class NewFile {
public:
    NewFile() = default;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Removes the new file unless it has taken its place.
    ~NewFile();

    [[nodiscard]] ReplaceResult Begin(const std::string& path);
    [[nodiscard]] ReplaceResult Write(ByteView bytes);

    /// Puts the file into its place, where `flush` so that not even a power cut leaves less than all of it.
    [[nodiscard]] ReplaceResult Commit(bool flush);

    /// True if the medium has room for `bytes` more, or can't tell.
    [[nodiscard]] bool HasRoomFor(uint64_t bytes) const;

private:
    [[nodiscard]] std::string Folder() const;

    intptr_t handle_ = -1;
    std::string target_;
    std::string temporary_;
};

/// Puts `bytes` into the place of the file `path`, flushed to the disk.
[[nodiscard]] ReplaceResult ReplaceWholeFile(const std::string& path, ByteView bytes);

/// A regular file that is read from its start.
class SourceFile {
public:
    SourceFile() = default;
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;
    ~SourceFile();

    /// 0, or the system's error number.
    [[nodiscard]] int Open(const std::string& path);

    /// The length in bytes that the file had when it was opened.
    [[nodiscard]] uint64_t Length() const
    {
        return length_;
    }

    /// Reads until `room` is full or the file ends; `got` is what was read.
    [[nodiscard]] int Read(std::span<uint8_t> room, size_t& got);

private:
    intptr_t handle_ = -1;
    uint64_t length_ = 0;
};

/// Reads a regular file of at most `maxBytes`; a larger one gives the system's "file too large".
[[nodiscard]] int ReadWholeFile(const std::string& path, size_t maxBytes, Bytes& bytes);

/// The name under which `path` is written before it takes its place.
std::string TemporaryPath(const std::string& path);

/// The last part of a path.
std::string FileNameOfPath(const std::string& path);

} // namespace tvfile
