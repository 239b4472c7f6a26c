// The commands on files and folders.
#include "tests/tools/instrument/deskInstrument.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvik {

namespace {

constexpr const char* kMemory = "Public/Memory List/";
constexpr const char* kKfactor = "Public/K-Factor Table/";

} // namespace

class InstrumentFiles : public testing::Test {
protected:
    std::string Say(std::string_view bytes)
    {
        return desk_.Say(bytes);
    }

    /// Expects that a line is refused with an error and no answer.
    void ExpectRefused(const std::string& line, const char* error)
    {
        EXPECT_EQ(Say(line + '\n'), "") << line;
        EXPECT_EQ(desk_.Error(), error) << line;
    }

    DeskInstrument desk_;
};

TEST_F(InstrumentFiles, StartsAtRoot)
{
    EXPECT_EQ(Say("MMEM:CDIR?\n"), "\"\\\"\n");
}

TEST_F(InstrumentFiles, FollowsAbsoluteAndRelativePaths)
{
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\\Memory List\";CDIR?\n"), "\"\\Public\\Memory List\"\n");
    EXPECT_EQ(Say("MMEM:CDIR \"..\\Screen Shots\\\";CDIR?\n"), "\"\\Public\\Screen Shots\"\n");
    EXPECT_EQ(Say("MMEM:CDIR \".\";CDIR?\n"), "\"\\Public\\Screen Shots\"\n");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, NeverLeavesRoot)
{
    EXPECT_EQ(Say("MMEM:CDIR \"..\\..\\..\";CDIR?\n"), "\"\\\"\n");
    EXPECT_EQ(Say("MMEM:CDIR \"\\..\\Public\\..\\..\\Public\";CDIR?\n"), "\"\\Public\"\n");
    ExpectRefused("MMEM:CDIR \"../..\"", "-257");
    ExpectRefused("MMEM:CDIR \"\\Public/../..\"", "-257");
    EXPECT_EQ(Say("MMEM:CDIR?\n"), "\"\\Public\"\n");
}

TEST_F(InstrumentFiles, NamesCannotEscape)
{
    for (const char* name : { "", ".", "..", "..\\x", "a\\b", "/etc/passwd", "../x", "a\x01", "\x7F", "\x81" }) {
        const std::string quoted = '"' + std::string(name) + '"';
        ExpectRefused("MMEM:DATA ALL," + quoted + ",#11x", "-257");
        ExpectRefused("MMEM:MDIR " + quoted, "-257");
        ExpectRefused("MMEM:RDIR " + quoted, "-257");
        ExpectRefused("MMEM:DEL ALL," + quoted, "-257");
        ExpectRefused("MMEM:EXIS? ALL," + quoted, "-257");
        ExpectRefused("MMEM:MOVE \"Public\"," + quoted, "-258");
        ExpectRefused("SYST:SET:LOCK " + quoted, "-257");
        EXPECT_EQ(Say("MMEM:DATA? ALL," + quoted + '\n'), "#10\n");
        EXPECT_EQ(desk_.Error(), "-257");
    }
}

TEST_F(InstrumentFiles, PrivateFolderIsInvisible)
{
    EXPECT_EQ(Say("MMEM:CAT? ALL\n").find(".instrument"), std::string::npos);
    ExpectRefused("MMEM:CDIR \"\\.instrument\"", "-257");
    ExpectRefused("MMEM:DEL ALL,\".instrument\"", "-257");
    ExpectRefused("MMEM:DATA ALL,\".instrument\",#11x", "-257");
    ExpectRefused("MMEM:EXIS? ALL,\".instrument\"", "-257");
}

TEST_F(InstrumentFiles, LinksAreInvisible)
{
    ASSERT_EQ(::symlink("/etc", desk_.Path("Public/out").c_str()), 0);
    ASSERT_EQ(::symlink("/etc/hostname", desk_.Path("Public/host").c_str()), 0);
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\";EXIS? ALL,\"out\";EXIS? ALL,\"host\"\n"), "0\n0\n");
    ExpectRefused("MMEM:CDIR \"out\"", "-256");
    EXPECT_EQ(Say("MMEM:DATA? ALL,\"host\"\n"), "#10\n");
    EXPECT_EQ(desk_.Error(), "-256");
    ExpectRefused("MMEM:DATA ALL,\"host\",#11x", "-257");
    ExpectRefused("MMEM:MDIR \"out\"", "-257");
    EXPECT_EQ(Say("MMEM:CAT? ALL\n").find("host"), std::string::npos);
}

