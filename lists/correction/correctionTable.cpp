#include "lists/correction/correctionTable.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/listError.h"

#include <QStringList>

#include <algorithm>
#include <unordered_map>

namespace tarvik {

namespace {

constexpr QChar kAngleSeparator = u'|';

/// How a column of numbers is shown and bounded.
struct NumberColumn {
    CellFormat Format;
    Range<double> Bounds;
};

NumberColumn NumberColumnOf(CorrTableId table, int column)
{
    if (column == kCorrFrequency)
        return { kMegahertzCell, Limits().FrequencyHz };
    if (table == CorrTableId::KFactor)
        return { kLevelCell, Limits().KFactorLevel };
    return { kLevelCell, kDegrees };
}

bool IsAngleList(CorrTableId table, int column)
{
    return table == CorrTableId::Azimuth && column == kCorrAngles;
}

/// Sets `text` to what a cell with its value shows; false if it is not a value.
bool Judge(CorrTableId table, int column, QString& text)
{
    if (IsAngleList(table, column)) {
        const auto angles = AzimuthParse(text, kAngleSeparator);
        if (angles.has_value())
            text = AzimuthFormat(*angles);
        return angles.has_value();
    }
    const NumberColumn shown = NumberColumnOf(table, column);
    double value = 0;
    return CheckCellScaled(text, value, shown.Bounds, shown.Format, { false, false });
}

/// Calls `visit` with the records of a table.
template <typename Records, typename Visit>
decltype(auto) VisitTable(CorrTableId table, Records& records, Visit visit)
{
    switch (table) {
    case CorrTableId::KFactor:
        return visit(records.KFactor);
    case CorrTableId::Omniphase:
        return visit(records.Omniphase);
    default:
        return visit(records.Azimuth);
    }
}

void SetValue(KfactorCorrEntry& entry, int column, double value)
{
    if (column == kCorrPassive)
        entry.PassiveLevel = value;
    else
        entry.ActiveLevel = value;
}

void SetValue(OmniphaseEntry& entry, int, double value)
{
    entry.PhaseDegrees = value;
}

void SetValue(AzimuthEntry&, int, double) { }

double ValueIn(const KfactorCorrEntry& entry, int column)
{
    return column == kCorrPassive ? entry.PassiveLevel : entry.ActiveLevel;
}

double ValueIn(const OmniphaseEntry& entry, int)
{
    return entry.PhaseDegrees;
}

double ValueIn(const AzimuthEntry&, int)
{
    return 0;
}

/// Stores the value of a cell; false, without a message, if it is none or cannot be stored. A text that shows the value
/// of the record keeps the digits that the cell does not show.
bool StoreCell(CorrTableId table, CorrRecords& records, int row, int column, QString text)
{
    if (IsAngleList(table, column)) {
        if (text == AzimuthFormat(CorrAngles(records, row)))
            return true;
        const auto angles = AzimuthParse(text, kAngleSeparator);
        return angles.has_value() && SetCorrAngles(records, row, *angles);
    }
    const NumberColumn shown = NumberColumnOf(table, column);
    const double before = CorrValue(table, records, row, column);
    const bool isInBounds = before >= shown.Bounds.Min && before <= shown.Bounds.Max;
    const QString textBefore = IsCorrEntryUsed(table, records, row) ? CellText(before, shown.Format) : QString();
    if (isInBounds && !textBefore.isEmpty() && text == textBefore)
        return true;
    double value = 0;
    if (!CheckCellScaled(text, value, shown.Bounds, shown.Format, { false, false }))
        return false;
    SetCorrValue(table, records, row, column, text == textBefore ? before : value);
    return true;
}

QString TextOf(CorrTableId table, const CorrRecords& records, int row, int column)
{
    if (IsAngleList(table, column))
        return AzimuthFormat(CorrAngles(records, row));
    return CellText(CorrValue(table, records, row, column), NumberColumnOf(table, column).Format);
}

std::optional<CorrFault> FirstInvalid(CorrTableId table, const std::vector<CorrRow>& rows)
{
    for (int row = 0; row < kCorrRows; ++row) {
        const CorrRow& cells = rows[static_cast<size_t>(row)];
        for (int column = 0; column < CorrColumnsOf(table); ++column) {
            if (cells.Invalid[static_cast<size_t>(column)])
                return CorrFault{ row, column };
        }
    }
    return {};
}

} // namespace

int CorrColumnsOf(CorrTableId table)
{
    return table == CorrTableId::KFactor ? 3 : 2;
}

QString AzimuthFormat(const std::vector<double>& angles)
{
    QStringList texts;
    for (const double angle : angles)
        texts.append(CellText(angle, kLevelCell));
    return texts.join(QStringLiteral(" | "));
}

std::optional<std::vector<double>> AzimuthParse(const QString& text, QChar separator)
{
    std::vector<double> angles;
    if (text.isEmpty())
        return angles;
    for (const QString& part : text.split(separator)) {
        double angle = 0;
        if (!StrToDoubleChecked(part, angle))
            return {};
        angles.push_back(std::clamp(angle, kDegrees.Min, kDegrees.Max));
    }
    return angles;
}

void TypeCorrCell(CorrRow& row, CorrTableId table, int column, const QString& text)
{
    row.Texts[static_cast<size_t>(column)] = text;
    row.Used = std::any_of(row.Texts.begin(), row.Texts.begin() + CorrColumnsOf(table),
        [](const QString& cell) { return !cell.isEmpty(); });
    if (!row.Used)
        row.Invalid = {};
    for (int cell = 0; row.Used && cell < CorrColumnsOf(table); ++cell) {
        if (row.Texts[static_cast<size_t>(cell)].isEmpty())
            row.Invalid[static_cast<size_t>(cell)] = true;
    }
}

void LeaveCorrCell(CorrRow& row, CorrTableId table, int column, QString& text)
{
    if (!row.Used)
        return;
    const bool isValue = !text.isEmpty() && Judge(table, column, text);
    row.Invalid[static_cast<size_t>(column)] = !isValue;
    row.Texts[static_cast<size_t>(column)] = text;
}

CorrRecords::~CorrRecords()
{
    Clear();
}

void CorrRecords::Clear()
{
    for (const AzimuthEntry& entry : Azimuth) {
        if (entry.Angles != 0)
            TvFio().AntCorrFreeAngles(entry.Angles);
    }
    std::fill(KFactor.begin(), KFactor.end(), KfactorCorrEntry{});
    std::fill(Omniphase.begin(), Omniphase.end(), OmniphaseEntry{});
    std::fill(Azimuth.begin(), Azimuth.end(), AzimuthEntry{});
}

std::optional<CorrFault> ValidateCorrTab(CorrTableId table, const std::vector<CorrRow>& rows, CorrRecords& records)
{
    if (const auto fault = FirstInvalid(table, rows); fault.has_value()) {
        MsgOkNum(TextId::CorrRowInvalid, fault->Row + 1);
        return fault;
    }
    for (int row = 0; row < kCorrRows; ++row) {
        const CorrRow& cells = rows[static_cast<size_t>(row)];
        for (int column = 0; cells.Used && column < CorrColumnsOf(table); ++column) {
            if (StoreCell(table, records, row, column, cells.Texts[static_cast<size_t>(column)]))
                continue;
            const auto message = IsAngleList(table, column) ? TextId::CorrBadAngles : TextId::CorrBadNumber;
            MsgOk2(message, QString::number(row + 1), QString::number(column));
            return CorrFault{ row, column };
        }
        SetCorrEntryUsed(table, records, row, cells.Used);
    }
    return {};
}

std::optional<CorrFault> CheckCorrDuplicates(CorrTableId table, const CorrRecords& records)
{
    const int used = UsedCorrEntries(table, records);
    if (used == 1)
        MsgOk(TextId::TooFewEntries);
    if (used <= 1)
        return used == 1 ? std::optional(CorrFault{}) : std::nullopt;
    std::unordered_map<double, int> rowOf;
    for (int row = 0; row < kCorrRows; ++row) {
        const auto [earlier, isNew] = rowOf.try_emplace(CorrValue(table, records, row, kCorrFrequency), row);
        if (isNew || !IsCorrEntryUsed(table, records, row))
            continue;
        MsgOk2(TextId::CorrDuplicate, QString::number(earlier->second + 1), QString::number(row + 1));
        return CorrFault{ earlier->second, kCorrFrequency };
    }
    return {};
}

int UsedCorrEntries(CorrTableId table, const CorrRecords& records)
{
    return VisitTable(table, records, [](const auto& entries) {
        return static_cast<int>(
            std::count_if(entries.begin(), entries.end(), [](const auto& entry) { return entry.Used != 0; }));
    });
}

bool SortCorrRecords(CorrTableId table, CorrRecords& records)
{
    const TvFioApi& store = TvFio();
    const auto count = static_cast<std::int16_t>(UsedCorrEntries(table, records));
    const std::int16_t status = table == CorrTableId::KFactor ? store.AntCorrSortKFactor(records.KFactor.data(), count)
        : table == CorrTableId::Omniphase ? store.AntCorrSortOmniphase(records.Omniphase.data(), count)
                                          : store.AntCorrSortAzimuth(records.Azimuth.data(), count);
    ShowListError(status, kNoItem, true);
    return status == 0;
}

std::vector<CorrRow> CorrRowsOf(CorrTableId table, const CorrRecords& records)
{
    std::vector<CorrRow> rows(kCorrRows);
    for (int row = 0; row < kCorrRows; ++row) {
        CorrRow& cells = rows[static_cast<size_t>(row)];
        cells.Used = IsCorrEntryUsed(table, records, row);
        for (int column = 0; cells.Used && column < CorrColumnsOf(table); ++column)
            cells.Texts[static_cast<size_t>(column)] = TextOf(table, records, row, column);
    }
    return rows;
}

double CorrValue(CorrTableId table, const CorrRecords& records, int row, int column)
{
    return VisitTable(table, records, [&](const auto& entries) {
        const auto& entry = entries[static_cast<size_t>(row)];
        return column == kCorrFrequency ? double{ entry.FrequencyHz } : ValueIn(entry, column);
    });
}

std::vector<double> CorrAngles(const CorrRecords& records, int row)
{
    std::int16_t count = 0;
    const double* angles = TvFio().AntCorrGetAngles(records.Azimuth[static_cast<size_t>(row)].Angles, &count);
    return { angles, angles + count };
}

bool IsCorrEntryUsed(CorrTableId table, const CorrRecords& records, int row)
{
    return VisitTable(
        table, records, [row](const auto& entries) { return entries[static_cast<size_t>(row)].Used != 0; });
}

void SetCorrValue(CorrTableId table, CorrRecords& records, int row, int column, double value)
{
    VisitTable(table, records, [&](auto& entries) {
        auto& entry = entries[static_cast<size_t>(row)];
        if (column == kCorrFrequency)
            entry.FrequencyHz = value;
        else
            SetValue(entry, column, value);
    });
}

void SetCorrEntryUsed(CorrTableId table, CorrRecords& records, int row, bool used)
{
    VisitTable(table, records, [&](auto& entries) { entries[static_cast<size_t>(row)].Used = used ? 1 : 0; });
}

bool SetCorrAngles(CorrRecords& records, int row, const std::vector<double>& angles)
{
    const TvFioApi& store = TvFio();
    AzimuthEntry& entry = records.Azimuth[static_cast<size_t>(row)];
    store.AntCorrFreeAngles(entry.Angles);
    const size_t count = std::min(angles.size(), size_t{ TVFIO_MAX_ANGLES } + 1);
    entry.Angles = store.AntCorrNewAngles(static_cast<std::int16_t>(count));
    double* const stored = store.AntCorrGetAngles(entry.Angles, nullptr);
    if (stored == nullptr)
        return angles.empty();
    std::copy(angles.begin(), angles.end(), stored);
    return true;
}

} // namespace tarvik
