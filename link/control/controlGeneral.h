// link/control/controlGeneral.h: the rules of the file control window: what depends on the file class, loading and
// unloading, and which buttons are enabled. Its commands are in controlCommands.h.
#pragma once

#include "app/platform/port.h"
#include "link/classes/model.h"
#include "link/files/combo.h"
#include "link/files/fileList.h"

#include <QPoint>
#include <QRect>

namespace tarvik {

/// Not an element of `BtPcEdit`.
inline constexpr int kNoEditButton = 5;
inline constexpr int kEditButtons = 5;

/// Index into `BtPcEdit` of the button that edits files of a class; kNoEditButton for a class without an editor. A
/// value that is no class is reported to the debug channel.
void GetBtPcEditNumber(FileClass fileClass, int& index);

/// What depends on the file class.
struct ControlRules {
    int EditButton = kNoEditButton;
    QString Icon; ///< of the window, key of the image list; empty to leave it unchanged
    bool HasInstrFolders = false; ///< and files can be renamed on the instrument
    bool HasDates = true;
    bool DeletesOnInstr = true;
    bool MakesNew = true;
    bool UploadsOneFile = false; ///< the instrument holds a single list of the class
};
ControlRules ControlRulesOf(FileClass fileClass);

enum class ControlSide { Pc, Instr };

/// The window as its rules see it.
class ControlView {
public:
    virtual void EnableBusySet(bool on) = 0; ///< the action buttons
    virtual void EnableTransfers(bool upload, bool download) = 0;
    virtual void ShowBusyPointer(bool busy) = 0;
    virtual void ShowCombo(ControlSide side) = 0; ///< its items have changed
    virtual void RunTransfer() = 0; ///< shows the form of the job; returns when it has closed
    virtual void Close() = 0;

protected:
    ~ControlView() = default;
};

/// The window's data.
struct FileControl {
    explicit FileControl(ControlView& view)
        : View(view)
    {
    }

    FileList LvPc;
    FileList LvInstr;
    FolderCombo CmbPc;
    FolderCombo CmbInstr;
    bool CanWork = false; ///< the instrument's directory could be read
    bool Busy = false; ///< a job or an editor runs
    bool ButtonsAreOff = false; ///< the busy set is disabled
    int ViewedRow = -1; ///< row of the last screen shot viewed
    ControlView& View;
};

/// Shows the screen shots that the window opens.
class ScreenShotViewer {
public:
    /// Returns when the viewer has closed. `row` is the row of the file.
    virtual void Show(const QString& path, int row) = 0;

protected:
    ~ScreenShotViewer() = default;
};
Port<ScreenShotViewer>& TheScreenShotViewer(); ///< without an implementation nothing is shown

FileList& ListOf(FileControl& control, ControlSide side);
FolderCombo& ComboOf(FileControl& control, ControlSide side);

/// The row for a command on one row: the current row if selected, else the first selected one; -1 without one.
int ControlSelectedRow(const FileList& list);

/// Restores the folders of the current class. If the instrument does not answer: disconnects, message 12703, and
/// `CanWork` stays false.
void ControlLoad(FileControl& control);

/// First activation: fills both lists, or closes the window unless `CanWork`.
void ControlActivate(FileControl& control);

/// False while a job, an editor or a connect runs.
bool ControlCanClose(const FileControl& control);

/// Remembers the folders of both sides.
void ControlUnload();

/// Refills a list.
void ControlList(FileControl& control, ControlSide side, bool sort = false);

/// Enables or disables the action buttons.
void ControlEnableBusySet(FileControl& control, bool on);

/// Enables the transfer buttons by the selection, unless the busy set is disabled.
void ControlUpdate(FileControl& control);

/// True if names can be edited on `side`.
bool ControlCanRename(ControlSide side);

/// The area of a list that limits a selection frame; `inner` is the list's inner size.
QRect ControlFrameLimit(QSize inner);

/// The nearest point inside `limit`.
QPoint ControlInsideLimit(QPoint point, const QRect& limit);

} // namespace tarvik
