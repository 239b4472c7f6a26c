#include "closed/tvfio/correctionset.h"

#include <cstring>

namespace tvfio {

namespace {

constexpr std::array<int32_t, 11> kNewIdentity{ 4090, 1000, 1, 1, 1, 0, 1, 0, 1, 1, 0 };

template <size_t Size>
void SetChars(char (&target)[Size], std::string_view text)
{
    const size_t length = std::min(text.size(), Size - 1);
    std::fill(std::begin(target), std::end(target), '\0');
    std::copy_n(text.data(), length, target);
}

/// The text in `source`; one character too long if it has no terminator.
template <size_t Size>
std::string_view Chars(const char (&source)[Size])
{
    return { source, static_cast<size_t>(std::find(source, source + Size, '\0') - source) };
}

void WriteIdentity(ListFileWriter& file, const CorrModIdent& identity)
{
    ByteWriter& section = file.Section(SectionId::Identity);
    for (const int32_t value : identity.Values)
        section.Int(value);
    section.Text(Chars(identity.Text));
}

FioStatus ReadIdentity(const Sections& sections, CorrModIdent& identity)
{
    ByteView section;
    if (const FioStatus status = RequireSection(sections, SectionId::Identity, section); status != FioStatus::Ok)
        return status;
    ByteReader reader(section);
    for (int32_t& value : identity.Values)
        value = reader.Int<int32_t>();
    const std::string_view marker = reader.Text();
    if (reader.Failed() || marker != kCorrectionMarker)
        return Fail(FioStatus::FileStructure);
    SetChars(identity.Text, marker);
    return FioStatus::Ok;
}

void WriteHeader(ListFileWriter& file, const CorrHeader& header)
{
    ByteWriter& section = file.Section(SectionId::Header);
    section.Text(Chars(header.AntennaName));
    section.Text(Chars(header.ManufacturerName));
    section.Int(header.AntennaCode);
    section.Int(header.Version);
    section.Double(header.StartFrequencyHz);
    section.Double(header.StopFrequencyHz);
    section.Int(header.Year);
    section.Int(header.Month);
    section.Int(header.Day);
}

FioStatus ReadHeader(const Sections& sections, CorrHeader& header)
{
    ByteView section;
    if (const FioStatus status = RequireSection(sections, SectionId::Header, section); status != FioStatus::Ok)
        return status;
    ByteReader reader(section);
    FieldReader read(reader);
    FixedText<TVFIO_MAX_NAME> antenna;
    FixedText<TVFIO_MAX_NAME> manufacturer;
    read(antenna, correctionRules::kHeaderText);
    read(manufacturer, correctionRules::kHeaderText);
    SetChars(header.AntennaName, antenna.View());
    SetChars(header.ManufacturerName, manufacturer.View());
    read(header.AntennaCode, kAnyInt);
    read(header.Version, kAnyInt);
    read(header.StartFrequencyHz, correctionRules::kHeaderFrequency);
    read(header.StopFrequencyHz, correctionRules::kHeaderFrequency);
    read(header.Year, kAnyInt);
    read(header.Month, kAnyInt);
    read(header.Day, kAnyInt);
    if (reader.Failed())
        return Fail(FioStatus::FileStructure);
    return read.Objection() == FioStatus::Ok ? FioStatus::Ok
                                             : Fail(FioStatus::FileRecord, FioStatusText(read.Objection()));
}

template <typename Record>
void WriteTable(ListFileWriter& file, SectionId id, const std::vector<Record>& table)
{
    ByteWriter& section = file.Section(id);
    section.Int(static_cast<uint32_t>(table.size()));
    for (const Record& entry : table) {
        WriteRecord(section, [&] { WriteFields(section, entry); });
    }
}

void WriteAzimuths(ListFileWriter& file, const std::vector<CorrAzimuthRecord>& table)
{
    ByteWriter& section = file.Section(SectionId::Azimuth);
    section.Int(static_cast<uint32_t>(table.size()));
    for (const CorrAzimuthRecord& entry : table) {
        WriteRecord(section, [&] {
            section.Double(entry.Frequency);
            section.Int(static_cast<uint16_t>(entry.Angles.size()));
            for (const double angle : entry.Angles)
                section.Double(angle);
        });
    }
}

template <typename Record>
FioStatus ReadEntry(ByteReader& record, size_t position, Record& entry)
{
    const FieldReader read = ReadFields(record, entry);
    return CheckRecord(record, read, position);
}

FioStatus ReadEntry(ByteReader& record, size_t position, CorrAzimuthRecord& entry)
{
    FieldReader read(record);
    read(entry.Frequency, correctionRules::kAzimuth);
    const size_t count = record.Int<uint16_t>();
    if (count > TVFIO_MAX_ANGLES)
        return FailRecord(position, FioStatusText(FioStatus::CorrectionAngleCount));
    if (record.Remaining() < count * sizeof(double))
        return FailRecord(position, "It is too short.");
    entry.Angles.resize(count);
    for (double& angle : entry.Angles)
        read(angle, correctionRules::kAzimuth);
    return CheckRecord(record, read, position);
}

template <typename Record>
FioStatus ReadTable(const Sections& sections, SectionId id, std::vector<Record>& table)
{
    ByteView section;
    if (const FioStatus status = RequireSection(sections, id, section); status != FioStatus::Ok)
        return status;
    return ReadRecords(section, CorrectionSet::kCapacity,
        [&](ByteReader& record, size_t position) { return ReadEntry(record, position, table.emplace_back()); });
}

} // namespace

CorrectionSet& CorrectionSet::Current()
{
    static CorrectionSet set;
    return set;
}

void CorrectionSet::Clear()
{
    std::copy(kNewIdentity.begin(), kNewIdentity.end(), Identity.Values);
    SetChars(Identity.Text, kCorrectionMarker);
    Header = {};
    Header.Version = 1;
    Header.Year = 2012;
    Header.Month = 1;
    Header.Day = 1;
    Kfactor.clear();
    Omniphase.clear();
    Azimuth.clear();
    FileName.clear();
}

Bytes CorrectionSet::Encode() const
{
    ListFileWriter file(kFamily);
    WriteIdentity(file, Identity);
    WriteHeader(file, Header);
    WriteTable(file, SectionId::Kfactor, Kfactor);
    WriteTable(file, SectionId::Omniphase, Omniphase);
    WriteAzimuths(file, Azimuth);
    return file.Finish();
}

FioStatus CorrectionSet::Decode(ByteView file)
{
    Sections sections;
    FioStatus status = ReadListFile(file, kFamily, sections);
    if (status == FioStatus::Ok)
        status = ReadIdentity(sections, Identity);
    if (status == FioStatus::Ok)
        status = ReadHeader(sections, Header);
    if (status == FioStatus::Ok)
        status = ReadTable(sections, SectionId::Kfactor, Kfactor);
    if (status == FioStatus::Ok)
        status = ReadTable(sections, SectionId::Omniphase, Omniphase);
    if (status == FioStatus::Ok)
        status = ReadTable(sections, SectionId::Azimuth, Azimuth);
    return status;
}

FioStatus CorrectionSet::SetHeader(const CorrHeader& header)
{
    for (const std::string_view text : { Chars(header.AntennaName), Chars(header.ManufacturerName) }) {
        if (const FioStatus status = CheckText(text, correctionRules::kHeaderText); status != FioStatus::Ok)
            return Fail(status);
    }
    for (const double frequencyHz : { header.StartFrequencyHz, header.StopFrequencyHz }) {
        if (const FioStatus status = CheckField(frequencyHz, correctionRules::kHeaderFrequency);
            status != FioStatus::Ok)
            return Fail(status);
    }
    Header = header;
    return FioStatus::Ok;
}

} // namespace tvfio
