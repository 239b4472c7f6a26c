// lists/correction/correctionTable.h: the three tables of a correction set as an editor holds them: rows of texts, and
// the records of the list store that are built from them.
#pragma once

#include "closed/tvfio.h"
#include "lists/values/limits.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace tarvik {

inline constexpr int kCorrRows = TVFIO_CORR_ENTRIES;
inline constexpr int kCorrColumns = 3; ///< of the widest table

enum class CorrTableId { KFactor, Omniphase, Azimuth };
inline constexpr std::array kCorrTables{ CorrTableId::KFactor, CorrTableId::Omniphase, CorrTableId::Azimuth };

inline constexpr int kCorrFrequency = 0; ///< first column of every table
inline constexpr int kCorrPassive = 1;
inline constexpr int kCorrActive = 2;
inline constexpr int kCorrPhase = 1;
inline constexpr int kCorrAngles = 1;

inline constexpr Range<double> kDegrees{ -360.0, 360.0 };

/// Number of columns of a table.
int CorrColumnsOf(CorrTableId table);

struct CorrRow {
    bool Used = false; ///< one of the cells has a text
    std::array<QString, kCorrColumns> Texts;
    std::array<bool, kCorrColumns> Invalid{}; ///< empty, or not a value, in a used row

    bool operator==(const CorrRow&) const = default;
};

/// The angles in degrees with two decimals, separated by " | ".
QString AzimuthFormat(const std::vector<double>& angles);

/// Reads angles separated by `separator`, clamped to `kDegrees`. None if a part is not a number; no angles for an empty
/// text.
std::optional<std::vector<double>> AzimuthParse(const QString& text, QChar separator);

/// Takes the text of a cell that is being typed: sets which cells of the row are empty or invalid.
void TypeCorrCell(CorrRow& row, CorrTableId table, int column, const QString& text);

/// Judges a cell that is left, without a message: sets whether it is invalid, and `text` to what the cell shows.
void LeaveCorrCell(CorrRow& row, CorrTableId table, int column, QString& text);

/// Records of the list store. An entry of a row that is not used any more keeps its values.
struct CorrRecords {
    std::vector<KfactorCorrEntry> KFactor = std::vector<KfactorCorrEntry>(kCorrRows);
    std::vector<OmniphaseEntry> Omniphase = std::vector<OmniphaseEntry>(kCorrRows);
    std::vector<AzimuthEntry> Azimuth = std::vector<AzimuthEntry>(kCorrRows);

    CorrRecords() = default;
    ~CorrRecords();
    CorrRecords(const CorrRecords&) = delete;
    CorrRecords& operator=(const CorrRecords&) = delete;

    /// Empties all tables and releases the angles.
    void Clear();
};

/// A cell that a check refuses, after its message.
struct CorrFault {
    int Row = 0;
    int Column = 0;
};

/// Checks the rows of a table and fills its records. Message 12894 for a cell marked invalid, 12892 or 12893 for one
/// that is not a value.
std::optional<CorrFault> ValidateCorrTab(CorrTableId table, const std::vector<CorrRow>& rows, CorrRecords& records);

/// Message 12772 for a table of one entry; 12895 for a used entry with the frequency of an earlier one, which need not
/// be used.
std::optional<CorrFault> CheckCorrDuplicates(CorrTableId table, const CorrRecords& records);

int UsedCorrEntries(CorrTableId table, const CorrRecords& records);

/// Sorts the records in the store, which takes them over as the current set's table. False after a message.
[[nodiscard]] bool SortCorrRecords(CorrTableId table, CorrRecords& records);

/// The rows that show a table's records, none invalid.
std::vector<CorrRow> CorrRowsOf(CorrTableId table, const CorrRecords& records);

/// Values of an entry, by column; the angles of an azimuth entry separately.
double CorrValue(CorrTableId table, const CorrRecords& records, int row, int column);
std::vector<double> CorrAngles(const CorrRecords& records, int row);
bool IsCorrEntryUsed(CorrTableId table, const CorrRecords& records, int row);
void SetCorrValue(CorrTableId table, CorrRecords& records, int row, int column, double value);
void SetCorrEntryUsed(CorrTableId table, CorrRecords& records, int row, bool used);

/// False, with no angles, if the store has no memory for them, or they are more than TVFIO_MAX_ANGLES.
[[nodiscard]] bool SetCorrAngles(CorrRecords& records, int row, const std::vector<double>& angles);

} // namespace tarvik
