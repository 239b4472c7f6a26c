#include "tests/closed/storefixture.h"

#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/memorylist.h"
#include "closed/tvfio/suppresslist.h"

#include <QDir>
#include <QFile>

void ClearStore()
{
    AntennaList::Current().Clear();
    KfactorTable::Current().Clear();
    MemoryList::Current().Clear();
    SuppressList::Current().Clear();
    CorrectionSet::Current().Clear();
}

StoreTest::StoreTest()
{
    fio.Size = sizeof fio;
    EXPECT_EQ(TvFioBind(&fio), 0);
    ClearStore();
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

std::vector<std::string> StoreTest::FolderNames() const
{
    std::vector<std::string> names;
    const QDir folder(folder_.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name))
        names.push_back(name.toStdString());
    return names;
}
