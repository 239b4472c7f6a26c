// lists/editor/FmEditorBase.h: the frame of the list editors: name, description and file form of the list, the commands
// New, Open, Save, Close and Help with their questions, the title and the mark of unsaved changes.
#pragma once

#include "app/forms/form.h"
#include "app/text/textNumber.h"
#include "link/classes/model.h"
#include "lists/editor/editorGrid.h"

class QHBoxLayout;

namespace tarvik {

/// What tells one editor from another in the frame.
struct EditorFrame {
    const char* Name; ///< class name of the form
    FileClass ListType;
    TextNumber<0> TitleText;
    int HelpNumber; ///< of the form itself
    int HelpTopic; ///< what the Help button shows
    TextNumber<0> NameText; ///< of LbName
    const char* ListFrameName;
    TextNumber<0> ListFrameText;
};

/// An editor adds its commands with `AddCommand`, and answers for its rows. Everything it does to them goes through
/// the store and file modules.
class FmEditorBase : public FormBase, protected GridRows {
    Q_OBJECT
public:
    FmEditorBase(const EditorFrame& frame, const GridShape& shape, std::vector<GridColumn> columns, QWidget* parent);

    /// The Save button's work. True when the list stands in its file.
    bool Save();

    /// A key in a cell, and the focus into a cell; columns and rows count from 0.
    void CellKeyDown(int column, int key, int shift);
    void CellSetFocus(int row, int column);

protected:
    /// Empties the rows.
    virtual void ClearRows() = 0;

    /// Reads a file into the rows and `name`, `description`. False, after a message, leaves the rows empty.
    virtual bool ReadList(const QString& path, QString& name, QString& description) = 0;

    /// Writes the rows; may take back what the store keeps of them.
    virtual bool WriteList(const QString& path, const QString& name, const QString& description) = 0;

    /// What an editor checks before a save besides name, description and the cells of the page.
    virtual bool ValidateRows()
    {
        return true;
    }

    /// Fills what the editor has of its own, while the form loads.
    virtual void OnEditorLoad() { }

    /// The rows have been filled anew as a whole.
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

    /// Shows the rows from the first one on.
    void ShowFromTop();

    /// Adds a command of the editor to the row below the grid, left to right; Tab reaches it behind the grid and
    /// before the commands of the frame.
    void AddCommand(QWidget* command);
    void AddCommandSpace();

    void SetDirty();

private:
    QWidget* BuildHead();
    QWidget* BuildList(const GridShape& shape, std::vector<GridColumn> columns);
    QWidget* BuildFrameCommands();
    void Connect();
    void FillCbExt();
    void ShowButtonTips();

    void OnNew();
    void OnOpen();
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
    bool filling_ = false; // the form itself fills its head
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
