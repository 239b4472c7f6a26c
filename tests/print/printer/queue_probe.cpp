// Asks the printing system of this machine, for tests with a scheduler of their own:
//   queue_probe list               the queues, the default one with a star
//   queue_probe send QUEUE PDF     sends a file, prints the number of the job
//   queue_probe state QUEUE JOB    waiting, done, cancelled or failed
#include "print/printer/queues.h"

#include <QCoreApplication>

#include <cstdio>

using namespace tarvik;

namespace {

const char* NameOf(JobState state)
{
    switch (state) {
    case JobState::Waiting:
        return "waiting";
    case JobState::Cancelled:
        return "cancelled";
    case JobState::Failed:
        return "failed";
    default:
        return "done";
    }
}

int List()
{
    const QString preferred = SystemQueues().DefaultName();
    for (const QString& name : SystemQueues().Names())
        std::printf("%s%s\n", qPrintable(name), name == preferred ? "*" : "");
    return EXIT_SUCCESS;
}

int Send(const QString& queue, const QString& path)
{
    PrinterChoice choice;
    choice.Printer = queue;
    const SentJob sent = SystemQueues().Send(choice, QStringLiteral("probe"), path);
    if (!sent.Error.isEmpty()) {
        (void)std::fprintf(stderr, "%s\n", qPrintable(sent.Error));
        return EXIT_FAILURE;
    }
    std::printf("%d\n", sent.Id);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString act = arguments.value(1);
    if (act == QLatin1String("list"))
        return List();
    if (act == QLatin1String("send") && arguments.size() == 4)
        return Send(arguments[2], arguments[3]);
    if (act == QLatin1String("state") && arguments.size() == 4) {
        std::printf("%s\n", NameOf(SystemQueues().StateOf(arguments[2], arguments[3].toInt())));
        return EXIT_SUCCESS;
    }
    return 2;
}
