// link/files/drives.h: the drives of the PC; on systems without drive letters the root, the home folder and the mounted
// volumes that hold users' files.
#pragma once

#include "app/platform/port.h"

#include <QString>

#include <vector>

namespace tarvik {

enum class DriveKind { Fixed, Removable, Remote, Cdrom };

struct Drive {
    QString Root; ///< without a trailing separator unless it is a root
    QString Name; ///< volume name; empty without one and for a drive that isn't ready
    DriveKind Kind = DriveKind::Fixed;
};

/// A mounted volume as the system reports it.
struct MountedVolume {
    QString Root;
    QString Name;
    QString Device;
    QString FileSystem; ///< type, lower case: "ext4", "cifs", "iso9660"
    bool Ready = true;
};

/// False for volumes that the system mounts for itself.
bool VolumeIsForUsers(const MountedVolume& volume);

DriveKind DriveKindOf(const MountedVolume& volume);

/// Key of the drive's icon in the image list.
QString DriveIcon(DriveKind kind);

/// The volume name, then the drive letter or mount point in brackets.
QString DriveText(const Drive& drive);

/// The drive whose root is `path`, a root of the file system.
Drive DriveAtRoot(const QString& path);

class DriveSource {
public:
    /// The drives of this PC in the order in which the system reports them; may take a moment.
    virtual std::vector<Drive> Drives() = 0;

protected:
    ~DriveSource() = default;
};
Port<DriveSource>& TheDriveSource(); ///< without an implementation the drives of the system

} // namespace tarvik
