#include "tools/instrument/receiver.h"

#include "app/text/ansi.h"
#include "closed/tvfio/memorylist.h"
#include "tools/instrument/instrument.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <memory>

namespace tarvik {

namespace {

constexpr std::uint64_t kMaxListBytes = std::uint64_t{ 1 } << 20;
constexpr qint64 kSweepMs = 50;
constexpr qint64 kDwellMs = 4000; // per entry of the scan

/// Widths in Hz by code.
constexpr std::array kBandwidths{ 150.0, 300.0, 600.0, 1500.0, 2400.0, 6e3, 9e3, 12e3, 15e3, 30e3, 50e3, 120e3, 150e3,
    250e3, 300e3, 500e3 };
constexpr std::array kSpans{ 10e3, 20e3, 50e3, 100e3, 200e3, 500e3, 1e6, 2e6, 5e6, 10e6, 20e6, 40e6, 80e6 };

Carrier CarrierOf(const tvfio::MemoryRecord& record)
{
    Carrier carrier;
    carrier.FrequencyHz = record.Frequency;
    carrier.BandwidthHz = kBandwidths.at(static_cast<size_t>(record.BandWidth));
    carrier.SpanHz = kSpans.at(static_cast<size_t>(record.FrequencySpan));
    carrier.Demodulation = record.Demodulation;
    const std::string_view description = record.Description.View();
    carrier.Description = FromAnsi(QByteArrayView(description.data(), static_cast<qsizetype>(description.size())));
    return carrier;
}

/// The bytes of the first file in the memory list folder; empty if there is none.
tvfio::Bytes ReadMemoryList(const Storage& storage)
{
    const WirePath folder = FamilyFolder(FileFamily::Memory);
    std::vector<StorageEntry> entries;
    (void)storage.List(folder, entries);
    const auto found =
        std::find_if(entries.begin(), entries.end(), [](const StorageEntry& entry) { return !entry.IsFolder; });
    Descriptor file;
    std::uint64_t size = 0;
    if (found == entries.end() || storage.OpenFile(folder, found->Name, file, size) != InstrumentError::None
        || size > kMaxListBytes)
        return {};
    tvfio::Bytes bytes(static_cast<size_t>(size));
    const ssize_t count = ::read(file.Number(), bytes.data(), bytes.size());
    return count == static_cast<ssize_t>(size) ? bytes : tvfio::Bytes();
}

} // namespace

std::vector<Carrier> ReadCarriers(const Storage& storage)
{
    std::vector<Carrier> carriers;
    const auto list = std::make_unique<tvfio::MemoryList>();
    if (list->Decode(ReadMemoryList(storage)) != tvfio::FioStatus::Ok)
        return carriers;
    for (const tvfio::MemoryRecord& record : list->UsedRecords()) {
        if (record.Suppressed == 0)
            carriers.push_back(CarrierOf(record));
    }
    return carriers;
}

std::string PngOf(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? bytes.toStdString() : std::string();
}

Receiver::Receiver(const Storage& storage, QString model)
    : storage_(storage)
    , model_(std::move(model))
{
    running_.start();
}

std::string Receiver::FetchScreen()
{
    return PngOf(DrawScreen(Content()));
}

ScreenContent Receiver::Content()
{
    ScreenContent content;
    content.Model = model_;
    content.Carriers = ReadCarriers(storage_);
    content.Now = QDateTime::currentDateTime();
    content.Sweep = std::max(lastSweep_ + 1, static_cast<SweepNumber>(running_.elapsed() / kSweepMs));
    lastSweep_ = content.Sweep;
    if (content.Carriers.empty())
        content.Tuned.FrequencyHz = 100e6;
    else
        content.Tuned = content.Carriers[static_cast<size_t>(running_.elapsed() / kDwellMs) % content.Carriers.size()];
    return content;
}

} // namespace tarvik
