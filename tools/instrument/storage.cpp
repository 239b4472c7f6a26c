#include "tools/instrument/storage.h"

#include "tools/instrument/diskFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace tarvik {

namespace {

constexpr const char* kIncoming = "incoming";
constexpr const char* kActive = "active";
constexpr mode_t kFolderMode = 0777;
constexpr mode_t kFileMode = 0666;
constexpr mode_t kAnyoneWrites = 0222;
constexpr mode_t kOwnerWrites = 0200;

InstrumentError ErrorOf(int systemError)
{
    switch (systemError) {
    case ENOSPC:
    case EDQUOT:
        return InstrumentError::MediaFull;
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
        return InstrumentError::NotFound;
    case ENAMETOOLONG:
        return InstrumentError::FileName;
    case EACCES:
    case EPERM:
    case EROFS:
        return InstrumentError::Protected;
    default:
        return InstrumentError::MassStorage;
    }
}

InstrumentError ResultOf(int systemCall)
{
    return systemCall == 0 ? InstrumentError::None : ErrorOf(errno);
}

bool IsLocked(const struct stat& status)
{
    return (status.st_mode & kAnyoneWrites) == 0;
}

/// Local time fields of a time stamp; years outside the range of the file system become its first day.
std::tm StampOf(std::time_t changed)
{
    std::tm stamp{};
    const bool isKnown = ::localtime_r(&changed, &stamp) != nullptr;
    if (isKnown && stamp.tm_year >= kFirstYear - 1900 && stamp.tm_year <= kLastYear - 1900)
        return stamp;
    stamp = {};
    stamp.tm_year = kFirstYear - 1900;
    stamp.tm_mday = 1;
    return stamp;
}

StorageEntry EntryOf(std::string name, const struct stat& status)
{
    StorageEntry entry;
    entry.Name = std::move(name);
    entry.IsFolder = S_ISDIR(status.st_mode);
    entry.SizeBytes = entry.IsFolder ? 0 : static_cast<std::uint64_t>(status.st_size);
    entry.Stamp = StampOf(status.st_mtime);
    return entry;
}

std::uint64_t BytesBelow(int folder, size_t depth)
{
    std::uint64_t bytes = 0;
    for (const DiskEntry& entry : DiskEntries(folder)) {
        bytes += S_ISREG(entry.Status.st_mode) ? static_cast<std::uint64_t>(entry.Status.st_size) : 0;
        if (!S_ISDIR(entry.Status.st_mode) || depth > kMaxPathFolders)
            continue;
        const Descriptor inner = OpenDiskFolder(folder, entry.Name);
        bytes += inner.IsOpen() ? BytesBelow(inner.Number(), depth + 1) : 0;
    }
    return bytes;
}

} // namespace

bool Storage::Open(const std::string& folder, std::uint64_t capacityBytes, std::string& reason)
{
    root_ = folder;
    capacityBytes_ = capacityBytes;
    rootFolder_ = Descriptor(MakeDiskFolders(folder) ? ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1);
    if (rootFolder_.IsOpen() && ::mkdirat(rootFolder_.Number(), kPrivateFolder, kFolderMode) != 0 && errno != EEXIST)
        rootFolder_.Close();
    if (rootFolder_.IsOpen())
        privateFolder_ = OpenDiskFolder(rootFolder_.Number(), kPrivateFolder);
    if (!rootFolder_.IsOpen() || !privateFolder_.IsOpen()) {
        reason = std::strerror(errno);
        return false;
    }
    if (::flock(privateFolder_.Number(), LOCK_EX | LOCK_NB) != 0) {
        reason = "another receiver is using it";
        return false;
    }
    ::unlinkat(privateFolder_.Number(), kIncoming, 0); // left by a receiver that was killed while storing
    return true;
}

bool Storage::IsEmpty() const
{
    const auto entries = DiskEntries(rootFolder_.Number());
    return std::all_of(
        entries.begin(), entries.end(), [](const DiskEntry& entry) { return entry.Name == kPrivateFolder; });
}

