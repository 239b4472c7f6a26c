#include "app/platform/replaceFile.h"

#include "app/platform/paths.h"
#include "closed/files/files.h"

namespace tarvik {

bool ReplaceFile(const QString& path, QByteArrayView bytes, int* error)
{
    const tvfile::ByteView view(reinterpret_cast<const uint8_t*>(bytes.data()), static_cast<size_t>(bytes.size()));
    const tvfile::ReplaceResult result = tvfile::ReplaceWholeFile(ModulePath(path).toStdString(), view);
    if (error != nullptr)
        *error = result.Error;
    return result.Ok();
}

bool CanReplaceFile(const QString& path)
{
    constexpr uint8_t kBlank = ' ';
    tvfile::NewFile file;
    return file.Begin(ModulePath(path).toStdString()).Ok() && file.Write({ &kBlank, 1 }).Ok();
}

} // namespace tarvik
