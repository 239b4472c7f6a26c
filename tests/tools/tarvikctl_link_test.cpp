// tarvikctl with an instrument.
#include "tests/closed/scpiserver.h"
#include "tests/support/endSignals.h"
#include "tests/tools/ctl_link_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <array>
#include <csignal>
#include <utility>

namespace tarvik {

namespace {

/// An instrument with prepared answers.
class TarvikctlForeign : public CtlTest {
protected:
    QString Address() const
    {
        return QStringLiteral("127.0.0.1:%1").arg(static_cast<quint16>(server.Port()));
    }

    CtlResult To(const QStringList& arguments) const
    {
        return Ctl(QStringList{ QStringLiteral("--to"), Address() } + arguments);
    }

    /// The instrument that identifies itself in this way gets no command but the query.
    void ExpectRefused(const char* identification, const QStringList& arguments, const QString& message)
    {
        server.Clear();
        server.Answer(std::string(identification) + '\n');
        const CtlResult result = To(arguments);
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_EQ(result.Err, Address() + QStringLiteral(": ") + message + u'\n');
        EXPECT_EQ(server.Received(), "*IDN?\n");
    }

    ScpiServer server;
};

const QDateTime kChanged(QDate(2024, 2, 29), QTime(23, 59, 58));

/// Time zones, each with a time that the clock there skips and the moment it means.
struct SkippedTime {
    const char* Zone;
    QString Shown;
    QString Utc;
};

const std::array kSkippedTimes{
    SkippedTime{ "CET-1CEST,M3.5.0/2,M10.5.0/3", "2024-03-31 02:30:00", "2024-03-31T01:30:00Z" },
    SkippedTime{ "EST5EDT,M3.2.0/2,M11.1.0/2", "2024-03-10 02:59:59", "2024-03-10T07:59:59Z" },
    SkippedTime{ "<-03>3<-02>,M11.1.0/0,M2.3.0/0", "2018-11-04 00:00:01", "2018-11-04T03:00:01Z" },
    SkippedTime{ "<+1030>-10:30<+11>-11,M10.1.0/2,M4.1.0/2", "2024-10-06 02:15:00", "2024-10-05T15:45:00Z" },
};

} // namespace

TEST_F(TarvikctlLink, PrintsIdentification)
{
    StartInstrument();
    const CtlResult result = To({ "idn" });
    ExpectDone(result);
    EXPECT_TRUE(result.Out.contains(QStringLiteral(",4711,"))) << result.Out.toStdString();
    EXPECT_EQ(result.Out.count(u'\n'), 1);
}

TEST_F(TarvikctlLink, TakesInstrumentAfterCommandToo)
{
    StartInstrument();
    ExpectDone(Ctl({ "idn", "--to=" + to_ }));
}

TEST_F(TarvikctlLink, ListsFilesOfClass)
{
    StartInstrument();
    StoreOnInstrument("Memory List/notes.txt", "no list");
    SetChanged("Memory List/Marine.tvm", kChanged);
    const CtlResult result = To({ "ls", "memory" });
    ExpectDone(result);
    EXPECT_EQ(result.Out, QStringLiteral("2024-02-29 23:59:58  Marine.tvm\n"));
}

TEST_F(TarvikctlLink, ListsNothingForEmptyClass)
{
    StartInstrument();
    const CtlResult result = To({ "ls", "correction" });
    ExpectDone(result);
    EXPECT_EQ(result.Out, QString());
}

TEST_F(TarvikctlLink, ListsScreenShotsFromTheirFolder)
{
    StartInstrument();
    SetChanged("Screen Shots/Shot, \"1\".png", kChanged);
    EXPECT_EQ(To({ "ls", "screen" }).Out, QStringLiteral("2024-02-29 23:59:58  Shot, \"1\".png\n"));
}

TEST_F(TarvikctlLink, ListsCurrentDirectoryWithItsFolders)
{
    StartInstrument();
    const CtlResult result = To({ "ls" });
    ExpectDone(result);
    EXPECT_TRUE(result.Out.contains(QStringLiteral("\\\n"))) << result.Out.toStdString();
}

TEST_F(TarvikctlLink, DownloadsFileUnderItsName)
{
    StartInstrument();
    ExpectDone(To({ "get", "memory", "Marine.tvm" }));
    EXPECT_EQ(Bytes(QStringLiteral("Marine.tvm")), "old list");
}

TEST_F(TarvikctlLink, DownloadsFileUnderOtherNameOrIntoFolder)
{
    StartInstrument();
    ExpectDone(To({ "get", "memory", "Marine.tvm", "other.tvm" }));
    EXPECT_EQ(Bytes(QStringLiteral("other.tvm")), "old list");
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("folder")));
    ExpectDone(To({ "get", "memory", "Marine.tvm", "folder" }));
    EXPECT_EQ(Bytes(QStringLiteral("folder/Marine.tvm")), "old list");
}

