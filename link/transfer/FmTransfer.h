// link/transfer/FmTransfer.h: shows a job on files while it runs.
#pragma once

#include "app/forms/form.h"
#include "link/transfer/transferState.h"

class QProgressBar;

namespace tarvik {

/// Runs the job `TransferType` once it is on the screen, and closes when the job has ended. Until then Cancel, Escape
/// and the close button ask the job to stop behind the file in work.
class FmTransfer final : public FormBase, private TransferProgress {
    Q_OBJECT
public:
    explicit FmTransfer(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    bool QueryUnload() override;
    void OnUnload() override;
    void OnActivate() override;

private:
    void BuildControls();
    void BuildLayout();
    void SetLabel(const QString& text) override;
    void SetMaximum(int maximum) override;
    void SetValue(int value) override;
    void AskToStop();

    QLabel* Label = nullptr;
    QProgressBar* progressBar = nullptr;
    QPushButton* BtCancel = nullptr;
    bool jobRuns_ = false;
};

} // namespace tarvik
