// Saving is atomic, whatever fails and whatever other processes do.
#include "closed/files/files.h"
#include "tests/closed/failingfilesystem.h"
#include "tests/closed/samples.h"
#include "tests/closed/storefixture.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#if defined(__linux__)
#include <sys/syscall.h>
#endif

using tvfile::FailingFileSystem;
using tvfile::TemporaryPath;

#if defined(__linux__)

namespace {

std::vector<std::filesystem::path> flushed; // NOLINT: of a plain function

} // namespace

/// In the place of the system's.
extern "C" int fsync(int file)
{
    flushed.push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file)));
    return static_cast<int>(::syscall(SYS_fsync, file));
}

#endif

namespace {

class Saving : public StoreTest {
protected:
    Saving()
    {
        FillSample(MemoryList::Current());
    }

    FioStatus Save(const std::string& path)
    {
        return Call(fio.MemoryListSaveFile, path.c_str());
    }

    FioStatus Load(const std::string& path)
    {
        return Call(fio.MemoryListLoadFile, path.c_str());
    }

    static mode_t Mode(const std::string& path)
    {
        struct stat status { };
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    static bool IsLink(const std::string& path)
    {
        return std::filesystem::is_symlink(path);
    }

    /// The temporary file of `path` that a killed save leaves.
    static std::string Leftover(const std::string& path)
    {
        return TemporaryPath(path);
    }

    const FileBytes sample = SampleFile<MemoryList>();
    const FileBytes old = { 'o', 'l', 'd' };
};

using Text = std::string;
using Names = std::vector<std::string>;

} // namespace

TEST_F(Saving, WritesAllBytesToGivenNameOnly)
{
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(Contents(Path("list")), sample);
    EXPECT_EQ(FolderNames(), (Names{ "list" }));
}

TEST_F(Saving, ReplacesAnOlderFile)
{
    Store(Path("list"), old);
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(Contents(Path("list")), sample);
    EXPECT_EQ(FolderNames(), (Names{ "list" }));
}

TEST_F(Saving, EachFailedStepHasItsStatus)
{
    const auto failed = [this](const std::function<void(FailingFileSystem&)>& arrange) {
        FailingFileSystem disk;
        arrange(disk);
        return Save(Path("list"));
    };
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.DescribeError = EACCES; }), FioStatus::FileCreate);
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.DescribeError = EILSEQ; }), FioStatus::PathNotText);
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.CreateError = EROFS; }), FioStatus::FileCreate);
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.CreateError = EBUSY; }), FioStatus::FileBusy);
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.BytesLeft = 5; }), FioStatus::FileWrite);
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.FlushError = EIO; }), FioStatus::FileWrite);
    EXPECT_EQ(failed([](FailingFileSystem& disk) { disk.ReplaceError = EACCES; }), FioStatus::FileReplace);
}

TEST_F(Saving, FailedSaveKeepsTheCurrentList)
{
    FailingFileSystem disk;
    disk.BytesLeft = 5;
    EXPECT_EQ(Save(Path("list")), FioStatus::FileWrite);
    EXPECT_EQ(MemoryList::Current().Encode(), sample);
}

TEST_F(Saving, EveryFamilySavesAtomically)
{
    FailingFileSystem disk;
    disk.BytesLeft = 0;
    const std::string path = Path("list");
    EXPECT_EQ(Call(fio.AntennaListSaveFile, path.c_str()), FioStatus::FileWrite);
    EXPECT_EQ(Call(fio.KfactorTableSaveFile, path.c_str()), FioStatus::FileWrite);
    EXPECT_EQ(Call(fio.SuppressListSaveFile, path.c_str()), FioStatus::FileWrite);
    EXPECT_EQ(fio.AntCorrSaveFile(path.c_str()), static_cast<int16_t>(FioStatus::FileWrite));
    EXPECT_TRUE(FolderNames().empty());
}

// Leftovers of killed saves, and other processes.

TEST_F(Saving, RemovesWriteProtectedLeftover)
{
    Store(Leftover(Path("list")), old);
    ASSERT_EQ(::chmod(Leftover(Path("list")).c_str(), 0), 0);
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(FolderNames(), (Names{ "list" }));
}

TEST_F(Saving, DoesNotFollowLinkAtTemporaryPath)
{
    Store(Path("victim"), old);
    ASSERT_EQ(::symlink(Path("victim").c_str(), Leftover(Path("list")).c_str()), 0);
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(Contents(Path("victim")), old);
    EXPECT_EQ(FolderNames(), (Names{ "list", "victim" }));
}

