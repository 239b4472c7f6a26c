#include "lists/memory/memoryList.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryCells.h"
#include "lists/values/storeWalk.h"

namespace tarvik {

namespace {

struct MemoryFamily : ListFamily<MemoryTable> {
    static constexpr StoreSlots kSlots{};

    static auto& Name(auto& table)
    {
        return table.MemoryListName;
    }
    static auto& Description(auto& table)
    {
        return table.MemoryListDescription;
    }

    static ListCalls Calls()
    {
        const TvFioApi& store = TvFio();
        return { store.MemoryListClear, store.MemoryListLoadFile, store.MemoryListSaveFile, store.MemoryListGetName,
            store.MemoryListSetName, store.MemoryListGetDescription, store.MemoryListSetDescription,
            store.MemoryListGetMaxNumberOfItems, store.MemorySetData };
    }

    static void VisitFields(auto& visit, auto& record)
    {
        const TvFioApi& store = TvFio();
        visit(store.MemoryGetMemItemNumber, store.MemorySetMemItemNumber, record.Number);
        visit.Used(store.MemoryListItemIsInUse, record.Used);
        visit(store.MemoryGetFrequency, store.MemorySetFrequency, record.Frequency);
        visit(store.MemoryGetDemodulation, store.MemorySetDemodulation, record.Demodulation);
        visit(store.MemoryGetBandWidth, store.MemorySetBandWidth, record.Bandwidth);
        visit(store.MemoryGetSquelchLevel, store.MemorySetSquelchLevel, record.SquelchLevel);
        visit(store.MemoryGetSquelchSetting, store.MemorySetSquelchSetting, record.SquelchStatus);
        visit(store.MemoryGetAntennaNumber, store.MemorySetAntennaNumber, record.AntennaNumber);
        visit(store.MemoryGetAttenuatorSetting, store.MemorySetAttenuatorSetting, record.AttenuatorStatus);
        visit(store.MemoryGetAFCSetting, store.MemorySetAFCSetting, record.AfcStatus);
        visit(store.MemoryGetDescription, store.MemorySetDescription, record.Description);
        visit(store.MemoryGetSuppressed, store.MemorySetSuppressed, record.Status);
        visit(store.MemoryGetDfSquelchSetting, store.MemorySetDfSquelchSetting, record.DfSquelchStatus);
        visit(store.MemoryGetDfSquelchLevel, store.MemorySetDfSquelchLevel, record.DfSquelchLevel);
        visit(store.MemoryGetDfMeasurementTime, store.MemorySetDfMeasurementTime, record.DfMeasurementTime);
        visit(store.MemoryGetFrequencySpan, store.MemorySetFrequencySpan, record.FrequencySpan);
        visit(store.MemoryGetDfStep, store.MemorySetDfStep, record.DfStep);
        visit(store.MemoryGetReserved1, store.MemorySetReserved1, record.DfBandwidth);
        visit(store.MemoryGetReserved2, store.MemorySetReserved2, record.Reserved2);
        visit(store.MemoryGetReserved3, store.MemorySetReserved3, record.Reserved3);
    }
};

/// If a used row has the number of another one, as a binary file may, asks whether to give the later rows free numbers.
/// False if they keep them.
bool MakeNumbersDistinct(MemoryTable& table)
{
    int duplicateRow = -1;
    DistinctMemoryNumbers(table, duplicateRow);
    if (duplicateRow < 0)
        return true;
    const QString number = QString::number(table.Row(duplicateRow).Number);
    if (MsgYesNoDefNo1(TextId::RenumberMemories, number) != MsgResult::Yes)
        return false;
    RenumberDuplicates(table);
    return true;
}

} // namespace

bool ClearMemoryList(MemoryTable& table)
{
    return ClearStore<MemoryFamily>(table);
}

bool ReadMemoryListDll(MemoryTable& table)
{
    return ReadStore<MemoryFamily>(table);
}

bool WriteMemoryListDll(const MemoryTable& table)
{
    return WriteStore<MemoryFamily>(table);
}

bool OpenMemoryList(const QString& path, MemoryTable& table)
{
    const bool isRead = IsCsvFile(path) ? ReadMemoryListCSVFile(path, table) : ReadMemoryListMRFile(path, table);
    if (!isRead) {
        table = {};
        static_cast<void>(ClearMemoryList(table)); // after a failure the table is empty anyway
    }
    return isRead;
}

bool ReadMemoryListMRFile(const QString& path, MemoryTable& table)
{
    return ListFileExists(path) && LoadStore<MemoryFamily>(path, table);
}

bool WriteMemoryList(const QString& path, MemoryTable& table)
{
    MemoryTable kept;
    if (!PassThroughStore<MemoryFamily>(path, table, kept))
        return false;
    if (IsCsvFile(path) && !MakeNumbersDistinct(kept))
        return false;
    const bool isWritten = IsCsvFile(path) ? WriteMemoryListCSVFile(path, kept) : WriteMemoryListMRFile(path);
    if (isWritten)
        table = std::move(kept);
    return isWritten;
}

bool WriteMemoryListMRFile(const QString& path)
{
    return MayWriteFile(path) && SaveStore<MemoryFamily>(path);
}

bool SortMemoryList(MemoryTable& table, MemorySortKey key)
{
    return SortStore<MemoryFamily>(table, TvFio().MemoryListSort, static_cast<std::int16_t>(key));
}

std::optional<MemorySortKey> MemorySortKeyOfHeader(int column, MemorySortKey current)
{
    const auto toggle = [current](MemorySortKey up, MemorySortKey down) { return current == up ? down : up; };
    switch (column) {
    case kMemoryColumnNumber:
        return toggle(MemorySortKey::NumberUp, MemorySortKey::NumberDown);
    case kMemoryColumnFrequency:
        return toggle(MemorySortKey::FrequencyUp, MemorySortKey::FrequencyDown);
    case kMemoryColumnDescription:
        return toggle(MemorySortKey::DescriptionUp, MemorySortKey::DescriptionDown);
    default:
        return std::nullopt;
    }
}

int MemoryHeaderOfSortKey(MemorySortKey key)
{
    switch (key) {
    case MemorySortKey::NumberUp:
    case MemorySortKey::NumberDown:
        return kMemoryColumnNumber;
    case MemorySortKey::FrequencyUp:
    case MemorySortKey::FrequencyDown:
        return kMemoryColumnFrequency;
    case MemorySortKey::DescriptionUp:
    case MemorySortKey::DescriptionDown:
        return kMemoryColumnDescription;
    default:
        return -1;
    }
}

bool IsAscending(MemorySortKey key)
{
    return key == MemorySortKey::NumberUp || key == MemorySortKey::FrequencyUp || key == MemorySortKey::DescriptionUp;
}

} // namespace tarvik
