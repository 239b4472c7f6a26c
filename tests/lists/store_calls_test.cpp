// The order in which four families call the list store.
#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/antenna/antennaList.h"
#include "lists/correction/correctionSet.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/suppress/suppressList.h"

namespace tarvik {

namespace {

QStringList calls; // NOLINT: the store's calls are plain functions

/// The store only records its calls; each list has one entry.
class StoreCalls : public ListTest {
protected:
    StoreCalls()
    {
        calls.clear();
        Store(File(), "any");
    }

    QString File() const
    {
        return FilePath("list.bin");
    }
    QString NewFile() const
    {
        return FilePath("new.bin");
    }
};

#define RECORD_LIST(Prefix)                                                                                            \
    TvFio().Prefix##Clear = [](int16_t*) { calls.append("Clear"); };                                                   \
    TvFio().Prefix##SetName = [](int16_t*, const char*) { calls.append("SetName"); };                                  \
    TvFio().Prefix##SetDescription = [](int16_t*, const char*) { calls.append("SetDescription"); };                    \
    TvFio().Prefix##GetName = [](int16_t*, char*, int32_t) { calls.append("GetName"); };                               \
    TvFio().Prefix##GetDescription = [](int16_t*, char*, int32_t) { calls.append("GetDescription"); };                 \
    TvFio().Prefix##SaveFile = [](int16_t*, const char*) { calls.append("SaveFile"); };                                \
    TvFio().Prefix##LoadFile = [](int16_t*, const char*) { calls.append("LoadFile"); }
#define RECORD_COUNT(Call, Count)                                                                                      \
    TvFio().Call = [](int16_t*, int16_t* count) {                                                                      \
        calls.append("Count");                                                                                         \
        *count = Count;                                                                                                \
    }
#define RECORD_USED(Call)                                                                                              \
    TvFio().Call = [](int16_t*, int16_t index, int16_t* used) {                                                        \
        calls.append(QStringLiteral("Used %1").arg(index));                                                            \
        *used = 1;                                                                                                     \
    }
#define RECORD_COMMIT(Call)                                                                                            \
    TvFio().Call = [](int16_t*, int16_t index) { calls.append(QStringLiteral("Commit %1").arg(index)); }
#define RECORD_FIELD(Prefix, Field, Type)                                                                              \
    TvFio().Prefix##Get##Field = [](int16_t*, int16_t, Type*) { calls.append(#Field); };                               \
    TvFio().Prefix##Set##Field = [](int16_t*, Type) { calls.append(#Field); }
#define RECORD_TEXT(Prefix, Field)                                                                                     \
    TvFio().Prefix##Get##Field = [](int16_t*, int16_t, char*, int32_t) { calls.append(#Field); };                      \
    TvFio().Prefix##Set##Field = [](int16_t*, const char*) { calls.append(#Field); }
#define RECORD_ENTRY_FIELD(Field)                                                                                      \
    TvFio().KfactorGet##Field = [](int16_t*, int16_t, double*) { calls.append(#Field); };                              \
    TvFio().KfactorSet##Field = [](int16_t*, int16_t index, double) {                                                  \
        calls.append(QStringLiteral(#Field " %1").arg(index));                                                         \
    }

void RecordAntennas()
{
    RECORD_LIST(AntennaList);
    RECORD_COUNT(AntennaListGetMaxNumberOfItems, 2);
    RECORD_USED(AntennaGetUsed);
    RECORD_COMMIT(AntennaSetData);
    RECORD_FIELD(Antenna, Include, int16_t);
    RECORD_TEXT(Antenna, Name);
    RECORD_FIELD(Antenna, StartFrequency, double);
    RECORD_FIELD(Antenna, StopFrequency, double);
    RECORD_FIELD(Antenna, DefFrequencyOffset, double);
    RECORD_FIELD(Antenna, PassiveBits, int16_t);
    RECORD_FIELD(Antenna, ActiveBits, int16_t);
    RECORD_TEXT(Antenna, KFactorTableName);
    RECORD_FIELD(Antenna, AntennaCode, int16_t);
    RECORD_FIELD(Antenna, NorthOffset, double);
    RECORD_TEXT(Antenna, CorrectionSetName);
}

const QStringList kAntennaFields{ "Include", "Name", "StartFrequency", "StopFrequency", "DefFrequencyOffset",
    "PassiveBits", "ActiveBits", "KFactorTableName", "AntennaCode", "NorthOffset", "CorrectionSetName" };

void RecordKfactors()
{
    RECORD_LIST(KfactorTable);
    RECORD_COUNT(KfactorTableGetNumberOfKFactors, 1);
    TvFio().KfactorInsert = [](int16_t*) { calls.append("Insert"); };
    TvFio().KfactorTableSort = [](int16_t*) { calls.append("Sort"); };
    RECORD_ENTRY_FIELD(Frequency);
    RECORD_ENTRY_FIELD(Passive);
    RECORD_ENTRY_FIELD(Active);
}

void RecordRanges()
{
    RECORD_LIST(SuppressList);
    RECORD_COUNT(SuppressListGetMaxNumberOfItems, 1);
    RECORD_USED(SuppressIsInUse);
    RECORD_COMMIT(SuppressSetData);
    RECORD_FIELD(Suppress, Include, int16_t);
    RECORD_FIELD(Suppress, StartFrequency, double);
    RECORD_FIELD(Suppress, StopFrequency, double);
    RECORD_TEXT(Suppress, Description);
    TvFio().SuppressListSort = [](int16_t*) { calls.append("Sort"); };
    TvFio().SuppressListSortAndMerge = [](int16_t*) { calls.append("SortAndMerge"); };
}

void RecordSet()
{
    TvFio().AntCorrLoadFile = [](const char*) -> int16_t { return calls.append("LoadFile"), int16_t{ 0 }; };
    TvFio().AntCorrSaveFile = [](const char*) -> int16_t { return calls.append("SaveFile"), int16_t{ 0 }; };
    TvFio().AntCorrGetHeader = [](CorrHeader*) -> int16_t { return calls.append("GetHeader"), int16_t{ 0 }; };
    TvFio().AntCorrSetHeader = [](const CorrHeader*) -> int16_t { return calls.append("SetHeader"), int16_t{ 0 }; };
    TvFio().AntCorrGetModIdent = [](CorrModIdent*) -> int16_t { return calls.append("GetModIdent"), int16_t{ 0 }; };
    TvFio().AntCorrGetKFactor = [](KfactorCorrEntry*, int16_t*) -> int16_t {
        return calls.append("GetKFactor"), int16_t{ 0 };
    };
    TvFio().AntCorrGetOmniphase = [](OmniphaseEntry*, int16_t*) -> int16_t {
        return calls.append("GetOmniphase"), int16_t{ 0 };
    };
    TvFio().AntCorrGetAzimuth = [](AzimuthEntry*, int16_t*) -> int16_t {
        return calls.append("GetAzimuth"), int16_t{ 0 };
    };
    TvFio().AntCorrGetFileName = [](char*, int32_t) -> int16_t { return calls.append("GetFileName"), int16_t{ 0 }; };
}

#undef RECORD_LIST
#undef RECORD_COUNT
#undef RECORD_USED
#undef RECORD_COMMIT
#undef RECORD_FIELD
#undef RECORD_TEXT
#undef RECORD_ENTRY_FIELD

const QStringList kBeginWrite{ "Clear", "SetName", "SetDescription" };
const QStringList kBeginRead{ "GetName", "GetDescription", "Count" };
const QStringList kRangeFields{ "Include", "StartFrequency", "StopFrequency", "Description" };

} // namespace

TEST_F(StoreCalls, AntennaListIsWrittenInOrder)
{
    RecordAntennas();
    AntennaTable table;
    table.Row(4).Used = true;
    EXPECT_TRUE(WriteAntennaMRFile(NewFile(), table));
    EXPECT_EQ(calls, kBeginWrite + kAntennaFields + QStringList({ "Commit 5", "SaveFile" }));
}

TEST_F(StoreCalls, AntennaListIsReadInOrder)
{
    RecordAntennas();
    AntennaTable table;
    EXPECT_TRUE(ReadAntennaMRFile(File(), table));
    EXPECT_EQ(calls, QStringList({ "Clear", "LoadFile" }) + kBeginRead + QStringList{ "Used 1" } + kAntennaFields);
}

TEST_F(StoreCalls, KfactorTableIsWrittenDenselyInOrder)
{
    RecordKfactors();
    KfactorTable table;
    table.Row(4).Used = true;
    table.Row(9).Used = true;
    EXPECT_TRUE(WriteKFactorMRFile(NewFile(), table));
    EXPECT_EQ(calls,
        kBeginWrite
            + QStringList({ "Insert", "Frequency 0", "Passive 0", "Active 0", "Insert", "Frequency 1", "Passive 1",
                "Active 1", "SaveFile" }));
}

TEST_F(StoreCalls, KfactorTableIsReadInOrder)
{
    RecordKfactors();
    KfactorTable table;
    EXPECT_TRUE(LoadKfactorFile(File(), table));
    EXPECT_EQ(
        calls, QStringList({ "Clear", "LoadFile" }) + kBeginRead + QStringList({ "Frequency", "Passive", "Active" }));
}

TEST_F(StoreCalls, SortPassesTheListThroughTheStore)
{
    RecordKfactors();
    RecordRanges();
    KfactorTable factors;
    EXPECT_TRUE(SortKfactorRows(factors));
    EXPECT_EQ(
        calls, kBeginWrite + QStringList{ "Sort" } + kBeginRead + QStringList({ "Frequency", "Passive", "Active" }));
    SuppressTable ranges;
    calls.clear();
    EXPECT_TRUE(SortSuppressRows(ranges));
    EXPECT_EQ(calls, kBeginWrite + QStringList{ "Sort" } + kBeginRead + QStringList{ "Used 0" } + kRangeFields);
    calls.clear();
    ranges = {};
    EXPECT_TRUE(SortAndMergeSuppressRows(ranges));
    EXPECT_EQ(calls, kBeginWrite + QStringList{ "SortAndMerge" } + kBeginRead + QStringList{ "Used 0" } + kRangeFields);
}

TEST_F(StoreCalls, SuppressListIsReadBackBeforeItIsSaved)
{
    RecordRanges();
    SuppressTable table;
    table.Row(7).Used = true;
    EXPECT_TRUE(WriteSuppressFile(NewFile(), table));
    EXPECT_EQ(calls,
        kBeginWrite + kRangeFields + QStringList{ "Commit 7" } + kBeginRead + QStringList{ "Used 0" } + kRangeFields
            + QStringList{ "SaveFile" });
}

TEST_F(StoreCalls, SuppressListIsReadInOrder)
{
    RecordRanges();
    SuppressTable table;
    EXPECT_TRUE(ReadSuppressMRFile(File(), table));
    EXPECT_EQ(calls, QStringList({ "Clear", "LoadFile" }) + kBeginRead + QStringList{ "Used 0" } + kRangeFields);
}

TEST_F(StoreCalls, CorrectionSetIsReadInOrder)
{
    CorrSet set;
    RecordSet();
    EXPECT_TRUE(LoadCorrSet(File(), set));
    const QStringList defaults{ "GetHeader", "GetModIdent" };
    EXPECT_EQ(calls,
        defaults
            + QStringList(
                { "LoadFile", "GetHeader", "GetModIdent", "GetKFactor", "GetOmniphase", "GetAzimuth", "GetFileName" }));
    calls.clear();
    EXPECT_TRUE(SetCorrHeader(set));
    EXPECT_TRUE(SaveCorrSet(NewFile()));
    EXPECT_EQ(calls, QStringList({ "SetHeader", "SaveFile" }));
}

TEST_F(StoreCalls, WalkThatFailsHalfwayLeavesAnEmptyList)
{
    AntennaTable antennas;
    antennas.Row(0).Used = antennas.Row(3).Used = true;
    antennas.Name = "Site";
    ASSERT_TRUE(WriteAntennaFile(FilePath("a.tva"), antennas));
    TvFio().AntennaGetNorthOffset = [](int16_t* status, int16_t index, double*) { *status = index == 4 ? 12 : 0; };
    Answers().Expect(12832, { "4" }, Ok);
    EXPECT_FALSE(ReadAntennaFile(FilePath("a.tva"), antennas));
    EXPECT_EQ(antennas, AntennaTable());

    KfactorTable factors;
    factors.Row(0) = factors.Row(1) = { true, 30e6, 1, 2 };
    factors.Name = "Mast";
    ASSERT_TRUE(WriteKfactorFile(FilePath("k.tvk"), factors));
    TvFio().KfactorGetActive = [](int16_t* status, int16_t index, double*) { *status = index == 1 ? 43 : 0; };
    Answers().Expect(12860, { "1" }, Ok);
    EXPECT_FALSE(LoadKfactorFile(FilePath("k.tvk"), factors));
    EXPECT_EQ(factors, KfactorTable());

    SuppressTable ranges;
    ranges.Row(0) = ranges.Row(3) = { true, kInclude, 1e6, 2e6, {} };
    ranges.Name = "Bands";
    ASSERT_TRUE(WriteSuppressFile(FilePath("s.tvs"), ranges));
    TvFio().SuppressGetDescription = [](int16_t* status, int16_t index, char*, int32_t) {
        *status = index == 99 ? 13 : 0; // unused slots are read as well
    };
    Answers().Expect(12833, { "99" }, Ok);
    EXPECT_FALSE(ReadSuppressFile(FilePath("s.tvs"), ranges));
    EXPECT_EQ(ranges, SuppressTable());
}

} // namespace tarvik
