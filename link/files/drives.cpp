#include "link/files/drives.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/strings.h"

#include <QDir>
#include <QStorageInfo>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

bool IsOrIsBelow(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder + u'/');
}

bool HasDriveLetter(const QString& root)
{
    return root.size() >= 2 && root[1] == u':';
}

bool IsRemoteType(const QString& type)
{
    static const std::array kTypes{ "nfs", "nfs4", "cifs", "smb3", "smbfs", "fuse.sshfs", "afpfs", "webdav", "9p" };
    return std::any_of(kTypes.begin(), kTypes.end(), [&](const char* at) { return type == QLatin1String(at); });
}

bool IsDiscType(const QString& type)
{
    return type == QLatin1String("iso9660") || type == QLatin1String("udf") || type == QLatin1String("cdfs");
}

/// True below the folders where systems mount removable media.
bool IsPluggedIn(const QString& root)
{
    static const std::array kPlaces{ "/media", "/run/media", "/Volumes" };
    const bool isDisketteLetter = root.startsWith(QLatin1String("A:")) || root.startsWith(QLatin1String("B:"));
    return isDisketteLetter || std::any_of(kPlaces.begin(), kPlaces.end(), [&](const char* at) {
        return IsOrIsBelow(root, QString::fromLatin1(at));
    });
}

QString RootWithoutSlash(const QString& root)
{
    return PathNoSlash(root, u'/');
}

MountedVolume VolumeOf(const QStorageInfo& info)
{
    return { RootWithoutSlash(info.rootPath()), info.name(), QString::fromLocal8Bit(info.device()),
        QString::fromLatin1(info.fileSystemType()).toLower(), info.isReady() };
}

Drive DriveOf(const MountedVolume& volume)
{
    return { volume.Root, volume.Ready ? volume.Name : QString(), DriveKindOf(volume) };
}

std::vector<Drive> SystemDrives()
{
    std::vector<Drive> drives;
    const bool hasLetters = HasDriveLetter(QDir::rootPath());
    if (!hasLetters) {
        drives.push_back(DriveAtRoot(QDir::rootPath()));
        drives.push_back({ QDir::homePath(), QDir::home().dirName(), DriveKind::Fixed });
    }
    for (const QStorageInfo& info : QStorageInfo::mountedVolumes()) {
        const MountedVolume volume = VolumeOf(info);
        const bool isListed = std::any_of(
            drives.begin(), drives.end(), [&volume](const Drive& drive) { return drive.Root == volume.Root; });
        if (!isListed && VolumeIsForUsers(volume))
            drives.push_back(DriveOf(volume));
    }
    return drives;
}

class SystemDriveSource final : public DriveSource {
public:
    std::vector<Drive> Drives() override
    {
        return SystemDrives();
    }
};

} // namespace

bool VolumeIsForUsers(const MountedVolume& volume)
{
    if (HasDriveLetter(volume.Root))
        return true;
    if (IsPluggedIn(volume.Root) || IsRemoteType(volume.FileSystem))
        return true;
    static const std::array kSystemPlaces{ "/boot", "/dev", "/efi", "/etc", "/proc", "/run", "/snap", "/sys", "/tmp",
        "/usr", "/var" };
    return volume.Device.startsWith(QLatin1String("/dev/"))
        && std::none_of(kSystemPlaces.begin(), kSystemPlaces.end(),
            [&volume](const char* at) { return IsOrIsBelow(volume.Root, QString::fromLatin1(at)); });
}

DriveKind DriveKindOf(const MountedVolume& volume)
{
    if (IsDiscType(volume.FileSystem))
        return DriveKind::Cdrom;
    if (IsRemoteType(volume.FileSystem) || volume.Root.startsWith(QLatin1String("//")))
        return DriveKind::Remote;
    return IsPluggedIn(volume.Root) ? DriveKind::Removable : DriveKind::Fixed;
}

QString DriveIcon(DriveKind kind)
{
    switch (kind) {
    case DriveKind::Removable:
        return QStringLiteral("Floppy");
    case DriveKind::Remote:
        return QStringLiteral("NetDrive");
    case DriveKind::Cdrom:
        return QStringLiteral("Cdrom");
    default:
        return QStringLiteral("HardDrive");
    }
}

QString DriveText(const Drive& drive)
{
    const QString place = HasDriveLetter(drive.Root) ? drive.Root.left(2) : QDir::toNativeSeparators(drive.Root);
    const bool isNamelessRoot = drive.Name.isEmpty() && drive.Root == QLatin1String("/");
    const QString name = isNamelessRoot ? LngStr(TextId::FileSystem) : drive.Name;
    return name + QStringLiteral(" (") + place + u')';
}

Drive DriveAtRoot(const QString& path)
{
    MountedVolume volume = VolumeOf(QStorageInfo(path));
    if (volume.Root.isEmpty()) // may be unknown inside a container
        volume.Root = RootWithoutSlash(path);
    return DriveOf(volume);
}

Port<DriveSource>& TheDriveSource()
{
    static PortOr<DriveSource, SystemDriveSource> port;
    return port;
}

} // namespace tarvik