TEST_F(Saving, GivesUpIfOtherProcessNeverEnds)
{
    const std::string busy = Leftover(Path("list"));
    Store(busy, old);
    const int other = ::open(busy.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    FailingFileSystem disk;
    EXPECT_EQ(Save(Path("list")), FioStatus::FileBusy);
    ::close(other);
    EXPECT_EQ(Contents(busy), old);
}

TEST_F(Saving, SecondWriterIsKeptOutUntilTheFirstHasEnded)
{
    const std::string path = Path("list");
    FailingFileSystem disk;
    disk.AtFlush = [&] {
        disk.AtFlush = nullptr;
        tvfile::NewFile second;
        EXPECT_EQ(second.Begin(path).Step, tvfile::ReplaceStep::Busy);
    };
    EXPECT_EQ(Save(path), FioStatus::Ok);
    EXPECT_EQ(Contents(path), sample);
    tvfile::NewFile third;
    EXPECT_TRUE(third.Begin(path).Ok());
}

TEST_F(Saving, ConcurrentSavesLeaveOneWholeFile)
{
    constexpr int kSaves = 60;
    const FileBytes other = EmptyFile<MemoryList>();
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    const pid_t child = ::fork();
    if (child == 0) {
        MemoryList::Current().Clear();
        for (int i = 0; i < kSaves; ++i) {
            if (Save(Path("list")) != FioStatus::Ok)
                ::_exit(1);
        }
        ::_exit(0);
    }
    for (int i = 0; i < kSaves; ++i) {
        ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
        const FileBytes found = Contents(Path("list"));
        ASSERT_TRUE(found == sample || found == other);
    }
    int result = 0;
    ASSERT_EQ(::waitpid(child, &result, 0), child);
    EXPECT_EQ(WEXITSTATUS(result), 0);
    EXPECT_EQ(FolderNames(), (Names{ "list" }));
}

// Targets.

TEST_F(Saving, KeepsPermissionsOfOldFile)
{
    Store(Path("list"), old);
    ASSERT_EQ(::chmod(Path("list").c_str(), 0640), 0);
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(Mode(Path("list")), 0640U);
}

TEST_F(Saving, NewFileHonoursUmask)
{
    const mode_t before = ::umask(027);
    EXPECT_EQ(Save(Path("list")), FioStatus::Ok);
    ::umask(before);
    EXPECT_EQ(Mode(Path("list")), 0640U);
}

TEST_F(Saving, SavesToTargetOfLink)
{
    Store(Path("real"), old);
    ASSERT_EQ(::symlink("real", Path("list").c_str()), 0);
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(Contents(Path("real")), sample);
    EXPECT_TRUE(IsLink(Path("list")));
}

TEST_F(Saving, CreatesTargetOfDanglingLinks)
{
    ASSERT_EQ(::mkdir(Path("other").c_str(), 0700), 0);
    ASSERT_EQ(::symlink("other/next", Path("list").c_str()), 0);
    ASSERT_EQ(::symlink("../real", Path("other/next").c_str()), 0);
    EXPECT_EQ(Save(Path("list")), FioStatus::Ok);
    EXPECT_EQ(Contents(Path("real")), sample);
    EXPECT_TRUE(IsLink(Path("list")));
    EXPECT_TRUE(IsLink(Path("other/next")));
}

TEST_F(Saving, RefusesLinkIntoMissingFolder)
{
    ASSERT_EQ(::symlink("gone/list", Path("list").c_str()), 0);
    EXPECT_EQ(Save(Path("list")), FioStatus::FileCreate);
    EXPECT_EQ(
        GetText(fio.GetExceptionStringTV), "No file can be made in this folder. There is no such file or folder.");
    EXPECT_TRUE(IsLink(Path("list")));
}

TEST_F(Saving, RefusesCircleOfLinks)
{
    ASSERT_EQ(::symlink("other", Path("list").c_str()), 0);
    ASSERT_EQ(::symlink("list", Path("other").c_str()), 0);
    EXPECT_EQ(Save(Path("list")), FioStatus::FileCreate);
    EXPECT_EQ(GetText(fio.GetExceptionStringTV), "No file can be made in this folder. Its links form a circle.");
    EXPECT_TRUE(IsLink(Path("list")));
}

TEST_F(Saving, RefusesWriteProtectedFile)
{
    Store(Path("list"), old);
    ASSERT_EQ(::chmod(Path("list").c_str(), 0444), 0);
    EXPECT_EQ(Save(Path("list")), FioStatus::FileReadOnly);
    EXPECT_EQ(Contents(Path("list")), old);
}

TEST_F(Saving, RefusesFolderAndSpecialFile)
{
    EXPECT_EQ(Save(Path("")), FioStatus::PathIsFolder);
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Save(Path("pipe")), FioStatus::FileReplace);
    EXPECT_EQ(GetText(fio.GetExceptionStringTV),
        "The old file cannot be replaced; it is unchanged. It is not an ordinary file.");
}

TEST_F(Saving, RefusesMissingFolder)
{
    EXPECT_EQ(Save(Path("nowhere/list")), FioStatus::FileCreate);
    EXPECT_EQ(
        GetText(fio.GetExceptionStringTV), "No file can be made in this folder. There is no such file or folder.");
}

