// tools/instrument/main.cpp: a receiver without hardware, for training, demonstrations and tests.
#include "app/state/project.h"
#include "app/text/ansi.h"
#include "tools/instrument/arguments.h"
#include "tools/instrument/exampleFiles.h"
#include "tools/instrument/receiver.h"
#include "tools/instrument/server.h"

#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace tarvik {

namespace {

enum class ExitStatus { Done = 0, Failed = 1, Usage = 2 };

int stopWriter = -1; ///< writing end of the pipe that stops the server

void WantStop(int /*signal*/)
{
    const int before = errno;
    (void)!::write(stopWriter, "", 1);
    errno = before;
}

/// Returns the reading end of a pipe that becomes readable on SIGINT or SIGTERM. A pipe, because the signal may be
/// delivered to any thread of the painting and would not interrupt the server's poll.
Descriptor CatchStopSignals()
{
    std::array<int, 2> ends{ -1, -1 };
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return Descriptor();
    stopWriter = ends[1];
    struct sigaction action { };
    action.sa_handler = WantStop;
    action.sa_flags = SA_RESTART;
    for (const int number : { SIGINT, SIGTERM })
        sigaction(number, &action, nullptr);
    return Descriptor(ends[0]);
}

void Print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

ExitStatus Fail(const QString& what, const QString& reason, ExitStatus status = ExitStatus::Failed)
{
    Print(stderr, QStringLiteral("tarvik-instrument: %1: %2\n").arg(what, reason));
    return status;
}

QString RootOf(const InstrumentArguments& arguments)
{
    return !arguments.Root.isEmpty()
        ? arguments.Root
        : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tarvik-instrument");
}

/// Fills an empty disk with the examples.
bool PrepareFiles(Storage& storage, const std::string& model)
{
    const bool isNew = storage.IsEmpty();
    return MakeReceiverFolders(storage) == InstrumentError::None
        && (!isNew || StoreExamples(storage, model) == InstrumentError::None);
}

ExitStatus Run(const InstrumentArguments& arguments)
{
    const QString root = RootOf(arguments);
    Storage storage;
    std::string reason;
    if (!storage.Open(
            QFile::encodeName(root).toStdString(), static_cast<std::uint64_t>(arguments.CapacityBytes), reason))
        return Fail(root, QString::fromStdString(reason));
    if (!PrepareFiles(storage, arguments.Names.Model))
        return Fail(root, QStringLiteral("cannot store the example files"));
    Receiver receiver(storage, FromAnsi(QByteArrayView(arguments.Names.Model)));
    Instrument instrument(storage, arguments.Names, [&receiver] { return receiver.FetchScreen(); });
    Server server(instrument, arguments.Link);
    if (!server.Listen(arguments.Address.toStdString(), arguments.FirstPort, arguments.LastPort))
        return Fail(QStringLiteral("%1:%2").arg(arguments.Address).arg(arguments.FirstPort),
            QString::fromLocal8Bit(std::strerror(errno)));
    const Descriptor stop = CatchStopSignals();
    Print(stdout, QStringLiteral("port %1\n").arg(server.Port()));
    const bool served = stop.IsOpen() && server.Serve(stop.Number());
    return served ? ExitStatus::Done
                  : Fail(QStringLiteral("waiting for clients"), QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // fonts without a display
    const QGuiApplication application(argc, argv);
    InstrumentArguments arguments;
    QString error;
    if (!ReadArguments(QCoreApplication::arguments().mid(1), arguments, error)) {
        Print(stderr, QStringLiteral("tarvik-instrument: %1\nTry 'tarvik-instrument --help'.\n").arg(error));
        return static_cast<int>(ExitStatus::Usage);
    }
    if (arguments.Help || arguments.Version) {
        Print(stdout,
            arguments.Help ? InstrumentHelpText() : QStringLiteral("tarvik-instrument %1\n").arg(ProductVersionText()));
        return static_cast<int>(ExitStatus::Done);
    }
    return static_cast<int>(Run(arguments));
}
