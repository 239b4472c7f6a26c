// tests/tools/ctl_link_fixture.h: tarvikctl with the simulated receiver as a separate process on a port chosen by the
// system.
#pragma once

#include "tests/tools/ctl.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>

namespace tarvik {

inline const QString kFamilyRoot = QStringLiteral("instrument/Public/");

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
        instrument_.setProcessEnvironment(Environment());
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

    void SetChanged(const char* name, const QDateTime& changed) const
    {
        QFile file(Path(kFamilyRoot + QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(changed, QFileDevice::FileModificationTime));
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

    /// The command failed with a single message that starts with `start`, and printed nothing else.
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

} // namespace tarvik
