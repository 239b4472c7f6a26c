// tools/instrument/storage.h: the receiver's disk, a folder of this machine that no name can escape.
// Symbolic links, pipes and devices in that folder are invisible to clients. Files appear atomically when complete. A
// file without any write permission counts as locked.
#pragma once

#include "tools/instrument/descriptor.h"
#include "tools/instrument/errors.h"
#include "tools/instrument/wirePath.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace tarvik {

/// Maximum size of a stored file.
inline constexpr std::uint64_t kMaxFileBytes = 256ULL * 1024 * 1024;

/// Range of years in time stamps.
inline constexpr int kFirstYear = 1980;
inline constexpr int kLastYear = 2107;

struct StorageEntry {
    std::string Name; ///< Windows-1252
    bool IsFolder = false;
    std::uint64_t SizeBytes = 0; ///< 0 for a folder
    std::tm Stamp{}; ///< local time of the last change; tm_year counts from 1900, tm_mon from 0
};

struct StorageUsage {
    std::uint64_t UsedBytes = 0;
    std::uint64_t FreeBytes = 0;
};

/// What a stored file replaces.
enum class StoreReplaces {
    SameName, ///< a file of the same name
    WholeFolder ///< every file of its folder
};

class Storage {
public:
    /// Opens `folder`, created if missing. False if that fails or another receiver uses it; `reason` says why.
    [[nodiscard]] bool Open(const std::string& folder, std::uint64_t capacityBytes, std::string& reason);

    /// True if it contains nothing but the receiver's private folder.
    bool IsEmpty() const;

    /// Path of the opened folder on the disk.
    const std::string& Root() const
    {
        return root_;
    }

    bool HasFolder(const WirePath& path) const;

    /// Entries visible to a client, sorted by name.
    InstrumentError List(const WirePath& path, std::vector<StorageEntry>& entries) const;

    /// NotFound if there is none.
    InstrumentError Find(const WirePath& path, std::string_view name, StorageEntry& entry) const;

    InstrumentError MakeFolder(const WirePath& path, std::string_view name);
    InstrumentError RemoveFolder(const WirePath& path, std::string_view name);

    /// Opens a file for reading.
    InstrumentError OpenFile(const WirePath& path, std::string_view name, Descriptor& file, std::uint64_t& size) const;

    /// Storing: checks target and free space, then receives the bytes, then puts the file in place. The free space is
    /// cached until used up, since finding it walks the whole disk.
    InstrumentError BeginStore(const WirePath& path, std::string_view name, StoreReplaces place, std::uint64_t size);
    InstrumentError Store(std::string_view bytes);
    InstrumentError EndStore();
    void AbandonStore();

    InstrumentError RemoveFile(const WirePath& path, std::string_view name);
    InstrumentError Rename(const WirePath& path, std::string_view oldName, std::string_view newName);

    InstrumentError SetLocked(const WirePath& path, std::string_view name, bool locked);
    InstrumentError GetLocked(const WirePath& path, std::string_view name, bool& locked) const;

    /// Sets only the date, or only the time of day, from those fields of `stamp`.
    InstrumentError SetDate(const WirePath& path, std::string_view name, const std::tm& stamp);
    InstrumentError SetTime(const WirePath& path, std::string_view name, const std::tm& stamp);

    StorageUsage Usage() const;

    /// The file in the private folder that holds the active settings.
    InstrumentError OpenActive(Descriptor& file, std::uint64_t& size) const;
    InstrumentError BeginStoreActive(std::uint64_t size);

private:
    struct Target {
        WirePath Path;
        std::string Name; ///< on the disk; empty for the active settings
        StoreReplaces Place = StoreReplaces::SameName;
    };

    /// Result of resolving a name. The folder is open even if only the name is missing.
    struct Located {
        Descriptor Folder;
        std::string DiskName;
        struct ::stat Status { };
    };

    InstrumentError OpenFolder(const WirePath& path, Descriptor& folder) const;
    InstrumentError Locate(const WirePath& path, std::string_view name, Located& found) const;
    InstrumentError LocateFile(const WirePath& path, std::string_view name, Located& found) const; ///< not a folder
    InstrumentError CheckTarget(const Target& target) const;
    InstrumentError OpenIncoming(std::uint64_t size);
    InstrumentError PlaceIncoming();
    InstrumentError SetStamp(const WirePath& path, std::string_view name, const std::tm& stamp, bool isDate);

    std::string root_;
    std::uint64_t capacityBytes_ = 0;
    std::uint64_t roomLeft_ = 0; ///< bytes free at the last walk, less those stored since
    Descriptor rootFolder_;
    Descriptor privateFolder_;
    Descriptor incoming_;
    Target target_;
    InstrumentError storeError_ = InstrumentError::None;
};

} // namespace tarvik
