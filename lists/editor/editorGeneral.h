// lists/editor/editorGeneral.h: what the five list editors share: which list is edited, where its files lie, what may
// be written over, and how an editor is opened.
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
    QString EditorOpenFile; ///< file an editor opens while it loads; empty for a new list; cleared when it closes
    FileClass EditorType = FileClassNone; ///< of the edited list; SetEditorType
    QString ListExtension; ///< lower-cased extension of that class, with its point; SetEditorType
    QString KfactorFileName; ///< result of a nested K-factor editor
    QString CorrectionSetFileName; ///< result of a nested correction set editor
};
EditorState& Editor();

/// True for the file classes that an editor accepts: 1 to 4 and 6.
bool IsListType(FileClass listType);

/// The port to the editors' forms, which lie in rooms above this one. List types are those of `IsListType`.
class ListEditors {
public:
    virtual bool HasEditor(FileClass listType) const = 0;

    /// Shows the editor of a list type that has one until it is closed.
    virtual void ShowEditor(FileClass listType) = 0;

protected:
    ~ListEditors() = default;
};

Port<ListEditors>& TheListEditors(); ///< without an implementation there are no editors

/// Opens the editor of a list type; a type without one is ignored. Refreshes the limits, and takes the frame's status
/// bar out of use while the form is open.
void OpenEditor(FileClass listType);

/// Makes `listType` the present file class and derives the list extension.
void SetEditorType(FileClass listType);

/// Which list a CSV file holds, by the keyword that begins its first line, ignoring case: one of the classes 1 to 4, or
/// FileClassUnknown.
FileClass ListTypeOfFile(const QString& path);

/// The same; when it is a list and `show` is set, opens it in its editor.
FileClass OpenListFile(const QString& path, bool show);

/// Folder in which a file question of the present type begins.
QString EditorDefaultFolder();

/// Asks for a list file of the present type; empty when the user cancelled.
QString OpenListDialog(const QString& initialFolder);

/// Asks for the folder of a list that is saved under `fileName`; empty when the user cancelled.
QString SaveFolderDialog(const QString& fileName);

/// Remembers the folder of `path`, or `folder` itself, for the present type: trimmed, and upper-cased where the file
/// system ignores case.
void RememberFolderOfFile(const QString& path);
void RememberFolder(const QString& folder);

/// Path of a list in `folder`: the file always bears the list's name, then the extension in lower case.
QString ListFilePath(const QString& folder, const QString& listName, const QString& extension);

/// The form of a list file by its name: CSV when the extension equals the last three characters of the text, which is
/// CsvExtensionOfTables for the suppress list and the K-factor table.
bool IsCsvFile(const QString& path, TextNumber<0> extensionText = TextId::CsvExtension);

/// The start that all writers share. False, after message 12728, for a read-only file; false, silently, when the user
/// does not let an existing file be replaced (12734).
[[nodiscard]] bool MayWriteFile(const QString& path);

/// The start that all readers share: message 12780 for a file that does not exist.
[[nodiscard]] bool ListFileExists(const QString& path);

/// Title of an editor: `titleText`, and the file's name behind text 10743 where there is one.
QString EditorTitle(TextNumber<0> titleText, const QString& fileName = {});

} // namespace tarvik
