#include "bench/tableLists.h"

#include "lists/antenna/antennaList.h"
#include "lists/correction/correctionSet.h"
#include "lists/editor/editorGeneral.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/suppress/suppressList.h"

#include <cmath>

namespace tarvik {

namespace {

constexpr double kStepHz = 970137.5;

double FrequencyOf(int row)
{
    return 30e6 + row * kStepHz;
}

double LevelOf(int row)
{
    return 8 + row / 80.0 + 2 * std::sin(row / 20.0);
}

/// Ends the process if a list is not written.
QString Written(bool isWritten, const QString& path)
{
    if (!isWritten)
        qFatal("not written: %s", qPrintable(path));
    return path;
}

QString WriteAntennas(const QString& path)
{
    SetEditorType(FileClassAntennaList);
    AntennaTable table;
    table.Name = QStringLiteral("Antennas");
    for (int at = 0; at < kAntennaRows; ++at) {
        AntennaRow& row = table.Row(at);
        row.Used = true;
        row.Name = QStringLiteral("Antenna %1").arg(at + 1);
        row.StartFrequency = FrequencyOf(at);
        row.StopFrequency = FrequencyOf(at + 1);
        row.KfactorTableName = QStringLiteral("Table");
        row.CorrectionSetName = QStringLiteral("Set");
    }
    return Written(WriteAntennaFile(path, table), path);
}

QString WriteKfactors(const QString& path)
{
    SetEditorType(FileClassKfactorTable);
    KfactorTable table;
    table.Name = QStringLiteral("Table");
    for (int row = 0; row < kKfactorRows; ++row)
        table.Row(row) = { true, FrequencyOf(row), LevelOf(row), LevelOf(row) - 9 };
    return Written(WriteKfactorFile(path, table), path);
}

QString WriteRanges(const QString& path)
{
    SetEditorType(FileClassSuppressList);
    SuppressTable table;
    table.Name = QStringLiteral("Ranges");
    for (int at = 0; at < kSuppressRows; ++at)
        table.Row(at) = { true, kInclude, FrequencyOf(at), FrequencyOf(at + 1), QStringLiteral("Range %1").arg(at) };
    return Written(WriteSuppressFile(path, table), path);
}

QString WriteCorrections(const QString& path)
{
    SetEditorType(FileClassCorrectionSet);
    CorrSet set;
    SetCorrTexts(QStringLiteral("Array"), QStringLiteral("Works"), set.Header);
    set.Header.StartFrequencyHz = FrequencyOf(0);
    set.Header.StopFrequencyHz = FrequencyOf(kCorrRows - 1);
    bool isWritten = SetCorrHeader(set);
    for (const CorrTableId table : kCorrTables) {
        for (int row = 0; row < kCorrRows; ++row) {
            SetCorrEntryUsed(table, set.Records, row, true);
            SetCorrValue(table, set.Records, row, kCorrFrequency, FrequencyOf(row));
            SetCorrValue(table, set.Records, row, kCorrPassive, LevelOf(row));
            SetCorrValue(table, set.Records, row, kCorrActive, LevelOf(row) - 9);
            if (table == CorrTableId::Azimuth)
                isWritten = SetCorrAngles(set.Records, row, { 0.25, 45.5, 89.75, 135, 180.5, 224.75, 270.25, 315.5 })
                    && isWritten;
        }
        isWritten = isWritten && SortCorrRecords(table, set.Records);
    }
    return Written(isWritten && SaveCorrSet(path), path);
}

} // namespace

TableLists WriteTableLists(const QString& folder)
{
    return { WriteAntennas(folder + QStringLiteral("/Antennas.tva")),
        WriteKfactors(folder + QStringLiteral("/Table.tvk")), WriteRanges(folder + QStringLiteral("/Ranges.tvs")),
        WriteCorrections(folder + QStringLiteral("/Set.tvc")) };
}

} // namespace tarvik
