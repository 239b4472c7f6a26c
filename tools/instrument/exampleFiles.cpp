#include "tools/instrument/exampleFiles.h"

#include "app/text/ansi.h"
#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/suppresslist.h"
#include "tools/instrument/instrument.h"
#include "tools/instrument/receiver.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

// The macro requires the global namespace.
static void InitResources()
{
    Q_INIT_RESOURCE(instrument);
}

namespace tarvik {

namespace {

constexpr const char* kDiscone = "Discone 25-1300";
constexpr const char* kLogPeriodic = "Log-periodic 80-1000";
constexpr const char* kLoop = "Active loop 10k-30M";
constexpr const char* kDfArray = "DF array 20-1300";

/// dBuV
constexpr double kAudible = 5; // dBuV
constexpr SweepNumber kFirstSweep = 1000;
constexpr SweepNumber kLastSweep = 9000;
constexpr SweepNumber kSweepsToNext = 20;

struct GainPoint {
    double FrequencyMhz;
    double GainDbi;
};

constexpr std::array kDisconeGain{ GainPoint{ 25, -12 }, GainPoint{ 40, -5 }, GainPoint{ 60, -1 }, GainPoint{ 80, 1.5 },
    GainPoint{ 120, 2 }, GainPoint{ 200, 2 }, GainPoint{ 400, 2.5 }, GainPoint{ 700, 3 }, GainPoint{ 1000, 2.5 },
    GainPoint{ 1300, 2 } };
constexpr std::array kLogPeriodicGain{ GainPoint{ 80, 4.5 }, GainPoint{ 100, 6 }, GainPoint{ 200, 6.5 },
    GainPoint{ 400, 6.5 }, GainPoint{ 600, 6.3 }, GainPoint{ 800, 6 }, GainPoint{ 1000, 5.5 } };
constexpr std::array kLoopGain{ GainPoint{ 0.01, -95 }, GainPoint{ 0.1, -75 }, GainPoint{ 1, -55 }, GainPoint{ 5, -41 },
    GainPoint{ 10, -35 }, GainPoint{ 20, -29 }, GainPoint{ 30, -25 } };

/// Antenna factor in dB/m at 50 ohms of an antenna with this gain over an isotropic one.
double KFactor(const GainPoint& point)
{
    constexpr double kFiftyOhms = 29.79; // 20 log10(299.79 / 9.73): wavelength in metres at 1 MHz over 9.73
    return std::round((20 * std::log10(point.FrequencyMhz) - point.GainDbi - kFiftyOhms) * 100) / 100;
}

template <size_t Count>
tvfio::Bytes GainTable(const char* name, double amplifierDb, const std::array<GainPoint, Count>& gain)
{
    tvfio::KfactorTable table;
    table.Info.Name.Assign(name);
    table.Info.Description.Assign("From typical gain, at 50 ohms");
    for (const GainPoint& point : gain)
        table.Entries.push_back({ point.FrequencyMhz * 1e6, KFactor(point), KFactor(point) - amplifierDb });
    return table.Encode();
}

tvfio::AntennaRecord Antenna(const char* name, double startHz, double stopHz, const char* kfactors, int16_t code)
{
    tvfio::AntennaRecord antenna;
    antenna.Include = 1;
    antenna.Name.Assign(name);
    antenna.StartFrequency = startHz;
    antenna.StopFrequency = stopHz;
    antenna.PassiveBits = static_cast<int16_t>(code & 3);
    antenna.ActiveBits = static_cast<int16_t>(code & 3);
    antenna.KFactorTableName.Assign(kfactors);
    antenna.AntennaCode = code;
    return antenna;
}

tvfio::Bytes Antennas()
{
    const auto list = std::make_unique<tvfio::AntennaList>();
    list->Info.Name.Assign("Antennas");
    list->Info.Description.Assign("Mast and vehicle");
    list->Put(1, Antenna("Active loop", 10e3, 30e6, kLoop, 1));
    list->Put(2, Antenna("Discone", 25e6, 1300e6, kDiscone, 2));
    list->Put(3, Antenna("Log-periodic", 80e6, 1000e6, kLogPeriodic, 3));
    tvfio::AntennaRecord array = Antenna("DF array", 20e6, 1300e6, "", 4);
    array.NorthOffset = 12.5;
    array.CorrectionSetName.Assign(kDfArray);
    list->Put(4, array);
    return list->Encode();
}

tvfio::Bytes Suppressed()
{
    struct Range {
        double StartHz;
        double StopHz;
        const char* Description;
    };
    static constexpr std::array kRanges{ Range{ 87.5e6, 108e6, "FM broadcast" }, Range{ 174e6, 230e6, "DAB" },
        Range{ 470e6, 694e6, "Television" }, Range{ 791e6, 821e6, "Mobile 800 downlink" },
        Range{ 925e6, 960e6, "Mobile 900 downlink" } };
    const auto list = std::make_unique<tvfio::SuppressList>();
    list->Info.Name.Assign("Broadcast");
    list->Info.Description.Assign("Strong transmitters all over");
    int place = 0;
    for (const Range& range : kRanges) {
        tvfio::SuppressRecord record;
        record.Include = 1;
        record.StartFrequency = range.StartHz;
        record.StopFrequency = range.StopHz;
        record.Description.Assign(range.Description);
        list->Put(place++, record);
    }
    return list->Encode();
}

/// Bearing errors of a five-element array: they repeat five times per turn and grow with frequency.
tvfio::CorrAzimuthRecord BearingErrors(double frequencyHz)
{
    constexpr int kAngles = 36;
    constexpr double kTurn = 6.283185307179586;
    tvfio::CorrAzimuthRecord record{ frequencyHz, {} };
    for (int i = 0; i < kAngles; ++i) {
        const double error = 1.2 * frequencyHz / 1e9 * std::sin(5 * kTurn * i / kAngles);
        record.Angles.push_back(std::round(error * 100) / 100);
    }
    return record;
}

tvfio::Bytes Corrections()
{
    tvfio::CorrectionSet set;
    CorrHeader header = set.Header;
    std::string_view(kDfArray).copy(header.AntennaName, TVFIO_MAX_NAME);
    std::string_view("TARVIK").copy(header.ManufacturerName, TVFIO_MAX_NAME);
    header.AntennaCode = 4;
    header.StartFrequencyHz = 20e6;
    header.StopFrequencyHz = 1300e6;
    (void)set.SetHeader(header);
    for (const GainPoint& point : kDisconeGain) {
        const double frequencyHz = point.FrequencyMhz * 1e6;
        set.Kfactor.push_back({ frequencyHz, KFactor(point) - 8, KFactor(point) });
        set.Omniphase.push_back({ frequencyHz, std::round(-0.02 * point.FrequencyMhz * 10) / 10 });
        set.Azimuth.push_back(BearingErrors(frequencyHz));
    }
    return set.Encode();
}

std::string TextOf(const tvfio::Bytes& bytes)
{
    return { bytes.begin(), bytes.end() };
}

std::string MarineList()
{
    InitResources();
    QFile file(QStringLiteral(":/instrument/Marine-VHF.tvm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

InstrumentError Put(Storage& storage, const WirePath& folder, const std::string& name, const std::string& bytes)
{
    auto error = storage.BeginStore(folder, name, StoreReplaces::SameName, bytes.size());
    if (error == InstrumentError::None)
        error = storage.Store(bytes);
    if (error == InstrumentError::None)
        error = storage.EndStore();
    storage.AbandonStore();
    return error;
}

InstrumentError PutActive(Storage& storage)
{
    constexpr std::string_view kSettings = "[receiver]\r\nfrequency=156800000\r\ndemodulation=FM\r\nbandwidth=15000\r\n"
                                           "[scan]\r\nsource=memory\r\ndwell=4000\r\n";
    auto error = storage.BeginStoreActive(kSettings.size());
    if (error == InstrumentError::None)
        error = storage.Store(kSettings);
    return error == InstrumentError::None ? storage.EndStore() : error;
}

/// The display while tuned to the first memory entry whose description starts with `description`.
std::string Picture(const Storage& storage, const std::string& model, const char* description)
{
    ScreenContent content;
    content.Model = FromAnsi(QByteArrayView(model));
    content.Carriers = ReadCarriers(storage);
    content.Now = QDateTime::currentDateTime();
    const auto found = std::find_if(content.Carriers.begin(), content.Carriers.end(),
        [description](const Carrier& one) { return one.Description.startsWith(QLatin1String(description)); });
    if (found != content.Carriers.end())
        content.Tuned = *found;
    content.Sweep = kFirstSweep;
    while (CarrierLevel(content.Tuned, content.Sweep) < kAudible && content.Sweep < kLastSweep)
        content.Sweep += kSweepsToNext;
    return PngOf(DrawScreen(content));
}

InstrumentError PutAll(Storage& storage, const std::vector<std::tuple<WirePath, std::string, std::string>>& files)
{
    for (const auto& [folder, name, bytes] : files) {
        if (const auto error = Put(storage, folder, name, bytes); error != InstrumentError::None)
            return error;
    }
    return InstrumentError::None;
}

InstrumentError MakeFolder(Storage& storage, WirePath path)
{
    if (storage.HasFolder(path))
        return InstrumentError::None;
    const std::string name = path.back();
    path.pop_back();
    return storage.MakeFolder(path, name);
}

} // namespace

InstrumentError MakeReceiverFolders(Storage& storage)
{
    for (const WirePath& path : { WirePath{ ScreenShotFolder().front() }, ScreenShotFolder(),
             FamilyFolder(FileFamily::Antenna), FamilyFolder(FileFamily::Kfactor), FamilyFolder(FileFamily::Memory),
             FamilyFolder(FileFamily::Suppress), FamilyFolder(FileFamily::Correction) }) {
        if (const auto error = MakeFolder(storage, path); error != InstrumentError::None)
            return error;
    }
    return InstrumentError::None;
}

InstrumentError StoreExamples(Storage& storage, const std::string& model)
{
    const WirePath kfactors = FamilyFolder(FileFamily::Kfactor);
    WirePath survey = ScreenShotFolder();
    survey.emplace_back("Harbour survey");
    InstrumentError error = MakeFolder(storage, survey);
    if (error == InstrumentError::None)
        error = PutAll(storage,
            { { FamilyFolder(FileFamily::Memory), "Marine-VHF.tvm", MarineList() },
                { FamilyFolder(FileFamily::Antenna), "Antennas.tva", TextOf(Antennas()) },
                { FamilyFolder(FileFamily::Suppress), "Broadcast.tvs", TextOf(Suppressed()) },
                { FamilyFolder(FileFamily::Correction), std::string(kDfArray) + ".tvc", TextOf(Corrections()) },
                { kfactors, std::string(kLoop) + ".tvk", TextOf(GainTable(kLoop, 10, kLoopGain)) },
                { kfactors, std::string(kDiscone) + ".tvk", TextOf(GainTable(kDiscone, 8, kDisconeGain)) },
                { kfactors, std::string(kLogPeriodic) + ".tvk",
                    TextOf(GainTable(kLogPeriodic, 0, kLogPeriodicGain)) } });
    if (error == InstrumentError::None)
        error = PutActive(storage);
    // Now that the memory list is stored, the display can show it.
    if (error == InstrumentError::None)
        error = PutAll(storage,
            { { ScreenShotFolder(), "Channel 16.png", Picture(storage, model, "Ch 16") },
                { ScreenShotFolder(), "Navigation safety.png", Picture(storage, model, "Ch 13") },
                { survey, "Coast station.png", Picture(storage, model, "Ch 26 coast") } });
    return error;
}

} // namespace tarvik
