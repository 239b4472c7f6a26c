// tools/tarvikctl/rowList.h: the four families whose lists are tables of rows.
#pragma once

#include "app/message/message.h"
#include "app/text/lang.h"
#include "lists/editor/csv.h"
#include "tools/tarvikctl/jsonText.h"
#include "tools/tarvikctl/listFile.h"
#include "tools/tarvikctl/textTable.h"

#include <algorithm>

namespace tarvik {

// A family is a type with these static members:
//
//     using Table = ...;
//     constexpr FileClass kClass;
//     TextNumber<0> Keyword();
//     auto& Name(auto& table), Description(auto& table), Rows(auto& table);
//     bool Read(path, table), ReadCsvFile(path, table), ReadCsv(source, table), Write(path, table), MayBeSaved(table),
//     Sort(table, key),
//         SortAndMerge(table);
//     QByteArray Csv(table);
//     std::optional<MultiTraceInput> DiagramInput(table);
//     void VisitFields(auto& visit, auto& row);   // visit(key, field) in the order of the JSON form, but for the row
//     QStringList Titles(); QList<int> RightAligned(); QStringList Cells(int row, const Row& record);

template <typename Family>
class RowList final : public ListFile {
public:
    bool Read(const QString& path, bool isCsv) override
    {
        return isCsv ? Family::ReadCsvFile(path, table_) : Family::Read(path, table_);
    }
    bool MayBeSaved() override
    {
        return Family::MayBeSaved(table_);
    }
    bool Write(const QString& path) override
    {
        return Family::Write(path, table_);
    }
    bool Sort(int key) override
    {
        return Family::Sort(table_, key);
    }
    bool SortAndMerge() override
    {
        return Family::SortAndMerge(table_);
    }

    QString ReadJson(const QJsonObject& list) override
    {
        JsonReader reader(list, {});
        QJsonArray rows;
        table_ = Family::NewTable();
        reader("name", Family::Name(table_));
        reader("description", Family::Description(table_));
        reader("rows", rows);
        QString error = reader.Finish();
        std::vector<bool> taken(Family::Rows(table_).size());
        for (qsizetype index = 0; index < rows.size() && error.isEmpty(); ++index)
            error = ReadRow(rows.at(index), static_cast<int>(index), taken);
        if (error.isEmpty())
            PassThroughCsv();
        return error;
    }

    std::optional<MultiTraceInput> DiagramInput(bool omniphase) const override
    {
        return omniphase ? std::nullopt : Family::DiagramInput(table_);
    }

    QString Summary() const override
    {
        const auto& rows = Family::Rows(table_);
        const auto used = std::count_if(rows.begin(), rows.end(), [](const auto& row) { return row.Used; });
        return QStringLiteral("%1 %2: %3 of %4 rows used")
            .arg(LngStr(Family::Keyword()), Family::Name(table_), QString::number(used), QString::number(rows.size()));
    }

    QString Table(bool all) const override
    {
        std::vector<QStringList> lines{ Family::Titles() };
        ForEachRow(all, [&](int row, const auto& record) { lines.push_back(Family::Cells(row, record)); });
        QString text = Summary() + u'\n';
        if (!Family::Description(table_).isEmpty())
            text += Family::Description(table_) + u'\n';
        return text + u'\n' + AlignedTable(lines, Family::RightAligned());
    }

    QString Json(bool all) const override
    {
        QStringList rows;
        ForEachRow(all, [&](int row, const auto& record) {
            JsonWriter writer;
            writer("row", std::int32_t{ row });
            Family::VisitFields(writer, record);
            rows.append(writer.Object());
        });
        return QStringLiteral("{\n  \"family\": %1,\n  \"name\": %2,\n  \"description\": %3,\n  \"rows\": ")
                   .arg(JsonString(FamilyWord(Family::kClass)), JsonString(Family::Name(table_)),
                       JsonString(Family::Description(table_)))
            + JsonRows(rows, QStringLiteral("  ")) + QStringLiteral("\n}\n");
    }

private:
    template <typename Visit>
    void ForEachRow(bool all, Visit visit) const
    {
        const auto& rows = Family::Rows(table_);
        for (size_t row = 0; row < rows.size(); ++row) {
            if (all || rows[row].Used)
                visit(static_cast<int>(row), rows[row]);
        }
    }

    /// Reads the row at `index` of the array; what is wrong, or an empty text.
    QString ReadRow(const QJsonValue& value, int index, std::vector<bool>& taken)
    {
        const QString place = QStringLiteral("rows[%1]").arg(index);
        if (!value.isObject())
            return place + QStringLiteral(": not an object");
        JsonReader reader(value.toObject(), place);
        std::int32_t number = -1;
        reader("row", number);
        const bool isInTable = number >= 0 && static_cast<size_t>(number) < taken.size();
        auto record = isInTable ? Family::Rows(table_)[static_cast<size_t>(number)]
                                : std::decay_t<decltype(Family::Rows(table_).front())>();
        record.Used = true;
        Family::VisitFields(reader, record);
        QString error = reader.Finish();
        if (!error.isEmpty())
            return error;
        if (!isInTable)
            return place + QStringLiteral(": the list has no row %1").arg(number);
        if (taken[static_cast<size_t>(number)])
            return place + QStringLiteral(": row %1 occurs twice").arg(number);
        taken[static_cast<size_t>(number)] = true;
        Family::Rows(table_)[static_cast<size_t>(number)] = record;
        return {};
    }

    /// Checks and clamps the values as if they came from a CSV file.
    void PassThroughCsv()
    {
        CsvSource source;
        source.Bytes = Family::Csv(table_);
        table_ = Family::NewTable();
        if (!source.Bytes.isEmpty())
            static_cast<void>(Family::ReadCsv(source, table_)); // has shown its message
    }

    typename Family::Table table_ = Family::NewTable();
};

} // namespace tarvik
