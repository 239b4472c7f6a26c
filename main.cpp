// main.cpp: the program: composition, the frame, the message loop.
#include "app/frame/MfMain.h"
#include "app/help/FmHelp.h"
#include "app/message/message.h"
#include "app/platform/closeSignal.h"
#include "composition.h"

#include <QApplication>
#include <QSessionManager>

using namespace tarvik;

namespace {

/// Without the user's attention nothing can be asked, and the documents stay as they are.
void AnswerLogOff(MfMain& frame, QSessionManager& session)
{
    if (!session.allowsInteraction())
        return;
    if (frame.CloseForLogOff())
        session.release();
    else
        session.cancel(); // after a release it would be too late: that answers that the log-off may go on
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    MfMain frame(QApplication::applicationDirPath());
    OnCloseSignal([&frame] { frame.CloseWhenPossible(); }, RepeatedSignal::Requests);
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &frame,
        [&frame](QSessionManager& session) { AnswerLogOff(frame, session); }, Qt::DirectConnection);
    const int exitCode = frame.Load() ? QApplication::exec() : EXIT_FAILURE;
    CloseHelpViewer(); // before the window system is gone
    TheMessagePresenter().Reset();
    return exitCode;
}
