#include "closed/tvfio/kfactortable.h"

namespace tvfio {

KfactorTable& KfactorTable::Current()
{
    static KfactorTable table;
    return table;
}

void KfactorTable::Clear()
{
    Info = {};
    Entries.clear();
}

Bytes KfactorTable::Encode() const
{
    ListFileWriter file(kFamily);
    WriteInfo(file, Info);
    ByteWriter& section = file.Section(SectionId::Records);
    section.Int(static_cast<uint32_t>(Entries.size()));
    for (const KfactorRecord& entry : Entries) {
        WriteRecord(section, [&] { WriteFields(section, entry); });
    }
    return file.Finish();
}

FioStatus KfactorTable::Decode(ByteView file)
{
    Sections sections;
    ByteView section;
    FioStatus status = ReadListFile(file, kFamily, sections);
    if (status == FioStatus::Ok)
        status = ReadInfo(sections, Info);
    if (status == FioStatus::Ok)
        status = RequireSection(sections, SectionId::Records, section);
    if (status != FioStatus::Ok)
        return status;
    return ReadRecords(section, kCapacity, [this](ByteReader& record, size_t position) {
        const FieldReader read = ReadFields(record, Entries.emplace_back());
        return CheckRecord(record, read, position);
    });
}

FioStatus KfactorTable::Insert()
{
    if (Entries.size() >= kCapacity)
        return Fail(FioStatus::KfactorFull);
    Entries.emplace_back();
    return FioStatus::Ok;
}

void KfactorTable::SortByFrequency()
{
    std::stable_sort(Entries.begin(), Entries.end(),
        [](const KfactorRecord& left, const KfactorRecord& right) { return left.Frequency < right.Frequency; });
}

} // namespace tvfio
