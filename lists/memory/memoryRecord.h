// lists/memory/memoryRecord.h: a memory entry, i.e. one stored receiver setting, and the table of 1024 of them.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tarvik {

/// Codes are those of lists/values/translate.h.
struct MemoryRecord {
    bool Used = false;
    std::int16_t Number = 0;
    double Frequency = 0; ///< Hz
    std::int16_t Demodulation = 0;
    std::int16_t Bandwidth = 0;
    double SquelchLevel = 0; ///< dBuV
    std::int16_t SquelchStatus = 0;
    std::int16_t AntennaNumber = 0;
    std::int16_t AttenuatorStatus = 0;
    std::int16_t AfcStatus = 0;
    QString Description;
    std::int16_t Status = 0; ///< 1: suppressed
    std::int16_t DfSquelchStatus = 0;
    double DfSquelchLevel = 0; ///< dBuV
    double DfMeasurementTime = 0; ///< s
    std::int16_t FrequencySpan = 0;
    std::int16_t DfStep = 0;
    std::int32_t DfBandwidth = 0; ///< the first of the file's three reserved fields
    std::int32_t Reserved2 = 0; ///< Reserved2 and Reserved3 are kept unchanged
    std::int32_t Reserved3 = 0;

    bool operator==(const MemoryRecord&) const = default;
};

inline constexpr int kMemoryRows = 1024;

/// A list in an editor: always `kMemoryRows` rows, used or not.
struct MemoryTable {
    QString MemoryListName;
    QString MemoryListDescription;
    std::vector<MemoryRecord> Rows = std::vector<MemoryRecord>(kMemoryRows);

    MemoryRecord& Row(int row)
    {
        return Rows[static_cast<size_t>(row)];
    }
    const MemoryRecord& Row(int row) const
    {
        return Rows[static_cast<size_t>(row)];
    }

    bool operator==(const MemoryTable&) const = default;
};

/// Makes an unused row used. It keeps its number unless another used row has the same one (Delete in the entry dialog
/// sets it to 0); then it gets the lowest number that no row has, as a CSV file can't have a number twice.
void UseMemoryRow(MemoryTable& table, int row);

/// Gives used rows with the number of an earlier one the lowest numbers that no used row has.
void RenumberDuplicates(MemoryTable& table);

/// The numbers of all rows for a file in which they must be distinct. Unused rows whose number is taken get the lowest
/// ones left. `duplicateRow` is the first used row with the number of an earlier one, or -1.
std::vector<std::int16_t> DistinctMemoryNumbers(const MemoryTable& table, int& duplicateRow);

} // namespace tarvik
