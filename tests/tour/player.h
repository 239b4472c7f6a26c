// tests/tour/player.h: plays steps one after another while the program runs its own message loops.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace tarvik {

/// One step: as soon as the form `Form` is active and `Ready` holds, a picture is taken under `Picture` (none when
/// empty) and `Act` runs. `Act` may start a message loop of its own; the next step is played inside it.
struct TourStep {
    QString Picture;
    QString Form;
    std::function<void(QWidget& form)> Act;
    std::function<bool(QWidget& form)> Ready = [](QWidget&) { return true; };
};

class TourPlayer final : public QObject {
    Q_OBJECT
public:
    /// Pictures go into `pictureFolder`, which ends in the separator.
    TourPlayer(std::vector<TourStep> steps, QString pictureFolder);

    void Start();

    /// Runs `then` now or, while the next step is about the dialog that is open, once it has been played.
    void WhenPlayed(std::function<void()> then);

    /// True once every step has been played.
    bool IsDone() const
    {
        return next_ == steps_.size();
    }

private:
    void Look();
    void Play(QWidget& form);
    void GiveUp(const TourStep& step);

    std::vector<TourStep> steps_;
    QString pictureFolder_;
    size_t next_ = 0;
    int picturesTaken_ = 0;
    int looksSinceReady_ = 0;
    QElapsedTimer waiting_;
};

} // namespace tarvik
