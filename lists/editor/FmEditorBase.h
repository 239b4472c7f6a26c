// lists/editor/FmEditorBase.h: base of the editors of antenna, K-factor, memory and suppress lists: name and
// description of the list, and one grid with commands below it.
#pragma once

#include "lists/editor/FmEditorFrame.h"
#include "lists/editor/editorGrid.h"

class QHBoxLayout;

namespace tarvik {

/// What differs between editors in the base form.
struct EditorHead {
    TextNumber<0> NameText; ///< of LbName
    const char* ListFrameName;
    TextNumber<0> ListFrameText;
};

/// A derived editor adds its commands with `AddCommand` and implements its rows by means of the list modules.
class FmEditorBase : public FmEditorFrame, protected GridRows {
    Q_OBJECT
public:
    FmEditorBase(const EditorFrame& frame, const EditorHead& head, const GridShape& shape,
        std::vector<GridColumn> columns, QWidget* parent);

    /// Forward to the grid; columns and rows count from 0.
    void CellKeyDown(int column, int key, int shift);
    void CellSetFocus(int row, int column);

protected:
    /// Clears all rows.
    virtual void ClearRows() = 0;

    /// Reads a file into the rows, `name` and `description`. False, after a message, with the rows empty.
    virtual bool ReadList(const QString& path, QString& name, QString& description) = 0;

    /// Writes the rows. They then are as the store keeps them. False after a message.
    virtual bool WriteList(const QString& path, const QString& name, const QString& description) = 0;

    /// All rows have been replaced or reordered.
    virtual void OnListShown() { }

    /// Name, description, then the cells of the visible rows.
    bool Validate() override;

    /// The steps of the validation. False after a message, with the focus on the control at fault.
    [[nodiscard]] bool ValidateHead();
    [[nodiscard]] bool ValidatePage();

    void RowOpened(int) override { }
    void HeaderClicked(int) override { }

    EditorGrid& Grid()
    {
        return *grid_;
    }
    bool MayLeaveHead() final;
    QString ListName() const final;
    QString ListDescription() const;
    void ShowHead(const QString& name, const QString& description);

    /// Refills the grid and scrolls to the first row.
    void ShowFromTop();

    /// Adds a command to the row below the grid, left to right; in the tab order it is after the grid and before the
    /// commands at the right.
    void AddCommand(QWidget* command);
    void AddCommandSpace();

    /// Adds a panel at the right of the list. In the tab order it is after the commands added so far.
    void AddPanel(QWidget* panel);

private:
    QWidget* BuildHead(const EditorHead& head);
    QWidget* BuildList(const EditorHead& head, const GridShape& shape, std::vector<GridColumn> columns);
    void ConnectHead();

    void ShowEmptyList() final;
    bool ReadFile(const QString& path) final;
    bool WriteFile(const QString& path) final;
    void FocusStart(bool isNew) final;
    bool CheckName();
    bool CheckDescription();

    bool NameInvalid = false;
    EditorGrid* grid_ = nullptr;
    QHBoxLayout* listRow_ = nullptr;
    QHBoxLayout* commandRow_ = nullptr;
    QWidget* lastInTabOrder_ = nullptr; // of the grid and the commands below it
    QLineEdit* TbName = nullptr;
    QLineEdit* TbDescr = nullptr;
};

} // namespace tarvik
