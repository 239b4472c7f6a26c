// lists/kfactor/FmEditorKfactor.h: the K-factor table editor.
#pragma once

#include "lists/editor/FmEditorBase.h"
#include "lists/editor/rowChanges.h"
#include "lists/kfactor/kfactorTable.h"

namespace tarvik {

/// Edits `Kfactors()`. A row is used while one of its cells has a text.
class FmEditorKfactor final : public FmEditorBase, public RowChanges<KfactorEntry> {
    Q_OBJECT
public:
    explicit FmEditorKfactor(QWidget* parent = nullptr);

    /// The Sort button: validates and sorts; false after a message.
    bool SortKfactorTable();

protected:
    void ClearRows() override;
    bool ReadList(const QString& path, QString& name, QString& description) override;
    bool WriteList(const QString& path, const QString& name, const QString& description) override;
    bool Validate() override;

    bool IsRowUsed(int row) const override;
    QString CellText(int row, int column) const override;
    bool IsCellChecked(int, int) const override
    {
        return false;
    }
    void TextChanged(int row, int column, const QString& text) override;
    void CheckChanged(int, int, bool) override { }
    bool CheckCell(int row, int column, QString& text) override;
    void RowSelected(int row) override;
    void RowChanged(int row, const KfactorEntry& before, const KfactorEntry& after) override;

private:
    void BuildCommands();
    void OnDelete();
    void OnView();
    bool ValidateCount();
    bool ValidateFrequencies();
    bool HasText(int row);
    void TakeHead(const QString& name, const QString& description);

    QPushButton* BtSort = nullptr;
    QPushButton* BtView = nullptr;
    QPushButton* BtDelete = nullptr;
};

} // namespace tarvik
