// Damaged and malicious files: each yields a status with a text and an empty list.
#include "tests/closed/samples.h"
#include "tests/closed/storefixture.h"

#include "closed/tvfio/calls.h"

#include <algorithm>
#include <limits>

namespace {

template <typename List>
class HostileFile : public StoreTest {
protected:
    /// Loads `file` over an existing list. After a failure the list is empty and there is a text.
    static FioStatus Load(const Bytes& file)
    {
        FillSample(List::Current());
        const FioStatus status = LoadBytes<List>(file);
        if (status != FioStatus::Ok) {
            EXPECT_EQ(List::Current().Encode(), EmptyFile<List>());
            EXPECT_STREQ(std::string(LastExceptionText()).substr(0, 1).c_str(), "T");
            EXPECT_FALSE(FioStatusHasOwnText(status)) << static_cast<int>(status);
        }
        return status;
    }
};

using Families = testing::Types<AntennaList, KfactorTable, MemoryList, SuppressList, CorrectionSet>;

/// The seed folder of the family's fuzz target.
const char* CorpusName(Family family)
{
    switch (family) {
    case Family::Antenna:
        return "antenna";
    case Family::Kfactor:
        return "kfactor";
    case Family::Memory:
        return "memory";
    case Family::Suppress:
        return "suppress";
    case Family::Correction:
        return "correction";
    }
    return "";
}

Bytes WithByte(Bytes file, size_t at, uint8_t value)
{
    file[at] = value;
    return file;
}

Bytes Repaired(Bytes file)
{
    RepairHeader(file);
    return file;
}

} // namespace

TYPED_TEST_SUITE(HostileFile, Families);

TYPED_TEST(HostileFile, SampleLoadsAndSavesToTheSameBytes)
{
    const Bytes file = SampleFile<TypeParam>();
    EXPECT_EQ(this->Load(file), FioStatus::Ok);
    EXPECT_EQ(TypeParam::Current().Encode(), file);
}

TYPED_TEST(HostileFile, FileFormIsStillTheOneOfEarlierFiles)
{
    const std::string folder = std::string(CORPUS_FOLDER "/") + CorpusName(TypeParam::kFamily);
    EXPECT_EQ(this->Contents(folder + "/sample"), SampleFile<TypeParam>());
    EXPECT_EQ(this->Contents(folder + "/empty"), EmptyFile<TypeParam>());
    EXPECT_EQ(this->Load(this->Contents(folder + "/later")), FioStatus::Ok);
}

TYPED_TEST(HostileFile, EveryTruncationIsRefused)
{
    const Bytes file = SampleFile<TypeParam>();
    for (size_t length = 0; length < file.size(); ++length) {
        const Bytes part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
        ASSERT_EQ(this->Load(part), FioStatus::FileTruncated) << length;
    }
}

TYPED_TEST(HostileFile, EveryTruncationWithARightHeaderIsRefused)
{
    const Bytes file = SampleFile<TypeParam>();
    for (size_t length = kHeaderBytes; length < file.size(); ++length) {
        const Bytes part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
        ASSERT_EQ(this->Load(Repaired(part)), FioStatus::FileStructure) << length;
    }
}

TYPED_TEST(HostileFile, EveryFlippedBitIsRefused)
{
    const Bytes file = SampleFile<TypeParam>();
    for (size_t bit = 0; bit < file.size() * 8; ++bit) {
        Bytes flipped = file;
        flipped[bit / 8] = static_cast<uint8_t>(flipped[bit / 8] ^ (1U << (bit % 8)));
        ASSERT_NE(this->Load(flipped), FioStatus::Ok) << bit;
    }
}

TYPED_TEST(HostileFile, EveryFlippedBitUnderARightCheckSumIsRefusedOrReadsAsAWholeList)
{
    const Bytes file = SampleFile<TypeParam>();
    for (size_t bit = kHeaderBytes * 8; bit < file.size() * 8; ++bit) {
        Bytes flipped = file;
        flipped[bit / 8] = static_cast<uint8_t>(flipped[bit / 8] ^ (1U << (bit % 8)));
        RepairHeader(flipped);
        if (this->Load(flipped) != FioStatus::Ok)
            continue;
        const Bytes again = TypeParam::Current().Encode();
        ASSERT_EQ(this->Load(again), FioStatus::Ok) << bit;
        ASSERT_EQ(TypeParam::Current().Encode(), again) << bit;
    }
}

