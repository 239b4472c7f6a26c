// lists/values/storeWalk.h: copies a list between an editor's table and the list store, and loads, saves and sorts it,
// for the four families whose records are accessed by index. An operation that returns false has shown its message. A
// correction set is passed as whole tables and does not use this.
#pragma once

#include "app/platform/paths.h"
#include "closed/tvfio.h"
#include "lists/values/listError.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <utility>

namespace tarvik {

template <typename... Parameters>
using StoreCall = void (*)(std::int16_t* status, Parameters...);

/// Makes calls to the store until the first failure, which it reports with `Item`.
class StoreRun {
public:
    int Item = kNoItem;

    template <typename... Parameters, typename... Arguments>
    bool operator()(StoreCall<Parameters...> call, Arguments&&... arguments)
    {
        if (status_ != 0)
            return false;
        call(&status_, std::forward<Arguments>(arguments)...);
        ShowListError(status_, Item, true);
        return status_ == 0;
    }

    /// Gets a text of the list or of a record.
    bool Text(StoreCall<char*, std::int32_t> call, QString& text);
    bool Text(StoreCall<std::int16_t, char*, std::int32_t> call, std::int16_t index, QString& text);

    bool Succeeded() const
    {
        return status_ == 0;
    }

private:
    std::int16_t status_ = 0;
};

/// The list calls of one family, with either `Commit` or `Insert`.
struct ListCalls {
    StoreCall<> Clear;
    StoreCall<const char*> LoadFile;
    StoreCall<const char*> SaveFile;
    StoreCall<char*, std::int32_t> GetName;
    StoreCall<const char*> SetName;
    StoreCall<char*, std::int32_t> GetDescription;
    StoreCall<const char*> SetDescription;
    StoreCall<std::int16_t*> GetCount; ///< number of slots, or of the entries of a dense table
    StoreCall<std::int16_t> Commit = nullptr; ///< stores the fields set before in a slot
    StoreCall<> Insert = nullptr; ///< appends an entry to a dense table, whose setters take its index
};

/// How slots of the store map to rows of a table.
struct StoreSlots {
    int FirstIndex = 0; ///< of row 0
    int FirstItemRead = 1; ///< number of row 0 in messages on reading
    int FirstItemWritten = 1;
    bool UnusedHaveFields = true; ///< false: unused slots are not read; their rows are empty records
};

// A family is derived from ListFamily and has these static members:
//
//     StoreSlots kSlots;
//     ListCalls Calls();                            // fetched for each operation
//     void VisitFields(auto& visit, auto& record);  // visit(getter, setter, field) for each field, in the store's
//                                                   // order, and once visit.Used

/// The parts of a table. Its rows are records with a `bool Used`.
template <typename TableType>
struct ListFamily {
    using Table = TableType;

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
};

/// Reads one record.
class RecordReader {
public:
    RecordReader(StoreRun& run, int index, bool readsUnused)
        : run_(run)
        , index_(static_cast<std::int16_t>(index))
        , readsUnused_(readsUnused)
    {
    }

    template <typename Setter, typename Value>
    void operator()(StoreCall<std::int16_t, Value*> getter, Setter, Value& value)
    {
        if (!ended_)
            run_(getter, index_, &value);
    }
    template <typename Setter>
    void operator()(StoreCall<std::int16_t, char*, std::int32_t> getter, Setter, QString& value)
    {
        if (!ended_)
            run_.Text(getter, index_, value);
    }

    void Used(StoreCall<std::int16_t, std::int16_t*> isInUse, bool& used)
    {
        std::int16_t flag = 0;
        run_(isInUse, index_, &flag);
        used = flag != 0;
        ended_ = !used && !readsUnused_;
    }

    /// Dense table: every entry is used.
    void Used(bool& used)
    {
        used = true;
    }

private:
    StoreRun& run_;
    std::int16_t index_;
    bool readsUnused_;
    bool ended_ = false;
};

/// Writes one used record.
class RecordWriter {
public:
    RecordWriter(StoreRun& run, int index)
        : run_(run)
        , index_(static_cast<std::int16_t>(index))
    {
    }

    template <typename Getter, typename Value>
    void operator()(Getter, StoreCall<Value> setter, const Value& value)
    {
        run_(setter, value);
    }
    template <typename Getter, typename Value>
    void operator()(Getter, StoreCall<std::int16_t, Value> setter, const Value& value)
    {
        run_(setter, index_, value);
    }
    template <typename Getter>
    void operator()(Getter, StoreCall<const char*> setter, const QString& value)
    {
        SetText(setter, value);
    }

