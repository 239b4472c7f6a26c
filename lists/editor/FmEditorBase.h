// lists/editor/FmEditorBase.h: base of the list editors: name, description and file format of the list, the commands
// New, Open, Save, Close and Help with their questions, the title and the modified flag.
#pragma once

#include "app/forms/form.h"
#include "app/text/textNumber.h"
#include "link/classes/model.h"
#include "lists/editor/editorGrid.h"

class QHBoxLayout;

namespace tarvik {

/// What differs between editors in the base form.
struct EditorFrame {
    const char* Name; ///< class name of the form
    FileClass ListType;
    TextNumber<0> TitleText;
    int HelpNumber; ///< of the form itself
    int HelpTopic; ///< of the Help button
    TextNumber<0> NameText; ///< of LbName
    const char* ListFrameName;
    TextNumber<0> ListFrameText;
};

/// A derived editor adds its commands with `AddCommand` and implements its rows by means of the list modules.
class FmEditorBase : public FormBase, protected GridRows {
    Q_OBJECT
public:
    FmEditorBase(const EditorFrame& frame, const GridShape& shape, std::vector<GridColumn> columns, QWidget* parent);

    /// The Save button: checks the list, asks for a folder and writes it. True if written.
    bool Save();

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

    /// Further checks before a save, after name, description and the visible cells.
    virtual bool ValidateRows()
    {
        return true;
    }

    /// Fills the derived editor's own controls while the form loads.
    virtual void OnEditorLoad() { }

    /// All rows have been replaced or reordered.
    virtual void OnListShown() { }

    void RowOpened(int) override { }
    void HeaderClicked(int) override { }

    bool OnLoad() final;
    bool QueryUnload() final;
    void OnUnload() final;

    EditorGrid& Grid()
    {
        return *grid_;
    }
    QString ListName() const;
    QString ListDescription() const;

    /// Refills the grid and scrolls to the first row.
    void ShowFromTop();

    /// Adds a command to the row below the grid, left to right; in the tab order it is after the grid and before the
    /// commands at the right.
    void AddCommand(QWidget* command);
    void AddCommandSpace();

    void SetDirty();

    /// Checks name or description if it has the focus, for commands that do not check a cell. False keeps the focus
    /// there.
    [[nodiscard]] bool MayLeaveHead();

private:
    QWidget* BuildHead();
    QWidget* BuildList(const GridShape& shape, std::vector<GridColumn> columns);
    QWidget* BuildFrameCommands();
    void Connect();
    void FillCbExt();
    void ShowButtonTips();

    void OnNew();
    void OnOpen();
    void OnClose();
    void OnHelp();
    void OnHeadChanged();
    bool OpenPath(const QString& path);
    void ShowEmptyList();
    void ShowHead(const QString& name, const QString& description);
    bool SaveChangesFirst();
    bool Validate();
    bool CheckName();
    bool CheckDescription();
    void ShowTitle(const QString& fileName = {});
    bool WriteTo(const QString& folder);

    EditorFrame frame_;
    bool filling_ = false; // changes of the head are the form's own
    bool NameInvalid = false;
    EditorGrid* grid_ = nullptr;
    QHBoxLayout* commandRow_ = nullptr;
    QWidget* lastInTabOrder_ = nullptr; // of the grid and the commands below it
    QLineEdit* TbName = nullptr;
    QLineEdit* TbDescr = nullptr;
    QComboBox* CbExt = nullptr;
    QPushButton* BtNew = nullptr;
    QPushButton* BtOpen = nullptr;
    QPushButton* BtSave = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtHelp = nullptr;
};

} // namespace tarvik
