#include "closed/tvgen.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

class General : public testing::Test {
protected:
    General()
    {
        gen.Size = sizeof gen;
        EXPECT_EQ(TvGenBind(&gen), 0);
    }

    /// Drive, folder, base name, extension.
    [[nodiscard]] std::vector<std::string> Split(const char* path, int16_t expected = 0, int32_t outSize = 64) const
    {
        std::array<char, 64> parts[4];
        for (auto& part : parts)
            part.fill('?');
        EXPECT_EQ(gen.GenSplitPath(path, parts[0].data(), parts[1].data(), parts[2].data(), parts[3].data(), outSize),
            expected);
        return { parts[0].data(), parts[1].data(), parts[2].data(), parts[3].data() };
    }

    [[nodiscard]] double Date(const char* text) const
    {
        double date = -1e9;
        EXPECT_EQ(gen.GenStrToDate(text, &date), 0) << text;
        return date;
    }

    [[nodiscard]] bool IsNoDate(const char* text) const
    {
        double date = 77;
        return gen.GenStrToDate(text, &date) == 1 && date == 77;
    }

    TvGenApi gen{};
};

using Parts = std::vector<std::string>;

} // namespace

TEST_F(General, SplitsAFullPath)
{
    EXPECT_EQ(Split("/home/me/lists/PMR 446.tvm"), (Parts{ "", "/home/me/lists/", "PMR 446", "tvm" }));
}

TEST_F(General, SplitsPathsWithoutSomeOfTheirParts)
{
    EXPECT_EQ(Split(""), (Parts{ "", "", "", "" }));
    EXPECT_EQ(Split("name"), (Parts{ "", "", "name", "" }));
    EXPECT_EQ(Split("name.csv"), (Parts{ "", "", "name", "csv" }));
    EXPECT_EQ(Split("/"), (Parts{ "", "/", "", "" }));
    EXPECT_EQ(Split("/folder/"), (Parts{ "", "/folder/", "", "" }));
    EXPECT_EQ(Split("folder/name"), (Parts{ "", "folder/", "name", "" }));
}

TEST_F(General, ExtensionFollowsLastDot)
{
    EXPECT_EQ(Split("/a.b/c"), (Parts{ "", "/a.b/", "c", "" }));
    EXPECT_EQ(Split("/a/b.tar.gz"), (Parts{ "", "/a/", "b.tar", "gz" }));
    EXPECT_EQ(Split("/a/b."), (Parts{ "", "/a/", "b", "" }));
}

TEST_F(General, HiddenNameHasNoExtension)
{
    EXPECT_EQ(Split("/a/.profile"), (Parts{ "", "/a/", ".profile", "" }));
    EXPECT_EQ(Split("/a/.profile.bak"), (Parts{ "", "/a/", ".profile", "bak" }));
    EXPECT_EQ(Split("/a/.."), (Parts{ "", "/a/", "..", "" }));
}

TEST_F(General, KeepsUtf8InPaths)
{
    EXPECT_EQ(Split("/\xCE\xB1/\xD0\xBF.tvm"), (Parts{ "", "/\xCE\xB1/", "\xD0\xBF", "tvm" }));
}

TEST_F(General, TooLongPartLeavesAllOutputsEmpty)
{
    EXPECT_EQ(Split("/a/12345.tvm", 0, 6), (Parts{ "", "/a/", "12345", "tvm" }));
    EXPECT_EQ(Split("/a/123456.tvm", 1, 6), (Parts{ "", "", "", "" }));
    EXPECT_EQ(Split(nullptr, 1), (Parts{ "", "", "", "" }));
}

TEST_F(General, SplitRefusesNullOutputs)
{
    char part[8] = "";
    EXPECT_EQ(gen.GenSplitPath("/a", nullptr, part, part, part, 8), 1);
    EXPECT_EQ(gen.GenSplitPath("/a", part, part, part, part, 0), 1);
}

TEST_F(General, FileTimeIsLocalTimeOfLastChange)
{
    const QTemporaryDir folder;
    const std::string path = folder.path().toStdString() + "/\xD0\xBF.tvm";
    std::ofstream(path) << "x";
    std::tm local{};
    local.tm_year = 126;
    local.tm_mon = 1;
    local.tm_mday = 28;
    local.tm_hour = 23;
    local.tm_min = 59;
    local.tm_sec = 58;
    local.tm_isdst = -1;
    const timespec moment{ std::mktime(&local), 0 };
    const timespec times[2] = { moment, moment };
    ASSERT_EQ(::utimensat(0, path.c_str(), times, 0), 0);

    int16_t parts[6] = {};
    ASSERT_EQ(
        gen.GenFileDateAndTime(path.c_str(), &parts[0], &parts[1], &parts[2], &parts[3], &parts[4], &parts[5]), 0);
    EXPECT_EQ(std::vector<int16_t>(parts, parts + 6), (std::vector<int16_t>{ 2026, 2, 28, 23, 59, 58 }));
}

