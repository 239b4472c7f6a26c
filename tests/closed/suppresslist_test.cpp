#include "tests/closed/storefixture.h"

#include <limits>

namespace {

struct Range {
    int16_t Include;
    double StartHz;
    double StopHz;
    std::string Description;
    bool operator==(const Range&) const = default;
};

void PrintTo(const Range& range, std::ostream* out)
{
    *out << range.Include << ' ' << range.StartHz << " to " << range.StopHz << " \"" << range.Description << '"';
}

class SuppressStore : public StoreTest {
protected:
    void Put(int16_t index, const Range& range)
    {
        EXPECT_EQ(Call(fio.SuppressSetInclude, range.Include), FioStatus::Ok);
        EXPECT_EQ(Call(fio.SuppressSetStartFrequency, range.StartHz), FioStatus::Ok);
        EXPECT_EQ(Call(fio.SuppressSetStopFrequency, range.StopHz), FioStatus::Ok);
        EXPECT_EQ(Call(fio.SuppressSetDescription, range.Description.c_str()), FioStatus::Ok);
        EXPECT_EQ(Call(fio.SuppressSetData, index), FioStatus::Ok);
    }

    [[nodiscard]] Range At(int16_t index) const
    {
        return { GetShort(fio.SuppressGetInclude, index), GetDouble(fio.SuppressGetStartFrequency, index),
            GetDouble(fio.SuppressGetStopFrequency, index), GetText(fio.SuppressGetDescription, index) };
    }

    /// The used ranges, which must be at the front.
    [[nodiscard]] std::vector<Range> Ranges() const
    {
        std::vector<Range> ranges;
        bool ended = false;
        for (int16_t i = 0; i < 100; ++i) {
            const bool used = GetShort(fio.SuppressIsInUse, i) != 0;
            EXPECT_FALSE(used && ended) << i;
            ended = !used;
            if (used)
                ranges.push_back(At(i));
        }
        return ranges;
    }
};

} // namespace

TEST_F(SuppressStore, Holds100Ranges)
{
    int16_t count = 0;
    EXPECT_EQ(Call(fio.SuppressListGetMaxNumberOfItems, &count), FioStatus::Ok);
    EXPECT_EQ(count, 100);
}

TEST_F(SuppressStore, UnusedPlaceReadsAsEmptyRange)
{
    EXPECT_EQ(GetShort(fio.SuppressIsInUse, 50), 0);
    EXPECT_EQ(At(50), (Range{ 0, 0, 0, "" }));
}

TEST_F(SuppressStore, RefusesIndexesOutsideList)
{
    int16_t used = 0;
    EXPECT_EQ(Call(fio.SuppressSetData, 100), FioStatus::SuppressIndex);
    EXPECT_EQ(Call(fio.SuppressIsInUse, -1, &used), FioStatus::SuppressIndex);
}

TEST_F(SuppressStore, RefusesInvalidFields)
{
    EXPECT_EQ(Call(fio.SuppressSetInclude, 256), FioStatus::SuppressInclude);
    EXPECT_EQ(Call(fio.SuppressSetInclude, -1), FioStatus::SuppressInclude);
    EXPECT_EQ(Call(fio.SuppressSetStartFrequency, std::numeric_limits<double>::infinity()),
        FioStatus::SuppressStartFrequency);
    EXPECT_EQ(
        Call(fio.SuppressSetStopFrequency, std::numeric_limits<double>::quiet_NaN()), FioStatus::SuppressStopFrequency);
    EXPECT_EQ(
        Call(fio.SuppressSetDescription, "123456789012345678901234567890123"), FioStatus::SuppressDescriptionTooLong);
    EXPECT_EQ(Call(fio.SuppressSetDescription, "\n"), FioStatus::SuppressDescriptionCharacters);
}

