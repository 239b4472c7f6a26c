#include "lists/suppress/suppressList.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/storeWalk.h"

namespace tarvik {

namespace {

struct SuppressFamily : ListFamily<SuppressTable> {
    static constexpr StoreSlots kSlots{ 0, 0, 0, true };

    static ListCalls Calls()
    {
        const TvFioApi& store = TvFio();
        return { store.SuppressListClear, store.SuppressListLoadFile, store.SuppressListSaveFile,
            store.SuppressListGetName, store.SuppressListSetName, store.SuppressListGetDescription,
            store.SuppressListSetDescription, store.SuppressListGetMaxNumberOfItems, store.SuppressSetData };
    }

    static void VisitFields(auto& visit, auto& row)
    {
        const TvFioApi& store = TvFio();
        visit.Used(store.SuppressIsInUse, row.Used);
        visit(store.SuppressGetInclude, store.SuppressSetInclude, row.Include);
        visit(store.SuppressGetStartFrequency, store.SuppressSetStartFrequency, row.StartFrequency);
        visit(store.SuppressGetStopFrequency, store.SuppressSetStopFrequency, row.StopFrequency);
        visit(store.SuppressGetDescription, store.SuppressSetDescription, row.Description);
    }
};

bool IsCsv(const QString& path)
{
    return IsCsvFile(path, TextId::CsvExtensionOfTables);
}

} // namespace

QString IncludeToStr(std::int16_t include)
{
    if (include == kInclude)
        return LngStr(TextId::SuppressInclude);
    return include == kExclude ? LngStr(TextId::SuppressExclude) : QString();
}

std::int16_t IncludeStrToStatus(const QString& text)
{
    if (text == LngStr(TextId::SuppressInclude))
        return kInclude;
    return text == LngStr(TextId::SuppressExclude) ? kExclude : kUnknownInclude;
}

bool ReadSuppressFile(const QString& path, SuppressTable& table)
{
    table = {};
    const bool isRead = IsCsv(path) ? ReadSuppressCSVFile(path, table) : ReadSuppressMRFile(path, table);
    if (!isRead)
        table = {};
    return isRead;
}

bool ReadSuppressMRFile(const QString& path, SuppressTable& table)
{
    return ListFileExists(path) && LoadStore<SuppressFamily>(path, table);
}

bool ReadSuppressFromStore(SuppressTable& table)
{
    return ReadStore<SuppressFamily>(table);
}

bool WriteSuppressListDll(const SuppressTable& table)
{
    return WriteStore<SuppressFamily>(table);
}

bool WriteSuppressFile(const QString& path, SuppressTable& table)
{
    SuppressTable kept;
    if (!PassThroughStore<SuppressFamily>(path, table, kept))
        return false;
    table = kept;
    return IsCsv(path) ? WriteSuppressListCSVFile(path, table) : WriteSuppressListMRFile(path);
}

bool WriteSuppressListMRFile(const QString& path)
{
    return MayWriteFile(path) && SaveStore<SuppressFamily>(path);
}

bool SortSuppressRows(SuppressTable& table)
{
    return SortStore<SuppressFamily>(table, TvFio().SuppressListSort);
}

bool SortAndMergeSuppressRows(SuppressTable& table)
{
    return SortStore<SuppressFamily>(table, TvFio().SuppressListSortAndMerge);
}

} // namespace tarvik
