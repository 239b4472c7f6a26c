#include "tests/closed/scpifixture.h"

#include <QDir>
#include <QFile>

using namespace tvscpi;

std::string Block(const std::string& bytes)
{
    const std::string digits = std::to_string(bytes.size());
    return '#' + std::to_string(digits.size()) + digits + bytes;
}

ScpiTest::ScpiTest()
{
    scpi.Size = sizeof scpi;
    EXPECT_EQ(TvScpiBind(&scpi), 0);
    EXPECT_TRUE(folder_.isValid());
}

ScpiTest::~ScpiTest()
{
    scpi.scpiDisconnect();
    TheChannel().DefaultTimeoutMs = TVSCPI_DEFAULT_TIMEOUT_MS;
}

std::string ScpiTest::Path(const std::string& name) const
{
    return folder_.filePath(QString::fromStdString(name)).toStdString();
}

std::string ScpiTest::Contents(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "<no such file>";
}

void ScpiTest::Store(const std::string& path, const std::string& bytes)
{
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(QByteArray::fromStdString(bytes)), static_cast<qint64>(bytes.size()));
}

std::vector<std::string> ScpiTest::FolderNames() const
{
    std::vector<std::string> names;
    const QStringList entries =
        QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : entries)
        names.push_back(name.toStdString());
    return names;
}

ScriptedScpiTest::ScriptedScpiTest()
{
    Connect();
}

void ScriptedScpiTest::Connect()
{
    script = {};
    Answer(std::string(kIdentification) + '\n');
    std::string identification;
    EXPECT_EQ(TheChannel().Attach(std::make_unique<ScriptedWire>(script), Deadline(1000), identification), Status::Ok);
    EXPECT_EQ(identification, kIdentification);
    EXPECT_EQ(TakeSent(), "*IDN?\n");
}
