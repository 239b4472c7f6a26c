// link/transfer/transferState.h: the running job of transfer.h, its lists and its progress display.
#pragma once

#include "app/platform/port.h"
#include "link/files/fileList.h"

namespace tarvik {

/// Jobs. 1 to 6 work on the lists of a second form, 7 to 10 on those of the file control window.
enum class TransferJob : qint16 {
    TransferNone = 0,
    TransferUploadOther = 1,
    TransferDownloadOther = 2,
    TransferUploadActive = 3,
    TransferDownloadActive = 4,
    TransferDeleteInstrOther = 5,
    TransferDeletePcOther = 6,
    TransferUpload = 7,
    TransferDownload = 8,
    TransferDeleteOnInstr = 9,
    TransferDeleteOnPc = 10
};
using enum TransferJob;

/// Shows the progress of a job.
class TransferProgress {
public:
    virtual void SetLabel(const QString& text) = 0;
    virtual void SetMaximum(int maximum) = 0;
    virtual void SetValue(int value) = 0;

protected:
    ~TransferProgress() = default;
};
Port<TransferProgress>& TheTransferProgress(); ///< without an implementation nothing is shown

struct TransferState {
    TransferJob TransferType = TransferNone; ///< set before FmTransfer opens
    bool TransferCancel = false;
    FileList* LvPc = nullptr; ///< of the file control window, while it is open
    FileList* LvInstr = nullptr;
    FileList* OtherLvPc = nullptr; ///< of a second form; nothing sets them in this version
    FileList* OtherLvInstr = nullptr;
};
TransferState& Transfer();

} // namespace tarvik
