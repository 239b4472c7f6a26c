// link/transfer/transfer.h: jobs on the selected rows of a file list: upload, download, delete on either side.
//
// A job runs at once and whole; between files it lets events run and looks at `TransferCancel`, so a file in flight is
// never broken.
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

/// Runs the job `TransferType`, then reads the list again that it has changed. Any but those from 1 to 10 is reported
/// to the debug route.
void TransferRunJob();

/// Texts of the form that shows the job; 0 for an unknown job.
TextNumber<1> TransferLabelId(TransferJob job);
TextNumber<0> TransferTitleId(TransferJob job);

/// Moves a file or folder into the trash. True when it is gone from its place.
bool FileRecycle(const QString& path);

} // namespace tarvik
