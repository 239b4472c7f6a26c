// lists/values/storeWalk.h: the way of a list between an editor's table and the list store, the same for the four
// families whose records are read by index: head, records field by field, load, save, sort. Every failure has been
// shown when an operation answers false. A correction set passes whole tables to the store and needs no walk.
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

/// Runs calls of the store one after another until the first failure, which it shows with `Item`.
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

    /// Getters of the list's and of a record's text.
    bool Text(StoreCall<char*, std::int32_t> call, QString& text);
    bool Text(StoreCall<std::int16_t, char*, std::int32_t> call, std::int16_t index, QString& text);

    bool Succeeded() const
    {
        return status_ == 0;
    }

private:
    std::int16_t status_ = 0;
};

/// The list calls of one family. Of `Commit` and `Insert` it has one.
struct ListCalls {
    StoreCall<> Clear;
    StoreCall<const char*> LoadFile;
    StoreCall<const char*> SaveFile;
    StoreCall<char*, std::int32_t> GetName;
    StoreCall<const char*> SetName;
    StoreCall<char*, std::int32_t> GetDescription;
    StoreCall<const char*> SetDescription;
    StoreCall<std::int16_t*> GetCount; ///< of places, or of the entries of a dense table
    StoreCall<std::int16_t> Commit = nullptr; ///< puts the staged fields into a place
    StoreCall<> Insert = nullptr; ///< appends an entry to a dense table, whose setters take its index
};

/// How the store's places meet the rows of a table.
struct StorePlaces {
    int FirstIndex = 0; ///< of row 0
    int FirstItemRead = 1; ///< number of row 0 in messages while reading
    int FirstItemWritten = 1;
    bool UnusedHaveFields = true; ///< false: an unused place is not read, and its row is an empty record
};

// A family is a type with these static members:
//
//     using Table = ...;                            // what an editor holds
//     auto& Name(auto& table);                      // QString of the table
//     auto& Description(auto& table);
//     auto& Rows(auto& table);                      // container of records, each with `bool Used`
//     StorePlaces kPlaces;
//     ListCalls Calls();                            // fetched for each operation
//     void VisitFields(auto& visit, auto& record);  // visit(getter, setter, field) for each field in the store's
//                                                   // order, with one visit.Used among them

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

    /// Of a dense table.
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

/// Writes one record, which is used.
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

/// Empties the store's list and names it.
bool BeginStoreList(StoreRun& run, const ListCalls& calls, const QString& name, const QString& description);

/// Copies the store's current list into `table`. After a failure the table holds what was read until then.
template <typename Family>
[[nodiscard]] bool ReadStore(typename Family::Table& table)
{
    constexpr StorePlaces kPlaces = Family::kPlaces;
    const ListCalls calls = Family::Calls();
    auto& rows = Family::Rows(table);
    StoreRun run;
    std::int16_t count = 0;
    run.Text(calls.GetName, Family::Name(table));
    run.Text(calls.GetDescription, Family::Description(table));
    if (run(calls.GetCount, &count) && !kPlaces.UnusedHaveFields)
        std::fill(rows.begin(), rows.end(), std::decay_t<decltype(rows.front())>());
    const int held = std::min(count - kPlaces.FirstIndex, static_cast<int>(rows.size()));
    for (int row = 0; row < held && run.Succeeded(); ++row) {
        run.Item = row + kPlaces.FirstItemRead;
        RecordReader reader(run, row + kPlaces.FirstIndex, kPlaces.UnusedHaveFields);
        Family::VisitFields(reader, rows[static_cast<size_t>(row)]);
    }
    return run.Succeeded();
}

/// Makes name, description and used rows of `table` the store's current list.
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
        run.Item = row + Family::kPlaces.FirstItemWritten;
        const int index = calls.Insert != nullptr ? entries++ : row + Family::kPlaces.FirstIndex;
        if (calls.Insert != nullptr)
            run(calls.Insert);
        RecordWriter writer(run, index);
        Family::VisitFields(writer, record);
        if (calls.Commit != nullptr)
            run(calls.Commit, static_cast<std::int16_t>(index));
    }
    return run.Succeeded();
}

/// Empties the store's list and copies it into `table`, which then has the store's defaults.
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

/// Sorts `table` with a call of the store. After a failure the table is as it was.
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
