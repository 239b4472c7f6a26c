// app/frame/FmTip.h: the small window with a tool button's tip.
#pragma once

#include <QWidget>

class QLabel;

namespace tarvik {

class FmTip final : public QWidget {
    Q_OBJECT
public:
    explicit FmTip(QWidget* parent);

    /// Shows `text` for the button at `button` on the screen.
    void ShowTip(const QString& text, const QRect& button);

private:
    QLabel* LbTip = nullptr;
};

} // namespace tarvik
