// closed/tvfio/slotlist.h: a list of indexed places, each used or not.
#pragma once

#include "closed/tvfio/record.h"

#include <bitset>

namespace tvfio {

/// A list with records at the indexes `First` to `Capacity` - 1; an unused place holds a default record. `Staged` is
/// filled field by field and stored at a place by `Commit`.
/// A record type has a function `VisitFields(visitor, record)` that visits its fields, each with its rule, in file
/// order and returns the visitor.
template <typename Record, int First, int Capacity>
struct SlotList {
    using RecordType = Record;
    static constexpr int kFirst = First;
    static constexpr int kCapacity = Capacity;

    ListInfo Info;
    std::array<Record, Capacity> Records{};
    std::bitset<Capacity> Used;
    Record Staged{};
    uint32_t Changes = 0; ///< incremented whenever places may have changed, for data derived from them

    static bool IsIndex(int index)
    {
        return index >= First && index < Capacity;
    }

    void Clear()
    {
        Info = {};
        Records.fill({});
        Used.reset();
        Staged = {};
        ++Changes;
    }

    /// Stores the staged record at `index` and resets the staged record, so that no field leaks into the next one.
    void Commit(int index)
    {
        Put(index, Staged);
        Staged = {};
    }

    void Put(int index, const Record& record)
    {
        Records[static_cast<size_t>(index)] = record;
        Used.set(static_cast<size_t>(index));
        ++Changes;
    }

    /// The used records in order of their index.
    [[nodiscard]] std::vector<Record> UsedRecords() const
    {
        std::vector<Record> used;
        used.reserve(Used.count());
        for (size_t i = First; i < Capacity; ++i) {
            if (Used[i])
                used.push_back(Records[i]);
        }
        return used;
    }

    /// Replaces all records by `used`, placed at the front.
    void Refill(const std::vector<Record>& used)
    {
        Records.fill({});
        Used.reset();
        int index = First;
        for (const Record& record : used)
            Put(index++, record);
        ++Changes;
    }

    /// Sorts the used records by `comesBefore` (stable) and moves them to the front.
    template <typename ComesBefore>
    void Sort(ComesBefore comesBefore)
    {
        std::vector<Record> used = UsedRecords();
        std::stable_sort(used.begin(), used.end(), comesBefore);
        Refill(used);
    }
};

template <typename List>
Bytes EncodeSlots(Family family, const List& list)
{
    ListFileWriter file(family);
    WriteInfo(file, list.Info);
    ByteWriter& section = file.Section(SectionId::Records);
    section.Int(static_cast<uint32_t>(list.Used.count()));
    for (size_t i = List::kFirst; i < List::kCapacity; ++i) {
        if (!list.Used[i])
            continue;
        WriteRecord(section, [&] {
            section.Int(static_cast<uint16_t>(i));
            WriteFields(section, list.Records[i]);
        });
    }
    return file.Finish();
}

template <typename List>
[[nodiscard]] FioStatus DecodeSlot(ByteReader& record, size_t position, List& list)
{
    const int index = record.Int<uint16_t>();
    if (!List::IsIndex(index))
        return FailRecord(position, "Its place is outside the list.");
    if (list.Used[static_cast<size_t>(index)])
        return Fail(FioStatus::FileSameIndex);
    typename List::RecordType fields;
    const FieldReader read = ReadFields(record, fields);
    if (const FioStatus status = CheckRecord(record, read, position); status != FioStatus::Ok)
        return status;
    list.Put(index, fields);
    return FioStatus::Ok;
}

/// Fills the empty `list`; after a failure it holds part of the file.
template <typename List>
[[nodiscard]] FioStatus DecodeSlots(ByteView file, Family family, List& list)
{
    Sections sections;
    ByteView section;
    FioStatus status = ReadListFile(file, family, sections);
    if (status == FioStatus::Ok)
        status = ReadInfo(sections, list.Info);
    if (status == FioStatus::Ok)
        status = RequireSection(sections, SectionId::Records, section);
    if (status != FioStatus::Ok)
        return status;
    return ReadRecords(section, List::kCapacity - List::kFirst,
        [&](ByteReader& record, size_t position) { return DecodeSlot(record, position, list); });
}

} // namespace tvfio
