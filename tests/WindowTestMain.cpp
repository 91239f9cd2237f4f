// Runs the window tests offscreen on two screens, with one application object and settings of their own.
#include <QApplication>
#include <QTemporaryDir>

#include "TestPaths.h"
#include "TestRun.h"
#include "platform/PlainText.h"

namespace {

// Shows texts as the program does; a fault is the test's.
class TestApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        if (receiver) keepPlain(*receiver, *event);
        return QApplication::notify(receiver, event);
    }
};

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TEST_DATA "/screens.json");
    }
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    TestApplication application(argc, argv);
    TestApplication::setQuitOnLastWindowClosed(false);
    return runTests(argc, argv);
}
