// Walking a folder on the instrument: the rows, and invalid catalogues.
#include "tests/closed/scpifixture.h"

namespace {

using Names = std::vector<std::string>;

struct Row {
    int16_t Status = -1;
    std::string Name;
    int16_t Type = -1;
    int16_t Last = -1;
    std::vector<int16_t> Stamp;
};

class ScpiWalk : public ScriptedScpiTest {
protected:
    /// Starts a walk over a catalogue of `entries` and returns its status.
    int16_t Start(const std::string& entries)
    {
        Answer("1000,2000" + entries + '\n' + kNoError);
        return Call(scpi.scpiStartFindAllFiles, &nothing, &usedBytes, &freeBytes);
    }

    [[nodiscard]] Row Next() const
    {
        char name[TVSCPI_TEXT_SIZE] = "unset";
        Row row;
        row.Stamp.resize(6, -1);
        std::vector<int16_t>& stamp = row.Stamp;
        row.Status = Call(scpi.scpiGetNextFile, &row.Type, &row.Last, &stamp[0], &stamp[1], &stamp[2], &stamp[3],
            &stamp[4], &stamp[5], name, TVSCPI_TEXT_SIZE);
        row.Name = name;
        return row;
    }

    /// The names of a whole walk.
    Names Walk(const std::string& entries)
    {
        Names names;
        if (Start(entries) != kOk || nothing != 0)
            return names;
        Row row;
        do {
            row = Next();
            EXPECT_EQ(row.Status, kOk);
            names.push_back(row.Name);
        } while (row.Status == kOk && row.Last == 0);
        return names;
    }

    int16_t nothing = -1;
    int64_t usedBytes = -1;
    int64_t freeBytes = -1;
};

constexpr const char* kStamp = ",12,2024,2,29,23,59,58";

std::string Entry(const std::string& name, const std::string& type = "FILE")
{
    return ",\"" + name + "\"," + type + kStamp;
}

std::string Shots(int count)
{
    std::string entries;
    for (int i = 0; i < count; ++i)
        entries += Entry("Shot" + std::to_string(i) + ".png");
    return entries;
}

} // namespace

TEST_F(ScpiWalk, WalksEachStore)
{
    using StartFind = decltype(scpi.scpiStartFindAllFiles);
    for (const Worded<StartFind>& each : { Worded<StartFind>{ scpi.scpiStartFindAllFiles, "ALL" },
             Worded<StartFind>{ scpi.scpiStartFindAntennaListFiles, "ANT" },
             Worded<StartFind>{ scpi.scpiStartFindKfactorTableFiles, "KFAC" },
             Worded<StartFind>{ scpi.scpiStartFindMemoryListFiles, "MEM" },
             Worded<StartFind>{ scpi.scpiStartFindSuppressListFiles, "SUPP" },
             Worded<StartFind>{ scpi.scpiStartFindCorrectionSetFiles, "CORR" } }) {
        Answer("10,20" + Entry(each.Word) + '\n' + kNoError);
        EXPECT_EQ(Call(each.Call, &nothing, nullptr, nullptr), kOk);
        EXPECT_EQ(nothing, 0);
        EXPECT_EQ(TakeSent(), Exchange("MMEM:CAT? " + each.Word));
        EXPECT_EQ(Next().Name, each.Word);
    }
}

TEST_F(ScpiWalk, RowsAreUnchangedAndLastIsValid)
{
    ASSERT_EQ(Start(Entry("a.tvm") + ",\"Folder\",DIR,0,1999,12,31,0,0,0"), kOk);
    EXPECT_EQ(nothing, 0);
    EXPECT_EQ(usedBytes, 1000);
    EXPECT_EQ(freeBytes, 2000);
    const Row first = Next();
    EXPECT_EQ(first.Status, kOk);
    EXPECT_EQ(first.Name, "a.tvm");
    EXPECT_EQ(first.Type, 0);
    EXPECT_EQ(first.Last, 0);
    EXPECT_EQ(first.Stamp, (std::vector<int16_t>{ 2024, 2, 29, 23, 59, 58 }));
    const Row second = Next();
    EXPECT_EQ(second.Status, kOk);
    EXPECT_EQ(second.Name, "Folder");
    EXPECT_EQ(second.Type, 1);
    EXPECT_NE(second.Last, 0);
    EXPECT_EQ(second.Stamp, (std::vector<int16_t>{ 1999, 12, 31, 0, 0, 0 }));
}

