// link/transfer/transferRows.h: what the jobs of transfer.h share.
#pragma once

#include "app/text/textNumber.h"
#include "link/files/fileList.h"

#include <functional>

namespace tarvik {

/// How a job continues after a row.
enum class TransferNext {
    Count, ///< the row is done or skipped
    Pass, ///< the row is not part of the job
    End ///< the job has ended
};

/// Calls `work` for each selected row in the order of the list. Shows text `label` with the row's text, and progress
/// from 0 to `maximum`. Processes events between rows, and ends after a row if `TransferCancel` is set.
void TransferForEachRow(const FileList& list, int maximum, TextNumber<1> label,
    const std::function<TransferNext(const FileListRow& row)>& work);

/// Clears the answers "to all" of an earlier job.
void TransferClearAnswers();

/// Asks whether to replace an existing file, unless answered "to all"; true to replace it. `offersAll` shows the
/// buttons that answer for all.
bool TransferConfirmReplace(TextNumber<1> question, const QString& name, bool offersAll);

/// True for a row whose file is write-protected.
bool TransferIsLocked(const FileListRow& row);

} // namespace tarvik
