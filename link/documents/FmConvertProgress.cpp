#include "link/documents/FmConvertProgress.h"

#include "app/forms/formLayout.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kNameCharacters = 64;

} // namespace

FmConvertProgress::FmConvertProgress(QWidget* parent)
    : FormBase("FmConvertProgress", parent)
{
    LngSetForm(this, TextId::ConvertRunTitle);
    SetHelpNumber(HelpId::Convert);
    LbCount = NewLabel(this, "LbCount", {});
    LbName = NewLabel(this, "LbName", {});
    LbName->setTextFormat(Qt::PlainText);
    LbName->setMinimumWidth(kNameCharacters * fontMetrics().averageCharWidth());
    LbName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    progressBar = new QProgressBar(this);
    NameControl(progressBar, QStringLiteral("progressBar"));
    progressBar->setAccessibleName(windowTitle());
    BtCancel = NewButton(this, "BtCancel", { TextId::ConvertStop, HelpId::Convert, TextId::ConvertStopHint });
    BtCancel->setCursor(Qt::ArrowCursor); // enabled while the form is busy
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });

    showLater_ = new QTimer(this); // for a message that the file causes
    showLater_->setSingleShot(true);
    showLater_->setInterval(kConvertShowIntervalMs);
    connect(showLater_, &QTimer::timeout, this, [this] { ShowProgress(); });

    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(LbName);
    form->addWidget(progressBar);
    form->addWidget(LbCount);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(NewButtonRow({ BtCancel }));
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmConvertProgress::OnLoad()
{
    DialogPush(*this, false);
    result_ = {};
    cancelled_ = false;
    runs_ = true;
    shownAt_ = {};
    const auto total = static_cast<int>(FileConvert().Sources.size());
    progressBar->setRange(0, std::max(total, 1)); // 0 would show an indeterminate bar
    progressBar->setValue(0);
    ShowCount(0, total);
    ShowName({});
    BtCancel->setFocus();
    return true;
}

void FmConvertProgress::ShowCount(int number, int total)
{
    LbCount->setText(LngStr2(TextId::ConvertCount, QString::number(number), QString::number(total)));
    LbCount->setAccessibleName(LbCount->text());
}

void FmConvertProgress::ShowName(const QString& name)
{
    LbName->setAccessibleName(name);
    const int width = std::max(LbName->width(), LbName->minimumWidth());
    LbName->setText(fontMetrics().elidedText(name, Qt::ElideMiddle, width));
}

void FmConvertProgress::Progress(int done, int total, const QString& source)
{
    done_ = done;
    total_ = total;
    source_ = source;
    if (IsTimeToShow() || QFileInfo(source).size() >= kConvertLongFile)
        ShowProgress();
    else
        showLater_->start();
}

/// A file that took long to open will take long to save.
void FmConvertProgress::Prepare(int /*window*/)
{
    if (showLater_->isActive() && IsTimeToShow())
        ShowProgress();
}

/// Also after the clock was set back.
bool FmConvertProgress::IsTimeToShow() const
{
    const qint64 passed = shownAt_.msecsTo(TheSeams().Now());
    return !shownAt_.isValid() || passed < 0 || passed >= kConvertShowIntervalMs;
}

/// Repaints at once: no events may be processed during the conversion of a file.
void FmConvertProgress::ShowProgress()
{
    showLater_->stop();
    shownAt_ = TheSeams().Now();
    progressBar->setMaximum(total_);
    progressBar->setValue(done_);
    ShowCount(done_ + 1, total_);
    ShowName(QFileInfo(source_).fileName());
    repaint();
}

bool FmConvertProgress::IsCancelled()
{
    return cancelled_;
}

bool FmConvertProgress::QueryUnload()
{
    if (runs_) {
        cancelled_ = true;
        showLater_->stop();
        ShowName(LngStr(TextId::ConvertStopping));
        LbName->repaint();
    }
    return !runs_;
}

void FmConvertProgress::OnActivate()
{
    WaitUntilPainted();
    {
        const BusyPointer busy(*this);
        result_ = FileConvertRun(*this);
    }
    showLater_->stop();
    runs_ = false;
    Unload();
}

} // namespace tarvik
