#include "link/transfer/FmTransfer.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/transfer/transfer.h"

#include <QLabel>
#include <QProgressBar>

namespace tarvik {

FmTransfer::FmTransfer(QWidget* parent)
    : ProgressForm(
        "FmTransfer", "Label", { TextId::TransferCancel, TextId::TransferCancel, TextId::TransferCancelHint }, parent)
{
}

bool FmTransfer::OnLoad()
{
    Transfer().TransferCancel = false;
    const TransferJob job = Transfer().TransferType;
    const TextNumber<1> label = TransferLabelId(job);
    if (label.IsNone()) {
        DialogPush(*this, false);
        return false;
    }
    LngSetForm(this, TransferTitleId(job));
    SetHelpNumber(TransferTitleId(job));
    BeginJob(1);
    SetLabel(LngStr1(label, QStringLiteral(" ...")));
    TheTransferProgress().Set(*this);
    return true;
}

void FmTransfer::SetMaximum(int maximum)
{
    SetSteps(maximum);
}

void FmTransfer::SetValue(int value)
{
    progressBar->setValue(value);
}

/// Repaints at once: no events are processed during the transfer of a file.
void FmTransfer::SetLabel(const QString& text)
{
    ShowLine(text);
    Line->repaint();
}

void FmTransfer::RequestStop()
{
    SetLabel(LngStr(TextId::TransferStopping));
    Transfer().TransferCancel = true;
}

void FmTransfer::OnUnload()
{
    TheTransferProgress().Reset();
}

void FmTransfer::RunJob()
{
    TransferRunJob();
}

} // namespace tarvik
