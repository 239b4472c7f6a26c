// Writes the seed files for the fuzz targets of lists, through the list store and the program's own writers.
#include "closed/tvfio/fileaccess.h"
#include "lists/editor/editorGeneral.h"
#include "tests/closed/samples.h"
#include "tests/fuzz/listFiles.h"
#include "tools/tarvikctl/listFile.h"

#include <cstdio>
#include <filesystem>

namespace tarvik {

using tvfio::Bytes;
using tvfio::FioStatus;

namespace {

bool Save(const std::filesystem::path& path, const Bytes& bytes)
{
    std::filesystem::create_directories(path.parent_path());
    if (tvfio::SaveFileBytes(path.string().c_str(), bytes) == FioStatus::Ok)
        return true;
    (void)std::fprintf(stderr, "%s: %s\n", path.string().c_str(), tvfio::LastExceptionText());
    return false;
}

bool Save(const std::filesystem::path& path, const QByteArray& text)
{
    return Save(path, Bytes(text.begin(), text.end()));
}

/// The sample with a section and a field of a later version added.
Bytes LaterVersion(Bytes file)
{
    const Bytes later{ 0x34, 0x12, 3, 0, 0, 0, 'n', 'e', 'w' };
    file.insert(file.end(), later.begin(), later.end());
    tvfio::RepairHeader(file);
    return file;
}

template <typename List>
bool SaveFamily(const std::filesystem::path& folder)
{
    const Bytes sample = tvfio::SampleFile<List>();
    return Save(folder / "empty", tvfio::EmptyFile<List>()) && Save(folder / "sample", sample)
        && Save(folder / "later", LaterVersion(sample));
}

/// The sample of a family, and an empty list, as JSON.
bool SaveJson(FileClass listType, const std::filesystem::path& folder, const Bytes& sample)
{
    FuzzStart(listType);
    const MemoryDisk disk(sample);
    const std::unique_ptr<ListFile> list = NewListFile(listType);
    const std::string word = FamilyWord(listType).toStdString();
    const QByteArray empty = list->Json(false).toUtf8();
    if (!list->Read(QString::fromLatin1(kExistingFile), false))
        return false;
    const QByteArray text = list->Json(false).toUtf8();
    tvfile::SetFileSystem(nullptr);
    return Save(folder / (word + "_empty"), empty) && Save(folder / word, text);
}

template <typename Family>
bool SaveCsv(const std::filesystem::path& folder, const Bytes& sample)
{
    FuzzStart(Family::kClass);
    const MemoryDisk disk(sample);
    typename Family::Table table;
    if (!Family::Read(QString::fromLatin1(kExistingFile), table))
        return false;
    const QByteArray text = Family::Csv(table);
    tvfile::SetFileSystem(nullptr);
    return Save(folder / "sample", text) && Save(folder / "semicolons", QByteArray(text).replace(',', ';'));
}

bool SaveTexts(const std::filesystem::path& folder)
{
    using namespace tvfio;
    const Bytes antenna = SampleFile<AntennaList>();
    const Bytes kfactor = SampleFile<tvfio::KfactorTable>();
    const Bytes suppress = SampleFile<SuppressList>();
    return SaveCsv<AntennaFiles>(folder / "csvantenna", antenna)
        && SaveCsv<KfactorFiles>(folder / "csvkfactor", kfactor)
        && SaveCsv<SuppressFiles>(folder / "csvsuppress", suppress)
        && SaveJson(FileClassAntennaList, folder / "json", antenna)
        && SaveJson(FileClassKfactorTable, folder / "json", kfactor)
        && SaveJson(FileClassSuppressList, folder / "json", suppress)
        && SaveJson(FileClassMemoryList, folder / "json", SampleFile<MemoryList>())
        && SaveJson(FileClassCorrectionSet, folder / "json", SampleFile<CorrectionSet>());
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    if (argc != 2) {
        (void)std::fprintf(stderr, "usage: make_corpus FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const bool saved = SaveFamily<tvfio::AntennaList>(folder / "antenna")
        && SaveFamily<tvfio::KfactorTable>(folder / "kfactor") && SaveFamily<tvfio::MemoryList>(folder / "memory")
        && SaveFamily<tvfio::SuppressList>(folder / "suppress")
        && SaveFamily<tvfio::CorrectionSet>(folder / "correction") && SaveTexts(folder);
    return saved ? 0 : 1;
}
