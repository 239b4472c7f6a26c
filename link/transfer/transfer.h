// link/transfer/transfer.h: jobs on the selected rows of a file list: upload, download, delete on either side.
//
// A job runs synchronously. Between files it processes events and checks `TransferCancel`, so a file is never left half
// transferred.
#pragma once

#include "app/text/textNumber.h"
#include "link/transfer/transferState.h"

namespace tarvik {

void TransferPutFiles(FileList& source, FileList& target);
void TransferGetFiles(FileList& source, FileList& target);
void TransferPutActive(FileList& source);
void TransferGetActive();
void TransferDeleteInstr(FileList& list);
void TransferDeletePc(FileList& list);

/// Runs the job `TransferType`, then reads the changed list again. Any value outside 1 to 10 is reported to the debug
/// channel.
void TransferRunJob();

/// Texts of the form that runs the job; none for an unknown job.
TextNumber<1> TransferLabelId(TransferJob job);
TextNumber<0> TransferTitleId(TransferJob job);

/// Moves a file or folder into the trash. True if it is gone from its folder.
bool FileRecycle(const QString& path);

} // namespace tarvik
