// link/transfer/transferRows.h: what all jobs of transfer.h have in common.
#pragma once

#include "app/text/textNumber.h"
#include "link/files/fileList.h"

#include <functional>

namespace tarvik {

/// How a job goes on after a row.
enum class TransferNext {
    Count, ///< the row is done, or was left out
    Pass, ///< the row is no part of the job
    End ///< the job is over
};

/// Calls `work` for each selected row in the order of the list, with the row's text in text `label`, and
/// moves the progress from 0 to `maximum`. Lets events run between rows, and ends behind one when that was asked for.
void TransferEachRow(const FileList& list, int maximum, TextNumber<1> label,
    const std::function<TransferNext(const FileListRow& row)>& work);

/// Forgets the answers "to all" of an earlier job.
void TransferForgetAnswers();

/// Asks whether a file that exists is to be replaced, unless that has been answered for all; true to replace it.
/// `offersAll` shows the buttons that answer for all.
bool TransferMayReplace(TextNumber<1> question, const QString& name, bool offersAll);

/// True for a row whose file is write-protected on its side.
bool TransferIsLocked(const FileListRow& row);

} // namespace tarvik
