#include "lists/memory/memoryList.h"

#include "app/message/message.h"
#include "app/text/ansi.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryCells.h"
#include "lists/values/listError.h"

#include <QDir>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr int kTextRowsNotTaken = 12726;

/// Runs the store's calls one after another until the first failure, which it shows with `Item`.
class StoreRun {
public:
    int Item = kNoItem;

    template <typename... Parameters, typename... Arguments>
    bool operator()(void (*call)(std::int16_t*, Parameters...), Arguments&&... arguments)
    {
        if (status_ != 0)
            return false;
        call(&status_, std::forward<Arguments>(arguments)...);
        ShowListError(status_, Item, true);
        return status_ == 0;
    }

    /// A getter of text.
    bool Text(void (*call)(std::int16_t*, char*, std::int32_t), QString& text)
    {
        std::array<char, TVFIO_TEXT_SIZE> buffer{};
        if (!(*this)(call, buffer.data(), TVFIO_TEXT_SIZE))
            return false;
        text = Taken(buffer);
        return true;
    }

    /// A getter of a record's text.
    bool Text(void (*call)(std::int16_t*, std::int16_t, char*, std::int32_t), std::int16_t index, QString& text)
    {
        std::array<char, TVFIO_TEXT_SIZE> buffer{};
        if (!(*this)(call, index, buffer.data(), TVFIO_TEXT_SIZE))
            return false;
        text = Taken(buffer);
        return true;
    }

    bool Succeeded() const
    {
        return status_ == 0;
    }

private:
    static QString Taken(const std::array<char, TVFIO_TEXT_SIZE>& buffer)
    {
        return FromAnsi(QByteArrayView(buffer.data(), qstrnlen(buffer.data(), TVFIO_TEXT_SIZE)));
    }

    std::int16_t status_ = 0;
};

/// The fields in the order in which the store is asked and told.
template <typename Visitor, typename Record>
void VisitFields(Visitor&& visit, Record& record)
{
    const TvFioApi& store = TvFio();
    visit(store.MemoryGetMemItemNumber, store.MemorySetMemItemNumber, record.Number);
    visit.Used(record);
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

/// Every row is read, used or not.
struct RecordReader {
    StoreRun& Run;
    std::int16_t Index;

    template <typename Getter, typename Setter, typename Value>
    void operator()(Getter getter, Setter, Value& value)
    {
        Run(getter, Index, &value);
    }
    template <typename Getter, typename Setter>
    void operator()(Getter getter, Setter, QString& value)
    {
        Run.Text(getter, Index, value);
    }
    void Used(MemoryRecord& record)
    {
        std::int16_t used = 0;
        Run(TvFio().MemoryListItemIsInUse, Index, &used);
        record.Used = used != 0;
    }
};

/// Fills the staging record; committing it marks the place as used.
struct RecordWriter {
    StoreRun& Run;

    template <typename Getter, typename Setter, typename Value>
    void operator()(Getter, Setter setter, const Value& value)
    {
        Run(setter, value);
    }
    template <typename Getter, typename Setter>
    void operator()(Getter, Setter setter, const QString& value)
    {
        Run(setter, ToAnsi(value).constData());
    }
    void Used(const MemoryRecord&) { }
};

/// Number of a row in messages, counted from 1.
int ItemOfRow(int row)
{
    return row + 1;
}

QByteArray StorePath(const QString& path)
{
    return QDir::toNativeSeparators(path).toUtf8();
}

} // namespace

bool ClearMemoryList(MemoryTable& table)
{
    StoreRun run;
    return run(TvFio().MemoryListClear) && ReadMemoryListDll(table);
}

