// bench/start_tarvik.cpp: from the program's start to the first paint of its frame, without the logo: its timer expires
// immediately, and the time during which it is visible is subtracted.
#include "app/frame/MfMain.h"
#include "app/platform/seams.h"
#include "bench/firstPaint.h"
#include "composition.h"

#include <QApplication>

namespace tarvik {

namespace {

class LogoClock final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isLogo = event->type() == QEvent::Show || event->type() == QEvent::Hide
            ? watched->objectName() == QLatin1String("FmLogo")
            : false;
        if (isLogo && watched->isWidgetType())
            ShownNs += event->type() == QEvent::Show ? -MonotonicNs() : MonotonicNs();
        return false;
    }

    qint64 ShownNs = 0;
};

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    const auto startTimer = TheSeams().StartTimer;
    TheSeams().StartTimer = [startTimer](int, std::function<void()> tick) { startTimer(0, std::move(tick)); };
    LogoClock logo;
    application.installEventFilter(&logo);
    MfMain frame(QApplication::applicationDirPath());
    const FirstPaint first(frame, [&logo] { ReportStart(logo.ShownNs); });
    if (!frame.Load())
        return EXIT_FAILURE;
    return QApplication::exec();
}
