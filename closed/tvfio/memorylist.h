// closed/tvfio/memorylist.h: the memory list: 1024 stored receiver settings.
#pragma once

#include "closed/tvfio/slotlist.h"

namespace tvfio {

/// One entry. The defaults are those of a new entry: FM at 100 MHz in 15 kHz; squelches, attenuator and AFC off; 0.5
/// s direction finding over 1 MHz in steps of 1 kHz. They are within all limits and pass the checks.
struct MemoryRecord {
    int16_t MemItemNumber = -1; ///< -1 in the staging record: use the number of the place
    double Frequency = 100e6; ///< Hz
    int16_t Demodulation = 0; ///< code, 0 is FM
    int16_t BandWidth = 8; ///< code, 8 is 15 kHz
    double SquelchLevel = 0; ///< dBuV
    int16_t SquelchSetting = 0;
    int16_t AntennaNumber = 0;
    int16_t AttenuatorSetting = 0;
    int16_t AFCSetting = 0;
    FixedText<32> Description;
    int16_t Suppressed = 0;
    int16_t DfSquelchSetting = 0;
    double DfSquelchLevel = 0; ///< dBuV
    double DfMeasurementTime = 0.5; ///< s
    int16_t FrequencySpan = 6; ///< code, 6 is 1 MHz
    int16_t DfStep = 18; ///< code, 18 is 1 kHz
    int32_t Reserved1 = 21; ///< code of the DF bandwidth, 21 is 15 kHz
    int32_t Reserved2 = 0;
    int32_t Reserved3 = 0;
};

namespace memoryRules {
inline constexpr IntRule kNumber{ 0, 1023, FioStatus::MemoryNumber };
inline constexpr ValueRule kFrequency{ FioStatus::MemoryFrequency };
inline constexpr IntRule kDemodulation{ 0, 7, FioStatus::MemoryDemodulation };
inline constexpr IntRule kBandwidth{ 0, 15, FioStatus::MemoryBandwidth };
inline constexpr ValueRule kSquelchLevel{ FioStatus::MemorySquelchLevel };
inline constexpr IntRule kSquelchSetting{ 0, 1, FioStatus::MemorySquelchSetting };
inline constexpr IntRule kAntennaNumber{ 0, 32767, FioStatus::MemoryAntennaNumber };
inline constexpr IntRule kAttenuator{ 0, 1, FioStatus::MemoryAttenuator };
inline constexpr IntRule kAfc{ 0, 1, FioStatus::MemoryAfc };
inline constexpr TextRule kDescription{ 32, FioStatus::MemoryDescriptionTooLong,
    FioStatus::MemoryDescriptionCharacters };
inline constexpr IntRule kStatus{ 0, 1, FioStatus::MemoryStatus };
inline constexpr IntRule kDfSquelchSetting{ 0, 2, FioStatus::MemoryDfSquelchSetting };
inline constexpr ValueRule kDfSquelchLevel{ FioStatus::MemoryDfSquelchLevel };
inline constexpr ValueRule kDfMeasurementTime{ FioStatus::MemoryDfMeasurementTime };
inline constexpr IntRule kFrequencySpan{ 0, 12, FioStatus::MemoryFrequencySpan };
inline constexpr IntRule kDfStep{ 0, 33, FioStatus::MemoryDfStep };
inline constexpr IntRule kDfBandwidth{ 0, 32, FioStatus::MemoryDfBandwidth };
} // namespace memoryRules

template <typename Visitor, typename Record>
requires std::same_as<std::remove_const_t<Record>, MemoryRecord> Visitor VisitFields(Visitor visit, Record& record)
{
    visit(record.MemItemNumber, memoryRules::kNumber);
    visit(record.Frequency, memoryRules::kFrequency);
    visit(record.Demodulation, memoryRules::kDemodulation);
    visit(record.BandWidth, memoryRules::kBandwidth);
    visit(record.SquelchLevel, memoryRules::kSquelchLevel);
    visit(record.SquelchSetting, memoryRules::kSquelchSetting);
    visit(record.AntennaNumber, memoryRules::kAntennaNumber);
    visit(record.AttenuatorSetting, memoryRules::kAttenuator);
    visit(record.AFCSetting, memoryRules::kAfc);
    visit(record.Description, memoryRules::kDescription);
    visit(record.Suppressed, memoryRules::kStatus);
    visit(record.DfSquelchSetting, memoryRules::kDfSquelchSetting);
    visit(record.DfSquelchLevel, memoryRules::kDfSquelchLevel);
    visit(record.DfMeasurementTime, memoryRules::kDfMeasurementTime);
    visit(record.FrequencySpan, memoryRules::kFrequencySpan);
    visit(record.DfStep, memoryRules::kDfStep);
    visit(record.Reserved1, memoryRules::kDfBandwidth);
    visit(record.Reserved2, kAnyInt);
    visit(record.Reserved3, kAnyInt);
    return visit;
}

inline constexpr int kMemoryItems = 1024;

struct MemoryList : SlotList<MemoryRecord, 0, kMemoryItems> {
    static constexpr Family kFamily = Family::Memory;
    static constexpr FioStatus kNoSuchIndex = FioStatus::MemoryIndex;

    static MemoryList& Current();

    [[nodiscard]] Bytes Encode() const
    {
        return EncodeSlots(kFamily, *this);
    }
    [[nodiscard]] FioStatus Decode(ByteView file)
    {
        return DecodeSlots(file, kFamily, *this);
    }

    /// Stores the staged record at `index`; a record without a number gets the number of the place.
    void Commit(int index);

    /// The number of place `index`. Unused places have numbers that differ from each other and from all numbers in
    /// use: a place has its own index unless a used entry has that number, and otherwise a spare number; spare
    /// numbers are assigned in ascending order.
    [[nodiscard]] int16_t Number(int index);

    /// Sorts by key: 0 status, then number; 1, 2 number up, down; 3, 4 frequency up, down; 5, 6 description up, down,
    /// ignoring case.
    [[nodiscard]] FioStatus SortByKey(int key);

private:
    void RenumberUnused();

    std::array<int16_t, kMemoryItems> numbers_{};
    uint32_t numbersOf_ = 0; ///< value of `Changes` for which `numbers_` was computed; 0 for none
};

} // namespace tvfio
