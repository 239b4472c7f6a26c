// Writes the seed files for the list store's fuzz targets, through the store itself.
#include "closed/tvfio/fileaccess.h"
#include "tests/closed/samples.h"

#include <cstdio>
#include <filesystem>

namespace tarvik {

using namespace tvfio;

namespace {

bool Save(const std::filesystem::path& path, const Bytes& bytes)
{
    std::filesystem::create_directories(path.parent_path());
    if (SaveFileBytes(path.string().c_str(), bytes) == FioStatus::Ok)
        return true;
    (void)std::fprintf(stderr, "%s: %s\n", path.string().c_str(), LastExceptionText());
    return false;
}

/// The sample with a section and a field of a later version added.
Bytes LaterVersion(Bytes file)
{
    const Bytes later{ 0x34, 0x12, 3, 0, 0, 0, 'n', 'e', 'w' };
    file.insert(file.end(), later.begin(), later.end());
    RepairHeader(file);
    return file;
}

template <typename List>
bool SaveFamily(const std::filesystem::path& folder)
{
    const Bytes sample = SampleFile<List>();
    return Save(folder / "empty", EmptyFile<List>()) && Save(folder / "sample", sample)
        && Save(folder / "later", LaterVersion(sample));
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
    const bool saved = SaveFamily<AntennaList>(folder / "antenna") && SaveFamily<KfactorTable>(folder / "kfactor")
        && SaveFamily<MemoryList>(folder / "memory") && SaveFamily<SuppressList>(folder / "suppress")
        && SaveFamily<CorrectionSet>(folder / "correction");
    return saved ? 0 : 1;
}
