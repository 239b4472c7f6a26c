// link/control/controlCommands.h: what the buttons, keys and boxes of the file control window do.
#pragma once

#include "link/control/controlGeneral.h"

namespace tarvik {

/// Copies the selected files. Nothing without one, and nothing for several of a class of which the instrument holds
/// one list.
void ControlUpload(FileControl& control);
void ControlDownload(FileControl& control);

/// Deletes what is selected, after message 12732.
void ControlDelete(FileControl& control, ControlSide side);

/// The same by the Del key: without a status text, and on the PC's side with all buttons enabled.
void ControlDeleteByKey(FileControl& control, ControlSide side);

void ControlSelectAll(FileControl& control, ControlSide side);

/// Reads a list again. When the instrument doesn't answer the buttons stay disabled.
void ControlRefresh(FileControl& control, ControlSide side);

/// Starts the edit of the selected row's name. By key the list has the focus already.
void ControlRename(FileControl& control, ControlSide side);

/// The end of that edit. The list is read again, so what was typed is never kept as it stands. `sortKey` is the row's,
/// which tells a folder "oo.tvm" from a file "Foo.tvm"; their keys are the same.
void ControlRenamed(FileControl& control, ControlSide side, const QString& sortKey, const QString& newName);

void ControlNewFolder(FileControl& control, ControlSide side);
void ControlOpenFolder(FileControl& control, ControlSide side);

/// Message 12731 at the top. On the instrument message 12704 when it doesn't answer; the window closes if the link is
/// gone.
void ControlFolderUp(FileControl& control, ControlSide side);

void ControlDropDown(FileControl& control, ControlSide side);
void ControlSelectFolder(FileControl& control, ControlSide side, int item);

/// What a double click on a row does: enters a folder; opens a file of the PC in the editor of its class, or a screen
/// shot in its viewer.
void ControlOpenRow(FileControl& control, ControlSide side, int row);

/// Opens the selected file of the PC in its editor. Message 12722 without one.
void ControlEdit(FileControl& control);

/// Opens the editor for a new list.
void ControlNew(FileControl& control);

/// A click on a column header.
void ControlHeaderClick(FileControl& control, ControlSide side, int column);

} // namespace tarvik
