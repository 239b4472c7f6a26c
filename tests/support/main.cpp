// Entry of the test programs that need no widgets.
#include "tests/support/endSignals.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the build asks for the list of tests without a display
    tarvik::RestoreEndSignals();
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
