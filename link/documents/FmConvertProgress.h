// link/documents/FmConvertProgress.h: runs the batch of a conversion and shows its progress.
#pragma once

#include "app/forms/form.h"
#include "link/documents/fileConvert.h"

class QProgressBar;

namespace tarvik {

/// Runs the batch once it is visible, and closes when the batch has ended. Until then Cancel, Escape and the close
/// button end the batch after the current file.
class FmConvertProgress final : public FormBase, private FileBatchWatcher {
    Q_OBJECT
public:
    explicit FmConvertProgress(QWidget* parent = nullptr);

    /// Of the last batch.
    const BatchResult& Result() const
    {
        return result_;
    }

protected:
    bool OnLoad() override;
    bool QueryUnload() override;
    void OnActivate() override;

private:
    void Progress(int done, int total, const QString& source) override;
    bool IsCancelled() override;
    void ShowCount(int number, int total);
    void ShowName(const QString& name);

    QLabel* LbCount = nullptr;
    QLabel* LbName = nullptr;
    QProgressBar* progressBar = nullptr;
    QPushButton* BtCancel = nullptr;
    BatchResult result_;
    bool runs_ = false;
    bool cancelled_ = false;
};

} // namespace tarvik
