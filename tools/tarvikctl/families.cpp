// The families of lists: their files, their JSON form and their columns on a terminal.
#include "app/text/textId.h"
#include "lists/antenna/antennaFields.h"
#include "lists/editor/editorGeneral.h"
#include "lists/kfactor/kfactorCells.h"
#include "lists/kfactor/kfactorDiagram.h"
#include "lists/memory/memoryList.h"
#include "lists/suppress/suppressCells.h"
#include "lists/values/fieldCheck.h"
#include "lists/values/translate.h"
#include "tools/tarvikctl/rowList.h"

#include <array>

namespace tarvik {

namespace {

QStringList TitlesOf(std::initializer_list<TextNumber<0>> captions)
{
    QStringList titles;
    for (const TextNumber<0> caption : captions)
        titles.append(ColumnTitle(LngStr(caption)));
    return titles;
}

/// What most families have in common.
template <typename TableType>
struct PlainFamily {
    using Table = TableType;

    static Table NewTable()
    {
        return {};
    }
    static auto& Name(auto& table)
    {
        return table.Name;
    }
    static auto& Description(auto& table)
    {
        return table.Description;
    }
    static auto& Rows(auto& table)
    {
        return table.Rows;
    }
    static bool MayBeSaved(const Table&)
    {
        return true;
    }
    static bool Sort(Table&, int)
    {
        return false;
    }
    static bool SortAndMerge(Table&)
    {
        return false;
    }
    static std::optional<MultiTraceInput> DiagramInput(const Table&)
    {
        return {};
    }
};

struct MemoryFamily : PlainFamily<MemoryTable> {
    static constexpr FileClass kClass = FileClassMemoryList;

    static TextNumber<0> Keyword()
    {
        return TextId::MemoryListKeyword;
    }
    static Table NewTable()
    {
        Table table;
        static_cast<void>(ClearMemoryList(table)); // a failure has been shown
        return table;
    }
    static auto& Name(auto& table)
    {
        return table.MemoryListName;
    }
    static auto& Description(auto& table)
    {
        return table.MemoryListDescription;
    }
    static bool Read(const QString& path, Table& table)
    {
        return OpenMemoryList(path, table);
    }
    static bool ReadCsvFile(const QString& path, Table& table)
    {
        return ReadMemoryListCSVFile(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadMemoryListCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return MemoryListCsv(table);
    }
    static bool Write(const QString& path, Table& table)
    {
        return WriteMemoryList(path, table);
    }
    static bool Sort(Table& table, int key)
    {
        return SortMemoryList(table, static_cast<MemorySortKey>(key));
    }

    static void VisitFields(auto& visit, auto& record)
    {
        visit("used", record.Used);
        visit("number", record.Number);
        visit("frequency", record.Frequency);
        visit("demodulation", record.Demodulation);
        visit("bandwidth", record.Bandwidth);
        visit("squelchLevel", record.SquelchLevel);
        visit("squelchStatus", record.SquelchStatus);
        visit("antennaNumber", record.AntennaNumber);
        visit("attenuatorStatus", record.AttenuatorStatus);
        visit("afcStatus", record.AfcStatus);
        visit("description", record.Description);
        visit("status", record.Status);
        visit("dfSquelchStatus", record.DfSquelchStatus);
        visit("dfSquelchLevel", record.DfSquelchLevel);
        visit("dfMeasurementTime", record.DfMeasurementTime);
        visit("frequencySpan", record.FrequencySpan);
        visit("dfStep", record.DfStep);
        visit("dfBandwidth", record.DfBandwidth);
    }

    static QStringList Titles()
    {
        return TitlesOf(
            { TextId::MemoryRowColumn, TextId::MemoryNumberColumn, TextId::EntryStatus, TextId::MemoryFrequencyColumn,
                TextId::MemoryDemodulationColumn, TextId::EntryBandwidth, TextId::MemoryDescriptionColumn });
    }
    static QList<int> RightAligned()
    {
        return { 0, 1, 3 };
    }
    static QStringList Cells(int row, const MemoryRecord& record)
    {
        const QString number = QString::number(record.Number);
        if (!record.Used)
            return { QString::number(row), number, UsedStatusToStr(false), {}, {}, {}, {} };
        return { QString::number(row), number, MemoryStatusToStr(record.Status),
            CellText(record.Frequency, kMegahertzCell), CodeToStr(kDemodulationCodes, record.Demodulation),
            CodeToStr(kBandwidthCodes, record.Bandwidth), record.Description };
    }
};

struct KfactorFamily : PlainFamily<KfactorTable> {
    static constexpr FileClass kClass = FileClassKfactorTable;

