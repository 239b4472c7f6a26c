// tarvikctl with an instrument.
#include "tests/closed/scpiserver.h"
#include "tests/tools/ctl_link_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace tarvik {

namespace {

/// An instrument with prepared answers.
class TarvikctlForeign : public CtlTest {
protected:
    CtlResult To(const QStringList& arguments) const
    {
        const auto port = static_cast<quint16>(server.Port());
        return Ctl(QStringList{ QStringLiteral("--to"), QStringLiteral("127.0.0.1:%1").arg(port) } + arguments);
    }

    ScpiServer server;
};

const QDateTime kChanged(QDate(2024, 2, 29), QTime(23, 59, 58));

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

} // namespace tarvik
