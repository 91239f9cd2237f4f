// Runs the window tests offscreen on two screens, with one application object and settings of their own.
#include <QApplication>
#include <QTemporaryDir>

#include "TestPaths.h"
#include "TestRun.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TEST_DATA "/screens.json");
    }
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return runTests(argc, argv);
}
