// closed/tvfio/record.h: rules for record fields, and serialization of records.
#pragma once

#include "closed/tvfio/container.h"
#include "closed/tvfio/text.h"

#include <bit>
#include <cmath>
#include <limits>
#include <string>

namespace tvfio {

/// Minimum and maximum of a whole number or code, and the status for a value outside.
struct IntRule {
    int32_t Min;
    int32_t Max;
    FioStatus Status;
};

/// A number that must be finite. Range limits belong to the instrument generation and are the editors' business; a
/// list made under other limits stays readable.
struct ValueRule {
    FioStatus Status;
};

/// A field that is stored but has no meaning here.
inline constexpr IntRule kAnyInt{ std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(),
    FioStatus::Ok };

[[nodiscard]] inline FioStatus CheckField(int32_t value, const IntRule& rule)
{
    return value < rule.Min || value > rule.Max ? rule.Status : FioStatus::Ok;
}

[[nodiscard]] inline FioStatus CheckField(double value, const ValueRule& rule)
{
    return std::isfinite(value) ? FioStatus::Ok : rule.Status;
}

/// Space for the fields of the longest record, mostly texts.
inline constexpr size_t kMaxFieldBytes = 1024;

/// Writes the fields of a record, in the order visited, to a buffer of kMaxFieldBytes bytes. Passed by value so that
/// the write position stays in a register.
class FieldWriter {
public:
    explicit FieldWriter(uint8_t* room)
        : place_(room)
    {
    }

    template <std::integral Number>
    void operator()(Number value, const IntRule&)
    {
        PutInt(place_, value);
        place_ += sizeof value;
    }

    void operator()(double value, const ValueRule&)
    {
        PutInt(place_, std::bit_cast<uint64_t>(value));
        place_ += sizeof value;
    }

    template <int N>
    void operator()(const FixedText<N>& text, const TextRule&)
    {
        *place_ = text.Length;
        std::memcpy(place_ + 1, text.Chars.data(), N); // the next field overwrites what follows the text
        place_ += 1 + text.Length;
    }

    [[nodiscard]] const uint8_t* End() const
    {
        return place_;
    }

private:
    uint8_t* place_;
};

/// Reads the fields of a record in the order visited, and keeps the first error.
class FieldReader {
public:
    explicit FieldReader(ByteReader& source)
        : source_(source)
    {
    }

    template <std::integral Number>
    void operator()(Number& value, const IntRule& rule)
    {
        value = source_.Int<Number>();
        Note(CheckField(value, rule));
    }

    void operator()(double& value, const ValueRule& rule)
    {
        value = source_.Double();
        Note(CheckField(value, rule));
    }

    template <int N>
    void operator()(FixedText<N>& text, const TextRule& rule)
    {
        const std::string_view found = source_.Text();
        Note(CheckText(found, rule));
        // A zero is a control character, so an accepted text ends at its terminator.
        text.Assign(found);
    }

    [[nodiscard]] FioStatus Objection() const
    {
        return objection_;
    }

private:
    void Note(FioStatus status)
    {
        if (objection_ == FioStatus::Ok)
            objection_ = status;
    }

    ByteReader& source_;
    FioStatus objection_ = FioStatus::Ok;
};

/// Writes all fields of `record`.
template <typename Record>
void WriteFields(ByteWriter& target, const Record& record)
{
    target.Advance(VisitFields(FieldWriter(target.Room(kMaxFieldBytes)), record).End());
}

/// Reads all fields of `record`; the result holds the first error.
template <typename Record>
[[nodiscard]] FieldReader ReadFields(ByteReader& source, Record& record)
{
    return VisitFields(FieldReader(source), record);
}

/// Fails with FileRecord, naming the record (`position` counts from 0 in the file) and the error.
FioStatus FailRecord(size_t position, const char* complaint);

/// Ok, or the failure for a truncated record or an invalid field.
[[nodiscard]] FioStatus CheckRecord(const ByteReader& record, const FieldReader& fields, size_t position);

/// The list of records in a section: a count, then for each record its length and its bytes. `readOne` gets a reader
/// of one record and its position, and returns a status. Bytes after the known fields belong to a later version and
/// are skipped.
template <typename ReadOne>
[[nodiscard]] FioStatus ReadRecords(ByteView section, size_t maxCount, ReadOne readOne)
{
    ByteReader reader(section);
    const size_t count = reader.Int<uint32_t>();
    if (!reader.Failed() && count > maxCount)
        return Fail(FioStatus::FileCount);
    for (size_t position = 0; position < count; ++position) {
        ByteReader record(reader.Take(reader.Int<uint32_t>()));
        if (reader.Failed())
            return Fail(FioStatus::FileStructure);
        if (const FioStatus status = readOne(record, position); status != FioStatus::Ok)
            return status;
    }
    return reader.Failed() || reader.Remaining() > 0 ? Fail(FioStatus::FileStructure) : FioStatus::Ok;
}

/// Writes the length of a record, then what `writeOne` writes.
template <typename WriteOne>
void WriteRecord(ByteWriter& writer, WriteOne writeOne)
{
    const size_t lengthAt = writer.Reserve<uint32_t>();
    writeOne();
    writer.PatchLength<uint32_t>(lengthAt);
}

/// Name and description of a list: the section Info.
struct ListInfo {
    FixedText<32> Name;
    FixedText<32> Description;
};
inline constexpr TextRule kListName{ 32, FioStatus::ListNameTooLong, FioStatus::ListNameCharacters };
inline constexpr TextRule kListDescription{ 32, FioStatus::ListDescriptionTooLong,
    FioStatus::ListDescriptionCharacters };

void WriteInfo(ListFileWriter& file, const ListInfo& info);
[[nodiscard]] FioStatus ReadInfo(const Sections& sections, ListInfo& info);

} // namespace tvfio
