// app/forms/ProgressForm.h: the base of forms that run a job and show its progress.
#pragma once

#include "app/forms/form.h"

class QProgressBar;

namespace tarvik {

/// Runs the job once the form is visible, and closes when the job has ended. Until then Cancel, Escape and the close
/// button ask the job to stop.
class ProgressForm : public FormBase {
    Q_OBJECT
public:
    /// `lineName` is the name of the line of text above the bar.
    ProgressForm(const char* name, const char* lineName, const ControlTexts& cancel, QWidget* parent);

protected:
    /// The job. Events are processed only where it does so itself.
    virtual void RunJob() = 0;
    virtual void RequestStop() = 0;

    /// The load event begins with this.
    void BeginJob(int steps);

    /// As many as the bar has; 0 counts as 1.
    void SetSteps(int steps);

    /// Elided in the middle.
    void ShowLine(const QString& text);

    bool QueryUnload() final;
    void OnActivate() final;

    QLabel* Line = nullptr;
    QProgressBar* progressBar = nullptr;
    QPushButton* BtCancel = nullptr;

private:
    bool runs_ = false;
};

} // namespace tarvik