bool ReadMemoryListDll(MemoryTable& table)
{
    StoreRun run;
    std::int16_t count = 0;
    run.Text(TvFio().MemoryListGetName, table.MemoryListName);
    run.Text(TvFio().MemoryListGetDescription, table.MemoryListDescription);
    run(TvFio().MemoryListGetMaxNumberOfItems, &count);
    const int rows = std::min<int>(count, kMemoryRows);
    for (int row = 0; row < rows && run.Succeeded(); ++row) {
        run.Item = ItemOfRow(row);
        VisitFields(RecordReader{ run, static_cast<std::int16_t>(row) }, table.Row(row));
    }
    return run.Succeeded();
}

bool WriteMemoryListDll(const MemoryTable& table)
{
    StoreRun run;
    run(TvFio().MemoryListClear);
    run(TvFio().MemoryListSetName, ToAnsi(table.MemoryListName).constData());
    run(TvFio().MemoryListSetDescription, ToAnsi(table.MemoryListDescription).constData());
    for (int row = 0; row < kMemoryRows && run.Succeeded(); ++row) {
        if (!table.Row(row).Used)
            continue;
        run.Item = ItemOfRow(row);
        VisitFields(RecordWriter{ run }, table.Row(row));
        run(TvFio().MemorySetData, static_cast<std::int16_t>(row));
    }
    return run.Succeeded();
}

bool OpenMemoryList(const QString& path, MemoryTable& table)
{
    const bool isRead = IsCsvFile(path) ? ReadMemoryListCSVFile(path, table) : ReadMemoryListMRFile(path, table);
    if (!isRead) {
        table = {};
        static_cast<void>(ClearMemoryList(table)); // a failure has been shown, and the table is empty in any case
    }
    return isRead;
}

bool ReadMemoryListMRFile(const QString& path, MemoryTable& table)
{
    if (!ListFileExists(path))
        return false;
    StoreRun run;
    return run(TvFio().MemoryListClear) && run(TvFio().MemoryListLoadFile, StorePath(path).constData())
        && ReadMemoryListDll(table);
}

bool WriteMemoryList(const QString& path, MemoryTable& table)
{
    MemoryTable kept = table;
    if (!WriteMemoryListDll(table) || !ReadMemoryListDll(kept)) {
        MsgOk1(kTextRowsNotTaken, path);
        return false;
    }
    const bool isWritten = IsCsvFile(path) ? WriteMemoryListCSVFile(path, kept) : WriteMemoryListMRFile(path);
    if (isWritten)
        table = std::move(kept);
    return isWritten;
}

bool WriteMemoryListMRFile(const QString& path)
{
    StoreRun run;
    return MayWriteFile(path) && run(TvFio().MemoryListSaveFile, StorePath(path).constData());
}

bool SortMemoryList(MemoryTable& table, int key)
{
    MemoryTable sorted = table;
    StoreRun run;
    const bool isSorted = WriteMemoryListDll(table) && run(TvFio().MemoryListSort, static_cast<std::int16_t>(key))
        && ReadMemoryListDll(sorted);
    if (isSorted)
        table = std::move(sorted);
    return isSorted;
}

int MemorySortKeyOfHeader(int column, int present)
{
    for (const int ascending : { MemorySortNumberUp, MemorySortFrequencyUp, MemorySortDescriptionUp }) {
        if (MemoryHeaderOfSortKey(ascending) == column)
            return present == ascending ? ascending + 1 : ascending;
    }
    return -1;
}

int MemoryHeaderOfSortKey(int key)
{
    switch (key) {
    case MemorySortNumberUp:
    case MemorySortNumberDown:
        return MemoryColumnNumber;
    case MemorySortFrequencyUp:
    case MemorySortFrequencyDown:
        return MemoryColumnFrequency;
    case MemorySortDescriptionUp:
    case MemorySortDescriptionDown:
        return MemoryColumnDescription;
    default:
        return -1;
    }
}

bool MemorySortIsAscending(int key)
{
    return key == MemorySortNumberUp || key == MemorySortFrequencyUp || key == MemorySortDescriptionUp;
}

} // namespace tarvik
