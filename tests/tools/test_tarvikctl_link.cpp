// tarvikctl on an instrument: the simulated receiver, as a program of its own, on a port that the system chose.
#include "tests/closed/scpiserver.h"
#include "tests/tools/ctl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>

#include <csignal>
#include <sys/types.h>

namespace {

const QString kFamilyRoot = QStringLiteral("instrument/Public/");

class TarvikctlLink : public CtlTest {
protected:
    TarvikctlLink()
    {
        for (const char* folder :
            { "Antenna List", "K-Factor Table", "Memory List", "Suppress List", "Correction Set", "Screen Shots" })
            EXPECT_TRUE(QDir(Path({})).mkpath(kFamilyRoot + QLatin1String(folder)));
        StoreOnInstrument("Memory List/Marine.tvm", "old list");
        StoreOnInstrument("Screen Shots/Shot, \"1\".png", "picture");
    }

    ~TarvikctlLink() override
    {
        instrument_.terminate();
        EXPECT_TRUE(instrument_.waitForFinished(10000));
    }

    void StartInstrument(const QStringList& options = {})
    {
        instrument_.start(QStringLiteral(TARVIK_INSTRUMENT),
            QStringList{ QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--root"),
                Path(QStringLiteral("instrument")), QStringLiteral("--serial"), QStringLiteral("4711") }
                + options);
        while (!instrument_.canReadLine())
            ASSERT_TRUE(instrument_.waitForReadyRead(30000)) << instrument_.errorString().toStdString();
        const QString line = QString::fromLatin1(instrument_.readLine()).trimmed();
        ASSERT_TRUE(line.startsWith(QStringLiteral("port "))) << line.toStdString();
        to_ = QStringLiteral("127.0.0.1:") + line.mid(5);
    }

    /// Runs a command against the instrument.
    CtlResult To(const QStringList& arguments) const
    {
        return Ctl(QStringList{ QStringLiteral("--to"), to_ } + arguments);
    }

    void StoreOnInstrument(const char* name, const QByteArray& bytes) const
    {
        Store(kFamilyRoot + QLatin1String(name), bytes);
    }

    void SetChange(const char* name, const QDateTime& change) const
    {
        QFile file(Path(kFamilyRoot + QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(change, QFileDevice::FileModificationTime));
    }

    QByteArray OnInstrument(const char* name) const
    {
        return Bytes(kFamilyRoot + QLatin1String(name));
    }

    bool IsOnInstrument(const char* name) const
    {
        return QFile::exists(Path(kFamilyRoot + QLatin1String(name)));
    }

    static void ExpectDone(const CtlResult& result)
    {
        EXPECT_EQ(result.ExitCode, 0);
        EXPECT_EQ(result.Err, QString());
    }

    /// The command was not carried out, and a message with this number before its text is all that was said.
    static void ExpectMessage(const CtlResult& result, const QString& start)
    {
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_TRUE(result.Err.startsWith(start)) << result.Err.toStdString();
        EXPECT_EQ(result.Err.count(u'\n'), 1) << result.Err.toStdString();
        EXPECT_EQ(result.Out, QString());
    }

    QSize PngSize(const char* name) const
    {
        const QImage picture(Path(QLatin1String(name)), "PNG");
        return picture.size();
    }

    QString to_;

private:
    QProcess instrument_;
};

/// On an instrument whose answers the test has written down.
class TarvikctlForeign : public CtlTest {
protected:
    CtlResult To(const QStringList& arguments) const
    {
        const auto port = static_cast<quint16>(server.Port());
        return Ctl(QStringList{ QStringLiteral("--to"), QStringLiteral("127.0.0.1:%1").arg(port) } + arguments);
    }

