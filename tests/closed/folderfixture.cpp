#include "tests/closed/folderfixture.h"

#include <QDir>
#include <QFile>

std::string FolderTest::Path(const std::string& name) const
{
    return folder_.path().toStdString() + "/" + name;
}

FileBytes FolderTest::Contents(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    const QByteArray bytes = file.readAll();
    return { bytes.begin(), bytes.end() };
}

void FolderTest::Store(const std::string& path, const FileBytes& bytes)
{
    QFile file(QString::fromStdString(path));
    (void)file.remove(); // truncation makes some file systems flush at once
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path;
    const auto size = static_cast<qint64>(bytes.size());
    ASSERT_EQ(file.write(reinterpret_cast<const char*>(bytes.data()), size), size);
}

std::vector<std::string> FolderTest::FolderNames() const
{
    std::vector<std::string> names;
    const QDir folder(folder_.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name))
        names.push_back(name.toStdString());
    return names;
}
