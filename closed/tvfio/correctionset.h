// closed/tvfio/correctionset.h: the correction set: header and three frequency tables of one antenna.
#pragma once

#include "closed/tvfio.h"
#include "closed/tvfio/record.h"

#include <string>

namespace tvfio {

struct CorrKfactorRecord {
    double Frequency = 0; ///< Hz
    double Active = 0; ///< dB/m
    double Passive = 0; ///< dB/m
};

struct CorrPhaseRecord {
    double Frequency = 0; ///< Hz
    double Phase = 0; ///< degrees
};

struct CorrAzimuthRecord {
    double Frequency = 0; ///< Hz
    std::vector<double> Angles; ///< degrees; at most TVFIO_MAX_ANGLES
};

namespace correctionRules {
inline constexpr TextRule kHeaderText{ TVFIO_MAX_NAME, FioStatus::CorrectionHeaderText,
    FioStatus::CorrectionHeaderText };
inline constexpr ValueRule kHeaderFrequency{ FioStatus::CorrectionHeaderFrequency };
inline constexpr ValueRule kKfactor{ FioStatus::CorrectionKfactorEntry };
inline constexpr ValueRule kPhase{ FioStatus::CorrectionOmniphaseEntry };
inline constexpr ValueRule kAzimuth{ FioStatus::CorrectionAzimuthEntry };
} // namespace correctionRules

template <typename Visitor, typename Record>
requires std::same_as<std::remove_const_t<Record>, CorrKfactorRecord> Visitor VisitFields(Visitor visit, Record& record)
{
    visit(record.Frequency, correctionRules::kKfactor);
    visit(record.Active, correctionRules::kKfactor);
    visit(record.Passive, correctionRules::kKfactor);
    return visit;
}

template <typename Visitor, typename Record>
requires std::same_as<std::remove_const_t<Record>, CorrPhaseRecord> Visitor VisitFields(Visitor visit, Record& record)
{
    visit(record.Frequency, correctionRules::kPhase);
    visit(record.Phase, correctionRules::kPhase);
    return visit;
}

/// The marker in the identity of every correction set.
inline constexpr std::string_view kCorrectionMarker = "TARVIK_CORRECTIONFILE";

struct CorrectionSet {
    static constexpr Family kFamily = Family::Correction;
    static constexpr size_t kCapacity = TVFIO_CORR_ENTRIES; ///< of each table

    static CorrectionSet& Current();

    CorrectionSet()
    {
        Clear();
    }

    CorrModIdent Identity{};
    CorrHeader Header{};
    std::vector<CorrKfactorRecord> Kfactor;
    std::vector<CorrPhaseRecord> Omniphase;
    std::vector<CorrAzimuthRecord> Azimuth;
    std::string FileName; ///< without folder; UTF-8

    /// Resets to a new set: no entries, version 1, date 2012-01-01.
    void Clear();
    [[nodiscard]] Bytes Encode() const;
    [[nodiscard]] FioStatus Decode(ByteView file);

    /// Assigns `header` if its texts and frequencies are valid.
    [[nodiscard]] FioStatus SetHeader(const CorrHeader& header);
};

/// Sorts a table by ascending frequency.
template <typename Record>
void SortByFrequency(std::vector<Record>& table)
{
    std::stable_sort(table.begin(), table.end(),
        [](const Record& left, const Record& right) { return left.Frequency < right.Frequency; });
}

} // namespace tvfio
