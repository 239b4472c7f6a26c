#include "tests/closed/storefixture.h"

#include <limits>

namespace {

class AntennaStore : public StoreTest {
protected:
    void StageEveryField()
    {
        EXPECT_EQ(Call(fio.AntennaSetInclude, 1), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetName, "Discone on the roof, 32 letters."), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetStartFrequency, 25e6), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetStopFrequency, 1300e6), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetDefFrequencyOffset, -20e9), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetPassiveBits, 3), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetActiveBits, 2), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetKFactorTableName, "1234567890123456789012345678901234567890"), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetAntennaCode, 255), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetNorthOffset, 359.9), FioStatus::Ok);
        EXPECT_EQ(Call(fio.AntennaSetCorrectionSetName, "set"), FioStatus::Ok);
    }

    void ExpectEveryField(int16_t index)
    {
        EXPECT_NE(GetShort(fio.AntennaGetUsed, index), 0);
        EXPECT_EQ(GetShort(fio.AntennaGetInclude, index), 1);
        EXPECT_EQ(GetText(fio.AntennaGetName, index), "Discone on the roof, 32 letters.");
        EXPECT_EQ(GetDouble(fio.AntennaGetStartFrequency, index), 25e6);
        EXPECT_EQ(GetDouble(fio.AntennaGetStopFrequency, index), 1300e6);
        EXPECT_EQ(GetDouble(fio.AntennaGetDefFrequencyOffset, index), -20e9);
        EXPECT_EQ(GetShort(fio.AntennaGetPassiveBits, index), 3);
        EXPECT_EQ(GetShort(fio.AntennaGetActiveBits, index), 2);
        EXPECT_EQ(GetText(fio.AntennaGetKFactorTableName, index), "1234567890123456789012345678901234567890");
        EXPECT_EQ(GetShort(fio.AntennaGetAntennaCode, index), 255);
        EXPECT_EQ(GetDouble(fio.AntennaGetNorthOffset, index), 359.9);
        EXPECT_EQ(GetText(fio.AntennaGetCorrectionSetName, index), "set");
    }
};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST_F(AntennaStore, CountIncludesUnusedIndex0)
{
    int16_t count = 0;
    EXPECT_EQ(Call(fio.AntennaListGetMaxNumberOfItems, &count), FioStatus::Ok);
    EXPECT_EQ(count, 100);
}

TEST_F(AntennaStore, HasNoAntennaAtIndex0)
{
    int16_t used = 0;
    StageEveryField();
    EXPECT_EQ(Call(fio.AntennaSetData, 0), FioStatus::AntennaIndex);
    EXPECT_EQ(Call(fio.AntennaGetUsed, 0, &used), FioStatus::AntennaIndex);
    EXPECT_EQ(Call(fio.AntennaSetData, 100), FioStatus::AntennaIndex);
    EXPECT_EQ(Call(fio.AntennaGetUsed, 100, &used), FioStatus::AntennaIndex);
}

TEST_F(AntennaStore, RefusedCommitKeepsStagedFields)
{
    StageEveryField();
    EXPECT_EQ(Call(fio.AntennaSetData, 0), FioStatus::AntennaIndex);
    EXPECT_EQ(Call(fio.AntennaSetData, 1), FioStatus::Ok);
    ExpectEveryField(1);
}

TEST_F(AntennaStore, SavedListRoundTrips)
{
    EXPECT_EQ(Call(fio.AntennaListSetName, "Roof"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.AntennaListSetDescription, "Both masts"), FioStatus::Ok);
    StageEveryField();
    EXPECT_EQ(Call(fio.AntennaSetData, 1), FioStatus::Ok);
    StageEveryField();
    EXPECT_EQ(Call(fio.AntennaSetData, 99), FioStatus::Ok);
    ASSERT_EQ(Call(fio.AntennaListSaveFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Call(fio.AntennaListClear), FioStatus::Ok);
    ASSERT_EQ(Call(fio.AntennaListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.AntennaListGetName), "Roof");
    EXPECT_EQ(GetText(fio.AntennaListGetDescription), "Both masts");
    ExpectEveryField(1);
    EXPECT_EQ(GetShort(fio.AntennaGetUsed, 2), 0);
    ExpectEveryField(99);
}

TEST_F(AntennaStore, SavesEmptyList)
{
    EXPECT_EQ(Call(fio.AntennaListSetName, "Empty"), FioStatus::Ok);
    ASSERT_EQ(Call(fio.AntennaListSaveFile, Path().c_str()), FioStatus::Ok);
    ASSERT_EQ(Call(fio.AntennaListLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.AntennaListGetName), "Empty");
    for (int16_t i = 1; i < 100; ++i)
        EXPECT_EQ(GetShort(fio.AntennaGetUsed, i), 0);
}

TEST_F(AntennaStore, KeepsIncludeFlagInBothNotations)
{
    EXPECT_EQ(Call(fio.AntennaSetInclude, -1), FioStatus::Ok);
    EXPECT_EQ(Call(fio.AntennaSetData, 1), FioStatus::Ok);
    EXPECT_EQ(GetShort(fio.AntennaGetInclude, 1), -1);
    EXPECT_EQ(Call(fio.AntennaSetInclude, 2), FioStatus::AntennaInclude);
}

TEST_F(AntennaStore, RefusesInvalidFields)
{
    EXPECT_EQ(Call(fio.AntennaSetName, "123456789012345678901234567890123"), FioStatus::AntennaNameTooLong);
    EXPECT_EQ(Call(fio.AntennaSetName, "a\rb"), FioStatus::AntennaNameCharacters);
    EXPECT_EQ(Call(fio.AntennaSetStartFrequency, kNaN), FioStatus::AntennaStartFrequency);
    EXPECT_EQ(Call(fio.AntennaSetStopFrequency, kNaN), FioStatus::AntennaStopFrequency);
    EXPECT_EQ(Call(fio.AntennaSetDefFrequencyOffset, kNaN), FioStatus::AntennaFrequencyOffset);
    EXPECT_EQ(Call(fio.AntennaSetPassiveBits, 4), FioStatus::AntennaPassiveBits);
    EXPECT_EQ(Call(fio.AntennaSetActiveBits, -1), FioStatus::AntennaActiveBits);
    EXPECT_EQ(Call(fio.AntennaSetKFactorTableName, "12345678901234567890123456789012345678901"),
        FioStatus::AntennaKfactorNameTooLong);
    EXPECT_EQ(Call(fio.AntennaSetKFactorTableName, "\x7F"), FioStatus::AntennaKfactorNameCharacters);
    EXPECT_EQ(Call(fio.AntennaSetAntennaCode, -1), FioStatus::AntennaCode);
    EXPECT_EQ(Call(fio.AntennaSetNorthOffset, kNaN), FioStatus::AntennaNorthOffset);
    EXPECT_EQ(Call(fio.AntennaSetCorrectionSetName, "12345678901234567890123456789012345678901"),
        FioStatus::AntennaCorrectionNameTooLong);
    EXPECT_EQ(Call(fio.AntennaSetCorrectionSetName, "\x01"), FioStatus::AntennaCorrectionNameCharacters);
}
