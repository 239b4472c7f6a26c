// main.cpp: the program: composition, the frame, the message loop.
#include "app/MfMain.h"
#include "composition.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    MfMain frame(QApplication::applicationDirPath());
    if (!frame.Load())
        return EXIT_FAILURE;
    return QApplication::exec();
}
