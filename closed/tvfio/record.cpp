#include "closed/tvfio/record.h"

namespace tvfio {

FioStatus FailRecord(size_t position, const char* complaint)
{
    return Fail(FioStatus::FileRecord, "Record " + std::to_string(position + 1) + ": " + complaint);
}

FioStatus CheckRecord(const ByteReader& record, const FieldReader& fields, size_t position)
{
    if (record.Failed())
        return FailRecord(position, "It is too short.");
    if (fields.Objection() != FioStatus::Ok)
        return FailRecord(position, FioStatusText(fields.Objection()));
    return FioStatus::Ok;
}

void WriteInfo(ListFileWriter& file, const ListInfo& info)
{
    ByteWriter& section = file.Section(SectionId::Info);
    section.Text(info.Name.View());
    section.Text(info.Description.View());
}

FioStatus ReadInfo(const Sections& sections, ListInfo& info)
{
    ByteView section;
    if (const FioStatus status = RequireSection(sections, SectionId::Info, section); status != FioStatus::Ok)
        return status;
    ByteReader reader(section);
    FieldReader read(reader);
    read(info.Name, kListName);
    read(info.Description, kListDescription);
    if (reader.Failed())
        return Fail(FioStatus::FileStructure);
    if (read.Objection() != FioStatus::Ok)
        return Fail(FioStatus::FileRecord, FioStatusText(read.Objection()));
    return FioStatus::Ok;
}

} // namespace tvfio
