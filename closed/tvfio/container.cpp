#include "closed/tvfio/container.h"

#include "closed/tvfio/crc32.h"

#include <algorithm>
#include <bitset>
#include <limits>
#include <string>

namespace tvfio {

namespace {

/// Line ends and the end-of-text mark reveal a text-mode transfer.
constexpr std::array<uint8_t, 8> kMagic{ 'T', 'V', 'L', 'S', '\r', '\n', 0x1A, '\n' };
constexpr size_t kLengthAt = 12;
constexpr size_t kChecksumAt = 16;
constexpr size_t kTypicalBytes = size_t{ 128 } << 10;

uint32_t FileChecksum(ByteView file)
{
    return Crc32(file.subspan(kHeaderBytes), Crc32(file.first(kChecksumAt)));
}

FioStatus CheckMagicAndLength(ByteView file)
{
    const size_t common = std::min(file.size(), kMagic.size());
    if (!std::equal(kMagic.begin(), kMagic.begin() + static_cast<std::ptrdiff_t>(common), file.begin()))
        return Fail(FioStatus::FileIsNoList);
    if (file.size() < kHeaderBytes)
        return Fail(FioStatus::FileTruncated);
    const auto length = ByteReader(file.subspan(kLengthAt)).Int<uint32_t>();
    const size_t there = file.size() - kHeaderBytes;
    if (there < length)
        return Fail(FioStatus::FileTruncated);
    return there > length ? Fail(FioStatus::FileTrailingBytes) : FioStatus::Ok;
}

FioStatus CheckHeader(ByteView file, Family family)
{
    if (const FioStatus status = CheckMagicAndLength(file); status != FioStatus::Ok)
        return status;
    // Checked before the rest of the header, so that a flipped bit is not mistaken for another version or family.
    if (ByteReader(file.subspan(kChecksumAt)).Int<uint32_t>() != FileChecksum(file))
        return Fail(FioStatus::FileChecksum);
    ByteReader reader(file.subspan(kMagic.size()));
    if (reader.Int<uint16_t>() != kFormatVersion)
        return Fail(FioStatus::FileTooNew);
    const auto found = static_cast<Family>(reader.Int<uint16_t>());
    if (found == family)
        return FioStatus::Ok;
    return Fail(FioStatus::FileOtherFamily,
        std::string("It is a ") + FamilyName(found) + ", and a " + FamilyName(family) + " is needed.");
}

} // namespace

const char* FamilyName(Family family)
{
    switch (family) {
    case Family::Antenna:
        return "antenna list";
    case Family::Kfactor:
        return "K-factor table";
    case Family::Memory:
        return "memory list";
    case Family::Suppress:
        return "suppress list";
    case Family::Correction:
        return "correction set";
    }
    return "list of a later version";
}

ListFileWriter::ListFileWriter(Family family)
    : writer_(kTypicalBytes)
{
    for (const uint8_t byte : kMagic)
        writer_.Int(byte);
    writer_.Int(kFormatVersion);
    writer_.Int(static_cast<uint16_t>(family));
    writer_.Int(uint32_t{ 0 }); // length and checksum, set by Finish
    writer_.Int(uint32_t{ 0 });
}

ByteWriter& ListFileWriter::Section(SectionId id)
{
    EndSection();
    writer_.Int(static_cast<uint16_t>(id));
    openSection_ = writer_.Reserve<uint32_t>();
    return writer_;
}

void ListFileWriter::EndSection()
{
    if (openSection_ != 0)
        writer_.PatchLength<uint32_t>(openSection_);
    openSection_ = 0;
}

Bytes ListFileWriter::Finish()
{
    EndSection();
    writer_.Patch(kLengthAt, static_cast<uint32_t>(writer_.Written().size() - kHeaderBytes));
    writer_.Patch(kChecksumAt, FileChecksum(writer_.Written()));
    return writer_.Take();
}

FioStatus ReadListFile(ByteView file, Family family, Sections& sections)
{
    if (const FioStatus status = CheckHeader(file, family); status != FioStatus::Ok)
        return status;
    std::bitset<std::numeric_limits<uint16_t>::max() + 1> found; // also of sections of a later version
    ByteReader reader(file.subspan(kHeaderBytes));
    while (reader.Remaining() > 0) {
        const size_t id = reader.Int<uint16_t>();
        const ByteView content = reader.Take(reader.Int<uint32_t>());
        if (reader.Failed())
            return Fail(FioStatus::FileStructure);
        if (found.test(id))
            return Fail(FioStatus::FileStructure);
        found.set(id);
        if (id < sections.size())
            sections[id] = content;
    }
    return FioStatus::Ok;
}

FioStatus RequireSection(const Sections& sections, SectionId id, ByteView& section)
{
    const std::optional<ByteView>& found = sections[static_cast<size_t>(id)];
    if (!found.has_value())
        return Fail(FioStatus::FileStructure);
    section = *found;
    return FioStatus::Ok;
}

} // namespace tvfio
