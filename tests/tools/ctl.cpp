#include "tests/tools/ctl.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>

namespace tarvik {

namespace {

constexpr int kRows = 1024;

QByteArray CsvLine(bool used, int row, const CsvRow& entry)
{
    return QByteArray(used ? "Used" : "Free") + ',' + QByteArray::number(row) + ',' + QByteArray::number(entry.Number)
        + ',' + entry.Status + ',' + QByteArray::number(entry.FrequencyHz) + ",FM,12 kHz,10,On,1,Off,Off,"
        + entry.Description + ",On,10,0.2,100 kHz,1.25 kHz,12.5 kHz\r\n";
}

} // namespace

CtlResult CtlTest::Ctl(const QStringList& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(folder_.path());
    process.setProcessEnvironment(environment_);
    process.start(QStringLiteral(TARVIKCTL), arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    const bool ended = process.exitStatus() == QProcess::NormalExit;
    EXPECT_TRUE(ended) << "crashed: " << arguments.join(u' ').toStdString();
    return { ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError()) };
}

QJsonObject CtlTest::Json(const QString& file, bool all) const
{
    QStringList arguments{ QStringLiteral("show"), QStringLiteral("--json"), file };
    if (all)
        arguments.insert(1, QStringLiteral("--all"));
    const CtlResult result = Ctl(arguments);
    EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(result.Out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    return document.object();
}

QStringList CtlTest::FolderEntries() const
{
    return QDir(folder_.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

QByteArray CtlTest::Bytes(const QString& name) const
{
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

void CtlTest::Store(const QString& name, const QByteArray& bytes) const
{
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray MemoryCsv(const QByteArray& name, const QList<CsvRow>& rows)
{
    QByteArray text = "Memory List," + name + "\r\nDescription,Made by a test\r\n";
    for (int row = 0; row < kRows; ++row) {
        const bool used = row < rows.size();
        CsvRow unused;
        unused.Number = row;
        text += CsvLine(used, row, used ? rows[row] : unused);
    }
    return text;
}

} // namespace tarvik