TYPED_TEST(HostileFile, TrailingBytesAreRefused)
{
    Bytes file = SampleFile<TypeParam>();
    file.push_back(0);
    EXPECT_EQ(this->Load(file), FioStatus::FileTrailingBytes);
}

TYPED_TEST(HostileFile, TrailingBytesWithARightHeaderAreRefused)
{
    Bytes file = SampleFile<TypeParam>();
    file.push_back(0);
    EXPECT_EQ(this->Load(Repaired(file)), FioStatus::FileStructure);
}

TYPED_TEST(HostileFile, OtherFilesAreNoLists)
{
    EXPECT_EQ(this->Load({ 'M', 'e', 'm', 'o', 'r', 'y', ' ', 'L', 'i', 's', 't' }), FioStatus::FileIsNoList);
    EXPECT_EQ(this->Load(WithByte(SampleFile<TypeParam>(), 0, 't')), FioStatus::FileIsNoList);
}

TYPED_TEST(HostileFile, AFileOfAnotherFamilyIsRefusedByName)
{
    constexpr bool kIsMemory = TypeParam::kFamily == Family::Memory;
    const Bytes other = kIsMemory ? SampleFile<SuppressList>() : SampleFile<MemoryList>();
    EXPECT_EQ(this->Load(other), FioStatus::FileOtherFamily);
    const std::string expected = std::string("The file holds a list of another kind. It is a ")
        + (kIsMemory ? "suppress list" : "memory list") + ", and a " + FamilyName(TypeParam::kFamily) + " is needed.";
    EXPECT_EQ(LastExceptionText(), expected);
}

TYPED_TEST(HostileFile, AnUnknownFamilyIsRefused)
{
    EXPECT_EQ(this->Load(Repaired(WithByte(SampleFile<TypeParam>(), 10, 99))), FioStatus::FileOtherFamily);
}

TYPED_TEST(HostileFile, ALaterFormatIsRefused)
{
    EXPECT_EQ(this->Load(Repaired(WithByte(SampleFile<TypeParam>(), 8, 2))), FioStatus::FileTooNew);
}

TYPED_TEST(HostileFile, UnknownSectionsAreSkipped)
{
    Bytes file = SampleFile<TypeParam>();
    const Bytes later{ 0x34, 0x12, 3, 0, 0, 0, 'n', 'e', 'w' };
    file.insert(file.end(), later.begin(), later.end());
    RepairHeader(file);
    EXPECT_EQ(this->Load(file), FioStatus::Ok);
    EXPECT_EQ(TypeParam::Current().Encode(), SampleFile<TypeParam>());
}

TYPED_TEST(HostileFile, ASectionThatStandsTwiceIsRefused)
{
    Bytes file = SampleFile<TypeParam>();
    const Bytes body(file.begin() + kHeaderBytes, file.end());
    file.insert(file.end(), body.begin(), body.end());
    EXPECT_EQ(this->Load(Repaired(file)), FioStatus::FileStructure);
}

TYPED_TEST(HostileFile, UnknownSectionThatOccursTwiceIsRefused)
{
    Bytes file = SampleFile<TypeParam>();
    const Bytes later{ 0x34, 0x12, 3, 0, 0, 0, 'n', 'e', 'w' };
    file.insert(file.end(), later.begin(), later.end());
    file.insert(file.end(), later.begin(), later.end());
    RepairHeader(file);
    EXPECT_EQ(this->Load(file), FioStatus::FileStructure);
}

TYPED_TEST(HostileFile, ListIsEmptyIfMemoryRunsOutWhileLoading)
{
    const FioStatus status = LoadCurrent<TypeParam>([](TypeParam& list) -> FioStatus {
        FillSample(list);
        throw std::bad_alloc();
    });
    EXPECT_EQ(status, FioStatus::OutOfMemory);
    EXPECT_EQ(TypeParam::Current().Encode(), EmptyFile<TypeParam>());
}

TYPED_TEST(HostileFile, AMissingSectionIsRefused)
{
    Bytes file = SampleFile<TypeParam>();
    file.resize(kHeaderBytes);
    EXPECT_EQ(this->Load(Repaired(file)), FioStatus::FileStructure);
}