    ScpiServer server;
};

const QDateTime kChange(QDate(2024, 2, 29), QTime(23, 59, 58));

} // namespace

TEST_F(TarvikctlLink, PrintsTheIdentification)
{
    StartInstrument();
    const CtlResult result = To({ "idn" });
    ExpectDone(result);
    EXPECT_TRUE(result.Out.contains(QStringLiteral(",4711,"))) << result.Out.toStdString();
    EXPECT_EQ(result.Out.count(u'\n'), 1);
}

TEST_F(TarvikctlLink, TakesTheInstrumentBehindTheCommandToo)
{
    StartInstrument();
    ExpectDone(Ctl({ "idn", "--to=" + to_ }));
}

TEST_F(TarvikctlLink, ListsTheFilesOfAClass)
{
    StartInstrument();
    StoreOnInstrument("Memory List/notes.txt", "no list");
    SetChange("Memory List/Marine.tvm", kChange);
    const CtlResult result = To({ "ls", "memory" });
    ExpectDone(result);
    EXPECT_EQ(result.Out, QStringLiteral("2024-02-29 23:59:58  Marine.tvm\n"));
}

TEST_F(TarvikctlLink, ListsAnEmptyClassAsNothing)
{
    StartInstrument();
    const CtlResult result = To({ "ls", "correction" });
    ExpectDone(result);
    EXPECT_EQ(result.Out, QString());
}

TEST_F(TarvikctlLink, ListsScreenShotsFromTheirFolder)
{
    StartInstrument();
    SetChange("Screen Shots/Shot, \"1\".png", kChange);
    EXPECT_EQ(To({ "ls", "screen" }).Out, QStringLiteral("2024-02-29 23:59:58  Shot, \"1\".png\n"));
}

TEST_F(TarvikctlLink, ListsThePresentDirectoryWithItsFolders)
{
    StartInstrument();
    const CtlResult result = To({ "ls" });
    ExpectDone(result);
    EXPECT_TRUE(result.Out.contains(QStringLiteral("\\\n"))) << result.Out.toStdString();
}

TEST_F(TarvikctlLink, FetchesAFileUnderItsName)
{
    StartInstrument();
    ExpectDone(To({ "get", "memory", "Marine.tvm" }));
    EXPECT_EQ(Bytes(QStringLiteral("Marine.tvm")), "old list");
}

TEST_F(TarvikctlLink, FetchesAFileUnderAnotherNameOrIntoAFolder)
{
    StartInstrument();
    ExpectDone(To({ "get", "memory", "Marine.tvm", "other.tvm" }));
    EXPECT_EQ(Bytes(QStringLiteral("other.tvm")), "old list");
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("folder")));
    ExpectDone(To({ "get", "memory", "Marine.tvm", "folder" }));
    EXPECT_EQ(Bytes(QStringLiteral("folder/Marine.tvm")), "old list");
}

TEST_F(TarvikctlLink, ScreenShotKeepsItsDateOnTheWayDown)
{
    StartInstrument();
    SetChange("Screen Shots/Shot, \"1\".png", kChange);
    ExpectDone(To({ "get", "screen", "Shot, \"1\".png", "shot.png" }));
    EXPECT_EQ(QFileInfo(Path(QStringLiteral("shot.png"))).lastModified(), kChange);
}

TEST_F(TarvikctlLink, AsksBeforeItReplacesALocalFile)
{
    StartInstrument();
    Store(QStringLiteral("Marine.tvm"), "mine");
    ExpectMessage(To({ "get", "memory", "Marine.tvm" }), QStringLiteral("Marine.tvm: 12734?: "));
    EXPECT_EQ(Bytes(QStringLiteral("Marine.tvm")), "mine");
    const CtlResult result = To({ "get", "--yes", "memory", "Marine.tvm" });
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(Bytes(QStringLiteral("Marine.tvm")), "old list");
}

