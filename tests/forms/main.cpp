#include <gtest/gtest.h>

#include <QApplication>

// The forms' tests run without a display: windows are drawn into memory.
int main(int argumentCount, char* arguments[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle("Fusion");
    return RUN_ALL_TESTS();
}
