// lists/suppress/FmEditorSuppress.h: the suppress list editor.
#pragma once

#include "lists/editor/FmEditorBase.h"
#include "lists/editor/rowChanges.h"
#include "lists/suppress/suppressList.h"

namespace tarvik {

/// Edits one suppress list. A row is used while its box is checked or one of its cells has a text.
class FmEditorSuppress final : public FmEditorBase, public RowChanges<SuppressRow> {
    Q_OBJECT
public:
    explicit FmEditorSuppress(QWidget* parent = nullptr);

    /// The Sort and the Sort and Merge button: validate the list and sort it; false after a message.
    bool SortSuppressList();
    bool SortAndMergeSuppressList();

protected:
    void ClearRows() override;
    bool ReadList(const QString& path, QString& name, QString& description) override;
    bool WriteList(const QString& path, const QString& name, const QString& description) override;

    bool IsRowUsed(int row) const override;
    QString CellText(int row, int column) const override;
    bool IsCellChecked(int row, int column) const override;
    void TextChanged(int row, int column, const QString& text) override;
    void CheckChanged(int row, int column, bool checked) override;
    bool CheckCell(int row, int column, QString& text) override;
    void RowSelected(int row) override;
    void RowChanged(int row, const SuppressRow& before, const SuppressRow& after) override;

private:
    void BuildCommands();
    void OnDelete();
    bool Sort(bool (*sort)(SuppressTable& table));
    bool HasText(int row);

    SuppressTable table_;
    QPushButton* BtSort = nullptr;
    QPushButton* BtSortMerge = nullptr;
    QPushButton* BtDelete = nullptr;
};

} // namespace tarvik
