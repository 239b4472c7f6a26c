#include "tests/closed/scarcememory.h"
#include "tests/closed/storefixture.h"

#include <cstring>
#include <limits>

namespace {

constexpr int16_t kOk = 0;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

int16_t Word(FioStatus status)
{
    return static_cast<int16_t>(status);
}

void ExpectSame(const CorrHeader& found, const CorrHeader& expected)
{
    EXPECT_STREQ(found.AntennaName, expected.AntennaName);
    EXPECT_STREQ(found.ManufacturerName, expected.ManufacturerName);
    EXPECT_EQ(found.AntennaCode, expected.AntennaCode);
    EXPECT_EQ(found.Version, expected.Version);
    EXPECT_EQ(found.StartFrequencyHz, expected.StartFrequencyHz);
    EXPECT_EQ(found.StopFrequencyHz, expected.StopFrequencyHz);
    EXPECT_EQ(found.Year, expected.Year);
    EXPECT_EQ(found.Month, expected.Month);
    EXPECT_EQ(found.Day, expected.Day);
}

class CorrectionStore : public StoreTest {
protected:
    CorrectionStore()
        : kfactor(TVFIO_CORR_ENTRIES)
        , omniphase(TVFIO_CORR_ENTRIES)
        , azimuth(TVFIO_CORR_ENTRIES)
    {
    }

    ~CorrectionStore() override
    {
        for (const AzimuthEntry& entry : azimuth)
            fio.AntCorrFreeAngles(entry.Angles);
    }

    void PutAngles(size_t row, double frequencyHz, const std::vector<double>& angles)
    {
        azimuth[row] = { 1, 0, frequencyHz, fio.AntCorrNewAngles(static_cast<int16_t>(angles.size())) };
        std::copy(angles.begin(), angles.end(), fio.AntCorrGetAngles(azimuth[row].Angles, nullptr));
    }

    [[nodiscard]] std::vector<double> Angles(const AzimuthEntry& entry) const
    {
        int16_t angleCount = -1;
        const double* angles = fio.AntCorrGetAngles(entry.Angles, &angleCount);
        return { angles, angles + angleCount };
    }

    std::vector<KfactorCorrEntry> kfactor;
    std::vector<OmniphaseEntry> omniphase;
    std::vector<AzimuthEntry> azimuth;
    int16_t count = -1;
};

} // namespace

TEST_F(CorrectionStore, EntriesHaveThePackedLayout)
{
    EXPECT_EQ(sizeof(KfactorCorrEntry), 28U);
    EXPECT_EQ(offsetof(KfactorCorrEntry, FrequencyHz), 4U);
    EXPECT_EQ(offsetof(KfactorCorrEntry, ActiveLevel), 12U);
    EXPECT_EQ(offsetof(KfactorCorrEntry, PassiveLevel), 20U);
    EXPECT_EQ(sizeof(OmniphaseEntry), 20U);
    EXPECT_EQ(offsetof(OmniphaseEntry, PhaseDegrees), 12U);
    EXPECT_EQ(sizeof(AzimuthEntry), 16U);
    EXPECT_EQ(offsetof(AzimuthEntry, Reserved), 2U);
    EXPECT_EQ(offsetof(AzimuthEntry, FrequencyHz), 4U);
    EXPECT_EQ(offsetof(AzimuthEntry, Angles), 12U);
}

TEST_F(CorrectionStore, NewSetHasDefaultHeaderAndIdentity)
{
    CorrHeader header{};
    EXPECT_EQ(fio.AntCorrGetHeader(&header), kOk);
    EXPECT_STREQ(header.AntennaName, "");
    EXPECT_EQ(header.Version, 1);
    EXPECT_EQ(header.Year, 2012);
    EXPECT_EQ(header.Month, 1);
    EXPECT_EQ(header.Day, 1);
    CorrModIdent identity{};
    EXPECT_EQ(fio.AntCorrGetModIdent(&identity), kOk);
    const std::vector<int32_t> values(std::begin(identity.Values), std::end(identity.Values));
    EXPECT_EQ(values, (std::vector<int32_t>{ 4090, 1000, 1, 1, 1, 0, 1, 0, 1, 1, 0 }));
    EXPECT_STREQ(identity.Text, "TARVIK_CORRECTIONFILE");
}