TEST_F(InstrumentFiles, CreatesAndRemovesFolders)
{
    EXPECT_EQ(Say("MMEM:MDIR \"New\";EXIS? ALL,\"New\"\n"), "1,DIR\n");
    ExpectRefused("MMEM:MDIR \"New\"", "-257");
    EXPECT_EQ(Say("MMEM:CDIR \"New\";MDIR \"In\";CDIR \"..\"\n"), "");
    ExpectRefused("MMEM:RDIR \"New\"", "-250");
    EXPECT_EQ(Say("MMEM:CDIR \"New\";RDIR \"In\";CDIR \"..\";RDIR \"New\";EXIS? ALL,\"New\"\n"), "0\n");
    ExpectRefused("MMEM:RDIR \"New\"", "-256");
    desk_.Put("file", "x");
    ExpectRefused("MMEM:RDIR \"file\"", "-256");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, LimitsFolderDepth)
{
    for (size_t i = 0; i < kMaxPathFolders; ++i)
        EXPECT_EQ(Say("MMEM:MDIR \"d\";CDIR \"d\"\n"), "");
    EXPECT_EQ(desk_.Error(), "0");
    ExpectRefused("MMEM:MDIR \"d\"", "-257");
}

TEST_F(InstrumentFiles, LimitsPathLength)
{
    const std::string name(240, 'n');
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Say("MMEM:MDIR \"" + name + "\";CDIR \"" + name + "\"\n"), "");
    EXPECT_EQ(desk_.Error(), "0");
    ExpectRefused("MMEM:MDIR \"" + name + "\"", "-257");
    ExpectRefused("MMEM:DATA ALL,\"" + std::string(300, 'n') + "\",#11x", "-257");
}

TEST_F(InstrumentFiles, WorkingFoldersCannotBeRemoved)
{
    ExpectRefused("MMEM:RDIR \"Public\"", "-258");
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\"\n"), "");
    ExpectRefused("MMEM:RDIR \"Memory List\"", "-258");
    ExpectRefused("MMEM:MOVE \"Screen Shots\",\"Pictures\"", "-258");
}

TEST_F(InstrumentFiles, ListsNameKindSizeAndStamp)
{
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\\Screen Shots\";MDIR \"Sub\";DATA ALL,\"a.png\",#15hello\n"), "");
    EXPECT_EQ(Say("MMEM:FILE:DATE \"a.png\",2025,3,7;TIME \"a.png\",4,5,6\n"), "");
    const std::string answer = Say("MMEM:CAT? ALL\n");
    EXPECT_TRUE(answer.starts_with("5,99995,\"Sub\",DIR,0,")) << answer;
    EXPECT_TRUE(answer.ends_with(",\"a.png\",FILE,5,2025,3,7,4,5,6\n")) << answer;
}

TEST_F(InstrumentFiles, SetsDateAndTimeSeparately)
{
    desk_.Put("f", "x");
    EXPECT_EQ(Say("MMEM:FILE:TIME \"f\", 1, 2, 3;:MMEM:FILE:DATE \"f\", 2024, 2, 29\n"), "");
    EXPECT_NE(Say("MMEM:CAT? ALL\n").find("\"f\",FILE,1,2024,2,29,1,2,3"), std::string::npos);
    ExpectRefused("MMEM:FILE:DATE \"f\",2023,2,29", "-220");
    ExpectRefused("MMEM:FILE:TIME \"f\",24,0,0", "-220");
    ExpectRefused("MMEM:FILE:DATE \"g\",2024,2,29", "-256");
    ExpectRefused("MMEM:FILE:DATE \"Public\",2024,2,29", "-256");
}

