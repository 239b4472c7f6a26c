#include "tests/closed/storefixture.h"

#include <cmath>
#include <limits>
#include <set>

namespace {

class MemoryStore : public StoreTest {
protected:
    /// Stores an entry at `index`; fields that are not given keep their defaults.
    void Put(
        int16_t index, int16_t number, double frequencyHz = 100e6, const char* description = "", int16_t status = 0)
    {
        EXPECT_EQ(Call(fio.MemorySetMemItemNumber, number), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetFrequency, frequencyHz), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDescription, description), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetSuppressed, status), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetData, index), FioStatus::Ok);
    }

    [[nodiscard]] bool IsUsed(int16_t index) const
    {
        return GetShort(fio.MemoryListItemIsInUse, index) != 0;
    }

    [[nodiscard]] int16_t Number(int16_t index) const
    {
        return GetShort(fio.MemoryGetMemItemNumber, index);
    }

    /// The numbers of the first `count` places.
    [[nodiscard]] std::vector<int> Numbers(int16_t count) const
    {
        std::vector<int> numbers;
        for (int16_t i = 0; i < count; ++i)
            numbers.push_back(Number(i));
        return numbers;
    }

    [[nodiscard]] bool AllNumbersDiffer() const
    {
        std::set<int> seen;
        for (int16_t i = 0; i < 1024; ++i)
            seen.insert(Number(i));
        return seen.size() == 1024 && *seen.begin() == 0 && *seen.rbegin() == 1023;
    }

    void PutEntryWithEveryField(int16_t index)
    {
        EXPECT_EQ(Call(fio.MemorySetMemItemNumber, 77), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetFrequency, 446006250.5), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDemodulation, 7), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetBandWidth, 5), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetSquelchLevel, -12.25), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetSquelchSetting, 1), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetAntennaNumber, 99), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetAttenuatorSetting, 1), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetAFCSetting, 1), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDescription, "Caf\xE9 12345678901234567890123456"), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetSuppressed, 1), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDfSquelchSetting, 2), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDfSquelchLevel, 33.5), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDfMeasurementTime, 0.01), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetFrequencySpan, 12), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetDfStep, 33), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetReserved1, 32), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetReserved2, -2000000000), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetReserved3, 2000000000), FioStatus::Ok);
        EXPECT_EQ(Call(fio.MemorySetData, index), FioStatus::Ok);
    }

    void ExpectEntryWithEveryField(int16_t index)
    {
        EXPECT_TRUE(IsUsed(index));
        EXPECT_EQ(Number(index), 77);
        EXPECT_EQ(GetDouble(fio.MemoryGetFrequency, index), 446006250.5);
        EXPECT_EQ(GetShort(fio.MemoryGetDemodulation, index), 7);
        EXPECT_EQ(GetShort(fio.MemoryGetBandWidth, index), 5);
        EXPECT_EQ(GetDouble(fio.MemoryGetSquelchLevel, index), -12.25);
        EXPECT_EQ(GetShort(fio.MemoryGetSquelchSetting, index), 1);
        EXPECT_EQ(GetShort(fio.MemoryGetAntennaNumber, index), 99);
        EXPECT_EQ(GetShort(fio.MemoryGetAttenuatorSetting, index), 1);
        EXPECT_EQ(GetShort(fio.MemoryGetAFCSetting, index), 1);
        EXPECT_EQ(GetText(fio.MemoryGetDescription, index), "Caf\xE9 12345678901234567890123456");
        EXPECT_EQ(GetShort(fio.MemoryGetSuppressed, index), 1);
        EXPECT_EQ(GetShort(fio.MemoryGetDfSquelchSetting, index), 2);
        EXPECT_EQ(GetDouble(fio.MemoryGetDfSquelchLevel, index), 33.5);
        EXPECT_EQ(GetDouble(fio.MemoryGetDfMeasurementTime, index), 0.01);
        EXPECT_EQ(GetShort(fio.MemoryGetFrequencySpan, index), 12);
        EXPECT_EQ(GetShort(fio.MemoryGetDfStep, index), 33);
        EXPECT_EQ(Reserved(fio.MemoryGetReserved1, index), 32);
        EXPECT_EQ(Reserved(fio.MemoryGetReserved2, index), -2000000000);
        EXPECT_EQ(Reserved(fio.MemoryGetReserved3, index), 2000000000);
    }

    static int32_t Reserved(void (*operation)(int16_t*, int16_t, int32_t*), int16_t index)
    {
        int32_t value = -1;
        EXPECT_EQ(Call(operation, index, &value), FioStatus::Ok);
        return value;
    }
};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

