// lists/memory/FmEditorMemory.h: the memory list editor.
#pragma once

#include "lists/editor/FmEditorBase.h"
#include "lists/editor/rowChanges.h"
#include "lists/memory/memoryList.h"

namespace tarvik {

/// Edits one memory list: status, frequency and description in the grid, all fields in the entry dialog.
class FmEditorMemory final : public FmEditorBase, public RowChanges<MemoryRecord> {
    Q_OBJECT
public:
    explicit FmEditorMemory(QWidget* parent = nullptr);

    /// Sorts the rows by the key selected in `CbSort`; false after a message.
    bool SortMemoryList();

    /// Opens the entry dialog for the current row.
    void ShowEditorDialog();

protected:
    void ClearRows() override;
    bool ReadList(const QString& path, QString& name, QString& description) override;
    bool WriteList(const QString& path, const QString& name, const QString& description) override;
    void OnEditorLoad() override;
    void OnListShown() override;

    bool IsRowUsed(int row) const override;
    QString CellText(int row, int column) const override;
    bool IsCellChecked(int row, int column) const override;
    void TextChanged(int row, int column, const QString& text) override;
    void CheckChanged(int row, int column, bool checked) override;
    bool CheckCell(int row, int column, QString& text) override;
    void RowSelected(int row) override;
    void RowOpened(int row) override;
    void HeaderClicked(int column) override;
    void RowChanged(int row, const MemoryRecord& before, const MemoryRecord& after) override;

private:
    void BuildCommands();
    void OnSort();
    void OnDelete();
    void OnTyped(int row, int column);
    void UseRow(int row);
    void TakeEntry(int row);
    MemorySortKey SortKey() const;

    MemoryTable table_;
    QComboBox* CbSort = nullptr;
    QPushButton* BtSort = nullptr;
    QPushButton* BtEdit = nullptr;
    QPushButton* BtDel = nullptr;
};

} // namespace tarvik
