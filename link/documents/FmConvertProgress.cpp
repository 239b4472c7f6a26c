#include "link/documents/FmConvertProgress.h"

#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>

namespace tarvik {

FmConvertProgress::FmConvertProgress(QWidget* parent)
    : ProgressForm(
        "FmConvertProgress", "LbName", { TextId::ConvertStop, HelpId::Convert, TextId::ConvertStopHint }, parent)
{
    LngSetForm(this, TextId::ConvertRunTitle);
    SetHelpNumber(HelpId::Convert);
    LbCount = NewLabel(this, "LbCount", {});
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->insertWidget(column->indexOf(progressBar) + 1, LbCount);

    showLater_ = new QTimer(this); // for a message that the file causes
    showLater_->setSingleShot(true);
    showLater_->setInterval(kConvertShowIntervalMs);
    connect(showLater_, &QTimer::timeout, this, [this] { ShowProgress(); });
}

bool FmConvertProgress::OnLoad()
{
    const auto total = static_cast<int>(FileConvert().Sources.size());
    BeginJob(total);
    result_ = {};
    cancelled_ = false;
    shownAt_ = {};
    ShowCount(0, total);
    ShowLine({});
    return true;
}

void FmConvertProgress::ShowCount(int number, int total)
{
    LbCount->setText(LngStr2(TextId::ConvertCount, QString::number(number), QString::number(total)));
    LbCount->setAccessibleName(LbCount->text());
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
    SetSteps(total_);
    progressBar->setValue(done_);
    ShowCount(done_ + 1, total_);
    ShowLine(QFileInfo(source_).fileName());
    repaint();
}

bool FmConvertProgress::IsCancelled()
{
    return cancelled_;
}

void FmConvertProgress::RequestStop()
{
    cancelled_ = true;
    showLater_->stop();
    ShowLine(LngStr(TextId::ConvertStopping));
    Line->repaint();
}

void FmConvertProgress::RunJob()
{
    result_ = FileConvertRun(*this);
    showLater_->stop();
}

} // namespace tarvik
