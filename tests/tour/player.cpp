#include "tests/tour/player.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tarvik {

namespace {

constexpr int kPollMs = 20;
constexpr int kPatienceMs = 30000;

/// After this time a visible form is activated explicitly: a busy window manager may have activated none.
constexpr int kManagerPatienceMs = 3000;

/// Polls before a picture is taken, so that the changes of the last step have been painted.
constexpr int kPollsToSettle = 5;

/// The visible form of that name; null if there is none.
QWidget* ShownForm(const QString& name)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    }
    return nullptr;
}

} // namespace

TourPlayer::TourPlayer(std::vector<TourStep> steps, QString pictureFolder)
    : steps_(std::move(steps))
    , pictureFolder_(std::move(pictureFolder))
{
}

void TourPlayer::Start()
{
    waiting_.start();
    QTimer::singleShot(kPollMs, this, &TourPlayer::Poll);
}

void TourPlayer::WhenPlayed(std::function<void()> then)
{
    const QWidget* dialog = QApplication::activeModalWidget();
    if (IsDone() || dialog == nullptr || dialog->objectName() != steps_[next_].Form)
        then();
    else
        QTimer::singleShot(kPollMs, this, [this, then = std::move(then)] { WhenPlayed(then); });
}

void TourPlayer::Poll()
{
    if (IsDone())
        return;
    QTimer::singleShot(kPollMs, this, &TourPlayer::Poll); // first, since a step may run its own event loop
    const TourStep& step = steps_[next_];
    if (waiting_.elapsed() > kPatienceMs)
        GiveUp(step);
    QWidget* form = ShownForm(step.Form);
    if (form != nullptr && QApplication::activeWindow() == nullptr && waiting_.elapsed() > kManagerPatienceMs)
        form->activateWindow();
    const bool isReady = form != nullptr && form->isActiveWindow() && step.Ready(*form);
    pollsSinceReady_ = isReady ? pollsSinceReady_ + 1 : 0;
    if (pollsSinceReady_ > kPollsToSettle)
        Play(*form);
}

void TourPlayer::Play(QWidget& form)
{
    const TourStep& step = steps_[next_++];
    pollsSinceReady_ = 0;
    waiting_.restart();
    if (!step.Picture.isEmpty()) {
        const QString name =
            QStringLiteral("%1-%2.png").arg(++picturesTaken_, 2, 10, QLatin1Char('0')).arg(step.Picture);
        const QPixmap picture = form.screen()->grabWindow(0);
        if (!picture.save(pictureFolder_ + name)) {
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(pictureFolder_ + name));
            std::exit(EXIT_FAILURE);
        }
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
    }
    step.Act(form);
}

void TourPlayer::GiveUp(const TourStep& step)
{
    const QWidget* active = QApplication::activeWindow();
    std::fprintf(stderr, "step %zu: %s is not ready; active: %s\n", next_, qPrintable(step.Form),
        active == nullptr ? "none" : qPrintable(active->objectName() + u' ' + active->windowTitle()));
    if (QScreen* screen = QGuiApplication::primaryScreen())
        screen->grabWindow(0).save(pictureFolder_ + QStringLiteral("stuck.png"));
    std::_Exit(EXIT_FAILURE);
}

} // namespace tarvik
