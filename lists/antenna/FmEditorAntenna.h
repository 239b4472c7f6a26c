// lists/antenna/FmEditorAntenna.h: the antenna list editor.
#pragma once

#include "lists/antenna/AntennaPanel.h"
#include "lists/editor/FmEditorBase.h"
#include "lists/editor/rowChanges.h"

#include <span>

namespace tarvik {

/// Edits one antenna list: number, mark and name in the grid, all properties of the selected row in the panel.
class FmEditorAntenna final : public FmEditorBase, public RowChanges<AntennaRow> {
    Q_OBJECT
public:
    explicit FmEditorAntenna(QWidget* parent = nullptr);

    /// Checks the numbers of the panel and stores them in the selected row; an unused row is valid. False, after a
    /// message, with the focus on the box at fault.
    bool LineValid();

    /// Makes a row the selected one and shows it in the panel. `force`: also if it is selected already.
    void SelectAntennaRow(int row, bool force);

protected:
    void ClearRows() override;
    bool ReadList(const QString& path, QString& name, QString& description) override;
    bool WriteList(const QString& path, const QString& name, const QString& description) override;
    bool Validate() override;
    void OnListShown() override;

    bool IsRowUsed(int row) const override;
    QString CellText(int row, int column) const override;
    bool IsCellChecked(int row, int column) const override;
    void TextChanged(int row, int column, const QString& text) override;
    void CheckChanged(int row, int column, bool checked) override;
    bool CheckCell(int row, int column, QString& text) override;
    bool MayLeaveRow(int row) override;
    void RowSelected(int row) override;
    void RowChanged(int row, const AntennaRow& before, const AntennaRow& after) override;

private:
    void BuildCommands();
    void ConnectPanel();
    void OnDelete();
    void OnFieldEdited(AntennaField field);
    void OnBitsEdited(AntennaBits bits, int pattern);
    void UseRow(int row);
    bool CheckField(AntennaField field);

    /// Checks these boxes and stores them in the selected row. False, after a message, with the focus on the first one
    /// at fault.
    bool AreValid(std::span<const AntennaField> fields);

    void OnSelectKfactor();
    void OnNewKfactor();
    void OnSelectCorrectionSet();
    void OnNewCorrectionSet();
    bool TakeBand(const QString& path);
    void Link(AntennaField field, const QString& fileName);

    AntennaTable table_;
    AntennaPanel* panel_ = nullptr;
    QPushButton* BtDelete = nullptr;
    int selected_ = 0;
};

} // namespace tarvik
