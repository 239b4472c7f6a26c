#include "link/control/controlCommands.h"

#include "app/message/message.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/documents/documents.h"
#include "link/transfer/transfer.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace tarvik {

namespace {

/// Shows a status text during a job, then restores the previous one.
class JobStatusScope {
public:
    explicit JobStatusScope(TextNumber<0> text)
        : hold_(Program().StatusHold)
        , before_(TheFrame()->StatusText())
    {
        StatusJob(LngStr(text));
    }
    ~JobStatusScope()
    {
        Program().StatusHold = hold_;
        TheFrame()->SetStatusText(before_);
    }
    JobStatusScope(const JobStatusScope&) = delete;
    JobStatusScope& operator=(const JobStatusScope&) = delete;

private:
    bool hold_;
    QString before_;
};

/// Scope guard: shows the busy pointer.
class BusyPointer {
public:
    explicit BusyPointer(FileControl& control)
        : control_(control)
    {
        control_.View.ShowBusyPointer(true);
    }
    ~BusyPointer()
    {
        control_.View.ShowBusyPointer(false);
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    FileControl& control_;
};

/// Scope guard: disables the busy set and keeps the window open. Buttons disabled before stay disabled.
class BusySet {
public:
    explicit BusySet(FileControl& control)
        : control_(control)
        , wereOff_(control.ButtonsAreOff)
        , busy_(control.Busy, true)
    {
        ControlEnableBusySet(control_, false);
    }
    ~BusySet()
    {
        if (!wereOff_)
            ControlEnableBusySet(control_, true);
    }
    BusySet(const BusySet&) = delete;
    BusySet& operator=(const BusySet&) = delete;

private:
    FileControl& control_;
    bool wereOff_;
    QScopedValueRollback<bool> busy_;
};

void RunJob(FileControl& control, TransferJob job)
{
    const QScopedValueRollback busy(control.Busy, true);
    Transfer().TransferType = job;
    control.View.RunTransfer();
}

void RunJobWithStatus(FileControl& control, TransferJob job, TextNumber<0> statusText)
{
    const BusySet busy(control);
    const JobStatusScope status(statusText);
    RunJob(control, job);
}

TransferJob DeleteJob(ControlSide side)
{
    return side == ControlSide::Pc ? TransferDeleteOnPc : TransferDeleteOnInstr;
}

bool ConfirmDelete(const FileList& list)
{
    return TransferAnySelected(list) && MsgYesNo(TextId::DeleteSelected) == MsgResult::Yes;
}

void FocusAndUpdate(FileControl& control, ControlSide side)
{
    ListOf(control, side).View->GiveFocus();
    ControlUpdate(control);
}

/// nullptr without a selected row.
const FileListRow* SelectedRow(const FileList& list)
{
    const int row = ControlSelectedRow(list);
    return row < 0 ? nullptr : &list.Rows[static_cast<size_t>(row)];
}

/// Runs the editor, then reads the PC's list again. Restores the file class, which an editor opened from it may change.
void RunEditor(FileControl& control, const QString& path)
{
    const FileClass fileClass = FileClasses().CurrentFileClass;
    {
        const BusySet busy(control);
        TheListFiles()->Open(path, fileClass);
        if (FileClasses().CurrentFileClass != fileClass)
            ModFileInit(fileClass);
    }
    ControlList(control, ControlSide::Pc);
    FocusAndUpdate(control, ControlSide::Pc);
}

void ShowScreenShot(FileControl& control, int row)
{
    const QString path = PcFilePath(control.LvPc.Rows[static_cast<size_t>(row)].Key);
    control.ViewedRow = row;
    const BusySet busy(control);
    TheScreenShotViewer()->Show(path, row);
}

void OpenFile(FileControl& control, int row)
{
    if (FileClasses().CurrentFileClass == FileClassScreenShot) {
        ShowScreenShot(control, row);
        ControlUpdate(control);
    } else {
        RunEditor(control, PcFilePath(control.LvPc.Rows[static_cast<size_t>(row)].Key));
    }
}

void EnterFolder(FileControl& control, ControlSide side, const QString& name)
{
    {
        const BusyPointer busy(control);
        FolderCombo& combo = ComboOf(control, side);
        if (side == ControlSide::Pc)
            ComboPcEnter(combo, name);
        else
            ComboInstrEnter(combo, name);
        control.View.ShowCombo(side);
        ControlList(control, side);
    }
    ControlUpdate(control);
}

void PcFolderUp(FileControl& control)
{
    if (!ComboPcUp(control.CmbPc)) {
        MsgOk(TextId::NoFolderAbove);
        return;
    }
    control.View.ShowCombo(ControlSide::Pc);
    ControlList(control, ControlSide::Pc);
    ControlUpdate(control);
}

/// Reports that the instrument's directory can't be read; closes the window if the link is lost.
void CloseIfLinkIsLost(FileControl& control)
{
    if (!ReportLinkFailure())
        return;
    ControlUpdate(control);
    control.View.Close();
}

void InstrFolderUp(FileControl& control)
{
    QString directory;
    if (ChannelGetDirectory(directory) != ChannelStatus::Success) {
        CloseIfLinkIsLost(control);
        return;
    }
    if (InstrFolderIsRoot(directory)) {
        MsgOk(TextId::NoFolderAbove);
        return;
    }
    ComboInstrUp(control.CmbInstr);
    control.View.ShowCombo(ControlSide::Instr);
    ControlList(control, ControlSide::Instr);
    ControlUpdate(control);
}

} // namespace

void ControlUpload(FileControl& control)
{
    const int files = TransferCountSelectedFiles(control.LvPc);
    const bool isOne = ControlRulesOf(FileClasses().CurrentFileClass).UploadsOneFile;
    if (files == 0 || (isOne && files > 1))
        return;
    RunJobWithStatus(control, TransferUpload, TextId::StatusCopyingFiles);
    ControlUpdate(control);
}

void ControlDownload(FileControl& control)
{
    if (!TransferAnySelected(control.LvInstr))
        return;
    RunJobWithStatus(control, TransferDownload, TextId::StatusCopyingFiles);
    ControlUpdate(control);
}

void ControlDelete(FileControl& control, ControlSide side)
{
    if (!TransferAnySelected(ListOf(control, side)))
        return;
    if (ConfirmDelete(ListOf(control, side)))
        RunJobWithStatus(control, DeleteJob(side), TextId::StatusDeletingFiles);
    FocusAndUpdate(control, side);
}

void ControlDeleteByKey(FileControl& control, ControlSide side)
{
    if (!ConfirmDelete(ListOf(control, side)))
        return;
    if (side == ControlSide::Instr) {
        const BusySet busy(control);
        RunJob(control, TransferDeleteOnInstr);
    } else {
        RunJob(control, TransferDeleteOnPc);
    }
    ControlList(control, side);
    FocusAndUpdate(control, side);
}

void ControlSelectAll(FileControl& control, ControlSide side)
{
    TransferSelectAllFiles(ListOf(control, side));
    FocusAndUpdate(control, side);
}

void ControlRefresh(FileControl& control, ControlSide side)
{
    ControlEnableBusySet(control, false);
    QString directory;
    if (side == ControlSide::Instr && ChannelGetDirectory(directory) != ChannelStatus::Success)
        return;
    ControlList(control, side);
    ControlEnableBusySet(control, true);
    FocusAndUpdate(control, side);
}

void ControlRename(FileControl& control, ControlSide side)
{
    FileList& list = ListOf(control, side);
    const int row = ControlSelectedRow(list);
    if (row < 0)
        return;
    list.View->GiveFocus();
    if (ControlCanRename(side))
        list.View->StartLabelEdit(row);
}

void ControlRenamed(FileControl& control, ControlSide side, const QString& sortKey, const QString& newName)
{
    FileList& list = ListOf(control, side);
    const auto at = std::find_if(
        list.Rows.begin(), list.Rows.end(), [&](const FileListRow& row) { return row.SubItems[2] == sortKey; });
    if (at == list.Rows.end() || !ControlCanRename(side))
        return;
    const auto row = static_cast<int>(at - list.Rows.begin());
    QString name = newName;
    bool cancel = false;
    if (side == ControlSide::Pc)
        TransferRenamePc(list, row, name, cancel);
    else
        TransferRenameInstr(list, row, name, cancel);
    ControlList(control, side);
    ControlUpdate(control);
}

void ControlNewFolder(FileControl& control, ControlSide side)
{
    if (side == ControlSide::Pc) {
        TransferNewFolderPc(control.LvPc);
    } else {
        const BusyPointer busy(control);
        TransferNewFolderInstr(control.LvInstr);
    }
    ControlUpdate(control);
}

void ControlOpenFolder(FileControl& control, ControlSide side)
{
    const FileListRow* row = SelectedRow(ListOf(control, side));
    if (row != nullptr && TransferIsFolderRow(*row))
        EnterFolder(control, side, QString(row->Text));
}

void ControlFolderUp(FileControl& control, ControlSide side)
{
    if (side == ControlSide::Pc)
        PcFolderUp(control);
    else
        InstrFolderUp(control);
}

void ControlDropDown(FileControl& control, ControlSide side)
{
    if (side == ControlSide::Instr) {
        ComboInstrDropDown(control.CmbInstr);
    } else if (control.CmbPc.Tag == FolderComboTag::Current) {
        const JobStatusScope status(TextId::StatusReadingDrives);
        ComboPcDropDown(control.CmbPc);
    }
    control.View.ShowCombo(side);
}

void ControlSelectFolder(FileControl& control, ControlSide side, int item)
{
    {
        const BusyPointer busy(control);
        bool mustRead = true;
        if (side == ControlSide::Pc)
            ComboPcSelect(control.CmbPc, item);
        else
            mustRead = ComboInstrSelect(control.CmbInstr, item);
        control.View.ShowCombo(side);
        if (mustRead)
            ControlList(control, side);
    }
    ControlUpdate(control);
}

void ControlOpenRow(FileControl& control, ControlSide side, int row)
{
    const FileList& list = ListOf(control, side);
    if (row < 0 || static_cast<size_t>(row) >= list.Rows.size())
        return;
    const FileListRow& at = list.Rows[static_cast<size_t>(row)];
    if (TransferIsFolderRow(at)) {
        if (ControlCanRename(side)) // only then the side has folders to enter
            EnterFolder(control, side, QString(at.Text));
    } else if (side == ControlSide::Pc) {
        OpenFile(control, row);
    }
}

void ControlEdit(FileControl& control)
{
    const FileListRow* row = SelectedRow(control.LvPc);
    if (row == nullptr || TransferIsFolderRow(*row)) {
        const QString noun = LngStr(ModCaption(CaptionSlot::Noun));
        MsgOk2(TextId::NoFileSelected, noun, noun);
        return;
    }
    RunEditor(control, PcFilePath(row->Key));
}

void ControlNew(FileControl& control)
{
    RunEditor(control, {});
}

void ControlHeaderClick(FileControl& control, ControlSide side, int column)
{
    TransferHeaderClick(ListOf(control, side), column);
}

} // namespace tarvik
