// lists/editor/rowChanges.h: the one way in which an editor changes the rows of its table.
#pragma once

#include <vector>

namespace tarvik {

/// Learns of each change to a row.
template <typename Record>
class RowChanges {
public:
    /// `before` and `after` differ.
    virtual void RowChanged(int row, const Record& before, const Record& after) = 0;

    /// Another one that learns of each change as well; nullptr for none.
    void SetObserver(RowChanges* observer)
    {
        observer_ = observer;
    }

    void Report(int row, const Record& before, const Record& after)
    {
        RowChanged(row, before, after);
        if (observer_ != nullptr)
            observer_->Report(row, before, after);
    }

protected:
    ~RowChanges() = default;

private:
    RowChanges* observer_ = nullptr;
};

/// Lets `edit(record)` change a row, and reports it if it has.
template <typename Record, typename Edit>
void EditRow(std::vector<Record>& rows, int row, RowChanges<Record>& changes, Edit edit)
{
    Record& record = rows[static_cast<size_t>(row)];
    const Record before = record;
    edit(record);
    if (!(record == before))
        changes.Report(row, before, record);
}

/// Lets `edit()` change any rows, and reports those that it has, in their order. Returns what `edit` returns.
template <typename Record, typename Edit>
auto EditRows(std::vector<Record>& rows, RowChanges<Record>& changes, Edit edit)
{
    const std::vector<Record> before = rows;
    auto result = edit();
    for (size_t row = 0; row < rows.size(); ++row) {
        if (!(rows[row] == before[row]))
            changes.Report(static_cast<int>(row), before[row], rows[row]);
    }
    return result;
}

} // namespace tarvik
