#include "closed/tvfio/fileaccess.h"

#include "closed/tvfio/container.h"

#include <array>
#include <cerrno>

namespace tvfio {

namespace {

/// Another process needs a few milliseconds for a save; a second is more than a slow disk takes.
constexpr int kBusyTries = 200;

#if defined(_WIN32)
constexpr std::string_view kSeparators = "/\\";
#else
constexpr std::string_view kSeparators = "/";
#endif

FileSystem* replacement = nullptr;

struct SystemText {
    int Error;
    const char* Text;
};

constexpr std::array kSystemTexts
{
    SystemText{ ENOENT, "There is no such file or folder." }, SystemText{ ENOTDIR, "There is no such folder." },
        SystemText{ EACCES, "Access is denied." }, SystemText{ EPERM, "Access is denied." },
        SystemText{ EROFS, "The medium is read-only." }, SystemText{ ENOSPC, "The medium is full." },
#if defined(EDQUOT)
        SystemText{ EDQUOT, "The user's share of the medium is full." },
#endif
        SystemText{ EIO, "The medium does not answer as it should." },
        SystemText{ ENAMETOOLONG, "The name is too long." }, SystemText{ EISDIR, "It is a folder." },
        SystemText{ EINVAL, "It is not an ordinary file." }, SystemText{ ELOOP, "Its links form a circle." },
        SystemText{ EMFILE, "Too many files are open." }, SystemText{ EBUSY, "It is in use." },
};

FioStatus FailSystem(FioStatus status, int error)
{
    for (const SystemText& entry : kSystemTexts) {
        if (entry.Error == error)
            return Fail(status, entry.Text);
    }
    return Fail(status, "System error " + std::to_string(error) + ".");
}

FioStatus CheckTarget(const FileInfo& info)
{
    if (!info.Exists)
        return FioStatus::Ok;
    if (info.IsFolder)
        return Fail(FioStatus::PathIsFolder);
    if (!info.IsRegular)
        return FailSystem(FioStatus::FileReplace, EINVAL);
    return info.IsWritable ? FioStatus::Ok : Fail(FioStatus::FileReadOnly);
}

FioStatus CreateTemporary(const std::string& path, uint32_t permissions, intptr_t& handle)
{
    int error = EBUSY;
    for (int tries = 0; tries < kBusyTries && error == EBUSY; ++tries) {
        if (tries > 0)
            TheFileSystem().Pause();
        error = TheFileSystem().Create(path, permissions, handle);
    }
    if (error == EBUSY)
        return Fail(FioStatus::FileBusy);
    return error == 0 ? FioStatus::Ok : FailSystem(FioStatus::FileCreate, error);
}

int WriteAndFlush(intptr_t handle, ByteView bytes)
{
    while (!bytes.empty()) {
        size_t written = 0;
        if (const int error = TheFileSystem().Write(handle, bytes, written); error != 0)
            return error;
        bytes = bytes.subspan(written);
    }
    return TheFileSystem().Flush(handle);
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

std::string FileNameOfPath(const std::string& path)
{
    const size_t separator = path.find_last_of(kSeparators);
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string TemporaryPath(const std::string& path)
{
    const std::string name = FileNameOfPath(path);
    // A name near the system's limit must not pass it; the end is what tells files of a series apart.
    constexpr size_t kMaxKept = 200;
    size_t start = name.size() > kMaxKept ? name.size() - kMaxKept : 0;
    while (start < name.size() && (static_cast<unsigned char>(name[start]) & 0xC0U) == 0x80U)
        ++start; // not in the middle of a character
    return path.substr(0, path.size() - name.size()) + "." + name.substr(start) + ".tvnew";
}

FioStatus ReadFileBytes(const char* path, Bytes& bytes)
{
    if (path == nullptr)
        return Fail(FioStatus::MissingArgument);
    if (*path == '\0')
        return Fail(FioStatus::PathEmpty);
    const int error = TheFileSystem().ReadAll(path, kMaxFileBytes, bytes);
    switch (error) {
    case 0:
        return FioStatus::Ok;
    case EISDIR:
        return Fail(FioStatus::PathIsFolder);
    case EILSEQ:
        return Fail(FioStatus::PathNotText);
    case EFBIG:
        return Fail(FioStatus::FileTooLarge);
    case EIO:
        return FailSystem(FioStatus::FileRead, error);
    default:
        return FailSystem(FioStatus::FileOpen, error);
    }
}

FioStatus SaveFileBytes(const char* path, ByteView bytes)
{
    if (path == nullptr)
        return Fail(FioStatus::MissingArgument);
    if (*path == '\0')
        return Fail(FioStatus::PathEmpty);
    FileInfo target;
    if (const int error = TheFileSystem().Describe(path, target); error != 0)
        return error == EILSEQ ? Fail(FioStatus::PathNotText) : FailSystem(FioStatus::FileCreate, error);
    if (const FioStatus status = CheckTarget(target); status != FioStatus::Ok)
        return status;

    const std::string temporary = TemporaryPath(target.RealPath);
    intptr_t handle = -1;
    if (const FioStatus status = CreateTemporary(temporary, target.Permissions, handle); status != FioStatus::Ok)
        return status;
    if (const int error = WriteAndFlush(handle, bytes); error != 0) {
        TheFileSystem().Discard(handle, temporary);
        return FailSystem(FioStatus::FileWrite, error);
    }
    if (const int error = TheFileSystem().Replace(handle, temporary, target.RealPath); error != 0)
        return FailSystem(FioStatus::FileReplace, error);
    TheFileSystem().FlushFolder(
        target.RealPath.substr(0, target.RealPath.size() - FileNameOfPath(target.RealPath).size()));
    return FioStatus::Ok;
}

} // namespace tvfio