TEST_F(InstrumentFiles, ClampsTimeStamps)
{
    desk_.Put("f", "x");
    const timespec times[2] = { { 0, UTIME_OMIT }, { 3 * 86400, 0 } }; // 1970
    ASSERT_EQ(::utimensat(AT_FDCWD, desk_.Path("f").c_str(), times, 0), 0);
    EXPECT_NE(Say("MMEM:CAT? ALL\n").find("\"f\",FILE,1,1980,1,1,0,0,0"), std::string::npos);
}

TEST_F(InstrumentFiles, NamesAreWindows1252)
{
    EXPECT_EQ(Say("MMEM:DATA ALL,\"M\xE4rz, \"\"7\"\" \x80.png\",#11x\n"), "");
    EXPECT_EQ(desk_.Content("März, \"7\" €.png"), "x");
    EXPECT_NE(Say("MMEM:CAT? ALL\n").find(",\"M\xE4rz, \"\"7\"\" \x80.png\",FILE,1,"), std::string::npos);
    EXPECT_EQ(Say("MMEM:DATA? ALL,\"M\xE4rz, \"\"7\"\" \x80.png\"\n"), "#11x\n");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, NamesOutsideWindows1252AreNotListed)
{
    desk_.Put("Ωmega", "x");
    desk_.Put("back\\slash", "x");
    const std::string answer = Say("MMEM:CAT? ALL\n");
    EXPECT_EQ(answer.find("mega"), std::string::npos);
    EXPECT_EQ(answer.find("slash"), std::string::npos);
}

TEST_F(InstrumentFiles, FamilyCommandsUseFamilyFolder)
{
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\\Screen Shots\";DATA KFAC,\"k.tvk\",#13abc\n"), "");
    EXPECT_EQ(desk_.Content(std::string(kKfactor) + "k.tvk"), "abc");
    EXPECT_EQ(Say("MMEM:EXIS? KFAC,\"k.tvk\";EXIS? ALL,\"k.tvk\";EXIS? corr,\"k.tvk\"\n"), "1,FILE\n0\n0\n");
    EXPECT_EQ(Say("MMEM:DATA? KFAC,\"k.tvk\"\n"), "#13abc\n");
    EXPECT_TRUE(Say("MMEM:CAT? KFAC\n").starts_with("3,99997,\"k.tvk\",FILE,3,"));
    EXPECT_EQ(Say("MMEM:DEL KFAC,\"k.tvk\";EXIS? KFAC,\"k.tvk\"\n"), "0\n");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, FamiliesListNoFolders)
{
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\\K-Factor Table\";MDIR \"Sub\";CAT? KFAC\n"), "0,100000\n");
}

TEST_F(InstrumentFiles, ThreeFamiliesHoldOneListEach)
{
    EXPECT_EQ(Say("MMEM:DATA MEM,\"one.tvm\",#11a;DATA MEM,\"two.tvm\",#11b\n"), "");
    EXPECT_EQ(desk_.Content(std::string(kMemory) + "one.tvm"), "(none)");
    EXPECT_EQ(desk_.Content(std::string(kMemory) + "two.tvm"), "b");
    EXPECT_EQ(Say("MMEM:DATA KFAC,\"one.tvk\",#11a;DATA KFAC,\"two.tvk\",#11b\n"), "");
    EXPECT_EQ(desk_.Content(std::string(kKfactor) + "one.tvk"), "a");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, StoresAnyBytesAndEmptyFiles)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_EQ(Say("MMEM:DATA ALL,\"f\",#3256" + all + ";DATA? ALL,\"f\"\n"), "#3256" + all + "\n");
    EXPECT_EQ(Say("MMEM:DATA ALL,\"f\",#10;DATA? ALL,\"f\"\n"), "#10\n");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, MissingFileGivesEmptyBlockAndError)
{
    EXPECT_EQ(Say("MMEM:DATA? ALL,\"none\"\n"), "#10\n");
    EXPECT_EQ(desk_.Error(), "-256");
    EXPECT_EQ(Say("MMEM:DATA? ALL,\"Public\"\n"), "#10\n");
    EXPECT_EQ(desk_.Error(), "-256");
}

