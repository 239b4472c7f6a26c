// tarvik_tour LIST FOLDER: plays the main job of the program with LIST and leaves a picture of each step in FOLDER.
#include "app/MfMain.h"
#include "app/seams.h"
#include "composition.h"
#include "tests/tour/player.h"
#include "tests/tour/results.h"
#include "tests/tour/steps.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

/// Long enough for the logo's picture.
constexpr int kLongestTimerMs = 1000;

/// A folder with everything that belongs to the program, so that its settings file is the tour's own.
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

void ShortenTimers()
{
    const auto start = TheSeams().StartTimer;
    TheSeams().StartTimer = [start](int milliseconds, std::function<void()> tick) {
        start(std::min(milliseconds, kLongestTimerMs), std::move(tick));
    };
}

int Play(const QString& pictureFolder, const QString& workFolder)
{
    TourPlayer player(TourSteps(workFolder), pictureFolder);
    player.Start();
    MfMain frame(workFolder + QStringLiteral("program"));
    if (!frame.Load())
        return EXIT_FAILURE;
    const int result = QApplication::exec();
    if (result != EXIT_SUCCESS || !player.IsDone())
        return EXIT_FAILURE;
    return TourResultsHold(workFolder) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: tarvik_tour LIST FOLDER\n");
        return EXIT_FAILURE;
    }
    const QString pictureFolder = QDir(QString::fromLocal8Bit(argv[2])).absolutePath() + u'/';
    EmptyFolder(pictureFolder);
    QTemporaryDir work;
    const QString workFolder = work.path() + u'/';
    QDir(workFolder).mkdir(QStringLiteral("program"));
    LinkProgram(workFolder + QStringLiteral("program/"));

    // The program sees a command line with the list alone.
    int programArgc = 2;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(programArgc, argv);
    ComposeProgram();
    ShortenTimers();
    return Play(pictureFolder, workFolder);
}