TEST_F(CorrectionStore, NewSetHasEmptyTablesAndNoFileName)
{
    EXPECT_EQ(fio.AntCorrGetKFactor(kfactor.data(), &count), kOk);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(fio.AntCorrGetOmniphase(omniphase.data(), &count), kOk);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(fio.AntCorrGetAzimuth(azimuth.data(), &count), kOk);
    EXPECT_EQ(count, 0);
    char name[TVFIO_TEXT_SIZE] = "unset";
    EXPECT_EQ(fio.AntCorrGetFileName(name, TVFIO_TEXT_SIZE), kOk);
    EXPECT_STREQ(name, "");
}

TEST_F(CorrectionStore, SortMovesUsedEntriesToFrontOfArrayAndSet)
{
    kfactor[3] = { 1, 0, 30e6, 3, 30 };
    kfactor[999] = { -1, 0, 10e6, 1, 10 };
    kfactor[500] = { 1, 0, 20e6, 2, 20 };
    EXPECT_EQ(fio.AntCorrSortKFactor(kfactor.data(), 3), kOk);
    EXPECT_EQ(double{ kfactor[0].FrequencyHz }, 10e6);
    EXPECT_EQ(double{ kfactor[2].PassiveLevel }, 30);
    EXPECT_EQ(kfactor[3].Used, 0);

    std::vector<KfactorCorrEntry> stored(TVFIO_CORR_ENTRIES);
    EXPECT_EQ(fio.AntCorrGetKFactor(stored.data(), &count), kOk);
    EXPECT_EQ(count, 3);
    EXPECT_NE(stored[1].Used, 0);
    EXPECT_EQ(double{ stored[1].FrequencyHz }, 20e6);
    EXPECT_EQ(double{ stored[1].ActiveLevel }, 2);
    EXPECT_EQ(double{ stored[1].PassiveLevel }, 20);
    EXPECT_EQ(stored[3].Used, 0);
}

TEST_F(CorrectionStore, SetHasItsTablesByFrequency)
{
    for (const size_t row : { 2U, 1U, 0U }) {
        const double frequencyHz = 30e6 - 10e6 * static_cast<double>(row);
        kfactor[row] = { 1, 0, frequencyHz, 0, 0 };
        omniphase[row] = { 1, 0, frequencyHz, 0 };
        PutAngles(row, frequencyHz, { frequencyHz });
    }
    EXPECT_EQ(fio.AntCorrSortKFactor(kfactor.data(), 3), kOk);
    EXPECT_EQ(fio.AntCorrSortOmniphase(omniphase.data(), 3), kOk);
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 3), kOk);
    for (const AzimuthEntry& entry : azimuth)
        fio.AntCorrFreeAngles(entry.Angles);
    EXPECT_EQ(fio.AntCorrGetKFactor(kfactor.data(), &count), kOk);
    EXPECT_EQ(fio.AntCorrGetOmniphase(omniphase.data(), &count), kOk);
    EXPECT_EQ(fio.AntCorrGetAzimuth(azimuth.data(), &count), kOk);
    for (size_t row = 0; row < 3; ++row) {
        const double frequencyHz = 10e6 + 10e6 * static_cast<double>(row);
        EXPECT_EQ(double{ kfactor[row].FrequencyHz }, frequencyHz);
        EXPECT_EQ(double{ omniphase[row].FrequencyHz }, frequencyHz);
        EXPECT_EQ(double{ azimuth[row].FrequencyHz }, frequencyHz);
        EXPECT_EQ(Angles(azimuth[row]), std::vector<double>{ frequencyHz });
    }
}