TEST_F(TarvikctlLink, FileThatTheInstrumentLacksLeavesTheTarget)
{
    StartInstrument();
    Store(QStringLiteral("out.tvm"), "mine");
    const CtlResult result = To({ "get", "--yes", "memory", "None.tvm", "out.tvm" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("None.tvm: 12704: "))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.tvm")), "mine");
}

TEST_F(TarvikctlLink, LinkThatBreaksLeavesTheTarget)
{
    StartInstrument({ "--fault", "cut=1" });
    ExpectMessage(To({ "get", "memory", "Marine.tvm", "out.tvm" }), QStringLiteral("Marine.tvm: 12704: "));
    EXPECT_EQ(FolderEntries(), QStringList{ QStringLiteral("instrument") });
}

TEST_F(TarvikctlLink, AsksBeforeItReplacesTheListOfTheInstrument)
{
    StartInstrument();
    Store(QStringLiteral("Air.tvm"), "new list");
    ExpectMessage(To({ "put", "memory", "Air.tvm" }), QStringLiteral("Air.tvm: 12736?: "));
    EXPECT_EQ(OnInstrument("Memory List/Marine.tvm"), "old list");
    EXPECT_EQ(To({ "put", "--yes", "memory", "Air.tvm" }).ExitCode, 0);
    EXPECT_EQ(OnInstrument("Memory List/Air.tvm"), "new list");
    EXPECT_FALSE(IsOnInstrument("Memory List/Marine.tvm"));
}

TEST_F(TarvikctlLink, SendsANewTableWithoutAQuestion)
{
    StartInstrument();
    Store(QStringLiteral("Loop.tvk"), "table");
    ExpectDone(To({ "put", "kfactor", "Loop.tvk" }));
    EXPECT_EQ(OnInstrument("K-Factor Table/Loop.tvk"), "table");
}

TEST_F(TarvikctlLink, ScreenShotKeepsItsDateOnTheWayUp)
{
    StartInstrument();
    Store(QStringLiteral("New.png"), "shot");
    QFile file(Path(QStringLiteral("New.png")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(kChange, QFileDevice::FileModificationTime));
    ExpectDone(To({ "put", "screen", "New.png" }));
    const CtlResult result = To({ "ls", "screen" });
    ExpectDone(result);
    EXPECT_TRUE(result.Out.contains(QStringLiteral("2024-02-29 23:59:58  New.png\n"))) << result.Out.toStdString();
}

TEST_F(TarvikctlLink, AsksBeforeItReplacesATable)
{
    StartInstrument();
    StoreOnInstrument("K-Factor Table/Loop.tvk", "old");
    Store(QStringLiteral("Loop.tvk"), "new");
    ExpectMessage(To({ "put", "kfactor", "Loop.tvk" }), QStringLiteral("Loop.tvk: 12734?: "));
    EXPECT_EQ(OnInstrument("K-Factor Table/Loop.tvk"), "old");
    EXPECT_EQ(To({ "put", "--yes", "kfactor", "Loop.tvk" }).ExitCode, 0);
    EXPECT_EQ(OnInstrument("K-Factor Table/Loop.tvk"), "new");
}

TEST_F(TarvikctlLink, SendsNoFileOfAnotherKind)
{
    StartInstrument();
    Store(QStringLiteral("Loop.tvk"), "table");
    const CtlResult result = To({ "put", "memory", "Loop.tvk" });
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("Loop.tvk: "))) << result.Err.toStdString();
    EXPECT_EQ(OnInstrument("Memory List/Marine.tvm"), "old list");
}

TEST_F(TarvikctlLink, SendsNoFileThatIsNotThere)
{
    StartInstrument();
    ExpectMessage(To({ "put", "--yes", "memory", "None.tvm" }), QStringLiteral("None.tvm: "));
    EXPECT_EQ(OnInstrument("Memory List/Marine.tvm"), "old list");
}

TEST_F(TarvikctlLink, RemovesAScreenShot)
{
    StartInstrument();
    ExpectDone(To({ "rm", "screen", "Shot, \"1\".png" }));
    EXPECT_FALSE(IsOnInstrument("Screen Shots/Shot, \"1\".png"));
}

TEST_F(TarvikctlLink, RemovesNoListThatTheInstrumentHoldsOnce)
{
    StartInstrument();
    ExpectMessage(To({ "rm", "memory", "Marine.tvm" }), QStringLiteral("Marine.tvm: 12724: "));
    EXPECT_TRUE(IsOnInstrument("Memory List/Marine.tvm"));
}

TEST_F(TarvikctlLink, RemovesNothingThatIsNotThere)
{
    StartInstrument();
    ExpectMessage(To({ "rm", "correction", "None.tvc" }), QStringLiteral("None.tvc: 12724: "));
}

TEST_F(TarvikctlLink, CapturesTheDisplay)
{
    StartInstrument();
    ExpectDone(To({ "capture", "out.png" }));
    EXPECT_EQ(PngSize("out.png"), QSize(642, 442));
    EXPECT_EQ(FolderEntries(), (QStringList{ QStringLiteral("instrument"), QStringLiteral("out.png") }));
}

TEST_F(TarvikctlLink, CapturesInTheFormatOfTheName)
{
    StartInstrument();
    ExpectDone(To({ "capture", "out.BMP" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.BMP")).startsWith("BM"));
    ExpectDone(To({ "capture", "out.pcx" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.pcx")).startsWith("\x0a\x05\x01\x08"));
    ExpectDone(To({ "capture", "out.wmf" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.wmf")).startsWith("\xd7\xcd\xc6\x9a"));
}

TEST_F(TarvikctlLink, CapturesInTheFormatThatIsAskedFor)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--to", "bmp", "out" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.bmp")).startsWith("BM"));
    ExpectDone(To({ "capture", "--to=pcx", "shot.png" }));
    EXPECT_TRUE(Bytes(QStringLiteral("shot.pcx")).startsWith("\x0a\x05\x01\x08"));
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("shot.png"))));
    ExpectDone(To({ "capture", "--to", "png", "Tower.2024" }));
    EXPECT_EQ(PngSize("Tower.2024.png"), QSize(642, 442));
}

TEST_F(TarvikctlLink, CapturesIntoAFolder)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--into", "shots", "out.png" }));
    EXPECT_EQ(PngSize("shots/out.png"), QSize(642, 442));
    ExpectDone(To({ "capture", "--into", "shots", "--to", "bmp", "elsewhere/next.png" }));
    EXPECT_TRUE(Bytes(QStringLiteral("shots/next.bmp")).startsWith("BM"));
    ExpectMessage(To({ "capture", "--into", "shots", "out.png" }), QStringLiteral("out.png: 12734?: "));
}

TEST_F(TarvikctlLink, CaptureMakesOneFolderOnly)
{
    StartInstrument();
    ExpectMessage(To({ "capture", "--into", "none/shots", "out.png" }), QStringLiteral("out.png: 12752: "));
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("none"))));
}

