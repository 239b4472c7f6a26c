// tools/instrument/storage.h: the receiver's disk: a folder of this machine, which no name leads out of.
//
// Symbolic links, pipes and devices below that folder are not there for a client. What is written becomes visible when
// it is complete, in one step. A file without any permission to write counts as locked.
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

/// Bytes of a file that is stored at most.
inline constexpr std::uint64_t kMaxFileBytes = 256ULL * 1024 * 1024;

/// Years that a stamp can have.
inline constexpr int kFirstYear = 1980;
inline constexpr int kLastYear = 2107;

struct StorageEntry {
    std::string Name; ///< Windows-1252
    bool IsFolder = false;
    std::uint64_t SizeBytes = 0; ///< 0 of a folder
    std::tm Stamp{}; ///< last change, local time; tm_year counts from 1900, tm_mon from 0
};

struct StorageUsage {
    std::uint64_t UsedBytes = 0;
    std::uint64_t FreeBytes = 0;
};

/// What replaces what when a file is stored.
enum class StorePlace {
    Beside, ///< a file of the same name
    Alone ///< every file of its folder
};

class Storage {
public:
    /// Opens `folder`, made if it is not there. False if that fails or another receiver works in it; `reason` tells.
    [[nodiscard]] bool Open(const std::string& folder, std::uint64_t capacityBytes, std::string& reason);

    /// Nothing but the receiver's own folder is there.
    bool IsEmpty() const;

    /// Path on the disk of the folder that was opened.
    const std::string& Root() const
    {
        return root_;
    }

    bool HasFolder(const WirePath& path) const;

    /// Entries that a client can name, sorted by name.
    InstrumentError List(const WirePath& path, std::vector<StorageEntry>& entries) const;

    /// NotFound when there is none.
    InstrumentError Find(const WirePath& path, std::string_view name, StorageEntry& entry) const;

    InstrumentError MakeFolder(const WirePath& path, std::string_view name);
    InstrumentError RemoveFolder(const WirePath& path, std::string_view name);

    /// Opens a file to be read.
    InstrumentError OpenFile(const WirePath& path, std::string_view name, Descriptor& file, std::uint64_t& size) const;

    /// Storing: the target and the room are checked, then the bytes come, then the file takes its place. Room that
    /// was found is not looked for again until it is used up: it takes a walk over the whole disk.
    InstrumentError BeginStore(const WirePath& path, std::string_view name, StorePlace place, std::uint64_t size);
    InstrumentError Store(std::string_view bytes);
    InstrumentError EndStore();
    void AbandonStore();

    InstrumentError RemoveFile(const WirePath& path, std::string_view name);
    InstrumentError Rename(const WirePath& path, std::string_view oldName, std::string_view newName);

    InstrumentError SetLocked(const WirePath& path, std::string_view name, bool locked);
    InstrumentError GetLocked(const WirePath& path, std::string_view name, bool& locked) const;

    /// Sets the date or the time of day alone, from those fields of `stamp`.
    InstrumentError SetDate(const WirePath& path, std::string_view name, const std::tm& stamp);
    InstrumentError SetTime(const WirePath& path, std::string_view name, const std::tm& stamp);

    StorageUsage Usage() const;

    /// The file in the receiver's own folder that keeps its active settings.
    InstrumentError OpenActive(Descriptor& file, std::uint64_t& size) const;
    InstrumentError BeginStoreActive(std::uint64_t size);

private:
    struct Target {
        WirePath Path;
        std::string Name; ///< on the disk; empty for the active settings
        StorePlace Place = StorePlace::Beside;
    };

    /// What stands under a name. The folder is open even if it is only the name that is not there.
    struct Located {
        Descriptor Folder;
        std::string DiskName;
        struct ::stat Status { };
    };

    InstrumentError OpenFolder(const WirePath& path, Descriptor& folder) const;
    InstrumentError Locate(const WirePath& path, std::string_view name, Located& found) const;
    InstrumentError LocateFile(const WirePath& path, std::string_view name, Located& found) const; ///< no folder
    InstrumentError CheckTarget(const Target& target) const;
    InstrumentError OpenIncoming(std::uint64_t size);
    InstrumentError PlaceIncoming();
    InstrumentError SetStamp(const WirePath& path, std::string_view name, const std::tm& stamp, bool isDate);

    std::string root_;
    std::uint64_t capacityBytes_ = 0;
    std::uint64_t roomLeft_ = 0; ///< bytes of what the last walk found free, less what was stored since
    Descriptor rootFolder_;
    Descriptor privateFolder_;
    Descriptor incoming_;
    Target target_;
    InstrumentError storeError_ = InstrumentError::None;
};

} // namespace tarvik