TEST_F(ScpiWalk, EmptyFolderGivesNothingToWalk)
{
    EXPECT_EQ(Start(""), kOk);
    EXPECT_NE(nothing, 0);
    const Row row = Next();
    EXPECT_EQ(row.Status, kRefused);
    EXPECT_NE(row.Last, 0);
    EXPECT_TRUE(IsUp());
}

TEST_F(ScpiWalk, EntryOfUnknownKindIsNeitherFileNorFolder)
{
    ASSERT_EQ(Start(Entry("a", "LINK")), kOk);
    const Row row = Next();
    EXPECT_EQ(row.Status, kOk);
    EXPECT_NE(row.Type, 0);
    EXPECT_NE(row.Type, 1);
}

TEST_F(ScpiWalk, SkipsNamesThatCouldLeaveFolder)
{
    EXPECT_EQ(Walk(Entry("good, \"\"one\"\"") + Entry("..\\x") + Entry("/etc/x") + Entry("..") + Entry(".") + Entry("")
                  + Entry("C:x") + Entry("a\tb") + Entry(std::string(256, 'n')) + Entry("last")),
        (Names{ "good, \"one\"", "last" }));
}

TEST_F(ScpiWalk, OnlySkippedNamesGiveNothingToWalk)
{
    EXPECT_EQ(Start(Entry("..")), kOk);
    EXPECT_NE(nothing, 0);
}

TEST_F(ScpiWalk, InvalidTimeStampBecomes1980)
{
    for (const std::string& stamp :
        Names{ "0,0,0,0,0,0", "2023,2,29,1,2,3", "2024,13,1,0,0,0", "2024,1,1,24,0,0", "2024,1,1,0,60,0",
            "2024,1,1,0,0,60", "24,1,1,0,0,0", "12024,1,1,0,0,0", "2023,12,262,1,2,3", "2024,257,1,0,0,0" }) {
        ASSERT_EQ(Start(",\"a\",FILE,1," + stamp), kOk) << stamp;
        EXPECT_EQ(Next().Stamp, (std::vector<int16_t>{ 1980, 1, 1, 0, 0, 0 })) << stamp;
    }
}

TEST_F(ScpiWalk, InvalidCatalogueIsAFailureOfTheLink)
{
    EXPECT_EQ(Start(",\"a\",FILE,1,2024,1,1,0,0"), kLinkFailed);
    EXPECT_NE(nothing, 0);
    EXPECT_FALSE(IsUp());
    EXPECT_EQ(Next().Status, kLinkFailed);
}

TEST_F(ScpiWalk, RefusedWalkEndsPreviousWalk)
{
    ASSERT_EQ(Start(Entry("a") + Entry("b")), kOk);
    Answer("-250,\"Mass storage error\"\n");
    EXPECT_EQ(Call(scpi.scpiStartFindAllFiles, &nothing, nullptr, nullptr), kRefused);
    EXPECT_NE(nothing, 0);
    EXPECT_EQ(Next().Status, kRefused);
}

TEST_F(ScpiWalk, SlowLineDeliversLongCatalogue)
{
    const tvscpi::FakeClock clock;
    script.MaxPiece = 400; // 40 kB/s
    script.PieceTime = std::chrono::milliseconds(10);
    EXPECT_EQ(Walk(Shots(6000)).size(), 6000U);
    EXPECT_GT(clock.Elapsed(), std::chrono::milliseconds(TVSCPI_DEFAULT_TIMEOUT_MS));
}

TEST_F(ScpiWalk, SilenceEndsWalk)
{
    const tvscpi::FakeClock clock;
    script.MaxPiece = 100;
    script.PieceTime = std::chrono::milliseconds(TVSCPI_DEFAULT_TIMEOUT_MS - 1);
    EXPECT_EQ(Start(Shots(10)), kOk);
    script.PieceTime = std::chrono::milliseconds(TVSCPI_DEFAULT_TIMEOUT_MS);
    EXPECT_EQ(Start(Shots(10)), kLinkFailed);
    EXPECT_FALSE(IsUp());
}

TEST_F(ScpiWalk, TricklingInstrumentEndsWalk)
{
    const tvscpi::FakeClock clock;
    script.MaxPiece = 1;
    script.PieceTime = std::chrono::milliseconds(1000);
    EXPECT_EQ(Start(Shots(6000)), kLinkFailed);
    EXPECT_EQ(clock.Elapsed(), std::chrono::milliseconds(TVSCPI_LONGEST_WALK_MS));
    EXPECT_FALSE(IsUp());
}
