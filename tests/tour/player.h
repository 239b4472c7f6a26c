// tests/tour/player.h: plays steps in sequence while the program runs its own event loops.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace tarvik {

/// One step: once the form `Form` is active and `Ready` holds, a picture is saved as `Picture` (none if empty) and
/// `Act` runs. `Act` may start its own event loop; the next step is then played inside it.
struct TourStep {
    QString Picture;
    QString Form;
    std::function<void(QWidget& form)> Act;
    std::function<bool(QWidget& form)> Ready = [](QWidget&) { return true; };
};

class TourPlayer final : public QObject {
    Q_OBJECT
public:
    /// Saves pictures to `pictureFolder`, which ends in the separator.
    TourPlayer(std::vector<TourStep> steps, QString pictureFolder);

    void Start();

    /// Runs `then` now or, if the next step concerns the open dialog, after that step.
    void WhenPlayed(std::function<void()> then);

    /// True once every step has been played.
    bool IsDone() const
    {
        return next_ == steps_.size();
    }

private:
    void Poll();
    void Play(QWidget& form);
    void GiveUp(const TourStep& step);

    std::vector<TourStep> steps_;
    QString pictureFolder_;
    size_t next_ = 0;
    int picturesTaken_ = 0;
    int pollsSinceReady_ = 0;
    QElapsedTimer waiting_;
};

} // namespace tarvik
