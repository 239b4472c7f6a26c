// closed/tvfio/antennalist.h: the antenna list: 99 antennas at indexes 1 to 99; index 0 does not exist.
#pragma once

#include "closed/tvfio/slotlist.h"

namespace tvfio {

struct AntennaRecord {
    int16_t Include = 0; ///< flag: 0 is clear, 1 or -1 is set
    FixedText<32> Name;
    double StartFrequency = 0; ///< Hz
    double StopFrequency = 0; ///< Hz
    double DefFrequencyOffset = 0; ///< Hz, of the converter
    int16_t PassiveBits = 0; ///< switch bits 0 to 3
    int16_t ActiveBits = 0;
    FixedText<40> KFactorTableName; ///< base name of a file
    int16_t AntennaCode = 0;
    double NorthOffset = 0; ///< degrees
    FixedText<40> CorrectionSetName; ///< base name of a file
};

namespace antennaRules {
inline constexpr IntRule kInclude{ -1, 1, FioStatus::AntennaInclude };
inline constexpr TextRule kName{ 32, FioStatus::AntennaNameTooLong, FioStatus::AntennaNameCharacters };
inline constexpr ValueRule kStartFrequency{ FioStatus::AntennaStartFrequency };
inline constexpr ValueRule kStopFrequency{ FioStatus::AntennaStopFrequency };
inline constexpr ValueRule kFrequencyOffset{ FioStatus::AntennaFrequencyOffset };
inline constexpr IntRule kPassiveBits{ 0, 3, FioStatus::AntennaPassiveBits };
inline constexpr IntRule kActiveBits{ 0, 3, FioStatus::AntennaActiveBits };
inline constexpr TextRule kKfactorName{ 40, FioStatus::AntennaKfactorNameTooLong,
    FioStatus::AntennaKfactorNameCharacters };
inline constexpr IntRule kCode{ 0, 32767, FioStatus::AntennaCode };
inline constexpr ValueRule kNorthOffset{ FioStatus::AntennaNorthOffset };
inline constexpr TextRule kCorrectionName{ 40, FioStatus::AntennaCorrectionNameTooLong,
    FioStatus::AntennaCorrectionNameCharacters };
} // namespace antennaRules

template <typename Visitor, typename Record>
requires std::same_as<std::remove_const_t<Record>, AntennaRecord> Visitor VisitFields(Visitor visit, Record& record)
{
    visit(record.Include, antennaRules::kInclude);
    visit(record.Name, antennaRules::kName);
    visit(record.StartFrequency, antennaRules::kStartFrequency);
    visit(record.StopFrequency, antennaRules::kStopFrequency);
    visit(record.DefFrequencyOffset, antennaRules::kFrequencyOffset);
    visit(record.PassiveBits, antennaRules::kPassiveBits);
    visit(record.ActiveBits, antennaRules::kActiveBits);
    visit(record.KFactorTableName, antennaRules::kKfactorName);
    visit(record.AntennaCode, antennaRules::kCode);
    visit(record.NorthOffset, antennaRules::kNorthOffset);
    visit(record.CorrectionSetName, antennaRules::kCorrectionName);
    return visit;
}

struct AntennaList : SlotList<AntennaRecord, 1, 100> {
    static constexpr Family kFamily = Family::Antenna;
    static constexpr FioStatus kNoSuchIndex = FioStatus::AntennaIndex;

    static AntennaList& Current();

    [[nodiscard]] Bytes Encode() const
    {
        return EncodeSlots(kFamily, *this);
    }
    [[nodiscard]] FioStatus Decode(ByteView file)
    {
        return DecodeSlots(file, kFamily, *this);
    }
};

} // namespace tvfio
