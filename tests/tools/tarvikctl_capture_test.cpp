// tarvikctl capturing the receiver's display.
#include "tests/tools/ctl_link_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <sys/types.h>

namespace tarvik {

TEST_F(TarvikctlLink, CapturesDisplay)
{
    StartInstrument();
    ExpectDone(To({ "capture", "out.png" }));
    EXPECT_EQ(PngSize("out.png"), QSize(642, 442));
    EXPECT_EQ(FolderEntries(), (QStringList{ QStringLiteral("instrument"), QStringLiteral("out.png") }));
}

TEST_F(TarvikctlLink, CapturesInFormatOfName)
{
    StartInstrument();
    ExpectDone(To({ "capture", "out.BMP" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.BMP")).startsWith("BM"));
    ExpectDone(To({ "capture", "out.pcx" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.pcx")).startsWith("\x0a\x05\x01\x08"));
    ExpectDone(To({ "capture", "out.wmf" }));
    EXPECT_TRUE(Bytes(QStringLiteral("out.wmf")).startsWith("\xd7\xcd\xc6\x9a"));
}

TEST_F(TarvikctlLink, CapturesInRequestedFormat)
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

TEST_F(TarvikctlLink, CapturesIntoRealParentOfLinkedFolder)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkpath("other/place"));
    ASSERT_TRUE(QFile::link(Path("other/place"), Path("here")));
    ExpectDone(To({ "capture", "here/../out.png" }));
    EXPECT_EQ(PngSize("other/out.png"), QSize(642, 442));
}

TEST_F(TarvikctlLink, CapturesIntoFolder)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--into", "shots", "out.png" }));
    EXPECT_EQ(PngSize("shots/out.png"), QSize(642, 442));
    ExpectDone(To({ "capture", "--into", "shots", "--to", "bmp", "elsewhere/next.png" }));
    EXPECT_TRUE(Bytes(QStringLiteral("shots/next.bmp")).startsWith("BM"));
    ExpectMessage(To({ "capture", "--into", "shots", "out.png" }), QStringLiteral("out.png: 12734?: "));
}

TEST_F(TarvikctlLink, CaptureCreatesOneLevelOfFoldersOnly)
{
    StartInstrument();
    ExpectMessage(To({ "capture", "--into", "none/shots", "out.png" }), QStringLiteral("out.png: 12752: "));
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("none"))));
}

TEST_F(TarvikctlLink, CaptureNeedsInstrumentInAdditionToFormat)
{
    StartInstrument();
    const CtlResult result = Ctl({ "capture", "--to", "bmp", "out" });
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("--to is missing"))) << result.Err.toStdString();
}

TEST_F(TarvikctlLink, CapturesWithDescription)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--description", "one line", "one.png" }));
    ExpectDone(To({ "capture", "--description", "two\nlines", "two.png" }));
    const int line = PngSize("two.png").height() - PngSize("one.png").height();
    EXPECT_GT(line, 0);
    EXPECT_EQ(PngSize("one.png"), QSize(642, 442 + line + 1));
}

TEST_F(TarvikctlLink, CaptureReportsMissingFolder)
{
    StartInstrument();
    ExpectMessage(To({ "capture", "none/out.pcx" }), QStringLiteral("none/out.pcx: 12757: "));
}

TEST_F(TarvikctlLink, CaptureRemovesItsTemporaryFiles)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("tmp")));
    SetEnvironment(QStringLiteral("TMPDIR"), Path(QStringLiteral("tmp")));
    ExpectDone(To({ "capture", "out.png" }));
    EXPECT_EQ(QDir(Path(QStringLiteral("tmp"))).entryList({ QStringLiteral("tarvikctl*") }), QStringList());
    Store(QStringLiteral("out.png"), "mine");
    SetEnvironment(QStringLiteral("TMPDIR"), Path(QStringLiteral("out.png")));
    const CtlResult result = To({ "capture", "--yes", "out.png" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.png: there is no place"))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}

TEST_F(TarvikctlLink, InterruptedCaptureWritesNothing)
{
    StartInstrument();
    ASSERT_TRUE(QDir(Path({})).mkdir(QStringLiteral("tmp")));
    const QDir temporary(Path(QStringLiteral("tmp")));
    const QStringList pattern{ QStringLiteral("tarvikctl*") };
    QProcess capture;
    SetEnvironment(QStringLiteral("TMPDIR"), temporary.path());
    capture.setProcessEnvironment(Environment());
    capture.setWorkingDirectory(Path({}));
    capture.start(QStringLiteral(TARVIKCTL), { "--to", to_, "capture", "out.png" });
    ASSERT_TRUE(capture.waitForStarted());
    while (temporary.entryList(pattern).isEmpty() && capture.state() == QProcess::Running)
        capture.waitForFinished(1);
    const auto id = static_cast<pid_t>(capture.processId());
    ASSERT_GT(id, 0) << "ended by itself";
    ASSERT_EQ(::kill(id, SIGINT), 0);
    ASSERT_TRUE(capture.waitForFinished(60000));
    EXPECT_EQ(capture.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(capture.exitCode(), 1);
    EXPECT_EQ(capture.readAllStandardError(), "out.png: stopped, nothing is written\n");
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("out.png"))));
    EXPECT_TRUE(temporary.entryList(pattern).isEmpty());
}

TEST_F(TarvikctlLink, CapturesInBlackAndWhite)
{
    StartInstrument();
    ExpectDone(To({ "capture", "--palette", "1", "out.png" }));
    EXPECT_TRUE(QImage(Path(QStringLiteral("out.png"))).isGrayscale());
    ExpectDone(To({ "capture", "--palette=0", "colour.png" }));
    EXPECT_FALSE(QImage(Path(QStringLiteral("colour.png"))).isGrayscale());
}

/// The parameter is the receiver's fault.
class TarvikctlCaptureFault : public TarvikctlLink, public testing::WithParamInterface<const char*> { };

TEST_P(TarvikctlCaptureFault, KeepsTarget)
{
    StartInstrument({ "--fault", GetParam() });
    Store(QStringLiteral("out.png"), "mine");
    const CtlResult result = To({ "capture", "--yes", "out.png" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.png: 12703: "))) << result.Err.toStdString();
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}
INSTANTIATE_TEST_SUITE_P(Tarvikctl, TarvikctlCaptureFault, testing::Values("cut=2", "refuse=1"));

TEST_F(TarvikctlLink, CaptureAcceptsPictureNamesOnly)
{
    StartInstrument();
    const CtlResult result = To({ "capture", "out.txt" });
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("out.txt: "))) << result.Err.toStdString();
}

TEST_F(TarvikctlLink, CaptureAsksBeforeReplacingLocalFile)
{
    StartInstrument();
    Store(QStringLiteral("out.png"), "mine");
    ExpectMessage(To({ "capture", "out.png" }), QStringLiteral("out.png: 12734?: "));
    EXPECT_EQ(Bytes(QStringLiteral("out.png")), "mine");
}

} // namespace tarvik