bool Storage::HasFolder(const WirePath& path) const
{
    Descriptor folder;
    return OpenFolder(path, folder) == InstrumentError::None;
}

InstrumentError Storage::List(const WirePath& path, std::vector<StorageEntry>& entries) const
{
    Descriptor folder;
    if (const auto error = OpenFolder(path, folder); error != InstrumentError::None)
        return error;
    for (const DiskEntry& entry : DiskEntries(folder.Number())) {
        const bool isPlain = S_ISREG(entry.Status.st_mode) || S_ISDIR(entry.Status.st_mode);
        const bool isPrivate = path.empty() && entry.Name == kPrivateFolder;
        if (auto name = WireName(entry.Name); name && isPlain && !isPrivate)
            entries.push_back(EntryOf(std::move(*name), entry.Status));
    }
    std::sort(entries.begin(), entries.end(),
        [](const StorageEntry& left, const StorageEntry& right) { return left.Name < right.Name; });
    return InstrumentError::None;
}

InstrumentError Storage::Find(const WirePath& path, std::string_view name, StorageEntry& entry) const
{
    Located found;
    const auto error = Locate(path, name, found);
    if (error == InstrumentError::None)
        entry = EntryOf(std::string(name), found.Status);
    return error;
}

InstrumentError Storage::MakeFolder(const WirePath& path, std::string_view name)
{
    Located place;
    const auto found = Locate(path, name, place);
    if (found != InstrumentError::NotFound || !place.Folder.IsOpen())
        return found == InstrumentError::None ? InstrumentError::FileName : found;
    const bool fits = PathText(path).size() + 1 + name.size() <= kMaxPathBytes && path.size() < kMaxPathFolders;
    if (!fits)
        return InstrumentError::FileName;
    const int result = ::mkdirat(place.Folder.Number(), place.DiskName.c_str(), kFolderMode);
    // The existing entry may be invisible to clients.
    return result != 0 && errno == EEXIST ? InstrumentError::FileName : ResultOf(result);
}

InstrumentError Storage::RemoveFolder(const WirePath& path, std::string_view name)
{
    Located found;
    if (const auto error = Locate(path, name, found); error != InstrumentError::None)
        return error;
    if (!S_ISDIR(found.Status.st_mode))
        return InstrumentError::NotFound;
    return ResultOf(::unlinkat(found.Folder.Number(), found.DiskName.c_str(), AT_REMOVEDIR));
}

InstrumentError Storage::OpenFile(
    const WirePath& path, std::string_view name, Descriptor& file, std::uint64_t& size) const
{
    Located found;
    if (const auto error = Locate(path, name, found); error != InstrumentError::None)
        return error;
    return OpenDiskFile(found.Folder.Number(), found.DiskName, file, size) ? InstrumentError::None : ErrorOf(errno);
}

InstrumentError Storage::BeginStore(
    const WirePath& path, std::string_view name, StoreReplaces place, std::uint64_t size)
{
    AbandonStore();
    const auto diskName = DiskName(name);
    if (!diskName || (path.empty() && *diskName == kPrivateFolder))
        return InstrumentError::FileName;
    const Target target{ path, *diskName, place };
    if (const auto error = CheckTarget(target); error != InstrumentError::None)
        return error;
    target_ = target;
    return OpenIncoming(size);
}

InstrumentError Storage::BeginStoreActive(std::uint64_t size)
{
    AbandonStore();
    target_ = {};
    return OpenIncoming(size);
}

InstrumentError Storage::OpenIncoming(std::uint64_t size)
{
    if (size > roomLeft_)
        roomLeft_ = Usage().FreeBytes;
    if (size > kMaxFileBytes || size > roomLeft_)
        return InstrumentError::MediaFull;
    roomLeft_ -= size;
    incoming_ = Descriptor(
        ::openat(privateFolder_.Number(), kIncoming, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, kFileMode));
    storeError_ = incoming_.IsOpen() ? InstrumentError::None : ErrorOf(errno);
    return storeError_;
}

InstrumentError Storage::Store(std::string_view bytes)
{
    while (!bytes.empty() && storeError_ == InstrumentError::None) {
        const ssize_t count = ::write(incoming_.Number(), bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<size_t>(count));
        else if (errno != EINTR)
            storeError_ = ErrorOf(errno);
    }
    return storeError_;
}

