// tests/tools/ctl_picture_fixture.h: pictures for tarvikctl.
#pragma once

#include "tests/tools/ctl.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>

namespace tarvik {

class CtlPicture : public CtlTest {
protected:
    /// Stores a picture with a red left and a white right half.
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

    /// Runs a shell command in the test's folder; "$CTL" is the program.
    CtlResult Shell(const QString& line) const
    {
        QProcess shell;
        shell.setWorkingDirectory(Path({}));
        QProcessEnvironment environment = Environment();
        environment.insert("CTL", TARVIKCTL);
        shell.setProcessEnvironment(environment);
        shell.start("bash", { "-c", line });
        EXPECT_TRUE(shell.waitForFinished(60000)) << shell.errorString().toStdString();
        return { shell.exitCode(), QString::fromUtf8(shell.readAllStandardOutput()),
            QString::fromUtf8(shell.readAllStandardError()) };
    }

    /// Stores a picture that compresses badly, so that writing it takes time.
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

/// Exit code 1 and a single line that starts with `start`.
inline void ExpectRefused(const CtlResult& result, const QString& start)
{
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith(start)) << result.Err.toStdString();
    EXPECT_EQ(result.Err.count('\n'), 1) << result.Err.toStdString();
    EXPECT_EQ(result.Out, "");
}

inline void ExpectDone(const CtlResult& result)
{
    EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
    EXPECT_EQ(result.Err, "");
    EXPECT_EQ(result.Out, "");
}

} // namespace tarvik
