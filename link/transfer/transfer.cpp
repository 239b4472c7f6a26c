#include "link/transfer/transfer.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "link/classes/model.h"
#include "link/transfer/transferTexts.h"

namespace tarvik {

namespace {

constexpr int kTextTitleOther = 14002;
constexpr int kTextTitle = 14003;
constexpr int kTextUploadingActive = 14010;
constexpr int kTextDownloadingActive = 14011;

void ListPc(FileList* list)
{
    if (list != nullptr)
        TransferListPc(*list, FileClasses().FileClassMask);
}

void ListInstr(FileList* list)
{
    if (list != nullptr)
        TransferListInstr(*list, FileClasses().FileClassMask);
}

/// Of a form that isn't open there are no lists, and nothing is done.
void Upload(FileList* pc, FileList* instr)
{
    if (pc != nullptr && instr != nullptr)
        TransferPutFiles(*pc, *instr);
    ListInstr(instr);
}

void Download(FileList* pc, FileList* instr)
{
    if (pc != nullptr && instr != nullptr)
        TransferGetFiles(*instr, *pc);
    ListPc(pc);
}

void DeleteOnInstr(FileList* instr)
{
    if (instr != nullptr)
        TransferDeleteInstr(*instr);
    ListInstr(instr);
}

void DeleteOnPc(FileList* pc)
{
    if (pc != nullptr)
        TransferDeletePc(*pc);
    ListPc(pc);
}

} // namespace

void TransferRunJob()
{
    const TransferState& state = Transfer();
    switch (state.TransferType) {
    case TransferUploadOther:
        return Upload(state.OtherLvPc, state.OtherLvInstr);
    case TransferDownloadOther:
        return Download(state.OtherLvPc, state.OtherLvInstr);
    case TransferUploadActive:
        if (state.OtherLvPc != nullptr)
            TransferPutActive(*state.OtherLvPc);
        return;
    case TransferDownloadActive:
        TransferGetActive();
        return ListPc(state.OtherLvPc);
    case TransferDeleteInstrOther:
        return DeleteOnInstr(state.OtherLvInstr);
    case TransferDeletePcOther:
        return DeleteOnPc(state.OtherLvPc);
    case TransferUpload:
        return Upload(state.LvPc, state.LvInstr);
    case TransferDownload:
        return Download(state.LvPc, state.LvInstr);
    case TransferDeleteOnInstr:
        return DeleteOnInstr(state.LvInstr);
    case TransferDeleteOnPc:
        return DeleteOnPc(state.LvPc);
    default:
        DebugReport("FmTransfer Form_Activate: transfer type unknown");
    }
}

int TransferLabelId(int type)
{
    switch (type) {
    case TransferUploadOther:
    case TransferUpload:
        return kTextUploading;
    case TransferDownloadOther:
    case TransferDownload:
        return kTextDownloading;
    case TransferUploadActive:
        return kTextUploadingActive;
    case TransferDownloadActive:
        return kTextDownloadingActive;
    case TransferDeleteInstrOther:
    case TransferDeletePcOther:
    case TransferDeleteOnInstr:
    case TransferDeleteOnPc:
        return kTextDeleting;
    default:
        DebugReport("FmTransfer FmInit: transfer type unknown");
        return 0;
    }
}

int TransferTitleId(int type)
{
    if (type < TransferUploadOther || type > TransferDeleteOnPc)
        return 0;
    return type < TransferUpload ? kTextTitleOther : kTextTitle;
}

} // namespace tarvik
