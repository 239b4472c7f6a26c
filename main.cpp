// main.cpp: the program: composition, the frame, the message loop.
#include "app/FmHelp.h"
#include "app/MfMain.h"
#include "app/closeSignal.h"
#include "app/message.h"
#include "composition.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    MfMain frame(QApplication::applicationDirPath());
    OnCloseSignal([&frame] { frame.CloseWhenPossible(); });
    const int exitCode = frame.Load() ? QApplication::exec() : EXIT_FAILURE;
    CloseHelpViewer(); // while there is still a window system to close it on
    MsgSetPresenter({});
    return exitCode;
}