TEST_F(MemoryStore, Holds1024Entries)
{
    int16_t count = 0;
    EXPECT_EQ(Call(fio.MemoryListGetMaxNumberOfItems, &count), FioStatus::Ok);
    EXPECT_EQ(count, 1024);
}

TEST_F(MemoryStore, ClearRemovesEverything)
{
    EXPECT_EQ(Call(fio.MemoryListSetName, "Name"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListSetDescription, "Words"), FioStatus::Ok);
    PutEntryWithEveryField(5);
    EXPECT_EQ(Call(fio.MemoryListClear), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.MemoryListGetName), "");
    EXPECT_EQ(GetText(fio.MemoryListGetDescription), "");
    EXPECT_FALSE(IsUsed(5));
    EXPECT_EQ(GetDouble(fio.MemoryGetFrequency, 5), 100e6);
}

TEST_F(MemoryStore, DefaultsOfUnusedEntryPassAllChecks)
{
    EXPECT_FALSE(IsUsed(9));
    const int16_t demodulation = GetShort(fio.MemoryGetDemodulation, 9);
    EXPECT_NE(fio.CheckBandwidthAndDemodulation(GetShort(fio.MemoryGetBandWidth, 9), demodulation), 0);
    EXPECT_NE(fio.CheckAutoFreqControlAndDemodulation(GetShort(fio.MemoryGetAFCSetting, 9), demodulation), 0);
    EXPECT_NE(
        fio.CheckIfPanSpanAndIfPanStep(GetShort(fio.MemoryGetFrequencySpan, 9), GetShort(fio.MemoryGetDfStep, 9)), 0);
}

TEST_F(MemoryStore, DefaultsOfUnusedEntryAreWithinLimits)
{
    double low = 0;
    double high = 0;
    EXPECT_EQ(Call(fio.GetMinDfMeasTimeInSec, &low), FioStatus::Ok);
    EXPECT_EQ(Call(fio.GetMaxDfMeasTimeInSec, &high), FioStatus::Ok);
    EXPECT_GE(GetDouble(fio.MemoryGetDfMeasurementTime, 0), low);
    EXPECT_LE(GetDouble(fio.MemoryGetDfMeasurementTime, 0), high);
    EXPECT_EQ(Call(fio.GetMinFrequencyApplication, &low), FioStatus::Ok);
    EXPECT_EQ(Call(fio.GetMaxFrequencyApplication, &high), FioStatus::Ok);
    EXPECT_GE(GetDouble(fio.MemoryGetFrequency, 0), low);
    EXPECT_LE(GetDouble(fio.MemoryGetFrequency, 0), high);
}

TEST_F(MemoryStore, CommittedEntryRoundTrips)
{
    PutEntryWithEveryField(1023);
    ExpectEntryWithEveryField(1023);
}

TEST_F(MemoryStore, FieldsDoNotLeakIntoNextEntry)
{
    PutEntryWithEveryField(0);
    EXPECT_EQ(Call(fio.MemorySetData, 1), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.MemoryGetDescription, 1), "");
    EXPECT_EQ(GetDouble(fio.MemoryGetFrequency, 1), 100e6);
    EXPECT_EQ(Number(1), 1);
}

TEST_F(MemoryStore, RefusesIndexesOutsideList)
{
    int16_t used = 0;
    EXPECT_EQ(Call(fio.MemorySetData, -1), FioStatus::MemoryIndex);
    EXPECT_EQ(Call(fio.MemorySetData, 1024), FioStatus::MemoryIndex);
    EXPECT_EQ(Call(fio.MemoryListItemIsInUse, 1024, &used), FioStatus::MemoryIndex);
    EXPECT_EQ(Call(fio.MemoryGetMemItemNumber, -1, &used), FioStatus::MemoryIndex);
}

