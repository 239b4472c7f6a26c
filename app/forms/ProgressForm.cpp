#include "app/forms/ProgressForm.h"

#include "app/forms/formLayout.h"

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kLineCharacters = 64; ///< a long file name, or one of the instrument and the action

} // namespace

ProgressForm::ProgressForm(const char* name, const char* lineName, const ControlTexts& cancel, QWidget* parent)
    : FormBase(name, parent)
{
    Line = NewLabel(this, lineName, {});
    Line->setTextFormat(Qt::PlainText);
    Line->setMinimumWidth(kLineCharacters * fontMetrics().averageCharWidth());
    Line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    progressBar = new QProgressBar(this);
    NameControl(progressBar, QStringLiteral("progressBar"));
    BtCancel = NewButton(this, "BtCancel", cancel);
    BtCancel->setCursor(Qt::ArrowCursor); // enabled while the form is busy
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });

    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(Line);
    form->addWidget(progressBar);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(NewButtonRow({ BtCancel }));
    form->setSizeConstraint(QLayout::SetFixedSize);
}

void ProgressForm::BeginJob(int steps)
{
    DialogPush(*this, false);
    progressBar->setAccessibleName(windowTitle());
    SetSteps(steps);
    progressBar->setValue(0);
    BtCancel->setFocus();
    runs_ = true;
}

void ProgressForm::SetSteps(int steps)
{
    progressBar->setMaximum(std::max(steps, 1)); // 0 would show an indeterminate bar
}

void ProgressForm::ShowLine(const QString& text)
{
    Line->setAccessibleName(text);
    const int width = std::max(Line->width(), Line->minimumWidth());
    Line->setText(fontMetrics().elidedText(text, Qt::ElideMiddle, width));
}

bool ProgressForm::QueryUnload()
{
    if (runs_)
        RequestStop();
    return !runs_;
}

void ProgressForm::OnActivate()
{
    WaitUntilPainted();
    {
        const BusyPointer busy(*this);
        RunJob();
    }
    runs_ = false;
    Unload();
}

} // namespace tarvik
