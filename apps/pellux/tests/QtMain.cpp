#include <gtest/gtest.h>

#include <QApplication>

/// Tests of widgets need the application object of Qt; no display unless one is asked for.
int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