TEST_F(Saving, RefusesEmptyOrMissingPath)
{
    EXPECT_EQ(Save(""), FioStatus::PathEmpty);
    EXPECT_EQ(Call(fio.MemoryListSaveFile, nullptr), FioStatus::MissingArgument);
    EXPECT_EQ(Load(""), FioStatus::PathEmpty);
    EXPECT_EQ(Call(fio.MemoryListLoadFile, nullptr), FioStatus::MissingArgument);
}

TEST_F(Saving, AcceptsNamesOfEveryScript)
{
    const Text name = "\xD0\x9F\xD0\xBB\xD0\xB0\xD0\xBD \xCE\xB1\xCE\xB2 \xE5\x91\xA8\xE6\xB3\xA2.tvm";
    ASSERT_EQ(Save(Path(name)), FioStatus::Ok);
    EXPECT_TRUE(QFile::exists(QString::fromUtf8(Path(name).c_str())));
    EXPECT_EQ(Load(Path(name)), FioStatus::Ok);
}

TEST_F(Saving, AcceptsLongestNameOfTheSystem)
{
    Text name;
    while (name.size() < 254)
        name += "\xC3\xA9";
    name += "x";
    ASSERT_EQ(Save(Path(name)), FioStatus::Ok);
    EXPECT_EQ(FolderNames(), (Names{ name }));
}

TEST_F(Saving, AcceptsNameWithoutFolder)
{
    const Text before = std::filesystem::current_path().string();
    ASSERT_EQ(::chdir(Path("").c_str()), 0);
    EXPECT_EQ(Save("list"), FioStatus::Ok);
    EXPECT_EQ(Save("list"), FioStatus::Ok);
    ASSERT_EQ(::chdir(before.c_str()), 0);
    EXPECT_EQ(FolderNames(), (Names{ "list" }));
}

TEST_F(Saving, RefusesPathThatTheSystemWouldCutShort)
{
    EXPECT_EQ(tvfile::ReplaceWholeFile(Path("list") + '\0' + "x", sample).Step, tvfile::ReplaceStep::Describe);
    EXPECT_EQ(tvfile::ReplaceWholeFile("", sample).Step, tvfile::ReplaceStep::Describe);
    EXPECT_TRUE(FolderNames().empty());
}

TEST_F(Saving, TemporaryNameDependsOnTargetOnly)
{
    EXPECT_EQ(TemporaryPath("/a/b.tvm"), "/a/.b.tvm.tvnew");
    EXPECT_EQ(TemporaryPath("b.tvm"), ".b.tvm.tvnew");
    EXPECT_EQ(TemporaryPath("/a/" + Text(255, 'x')), "/a/." + Text(200, 'x') + ".tvnew");
}

// Reading.

TEST_F(Saving, LoadRefusesFolder)
{
    EXPECT_EQ(Load(Path("")), FioStatus::PathIsFolder);
}

TEST_F(Saving, LoadOfPipeReturnsAtOnce)
{
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Load(Path("pipe")), FioStatus::FileOpen);
}

TEST_F(Saving, LoadRefusesEmptyFile)
{
    Store(Path("list"), {});
    EXPECT_EQ(Load(Path("list")), FioStatus::FileTruncated);
}

TEST_F(Saving, LoadRefusesHugeFileUnread)
{
    Store(Path("list"), sample);
    ASSERT_EQ(::truncate(Path("list").c_str(), off_t{ 1 } << 40), 0);
    EXPECT_EQ(Load(Path("list")), FioStatus::FileTooLarge);
}

TEST_F(Saving, LoadedListSurvivesRemovalOfItsFile)
{
    ASSERT_EQ(Save(Path("list")), FioStatus::Ok);
    ASSERT_EQ(Load(Path("list")), FioStatus::Ok);
    ASSERT_EQ(::unlink(Path("list").c_str()), 0);
    EXPECT_EQ(MemoryList::Current().Encode(), sample);
}

#if defined(__linux__)

TEST_F(Saving, FlushesTheNewFileThenItsFolder)
{
    const std::string path = std::filesystem::canonical(Path(".")) / "a.tvm";
    flushed.clear();
    ASSERT_EQ(Save(path), FioStatus::Ok);
    const std::vector<std::filesystem::path> expected{ TemporaryPath(path), std::filesystem::path(path).parent_path() };
    EXPECT_EQ(flushed, expected);
}

TEST_F(Saving, FlushesTheCurrentFolderForABareName)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Path("."));
    flushed.clear();
    EXPECT_EQ(Save("a.tvm"), FioStatus::Ok);
    const std::filesystem::path folder = std::filesystem::current_path();
    std::filesystem::current_path(before);
    const std::vector<std::filesystem::path> expected{ folder / TemporaryPath("a.tvm"), folder };
    EXPECT_EQ(flushed, expected);
}

#endif
