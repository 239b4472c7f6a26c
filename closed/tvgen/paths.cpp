#include "closed/tvgen/helpers.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

#if defined(_WIN32)
constexpr std::string_view kSeparators = "/\\";
constexpr bool kHasDrives = true;
#else
constexpr std::string_view kSeparators = "/";
constexpr bool kHasDrives = false;
#endif

struct PathParts {
    std::string_view Drive;
    std::string_view Folder;
    std::string_view BaseName;
    std::string_view Extension;
};

PathParts Split(std::string_view path)
{
    PathParts parts;
    if (kHasDrives && path.size() >= 2 && path[1] == ':') {
        parts.Drive = path.substr(0, 2);
        path.remove_prefix(2);
    }
    const size_t separator = path.find_last_of(kSeparators);
    const size_t nameAt = separator == std::string_view::npos ? 0 : separator + 1;
    parts.Folder = path.substr(0, nameAt);
    const std::string_view name = path.substr(nameAt);
    // A name whose only dot is its first character has no extension; nor have "." and "..".
    const size_t point = name.find_last_of('.');
    const bool hasExtension = point != std::string_view::npos && point > 0 && name != "..";
    parts.BaseName = hasExtension ? name.substr(0, point) : name;
    parts.Extension = hasExtension ? name.substr(point + 1) : std::string_view();
    return parts;
}

void Copy(std::string_view text, char* out)
{
    std::copy(text.begin(), text.end(), out);
    out[text.size()] = '\0';
}

} // namespace

int16_t SplitPath(const char* path, char* drive, char* folder, char* baseName, char* extension, int32_t outSize)
{
    if (drive == nullptr || folder == nullptr || baseName == nullptr || extension == nullptr || outSize <= 0)
        return 1;
    const PathParts parts = Split(path != nullptr ? path : "");
    const size_t longest =
        std::max({ parts.Drive.size(), parts.Folder.size(), parts.BaseName.size(), parts.Extension.size() });
    const bool fits = path != nullptr && longest < static_cast<size_t>(outSize);
    Copy(fits ? parts.Drive : "", drive);
    Copy(fits ? parts.Folder : "", folder);
    Copy(fits ? parts.BaseName : "", baseName);
    Copy(fits ? parts.Extension : "", extension);
    return fits ? 0 : 1;
}
