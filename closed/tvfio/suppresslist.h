// closed/tvfio/suppresslist.h: the suppress list: 100 frequency ranges.
#pragma once

#include "closed/tvfio/slotlist.h"

namespace tvfio {

struct SuppressRecord {
    int16_t Include = 0; ///< 0 or 1; a CSV file with another word stores 255
    double StartFrequency = 0; ///< Hz
    double StopFrequency = 0; ///< Hz
    FixedText<32> Description;
};

namespace suppressRules {
inline constexpr IntRule kInclude{ 0, 255, FioStatus::SuppressInclude };
inline constexpr ValueRule kStartFrequency{ FioStatus::SuppressStartFrequency };
inline constexpr ValueRule kStopFrequency{ FioStatus::SuppressStopFrequency };
inline constexpr TextRule kDescription{ 32, FioStatus::SuppressDescriptionTooLong,
    FioStatus::SuppressDescriptionCharacters };
} // namespace suppressRules

template <typename Visitor, typename Record>
requires std::same_as<std::remove_const_t<Record>, SuppressRecord> Visitor VisitFields(Visitor visit, Record& record)
{
    visit(record.Include, suppressRules::kInclude);
    visit(record.StartFrequency, suppressRules::kStartFrequency);
    visit(record.StopFrequency, suppressRules::kStopFrequency);
    visit(record.Description, suppressRules::kDescription);
    return visit;
}

struct SuppressList : SlotList<SuppressRecord, 0, 100> {
    static constexpr Family kFamily = Family::Suppress;
    static constexpr FioStatus kNoSuchIndex = FioStatus::SuppressIndex;

    static SuppressList& Current();

    [[nodiscard]] Bytes Encode() const
    {
        return EncodeSlots(kFamily, *this);
    }
    [[nodiscard]] FioStatus Decode(ByteView file)
    {
        return DecodeSlots(file, kFamily, *this);
    }

    /// Orders by start, then stop, ascending.
    void SortByRange();

    /// Sorts, then makes ranges of the same include setting that overlap or touch one; the first description that is
    /// not empty stays. A range whose stop lies below its start means the same band the other way round and is turned.
    void SortAndMerge();
};

} // namespace tvfio
