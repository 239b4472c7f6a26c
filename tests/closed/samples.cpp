#include "tests/closed/samples.h"

#include "closed/tvfio/crc32.h"

namespace tvfio {

namespace {

void SetInfo(ListInfo& info)
{
    info.Name.Assign("Sample");
    info.Description.Assign("Caf\xE9");
}

} // namespace

void FillSample(AntennaList& list)
{
    SetInfo(list.Info);
    AntennaRecord antenna;
    antenna.Include = 1;
    antenna.Name.Assign("Discone");
    antenna.StartFrequency = 25e6;
    antenna.StopFrequency = 1300e6;
    antenna.DefFrequencyOffset = -1e9;
    antenna.PassiveBits = 2;
    antenna.ActiveBits = 3;
    antenna.KFactorTableName.Assign("discone k");
    antenna.AntennaCode = 17;
    antenna.NorthOffset = 12.5;
    antenna.CorrectionSetName.Assign("discone c");
    list.Put(1, antenna);
    antenna.Include = 0;
    list.Put(99, antenna);
}

void FillSample(KfactorTable& table)
{
    SetInfo(table.Info);
    table.Entries = { { 30e6, 12.5, -3.25 }, { 100e6, 14, -2 }, { 500e6, 20.75, 0 } };
}

void FillSample(MemoryList& list)
{
    SetInfo(list.Info);
    MemoryRecord entry;
    entry.MemItemNumber = 7;
    entry.Frequency = 446006250;
    entry.Description.Assign("PMR 1");
    list.Put(0, entry);
    entry.MemItemNumber = 1023;
    entry.Demodulation = 7;
    entry.BandWidth = 4;
    entry.Reserved2 = -5;
    entry.Reserved3 = 6;
    list.Put(1023, entry);
}

void FillSample(SuppressList& list)
{
    SetInfo(list.Info);
    SuppressRecord range;
    range.Include = 1;
    range.StartFrequency = 88e6;
    range.StopFrequency = 108e6;
    range.Description.Assign("Broadcast");
    list.Put(0, range);
    range.Include = 0;
    list.Put(99, range);
}

void FillSample(CorrectionSet& set)
{
    CorrHeader header = set.Header;
    std::string_view("Loop").copy(header.AntennaName, TVFIO_MAX_NAME);
    std::string_view("Maker").copy(header.ManufacturerName, TVFIO_MAX_NAME);
    header.AntennaCode = 3;
    header.StartFrequencyHz = 1e6;
    header.StopFrequencyHz = 30e6;
    (void)set.SetHeader(header);
    set.Kfactor = { { 1e6, 1.5, 2.5 }, { 30e6, 3.5, 4.5 } };
    set.Omniphase = { { 1e6, -180 }, { 30e6, 180 } };
    set.Azimuth = { { 1e6, { 12, -5.5, 360 } }, { 30e6, {} } };
}

void RepairHeader(Bytes& file)
{
    PutInt(file.data() + 12, static_cast<uint32_t>(file.size() - kHeaderBytes));
    const ByteView view(file);
    PutInt(file.data() + 16, Crc32(view.subspan(kHeaderBytes), Crc32(view.first(16))));
}

} // namespace tvfio