TEST_F(TarvikctlLink, DownloadedScreenShotKeepsDate)
{
    StartInstrument();
    SetChanged("Screen Shots/Shot, \"1\".png", kChanged);
    ExpectDone(To({ "get", "screen", "Shot, \"1\".png", "shot.png" }));
    EXPECT_EQ(QFileInfo(Path(QStringLiteral("shot.png"))).lastModified(), kChanged);
}

TEST_F(TarvikctlLink, DownloadedFileHasItsOwnDate)
{
    StartInstrument();
    for (const char* name : { "Screen Shots/A.png", "Screen Shots/B.png", "Screen Shots/Z.png" })
        StoreOnInstrument(name, "shot");
    SetChanged("Screen Shots/B.png", kChanged);
    ExpectDone(To({ "get", "screen", "B.png" }));
    EXPECT_EQ(QFileInfo(Path(QStringLiteral("B.png"))).lastModified(), kChanged);
}

TEST_F(TarvikctlLink, AsksBeforeReplacingLocalFile)
{
    StartInstrument();
    Store(QStringLiteral("Marine.tvm"), "mine");
    ExpectMessage(To({ "get", "memory", "Marine.tvm" }), QStringLiteral("Marine.tvm: 12734?: "));
    EXPECT_EQ(Bytes(QStringLiteral("Marine.tvm")), "mine");
    const CtlResult result = To({ "get", "--yes", "memory", "Marine.tvm" });
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(Bytes(QStringLiteral("Marine.tvm")), "old list");
}

TEST_F(TarvikctlLink, FileMissingOnInstrumentKeepsTarget)
{
    StartInstrument();
    Store(QStringLiteral("out.tvm"), "mine");
    const CtlResult result = To({ "get", "--yes", "memory", "None.tvm", "out.tvm" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("None.tvm: 12704: "))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.tvm")), "mine");
}

TEST_F(TarvikctlLink, BrokenLinkWritesNothing)
{
    StartInstrument({ "--fault", "cut=1" });
    ExpectMessage(To({ "get", "memory", "Marine.tvm", "out.tvm" }), QStringLiteral("Marine.tvm: 12704: "));
    EXPECT_EQ(FolderEntries(), QStringList{ QStringLiteral("instrument") });
}

TEST_F(TarvikctlLink, AsksBeforeReplacingListOfInstrument)
{
    StartInstrument();
    Store(QStringLiteral("Air.tvm"), "new list");
    ExpectMessage(To({ "put", "memory", "Air.tvm" }), QStringLiteral("Air.tvm: 12736?: "));
    EXPECT_EQ(OnInstrument("Memory List/Marine.tvm"), "old list");
    EXPECT_EQ(To({ "put", "--yes", "memory", "Air.tvm" }).ExitCode, 0);
    EXPECT_EQ(OnInstrument("Memory List/Air.tvm"), "new list");
    EXPECT_FALSE(IsOnInstrument("Memory List/Marine.tvm"));
}

TEST_F(TarvikctlLink, UploadsNewTableWithoutAsking)
{
    StartInstrument();
    Store(QStringLiteral("Loop.tvk"), "table");
    ExpectDone(To({ "put", "kfactor", "Loop.tvk" }));
    EXPECT_EQ(OnInstrument("K-Factor Table/Loop.tvk"), "table");
}

TEST_F(TarvikctlLink, UploadedScreenShotKeepsDate)
{
    StartInstrument();
    Store(QStringLiteral("New.png"), "shot");
    QFile file(Path(QStringLiteral("New.png")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(kChanged, QFileDevice::FileModificationTime));
    ExpectDone(To({ "put", "screen", "New.png" }));
    const CtlResult result = To({ "ls", "screen" });
    ExpectDone(result);
    EXPECT_TRUE(result.Out.contains(QStringLiteral("2024-02-29 23:59:58  New.png\n"))) << result.Out.toStdString();
}

TEST_F(TarvikctlLink, AsksBeforeReplacingTable)
{
    StartInstrument();
    StoreOnInstrument("K-Factor Table/Loop.tvk", "old");
    Store(QStringLiteral("Loop.tvk"), "new");
    ExpectMessage(To({ "put", "kfactor", "Loop.tvk" }), QStringLiteral("Loop.tvk: 12734?: "));
    EXPECT_EQ(OnInstrument("K-Factor Table/Loop.tvk"), "old");
    EXPECT_EQ(To({ "put", "--yes", "kfactor", "Loop.tvk" }).ExitCode, 0);
    EXPECT_EQ(OnInstrument("K-Factor Table/Loop.tvk"), "new");
}

TEST_F(TarvikctlLink, RefusesToUploadFileOfOtherKind)
{
    StartInstrument();
    Store(QStringLiteral("Loop.tvk"), "table");
    const CtlResult result = To({ "put", "memory", "Loop.tvk" });
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("Loop.tvk: "))) << result.Err.toStdString();
    EXPECT_EQ(OnInstrument("Memory List/Marine.tvm"), "old list");
}

