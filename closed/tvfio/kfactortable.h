// closed/tvfio/kfactortable.h: the K-factor table: up to 1000 contiguous entries.
#pragma once

#include "closed/tvfio/record.h"

namespace tvfio {

struct KfactorRecord {
    double Frequency = 0; ///< Hz
    double Passive = 0; ///< dB/m
    double Active = 0; ///< dB/m
};

namespace kfactorRules {
inline constexpr ValueRule kFrequency{ FioStatus::KfactorFrequency };
inline constexpr ValueRule kPassive{ FioStatus::KfactorPassive };
inline constexpr ValueRule kActive{ FioStatus::KfactorActive };
} // namespace kfactorRules

template <typename Visitor, typename Record>
requires std::same_as<std::remove_const_t<Record>, KfactorRecord> Visitor VisitFields(Visitor visit, Record& record)
{
    visit(record.Frequency, kfactorRules::kFrequency);
    visit(record.Passive, kfactorRules::kPassive);
    visit(record.Active, kfactorRules::kActive);
    return visit;
}

struct KfactorTable {
    static constexpr Family kFamily = Family::Kfactor;
    static constexpr size_t kCapacity = 1000;

    static KfactorTable& Current();

    ListInfo Info;
    std::vector<KfactorRecord> Entries; ///< at most kCapacity

    void Clear();
    [[nodiscard]] Bytes Encode() const;
    [[nodiscard]] FioStatus Decode(ByteView file);

    /// Appends an entry of zeros.
    [[nodiscard]] FioStatus Insert();

    /// Sorts by ascending frequency.
    void SortByFrequency();
};

} // namespace tvfio
