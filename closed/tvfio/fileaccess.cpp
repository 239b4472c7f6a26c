#include "closed/tvfio/fileaccess.h"

#include "closed/files/files.h"
#include "closed/tvfio/container.h"

#include <array>
#include <cerrno>

namespace tvfio {

using tvfile::ReplaceResult;
using tvfile::ReplaceStep;

namespace {

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

FioStatus FailReplace(const ReplaceResult& result)
{
    switch (result.Step) {
    case ReplaceStep::Done:
        return FioStatus::Ok;
    case ReplaceStep::Describe:
        return result.Error == EILSEQ ? Fail(FioStatus::PathNotText) : FailSystem(FioStatus::FileCreate, result.Error);
    case ReplaceStep::Folder:
        return Fail(FioStatus::PathIsFolder);
    case ReplaceStep::ReadOnly:
        return Fail(FioStatus::FileReadOnly);
    case ReplaceStep::Busy:
        return Fail(FioStatus::FileBusy);
    case ReplaceStep::Create:
        return FailSystem(FioStatus::FileCreate, result.Error);
    case ReplaceStep::Write:
        return FailSystem(FioStatus::FileWrite, result.Error);
    default:
        return FailSystem(FioStatus::FileReplace, result.Error);
    }
}

} // namespace

FioStatus ReadFileBytes(const char* path, Bytes& bytes)
{
    if (path == nullptr)
        return Fail(FioStatus::MissingArgument);
    if (*path == '\0')
        return Fail(FioStatus::PathEmpty);
    const int error = tvfile::ReadWholeFile(path, kMaxFileBytes, bytes);
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
    return FailReplace(tvfile::ReplaceWholeFile(path, bytes));
}

} // namespace tvfio
