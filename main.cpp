// main.cpp: composition: the one place that sees every folder.
#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    return QApplication::exec();
}
