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

constexpr int kLookMs = 20;
constexpr int kPatienceMs = 30000;

/// From then on a shown form is given the keyboard that a busy window manager has left to nobody.
constexpr int kManagerPatienceMs = 3000;

/// Looks that pass before a picture, so that what the last step changed has been painted.
constexpr int kLooksToSettle = 5;

/// The shown form of that name, null without one.
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
    QTimer::singleShot(kLookMs, this, &TourPlayer::Look);
}

void TourPlayer::WhenPlayed(std::function<void()> then)
{
    const QWidget* dialog = QApplication::activeModalWidget();
    if (IsDone() || dialog == nullptr || dialog->objectName() != steps_[next_].Form)
        then();
    else
        QTimer::singleShot(kLookMs, this, [this, then = std::move(then)] { WhenPlayed(then); });
}

void TourPlayer::Look()
{
    if (IsDone())
        return;
    QTimer::singleShot(kLookMs, this, &TourPlayer::Look); // first, since a step may stay in a loop of its own
    const TourStep& step = steps_[next_];
    if (waiting_.elapsed() > kPatienceMs)
        GiveUp(step);
    QWidget* form = ShownForm(step.Form);
    if (form != nullptr && QApplication::activeWindow() == nullptr && waiting_.elapsed() > kManagerPatienceMs)
        form->activateWindow();
    const bool isReady = form != nullptr && form->isActiveWindow() && step.Ready(*form);
    looksSinceReady_ = isReady ? looksSinceReady_ + 1 : 0;
    if (looksSinceReady_ > kLooksToSettle)
        Play(*form);
}

void TourPlayer::Play(QWidget& form)
{
    const TourStep& step = steps_[next_++];
    looksSinceReady_ = 0;
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
