// tarvikctl on pictures, run as a user does.
#include "tests/tools/ctl.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>

#include <csignal>
#include <sys/types.h>

namespace tarvik {

namespace {

class CtlPicture : public CtlTest {
protected:
    /// A picture with a red left and a white right half.
    void Picture(const QString& name, QSize size = { 40, 20 }) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(0xffffffff);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width() / 2; ++x)
                image.setPixel(x, y, 0xffff0000);
        }
        ASSERT_TRUE(image.save(Path(name)));
    }

    QImage Read(const QString& name) const
    {
        return QImage(Path(name)).convertToFormat(QImage::Format_RGB32);
    }

    /// Runs a line of the shell in the test's folder; "$CTL" is the program.
    CtlResult Shell(const QString& line) const
    {
        QProcess shell;
        shell.setWorkingDirectory(Path({}));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("CTL", TARVIKCTL);
        shell.setProcessEnvironment(environment);
        shell.start("bash", { "-c", line });
        EXPECT_TRUE(shell.waitForFinished(60000)) << shell.errorString().toStdString();
        return { shell.exitCode(), QString::fromUtf8(shell.readAllStandardOutput()),
            QString::fromUtf8(shell.readAllStandardError()) };
    }

    /// A picture that compresses badly, so that writing it takes its time.
    void Noise(const QString& name, QSize size) const
    {
        QImage image(size, QImage::Format_RGB32);
        QRandomGenerator random(7);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, random.generate() | 0xff000000U);
        }
        ASSERT_TRUE(image.save(Path(name)));
    }
};

/// One line that begins so, and exit status 1.
void ExpectRefused(const CtlResult& result, const QString& start)
{
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith(start)) << result.Err.toStdString();
    EXPECT_EQ(result.Err.count('\n'), 1) << result.Err.toStdString();
    EXPECT_EQ(result.Out, "");
}

void ExpectDone(const CtlResult& result)
{
    EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
    EXPECT_EQ(result.Err, "");
    EXPECT_EQ(result.Out, "");
}

} // namespace

TEST_F(CtlPicture, WritesEachFileBesideItsSource)
{
    Picture("a.bmp");
    Picture("b.bmp");
    ExpectDone(Ctl({ "picture", "--to", "png", "a.bmp", "b.bmp" }));
    EXPECT_EQ(FolderEntries(), QStringList({ "a.bmp", "a.png", "b.bmp", "b.png" }));
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, WritesEveryFormatAndReadsItBack)
{
    Picture("a.png");
    for (const char* format : { "bmp", "pcx", "wmf" }) {
        const QString written = QStringLiteral("a.") + QString::fromLatin1(format);
        ExpectDone(Ctl({ "picture", "--to", QString::fromLatin1(format), "a.png" }));
        ExpectDone(Ctl({ "picture", "--to=png", "--into", "back", written }));
        EXPECT_EQ(Read("back/a.png"), Read("a.png")) << format;
        ASSERT_TRUE(QFile::remove(Path("back/a.png")));
    }
}

TEST_F(CtlPicture, FolderIsMadeOneLevelDeep)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--into", "new", "--to", "png", "a.bmp" }));
    EXPECT_TRUE(QFile::exists(Path("new/a.png")));
    const CtlResult refused = Ctl({ "picture", "--into", "one/two", "--to", "png", "a.bmp" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.startsWith("one/two: 12752: ")) << refused.Err.toStdString();
    EXPECT_FALSE(QDir(Path("one")).exists());
}

