// tests/lists/listFamilies.h: four families of lists as their editors read and write them, with contents to compare.
#pragma once

#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/suppresslist.h"

#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/antenna/antennaList.h"
#include "lists/correction/correctionSet.h"
#include "lists/editor/csv.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/suppress/suppressList.h"
#include "lists/values/limits.h"

#include <algorithm>

namespace tarvik {

// A family is a type with these members:
//
//     using StoreList = ...; using Table = ...; using Content = ...;   // of the store; of the editor; comparable
//     FileClass kClass; const char* kExtension;
//     bool Read(path, table), Write(path, table);                      // Write can sort the table
//     Content ContentOf(table);
//     void Use(table);                                                 // so that it is not empty
//
// and, with a CSV form:
//
//     bool ReadCsv(source, table); QByteArray Csv(table);
//     bool IsWithinLimits(table);                                      // what a reader of CSV may leave behind

template <typename Value>
bool IsWithin(Value value, Range<Value> limits)
{
    return value >= limits.Min && value <= limits.Max;
}

/// A frequency that a reader has taken from a file, or that is missing there.
inline bool IsReadFrequency(double frequencyHz)
{
    return frequencyHz == 0 || IsWithin(frequencyHz, Limits().FrequencyHz);
}

struct AntennaFiles {
    using StoreList = tvfio::AntennaList;
    using Table = AntennaTable;
    using Content = AntennaTable;
    static constexpr FileClass kClass = FileClassAntennaList;
    static constexpr const char* kExtension = ".tva";

    static bool Read(const QString& path, Table& table)
    {
        return ReadAntennaFile(path, table);
    }
    static bool Write(const QString& path, Table& table)
    {
        return WriteAntennaFile(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadAntennaCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return AntennaCsv(table);
    }
    static Content ContentOf(const Table& table)
    {
        return table;
    }
    static void Use(Table& table)
    {
        table.Row(7).Used = true;
        table.Name = QStringLiteral("Before");
    }
    static bool IsWithinLimits(const Table& table)
    {
        return std::all_of(table.Rows.begin(), table.Rows.end(), [](const AntennaRow& row) {
            return IsReadFrequency(row.StartFrequency) && IsReadFrequency(row.StopFrequency)
                && IsWithin(row.FrequencyOffset, Limits().AntennaConverterOffsetHz)
                && IsWithin(row.AntennaCode, Limits().AntennaCode) && IsWithin(row.NorthOffset, Limits().NorthOffset)
                && (row.Include == 0 || row.Include == 1) && row.PassiveBits >= 0 && row.PassiveBits < kBitPatterns
                && row.ActiveBits >= 0 && row.ActiveBits < kBitPatterns && row.Name.size() <= kTextLength
                && row.KfactorTableName.size() <= kLinkNameLength && row.CorrectionSetName.size() <= kLinkNameLength;
        });
    }
};

struct KfactorFiles {
    using StoreList = tvfio::KfactorTable;
    using Table = KfactorTable;
    using Content = KfactorTable;
    static constexpr FileClass kClass = FileClassKfactorTable;
    static constexpr const char* kExtension = ".tvk";

    static bool Read(const QString& path, Table& table)
    {
        return LoadKfactorFile(path, table);
    }
    static bool Write(const QString& path, Table& table)
    {
        return WriteKfactorFile(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadKfactorCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return KfactorCsv(table);
    }
    static Content ContentOf(const Table& table)
    {
        return table;
    }
    static void Use(Table& table)
    {
        table.Row(7).Used = true;
        table.Count = 8;
        table.Name = QStringLiteral("Before");
    }
    /// Entries of a file are dense, and all others are empty.
    static bool IsWithinLimits(const Table& table)
    {
        const auto end = table.Rows.begin() + table.Count;
        return std::all_of(table.Rows.begin(), end, [](const KfactorEntry& entry) {
            return entry.Used && IsWithin(entry.Frequency, Limits().FrequencyHz)
                && IsWithin(entry.Passive, Limits().KFactorLevel) && IsWithin(entry.Active, Limits().KFactorLevel);
        }) && std::all_of(end, table.Rows.end(), [](const KfactorEntry& entry) { return entry == KfactorEntry(); });
    }
};

struct SuppressFiles {
    using StoreList = tvfio::SuppressList;
    using Table = SuppressTable;
    using Content = SuppressTable;
    static constexpr FileClass kClass = FileClassSuppressList;
    static constexpr const char* kExtension = ".tvs";

    static bool Read(const QString& path, Table& table)
    {
        return ReadSuppressFile(path, table);
    }
    static bool Write(const QString& path, Table& table)
    {
        return WriteSuppressFile(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadSuppressCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return SuppressCsv(table);
    }
    static Content ContentOf(const Table& table)
    {
        return table;
    }
    static void Use(Table& table)
    {
        table.Row(7).Used = true;
        table.Name = QStringLiteral("Before");
    }
    static bool IsWithinLimits(const Table& table)
    {
        return std::all_of(table.Rows.begin(), table.Rows.end(), [](const SuppressRow& row) {
            return IsReadFrequency(row.StartFrequency) && IsReadFrequency(row.StopFrequency)
                && (row.Include == kInclude || row.Include == kExclude || row.Include == kUnknownInclude)
                && row.Description.size() <= kTextLength;
        });
    }
};

struct CorrectionFiles {
    using StoreList = tvfio::CorrectionSet;
    using Table = CorrSet;
    static constexpr FileClass kClass = FileClassCorrectionSet;
    static constexpr const char* kExtension = ".tvc";

    /// The records as bytes, with the angles in place of their handles.
    struct Content {
        QString FileName;
        QByteArray Header;
        QByteArray KFactor;
        QByteArray Omniphase;
        QByteArray Azimuth;
        std::vector<std::vector<double>> Angles;

        bool operator==(const Content&) const = default;
    };

    static bool Read(const QString& path, Table& set)
    {
        return LoadCorrSet(path, set);
    }
    static bool Write(const QString& path, Table& set)
    {
        return std::all_of(kCorrTables.begin(), kCorrTables.end(),
                   [&set](CorrTableId table) { return SortCorrRecords(table, set.Records); })
            && SetCorrHeader(set) && SaveCorrSet(path);
    }
    static Content ContentOf(const Table& set)
    {
        Content content{ set.FileName, Bytes(&set.Header, sizeof set.Header), BytesOf(set.Records.KFactor),
            BytesOf(set.Records.Omniphase), {}, {} };
        std::vector<AzimuthEntry> entries = set.Records.Azimuth;
        for (size_t row = 0; row < entries.size(); ++row) {
            if (entries[row].Angles != 0)
                content.Angles.push_back(CorrAngles(set.Records, static_cast<int>(row)));
            entries[row].Angles = entries[row].Angles != 0 ? 1 : 0;
        }
        content.Azimuth = BytesOf(entries);
        return content;
    }
    static void Use(Table& set)
    {
        set.FileName = QStringLiteral("Before");
        SetCorrEntryUsed(CorrTableId::KFactor, set.Records, 7, true);
        static_cast<void>(SetCorrAngles(set.Records, 7, { 1, 2 }));
    }

private:
    static QByteArray Bytes(const void* start, size_t size)
    {
        return { static_cast<const char*>(start), static_cast<qsizetype>(size) };
    }
    template <typename Entry>
    static QByteArray BytesOf(const std::vector<Entry>& entries)
    {
        return Bytes(entries.data(), entries.size() * sizeof(Entry));
    }
};

} // namespace tarvik