namespace {

/// Builds otherwise valid files, record by record.
class HostileRecord : public StoreTest {
protected:
    /// A memory list whose record section is what `write` writes.
    template <typename Write>
    static Bytes MemoryFile(Write write)
    {
        ListFileWriter file(Family::Memory);
        WriteInfo(file, {});
        write(file.Section(SectionId::Records));
        return file.Finish();
    }

    static void WriteEntry(ByteWriter& section, uint16_t index, const MemoryRecord& entry)
    {
        WriteRecord(section, [&] {
            section.Int(index);
            WriteFields(section, entry);
        });
    }

    /// A list with one entry, altered by `change`.
    template <typename Change>
    static FioStatus LoadEntry(Change change)
    {
        MemoryRecord entry;
        entry.MemItemNumber = 0;
        change(entry);
        return LoadBytes<MemoryList>(MemoryFile([&](ByteWriter& section) {
            section.Int(uint32_t{ 1 });
            WriteEntry(section, 0, entry);
        }));
    }

    static MemoryRecord Entry()
    {
        MemoryRecord entry;
        entry.MemItemNumber = 0;
        return entry;
    }
};

} // namespace

TEST_F(HostileRecord, RefusesAbsurdCountBeforeAllocating)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) { section.Int(uint32_t{ 0xFFFFFFFF }); })),
        FioStatus::FileCount);
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) { section.Int(uint32_t{ 1025 }); })),
        FioStatus::FileCount);
}

TEST_F(HostileRecord, RefusesCountAboveNumberOfRecords)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) { section.Int(uint32_t{ 1024 }); })),
        FioStatus::FileStructure);
}

TEST_F(HostileRecord, RefusesMoreRecordsThanCount)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) {
        section.Int(uint32_t{ 0 });
        WriteEntry(section, 0, Entry());
    })),
        FioStatus::FileStructure);
}

TEST_F(HostileRecord, RefusesRecordLongerThanItsSection)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) {
        section.Int(uint32_t{ 1 });
        section.Int(uint32_t{ 0xFFFFFFFF });
    })),
        FioStatus::FileStructure);
}

TEST_F(HostileRecord, NamesTruncatedRecord)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) {
        section.Int(uint32_t{ 2 });
        WriteEntry(section, 0, Entry());
        WriteRecord(section, [&] { section.Int(uint16_t{ 1 }); });
    })),
        FioStatus::FileRecord);
    EXPECT_STREQ(LastExceptionText(), "The file is damaged. Record 2: It is too short.");
    EXPECT_TRUE(MemoryList::Current().Used.none());
}

TEST_F(HostileRecord, SkipsFieldsOfLaterVersion)
{
    const MemoryRecord entry = Entry();
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([&](ByteWriter& section) {
        section.Int(uint32_t{ 2 });
        WriteRecord(section, [&] {
            section.Int(uint16_t{ 4 });
            WriteFields(section, entry);
            section.Int(uint64_t{ 0x123456789ABCDEF0 });
        });
        WriteEntry(section, 5, entry);
    })),
        FioStatus::Ok);
    EXPECT_TRUE(MemoryList::Current().Used[4]);
    EXPECT_TRUE(MemoryList::Current().Used[5]);
}

TEST_F(HostileRecord, RefusesTwoRecordsWithSameIndex)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) {
        section.Int(uint32_t{ 2 });
        WriteEntry(section, 7, Entry());
        WriteEntry(section, 7, Entry());
    })),
        FioStatus::FileSameIndex);
    EXPECT_TRUE(MemoryList::Current().Used.none());
}

TEST_F(HostileRecord, RefusesIndexOutsideList)
{
    EXPECT_EQ(LoadBytes<MemoryList>(MemoryFile([](ByteWriter& section) {
        section.Int(uint32_t{ 1 });
        WriteEntry(section, 1024, Entry());
    })),
        FioStatus::FileRecord);
    EXPECT_STREQ(LastExceptionText(), "The file is damaged. Record 1: Its place is outside the list.");
}

