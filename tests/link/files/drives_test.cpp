// The drives that the box of PC folders offers.
#include "link/files/drives.h"
#include "tests/support/fixture.h"

#include <QDir>

namespace tarvik {

namespace {

using Drives = ProgramTest;

MountedVolume Mounted(const char* root, const char* device, const char* type)
{
    return { QString::fromLatin1(root), {}, QString::fromLatin1(device), QString::fromLatin1(type), true };
}

} // namespace

TEST_F(Drives, IncludeVolumesForUsers)
{
    EXPECT_TRUE(VolumeIsForUsers(Mounted("/media/sonja/STICK", "/dev/sdb1", "vfat")));
    EXPECT_TRUE(VolumeIsForUsers(Mounted("/run/media/sonja/STICK", "/dev/sdb1", "vfat")));
    EXPECT_TRUE(VolumeIsForUsers(Mounted("/data", "/dev/sdc1", "ext4")));
    EXPECT_TRUE(VolumeIsForUsers(Mounted("/srv/lists", "server:/lists", "nfs4")));
    EXPECT_TRUE(VolumeIsForUsers(Mounted("C:/", "\\\\?\\Volume{1}", "ntfs")));
}

TEST_F(Drives, ExcludeVolumesOfSystem)
{
    EXPECT_FALSE(VolumeIsForUsers(Mounted("/proc", "proc", "proc")));
    EXPECT_FALSE(VolumeIsForUsers(Mounted("/run/user/1000", "tmpfs", "tmpfs")));
    EXPECT_FALSE(VolumeIsForUsers(Mounted("/boot/efi", "/dev/sda1", "vfat")));
    EXPECT_FALSE(VolumeIsForUsers(Mounted("/etc/hosts", "/dev/sda2", "ext4")));
    EXPECT_FALSE(VolumeIsForUsers(Mounted("/snap/core/1", "/dev/loop0", "squashfs")));
    EXPECT_FALSE(VolumeIsForUsers(Mounted("/mnt", "overlay", "overlay")));
}

TEST_F(Drives, HaveIconOfTheirKind)
{
    const auto icon = [](const MountedVolume& volume) { return DriveIcon(DriveKindOf(volume)); };
    EXPECT_EQ(icon(Mounted("/media/sonja/STICK", "/dev/sdb1", "vfat")), "Floppy");
    EXPECT_EQ(icon(Mounted("/srv/lists", "server:/lists", "nfs")), "NetDrive");
    EXPECT_EQ(icon(Mounted("/media/sonja/DISC", "/dev/sr0", "iso9660")), "Cdrom");
    EXPECT_EQ(icon(Mounted("/data", "/dev/sdc1", "ext4")), "HardDrive");
    EXPECT_EQ(icon(Mounted("A:/", "", "fat")), "Floppy");
}

TEST_F(Drives, ShowNameAndLetterOrMountPoint)
{
    EXPECT_EQ(DriveText({ "C:/", "System", DriveKind::Fixed }), "System (C:)");
    EXPECT_EQ(DriveText({ "D:/", "", DriveKind::Cdrom }), " (D:)");
    EXPECT_EQ(DriveText({ "/data", "Archive", DriveKind::Fixed }), "Archive (/data)");
    EXPECT_EQ(DriveText({ "/", "", DriveKind::Fixed }), "File System (/)");
}

TEST_F(Drives, IncludeRootUnknownToSystem)
{
    const Drive drive = DriveAtRoot("/no/such/volume");
    EXPECT_EQ(drive.Root, "/no/such/volume");
    EXPECT_TRUE(drive.Name.isEmpty());
    EXPECT_EQ(drive.Kind, DriveKind::Fixed);
}

TEST_F(Drives, StartWithRootAndIncludeHomeFolder)
{
    const std::vector<Drive> drives = TheDriveSource()->Drives();
    ASSERT_FALSE(drives.empty());
    EXPECT_TRUE(QDir(drives.front().Root).isRoot());
    EXPECT_EQ(
        std::count_if(drives.begin(), drives.end(), [](const Drive& drive) { return drive.Root == QDir::homePath(); }),
        1);
}

} // namespace tarvik