TEST_F(TarvikctlLink, ReportsMissingFileToUpload)
{
    StartInstrument();
    ExpectMessage(To({ "put", "--yes", "memory", "None.tvm" }), QStringLiteral("None.tvm: "));
    EXPECT_EQ(OnInstrument("Memory List/Marine.tvm"), "old list");
}

TEST_F(TarvikctlLink, RemovesScreenShot)
{
    StartInstrument();
    ExpectDone(To({ "rm", "screen", "Shot, \"1\".png" }));
    EXPECT_FALSE(IsOnInstrument("Screen Shots/Shot, \"1\".png"));
}

TEST_F(TarvikctlLink, RefusesToRemoveSingleListOfClass)
{
    StartInstrument();
    ExpectMessage(To({ "rm", "memory", "Marine.tvm" }), QStringLiteral("Marine.tvm: 12724: "));
    EXPECT_TRUE(IsOnInstrument("Memory List/Marine.tvm"));
}

TEST_F(TarvikctlLink, ReportsMissingFileToRemove)
{
    StartInstrument();
    ExpectMessage(To({ "rm", "correction", "None.tvc" }), QStringLiteral("None.tvc: 12724: "));
}

TEST_F(TarvikctlLink, RefusesFolderAsTarget)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkpath(QStringLiteral("folder/Marine.tvm")));
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("folder.png")));
    ExpectMessage(To({ "capture", "--yes", "folder.png" }), QStringLiteral("folder.png: folder.png is a folder"));
    ExpectMessage(To({ "get", "--yes", "memory", "Marine.tvm", "folder" }),
        QStringLiteral("Marine.tvm: folder/Marine.tvm is a folder"));
}

TEST_F(TarvikctlLink, ReportsFailedConnection)
{
    StartInstrument({ "--fault", "drop=1" });
    ExpectMessage(To({ "idn" }), to_ + QStringLiteral(": 10422: "));
}

