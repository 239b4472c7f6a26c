// tests/support/ownNamespace.h: a forked process with the rights of an ordinary user, whoever runs the tests, and with
// mounts of its own. A call that fails ends the process.
#pragma once

#include <QFile>
#include <QString>
#include <QtGlobal>

#include <gtest/gtest.h>

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

/// The user is number 0 in the namespace and may mount. Needs user namespaces, or the superuser's right to mount.
inline void EnterOwnNamespace()
{
    const QByteArray user = QByteArray::number(static_cast<qulonglong>(::geteuid()));
    const QByteArray group = QByteArray::number(static_cast<qulonglong>(::getegid()));
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        Require(::unshare(CLONE_NEWNS) == 0,
            "This test mounts volumes of its own. Allow that: user namespaces for everybody (sysctl"
            " user.max_user_namespaces), or in a container --cap-add SYS_ADMIN --security-opt seccomp=unconfined;"
            " unshare");
        Require(::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "mount");
        return;
    }
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

/// Runs `body` in a process without rights, after `prepare` has used them. Fails if a check in it fails.
template <typename Prepare, typename Body>
void RunUnprivileged(Prepare prepare, Body body)
{
    const auto run = [&] {
        prepare();
        DropRights();
        body();
        std::fflush(stdout);
        std::_Exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

} // namespace tarvik

#endif
