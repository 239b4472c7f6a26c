#include "tests/closed/storefixture.h"

#include <limits>

namespace {

class KfactorStore : public StoreTest {
protected:
    void Append(double frequencyHz, double passive, double active)
    {
        EXPECT_EQ(Call(fio.KfactorInsert), FioStatus::Ok);
        const auto index = static_cast<int16_t>(Count() - 1);
        EXPECT_EQ(Call(fio.KfactorSetFrequency, index, frequencyHz), FioStatus::Ok);
        EXPECT_EQ(Call(fio.KfactorSetPassive, index, passive), FioStatus::Ok);
        EXPECT_EQ(Call(fio.KfactorSetActive, index, active), FioStatus::Ok);
    }

    [[nodiscard]] int16_t Count() const
    {
        int16_t count = -1;
        EXPECT_EQ(Call(fio.KfactorTableGetNumberOfKFactors, &count), FioStatus::Ok);
        return count;
    }

    [[nodiscard]] std::vector<double> Entry(int16_t index) const
    {
        return { GetDouble(fio.KfactorGetFrequency, index), GetDouble(fio.KfactorGetPassive, index),
            GetDouble(fio.KfactorGetActive, index) };
    }
};

using Values = std::vector<double>;

} // namespace

TEST_F(KfactorStore, GrowsEntryByEntry)
{
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Call(fio.KfactorInsert), FioStatus::Ok);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Entry(0), (Values{ 0, 0, 0 }));
}

TEST_F(KfactorStore, HasNoEntryAfterTheLast)
{
    Append(1e6, 2, 3);
    double value = 0;
    EXPECT_EQ(Call(fio.KfactorGetFrequency, 1, &value), FioStatus::KfactorIndex);
    EXPECT_EQ(Call(fio.KfactorSetActive, 1, 1.0), FioStatus::KfactorIndex);
    EXPECT_EQ(Call(fio.KfactorSetPassive, -1, 1.0), FioStatus::KfactorIndex);
}

TEST_F(KfactorStore, HoldsAtMost1000Entries)
{
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(Call(fio.KfactorInsert), FioStatus::Ok);
    EXPECT_EQ(Call(fio.KfactorInsert), FioStatus::KfactorFull);
    EXPECT_EQ(Count(), 1000);
}

TEST_F(KfactorStore, RefusesNonFiniteValues)
{
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    Append(1e6, 2, 3);
    EXPECT_EQ(Call(fio.KfactorSetFrequency, 0, kNaN), FioStatus::KfactorFrequency);
    EXPECT_EQ(Call(fio.KfactorSetPassive, 0, kNaN), FioStatus::KfactorPassive);
    EXPECT_EQ(Call(fio.KfactorSetActive, 0, kNaN), FioStatus::KfactorActive);
    EXPECT_EQ(Entry(0), (Values{ 1e6, 2, 3 }));
}

TEST_F(KfactorStore, SortByFrequencyIsStable)
{
    Append(300e6, 1, 1);
    Append(100e6, 2, 2);
    Append(300e6, 3, 3);
    EXPECT_EQ(Call(fio.KfactorTableSort), FioStatus::Ok);
    EXPECT_EQ(Entry(0), (Values{ 100e6, 2, 2 }));
    EXPECT_EQ(Entry(1), (Values{ 300e6, 1, 1 }));
    EXPECT_EQ(Entry(2), (Values{ 300e6, 3, 3 }));
}

TEST_F(KfactorStore, SortOfLongTableIsStable)
{
    for (int i = 0; i < 1000; ++i)
        Append(100e6, i, 0);
    EXPECT_EQ(Call(fio.KfactorTableSort), FioStatus::Ok);
    for (int16_t i = 0; i < 1000; ++i)
        ASSERT_EQ(Entry(i), (Values{ 100e6, static_cast<double>(i), 0 }));
}

TEST_F(KfactorStore, SavedTableRoundTrips)
{
    EXPECT_EQ(Call(fio.KfactorTableSetName, "Discone"), FioStatus::Ok);
    EXPECT_EQ(Call(fio.KfactorTableSetDescription, "dB/m"), FioStatus::Ok);
    Append(85e6, 12.5, -99.99);
    Append(1e9, 200, 0.01);
    ASSERT_EQ(Call(fio.KfactorTableSaveFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Call(fio.KfactorTableClear), FioStatus::Ok);
    EXPECT_EQ(Count(), 0);
    ASSERT_EQ(Call(fio.KfactorTableLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.KfactorTableGetName), "Discone");
    EXPECT_EQ(GetText(fio.KfactorTableGetDescription), "dB/m");
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Entry(0), (Values{ 85e6, 12.5, -99.99 }));
    EXPECT_EQ(Entry(1), (Values{ 1e9, 200, 0.01 }));
}

TEST_F(KfactorStore, SavesEmptyTable)
{
    ASSERT_EQ(Call(fio.KfactorTableSaveFile, Path().c_str()), FioStatus::Ok);
    ASSERT_EQ(Call(fio.KfactorTableLoadFile, Path().c_str()), FioStatus::Ok);
    EXPECT_EQ(Count(), 0);
}