TEST_F(InstrumentFiles, FileAppearsWhenComplete)
{
    desk_.Put("f", "old");
    EXPECT_EQ(Say("MMEM:DATA ALL,\"f\",#15hel"), "");
    EXPECT_EQ(desk_.Content("f"), "old");
    EXPECT_EQ(Say("lo"), "");
    EXPECT_EQ(desk_.Content("f"), "old");
    EXPECT_EQ(Say("\n"), "");
    EXPECT_EQ(desk_.Content("f"), "hello");
}

TEST_F(InstrumentFiles, DataAfterBlockKeepsFile)
{
    desk_.Put("f", "old");
    ExpectRefused("MMEM:DATA ALL,\"f\",#15helloX", "-100");
    EXPECT_EQ(desk_.Content("f"), "old");
    EXPECT_FALSE(std::filesystem::exists(desk_.Path(".instrument/incoming")));
}

TEST_F(InstrumentFiles, RefusesFileLargerThanFreeSpace)
{
    desk_.Put("f", "old");
    ExpectRefused("MMEM:DATA ALL,\"f\",#6099998" + std::string(99998, 'x'), "-254");
    EXPECT_EQ(desk_.Content("f"), "old");
    EXPECT_EQ(Say("MMEM:DATA ALL,\"g\",#599997" + std::string(99997, 'x') + "\n"), "");
    EXPECT_TRUE(Say("MMEM:CAT? ALL\n").starts_with("100000,0,"));
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, RefusesSecondFileLargerThanRemainingSpace)
{
    const std::string most(60000, 'x');
    EXPECT_EQ(Say("MMEM:DATA ALL,\"f\",#560000" + most + '\n'), "");
    ExpectRefused("MMEM:DATA ALL,\"g\",#560000" + most, "-254");
    EXPECT_EQ(desk_.Content("g"), "(none)");
}

TEST_F(InstrumentFiles, ReclaimsSpaceOfRemovedFile)
{
    const std::string most(60000, 'x');
    EXPECT_EQ(Say("MMEM:DATA ALL,\"f\",#560000" + most + ";:MMEM:DEL ALL,\"f\"\n"), "");
    EXPECT_EQ(Say("MMEM:DATA ALL,\"g\",#560000" + most + '\n'), "");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, RefusesTooLongNameBeforeReceivingBytes)
{
    EXPECT_EQ(Say("MMEM:DATA ALL,\"" + std::string(300, 'n') + "\",#15he"), "");
    EXPECT_FALSE(std::filesystem::exists(desk_.Path(".instrument/incoming")));
}

TEST_F(InstrumentFiles, StaysInSyncAfterRefusedBlock)
{
    EXPECT_EQ(Say("MMEM:DATA ALL,\"a\\b\",#18\n*IDN?\n;;*OPC?\n"), "1\n");
    EXPECT_EQ(desk_.Error(), "-257");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, FileDoesNotReplaceFolder)
{
    ExpectRefused("MMEM:DATA ALL,\"Public\",#11x", "-257");
    EXPECT_EQ(Say("MMEM:EXIS? ALL,\"Public\"\n"), "1,DIR\n");
}

TEST_F(InstrumentFiles, RemovesFilesOnly)
{
    desk_.Put("f", "x");
    EXPECT_EQ(Say("MMEM:DEL ALL,\"f\"\n"), "");
    EXPECT_EQ(desk_.Content("f"), "(none)");
    ExpectRefused("MMEM:DEL ALL,\"f\"", "-256");
    ExpectRefused("MMEM:DEL ALL,\"Public\"", "-256");
}

TEST_F(InstrumentFiles, RenamesFilesAndFoldersToFreeNames)
{
    desk_.Put("f", "x");
    EXPECT_EQ(
        Say("MMEM:MOVE \"f\",\"g\";MDIR \"d\";MOVE \"d\",\"e\";EXIS? ALL,\"g\";EXIS? ALL,\"e\"\n"), "1,FILE\n1,DIR\n");
    ExpectRefused("MMEM:MOVE \"f\",\"h\"", "-256");
    ExpectRefused("MMEM:MOVE \"g\",\"e\"", "-257");
    ExpectRefused("MMEM:MOVE \"g\",\"g\"", "-257");
    ExpectRefused("MMEM:MOVE \"g\",\"a\\b\"", "-257");
    EXPECT_EQ(desk_.Content("g"), "x");
}

