// closed/tvfio/suppresslist.h: the suppress list: 100 frequency ranges.
#pragma once

#include "closed/tvfio/slotlist.h"

namespace tvfio {

struct SuppressRecord {
    int16_t Include = 0; ///< 0 or 1; 255 for an unknown word in a CSV file
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

    /// Sorts by start, then stop, ascending.
    void SortByRange();

    /// Sorts, then merges ranges of the same include setting that overlap or touch; keeps the first description that
    /// is not empty. A range whose stop is below its start is the same band reversed, and is swapped.
    void SortAndMerge();
};

} // namespace tvfio
