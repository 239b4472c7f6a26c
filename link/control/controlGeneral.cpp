#include "link/control/controlGeneral.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "link/transfer/transfer.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tarvik {

namespace {

/// Room of a list's scroll bar and column header.
constexpr int kFrameLimitRightPx = 22;
constexpr int kFrameLimitBottomPx = 23;

const QString kInstrFallback = QStringLiteral("\\Public");

const char* IconOf(FileClass fileClass)
{
    switch (fileClass) {
    case FileClassAntennaList:
        return "MDI_AL_C";
    case FileClassKfactorTable:
        return "MDI_KT_C";
    case FileClassMemoryList:
        return "MDI_ML_C";
    case FileClassSuppressList:
        return "MDI_SL_C";
    case FileClassScreenShot:
        return "MDI_SCREEN";
    default:
        return "";
    }
}

FileClass CurrentClass()
{
    return FileClasses().CurrentFileClass;
}

/// Resets the data of an earlier opening; the views stay.
void Reset(FileControl& control)
{
    for (FileList* list : { &control.LvPc, &control.LvInstr }) {
        FileListView* view = list->View;
        *list = {};
        list->View = view;
    }
    control.CmbPc = {};
    control.CmbInstr = {};
    control.ButtonsAreOff = false;
}

class NoScreenShotViewer final : public ScreenShotViewer {
public:
    void Show(const QString&, int) override { }
};

void RestorePcFolder()
{
    const QString path = FileClasses().PcPaths[CurrentClass()];
    const bool exists = !path.isEmpty() && QFileInfo(path).isDir();
    CurrentPcFolder() = QDir::toNativeSeparators(exists ? QDir(path).absolutePath() : QDir::currentPath());
}

} // namespace

void GetBtPcEditNumber(FileClass fileClass, int& index)
{
    switch (fileClass) {
    case FileClassAntennaList:
    case FileClassKfactorTable:
    case FileClassMemoryList:
    case FileClassSuppressList:
        index = FileClassNumber(fileClass) - FileClassNumber(FileClassAntennaList);
        break;
    case FileClassCorrectionSet:
        index = 4;
        break;
    case FileClassScreenShot:
        index = kNoEditButton;
        break;
    default:
        index = kNoEditButton;
        DebugReport("GetBtPcEditNumber");
        break;
    }
}

ControlRules ControlRulesOf(FileClass fileClass)
{
    ControlRules rules;
    GetBtPcEditNumber(fileClass, rules.EditButton);
    rules.Icon = QString::fromLatin1(IconOf(fileClass));
    rules.HasInstrFolders = ModHasInstrFolders(fileClass);
    rules.HasDates = !ModHasOneList(fileClass);
    rules.DeletesOnInstr = !ModHasOneList(fileClass);
    rules.MakesNew = rules.EditButton != kNoEditButton;
    rules.UploadsOneFile = ModHasOneList(fileClass);
    return rules;
}

Port<ScreenShotViewer>& TheScreenShotViewer()
{
    static PortOr<ScreenShotViewer, NoScreenShotViewer> port;
    return port;
}

FileList& ListOf(FileControl& control, ControlSide side)
{
    return side == ControlSide::Pc ? control.LvPc : control.LvInstr;
}

FolderCombo& ComboOf(FileControl& control, ControlSide side)
{
    return side == ControlSide::Pc ? control.CmbPc : control.CmbInstr;
}

int ControlSelectedRow(const FileList& list)
{
    const bool hasCurrent = list.CurrentRow >= 0 && static_cast<size_t>(list.CurrentRow) < list.Rows.size();
    if (hasCurrent && list.Rows[static_cast<size_t>(list.CurrentRow)].Selected)
        return list.CurrentRow;
    return TransferFirstSelected(list);
}

void ControlLoad(FileControl& control)
{
    Reset(control);
    Transfer().LvPc = &control.LvPc;
    Transfer().LvInstr = &control.LvInstr;
    control.LvPc.HasDates = control.LvInstr.HasDates = ControlRulesOf(CurrentClass()).HasDates;
    RestorePcFolder();
    ComboPcShow(control.CmbPc);
    control.CanWork = ComboInstrShow(control.CmbInstr) == ChannelStatus::Success;
    control.View.ShowCombo(ControlSide::Pc);
    control.View.ShowCombo(ControlSide::Instr);
    if (control.CanWork)
        return;
    ChannelDisconnect();
    MsgOk(TextId::LinkLost);
}

void ControlActivate(FileControl& control)
{
    if (!control.CanWork) {
        control.View.Close();
        return;
    }
    control.View.ShowBusyPointer(true);
    ControlList(control, ControlSide::Pc, true);
    ControlList(control, ControlSide::Instr, true);
    ControlUpdate(control);
    control.View.ShowBusyPointer(false);
}

bool ControlCanClose(const FileControl& control)
{
    return !control.Busy && !Connection().ConnectInProgress;
}

void ControlUnload()
{
    Transfer().LvPc = nullptr;
    Transfer().LvInstr = nullptr;
    const FileClass fileClass = CurrentClass();
    FileClasses().PcPaths[fileClass] = CurrentPcFolder();
    QString directory;
    const bool isRead = ChannelGetDirectory(directory) == ChannelStatus::Success;
    FileClasses().InstrPaths[fileClass] = isRead ? directory : kInstrFallback;
}

void ControlList(FileControl& control, ControlSide side, bool sort)
{
    const int mask = FileClasses().FileClassMask;
    if (side == ControlSide::Pc)
        TransferListPc(control.LvPc, mask, sort);
    else
        TransferListInstr(control.LvInstr, mask, sort);
}

void ControlEnableBusySet(FileControl& control, bool on)
{
    control.ButtonsAreOff = !on;
    control.View.EnableBusySet(on);
}

void ControlUpdate(FileControl& control)
{
    if (control.ButtonsAreOff)
        return;
    const int uploads = TransferCountSelectedFiles(control.LvPc);
    const bool canUpload = ControlRulesOf(CurrentClass()).UploadsOneFile ? uploads == 1 : uploads >= 1;
    control.View.EnableTransfers(canUpload, TransferCountSelectedFiles(control.LvInstr) >= 1);
}

bool ControlCanRename(ControlSide side)
{
    return side == ControlSide::Pc || ControlRulesOf(CurrentClass()).HasInstrFolders;
}

QRect ControlFrameLimit(QSize inner)
{
    const QSize limit = inner - QSize(kFrameLimitRightPx, kFrameLimitBottomPx);
    return { QPoint(), limit.expandedTo(QSize(1, 1)) };
}

QPoint ControlInsideLimit(QPoint point, const QRect& limit)
{
    return { std::clamp(point.x(), limit.left(), limit.right()), std::clamp(point.y(), limit.top(), limit.bottom()) };
}

} // namespace tarvik