TEST_F(InstrumentFiles, LockedFileIsNotReplacedRenamedOrRemoved)
{
    desk_.Put("f", "x");
    EXPECT_EQ(Say("SYST:SET:LOCK? \"f\";LOCK \"f\";LOCK? \"f\"\n"), "0\n1\n");
    ExpectRefused("MMEM:DATA ALL,\"f\",#11y", "-258");
    ExpectRefused("MMEM:MOVE \"f\",\"g\"", "-258");
    ExpectRefused("MMEM:DEL ALL,\"f\"", "-258");
    EXPECT_EQ(desk_.Content("f"), "x");
    EXPECT_EQ(Say("MMEM:DATA? ALL,\"f\"\n"), "#11x\n");
    EXPECT_EQ(Say("SYST:SET:UNLOCK \"f\";:MMEM:DEL ALL,\"f\";:MMEM:EXIS? ALL,\"f\"\n"), "0\n");
    EXPECT_EQ(desk_.Error(), "0");
}

TEST_F(InstrumentFiles, LockSetWhileStoringIsHonoured)
{
    desk_.Put("f", "old");
    EXPECT_EQ(Say("MMEM:DATA ALL,\"f\",#13ne"), "");
    ASSERT_EQ(::chmod(desk_.Path("f").c_str(), 0444), 0);
    ExpectRefused("w", "-258");
    EXPECT_EQ(desk_.Content("f"), "old");
    EXPECT_FALSE(std::filesystem::exists(desk_.Path(".instrument/incoming")));
}

TEST_F(InstrumentFiles, LockedListIsNotReplacedByAnother)
{
    desk_.Put(std::string(kMemory) + "one.tvm", "x");
    EXPECT_EQ(Say("MMEM:CDIR \"\\Public\\Memory List\";:SYST:SET:LOCK \"one.tvm\"\n"), "");
    ExpectRefused("MMEM:DATA MEM,\"two.tvm\",#11y", "-258");
    EXPECT_EQ(desk_.Content(std::string(kMemory) + "one.tvm"), "x");
    EXPECT_EQ(desk_.Content(std::string(kMemory) + "two.tvm"), "(none)");
}

TEST_F(InstrumentFiles, OnlyFilesAreLocked)
{
    ExpectRefused("SYST:SET:LOCK \"none\"", "-256");
    ExpectRefused("SYST:SET:LOCK? \"Public\"", "-256");
    ExpectRefused("SYST:SET:UNLOCK \"Public\"", "-256");
}

TEST_F(InstrumentFiles, KeepsActiveSettingsSeparately)
{
    EXPECT_EQ(Say("MMEM:ACT:DATA?\n"), "#10\n");
    EXPECT_EQ(desk_.Error(), "-256");
    EXPECT_EQ(Say("MMEM:ACT:DATA #13abc;DATA?\n"), "#13abc\n");
    EXPECT_EQ(desk_.Error(), "0");
    EXPECT_EQ(Say("MMEM:CAT? ALL\n").find("active"), std::string::npos);
}

TEST_F(InstrumentFiles, LeftoverOfKilledReceiverTakesNoSpace)
{
    const QTemporaryDir folder;
    const std::filesystem::path own = folder.filePath(".instrument").toStdString();
    ASSERT_TRUE(std::filesystem::create_directory(own));
    std::ofstream(own / "incoming") << "half a file";
    Storage storage;
    std::string reason;
    ASSERT_TRUE(storage.Open(folder.path().toStdString(), 1000, reason)) << reason;
    EXPECT_EQ(storage.Usage().UsedBytes, 0U);
}

TEST_F(InstrumentFiles, FolderIsUsedByOneReceiverOnly)
{
    Storage second;
    std::string reason;
    EXPECT_FALSE(second.Open(desk_.Disk().Root(), 1, reason));
    EXPECT_EQ(reason, "another receiver is using it");
}

} // namespace tarvik
