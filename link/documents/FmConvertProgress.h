// link/documents/FmConvertProgress.h: runs the batch of a conversion and shows its progress.
#pragma once

#include "app/forms/ProgressForm.h"
#include "link/documents/fileConvert.h"

#include <QDateTime>

class QTimer;

namespace tarvik {

/// Shortest time between two files that are shown. Painting each of many short files would take a tenth of the batch.
inline constexpr int kConvertShowIntervalMs = 40;

/// A file of this size is always shown: it takes longer than the interval.
inline constexpr qint64 kConvertLongFile = 16 << 20;

/// Cancel ends the batch after the current file.
class FmConvertProgress final : public ProgressForm, private FileBatchWatcher {
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
    void RunJob() override;
    void RequestStop() override;

private:
    void Progress(int done, int total, const QString& source) override;
    void Prepare(int window) override;
    bool IsCancelled() override;
    bool IsTimeToShow() const;
    void ShowProgress();
    void ShowCount(int number, int total);

    QLabel* LbCount = nullptr;
    QTimer* showLater_ = nullptr;
    QDateTime shownAt_;
    int done_ = 0;
    int total_ = 0;
    QString source_;
    BatchResult result_;
    bool cancelled_ = false;
};

} // namespace tarvik
