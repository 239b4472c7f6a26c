// lists/correction/CorrTabPage.h: one tab of the correction set editor: a frame with the grid of a table and its
// commands.
#pragma once

#include "lists/correction/correctionTable.h"
#include "lists/editor/editorGrid.h"
#include "lists/editor/rowChanges.h"

#include <QWidget>

class QPushButton;

namespace tarvik {

class CorrTabPage final : public QWidget, private GridRows, public RowChanges<CorrRow> {
    Q_OBJECT
public:
    /// `records` outlive the page.
    CorrTabPage(QWidget* parent, CorrTableId table, CorrRecords& records);

    /// Shows the records from the first row on.
    void Refill();

    /// Validates the rows, fills the records and looks for duplicates; false after a message, with the focus on the
    /// cell at fault.
    [[nodiscard]] bool Validate();

    /// Sorts the records in the store and shows them; false after a message.
    [[nodiscard]] bool Sort();

    CorrTableId Table() const
    {
        return table_;
    }
    EditorGrid& Grid()
    {
        return *grid_;
    }
    QWidget& Group()
    {
        return *group_;
    }

Q_SIGNALS:
    void Edited();
    void FaultFound(); ///< a cell of this tab is about to get the focus
    void SortClicked();
    void ViewClicked();

private:
    void BuildCommands(QWidget* list);
    void ShowFromTop();
    void OnDelete();
    bool ShowFault(const CorrFault& fault);

    bool IsRowUsed(int row) const override;
    QString CellText(int row, int column) const override;
    bool IsCellChecked(int, int) const override
    {
        return false;
    }
    void TextChanged(int row, int column, const QString& text) override;
    void CheckChanged(int, int, bool) override { }
    bool CheckCell(int row, int column, QString& text) override;
    bool IsCellInvalid(int row, int column) const override;
    void RowSelected(int row) override;
    void RowOpened(int) override { }
    void HeaderClicked(int) override { }
    void RowChanged(int row, const CorrRow& before, const CorrRow& after) override;

    CorrTableId table_;
    CorrRecords& records_;
    std::vector<CorrRow> rows_ = std::vector<CorrRow>(kCorrRows);
    QWidget* group_ = nullptr;
    EditorGrid* grid_ = nullptr;
    QPushButton* delete_ = nullptr;
};

} // namespace tarvik
