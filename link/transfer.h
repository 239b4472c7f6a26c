// link/transfer.h: jobs on the selected rows of a file list: upload, download, delete on either side.
//
// A job runs at once and whole; between files it lets events run and looks at `TransferCancel`, so a file in flight is
// never broken.
#pragma once

#include "link/fileList.h"

/// Jobs. 1 to 6 work on the lists of a second form, 7 to 10 on those of the file control window.
enum TransferJob : qint16 {
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

/// What a job shows while it runs; without a form nothing is shown.
struct TransferProgress {
    std::function<void(const QString&)> SetLabel = [](const QString&) {};
    std::function<void(int)> SetMaximum = [](int) {};
    std::function<void(int)> SetValue = [](int) {};
};

struct TransferState {
    qint16 TransferType = TransferNone; ///< set before FmTransfer opens
    bool TransferCancel = false;
    FileList* LvPc = nullptr; ///< of the file control window, while it is open
    FileList* LvInstr = nullptr;
    FileList* OtherLvPc = nullptr; ///< of a second form; nothing sets them in this version
    FileList* OtherLvInstr = nullptr;
    TransferProgress Progress;
};
TransferState& Transfer();
void TransferReset();

void TransferPutFiles(FileList& source, FileList& target);
void TransferGetFiles(FileList& source, FileList& target);
void TransferPutActive(FileList& source);
void TransferGetActive();
void TransferDeleteInstr(FileList& list);
void TransferDeletePc(FileList& list);

/// Locks or unlocks a file on the instrument. No answer is read.
void TransferSetLock(const QString& name, bool lock);

/// Runs the job `TransferType`, then reads the list again that it has changed. A number outside 1 to 10 is reported to
/// the debug route.
void TransferRunJob();

/// Texts of the form that shows the job; 0 for an unknown job.
int TransferLabelId(int type);
int TransferTitleId(int type);

/// Moves a file or folder into the trash. True when it is gone from its place.
bool FileRecycle(const QString& path);