TEST_F(CorrectionStore, TablesAreReadOverOlderEntries)
{
    for (const size_t row : { 0U, 1U, 999U }) {
        kfactor[row] = { 1, 7, 1e6, 2, 3 };
        omniphase[row] = { 1, 7, 1e6, 2 };
        azimuth[row] = { 1, 7, 1e6, 12345 };
    }
    EXPECT_EQ(fio.AntCorrGetKFactor(kfactor.data(), &count), kOk);
    EXPECT_EQ(fio.AntCorrGetOmniphase(omniphase.data(), &count), kOk);
    EXPECT_EQ(fio.AntCorrGetAzimuth(azimuth.data(), &count), kOk);
    const auto isEmpty = [](const auto& entry) {
        const std::remove_cvref_t<decltype(entry)> empty{};
        return std::memcmp(&entry, &empty, sizeof empty) == 0;
    };
    EXPECT_TRUE(std::all_of(kfactor.begin(), kfactor.end(), isEmpty));
    EXPECT_TRUE(std::all_of(omniphase.begin(), omniphase.end(), isEmpty));
    EXPECT_TRUE(std::all_of(azimuth.begin(), azimuth.end(), isEmpty));
}

TEST_F(CorrectionStore, SortIsStableInArrayAndSet)
{
    for (size_t i = 0; i < TVFIO_CORR_ENTRIES; ++i)
        kfactor[i] = { 1, 0, 10e6, static_cast<double>(i), 0 };
    EXPECT_EQ(fio.AntCorrSortKFactor(kfactor.data(), TVFIO_CORR_ENTRIES), kOk);
    std::vector<KfactorCorrEntry> stored(TVFIO_CORR_ENTRIES);
    EXPECT_EQ(fio.AntCorrGetKFactor(stored.data(), &count), kOk);
    for (size_t i = 0; i < TVFIO_CORR_ENTRIES; ++i) {
        ASSERT_EQ(double{ kfactor[i].ActiveLevel }, static_cast<double>(i));
        ASSERT_EQ(double{ stored[i].ActiveLevel }, static_cast<double>(i));
    }
}

TEST_F(CorrectionStore, SortsPhases)
{
    omniphase[1] = { 1, 0, 20e6, 180 };
    omniphase[2] = { 1, 0, 10e6, -180 };
    EXPECT_EQ(fio.AntCorrSortOmniphase(omniphase.data(), 2), kOk);
    EXPECT_EQ(double{ omniphase[0].PhaseDegrees }, -180);
    EXPECT_EQ(double{ omniphase[1].PhaseDegrees }, 180);
}

TEST_F(CorrectionStore, SortMovesAnglesWithTheirEntry)
{
    PutAngles(1, 20e6, { 12, -5.5 });
    PutAngles(2, 10e6, {});
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 2), kOk);
    EXPECT_TRUE(Angles(azimuth[0]).empty());
    EXPECT_EQ(Angles(azimuth[1]), (std::vector<double>{ 12, -5.5 }));
    EXPECT_EQ(int32_t{ azimuth[2].Angles }, 0);
}

TEST_F(CorrectionStore, GetAzimuthsCopiesAngles)
{
    PutAngles(0, 10e6, { 1, 2, 3 });
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 1), kOk);
    fio.AntCorrGetAngles(azimuth[0].Angles, nullptr)[0] = 99;
    std::vector<AzimuthEntry> stored(TVFIO_CORR_ENTRIES);
    EXPECT_EQ(fio.AntCorrGetAzimuth(stored.data(), &count), kOk);
    ASSERT_EQ(count, 1);
    EXPECT_EQ(Angles(stored[0]), (std::vector<double>{ 1, 2, 3 }));
    fio.AntCorrFreeAngles(stored[0].Angles);
}

TEST_F(CorrectionStore, RefusesCountOtherThanNumberOfUsedEntries)
{
    kfactor[0] = { 1, 0, 10e6, 0, 0 };
    kfactor[7] = { 1, 0, 5e6, 0, 0 };
    EXPECT_EQ(fio.AntCorrSortKFactor(kfactor.data(), 1), Word(FioStatus::CorrectionCount));
    EXPECT_EQ(double{ kfactor[0].FrequencyHz }, 10e6);
    EXPECT_EQ(fio.AntCorrGetKFactor(kfactor.data(), &count), kOk);
    EXPECT_EQ(count, 0);
}