TEST_F(SuppressStore, GapsAndUnknownIncludeWordSurviveSaving)
{
    EXPECT_EQ(Call(fio.SuppressListSetName, "Gaps"), FioStatus::Ok);
    Put(0, { 255, 1e6, 2e6, "a" });
    Put(5, { 1, 4e6, 3e6, "b" });
    ASSERT_EQ(Call(fio.SuppressListSaveFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Call(fio.SuppressListClear), FioStatus::Ok);
    ASSERT_EQ(Call(fio.SuppressListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.SuppressListGetName), "Gaps");
    EXPECT_EQ(At(0), (Range{ 255, 1e6, 2e6, "a" }));
    EXPECT_EQ(GetShort(fio.SuppressIsInUse, 1), 0);
    EXPECT_EQ(At(5), (Range{ 1, 4e6, 3e6, "b" }));
}

TEST_F(SuppressStore, SortByStartThenStopThenIncludedFirstIsStable)
{
    Put(9, { 1, 5e6, 9e6, "late" });
    Put(10, { 0, 5e6, 6e6, "first" });
    Put(20, { 1, 5e6, 6e6, "second" });
    Put(30, { 1, 1e6, 2e6, "low" });
    EXPECT_EQ(Call(fio.SuppressListSort), FioStatus::Ok);
    EXPECT_EQ(Ranges(),
        (std::vector<Range>{
            { 1, 1e6, 2e6, "low" }, { 1, 5e6, 6e6, "second" }, { 0, 5e6, 6e6, "first" }, { 1, 5e6, 9e6, "late" } }));
}

TEST_F(SuppressStore, SortOfLongListIsStable)
{
    for (int16_t i = 0; i < 100; ++i)
        Put(i, { 1, 5e6, 6e6, std::to_string(i) });
    EXPECT_EQ(Call(fio.SuppressListSort), FioStatus::Ok);
    for (int16_t i = 0; i < 100; ++i)
        ASSERT_EQ(At(i).Description, std::to_string(i));
}

TEST_F(SuppressStore, SortKeepsReversedRange)
{
    Put(0, { 1, 9e6, 3e6, "reversed" });
    EXPECT_EQ(Call(fio.SuppressListSort), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 1, 9e6, 3e6, "reversed" } }));
}

TEST_F(SuppressStore, MergesRangesThatOverlap)
{
    Put(0, { 1, 4e6, 7e6, "second" });
    Put(1, { 1, 1e6, 5e6, "first" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 1, 1e6, 7e6, "first" } }));
}

TEST_F(SuppressStore, MergesRangesThatTouch)
{
    Put(0, { 1, 1e6, 2e6, "" });
    Put(1, { 1, 2e6, 3e6, "named" });
    Put(2, { 1, 3e6, 4e6, "later" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 1, 1e6, 4e6, "named" } }));
}

TEST_F(SuppressStore, DoesNotMergeNearbyRanges)
{
    Put(0, { 1, 1e6, 2e6, "a" });
    Put(1, { 1, 2e6 + 1, 3e6, "b" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges().size(), 2U);
}

TEST_F(SuppressStore, MergesNestedRanges)
{
    Put(0, { 0, 1e6, 9e6, "outer" });
    Put(1, { 0, 2e6, 3e6, "inner" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 0, 1e6, 9e6, "outer" } }));
}

TEST_F(SuppressStore, MergesRangesOfSameSettingAcrossOthers)
{
    Put(0, { 1, 1e6, 5e6, "in 1" });
    Put(1, { 0, 2e6, 8e6, "out" });
    Put(2, { 1, 4e6, 6e6, "in 2" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 1, 1e6, 6e6, "in 1" }, { 0, 2e6, 8e6, "out" } }));
}

TEST_F(SuppressStore, MergedRangesAreSorted)
{
    Put(0, { 1, 1e6, 2e6, "in" });
    Put(1, { 0, 1e6, 5e6, "out" });
    Put(2, { 1, 2e6, 9e6, "" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 0, 1e6, 5e6, "out" }, { 1, 1e6, 9e6, "in" } }));
}

TEST_F(SuppressStore, MergeSwapsReversedRange)
{
    Put(0, { 1, 9e6, 3e6, "reversed" });
    Put(1, { 1, 1e6, 4e6, "" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(Ranges(), (std::vector<Range>{ { 1, 1e6, 9e6, "reversed" } }));
}

TEST_F(SuppressStore, SortAndMergeKeepNameAndDescription)
{
    EXPECT_EQ(Call(fio.SuppressListSetName, "N"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.SuppressListSetDescription, "D"), FioStatus::Ok);
    Put(3, { 1, 1e6, 2e6, "a" });
    EXPECT_EQ(Call(fio.SuppressListSort), FioStatus::Ok);
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.SuppressListGetName), "N");
    EXPECT_EQ(GetText(fio.SuppressListGetDescription), "D");
}

TEST_F(SuppressStore, SortsAndMergesEmptyList)
{
    EXPECT_EQ(Call(fio.SuppressListSort), FioStatus::Ok);
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    EXPECT_TRUE(Ranges().empty());
}

TEST_F(SuppressStore, SortsAndMergesFullList)
{
    for (int16_t i = 0; i < 100; ++i)
        Put(i, { 1, (100.0 - i) * 2e6, (100.0 - i) * 2e6 + 1e6, "" });
    EXPECT_EQ(Call(fio.SuppressListSortAndMerge), FioStatus::Ok);
    const std::vector<Range> ranges = Ranges();
    ASSERT_EQ(ranges.size(), 100U);
    EXPECT_EQ(ranges.front(), (Range{ 1, 2e6, 3e6, "" }));
}
