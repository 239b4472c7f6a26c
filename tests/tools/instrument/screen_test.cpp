// Simulated reception, the display, and the initial files.
#include "tests/tools/instrument/deskInstrument.h"

#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/memorylist.h"
#include "closed/tvfio/suppresslist.h"
#include "tools/instrument/exampleFiles.h"
#include "tools/instrument/receiver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

Carrier Station(double frequencyHz)
{
    Carrier carrier;
    carrier.FrequencyHz = frequencyHz;
    carrier.Description = QStringLiteral("Station");
    return carrier;
}

/// A sweep in which the station is on the air, or silent.
SweepNumber SweepWhere(const Carrier& station, bool isOnAir)
{
    SweepNumber sweep = 1;
    while ((CarrierLevel(station, sweep) > 0) != isOnAir && sweep < 100000)
        ++sweep;
    return sweep;
}

ScreenContent Content()
{
    ScreenContent content;
    content.Model = QStringLiteral("TR-300");
    content.Carriers = { Station(100e6), Station(100.2e6) };
    content.Tuned = content.Carriers.front();
    content.Sweep = SweepWhere(content.Tuned, true);
    content.Now = QDateTime(QDate(2026, 5, 4), QTime(3, 2, 1));
    return content;
}

/// Decodes a file of the disk with the list store.
template <typename List>
bool IsSound(const DeskInstrument& desk, const std::string& name)
{
    const std::string bytes = desk.Content(name);
    const auto list = std::make_unique<List>();
    return list->Decode(tvfio::Bytes(bytes.begin(), bytes.end())) == tvfio::FioStatus::Ok;
}

} // namespace

TEST(InstrumentSpectrum, ShowsCarrierAtItsFrequencyWhileOnAir)
{
    const Carrier station = Station(100e6);
    const SweepNumber loud = SweepWhere(station, true);
    const auto levels = SweepLevels({ station }, 100e6, 1e6, 501, loud);
    const auto top = std::max_element(levels.begin(), levels.end()) - levels.begin();
    EXPECT_NEAR(static_cast<double>(top), 250, 8);
    EXPECT_NEAR(levels[250], CarrierLevel(station, loud), 8);
    const auto silent = SweepLevels({ station }, 100e6, 1e6, 501, SweepWhere(station, false));
    EXPECT_LT(*std::max_element(silent.begin(), silent.end()), 5);
}

TEST(InstrumentSpectrum, IgnoresCarrierOutsideSpan)
{
    const Carrier station = Station(102e6);
    const auto levels = SweepLevels({ station }, 100e6, 1e6, 501, SweepWhere(station, true));
    EXPECT_LT(*std::max_element(levels.begin(), levels.end()), 5);
}

TEST(InstrumentSpectrum, NoiseChangesFromSweepToSweep)
{
    EXPECT_EQ(SweepLevels({}, 1e8, 1e6, 100, 7), SweepLevels({}, 1e8, 1e6, 100, 7));
    EXPECT_NE(SweepLevels({}, 1e8, 1e6, 100, 7), SweepLevels({}, 1e8, 1e6, 100, 8));
}

TEST(InstrumentScreen, HasSizeOfReceiversDisplay)
{
    EXPECT_EQ(DrawScreen(Content()).size(), QSize(642, 442));
}

TEST(InstrumentScreen, ShowsAllContent)
{
    const QImage picture = DrawScreen(Content());
    EXPECT_EQ(DrawScreen(Content()), picture);
    const auto differs = [&picture](void (*change)(ScreenContent&)) {
        ScreenContent content = Content();
        change(content);
        return DrawScreen(content) != picture;
    };
    EXPECT_TRUE(differs([](ScreenContent& content) { ++content.Sweep; }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Now = content.Now.addSecs(1); }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Now = content.Now.addDays(1); }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Model = QStringLiteral("TR-100"); }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Tuned.FrequencyHz += 1; }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Tuned.Demodulation = 1; }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Tuned.Description = QStringLiteral("x"); }));
    EXPECT_TRUE(differs([](ScreenContent& content) { content.Carriers.clear(); }));
}

