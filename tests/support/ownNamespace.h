// tests/support/ownNamespace.h: a forked process with mounts of its own and the rights of an ordinary user, whoever
// runs the tests. A call that fails ends the process.
#pragma once

#include <QFile>
#include <QString>
#include <QtGlobal>

#if defined(Q_OS_LINUX)

#include <cstdio>
#include <cstdlib>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarvik {

inline void Require(bool done, const char* what)
{
    if (done)
        return;
    std::perror(what);
    std::_Exit(EXIT_FAILURE);
}

inline void WriteProc(const char* path, const QByteArray& text)
{
    QFile file(QString::fromLatin1(path));
    Require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush(), path);
}

/// The user is number 0 in the namespace and may mount.
inline void EnterOwnNamespace()
{
    const QByteArray user = QByteArray::number(static_cast<qulonglong>(::geteuid()));
    const QByteArray group = QByteArray::number(static_cast<qulonglong>(::getegid()));
    Require(::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "unshare");
    WriteProc("/proc/self/setgroups", "deny");
    WriteProc("/proc/self/uid_map", "0 " + user + " 1");
    WriteProc("/proc/self/gid_map", "0 " + group + " 1");
}

inline void MountFresh(const QString& folder, const char* options)
{
    Require(::mount("none", qPrintable(folder), "tmpfs", 0, options) == 0, "mount");
}

inline void MountReadOnly(const QString& folder)
{
    Require(::mount("none", qPrintable(folder), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0, "remount");
}

/// From here on permissions apply, as they do to everyone but the superuser.
inline void DropRights()
{
    __user_cap_header_struct header{ _LINUX_CAPABILITY_VERSION_3, 0 };
    const __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3]{};
    Require(::syscall(SYS_capset, &header, none) == 0, "capset");
}

} // namespace tarvik

#endif