TEST_F(TarvikctlLink, ShowsProgressOnTerminalOnly)
{
    StartInstrument();
    QProcess terminal; // script runs the program in a pseudo terminal
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

TEST_F(TarvikctlLink, SkippedHourIsListedAndStamped)
{
    SetEnvironment("TZ", "UTC0");
    StartInstrument();
    for (const SkippedTime& time : kSkippedTimes) {
        QDateTime shown = QDateTime::fromString(time.Shown, "yyyy-MM-dd HH:mm:ss");
        shown.setTimeSpec(Qt::UTC);
        SetChanged("Screen Shots/Shot, \"1\".png", shown);
        SetEnvironment("TZ", time.Zone);
        EXPECT_EQ(To({ "ls", "screen" }).Out, time.Shown + "  Shot, \"1\".png\n") << time.Zone;
        ExpectDone(To({ "get", "--yes", "screen", "Shot, \"1\".png", QLatin1String(time.Zone, 4) + ".png" }));
        EXPECT_EQ(QFileInfo(Path(QLatin1String(time.Zone, 4) + ".png")).lastModified().toUTC().toString(Qt::ISODate),
            time.Utc)
            << time.Zone;
    }
}

TEST_F(TarvikctlLink, InstrumentTakesTimesAsItsOwn)
{
    SetEnvironment("TZ", "CET-1CEST,M3.5.0/2,M10.5.0/3");
    StartInstrument();
    SetEnvironment("TZ", "UTC0");
    Store("New.png", "shot");
    for (const auto& [sent, listed] :
        { std::pair{ QDateTime(QDate(2024, 7, 1), QTime(12, 0), Qt::UTC), "2024-07-01 12:00" },
            std::pair{ QDateTime(QDate(2024, 1, 1), QTime(12, 0), Qt::UTC), "2024-01-01 12:00" },
            std::pair{ QDateTime(QDate(2024, 3, 31), QTime(2, 30), Qt::UTC), "2024-03-31 03:30" } }) {
        QFile file(Path("New.png"));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(sent, QFileDevice::FileModificationTime));
        file.close();
        ASSERT_EQ(To({ "put", "--yes", "screen", "New.png" }).ExitCode, 0);
        EXPECT_TRUE(To({ "ls", "screen" }).Out.contains(listed + QStringLiteral(":00  New.png\n"))) << listed;
    }
}

TEST_F(TarvikctlLink, RepeatedHourKeepsItsClockTime)
{
    const QString zone = "CET-1CEST,M3.5.0/2,M10.5.0/3";
    SetEnvironment("TZ", "UTC0");
    StartInstrument();
    SetEnvironment("TZ", zone);
    for (const int hour : { 0, 1 }) { // both are half past two there
        const QDateTime changed(QDate(2024, 10, 27), QTime(hour, 30), Qt::UTC);
        Store("New.png", "shot");
        QFile file(Path("New.png"));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(changed, QFileDevice::FileModificationTime));
        file.close();
        ASSERT_EQ(To({ "put", "--yes", "screen", "New.png" }).ExitCode, 0);
        EXPECT_TRUE(To({ "ls", "screen" }).Out.contains("2024-10-27 02:30:00  New.png\n"));
        ExpectDone(To({ "get", "screen", "New.png", QStringLiteral("back%1.png").arg(hour) }));
        const QDateTime back = QFileInfo(Path(QStringLiteral("back%1.png").arg(hour))).lastModified().toUTC();
        EXPECT_EQ(back.date(), changed.date());
        EXPECT_TRUE(back.time() == QTime(0, 30) || back.time() == QTime(1, 30)) << back.toString().toStdString();
    }
}

TEST_F(TarvikctlForeign, ReplacesControlCharacters)
{
    server.Answer("maker,mo\x9D"
                  "del,1,2\n");
    EXPECT_EQ(To({ "idn" }).Out, QStringLiteral("maker,mo?del,1,2\n"));
    server.Answer("maker,model,1,2\n");
    server.Answer("1,2,\"a\x90"
                  "b\",FILE,5,2024,1,2,3,4,5\n0,\"No error\"\n");
    EXPECT_EQ(To({ "ls" }).Out, QStringLiteral("2024-01-02 03:04:05  a?b\n"));
}

TEST_F(TarvikctlForeign, ListsByName)
{
    server.Answer("maker,model,1,2\n");
    server.Answer("1,2,\"b\",FILE,5,2024,1,2,3,4,5,\"C\",DIR,0,2024,1,2,3,4,5,\"A\",FILE,5,2024,1,2,3,4,5\n"
                  "0,\"No error\"\n");
    EXPECT_EQ(
        To({ "ls" }).Out, QStringLiteral("2024-01-02 03:04:05  A\n2024-01-02 03:04:05  b\n2024-01-02 03:04:05  C\\\n"));
}

