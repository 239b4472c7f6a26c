#include "tests/support/instrumentProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/prctl.h>

namespace tarvik {

namespace {

constexpr int kPatienceMs = 60000;

/// The value of an option among `arguments`, empty without it.
QString ValueOf(const QStringList& arguments, const QString& option)
{
    const qsizetype place = arguments.indexOf(option);
    return place < 0 ? QString() : arguments.value(place + 1);
}

} // namespace

InstrumentProcess::InstrumentProcess(const QStringList& arguments)
    : root_(folder_.filePath(QStringLiteral("disk")))
{
    QStringList all = arguments;
    if (!arguments.contains(QStringLiteral("--port")))
        all << QStringLiteral("--port") << QStringLiteral("0");
    if (arguments.contains(QStringLiteral("--root")))
        root_ = ValueOf(arguments, QStringLiteral("--root"));
    else
        all << QStringLiteral("--root") << root_;
    // It never outlives its test, which may crash.
    process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.start(QStringLiteral(TARVIK_INSTRUMENT), all);
    while (!process_.canReadLine() && process_.waitForReadyRead(kPatienceMs)) { }
    const QString line = QString::fromLatin1(process_.readLine()).trimmed();
    EXPECT_TRUE(line.startsWith(QLatin1String("port "))) << line.toStdString() << StandardError().toStdString();
    port_ = line.section(u' ', 1).toInt();
}

InstrumentProcess::~InstrumentProcess()
{
    if (process_.state() != QProcess::NotRunning)
        Kill();
}

int InstrumentProcess::Stop()
{
    process_.terminate();
    return WaitForEnd();
}

int InstrumentProcess::WaitForEnd()
{
    const bool ended = process_.waitForFinished(kPatienceMs) && process_.exitStatus() == QProcess::NormalExit;
    return ended ? process_.exitCode() : -1;
}

void InstrumentProcess::Kill()
{
    process_.kill();
    process_.waitForFinished(kPatienceMs);
}

QString InstrumentProcess::StandardError()
{
    return QString::fromLocal8Bit(process_.readAllStandardError());
}

} // namespace tarvik