TEST_F(General, MissingFileHasNoTime)
{
    int16_t part = 5;
    EXPECT_EQ(gen.GenFileDateAndTime("/nowhere/at/all", &part, &part, &part, &part, &part, &part), 1);
    EXPECT_EQ(gen.GenFileDateAndTime(nullptr, &part, &part, &part, &part, &part, &part), 1);
    EXPECT_EQ(gen.GenFileDateAndTime("/", &part, &part, &part, &part, &part, nullptr), 1);
    EXPECT_EQ(part, 5);
}

TEST_F(General, CountsDaysFromThePackedEpoch)
{
    EXPECT_EQ(Date("12 30 1899"), 0);
    EXPECT_EQ(Date("12 31 1899"), 1);
    EXPECT_EQ(Date("1 1 1900"), 2);
    EXPECT_EQ(Date("12 29 1899"), -1);
    EXPECT_EQ(Date("1 1 2000"), 36526);
    EXPECT_EQ(Date("12 31 9999"), 2958465);
}

TEST_F(General, ToleratesBlanksAroundTheNumbers)
{
    EXPECT_EQ(Date("  01   01  2000 "), 36526);
}

TEST_F(General, TwoDigitYearMeans1930To2029)
{
    EXPECT_EQ(Date("1 1 0"), Date("1 1 2000"));
    EXPECT_EQ(Date("1 1 29"), Date("1 1 2029"));
    EXPECT_EQ(Date("1 1 30"), Date("1 1 1930"));
    EXPECT_EQ(Date("1 1 99"), Date("1 1 1999"));
    EXPECT_EQ(Date("1 1 100"), Date("1 1 101") - 365);
}

TEST_F(General, KnowsLeapYears)
{
    EXPECT_EQ(Date("2 29 2024") + 1, Date("3 1 2024"));
    EXPECT_EQ(Date("2 29 2000") + 1, Date("3 1 2000"));
    EXPECT_TRUE(IsNoDate("2 29 2023"));
    EXPECT_TRUE(IsNoDate("2 29 1900"));
}

TEST_F(General, RefusesDaysThatDoNotExist)
{
    EXPECT_TRUE(IsNoDate("13 1 2000"));
    EXPECT_TRUE(IsNoDate("0 1 2000"));
    EXPECT_TRUE(IsNoDate("1 0 2000"));
    EXPECT_TRUE(IsNoDate("4 31 2000"));
    EXPECT_TRUE(IsNoDate("1 1 10000"));
    EXPECT_TRUE(IsNoDate("257 1 2000"));
}

TEST_F(General, RefusesTextThatIsNotThreeNumbers)
{
    EXPECT_TRUE(IsNoDate(""));
    EXPECT_TRUE(IsNoDate("1 2"));
    EXPECT_TRUE(IsNoDate("1 2 2000 4"));
    EXPECT_TRUE(IsNoDate("1/2/2000"));
    EXPECT_TRUE(IsNoDate("-1 2 2000"));
    EXPECT_TRUE(IsNoDate("1 2 99999999999999999999"));
    EXPECT_TRUE(IsNoDate(nullptr));
    EXPECT_EQ(gen.GenStrToDate("1 1 2000", nullptr), 1);
}

TEST_F(General, CopiesBytesToNewBlock)
{
    char bytes[] = { 'a', '\0', 'b' };
    void* block = gen.GenVbStrToGlobal(bytes, 3);
    bytes[0] = 'x';
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::memcmp(block, "a\0b", 3), 0);
    gen.GenElemsFree(block);
}

TEST_F(General, EmptyBlockIsNotNull)
{
    void* block = gen.GenVbStrToGlobal("", 0);
    EXPECT_NE(block, nullptr);
    gen.GenElemsFree(block);
}

TEST_F(General, NullGivesNoBlock)
{
    EXPECT_EQ(gen.GenVbStrToGlobal(nullptr, 5), nullptr);
    EXPECT_EQ(gen.GenVbStrToGlobal("abc", -1), nullptr);
    gen.GenElemsFree(nullptr);
}

TEST_F(General, RefusesTooSmallTable)
{
    TvGenApi small{};
    small.Size = sizeof small - 1;
    EXPECT_NE(TvGenBind(&small), 0);
    EXPECT_EQ(small.GenSplitPath, nullptr);
}
