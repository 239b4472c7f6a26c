#include "link/transfer/FmTransfer.h"

#include "app/forms/formLayout.h"
#include "app/text/lang.h"
#include "link/transfer/transfer.h"

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kTextCancel = 14004;
constexpr int kHintCancel = 14005;
constexpr int kTextStopping = 14009;
constexpr int kLabelCharacters = 64; ///< a name of an instrument's file, and what is done to it

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
    BtCancel = NewButton(this, "BtCancel", { kTextCancel, kTextCancel, kHintCancel });
    BtCancel->setCursor(Qt::ArrowCursor); // it answers while the form is busy
    connect(BtCancel, &QPushButton::clicked, this, [this] { AskToStop(); });
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
    const int type = Transfer().TransferType;
    const int label = TransferLabelId(type);
    if (label == 0)
        return false;
    LngSetForm(this, TransferTitleId(type));
    SetHelpNumber(TransferTitleId(type));
    progressBar->setAccessibleName(windowTitle());
    progressBar->setRange(0, 1);
    progressBar->setValue(0);
    ShowLabel(LngStr1(label, QStringLiteral(" ...")));
    BtCancel->setFocus();
    BindProgress();
    jobRuns_ = true;
    return true;
}

void FmTransfer::BindProgress()
{
    TransferProgress& progress = Transfer().Progress;
    progress.SetLabel = [this](const QString& text) { ShowLabel(text); };
    progress.SetMaximum = [this](int maximum) { progressBar->setMaximum(std::max(maximum, 1)); }; // 0 would be a wait
    progress.SetValue = [this](int value) { progressBar->setValue(value); };
}

/// Drawn at once: a file may take as long as its time-out, and no events run meanwhile.
void FmTransfer::ShowLabel(const QString& text)
{
    Label->setAccessibleName(text);
    const int width = std::max(Label->width(), Label->minimumWidth());
    Label->setText(fontMetrics().elidedText(text, Qt::ElideMiddle, width));
    Label->repaint();
}

void FmTransfer::AskToStop()
{
    ShowLabel(LngStr(kTextStopping));
    Transfer().TransferCancel = true;
}

bool FmTransfer::QueryUnload()
{
    if (jobRuns_)
        AskToStop();
    return !jobRuns_;
}

void FmTransfer::OnUnload()
{
    Transfer().Progress = {};
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
