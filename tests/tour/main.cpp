// tarvik_tour FOLDER: plays the main tasks of the program, connected to a simulated receiver, and saves a picture of
// each step to FOLDER.
#include "app/frame/MfMain.h"
#include "app/platform/seams.h"
#include "composition.h"
#include "tests/tour/instrument.h"
#include "tests/tour/listSteps.h"
#include "tests/tour/player.h"
#include "tests/tour/results.h"
#include "tests/tour/screenSteps.h"
#include "tests/tour/steps.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace tarvik {

namespace {

/// Time limit for forms that close by themselves, once they have been played.
constexpr int kMaxTimerMs = 1000;

/// Creates a folder with everything that belongs to the program, so that the tour has its own settings file.
void LinkProgram(const QString& folder)
{
    const QDir program(QStringLiteral(PROGRAM_FOLDER));
    const QFileInfoList files = program.entryInfoList(QDir::Files);
    for (const QFileInfo& file : files) {
        if (file.suffix() != QLatin1String("ini"))
            QFile::link(file.absoluteFilePath(), folder + file.fileName());
    }
}

void EmptyFolder(const QString& folder)
{
    QDir().mkpath(folder);
    QDir pictures(folder);
    const QStringList names = pictures.entryList({ QStringLiteral("*.png") }, QDir::Files);
    for (const QString& name : names)
        pictures.remove(name);
}

/// However slow the machine is, no form closes by itself before it has been played.
void ShortenTimers(TourPlayer& player)
{
    const auto start = TheSeams().StartTimer;
    TheSeams().StartTimer = [start, &player](int milliseconds, std::function<void()> tick) {
        if (milliseconds > 0)
            tick = [&player, over = std::move(tick)] { player.WhenPlayed(over); };
        start(std::min(milliseconds, kMaxTimerMs), std::move(tick));
    };
}

/// Stores the settings of a program that was connected to the receiver when it was closed.
bool StoreSettings(const QString& programFolder, int port)
{
    QFile settings(programFolder + QStringLiteral("Tarvik.ini"));
    const QByteArray entry = "Simulated receiver:127.0.0.1:" + QByteArray::number(port);
    return settings.open(QIODevice::WriteOnly)
        && settings.write(
               "[connection]\r\nConnected=1\r\nipAddressLan0=" + entry + "\r\nipAddressSelected=" + entry + "\r\n")
        > 0;
}

int Play(const QString& pictureFolder, const QString& workFolder)
{
    const QString programFolder = workFolder + QStringLiteral("program/");
    const QString pcFolder = programFolder + QStringLiteral("Memory List/");
    TourInstrument instrument(workFolder + QStringLiteral("receiver"));
    if (!instrument.Start() || !StoreSettings(programFolder, instrument.Port())) {
        std::fprintf(stderr, "the simulated receiver does not start\n");
        return EXIT_FAILURE;
    }
    const QString shotFolder = programFolder + QStringLiteral("Screen Shots/");
    QDir::setCurrent(shotFolder); // initial folder of the file control window for a class without its own folder
    const TourFolders folders{ pcFolder, workFolder + QStringLiteral("lists/"),
        workFolder + QStringLiteral("pictures/") };
    TourPlayer player(TourSteps(folders, instrument), pictureFolder);
    ShortenTimers(player);
    player.Start();
    MfMain frame(workFolder + QStringLiteral("program"));
    if (!frame.Load())
        return EXIT_FAILURE;
    const int result = QApplication::exec();
    if (result != EXIT_SUCCESS || !player.IsDone())
        return EXIT_FAILURE;
    return CheckTourResults(pcFolder, shotFolder, instrument) && CheckScreenResults(folders.Pictures)
            && CheckListResults(folders.OtherLists)
        ? EXIT_SUCCESS
        : EXIT_FAILURE;
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: tarvik_tour FOLDER\n");
        return EXIT_FAILURE;
    }
    const QString pictureFolder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath() + u'/';
    EmptyFolder(pictureFolder);
    QTemporaryDir work;
    const QString workFolder = work.path() + u'/';
    for (const char* name : { "program", "program/Memory List", "program/Screen Shots", "home", "lists", "pictures" })
        QDir(workFolder).mkdir(QString::fromLatin1(name));
    qputenv("CUPS_SERVER", "localhost:1"); // no queues: the pages go to a file
    qputenv("XDG_DATA_HOME", QFile::encodeName(workFolder + QStringLiteral("home"))); // location of the trash
    LinkProgram(workFolder + QStringLiteral("program/"));

    int programArgc = 1; // the tour's own argument is hidden from the program
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(programArgc, argv);
    ComposeProgram();
    return Play(pictureFolder, workFolder);
}