TEST_F(CorrectionStore, RefusesInvalidEntries)
{
    kfactor[0] = { 1, 0, 10e6, kNaN, 0 };
    EXPECT_EQ(fio.AntCorrSortKFactor(kfactor.data(), 1), Word(FioStatus::CorrectionKfactorEntry));
    omniphase[0] = { 1, 0, kNaN, 0 };
    EXPECT_EQ(fio.AntCorrSortOmniphase(omniphase.data(), 1), Word(FioStatus::CorrectionOmniphaseEntry));
    PutAngles(0, 10e6, { kNaN });
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 1), Word(FioStatus::CorrectionAzimuthEntry));
}

TEST_F(CorrectionStore, RefusesAnglesThatAreNotInUse)
{
    PutAngles(0, 10e6, { 1, 2 });
    fio.AntCorrFreeAngles(azimuth[0].Angles);
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 1), Word(FioStatus::CorrectionAngleCount));
    azimuth[0].Angles = -1;
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 1), Word(FioStatus::CorrectionAngleCount));
}

TEST_F(CorrectionStore, ReservedWordIsIgnoredAndCleared)
{
    PutAngles(0, 10e6, { 1, 2 });
    azimuth[0].Reserved = 0x7FFF;
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 1), kOk);
    std::vector<AzimuthEntry> stored(TVFIO_CORR_ENTRIES);
    stored[0].Reserved = 5;
    EXPECT_EQ(fio.AntCorrGetAzimuth(stored.data(), &count), kOk);
    EXPECT_EQ(Angles(stored[0]), (std::vector<double>{ 1, 2 }));
    EXPECT_EQ(int16_t{ stored[0].Reserved }, 0);
    fio.AntCorrFreeAngles(stored[0].Angles);
}

TEST_F(CorrectionStore, MakesAnglesForValidCountsOnly)
{
    EXPECT_EQ(fio.AntCorrNewAngles(0), 0);
    EXPECT_EQ(fio.AntCorrNewAngles(-1), 0);
    EXPECT_EQ(fio.AntCorrNewAngles(TVFIO_MAX_ANGLES + 1), 0);
    const int32_t angles = fio.AntCorrNewAngles(TVFIO_MAX_ANGLES);
    ASSERT_NE(angles, 0);
    EXPECT_EQ(fio.AntCorrGetAngles(angles, &count)[TVFIO_MAX_ANGLES - 1], 0);
    EXPECT_EQ(count, TVFIO_MAX_ANGLES);
    const int32_t others = fio.AntCorrNewAngles(1);
    EXPECT_NE(others, angles);
    fio.AntCorrFreeAngles(angles);
    EXPECT_EQ(fio.AntCorrGetAngles(angles, &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_NE(fio.AntCorrGetAngles(others, &count), nullptr);
    fio.AntCorrFreeAngles(others);
    fio.AntCorrFreeAngles(0);
}

TEST_F(CorrectionStore, TableForWhichMemoryRunsOutIsEmpty)
{
    PutAngles(0, 10e6, std::vector<double>(10));
    PutAngles(1, 20e6, std::vector<double>(TVFIO_MAX_ANGLES));
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 2), kOk);
    for (size_t row : { 0U, 1U })
        fio.AntCorrFreeAngles(azimuth[row].Angles);
    const int32_t next = fio.AntCorrNewAngles(1);
    fio.AntCorrFreeAngles(next);
    {
        const ScarceMemory memory(TVFIO_MAX_ANGLES * sizeof(double));
        EXPECT_EQ(fio.AntCorrGetAzimuth(azimuth.data(), &count), Word(FioStatus::OutOfMemory));
    }
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(
        std::none_of(azimuth.begin(), azimuth.end(), [](const AzimuthEntry& entry) { return entry.Used != 0; }));
    EXPECT_EQ(int32_t{ azimuth[0].Angles }, 0);
    EXPECT_EQ(fio.AntCorrNewAngles(1), next); // the first list of angles is free again
    fio.AntCorrFreeAngles(next);
}