InstrumentError Storage::EndStore()
{
    if (!incoming_.IsOpen())
        return InstrumentError::MassStorage;
    InstrumentError error = storeError_;
    if (error == InstrumentError::None && !target_.Name.empty())
        error = CheckTarget(target_);
    if (error == InstrumentError::None)
        error = PlaceIncoming();
    AbandonStore();
    return error;
}

void Storage::AbandonStore()
{
    if (!incoming_.IsOpen())
        return;
    incoming_.Close();
    ::unlinkat(privateFolder_.Number(), kIncoming, 0);
}

InstrumentError Storage::PlaceIncoming()
{
    const int from = privateFolder_.Number();
    if (target_.Name.empty())
        return ResultOf(::renameat(from, kIncoming, from, kActive));
    Descriptor folder;
    if (const auto error = OpenFolder(target_.Path, folder); error != InstrumentError::None)
        return error;
    if (::renameat(from, kIncoming, folder.Number(), target_.Name.c_str()) != 0)
        return ErrorOf(errno);
    if (target_.Place == StoreReplaces::SameName)
        return InstrumentError::None;
    for (const DiskEntry& entry : DiskEntries(folder.Number())) {
        if (S_ISREG(entry.Status.st_mode) && entry.Name != target_.Name)
            ::unlinkat(folder.Number(), entry.Name.c_str(), 0);
    }
    return InstrumentError::None;
}

