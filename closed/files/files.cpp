#include "closed/files/files.h"

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <utility>

namespace tvfile {

namespace {

/// Another process needs a few milliseconds for a save, and less than a second on a slow disk.
constexpr int kBusyTries = 200;

/// The systems' own limit; more means a cycle.
constexpr int kMaxLinks = 40;

constexpr intptr_t kNoHandle = -1;

#if defined(_WIN32)
constexpr std::string_view kSeparators = "/\\";
#else
constexpr std::string_view kSeparators = "/";
#endif

FileSystem* replacement = nullptr;

ReplaceResult CheckTarget(const FileInfo& info)
{
    if (!info.Exists)
        return {};
    if (info.IsFolder)
        return { ReplaceStep::Folder, EISDIR };
    if (!info.IsRegular)
        return { ReplaceStep::NotRegular, EINVAL };
    return info.IsWritable ? ReplaceResult{} : ReplaceResult{ ReplaceStep::ReadOnly, EACCES };
}

ReplaceResult CreateTemporary(const std::string& path, uint32_t permissions, intptr_t& handle)
{
    int error = EBUSY;
    for (int tries = 0; tries < kBusyTries && error == EBUSY; ++tries) {
        if (tries > 0)
            TheFileSystem().Pause();
        error = TheFileSystem().Create(path, permissions, handle);
    }
    if (error == 0)
        return {};
    return { error == EBUSY ? ReplaceStep::Busy : ReplaceStep::Create, error };
}

} // namespace

FileSystem::~FileSystem() = default;

FileSystem& TheFileSystem()
{
    static FileSystem system;
    return replacement != nullptr ? *replacement : system;
}

void SetFileSystem(FileSystem* other)
{
    replacement = other;
}

int FollowLinks(std::string& path)
{
    std::error_code error;
    std::filesystem::path at(std::u8string(path.begin(), path.end()));
    int links = 0;
    for (; std::filesystem::is_symlink(at, error); ++links) {
        if (links == kMaxLinks)
            return ELOOP;
        at = at.parent_path() / std::filesystem::read_symlink(at, error);
        if (error)
            return error.default_error_condition().value();
    }
    if (links > 0) {
        const std::u8string found = at.u8string();
        path.assign(found.begin(), found.end());
    }
    return 0;
}

NewFile::~NewFile()
{
    if (handle_ != kNoHandle)
        TheFileSystem().Discard(handle_, temporary_);
}

ReplaceResult NewFile::Begin(const std::string& path)
{
    // An embedded zero would truncate the path.
    if (path.empty() || path.find('\0') != std::string::npos)
        return { ReplaceStep::Describe, ENOENT };
    FileInfo target;
    if (const int error = TheFileSystem().Describe(path, target); error != 0)
        return { ReplaceStep::Describe, error };
    if (const ReplaceResult result = CheckTarget(target); !result.Ok())
        return result;
    target_ = target.RealPath;
    temporary_ = TemporaryPath(target_);
    return CreateTemporary(temporary_, target.Permissions, handle_);
}

ReplaceResult NewFile::Write(ByteView bytes)
{
    while (!bytes.empty()) {
        size_t written = 0;
        if (const int error = TheFileSystem().Write(handle_, bytes, written); error != 0)
            return { ReplaceStep::Write, error };
        bytes = bytes.subspan(written);
    }
    return {};
}

ReplaceResult NewFile::Commit(bool flush)
{
    if (flush) {
        if (const int error = TheFileSystem().Flush(handle_); error != 0)
            return { ReplaceStep::Write, error };
    }
    const intptr_t handle = std::exchange(handle_, kNoHandle); // Replace closes it, even if it fails
    if (const int error = TheFileSystem().Replace(handle, temporary_, target_); error != 0)
        return { ReplaceStep::Replace, error };
    if (flush)
        TheFileSystem().FlushFolder(Folder());
    return {};
}

bool NewFile::HasRoomFor(uint64_t bytes) const
{
    uint64_t free = 0;
    return TheFileSystem().FreeBytes(Folder(), free) != 0 || bytes <= free;
}

std::string NewFile::Folder() const
{
    return target_.substr(0, target_.size() - FileNameOfPath(target_).size());
}

ReplaceResult ReplaceWholeFile(const std::string& path, ByteView bytes)
{
    NewFile file;
    ReplaceResult result = file.Begin(path);
    if (result.Ok())
        result = file.Write(bytes);
    return result.Ok() ? file.Commit(true) : result;
}

SourceFile::~SourceFile()
{
    if (handle_ != kNoHandle)
        TheFileSystem().Close(handle_);
}

int SourceFile::Open(const std::string& path)
{
    return TheFileSystem().OpenToRead(path, handle_, length_);
}

int SourceFile::Read(std::span<uint8_t> room, size_t& got)
{
    got = 0;
    while (got < room.size()) {
        size_t piece = 0;
        if (const int error = TheFileSystem().Read(handle_, room.subspan(got), piece); error != 0)
            return error;
        if (piece == 0)
            break;
        got += piece;
    }
    return 0;
}

int ReadWholeFile(const std::string& path, size_t maxBytes, Bytes& bytes)
{
    SourceFile file;
    if (const int error = file.Open(path); error != 0)
        return error;
    if (file.Length() > maxBytes)
        return EFBIG;
    size_t filled = 0;
    bytes.resize(static_cast<size_t>(file.Length()) + 1); // one more, to detect the end of the file
    for (;;) {
        size_t got = 0;
        if (const int error = file.Read(std::span(bytes).subspan(filled), got); error != 0)
            return error;
        filled += got;
        if (filled > maxBytes)
            return EFBIG;
        if (filled < bytes.size())
            break;
        bytes.resize(filled + 4096); // has grown since Length was read
    }
    bytes.resize(filled);
    return 0;
}

std::string FileNameOfPath(const std::string& path)
{
    const size_t separator = path.find_last_of(kSeparators);
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string TemporaryPath(const std::string& path)
{
    const std::string name = FileNameOfPath(path);
    // Keeps the name within the system's limit. The end is kept, since that distinguishes files of a series.
    constexpr size_t kMaxKept = 200;
    size_t start = name.size() > kMaxKept ? name.size() - kMaxKept : 0;
    while (start < name.size() && (static_cast<unsigned char>(name[start]) & 0xC0U) == 0x80U)
        ++start; // not inside a UTF-8 sequence
    return path.substr(0, path.size() - name.size()) + "." + name.substr(start) + ".tvnew";
}

} // namespace tvfile