TEST_F(TarvikctlLink, CaptureNeedsAnInstrumentBesideAFormat)
{
    StartInstrument();
    const CtlResult result = Ctl({ "capture", "--to", "bmp", "out" });
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("--to is missing"))) << result.Err.toStdString();
}

TEST_F(TarvikctlLink, CapturesWithADescription)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--description", "one line", "one.png" }));
    ExpectDone(To({ "capture", "--description", "two\nlines", "two.png" }));
    const int line = PngSize("two.png").height() - PngSize("one.png").height();
    EXPECT_GT(line, 0);
    EXPECT_EQ(PngSize("one.png"), QSize(642, 442 + line + 1));
}

TEST_F(TarvikctlLink, CaptureIntoAPlaceThatIsNotThereIsAMessage)
{
    StartInstrument();
    ExpectMessage(To({ "capture", "none/out.pcx" }), QStringLiteral("none/out.pcx: 12757: "));
}

TEST_F(TarvikctlLink, CaptureLeavesNothingInTheFolderOfTemporaryFiles)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("tmp")));
    qputenv("TMPDIR", QFile::encodeName(Path(QStringLiteral("tmp"))));
    ExpectDone(To({ "capture", "out.png" }));
    EXPECT_EQ(QDir(Path(QStringLiteral("tmp"))).entryList({ QStringLiteral("tarvikctl*") }), QStringList());
    Store(QStringLiteral("out.png"), "mine");
    qputenv("TMPDIR", QFile::encodeName(Path(QStringLiteral("out.png"))));
    const CtlResult result = To({ "capture", "--yes", "out.png" });
    qunsetenv("TMPDIR");
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.png: there is no place"))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}

TEST_F(TarvikctlLink, CaptureThatIsInterruptedWritesNothing)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("tmp")));
    const QDir temporary(Path(QStringLiteral("tmp")));
    const QStringList ofProgram{ QStringLiteral("tarvikctl*") };
    QProcess capture;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), temporary.path());
    capture.setProcessEnvironment(environment);
    capture.setWorkingDirectory(Path({}));
    capture.start(QStringLiteral(TARVIKCTL), { "--to", to_, "capture", "out.png" });
    ASSERT_TRUE(capture.waitForStarted());
    while (temporary.entryList(ofProgram).isEmpty() && capture.state() == QProcess::Running)
        capture.waitForFinished(1);
    const auto id = static_cast<pid_t>(capture.processId());
    ASSERT_GT(id, 0) << "ended by itself";
    ASSERT_EQ(::kill(id, SIGINT), 0);
    ASSERT_TRUE(capture.waitForFinished(60000));
    EXPECT_EQ(capture.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(capture.exitCode(), 1);
    EXPECT_EQ(capture.readAllStandardError(), "out.png: stopped, nothing is written\n");
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("out.png"))));
    EXPECT_TRUE(temporary.entryList(ofProgram).isEmpty());
}

TEST_F(TarvikctlLink, CapturesInBlackAndWhite)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--palette", "1", "out.png" }));
    EXPECT_TRUE(QImage(Path(QStringLiteral("out.png"))).isGrayscale());
    ExpectDone(To({ "capture", "--palette=0", "colour.png" }));
    EXPECT_FALSE(QImage(Path(QStringLiteral("colour.png"))).isGrayscale());
}

