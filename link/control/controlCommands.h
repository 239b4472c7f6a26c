// link/control/controlCommands.h: what the buttons, keys and folder boxes of the file control window do.
#pragma once

#include "link/control/controlGeneral.h"

namespace tarvik {

/// Copy the selected files. Do nothing without one, or for several files of a class of which the instrument holds a
/// single list.
void ControlUpload(FileControl& control);
void ControlDownload(FileControl& control);

/// Deletes the selected rows after question 12732.
void ControlDelete(FileControl& control, ControlSide side);

/// As above by the Del key: without a status text, and on the PC's side with all buttons enabled.
void ControlDeleteByKey(FileControl& control, ControlSide side);

void ControlSelectAll(FileControl& control, ControlSide side);

/// Reads a list again. If the instrument does not answer, the buttons stay disabled.
void ControlRefresh(FileControl& control, ControlSide side);

/// Starts editing the name of the selected row.
void ControlRename(FileControl& control, ControlSide side);

/// Renames after the edit and reads the list again. `sortKey` identifies the row: the keys of a folder "oo.tvm" and a
/// file "Foo.tvm" are the same.
void ControlRenamed(FileControl& control, ControlSide side, const QString& sortKey, const QString& newName);

void ControlNewFolder(FileControl& control, ControlSide side);
void ControlOpenFolder(FileControl& control, ControlSide side);

/// Goes to the parent folder. Message 12731 at the root; 12704 if the instrument does not answer, and the window closes
/// if the link is lost.
void ControlFolderUp(FileControl& control, ControlSide side);

void ControlDropDown(FileControl& control, ControlSide side);
void ControlSelectFolder(FileControl& control, ControlSide side, int item);

/// A double click on a row: enters a folder; opens a file of the PC in the editor of its class, a screen shot in its
/// viewer.
void ControlOpenRow(FileControl& control, ControlSide side, int row);

/// Opens the selected file of the PC in its editor. Message 12722 without one.
void ControlEdit(FileControl& control);

/// Opens the editor for a new list.
void ControlNew(FileControl& control);

/// A click on a column header.
void ControlHeaderClick(FileControl& control, ControlSide side, int column);

} // namespace tarvik