TEST_F(MemoryStore, RefusesCodesOutsideTheirTables)
{
    EXPECT_EQ(Call(fio.MemorySetMemItemNumber, 1024), FioStatus::MemoryNumber);
    EXPECT_EQ(Call(fio.MemorySetMemItemNumber, -1), FioStatus::MemoryNumber);
    EXPECT_EQ(Call(fio.MemorySetDemodulation, 8), FioStatus::MemoryDemodulation);
    EXPECT_EQ(Call(fio.MemorySetBandWidth, 16), FioStatus::MemoryBandwidth);
    EXPECT_EQ(Call(fio.MemorySetSquelchSetting, 2), FioStatus::MemorySquelchSetting);
    EXPECT_EQ(Call(fio.MemorySetAntennaNumber, -1), FioStatus::MemoryAntennaNumber);
    EXPECT_EQ(Call(fio.MemorySetAttenuatorSetting, -1), FioStatus::MemoryAttenuator);
    EXPECT_EQ(Call(fio.MemorySetAFCSetting, 2), FioStatus::MemoryAfc);
    EXPECT_EQ(Call(fio.MemorySetSuppressed, 2), FioStatus::MemoryStatus);
    EXPECT_EQ(Call(fio.MemorySetDfSquelchSetting, 3), FioStatus::MemoryDfSquelchSetting);
    EXPECT_EQ(Call(fio.MemorySetFrequencySpan, 13), FioStatus::MemoryFrequencySpan);
    EXPECT_EQ(Call(fio.MemorySetDfStep, 34), FioStatus::MemoryDfStep);
    EXPECT_EQ(Call(fio.MemorySetReserved1, 33), FioStatus::MemoryDfBandwidth);
}

TEST_F(MemoryStore, RefusesNonFiniteValues)
{
    EXPECT_EQ(Call(fio.MemorySetFrequency, kNaN), FioStatus::MemoryFrequency);
    EXPECT_EQ(Call(fio.MemorySetSquelchLevel, kInfinity), FioStatus::MemorySquelchLevel);
    EXPECT_EQ(Call(fio.MemorySetDfSquelchLevel, -kInfinity), FioStatus::MemoryDfSquelchLevel);
    EXPECT_EQ(Call(fio.MemorySetDfMeasurementTime, kNaN), FioStatus::MemoryDfMeasurementTime);
}

TEST_F(MemoryStore, KeepsFrequencyOutsideLimits)
{
    Put(0, 0, 1.0);
    EXPECT_EQ(GetDouble(fio.MemoryGetFrequency, 0), 1.0);
}

TEST_F(MemoryStore, RefusesTooLongTexts)
{
    EXPECT_EQ(Call(fio.MemoryListSetName, "123456789012345678901234567890123"), FioStatus::ListNameTooLong);
    EXPECT_EQ(Call(fio.MemoryListSetName, "two\nlines"), FioStatus::ListNameCharacters);
    EXPECT_EQ(
        Call(fio.MemoryListSetDescription, "123456789012345678901234567890123"), FioStatus::ListDescriptionTooLong);
    EXPECT_EQ(Call(fio.MemoryListSetDescription, "bell\a"), FioStatus::ListDescriptionCharacters);
    EXPECT_EQ(Call(fio.MemorySetDescription, "123456789012345678901234567890123"), FioStatus::MemoryDescriptionTooLong);
    EXPECT_EQ(Call(fio.MemorySetDescription, "escape\x1B"), FioStatus::MemoryDescriptionCharacters);
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const bool isUnassigned = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
        EXPECT_EQ(Call(fio.MemorySetDescription, std::string(1, static_cast<char>(byte)).c_str()),
            isUnassigned ? FioStatus::MemoryDescriptionCharacters : FioStatus::Ok)
            << byte;
    }
    EXPECT_EQ(Call(fio.MemorySetDescription, nullptr), FioStatus::MissingArgument);
}

TEST_F(MemoryStore, TruncatesTextToBufferAndReportsIt)
{
    EXPECT_EQ(Call(fio.MemoryListSetName, "Airband"), FioStatus::Ok);
    char text[5] = "";
    EXPECT_EQ(Call(fio.MemoryListGetName, text, 5), FioStatus::BufferTooSmall);
    EXPECT_STREQ(text, "Airb");
    EXPECT_EQ(Call(fio.MemoryListGetName, text, 0), FioStatus::MissingArgument);
    EXPECT_EQ(Call(fio.MemoryListGetName, nullptr, 5), FioStatus::MissingArgument);
}

