#include "tests/tour/instrument.h"

#include <QStringList>

#include <csignal>
#include <sys/prctl.h>

namespace tarvik {

namespace {

constexpr int kPatienceMs = 30000;

/// Ports of connections have at most four digits. No test uses these, so that the stopped receiver finds its port
/// free.
const QString kPorts = QStringLiteral("4600-4999");

} // namespace

TourInstrument::TourInstrument(QString root)
    : root_(std::move(root))
{
}

TourInstrument::~TourInstrument()
{
    Stop();
}

bool TourInstrument::Start()
{
    const QString port = port_ == 0 ? kPorts : QString::number(port_);
    // The receiver must not outlive the tour, even if that is aborted.
    process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(
        QStringLiteral(TARVIK_INSTRUMENT), { QStringLiteral("--root"), root_, QStringLiteral("--port"), port });
    while (!process_.canReadLine() && process_.waitForReadyRead(kPatienceMs)) { }
    port_ = QString::fromLatin1(process_.readLine()).trimmed().section(u' ', 1).toInt();
    return port_ != 0;
}

void TourInstrument::Stop()
{
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.terminate();
    process_.waitForFinished(kPatienceMs);
}

} // namespace tarvik
