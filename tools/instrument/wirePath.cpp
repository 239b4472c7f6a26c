#include "tools/instrument/wirePath.h"

#include "app/text/ansi.h"

#include <algorithm>

namespace tarvik {

namespace {

/// Bytes 81, 8D, 8F, 90 and 9D are unassigned in Windows-1252.
constexpr std::string_view kUnassigned = "\x81\x8D\x8F\x90\x9D";

bool IsNameByte(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code >= ' ' && code != 0x7F && byte != '\\' && byte != '/' && kUnassigned.find(byte) == std::string::npos;
}

} // namespace

std::string PathText(const WirePath& path)
{
    std::string text;
    for (const std::string& folder : path)
        text += '\\' + folder;
    return text.empty() ? "\\" : text;
}

std::optional<WirePath> FollowPath(const WirePath& start, std::string_view text)
{
    if (text.empty())
        return {};
    WirePath path = text.front() == '\\' ? WirePath() : start;
    while (!text.empty()) {
        const std::string_view part = text.substr(0, text.find('\\'));
        text.remove_prefix(std::min(part.size() + 1, text.size()));
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            if (!path.empty())
                path.pop_back();
            continue;
        }
        if (!IsWireName(part))
            return {};
        path.emplace_back(part);
    }
    const bool fits = path.size() <= kMaxPathFolders && PathText(path).size() <= kMaxPathBytes;
    const bool isPrivate = !path.empty() && path.front() == kPrivateFolder;
    return fits && !isPrivate ? std::optional(path) : std::nullopt;
}

bool IsWireName(std::string_view name)
{
    return !name.empty() && name != "." && name != ".." && std::all_of(name.begin(), name.end(), IsNameByte);
}

std::optional<std::string> DiskName(std::string_view name)
{
    if (!IsWireName(name))
        return {};
    return FromAnsi(QByteArrayView(name.data(), static_cast<qsizetype>(name.size()))).toStdString();
}

std::optional<std::string> WireName(std::string_view diskName)
{
    const QString text = QString::fromUtf8(diskName.data(), static_cast<qsizetype>(diskName.size()));
    if (!IsAnsi(text))
        return {};
    std::string name = ToAnsi(text).toStdString();
    // A name that does not round-trip would be listed but not found.
    return DiskName(name) == diskName ? std::optional(name) : std::nullopt;
}

} // namespace tarvik