    static TextNumber<0> Keyword()
    {
        return TextId::KfactorTableKeyword;
    }
    static bool Read(const QString& path, Table& table)
    {
        return LoadKfactorFile(path, table);
    }
    static bool ReadCsvFile(const QString& path, Table& table)
    {
        return ReadKfactorCsv(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadKfactorCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return KfactorCsv(table);
    }
    static bool MayBeSaved(const Table& table)
    {
        return KfactorMayBeSaved(table);
    }
    static bool Write(const QString& path, const Table& table)
    {
        return WriteKfactorFile(path, table);
    }
    static bool Sort(Table& table, int)
    {
        return SortKfactorRows(table);
    }
    static std::optional<MultiTraceInput> DiagramInput(const Table& table)
    {
        return KfactorDiagram(table, table.Name);
    }

    static void VisitFields(auto& visit, auto& entry)
    {
        visit("frequency", entry.Frequency);
        visit("passive", entry.Passive);
        visit("active", entry.Active);
    }

    static QStringList Titles()
    {
        return TitlesOf({ TextId::KfactorRowColumn, TextId::KfactorFrequencyColumn, TextId::KfactorPassiveColumn,
            TextId::KfactorActiveColumn });
    }
    static QList<int> RightAligned()
    {
        return { 0, 1, 2, 3 };
    }
    static QStringList Cells(int row, const KfactorEntry& entry)
    {
        QStringList cells{ QString::number(row + 1) };
        for (const int column : { kKfactorColumnFrequency, kKfactorColumnPassive, kKfactorColumnActive })
            cells.append(KfactorCellText(entry, column));
        return cells;
    }
};

struct SuppressFamily : PlainFamily<SuppressTable> {
    static constexpr FileClass kClass = FileClassSuppressList;

    static TextNumber<0> Keyword()
    {
        return TextId::SuppressListKeyword;
    }
    static bool Read(const QString& path, Table& table)
    {
        return ReadSuppressFile(path, table);
    }
    static bool ReadCsvFile(const QString& path, Table& table)
    {
        return ReadSuppressCSVFile(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadSuppressCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return SuppressCsv(table);
    }
    static bool Write(const QString& path, Table& table)
    {
        return WriteSuppressFile(path, table);
    }
    static bool Sort(Table& table, int)
    {
        return SortSuppressRows(table);
    }
    static bool SortAndMerge(Table& table)
    {
        return SortAndMergeSuppressRows(table);
    }

    static void VisitFields(auto& visit, auto& row)
    {
        visit("include", row.Include);
        visit("startFrequency", row.StartFrequency);
        visit("stopFrequency", row.StopFrequency);
        visit("description", row.Description);
    }

    static QStringList Titles()
    {
        return TitlesOf({ TextId::SuppressRowColumn, TextId::SuppressIncludeColumn, TextId::SuppressStartColumn,
            TextId::SuppressStopColumn, TextId::SuppressDescriptionColumn });
    }
    static QList<int> RightAligned()
    {
        return { 0, 2, 3 };
    }
    static QStringList Cells(int row, const SuppressRow& record)
    {
        return { QString::number(row), record.Used ? IncludeToStr(record.Include) : QString(),
            SuppressCellText(record, kSuppressColumnStart), SuppressCellText(record, kSuppressColumnStop),
            SuppressCellText(record, kSuppressColumnDescription) };
    }
};

struct AntennaFamily : PlainFamily<AntennaTable> {
    static constexpr FileClass kClass = FileClassAntennaList;