InstrumentError Storage::CheckTarget(const Target& target) const
{
    Descriptor folder;
    if (const auto error = OpenFolder(target.Path, folder); error != InstrumentError::None)
        return error;
    struct stat old { };
    const bool isNew = ::fstatat(folder.Number(), target.Name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0;
    if (isNew && errno != ENOENT)
        return ErrorOf(errno);
    if (!isNew && !S_ISREG(old.st_mode))
        return InstrumentError::FileName;
    if (!isNew && IsLocked(old))
        return InstrumentError::Protected;
    if (target.Place == StoreReplaces::SameName)
        return InstrumentError::None;
    const std::vector<DiskEntry> others = DiskEntries(folder.Number());
    const bool isHeld = std::any_of(others.begin(), others.end(),
        [](const DiskEntry& entry) { return S_ISREG(entry.Status.st_mode) && IsLocked(entry.Status); });
    return isHeld ? InstrumentError::Protected : InstrumentError::None;
}

InstrumentError Storage::RemoveFile(const WirePath& path, std::string_view name)
{
    Located found;
    if (const auto error = LocateFile(path, name, found); error != InstrumentError::None)
        return error;
    if (IsLocked(found.Status))
        return InstrumentError::Protected;
    return ResultOf(::unlinkat(found.Folder.Number(), found.DiskName.c_str(), 0));
}

InstrumentError Storage::Rename(const WirePath& path, std::string_view oldName, std::string_view newName)
{
    Located found;
    if (const auto error = Locate(path, oldName, found); error != InstrumentError::None)
        return error;
    const auto newDiskName = DiskName(newName);
    if (!newDiskName || PathText(path).size() + 1 + newName.size() > kMaxPathBytes)
        return InstrumentError::FileName;
    if (S_ISREG(found.Status.st_mode) && IsLocked(found.Status))
        return InstrumentError::Protected;
    struct stat other { };
    if (::fstatat(found.Folder.Number(), newDiskName->c_str(), &other, AT_SYMLINK_NOFOLLOW) == 0)
        return InstrumentError::FileName;
    return ResultOf(
        ::renameat(found.Folder.Number(), found.DiskName.c_str(), found.Folder.Number(), newDiskName->c_str()));
}

InstrumentError Storage::SetLocked(const WirePath& path, std::string_view name, bool locked)
{
    Located found;
    if (const auto error = LocateFile(path, name, found); error != InstrumentError::None)
        return error;
    const mode_t permissions = found.Status.st_mode & 07777;
    const mode_t wanted = locked ? permissions & ~kAnyoneWrites : permissions | kOwnerWrites;
    return ResultOf(::fchmodat(found.Folder.Number(), found.DiskName.c_str(), wanted, 0));
}

InstrumentError Storage::GetLocked(const WirePath& path, std::string_view name, bool& locked) const
{
    Located found;
    if (const auto error = LocateFile(path, name, found); error != InstrumentError::None)
        return error;
    locked = IsLocked(found.Status);
    return InstrumentError::None;
}

InstrumentError Storage::SetDate(const WirePath& path, std::string_view name, const std::tm& stamp)
{
    return SetStamp(path, name, stamp, true);
}

InstrumentError Storage::SetTime(const WirePath& path, std::string_view name, const std::tm& stamp)
{
    return SetStamp(path, name, stamp, false);
}

InstrumentError Storage::SetStamp(const WirePath& path, std::string_view name, const std::tm& stamp, bool isDate)
{
    Located found;
    if (const auto error = LocateFile(path, name, found); error != InstrumentError::None)
        return error;
    const std::tm old = StampOf(found.Status.st_mtime);
    const std::tm& date = isDate ? stamp : old;
    std::tm merged = isDate ? old : stamp;
    merged.tm_year = date.tm_year;
    merged.tm_mon = date.tm_mon;
    merged.tm_mday = date.tm_mday;
    merged.tm_isdst = -1;
    const std::time_t changed = std::mktime(&merged);
    const timespec times[2] = { { 0, UTIME_OMIT }, { changed, 0 } };
    return ResultOf(::utimensat(found.Folder.Number(), found.DiskName.c_str(), times, AT_SYMLINK_NOFOLLOW));
}

StorageUsage Storage::Usage() const
{
    StorageUsage usage;
    usage.UsedBytes = BytesBelow(rootFolder_.Number(), 0);
    struct statvfs disk { };
    const bool isKnown = ::fstatvfs(rootFolder_.Number(), &disk) == 0;
    const std::uint64_t room = isKnown ? std::uint64_t{ disk.f_bavail } * disk.f_frsize : 0;
    usage.FreeBytes = std::min(capacityBytes_ - std::min(usage.UsedBytes, capacityBytes_), room);
    return usage;
}

InstrumentError Storage::OpenActive(Descriptor& file, std::uint64_t& size) const
{
    return OpenDiskFile(privateFolder_.Number(), kActive, file, size) ? InstrumentError::None : ErrorOf(errno);
}

InstrumentError Storage::OpenFolder(const WirePath& path, Descriptor& folder) const
{
    folder = Descriptor(::fcntl(rootFolder_.Number(), F_DUPFD_CLOEXEC, 0));
    for (const std::string& part : path) {
        const auto name = DiskName(part);
        if (!name)
            return InstrumentError::FileName;
        folder = OpenDiskFolder(folder.Number(), *name);
        if (!folder.IsOpen())
            return ErrorOf(errno);
    }
    return folder.IsOpen() ? InstrumentError::None : ErrorOf(errno);
}

InstrumentError Storage::Locate(const WirePath& path, std::string_view name, Located& found) const
{
    const auto converted = DiskName(name);
    if (!converted || (path.empty() && *converted == kPrivateFolder))
        return InstrumentError::FileName;
    found.DiskName = *converted;
    if (const auto error = OpenFolder(path, found.Folder); error != InstrumentError::None) {
        found.Folder.Close();
        return error;
    }
    if (::fstatat(found.Folder.Number(), found.DiskName.c_str(), &found.Status, AT_SYMLINK_NOFOLLOW) != 0)
        return ErrorOf(errno);
    const bool isPlain = S_ISREG(found.Status.st_mode) || S_ISDIR(found.Status.st_mode);
    return isPlain ? InstrumentError::None : InstrumentError::NotFound;
}

InstrumentError Storage::LocateFile(const WirePath& path, std::string_view name, Located& found) const
{
    const auto error = Locate(path, name, found);
    return error == InstrumentError::None && S_ISDIR(found.Status.st_mode) ? InstrumentError::NotFound : error;
}

} // namespace tarvik
