// tests/support/drawnText.h: what the user sees of a label.
#pragma once

#include <QEvent>
#include <QLabel>
#include <QObject>

namespace tarvik {

/// The text of a label when last painted.
class DrawnText final : public QObject {
public:
    explicit DrawnText(QLabel& label)
        : label_(label)
    {
        label.installEventFilter(this);
    }

    QString Text;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            Text = label_.text();
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel& label_;
};

} // namespace tarvik
