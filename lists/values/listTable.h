// lists/values/listTable.h: a list as an editor has it in memory.
#pragma once

#include <QString>

#include <vector>

namespace tarvik {

/// Always `Count` rows, used or not.
template <typename Record, int Count>
struct ListTable {
    QString Name;
    QString Description;
    std::vector<Record> Rows = std::vector<Record>(Count);

    Record& Row(int row)
    {
        return Rows[static_cast<size_t>(row)];
    }
    const Record& Row(int row) const
    {
        return Rows[static_cast<size_t>(row)];
    }

    bool operator==(const ListTable&) const = default;
};

} // namespace tarvik