TEST_F(MemoryStore, RefusedFieldKeepsStagingRecord)
{
    EXPECT_EQ(Call(fio.MemorySetBandWidth, 3), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemorySetBandWidth, 99), FioStatus::MemoryBandwidth);
    EXPECT_EQ(Call(fio.MemorySetData, 0), FioStatus::Ok);
    EXPECT_EQ(GetShort(fio.MemoryGetBandWidth, 0), 3);
}

// Numbers of unused places.

TEST_F(MemoryStore, UnusedPlacesOfEmptyListHaveTheirIndexAsNumber)
{
    for (int16_t i = 0; i < 1024; ++i)
        ASSERT_EQ(Number(i), i);
}

TEST_F(MemoryStore, UnusedPlaceWithTakenNumberGetsSpareNumber)
{
    Put(0, 7);
    Put(1, 5);
    EXPECT_EQ(Numbers(9), (std::vector<int>{ 7, 5, 2, 3, 4, 0, 6, 1, 8 }));
    EXPECT_TRUE(AllNumbersDiffer());
}

TEST_F(MemoryStore, NumbersStayDistinctAfterSorting)
{
    Put(3, 1000, 300e6);
    Put(900, 2, 100e6);
    Put(901, 1, 200e6);
    EXPECT_EQ(Call(fio.MemoryListSort, 3), FioStatus::Ok);
    EXPECT_EQ(Numbers(4), (std::vector<int>{ 2, 1, 1000, 3 }));
    EXPECT_TRUE(AllNumbersDiffer());
}

TEST_F(MemoryStore, NumbersStayDistinctAfterReversing)
{
    for (int16_t i = 0; i < 1024; i += 2)
        Put(i, static_cast<int16_t>(1023 - i));
    EXPECT_TRUE(AllNumbersDiffer());
}

TEST_F(MemoryStore, NumbersStayDistinctAfterLoading)
{
    Put(0, 9);
    ASSERT_EQ(Call(fio.MemoryListSaveFile, Path().c_str()), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Number(0), 9);
    EXPECT_EQ(Number(9), 0);
    EXPECT_TRUE(AllNumbersDiffer());
}

TEST_F(MemoryStore, AcceptsDuplicateNumbers)
{
    Put(0, 4);
    Put(1, 4);
    EXPECT_EQ(Numbers(6), (std::vector<int>{ 4, 4, 2, 3, 0, 5 }));
}

// Sorting.

TEST_F(MemoryStore, SortsByStatusThenNumber)
{
    Put(2, 10, 1e6, "a", 1);
    Put(4, 30, 1e6, "b", 0);
    Put(6, 20, 1e6, "c", 0);
    EXPECT_EQ(Call(fio.MemoryListSort, 0), FioStatus::Ok);
    EXPECT_EQ(Numbers(3), (std::vector<int>{ 20, 30, 10 }));
    EXPECT_TRUE(IsUsed(2));
    EXPECT_FALSE(IsUsed(3));
}

TEST_F(MemoryStore, SortsByNumberUpAndDown)
{
    Put(1, 3);
    Put(5, 1);
    Put(7, 2);
    EXPECT_EQ(Call(fio.MemoryListSort, 1), FioStatus::Ok);
    EXPECT_EQ(Numbers(3), (std::vector<int>{ 1, 2, 3 }));
    EXPECT_EQ(Call(fio.MemoryListSort, 2), FioStatus::Ok);
    EXPECT_EQ(Numbers(3), (std::vector<int>{ 3, 2, 1 }));
}

TEST_F(MemoryStore, SortByFrequencyUpAndDownIsStable)
{
    Put(1, 1, 200e6);
    Put(2, 2, 100e6);
    Put(3, 3, 200e6);
    EXPECT_EQ(Call(fio.MemoryListSort, 3), FioStatus::Ok);
    EXPECT_EQ(Numbers(3), (std::vector<int>{ 2, 1, 3 }));
    EXPECT_EQ(Call(fio.MemoryListSort, 4), FioStatus::Ok);
    EXPECT_EQ(Numbers(3), (std::vector<int>{ 1, 3, 2 }));
}

