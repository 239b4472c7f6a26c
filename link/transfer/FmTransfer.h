// link/transfer/FmTransfer.h: runs a transfer job and shows its progress.
#pragma once

#include "app/forms/ProgressForm.h"
#include "link/transfer/transferState.h"

namespace tarvik {

/// Runs the job `TransferType`. A stop ends it after the current file.
class FmTransfer final : public ProgressForm, private TransferProgress {
    Q_OBJECT
public:
    explicit FmTransfer(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    void OnUnload() override;
    void RunJob() override;
    void RequestStop() override;

private:
    void SetLabel(const QString& text) override;
    void SetMaximum(int maximum) override;
    void SetValue(int value) override;
};

} // namespace tarvik
