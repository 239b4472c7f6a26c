#include "link/transfer/transferRows.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "link/transfer/transferState.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

/// Copies, since events are processed during the job.
std::vector<FileListRow> SelectedRows(const FileList& list)
{
    std::vector<FileListRow> rows;
    std::copy_if(list.Rows.begin(), list.Rows.end(), std::back_inserter(rows),
        [](const FileListRow& row) { return row.Selected; });
    return rows;
}

} // namespace

void TransferForEachRow(const FileList& list, int maximum, TextNumber<1> label,
    const std::function<TransferNext(const FileListRow& row)>& work)
{
    const TransferState& state = Transfer();
    TransferProgress& progress = *TheTransferProgress();
    TheSeams().PumpEvents();
    progress.SetMaximum(maximum);
    int counter = 0;
    for (const FileListRow& row : SelectedRows(list)) {
        progress.SetLabel(LngStr1(label, row.Text));
        const TransferNext next = work(row);
        if (next == TransferNext::End)
            return;
        if (next == TransferNext::Count)
            progress.SetValue(++counter);
        TheSeams().PumpEvents();
        if (state.TransferCancel)
            return;
    }
}

void TransferClearAnswers()
{
    TheMessage().YesAll = false;
    TheMessage().NoAll = false;
}

bool TransferConfirmReplace(TextNumber<1> question, const QString& name, bool offersAll)
{
    if (TheMessage().YesAll || TheMessage().NoAll)
        return TheMessage().YesAll;
    const MsgResult answer = offersAll ? MsgAllChoices1(question, name) : MsgYesNoDefNo1(question, name);
    return answer == MsgResult::Yes;
}

bool TransferIsLocked(const FileListRow& row)
{
    return row.Icon == QLatin1String("PresetFile") || row.Icon == QLatin1String("LockedFile");
}

} // namespace tarvik