TEST_F(HostileRecord, RefusesAntennaAtIndex0)
{
    const AntennaRecord antenna;
    ListFileWriter file(Family::Antenna);
    WriteInfo(file, {});
    ByteWriter& section = file.Section(SectionId::Records);
    section.Int(uint32_t{ 1 });
    WriteRecord(section, [&] {
        section.Int(uint16_t{ 0 });
        WriteFields(section, antenna);
    });
    EXPECT_EQ(LoadBytes<AntennaList>(file.Finish()), FioStatus::FileRecord);
}

TEST_F(HostileRecord, RefusesNonFiniteValuesByField)
{
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.Frequency = kNaN; }), FioStatus::FileRecord);
    EXPECT_STREQ(LastExceptionText(), "The file is damaged. Record 1: The frequency is not a number.");
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.SquelchLevel = kInfinity; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.DfSquelchLevel = -kInfinity; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.DfMeasurementTime = kNaN; }), FioStatus::FileRecord);
}

TEST_F(HostileRecord, RefusesCodesOutsideTheirTables)
{
    EXPECT_EQ(LoadEntry([](MemoryRecord&) {}), FioStatus::Ok);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.MemItemNumber = 1024; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.MemItemNumber = -1; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.Demodulation = 8; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.BandWidth = -1; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.DfStep = 34; }), FioStatus::FileRecord);
    EXPECT_EQ(LoadEntry([](MemoryRecord& entry) { entry.Reserved1 = 33; }), FioStatus::FileRecord);
    EXPECT_STREQ(LastExceptionText(), "The file is damaged. Record 1: The DF bandwidth is unknown.");
}

TEST_F(HostileRecord, RefusesTextsTooLongOrWithZero)
{
    const auto withName = [](std::string_view name) {
        ListFileWriter file(Family::Memory);
        ByteWriter& info = file.Section(SectionId::Info);
        info.Text(name);
        info.Text("");
        file.Section(SectionId::Records).Int(uint32_t{ 0 });
        return file.Finish();
    };
    EXPECT_EQ(LoadBytes<MemoryList>(withName(std::string(32, 'x'))), FioStatus::Ok);
    EXPECT_EQ(LoadBytes<MemoryList>(withName(std::string(33, 'x'))), FioStatus::FileRecord);
    EXPECT_EQ(LoadBytes<MemoryList>(withName(std::string_view("a\0b", 3))), FioStatus::FileRecord);
    EXPECT_EQ(LoadBytes<MemoryList>(withName("a\x9D"
                                             "b")),
        FioStatus::FileRecord);
}

TEST_F(HostileRecord, RefusesCorrectionSetWithoutMarker)
{
    Bytes file = SampleFile<CorrectionSet>();
    const auto marker = std::search(file.begin(), file.end(), kCorrectionMarker.begin(), kCorrectionMarker.end());
    ASSERT_NE(marker, file.end());
    *marker = 'X';
    RepairHeader(file);
    EXPECT_EQ(LoadBytes<CorrectionSet>(file), FioStatus::FileStructure);
}

TEST_F(HostileRecord, RefusesMoreAnglesThanAnEntryHolds)
{
    CorrectionSet set;
    set.Azimuth = { { 1e6, std::vector<double>(TVFIO_MAX_ANGLES, 1.0) } };
    EXPECT_EQ(LoadBytes<CorrectionSet>(set.Encode()), FioStatus::Ok);
    set.Azimuth.front().Angles.push_back(1.0);
    EXPECT_EQ(LoadBytes<CorrectionSet>(set.Encode()), FioStatus::FileRecord);
    EXPECT_TRUE(CorrectionSet::Current().Azimuth.empty());
}

TEST_F(HostileRecord, RefusesAngleCountAboveNumberOfAngles)
{
    CorrectionSet set;
    set.Azimuth = { { 1e6, { 1.0 } } };
    Bytes file = set.Encode();
    // The last record ends with its count of angles and one angle.
    file[file.size() - 10] = 2;
    RepairHeader(file);
    EXPECT_EQ(LoadBytes<CorrectionSet>(file), FioStatus::FileRecord);
    file[file.size() - 9] = 0xFF;
    RepairHeader(file);
    EXPECT_EQ(LoadBytes<CorrectionSet>(file), FioStatus::FileRecord);
    EXPECT_TRUE(CorrectionSet::Current().Azimuth.empty());
}
