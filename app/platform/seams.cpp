#include "app/platform/seams.h"

#include "app/platform/processState.h"
#include "app/platform/trash.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <cstdio>

namespace tarvik {

namespace {

Seams Defaults()
{
    Seams seams;
    seams.Now = [] { return QDateTime::currentDateTime(); };
    seams.PumpEvents = [] { QCoreApplication::processEvents(); };
    seams.PumpUntil = [](const std::function<bool()>& done) {
        while (!done())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    seams.StartTimer = [](int milliseconds, std::function<void()> tick) {
        QTimer::singleShot(milliseconds, qApp, std::move(tick));
    };
    seams.Sleep = [](int milliseconds) { QThread::msleep(static_cast<unsigned long>(milliseconds)); };
    seams.BrowseFolder = [](const FolderQuestion&) { return QString(); };
    seams.OpenFile = [](const OpenFileQuestion&) { return QString(); };
    seams.OpenFiles = [](const OpenFilesQuestion&) { return QStringList(); };
    seams.SaveFile = [](const SaveFileQuestion&) { return QString(); };
    seams.SystemBox = [](const QString&, const QString&) {};
    seams.PrintError = [](const QString& text) {
        QString lines = text;
        std::fprintf(stderr, "%s\n", qPrintable(lines.replace(u'\r', u'\n')));
    };
    seams.Region = [] {
        static const QLocale system = QLocale::system(); // reads the environment, so only once
        return system;
    };
    seams.ExecutablePath = [] { return QCoreApplication::applicationFilePath(); };
    seams.DefaultPrinter = [] { return QString(); };
    seams.MoveToTrash = tarvik::MoveToTrash;
    seams.OpenUrl = [](const QUrl&) { return false; };
    seams.ArrowKeyIsHeld = [] { return false; };
    return seams;
}

} // namespace

Seams& TheSeams()
{
    static ProcessState<Seams> seams(Defaults);
    return seams.Get();
}

} // namespace tarvik
