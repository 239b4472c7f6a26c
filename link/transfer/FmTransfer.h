// link/transfer/FmTransfer.h: runs a transfer job and shows its progress.
#pragma once

#include "app/forms/form.h"
#include "link/transfer/transferState.h"

class QProgressBar;

namespace tarvik {

/// Runs the job `TransferType` once it is visible, and closes when the job has ended. Until then Cancel, Escape and the
/// close button request the job to stop after the current file.
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
    void RequestStop();

    QLabel* Label = nullptr;
    QProgressBar* progressBar = nullptr;
    QPushButton* BtCancel = nullptr;
    bool jobRuns_ = false;
};

} // namespace tarvik
