// Entry of the test programs that need no widgets.
#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
