// lists/editor/FmEditorFrame.h: what all five list editors share: the commands New, Open, Save, Close and Help with
// their questions, the file format, the title, the modified flag, and the result for an editor that opened this one.
#pragma once

#include "app/forms/form.h"
#include "app/text/textId.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"

#include <QScopedValueRollback>

namespace tarvik {

/// What differs between editors in the frame.
struct EditorFrame {
    const char* Name; ///< class name of the form
    FileClass ListType;
    TextNumber<0> TitleText;
    int HelpNumber; ///< of the form itself
    int HelpTopic; ///< of the Help button
    TextNumber<0> CsvText = TextId::CsvExtension; ///< decides which files are CSV; see IsCsvFile
    QString EditorState::*Result = nullptr; ///< receives the name of the file when the editor closes
};

/// A derived editor calls `Arrange` in its constructor and implements its list by means of the list modules.
class FmEditorFrame : public FormBase {
    Q_OBJECT
public:
    FmEditorFrame(const EditorFrame& frame, QWidget* parent);

    /// The Save button: validates the list, asks for a folder and writes it. True if written.
    bool Save();

protected:
    /// Lays out the parts: `head` above `list`, the commands of the frame at the right and last in the tab order.
    void Arrange(QWidget* head, QWidget* list);

    /// `CbExt`, for the head.
    QComboBox* NewExtCombo(QWidget* head);

    /// Fills the editor's own controls while the form loads.
    virtual void OnEditorLoad() { }

    /// Shows a new list: no rows, no name.
    virtual void ShowEmptyList() = 0;

    /// Reads a file and shows it. On failure, after a message, the list shown is undefined; `ShowEmptyList` follows.
    virtual bool ReadFile(const QString& path) = 0;

    /// Writes the list and shows it as it was written. False after a message.
    virtual bool WriteFile(const QString& path) = 0;

    /// The whole validation before a save, a sort or a view, in the editor's order. False after a message, with the
    /// focus on the control at fault.
    virtual bool Validate() = 0;

    /// Checks the control of the head that has the focus, for commands that do not check a cell. False keeps the focus
    /// there.
    [[nodiscard]] virtual bool MayLeaveHead() = 0;

    /// Name of the list and of its file, without extension.
    virtual QString ListName() const = 0;

    /// Moves the focus to where the user starts: the name of a new list, the rows of an open one.
    virtual void FocusStart(bool isNew) = 0;

    /// Changes of controls are the program's own during its lifetime.
    [[nodiscard]] QScopedValueRollback<bool> Filling()
    {
        return QScopedValueRollback<bool>(filling_, true);
    }
    bool IsFilling() const
    {
        return filling_;
    }

    void SetDirty();

    /// Title of the form: the editor's text, and the name of the file that is shown.
    void ShowTitle(const QString& fileName = {});

    /// The user has changed name, description or format.
    void OnHeadChanged();

    bool OnLoad() final;
    bool QueryUnload() final;
    void OnUnload() final;

private:
    QWidget* BuildCommands();
    void Connect();
    void FillCbExt();
    void ShowButtonTips();
    void OnNew();
    void OnOpen();
    void OnClose();
    void OnHelp();
    bool OpenPath(const QString& path);
    bool SaveChangesFirst();
    bool WriteTo(const QString& folder);

    EditorFrame frame_;
    QString folder_; ///< of the file that is shown; empty for a new list
    bool filling_ = false;
    QComboBox* CbExt = nullptr;
    QPushButton* BtNew = nullptr;
    QPushButton* BtOpen = nullptr;
    QPushButton* BtSave = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtHelp = nullptr;
};

} // namespace tarvik
