// tarvikctl converting pictures: interrupted and killed.
#include "tests/tools/ctl_picture_fixture.h"

#include <QDir>
#include <QElapsedTimer>

#include <csignal>
#include <sys/types.h>

namespace tarvik {

TEST_F(CtlPicture, SignalCompletesCurrentFile)
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
    ASSERT_GT(id, 0) << "ended by itself"; // 0 would signal this process group
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

TEST_F(CtlPicture, KillLeavesOldOrNewFile)
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
            // the file is written at the end of the run
            const qint64 afterNs = QRandomGenerator::global()->bounded(wholeNs - wholeNs / 2) + wholeNs / 2;
            while (timer.nsecsElapsed() < afterNs && process.state() == QProcess::Running)
                process.waitForFinished(0);
            process.kill();
            process.waitForFinished();
            const bool exists = QFile::exists(Path(target));
            ASSERT_TRUE(exists || turn % 2 == 1);
            const QByteArray left = exists ? Bytes(target) : QByteArray("old");
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

} // namespace tarvik
