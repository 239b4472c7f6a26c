// app/frame/ProgressPicture.h: the picture `progressBar` of the status bar: a bar with the percent over it.
#pragma once

#include <QWidget>

namespace tarvik {

class ProgressPicture final : public QWidget {
    Q_OBJECT
public:
    explicit ProgressPicture(QWidget* parent);

    /// Shows `percent` (0 to 100) and `text` over the bar.
    void ShowPercent(int percent, const QString& text);

    /// Shows nothing.
    void Clear();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int percent_ = -1; ///< -1 while nothing is shown
    QString text_;
};

} // namespace tarvik
