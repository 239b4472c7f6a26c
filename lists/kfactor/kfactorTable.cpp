#include "lists/kfactor/kfactorTable.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/storeWalk.h"

#include <algorithm>
#include <unordered_set>

namespace tarvik {

namespace {

struct KfactorFamily : ListFamily<KfactorTable> {
    static constexpr StoreSlots kSlots{ 0, 0, 1, false };

    static ListCalls Calls()
    {
        const TvFioApi& store = TvFio();
        ListCalls calls{ store.KfactorTableClear, store.KfactorTableLoadFile, store.KfactorTableSaveFile,
            store.KfactorTableGetName, store.KfactorTableSetName, store.KfactorTableGetDescription,
            store.KfactorTableSetDescription, store.KfactorTableGetNumberOfKFactors };
        calls.Insert = store.KfactorInsert;
        return calls;
    }

    static void VisitFields(auto& visit, auto& entry)
    {
        const TvFioApi& store = TvFio();
        visit.Used(entry.Used);
        visit(store.KfactorGetFrequency, store.KfactorSetFrequency, entry.Frequency);
        visit(store.KfactorGetPassive, store.KfactorSetPassive, entry.Passive);
        visit(store.KfactorGetActive, store.KfactorSetActive, entry.Active);
    }
};

bool ReadKfactorMRFile(const QString& path, KfactorTable& table)
{
    if (!ListFileExists(path) || !LoadStore<KfactorFamily>(path, table))
        return false;
    table.Count = UsedKfactorRows(table);
    return true;
}

bool FrequencyOfRow(const KfactorTable& table, int row, double& frequencyHz)
{
    if (table.Count < 1)
        return false;
    frequencyHz = table.Row(row).Frequency;
    return true;
}

} // namespace

KfactorTable& Kfactors()
{
    static ProcessState<KfactorTable> state;
    return state.Get();
}

bool LoadKfactorFile(const QString& path, KfactorTable& table)
{
    table = {};
    const bool isRead =
        IsCsvFile(path, TextId::CsvExtensionOfTables) ? ReadKfactorCsv(path, table) : ReadKfactorMRFile(path, table);
    if (!isRead)
        table = {};
    return isRead;
}

bool ReadKfactorFromStore(KfactorTable& table)
{
    const bool isRead = ReadStore<KfactorFamily>(table);
    table.Count = UsedKfactorRows(table);
    return isRead;
}

bool FirstKfactorFrequency(const KfactorTable& table, double& frequencyHz)
{
    return FrequencyOfRow(table, 0, frequencyHz);
}

bool LastKfactorFrequency(const KfactorTable& table, double& frequencyHz)
{
    return FrequencyOfRow(table, table.Count - 1, frequencyHz);
}

bool WriteKfactorFile(const QString& path, const KfactorTable& table)
{
    return IsCsvFile(path, TextId::CsvExtensionOfTables) ? WriteKFactorCSVFile(path, table)
                                                         : WriteKFactorMRFile(path, table);
}

bool WriteKFactorMRFile(const QString& path, const KfactorTable& table)
{
    return MayWriteFile(path) && WriteKFactorDll(table) && SaveStore<KfactorFamily>(path);
}

bool WriteKFactorDll(const KfactorTable& table)
{
    return WriteStore<KfactorFamily>(table);
}

bool SortKfactorRows(KfactorTable& table)
{
    if (!SortStore<KfactorFamily>(table, TvFio().KfactorTableSort))
        return false;
    table.Count = UsedKfactorRows(table);
    return true;
}

bool KfactorMayBeSaved(const KfactorTable& table)
{
    if (UsedKfactorRows(table) < kFewestKfactorRows) {
        MsgOk(TextId::TooFewEntries);
        return false;
    }
    const int duplicate = DuplicateKfactorRow(table);
    if (duplicate >= 0)
        MsgOkNum(TextId::DuplicateFrequency, duplicate + 1);
    return duplicate < 0;
}

int UsedKfactorRows(const KfactorTable& table)
{
    return static_cast<int>(
        std::count_if(table.Rows.begin(), table.Rows.end(), [](const KfactorEntry& entry) { return entry.Used; }));
}

int DuplicateKfactorRow(const KfactorTable& table)
{
    std::unordered_set<double> earlier;
    for (int row = 0; row < kKfactorRows; ++row) {
        const bool isNew = earlier.insert(table.Row(row).Frequency).second;
        if (table.Row(row).Used && !isNew)
            return row;
    }
    return -1;
}

} // namespace tarvik