TEST(InstrumentScreen, WritesFrequenciesInGroups)
{
    EXPECT_EQ(FrequencyText(156800000), QLatin1String("156.800 000"));
    EXPECT_EQ(FrequencyText(8000), QLatin1String("0.008 000"));
    EXPECT_EQ(WidthText(12500), QLatin1String("12.5 kHz"));
    EXPECT_EQ(WidthText(600), QLatin1String("600 Hz"));
    EXPECT_EQ(WidthText(2e6), QLatin1String("2 MHz"));
    EXPECT_EQ(DemodulationText(7), QLatin1String("ISB"));
    EXPECT_EQ(DemodulationText(8), QString());
}

TEST(InstrumentScreen, DiffersOnEachFetch)
{
    DeskInstrument desk;
    Receiver receiver(desk.Disk(), QStringLiteral("TR-200"));
    const std::string first = receiver.FetchScreen();
    EXPECT_NE(receiver.FetchScreen(), first);
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(first), "PNG").size(), QSize(642, 442));
}

TEST(InstrumentScreen, ScansMemoryListExceptSuppressedEntries)
{
    DeskInstrument desk;
    const auto list = std::make_unique<tvfio::MemoryList>();
    tvfio::MemoryRecord record;
    record.MemItemNumber = 1;
    record.Frequency = 123e6;
    record.Description.Assign("Caf\xE9");
    list->Put(5, record);
    record.Suppressed = 1;
    list->Put(6, record);
    const tvfio::Bytes bytes = list->Encode();
    desk.Put("Public/Memory List/x.tvm", std::string(bytes.begin(), bytes.end()));
    const auto carriers = ReadCarriers(desk.Disk());
    ASSERT_EQ(carriers.size(), 1U);
    EXPECT_EQ(carriers[0].FrequencyHz, 123e6);
    EXPECT_EQ(carriers[0].BandwidthHz, 15e3);
    EXPECT_EQ(carriers[0].SpanHz, 1e6);
    EXPECT_EQ(carriers[0].Description, QStringLiteral("Caf\u00E9"));
}

TEST(InstrumentScreen, WorksWithoutReadableList)
{
    DeskInstrument desk;
    EXPECT_TRUE(ReadCarriers(desk.Disk()).empty());
    desk.Put("Public/Memory List/x.tvm", "no list");
    EXPECT_TRUE(ReadCarriers(desk.Disk()).empty());
    Receiver receiver(desk.Disk(), QStringLiteral("TR-200"));
    EXPECT_FALSE(receiver.FetchScreen().empty());
}

TEST(InstrumentExamples, AreReadableByTheStore)
{
    DeskInstrument desk;
    std::string reason;
    QTemporaryDir folder;
    Storage storage;
    ASSERT_TRUE(storage.Open(folder.path().toStdString(), 10000000, reason)) << reason;
    ASSERT_EQ(MakeReceiverFolders(storage), InstrumentError::None);
    ASSERT_EQ(StoreExamples(storage, "TR-200DF"), InstrumentError::None);
    const std::vector<Carrier> carriers = ReadCarriers(storage);
    EXPECT_GT(carriers.size(), 50U);
    const auto copy = [&](const WirePath& path, const std::string& name) {
        Descriptor file;
        std::uint64_t size = 0;
        EXPECT_EQ(storage.OpenFile(path, name, file, size), InstrumentError::None) << name;
        std::string bytes(static_cast<size_t>(size), '\0');
        EXPECT_EQ(::read(file.Number(), bytes.data(), bytes.size()), static_cast<ssize_t>(size));
        desk.Put(name, bytes);
    };
    copy(FamilyFolder(FileFamily::Antenna), "Antennas.tva");
    copy(FamilyFolder(FileFamily::Kfactor), "Discone 25-1300.tvk");
    copy(FamilyFolder(FileFamily::Memory), "Marine-VHF.tvm");
    copy(FamilyFolder(FileFamily::Suppress), "Broadcast.tvs");
    copy(FamilyFolder(FileFamily::Correction), "DF array 20-1300.tvc");
    EXPECT_TRUE(IsSound<tvfio::AntennaList>(desk, "Antennas.tva"));
    EXPECT_TRUE(IsSound<tvfio::KfactorTable>(desk, "Discone 25-1300.tvk"));
    EXPECT_TRUE(IsSound<tvfio::MemoryList>(desk, "Marine-VHF.tvm"));
    EXPECT_TRUE(IsSound<tvfio::SuppressList>(desk, "Broadcast.tvs"));
    EXPECT_TRUE(IsSound<tvfio::CorrectionSet>(desk, "DF array 20-1300.tvc"));
}

} // namespace tarvik
