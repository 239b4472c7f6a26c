// link/control/controlGeneral.h: the rules of the file control window: what a file class changes in it, what it loads
// and keeps, and which of its buttons are enabled. controlCommands.h has what its commands do.
#pragma once

#include "app/platform/port.h"
#include "link/classes/model.h"
#include "link/files/combo.h"
#include "link/files/fileList.h"

#include <QPoint>
#include <QRect>

namespace tarvik {

/// No element of `BtPcEdit` has this number.
inline constexpr int kNoEditButton = 5;
inline constexpr int kEditButtons = 5;

/// The element of `BtPcEdit` that edits files of a class; kNoEditButton for a class without an editor. A value that is
/// no class is reported to the debug route.
void GetBtPcEditNumber(FileClass fileClass, int& index);

/// What a file class changes in the window.
struct ControlRules {
    int EditButton = kNoEditButton;
    QString Icon; ///< of the window, key of the image list; empty for one that is not set
    bool HasInstrFolders = false; ///< also rename on the instrument
    bool HasDates = true;
    bool DeletesOnInstr = true;
    bool MakesNew = true;
    bool UploadsOneFile = false; ///< the instrument holds a single list of the kind
};
ControlRules ControlRulesOf(FileClass fileClass);

enum class ControlSide { Pc, Instr };

/// What only the window can do.
class ControlView {
public:
    virtual void EnableBusySet(bool on) = 0; ///< the buttons that act
    virtual void EnableTransfers(bool upload, bool download) = 0;
    virtual void ShowBusyPointer(bool busy) = 0;
    virtual void ShowCombo(ControlSide side) = 0; ///< its items have changed
    virtual void RunTransfer() = 0; ///< the form of the job, until it has closed
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
    bool MayWork = false; ///< the instrument's directory could be read
    bool Busy = false; ///< a job or an editor runs
    bool ButtonsAreOff = false; ///< the busy set is disabled
    int ViewedRow = -1; ///< of the screen shot shown last
    ControlView& View;
};

/// Shows the screen shots that the window opens.
class ScreenShotViewer {
public:
    /// Until the viewer has closed. `row` is the file's in the list.
    virtual void Show(const QString& path, int row) = 0;

protected:
    ~ScreenShotViewer() = default;
};
Port<ScreenShotViewer>& TheScreenShotViewer(); ///< without an implementation nothing is shown

FileList& ListOf(FileControl& control, ControlSide side);
FolderCombo& ComboOf(FileControl& control, ControlSide side);

/// The row that a command on one row means: the current one if it is selected, else the first that is; -1 without one.
int ControlSelectedRow(const FileList& list);

/// Takes the folders of the present class. Without an answer of the instrument: its link is ended, message 12703, and
/// the window may not work.
void ControlLoad(FileControl& control);

/// First activation: fills both lists, or closes a window that may not work.
void ControlActivate(FileControl& control);

/// False while a job, an editor or the start of a connection runs.
bool ControlMayClose(const FileControl& control);

/// Remembers the folders of both sides.
void ControlUnload();

/// Fills a list anew.
void ControlList(FileControl& control, ControlSide side, bool sort = false);

/// Enables the buttons that act, or disables them while something runs.
void ControlEnableBusySet(FileControl& control, bool on);

/// Enables the buttons that the selection decides on, unless the busy set is disabled.
void ControlUpdate(FileControl& control);

/// Whether the names of a list can be edited.
bool ControlRenamesOn(ControlSide side);

/// The part of a list that a selection frame stays in; `inner` is the list's inner size.
QRect ControlFrameLimit(QSize inner);

/// The nearest point inside `limit`.
QPoint ControlInsideLimit(QPoint point, const QRect& limit);

} // namespace tarvik
