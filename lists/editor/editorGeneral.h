// lists/editor/editorGeneral.h: common rules of the five list editors: type of list, folders and names of files, what
// may be overwritten, opening an editor.
#pragma once

#include "app/platform/port.h"
#include "app/platform/seams.h"
#include "app/text/textId.h"
#include "link/classes/model.h"

#include <QString>

namespace tarvik {

/// Process-wide state of the editor frame.
struct EditorState {
    bool EditorDirty = false; ///< unsaved changes in the open editor
    bool EditorIsOpen = false; ///< set by OpenEditor
    QString EditorOpenFile; ///< file to open when the editor loads, empty for a new list; cleared on close
    FileClass EditorType = FileClassNone; ///< class of the edited list; see SetEditorType
    QString ListExtension; ///< of that class, in lower case, with its point
    QString KfactorFileName; ///< result of a nested K-factor editor: name and extension of the file it shows
    QString CorrectionSetFileName; ///< result of a nested correction set editor
    QString ResultFolder; ///< folder of the file that such a result names
};
EditorState& Editor();

/// True for the file classes that are lists: 1 to 4 and 6.
bool IsListType(FileClass listType);

/// Port to the editors' forms. List types are those of `IsListType`.
class ListEditors {
public:
    virtual bool HasEditor(FileClass listType) const = 0;

    /// Shows the editor of a list type that has one; returns when it is closed.
    virtual void ShowEditor(FileClass listType) = 0;

    /// Reads the K-factor table `path` and gets its first and last frequency, which are unchanged if it is empty. False
    /// after a message.
    virtual bool ReadKfactorBand(const QString& path, double& firstHz, double& lastHz) = 0;

protected:
    ~ListEditors() = default;
};

Port<ListEditors>& TheListEditors(); ///< absent implementation: no editors

/// Reads the limits and shows the editor of a list type, with the frame's status bar disabled. A type without an editor
/// is ignored. An editor that another one opens starts with a new list and leaves the other's state as it was.
void OpenEditor(FileClass listType);

/// Makes `listType` the current file class and sets the list extension.
void SetEditorType(FileClass listType);

/// Edits another list type while it exists, for the file dialogs and the editor of a linked list.
class EditorTypeScope {
public:
    explicit EditorTypeScope(FileClass listType);
    ~EditorTypeScope();
    EditorTypeScope(const EditorTypeScope&) = delete;
    EditorTypeScope& operator=(const EditorTypeScope&) = delete;

private:
    FileClass outer_;
};

/// Class of a CSV file by the keyword at its start, ignoring case: 1 to 4, or FileClassUnknown.
FileClass ListTypeOfFile(const QString& path);

/// As above; a list is opened in its editor if `show` is set.
FileClass OpenListFile(const QString& path, bool show);

/// Initial folder of file dialogs for the current type.
QString EditorDefaultFolder();

/// Asks for a list file of the current type; empty if cancelled.
QString OpenListDialog(const QString& initialFolder);

/// Asks for the folder in which to save `fileName`; empty if cancelled.
QString SaveFolderDialog(const QString& fileName);

/// Remembers the folder of `path`, or `folder` itself, for the current type: trimmed, and in upper case where the file
/// system ignores case.
void RememberFolderOfFile(const QString& path);
void RememberFolder(const QString& folder);

/// Path of a list in `folder`: the list's name and the extension in lower case.
QString ListFilePath(const QString& folder, const QString& listName, const QString& extension);

/// True if the extension of `path` equals the last three characters of the text, ignoring case. The text is
/// CsvExtensionOfTables for suppress lists and K-factor tables.
bool IsCsvFile(const QString& path, TextNumber<0> extensionText = TextId::CsvExtension);

/// False, after 12728, for a read-only file, and if the user refuses to replace an existing file (question 12734).
[[nodiscard]] bool MayWriteFile(const QString& path);

/// False, after 12780, for a file that does not exist, a folder or a device.
[[nodiscard]] bool ListFileExists(const QString& path);

/// Title of an editor: `titleText`, followed by text 10743 and `fileName` unless that is empty.
QString EditorTitle(TextNumber<0> titleText, const QString& fileName = {});

} // namespace tarvik
