#include "link/transfer/FmTransfer.h"

#include "app/forms/formLayout.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/transfer/transfer.h"

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kLabelCharacters = 64; ///< an instrument's file name and the action

} // namespace

FmTransfer::FmTransfer(QWidget* parent)
    : FormBase("FmTransfer", parent)
{
    BuildControls();
    BuildLayout();
}

void FmTransfer::BuildControls()
{
    Label = NewLabel(this, "Label", {});
    Label->setTextFormat(Qt::PlainText);
    Label->setMinimumWidth(kLabelCharacters * fontMetrics().averageCharWidth());
    Label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    progressBar = new QProgressBar(this);
    NameControl(progressBar, QStringLiteral("progressBar"));
    BtCancel =
        NewButton(this, "BtCancel", { TextId::TransferCancel, TextId::TransferCancel, TextId::TransferCancelHint });
    BtCancel->setCursor(Qt::ArrowCursor); // enabled while the form is busy
    connect(BtCancel, &QPushButton::clicked, this, [this] { RequestStop(); });
}

void FmTransfer::BuildLayout()
{
    QHBoxLayout* buttons = NewButtonRow({ BtCancel });

    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(Label);
    form->addWidget(progressBar);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmTransfer::OnLoad()
{
    DialogPush(*this, false);
    Transfer().TransferCancel = false;
    const TransferJob job = Transfer().TransferType;
    const TextNumber<1> label = TransferLabelId(job);
    if (label.IsNone())
        return false;
    LngSetForm(this, TransferTitleId(job));
    SetHelpNumber(TransferTitleId(job));
    progressBar->setAccessibleName(windowTitle());
    progressBar->setRange(0, 1);
    progressBar->setValue(0);
    SetLabel(LngStr1(label, QStringLiteral(" ...")));
    BtCancel->setFocus();
    TheTransferProgress().Set(*this);
    jobRuns_ = true;
    return true;
}

void FmTransfer::SetMaximum(int maximum)
{
    progressBar->setMaximum(std::max(maximum, 1)); // 0 would show an indeterminate bar
}

void FmTransfer::SetValue(int value)
{
    progressBar->setValue(value);
}

/// Repaints at once: no events are processed during the transfer of a file.
void FmTransfer::SetLabel(const QString& text)
{
    Label->setAccessibleName(text);
    const int width = std::max(Label->width(), Label->minimumWidth());
    Label->setText(fontMetrics().elidedText(text, Qt::ElideMiddle, width));
    Label->repaint();
}

void FmTransfer::RequestStop()
{
    SetLabel(LngStr(TextId::TransferStopping));
    Transfer().TransferCancel = true;
}

bool FmTransfer::QueryUnload()
{
    if (jobRuns_)
        RequestStop();
    return !jobRuns_;
}

void FmTransfer::OnUnload()
{
    TheTransferProgress().Reset();
}

void FmTransfer::OnActivate()
{
    WaitUntilPainted();
    {
        const BusyPointer busy(*this);
        TransferRunJob();
    }
    jobRuns_ = false;
    Unload();
}

} // namespace tarvik