TEST_F(CorrectionStore, RefusedHeaderKeepsOldOne)
{
    CorrHeader header{};
    header.Version = 9;
    header.StartFrequencyHz = kNaN;
    EXPECT_EQ(fio.AntCorrSetHeader(&header), Word(FioStatus::CorrectionHeaderFrequency));
    header.StartFrequencyHz = 0;
    std::memset(header.AntennaName, 'x', sizeof header.AntennaName);
    EXPECT_EQ(fio.AntCorrSetHeader(&header), Word(FioStatus::CorrectionHeaderText));
    EXPECT_EQ(fio.AntCorrSetHeader(nullptr), Word(FioStatus::MissingArgument));
    CorrHeader kept{};
    EXPECT_EQ(fio.AntCorrGetHeader(&kept), kOk);
    EXPECT_EQ(kept.Version, 1);
}

TEST_F(CorrectionStore, SavedSetRoundTrips)
{
    CorrHeader header{ "Loop", "Maker", 17, 4, 1e6, 30e6, 2031, 12, 24 };
    EXPECT_EQ(fio.AntCorrSetHeader(&header), kOk);
    kfactor[0] = { 1, 0, 10e6, 1.25, 2.5 };
    EXPECT_EQ(fio.AntCorrSortKFactor(kfactor.data(), 1), kOk);
    omniphase[0] = { 1, 0, 10e6, -12.5 };
    EXPECT_EQ(fio.AntCorrSortOmniphase(omniphase.data(), 1), kOk);
    PutAngles(0, 10e6, { 12, -5.5, 360 });
    EXPECT_EQ(fio.AntCorrSortAzimuth(azimuth.data(), 1), kOk);
    fio.AntCorrFreeAngles(azimuth[0].Angles);
    ASSERT_EQ(fio.AntCorrSaveFile(Path("loop.tvc").c_str()), kOk);
    EXPECT_EQ(fio.AntCorrClear(), kOk);
    ASSERT_EQ(fio.AntCorrLoadFile(Path("loop.tvc").c_str()), kOk);

    CorrHeader read{};
    EXPECT_EQ(fio.AntCorrGetHeader(&read), kOk);
    ExpectSame(read, header);
    EXPECT_EQ(fio.AntCorrGetKFactor(kfactor.data(), &count), kOk);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(double{ kfactor[0].PassiveLevel }, 2.5);
    EXPECT_EQ(fio.AntCorrGetOmniphase(omniphase.data(), &count), kOk);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(double{ omniphase[0].PhaseDegrees }, -12.5);
    EXPECT_EQ(fio.AntCorrGetAzimuth(azimuth.data(), &count), kOk);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(Angles(azimuth[0]), (std::vector<double>{ 12, -5.5, 360 }));
}

TEST_F(CorrectionStore, FileNameIsThatOfLastLoadOrSave)
{
    const std::string greek = "\xCE\xB2.tvc";
    ASSERT_EQ(fio.AntCorrSaveFile(Path(greek).c_str()), kOk);
    char name[TVFIO_TEXT_SIZE] = "";
    EXPECT_EQ(fio.AntCorrGetFileName(name, TVFIO_TEXT_SIZE), kOk);
    EXPECT_EQ(name, greek);
    EXPECT_EQ(fio.AntCorrLoadFile(Path("missing").c_str()), Word(FioStatus::FileOpen));
    EXPECT_EQ(fio.AntCorrGetFileName(name, TVFIO_TEXT_SIZE), kOk);
    EXPECT_STREQ(name, "");
}

TEST_F(CorrectionStore, RefusesMissingArguments)
{
    EXPECT_EQ(fio.AntCorrGetHeader(nullptr), Word(FioStatus::MissingArgument));
    EXPECT_EQ(fio.AntCorrGetModIdent(nullptr), Word(FioStatus::MissingArgument));
    EXPECT_EQ(fio.AntCorrGetKFactor(nullptr, &count), Word(FioStatus::MissingArgument));
    EXPECT_EQ(fio.AntCorrGetAzimuth(azimuth.data(), nullptr), Word(FioStatus::MissingArgument));
    EXPECT_EQ(fio.AntCorrSortOmniphase(nullptr, 0), Word(FioStatus::MissingArgument));
    EXPECT_EQ(fio.AntCorrLoadFile(nullptr), Word(FioStatus::MissingArgument));
    EXPECT_EQ(fio.AntCorrSaveFile(""), Word(FioStatus::PathEmpty));
}