TEST_F(MemoryStore, SortIsStableByEveryKey)
{
    constexpr int16_t kEntries = 1024;
    for (int16_t i = 0; i < kEntries; ++i) {
        EXPECT_EQ(Call(fio.MemorySetAntennaNumber, i), FioStatus::Ok); // identifies equal entries
        Put(i, 7);
    }
    for (int16_t key = 0; key <= 6; ++key) {
        EXPECT_EQ(Call(fio.MemoryListSort, key), FioStatus::Ok);
        for (int16_t i = 0; i < kEntries; ++i)
            ASSERT_EQ(GetShort(fio.MemoryGetAntennaNumber, i), i) << key;
    }
}

TEST_F(MemoryStore, SortByDescriptionIgnoresCase)
{
    Put(0, 0, 1e6, "tower");
    Put(1, 1, 1e6, "\xC9tat"); // E acute: upper and lower case compare equal
    Put(2, 2, 1e6, "\xE9tat");
    Put(3, 3, 1e6, "Approach");
    EXPECT_EQ(Call(fio.MemoryListSort, 5), FioStatus::Ok);
    EXPECT_EQ(Numbers(4), (std::vector<int>{ 3, 0, 1, 2 }));
    EXPECT_EQ(Call(fio.MemoryListSort, 6), FioStatus::Ok);
    EXPECT_EQ(Numbers(4), (std::vector<int>{ 1, 2, 0, 3 }));
}

TEST_F(MemoryStore, SortKeepsNameAndDescription)
{
    EXPECT_EQ(Call(fio.MemoryListSetName, "N"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListSetDescription, "D"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListSort, 0), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.MemoryListGetName), "N");
    EXPECT_EQ(GetText(fio.MemoryListGetDescription), "D");
}

TEST_F(MemoryStore, UnknownSortKeyKeepsOrder)
{
    Put(3, 8);
    EXPECT_EQ(Call(fio.MemoryListSort, 7), FioStatus::SortKeyUnknown);
    EXPECT_EQ(Call(fio.MemoryListSort, -1), FioStatus::SortKeyUnknown);
    EXPECT_TRUE(IsUsed(3));
}

// Files.

TEST_F(MemoryStore, SavedListRoundTrips)
{
    EXPECT_EQ(Call(fio.MemoryListSetName, "Airband"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListSetDescription, "118 \x96 137 MHz"), FioStatus::Ok);
    PutEntryWithEveryField(0);
    PutEntryWithEveryField(1023);
    ASSERT_EQ(Call(fio.MemoryListSaveFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListClear), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.MemoryListGetName), "Airband");
    EXPECT_EQ(GetText(fio.MemoryListGetDescription), "118 \x96 137 MHz");
    ExpectEntryWithEveryField(0);
    EXPECT_FALSE(IsUsed(1));
    ExpectEntryWithEveryField(1023);
}

TEST_F(MemoryStore, SavesListWithoutEntries)
{
    EXPECT_EQ(Call(fio.MemoryListSetName, "Empty"), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListSaveFile, Path().c_str()), FioStatus::Ok);
    Put(0, 0);
    ASSERT_EQ(Call(fio.MemoryListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.MemoryListGetName), "Empty");
    EXPECT_FALSE(IsUsed(0));
}

TEST_F(MemoryStore, LoadReplacesCurrentList)
{
    Put(1, 1);
    ASSERT_EQ(Call(fio.MemoryListSaveFile, Path().c_str()), FioStatus::Ok);
    Put(2, 2);
    ASSERT_EQ(Call(fio.MemoryListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_TRUE(IsUsed(1));
    EXPECT_FALSE(IsUsed(2));
}

TEST_F(MemoryStore, NameInsideAFileChangesInPlace)
{
    PutEntryWithEveryField(4);
    EXPECT_EQ(Call(fio.MemoryListSetName, "Old"), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListSaveFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListClear), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Call(fio.MemoryListSetName, "New"), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListSaveFile, Path().c_str()), FioStatus::Ok);
    ASSERT_EQ(Call(fio.MemoryListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.MemoryListGetName), "New");
    ExpectEntryWithEveryField(4);
}

TEST_F(MemoryStore, FailedLoadLeavesEmptyListAndText)
{
    Put(1, 1);
    EXPECT_EQ(Call(fio.MemoryListLoadFile, Path("nowhere").c_str()), FioStatus::FileOpen);
    EXPECT_FALSE(IsUsed(1));
    EXPECT_EQ(GetText(fio.GetExceptionStringTV), "The file cannot be opened. There is no such file or folder.");
}
