// main.cpp: the program: composition, the frame, the message loop.
#include "app/frame/MfMain.h"
#include "app/help/FmHelp.h"
#include "app/message/message.h"
#include "app/platform/closeSignal.h"
#include "composition.h"

#include <QApplication>

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    MfMain frame(QApplication::applicationDirPath());
    OnCloseSignal([&frame] { frame.CloseWhenPossible(); });
    const int exitCode = frame.Load() ? QApplication::exec() : EXIT_FAILURE;
    CloseHelpViewer(); // before the window system is gone
    TheMessagePresenter().Reset();
    return exitCode;
}