TEST_F(TarvikctlLink, CaptureThatBreaksLeavesTheTarget)
{
    StartInstrument({ "--fault", "cut=2" });
    Store(QStringLiteral("out.png"), "mine");
    const CtlResult result = To({ "capture", "--yes", "out.png" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.png: 12703: "))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}

TEST_F(TarvikctlLink, CaptureTakesNamesOfPicturesOnly)
{
    StartInstrument();
    const CtlResult result = To({ "capture", "out.txt" });
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.txt: "))) << result.Err.toStdString();
}

TEST_F(TarvikctlLink, CaptureAsksBeforeItReplacesALocalFile)
{
    StartInstrument();
    Store(QStringLiteral("out.png"), "mine");
    ExpectMessage(To({ "capture", "out.png" }), QStringLiteral("out.png: 12734?: "));
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}

TEST_F(TarvikctlLink, CaptureThatIsRefusedLeavesTheTarget)
{
    StartInstrument({ "--fault", "refuse=1" });
    Store(QStringLiteral("out.png"), "mine");
    const CtlResult result = To({ "capture", "--yes", "out.png" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.png: 12703: "))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}

TEST_F(TarvikctlLink, FolderIsNoTarget)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkpath(QStringLiteral("folder/Marine.tvm")));
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("folder.png")));
    ExpectMessage(To({ "capture", "--yes", "folder.png" }), QStringLiteral("folder.png: folder.png is a folder"));
    ExpectMessage(To({ "get", "--yes", "memory", "Marine.tvm", "folder" }),
        QStringLiteral("Marine.tvm: folder/Marine.tvm is a folder"));
}

TEST_F(TarvikctlLink, NobodyThereIsAMessage)
{
    StartInstrument({ "--fault", "drop=1" });
    ExpectMessage(To({ "idn" }), to_ + QStringLiteral(": 10422: "));
}

TEST_F(TarvikctlLink, ShowsProgressToPeopleOnly)
{
    StartInstrument();
    QProcess terminal; // gives the program a terminal of its own
    terminal.setWorkingDirectory(Path({}));
    terminal.start(QStringLiteral("script"),
        { "-qec", QStringLiteral("'%1' --to %2 get memory Marine.tvm").arg(QStringLiteral(TARVIKCTL), to_),
            "/dev/null" });
    ASSERT_TRUE(terminal.waitForFinished(60000)) << terminal.errorString().toStdString();
    EXPECT_EQ(terminal.exitCode(), 0);
    const QByteArray shown = terminal.readAllStandardOutput();
    EXPECT_TRUE(shown.contains("Copying to the PC: Marine.tvm")) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith("\r\033[K")) << shown.toStdString();
}

TEST_F(TarvikctlLink, RefusesWrongUsage)
{
    struct Case {
        QStringList Arguments;
        QString Reason;
    };
    const QString to = QStringLiteral("--to takes four numbers from 0 to 255 with points between, and ':' and a port "
                                      "from 1 to 65535");
    StartInstrument();
    for (const Case& each : {
             Case{ { "idn" }, QStringLiteral("idn: --to is missing") },
             Case{ { "--to" }, QStringLiteral("no command") },
             Case{ { "--to", "127.0.0.1" }, QStringLiteral("no command") },
             Case{ { "--to", "localhost", "idn" }, to },
             Case{ { "--to", "127.0.0.256", "idn" }, to },
             Case{ { "--to", "127.0.0.1:0", "idn" }, to },
             Case{ { "--to", "127.0.0.1:65536", "idn" }, to },
             Case{ { "--to", "127.0.0.1:", "idn" }, to },
             Case{ { "--to", "127.0.0.1", "check", "a" }, QStringLiteral("--to: no such option here") },
             Case{ { "--to", "127.0.0.1", "ls", "lists" }, QStringLiteral("lists: no such kind of file") },
             Case{ { "--to", "127.0.0.1", "get", "memory" }, QStringLiteral("get: too few arguments") },
             Case{ { "--to", "127.0.0.1", "rm", "screen", "a", "b" }, QStringLiteral("rm: too many arguments") },
         }) {
        const CtlResult result = Ctl(each.Arguments);
        EXPECT_EQ(result.ExitCode, 2) << each.Reason.toStdString();
        EXPECT_EQ(result.Err, QStringLiteral("tarvikctl: %1\nTry 'tarvikctl --help'.\n").arg(each.Reason));
    }
}

TEST_F(TarvikctlForeign, WhatATerminalWouldObeyIsNotPrinted)
{
    server.Answer("maker,mo\x9D"
                  "del,1,2\n");
    EXPECT_EQ(To({ "idn" }).Out, QStringLiteral("maker,mo?del,1,2\n"));
    server.Answer("maker,model,1,2\n");
    server.Answer("1,2,\"a\x90"
                  "b\",FILE,5,2024,1,2,3,4,5\n0,\"No error\"\n");
    EXPECT_EQ(To({ "ls" }).Out, QStringLiteral("2024-01-02 03:04:05  a?b\n"));
}
