#include "tests/closed/storefixture.h"

#include <QDir>
#include <QFile>

StoreTest::StoreTest()
{
    fio.Size = sizeof fio;
    EXPECT_EQ(TvFioBind(&fio), 0);
    EXPECT_EQ(Call(fio.MemoryListClear), FioStatus::Ok);
}

std::string StoreTest::Path(const std::string& name) const
{
    return folder_.path().toStdString() + "/" + name;
}

FileBytes StoreTest::Contents(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    const QByteArray bytes = file.readAll();
    return { bytes.begin(), bytes.end() };
}

void StoreTest::Store(const std::string& path, const FileBytes& bytes)
{
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path;
    const auto size = static_cast<qint64>(bytes.size());
    ASSERT_EQ(file.write(reinterpret_cast<const char*>(bytes.data()), size), size);
}

std::vector<std::string> StoreTest::Names() const
{
    std::vector<std::string> names;
    const QDir folder(folder_.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name))
        names.push_back(name.toStdString());
    return names;
}
