#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

/// The application that every test of a window runs in; without a display it is the offscreen one.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true); // nothing of the user's own configuration is touched
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
