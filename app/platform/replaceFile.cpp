#include "app/platform/replaceFile.h"

#include "app/platform/paths.h"
#include "closed/files/files.h"

#include <cerrno>

namespace tarvik {

namespace {

int ErrorOf(const tvfile::ReplaceResult& result)
{
    switch (result.Step) {
    case tvfile::ReplaceStep::Folder:
        return EISDIR;
    case tvfile::ReplaceStep::NotRegular:
        return EINVAL;
    case tvfile::ReplaceStep::ReadOnly:
        return EACCES;
    case tvfile::ReplaceStep::Busy:
        return EBUSY;
    default:
        return result.Error;
    }
}

} // namespace

bool ReplaceFile(const QString& path, QByteArrayView bytes, int* error)
{
    const tvfile::ByteView view(reinterpret_cast<const uint8_t*>(bytes.data()), static_cast<size_t>(bytes.size()));
    const tvfile::ReplaceResult result = tvfile::ReplaceWholeFile(ModulePath(path).toStdString(), view);
    if (error != nullptr)
        *error = ErrorOf(result);
    return result.Ok();
}

bool CanReplaceFile(const QString& path)
{
    constexpr uint8_t kBlank = ' ';
    tvfile::NewFile file;
    return file.Begin(ModulePath(path).toStdString()).Ok() && file.Write({ &kBlank, 1 }).Ok();
}

} // namespace tarvik
