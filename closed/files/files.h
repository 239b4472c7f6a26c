// closed/files/files.h: reads files in pieces and replaces them atomically.
#pragma once

#include "closed/files/filesystem.h"

namespace tvfile {

/// The step at which replacing a file failed.
enum class ReplaceStep {
    Done,
    Describe, ///< the path can't be examined
    Folder, ///< the path is a folder
    NotRegular, ///< the path is neither file nor folder
    ReadOnly, ///< the file is write-protected
    Busy, ///< another process is replacing the same file
    Create, ///< no file can be created in its folder
    Write,
    Replace, ///< the new file could not replace the old one
};

struct ReplaceResult {
    ReplaceStep Step = ReplaceStep::Done;
    int Error = 0; ///< the system's error number, if any
    [[nodiscard]] bool Ok() const
    {
        return Step == ReplaceStep::Done;
    }
};

/// A new file in the folder of `path` that replaces it when complete. Until then, and after any failure, `path` is
/// unchanged. The temporary name depends on `path` alone, so that the next process removes what a killed one has left;
/// if another process is writing the same file, it waits for a while. Links are followed, also to a missing file; an
/// existing file keeps its permissions, a new one gets the user's default.
class NewFile {
public:
    NewFile() = default;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Removes the new file unless it has been committed.
    ~NewFile();

    [[nodiscard]] ReplaceResult Begin(const std::string& path);
    [[nodiscard]] ReplaceResult Write(ByteView bytes);

    /// Replaces the file; with `flush` such that a power cut leaves either the old or the complete new file.
    [[nodiscard]] ReplaceResult Commit(bool flush);

    /// True if the medium has space for `bytes` more, or can't say.
    [[nodiscard]] bool HasRoomFor(uint64_t bytes) const;

private:
    [[nodiscard]] std::string Folder() const;

    intptr_t handle_ = -1;
    std::string target_;
    std::string temporary_;
};

/// Replaces the file `path` by `bytes`, flushed to disk.
[[nodiscard]] ReplaceResult ReplaceWholeFile(const std::string& path, ByteView bytes);

/// A regular file, read sequentially.
class SourceFile {
public:
    SourceFile() = default;
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;
    ~SourceFile();

    /// 0, or the system's error number.
    [[nodiscard]] int Open(const std::string& path);

    /// The length in bytes when it was opened.
    [[nodiscard]] uint64_t Length() const
    {
        return length_;
    }

    /// Reads until `room` is full or the file ends; `got` is the number of bytes read.
    [[nodiscard]] int Read(std::span<uint8_t> room, size_t& got);

private:
    intptr_t handle_ = -1;
    uint64_t length_ = 0;
};

/// Reads a regular file of at most `maxBytes`; a larger one gives the system's "file too large".
[[nodiscard]] int ReadWholeFile(const std::string& path, size_t maxBytes, Bytes& bytes);

/// The temporary name under which `path` is written.
std::string TemporaryPath(const std::string& path);

/// The last component of a path.
std::string FileNameOfPath(const std::string& path);

} // namespace tvfile
