#include "link/transfer/transfer.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "app/text/textId.h"
#include "link/classes/model.h"

namespace tarvik {

namespace {

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

/// Does nothing without the lists of an open form.
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

TextNumber<1> TransferLabelId(TransferJob job)
{
    switch (job) {
    case TransferUploadOther:
    case TransferUpload:
        return TextId::Uploading;
    case TransferDownloadOther:
    case TransferDownload:
        return TextId::Downloading;
    case TransferUploadActive:
        return TextId::UploadingActiveSet;
    case TransferDownloadActive:
        return TextId::DownloadingActiveSet;
    case TransferDeleteInstrOther:
    case TransferDeletePcOther:
    case TransferDeleteOnInstr:
    case TransferDeleteOnPc:
        return TextId::Deleting;
    default:
        DebugReport("FmTransfer FmInit: transfer type unknown");
        return {};
    }
}

TextNumber<0> TransferTitleId(TransferJob job)
{
    if (job < TransferUploadOther || job > TransferDeleteOnPc)
        return {};
    return job < TransferUpload ? TextId::TransferTitleNotFiles : TextId::TransferTitleFiles;
}

} // namespace tarvik