TEST_F(TarvikctlForeign, OtherInstrumentIsNeverChanged)
{
    const QString other = QStringLiteral("10434: This instrument is not supported: Acme Box 7");
    const QString unknown = QStringLiteral("10433: The device is not a known instrument.");
    Store(QStringLiteral("Loop.tvk"), "table");
    Store(QStringLiteral("Air.tvm"), "list");
    Store(QStringLiteral("New.png"), "shot");
    for (const QStringList& change : { QStringList{ "put", "--yes", "kfactor", "Loop.tvk" },
             QStringList{ "put", "--yes", "memory", "Air.tvm" }, QStringList{ "put", "--yes", "screen", "New.png" },
             QStringList{ "rm", "correction", "Loop.tvc" }, QStringList{ "rm", "screen", "New.png" } }) {
        ExpectRefused("Acme,Box 7,1,2", change, other);
        ExpectRefused("SSH-2.0-server", change, unknown);
    }
}

TEST_F(TarvikctlForeign, IdnPrintsWhatItMet)
{
    ExpectRefused("Acme,Box 7,1,2", { "idn" }, QStringLiteral("10434: This instrument is not supported: Acme Box 7"));
    server.Answer("Acme,Box 7,1,2\n");
    EXPECT_EQ(To({ "idn" }).Out, QStringLiteral("Acme,Box 7,1,2\n"));
    server.Answer("TARVIK,TR-300,1,2\n");
    const CtlResult known = To({ "idn" });
    EXPECT_EQ(known.ExitCode, 0);
    EXPECT_EQ(known.Err, QString());
}

TEST_F(TarvikctlLink, SaysThatNameCannotBeSent)
{
    StartInstrument();
    for (const QString& name : { QString::fromUtf8("\u65E5\u672C.tvk"), QStringLiteral("a:b.tvk"),
             QStringLiteral("a\\b.tvk"), QStringLiteral("a\tb.tvk"), QString(250, u'x') + QStringLiteral("yz.tvk") }) {
        Store(name.left(240), "table");
        QString shown = name;
        shown.replace(u'\t', u'?');
        const QString start = shown + QStringLiteral(": 12721: \u201C") + shown
            + QStringLiteral("\u201D is not a valid name for this K-factor table. ");
        ExpectMessage(To({ "put", "kfactor", name }), start);
        ExpectMessage(To({ "get", "kfactor", name, "out.tvk" }), start);
        ExpectMessage(To({ "rm", "kfactor", name }), start);
    }
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("out.tvk"))));
}

/// A download that can be observed while it runs.
class RunningDownload : public TarvikctlLink {
protected:
    RunningDownload()
    {
        process.setChildProcessModifier(RestoreEndSignals);
    }

    /// Starts it and waits until it writes.
    void Start(qsizetype bytes)
    {
        StartInstrument({ "--rate", "20000" });
        StoreOnInstrument("Screen Shots/Long.png", QByteArray(bytes, 'x'));
        Restart();
    }

    void Restart()
    {
        before = FolderEntries();
        process.setWorkingDirectory(Path({}));
        process.start(QStringLiteral(TARVIKCTL), { "--to", to_, "get", "screen", "Long.png" });
        ASSERT_TRUE(process.waitForStarted());
        while (FolderEntries() == before)
            ASSERT_FALSE(process.waitForFinished(5)) << process.readAllStandardError().toStdString();
    }

    void Send(int signal)
    {
        ASSERT_EQ(::kill(static_cast<pid_t>(process.processId()), signal), 0);
        ASSERT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.readAllStandardError(), QByteArray());
    }

    QProcess process;
    QStringList before;
};

TEST_F(RunningDownload, InterruptedLeavesNothing)
{
    Start(1000000);
    for (const int signal : { SIGINT, SIGTERM, SIGHUP }) {
        if (process.state() == QProcess::NotRunning)
            Restart();
        Send(signal);
        EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(process.exitCode(), signal);
        EXPECT_EQ(FolderEntries(), before);
    }
}

TEST_F(RunningDownload, IgnoredSignalDoesNotStopIt)
{
    process.setChildProcessModifier([] { std::signal(SIGINT, SIG_IGN); });
    Start(20000);
    Send(SIGINT);
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(Bytes(QStringLiteral("Long.png")), QByteArray(20000, 'x'));
}

} // namespace tarvik