TEST_F(CtlPicture, ExistingFileStaysUnlessYesIsGiven)
{
    Picture("a.bmp");
    Store("a.png", "old");
    const CtlResult refused = Ctl({ "picture", "--to", "png", "a.bmp" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.startsWith("a.bmp: 12734?: ")) << refused.Err.toStdString();
    EXPECT_EQ(Bytes("a.png"), "old");
    EXPECT_EQ(Ctl({ "picture", "--yes", "--to", "png", "a.bmp" }).ExitCode, 0);
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, UnreadableFileIsReportedAndTheNextOneFollows)
{
    Store("bad.png", "no picture");
    Picture("a.bmp");
    const CtlResult result = Ctl({ "picture", "--to", "png", "--into", "out", "bad.png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("bad.png: 12760: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("out/a.png")));
    EXPECT_FALSE(QFile::exists(Path("out/bad.png")));
}

TEST_F(CtlPicture, FileOfAnotherKindIsReported)
{
    Store("a.txt2", "text");
    const CtlResult result = Ctl({ "picture", "--to", "png", "a.txt2" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.txt2: 12750: ")) << result.Err.toStdString();
}

TEST_F(CtlPicture, BlackAndWhiteIsInvertedGrey)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--palette", "1", "--to", "png", "a.bmp" }));
    const QImage grey = Read("a.png");
    EXPECT_EQ(grey.pixel(0, 0), qRgb(226, 226, 226)) << "255 less the rounded 0.114 x 255";
    EXPECT_EQ(grey.pixel(39, 0), qRgb(0, 0, 0));
}

TEST_F(CtlPicture, ColourLeavesThePictureAsItIs)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--palette", "0", "--to", "png", "a.bmp" }));
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, DescriptionStandsBelowThePicture)
{
    Picture("a.bmp", { 640, 400 });
    ExpectDone(Ctl({ "picture", "--description", "Tower\nNight", "--to", "png", "a.bmp" }));
    const QImage composed = Read("a.png");
    EXPECT_EQ(composed.width(), 640);
    EXPECT_GT(composed.height(), 415);
    EXPECT_LT(composed.height(), 450);
    EXPECT_EQ(composed.copy(0, 0, 640, 400), Read("a.bmp"));
    const QImage text = composed.copy(0, 402, 640, composed.height() - 402);
    bool hasInk = false;
    for (int y = 0; y < text.height(); ++y) {
        for (int x = 0; x < text.width(); ++x)
            hasInk = hasInk || qGray(text.pixel(x, y)) < 64;
    }
    EXPECT_TRUE(hasInk);
}

TEST_F(CtlPicture, DescriptionOfMoreThanTenLinesIsCutAndTold)
{
    Picture("a.bmp", { 640, 400 });
    const CtlResult result =
        Ctl({ "picture", "--description", QStringLiteral("x\n").repeated(11) + 'y', "--to", "png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.bmp: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("a.png")));
}

TEST_F(CtlPicture, WrongUsageIsToldAndTouchesNothing)
{
    Picture("a.bmp");
    const QList<QStringList> wrong = { { "picture", "a.bmp" }, { "picture", "--to", "gif", "a.bmp" },
        { "picture", "--to", "png" }, { "picture", "--to", "png", "--palette", "2", "a.bmp" },
        { "picture", "--to", "png", "a.bmp", "--into" }, { "picture", "--to", "png", "a.bmp", "--into=" },
        { "picture", "--to", "png", "--key", "1", "a.bmp" }, { "picture", "--to", "png", "-platform", "x", "a.bmp" },
        { "picture", "--to", "png", "-name", "a.bmp" } };
    for (const QStringList& words : wrong) {
        const CtlResult result = Ctl(words);
        EXPECT_EQ(result.ExitCode, 2) << words.join(' ').toStdString();
        EXPECT_TRUE(result.Err.startsWith("tarvikctl: ")) << result.Err.toStdString();
    }
    EXPECT_EQ(FolderEntries(), QStringList("a.bmp"));
}

TEST_F(CtlPicture, ListsAndTextsAreNoPicturesAndTold)
{
    Store("a.csv", MemoryCsv("A", {}));
    Store("b.tvm", "list");
    Store("c.txt", "text");
    Picture("d.bmp");
    const CtlResult result = Ctl({ "picture", "--to", "png", "a.csv", "b.tvm", "c.txt", "d.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(result.Err.count('\n'), 3) << result.Err.toStdString();
    for (const char* name : { "a.csv", "b.tvm", "c.txt" })
        EXPECT_TRUE(result.Err.contains(QString::fromLatin1(name) + ": 12750: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("d.png")));
}

TEST_F(CtlPicture, NamesMayBeOdd)
{
    const QStringList bases{ QString::fromUtf8("T\u00fcrme \u20ac \u0394\u03bb"), "a b.2024.night", "%1 & 'x' \"y\"",
        "-x", "a\nb", "tab\there", "*?[x]", "100%", QString(251, u'n'), QString(60, QChar(0x4e2d)) };
    for (const QString& base : bases) {
        Picture("a.bmp");
        ASSERT_TRUE(QFile::rename(Path("a.bmp"), Path(base + ".bmp")));
        ExpectDone(Ctl({ "picture", "--to", "png", "--into", "out", "--", base + ".bmp" }));
        EXPECT_EQ(Read("out/" + base + ".png"), Read(base + ".bmp")) << base.toStdString();
        ExpectDone(Ctl({ "picture", "--to", "wmf", "--into", "out", "--", base + ".bmp" }));
        EXPECT_TRUE(QFile::exists(Path("out/" + base + ".wmf"))) << base.toStdString();
    }
    EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files | QDir::Hidden).size(), 2 * bases.size());
}

TEST_F(CtlPicture, WordsOfTheCommandLineAreNotThePlatforms)
{
    Picture("a.bmp");
    ExpectRefused(Ctl({ "picture", "--to", "png", "--", "-platform", "a.bmp" }), "-platform: 12750: ");
    EXPECT_TRUE(QFile::exists(Path("a.png")));
}

TEST_F(CtlPicture, WhatATerminalWouldObeyIsNotPrinted)
{
    const CtlResult result = Ctl({ "picture", "--to", "png", "a\033[2J\nb.doc" });
    ExpectRefused(result, "a?[2J?b.doc: 12750: ");
}

TEST_F(CtlPicture, ReadOnlyTargetStays)
{
    Picture("a.bmp");
    for (const char* format : { "png", "pcx", "wmf" }) {
        const QString target = QStringLiteral("a.") + QString::fromLatin1(format);
        Store(target, "old");
        ASSERT_TRUE(QFile::setPermissions(Path(target), QFile::ReadOwner));
        const CtlResult result = Ctl({ "picture", "--yes", "--to", QString::fromLatin1(format), "a.bmp" });
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_TRUE(result.Err.contains("a.bmp: 127")) << result.Err.toStdString();
        EXPECT_EQ(Bytes(target), "old");
    }
    EXPECT_EQ(FolderEntries().size(), 4);
}

TEST_F(CtlPicture, FullDiskLeavesTheOldFileAndNothingElse)
{
    Noise("a.bmp", { 200, 100 });
    Store("a.png", "old");
    const std::pair<const char*, const char*> formats[] = { { "png", "12761" }, { "pcx", "12757" },
        { "wmf", "12759" } };
    for (const auto& [format, message] : formats) {
        const CtlResult result =
            Shell(QStringLiteral("trap '' XFSZ; ulimit -f 10; \"$CTL\" picture --yes --to %1 a.bmp")
                      .arg(QLatin1String(format)));
        EXPECT_EQ(result.ExitCode, 1) << format;
        EXPECT_TRUE(result.Err.contains(QStringLiteral("a.bmp: %1: ").arg(QLatin1String(message))))
            << result.Err.toStdString();
    }
    EXPECT_EQ(Bytes("a.png"), "old");
    EXPECT_EQ(FolderEntries(), QStringList({ "a.bmp", "a.png" }));
}

TEST_F(CtlPicture, FolderInTheTargetsPlaceStays)
{
    Picture("a.bmp");
    ASSERT_TRUE(QDir(Path({})).mkdir("a.png"));
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains("a.bmp: 12761: ")) << result.Err.toStdString();
    EXPECT_TRUE(QDir(Path("a.png")).isEmpty());
}

TEST_F(CtlPicture, FileInPlaceOfTheTargetFolderStays)
{
    Picture("a.bmp");
    Store("out", "file");
    ExpectRefused(Ctl({ "picture", "--yes", "--to", "png", "--into", "out", "a.bmp" }), "out: 12752: ");
    EXPECT_EQ(Bytes("out"), "file");
}

TEST_F(CtlPicture, TargetThatIsTheSourceIsAskedForAndReplacedWhole)
{
    Picture("a.bmp");
    const QByteArray before = Bytes("a.bmp");
    ExpectRefused(Ctl({ "picture", "--palette", "1", "--to", "bmp", "a.bmp" }), "a.bmp: 12734?: ");
    EXPECT_EQ(Bytes("a.bmp"), before);
    EXPECT_EQ(Ctl({ "picture", "--yes", "--palette", "1", "--to", "bmp", "a.bmp" }).ExitCode, 0);
    EXPECT_TRUE(Read("a.bmp").isGrayscale());
    EXPECT_EQ(FolderEntries(), QStringList("a.bmp"));
}

TEST_F(CtlPicture, FilesThatWouldBecomeOneAreNotMixedUp)
{
    Picture("a.bmp");
    Picture("a.png", { 10, 10 });
    ASSERT_TRUE(QDir(Path({})).mkdir("b"));
    Picture("b/a.bmp", { 8, 8 });
    ExpectRefused(Ctl({ "picture", "--yes", "--to", "pcx", "--into", "out", "a.bmp", "b/a.bmp" }),
        "b/a.bmp: would become the same file as a.bmp\n");
    ExpectDone(Ctl({ "picture", "--to", "png", "--into", "back", "out/a.pcx" }));
    EXPECT_EQ(Read("back/a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, SourceOfTheBatchIsNotReplacedByAnother)
{
    Picture("a.bmp");
    Picture("a.png", { 10, 10 });
    const QByteArray before = Bytes("a.bmp");
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "bmp", "./a.png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("./a.png: would replace ")) << result.Err.toStdString();
    EXPECT_EQ(Read("a.bmp").size(), QSize(40, 20));
}

TEST_F(CtlPicture, FilesThatWouldBecomeOneThroughALinkedFolderAreNotMixedUp)
{
    ASSERT_EQ(Shell("mkdir b; ln -s b c").ExitCode, 0);
    Picture("b/a.bmp");
    Picture("b/a.png", { 10, 10 });
    ExpectRefused(Ctl({ "picture", "--yes", "--to", "pcx", "b/a.bmp", "c/a.png" }),
        "c/a.png: would become the same file as b/a.bmp\n");
}

TEST_F(CtlPicture, FilesThatWouldBecomeOneThroughLinksToItAreNotMixedUp)
{
    Picture("a.bmp");
    Picture("b.bmp", { 10, 10 });
    ASSERT_EQ(Shell("touch one; ln -s one a.pcx; ln -s one b.pcx").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "pcx", "a.bmp", "b.bmp" });
    EXPECT_TRUE(result.Err.startsWith("b.bmp: would become the same file as a.bmp\n")) << result.Err.toStdString();
}

TEST_F(CtlPicture, FilesThatWouldBecomeOneThroughLinksToAFileToBeMadeAreNotMixedUp)
{
    Picture("a.bmp");
    Picture("b.bmp", { 10, 10 });
    ASSERT_EQ(Shell("ln -s one a.pcx; ln -s one b.pcx").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "pcx", "a.bmp", "b.bmp" });
    EXPECT_TRUE(result.Err.startsWith("b.bmp: would become the same file as a.bmp\n")) << result.Err.toStdString();
}

TEST_F(CtlPicture, SourceOfTheBatchIsNotReplacedThroughALinkedFolder)
{
    ASSERT_EQ(Shell("mkdir b; ln -s b c").ExitCode, 0);
    Picture("b/a.png", { 10, 10 });
    Picture("b/a.bmp");
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "bmp", "--into", "c", "b/a.png", "b/a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("b/a.png: would replace ")) << result.Err.toStdString();
    EXPECT_EQ(Read("b/a.bmp").size(), QSize(40, 20));
}

TEST_F(CtlPicture, SourceOfTheBatchIsNotReplacedThroughALinkToIt)
{
    Picture("a.png", { 10, 10 });
    Picture("b.bmp");
    ASSERT_EQ(Shell("ln -s b.bmp a.bmp").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "bmp", "a.png", "b.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.png: would replace ")) << result.Err.toStdString();
    EXPECT_EQ(Read("b.bmp").size(), QSize(40, 20));
}

TEST_F(CtlPicture, FileThatIsNamedAgainThroughALinkedFolderIsConvertedOnce)
{
    ASSERT_EQ(Shell("mkdir b; ln -s b c").ExitCode, 0);
    Picture("b/a.bmp");
    ExpectDone(Ctl({ "picture", "--to", "png", "b/a.bmp", "c/a.bmp" }));
}

TEST_F(CtlPicture, FolderAboveALinkedOneIsThatOfTheSystem)
{
    ASSERT_EQ(Shell("mkdir -p b/c; ln -s b/c d").ExitCode, 0);
    Picture("a.bmp");
    Picture("b/a.bmp", { 10, 10 });
    ExpectDone(Ctl({ "picture", "--to", "png", "d/../a.bmp" }));
    EXPECT_EQ(Read("b/a.png").size(), QSize(10, 10));
}

TEST_F(CtlPicture, FileThatIsNamedTwiceIsConvertedOnce)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--to", "png", "a.bmp", "./a.bmp" }));
}

TEST_F(CtlPicture, WhatIsNoFileDoesNotKeepItWaiting)
{
    ASSERT_EQ(Shell("mkfifo a.png; mkdir b.png").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--to", "bmp", "a.png", "b.png", "gone.png" });
    EXPECT_EQ(result.ExitCode, 1);
    for (const char* name : { "a.png", "b.png", "gone.png" })
        EXPECT_TRUE(result.Err.contains(QString::fromLatin1(name) + ": 12760: ")) << result.Err.toStdString();
}

TEST_F(CtlPicture, LanguageOfTheShellDoesNotMatter)
{
    Picture("a.bmp");
    ASSERT_TRUE(QFile::rename(Path("a.bmp"), Path(QString::fromUtf8("\u00e4.bmp"))));
    ExpectDone(Shell("LC_ALL=C \"$CTL\" picture --to png *.bmp"));
    EXPECT_TRUE(QFile::exists(Path(QString::fromUtf8("\u00e4.png"))));
    ExpectDone(Shell("LC_ALL=C \"$CTL\" text 11504 >/dev/null"));
}

TEST_F(CtlPicture, ShowsProgressToPeopleOnly)
{
    Picture("a.bmp");
    Picture("b.bmp");
    const CtlResult shown = Shell("script -qec 'stty cols 12; \"$CTL\" picture --to png a.bmp b.bmp' /dev/null");
    EXPECT_EQ(shown.ExitCode, 0);
    EXPECT_TRUE(shown.Out.contains("\r\033[K1 of 2: a.b\r")) << shown.Out.toStdString();
    EXPECT_TRUE(shown.Out.contains("\r\033[K2 of 2: b.b\r")) << shown.Out.toStdString();
    EXPECT_TRUE(shown.Out.endsWith("\r\033[K")) << shown.Out.toStdString();
}

TEST_F(CtlPicture, SignalLetsTheFileUnderWayBeFinished)
{
    Noise("p0.bmp", { 900, 700 });
    QStringList words{ "picture", "--to", "png", "--into", "out", "p0.bmp" };
    for (int number = 1; number < 60; ++number) {
        const QString name = QStringLiteral("p%1.bmp").arg(number);
        ASSERT_TRUE(QFile::copy(Path("p0.bmp"), Path(name)));
        words.append(name);
    }
    QProcess process;
    process.setWorkingDirectory(Path({}));
    process.start(TARVIKCTL, words);
    ASSERT_TRUE(process.waitForStarted());
    while (!QFile::exists(Path("out/p0.png")) && process.state() == QProcess::Running)
        process.waitForFinished(1);
    const auto id = static_cast<pid_t>(process.processId());
    ASSERT_GT(id, 0) << "ended by itself"; // 0 would be this program and its family
    ASSERT_EQ(::kill(id, SIGINT), 0);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    const QStringList entries = QDir(Path("out")).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()),
        QStringLiteral("tarvikctl: stopped, %1 of 60 files are written\n").arg(entries.size()));
    EXPECT_LT(entries.size(), 60);
    for (const QString& name : entries)
        EXPECT_EQ(Read("out/" + name), Read("p0.bmp")) << name.toStdString();
}

TEST_F(CtlPicture, KilledAtAnyMomentItLeavesTheOldOrTheNewFile)
{
    Noise("a.bmp", { 400, 300 });
    ASSERT_TRUE(QDir(Path({})).mkdir("out"));
    for (const char* format : { "png", "pcx", "wmf" }) {
        const QStringList words{ "picture", "--yes", "--into", "out", "--to", QString::fromLatin1(format), "a.bmp" };
        const QString target = QStringLiteral("out/a.") + QString::fromLatin1(format);
        QElapsedTimer timer;
        timer.start();
        ASSERT_EQ(Ctl(words).ExitCode, 0);
        const qint64 wholeNs = timer.nsecsElapsed();
        const QByteArray whole = Bytes(target);
        int kept = 0;
        for (int turn = 0; turn < 40; ++turn) {
            if (turn % 2 == 0)
                Store(target, "old");
            else
                QFile::remove(Path(target));
            QProcess process;
            process.setWorkingDirectory(Path({}));
            process.start(TARVIKCTL, words);
            timer.start();
            ASSERT_TRUE(process.waitForStarted());
            // the writing stands at the end of the run
            const qint64 afterNs = QRandomGenerator::global()->bounded(wholeNs - wholeNs / 2) + wholeNs / 2;
            while (timer.nsecsElapsed() < afterNs && process.state() == QProcess::Running)
                process.waitForFinished(0);
            process.kill();
            process.waitForFinished();
            const bool isThere = QFile::exists(Path(target));
            ASSERT_TRUE(isThere || turn % 2 == 1);
            const QByteArray left = isThere ? Bytes(target) : QByteArray("old");
            ASSERT_TRUE(left == "old" || left == whole) << format << ", " << left.size() << " bytes";
            kept += left == "old" ? 1 : 0;
        }
        EXPECT_GT(kept, 0);
        QFile::remove(Path(target));
        ASSERT_EQ(Ctl(words).ExitCode, 0);
        EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files | QDir::Hidden), QStringList(target.mid(4))) << "left behind";
        QFile::remove(Path(target));
    }
}

TEST_F(CtlPicture, EmptyDescriptionAndTinyPictureAreNoTrouble)
{
    Picture("a.bmp", { 1, 1 });
    ExpectDone(Ctl({ "picture", "--description", "", "--to", "png", "a.bmp" }));
    EXPECT_GE(Read("a.png").height(), 1);
    EXPECT_EQ(Read("a.png").width(), 1);
}

} // namespace tarvik
