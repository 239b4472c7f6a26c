// app/frame/ChildArea.h: the area of the child windows.
#pragma once

#include <QMdiArea>

class QKeyEvent;

namespace tarvik {

class ChildArea final : public QMdiArea {
    Q_OBJECT
public:
    using QMdiArea::QMdiArea;

    /// Ctrl+Tab and Ctrl+Shift+Tab activate the next and the previous window in the order of opening, wherever the
    /// focus is in the frame. True for these keys.
    bool StepKey(const QKeyEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void StepWindow(int step);
};

} // namespace tarvik