    static TextNumber<0> Keyword()
    {
        return TextId::AntennaListKeyword;
    }
    static bool Read(const QString& path, Table& table)
    {
        return ReadAntennaFile(path, table);
    }
    static bool ReadCsvFile(const QString& path, Table& table)
    {
        return ReadAntennaCSVFile(path, table);
    }
    static bool ReadCsv(CsvSource& source, Table& table)
    {
        return ReadAntennaCsv(source, table);
    }
    static QByteArray Csv(const Table& table)
    {
        return AntennaCsv(table);
    }
    static bool MayBeSaved(Table& table)
    {
        return !ValidateAntennaRows(table.Rows).has_value();
    }
    static bool Write(const QString& path, const Table& table)
    {
        return WriteAntennaFile(path, table);
    }

    static void VisitFields(auto& visit, auto& row)
    {
        visit("include", row.Include);
        visit("name", row.Name);
        visit("startFrequency", row.StartFrequency);
        visit("stopFrequency", row.StopFrequency);
        visit("frequencyOffset", row.FrequencyOffset);
        visit("passiveBits", row.PassiveBits);
        visit("activeBits", row.ActiveBits);
        visit("kfactorTable", row.KfactorTableName);
        visit("antennaCode", row.AntennaCode);
        visit("northOffset", row.NorthOffset);
        visit("correctionSet", row.CorrectionSetName);
    }

    static QStringList Titles()
    {
        return TitlesOf({ TextId::AntennaRowColumn, TextId::AntennaIncludeColumn, TextId::AntennaNameColumn,
            TextId::AntennaStartFrequency, TextId::AntennaStopFrequency, TextId::AntennaKfactorTable,
            TextId::AntennaCorrectionSet });
    }
    static QList<int> RightAligned()
    {
        return { 0, 3, 4 };
    }
    static QStringList Cells(int row, const AntennaRow& record)
    {
        const QString number = QString::number(row + 1);
        if (!record.Used)
            return { number, {}, {}, {}, {}, {}, {} };
        return { number, LngStr(TextId::IncludeWords + record.Include), record.Name,
            AntennaFieldText(record, AntennaField::StartFrequency),
            AntennaFieldText(record, AntennaField::StopFrequency), record.KfactorTableName, record.CorrectionSetName };
    }
};

/// Words and sort keys of the families.
struct FamilyFacts {
    FileClass Class;
    const char* Word;
    int SortKeys;
};
constexpr std::array kFamilies{ FamilyFacts{ FileClassMemoryList, "memory", kMemorySortKeys },
    FamilyFacts{ FileClassAntennaList, "antenna", 0 }, FamilyFacts{ FileClassKfactorTable, "kfactor", 1 },
    FamilyFacts{ FileClassSuppressList, "suppress", 1 }, FamilyFacts{ FileClassCorrectionSet, "correction", 1 } };

const FamilyFacts* FactsOf(FileClass fileClass)
{
    const auto found = std::find_if(
        kFamilies.begin(), kFamilies.end(), [fileClass](const FamilyFacts& each) { return each.Class == fileClass; });
    return found == kFamilies.end() ? nullptr : &*found;
}

} // namespace

std::unique_ptr<ListFile> NewListFile(FileClass fileClass)
{
    SetEditorType(fileClass);
    switch (fileClass) {
    case FileClassAntennaList:
        return std::make_unique<RowList<AntennaFamily>>();
    case FileClassKfactorTable:
        return std::make_unique<RowList<KfactorFamily>>();
    case FileClassSuppressList:
        return std::make_unique<RowList<SuppressFamily>>();
    case FileClassCorrectionSet:
        return NewCorrectionFile();
    default:
        return std::make_unique<RowList<MemoryFamily>>();
    }
}

QString FamilyWord(FileClass fileClass)
{
    const FamilyFacts* facts = FactsOf(fileClass);
    return facts == nullptr ? QString() : QString::fromLatin1(facts->Word);
}

FileClass ClassOfFamilyWord(const QString& word)
{
    const auto found = std::find_if(kFamilies.begin(), kFamilies.end(),
        [&word](const FamilyFacts& each) { return word == QLatin1String(each.Word); });
    return found == kFamilies.end() ? FileClassUnknown : found->Class;
}

int SortKeysOf(FileClass fileClass)
{
    const FamilyFacts* facts = FactsOf(fileClass);
    return facts == nullptr ? 0 : facts->SortKeys;
}

} // namespace tarvik
