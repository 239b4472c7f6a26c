// tests/support/instrumentProcess.h: the simulated receiver as a process of its own, with files of its own.
#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace tarvik {

class InstrumentProcess {
public:
    /// Starts it and waits until it listens. Without a `--port` among `arguments` it takes any free one, without a
    /// `--root` a folder of its own. A failure is a failure of the test.
    explicit InstrumentProcess(const QStringList& arguments = {});
    ~InstrumentProcess();

    int Port() const
    {
        return port_;
    }

    qint64 ProcessId() const
    {
        return process_.processId();
    }

    /// Path of a file, by its path on the instrument with `/` between: "Public/Memory List/Marine-VHF.tvm".
    QString Path(const QString& name) const
    {
        return root_ + u'/' + name;
    }

    /// Asks it to end and answers its exit code; -1 if it does not.
    int Stop();

    /// Waits until it exits by itself; returns the same.
    int WaitForEnd();

    /// Ends it as a power cut would.
    void Kill();

    /// What it wrote to standard error; complete once it has ended.
    QString StandardError();

private:
    QTemporaryDir folder_;
    QString root_;
    QProcess process_;
    int port_ = 0;
};

/// A range for `--port` from which the program's connections can be made: their ports have four digits.
inline constexpr const char* kFourDigitPorts = "6000-9999";

} // namespace tarvik
