// link/files/drives.h: where the files of the PC begin: its drives, which on systems without drive letters are the
// root, the home folder and the mounted volumes that a user would look into.
#pragma once

#include "app/platform/port.h"

#include <QString>

#include <vector>

namespace tarvik {

enum class DriveKind { Fixed, Removable, Remote, Cdrom };

struct Drive {
    QString Root; ///< without a separator at its end unless it is a root
    QString Name; ///< volume name; empty for a volume without one and for a drive that isn't ready
    DriveKind Kind = DriveKind::Fixed;
};

/// What the system tells of a mounted volume.
struct MountedVolume {
    QString Root;
    QString Name;
    QString Device;
    QString FileSystem; ///< type, lower case: "ext4", "cifs", "iso9660"
    bool Ready = true;
};

/// False for what the system mounts for itself.
bool VolumeIsForUsers(const MountedVolume& volume);

DriveKind DriveKindOf(const MountedVolume& volume);

/// Key of the drive's picture in the image list.
QString DriveIcon(DriveKind kind);

/// The volume name, and the drive's letter or place in brackets.
QString DriveText(const Drive& drive);

/// The drive whose root is `path`, which is a root of the file system.
Drive DriveAtRoot(const QString& path);

class DriveSource {
public:
    /// The drives of this PC in the order in which the system reports them; may take a moment.
    virtual std::vector<Drive> Drives() = 0;

protected:
    ~DriveSource() = default;
};
Port<DriveSource>& TheDriveSource(); ///< without an implementation those of the system

} // namespace tarvik