    template <typename... Ignored>
    void Used(const Ignored&...)
    {
    }

private:
    void SetText(StoreCall<const char*> setter, const QString& text);

    StoreRun& run_;
    std::int16_t index_;
};

/// Clears the store's list and sets its name and description.
bool BeginStoreList(StoreRun& run, const ListCalls& calls, const QString& name, const QString& description);

/// Message 12726; false.
bool RefuseRows(const QString& path);

/// Copies the store's current list into `table`. After a failure `table` is partly read.
template <typename Family>
[[nodiscard]] bool ReadStore(typename Family::Table& table)
{
    constexpr StoreSlots kSlots = Family::kSlots;
    const ListCalls calls = Family::Calls();
    auto& rows = Family::Rows(table);
    StoreRun run;
    std::int16_t count = 0;
    run.Text(calls.GetName, Family::Name(table));
    run.Text(calls.GetDescription, Family::Description(table));
    if (run(calls.GetCount, &count) && !kSlots.UnusedHaveFields)
        std::fill(rows.begin(), rows.end(), std::decay_t<decltype(rows.front())>());
    const int held = std::min(count - kSlots.FirstIndex, static_cast<int>(rows.size()));
    for (int row = 0; row < held && run.Succeeded(); ++row) {
        run.Item = row + kSlots.FirstItemRead;
        RecordReader reader(run, row + kSlots.FirstIndex, kSlots.UnusedHaveFields);
        Family::VisitFields(reader, rows[static_cast<size_t>(row)]);
    }
    return run.Succeeded();
}

/// Replaces the store's current list by name, description and used rows of `table`.
template <typename Family>
[[nodiscard]] bool WriteStore(const typename Family::Table& table)
{
    const ListCalls calls = Family::Calls();
    StoreRun run;
    BeginStoreList(run, calls, Family::Name(table), Family::Description(table));
    const auto& rows = Family::Rows(table);
    const int size = static_cast<int>(rows.size());
    int entries = 0;
    for (int row = 0; row < size && run.Succeeded(); ++row) {
        const auto& record = rows[static_cast<size_t>(row)];
        if (!record.Used)
            continue;
        run.Item = row + Family::kSlots.FirstItemWritten;
        const int index = calls.Insert != nullptr ? entries++ : row + Family::kSlots.FirstIndex;
        if (calls.Insert != nullptr)
            run(calls.Insert);
        RecordWriter writer(run, index);
        Family::VisitFields(writer, record);
        if (calls.Commit != nullptr)
            run(calls.Commit, static_cast<std::int16_t>(index));
    }
    return run.Succeeded();
}

/// Clears the store's list and copies it into `table`, which then has the store's defaults.
template <typename Family>
[[nodiscard]] bool ClearStore(typename Family::Table& table)
{
    StoreRun run;
    return run(Family::Calls().Clear) && ReadStore<Family>(table);
}

template <typename Family>
[[nodiscard]] bool LoadStore(const QString& path, typename Family::Table& table)
{
    const ListCalls calls = Family::Calls();
    StoreRun run;
    return run(calls.Clear) && run(calls.LoadFile, ModulePath(path).constData()) && ReadStore<Family>(table);
}

/// Writes the store's current list into a file.
template <typename Family>
[[nodiscard]] bool SaveStore(const QString& path)
{
    StoreRun run;
    return run(Family::Calls().SaveFile, ModulePath(path).constData());
}

/// Copies `table` into the store's current list and back into `kept`: the list as the store holds it. False after
/// message 12726 with `path`, the file that was to be written.
template <typename Family>
[[nodiscard]] bool PassThroughStore(
    const QString& path, const typename Family::Table& table, typename Family::Table& kept)
{
    kept = table;
    return (WriteStore<Family>(table) && ReadStore<Family>(kept)) || RefuseRows(path);
}

/// Sorts `table` with a call of the store. A failure leaves `table` unchanged.
template <typename Family, typename... Parameters>
[[nodiscard]] bool SortStore(typename Family::Table& table, StoreCall<Parameters...> sort, Parameters... arguments)
{
    typename Family::Table sorted = table;
    StoreRun run;
    const bool isSorted = WriteStore<Family>(table) && run(sort, arguments...) && ReadStore<Family>(sorted);
    if (isSorted)
        table = std::move(sorted);
    return isSorted;
}

} // namespace tarvik
