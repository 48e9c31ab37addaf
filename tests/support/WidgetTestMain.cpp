// The main() of tests that need widgets: an application object without a screen, in the program's theme.
#include "widgets/Theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    brivandel::applyTheme(application, brivandel::Appearance::Light);
    return RUN_ALL_TESTS();
}
