// The application object, and the orderly end by a fault that nothing took.
#include "platform/Application.h"

#include "common/Fault.h"
#include "platform/Boxes.h"
#include "platform/PlainText.h"
#include "platform/StreamText.h"

#include <QSocketNotifier>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

namespace {

// The windows that were there when the program ended by a fault; empty while it runs.
QWidgetList stoppedWindows;
bool endingByFault = false;

bool displayIsSeen() {
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

const char* kindName(FaultKind kind) {
    switch (kind) {
    case FaultKind::Subscript:
        return "subscript";
    case FaultKind::TypeMismatch:
        return "type mismatch";
    case FaultKind::Overflow:
        return "overflow";
    case FaultKind::File:
        return "file";
    }
    return "unknown";
}

// While the last box is up, nothing of the program it tells about may run any more. What draws and moves the box, and
// what the toolkit needs to talk to the display, goes on.
bool isStopped(const QObject& receiver) {
    if (const auto* widget = qobject_cast<const QWidget*>(&receiver)) return stoppedWindows.contains(widget->window());
    if (receiver.inherits("QTimer") || receiver.inherits("QSingleShotTimer")) return true;
    if (qobject_cast<const QSocketNotifier*>(&receiver)) {
        return receiver.parent() && receiver.parent()->inherits("QAbstractSocketEngine");
    }
    return receiver.metaObject()->className()[0] != 'Q'; // a class of ours
}

// A socket that stays readable would report again and again.
void silence(QObject& receiver) {
    if (auto* notifier = qobject_cast<QSocketNotifier*>(&receiver)) notifier->setEnabled(false);
}

// The text that met the limit may be a server's, and standard error a terminal, which would obey it. It goes out
// as UTF-8.
void tellStandardError(std::string line) {
    const auto commands = [](unsigned char c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); };
    std::ranges::replace_if(line, commands, '?');
    std::fprintf(stderr, "brightrank: %s\n", shownText(line).toUtf8().constData());
    std::fflush(stderr);
}

// Standard error has the first fault already; what fails on the way out adds nothing.
template <typename Statement>
void passOverAll(Statement statement) {
    try {
        statement();
    } catch (...) {
    }
}

// The last resort for what cannot reach `notify`: a fault outside the message loop or in a destructor.
void endWithoutBox() {
    if (std::current_exception()) tellStandardError(currentFaultLine());
    std::_Exit(EXIT_FAILURE);
}

} // namespace

std::string currentFaultLine() {
    try {
        throw;
    } catch (const Fault& fault) {
        return std::string(kindName(fault.kind())) + " error: " + fault.what();
    } catch (const std::exception& exception) {
        return std::string("error: ") + exception.what();
    } catch (...) {
        return "error: unknown";
    }
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv), interactive(displayIsSeen) {
    std::set_terminate(endWithoutBox);
}

int Application::run(const std::function<void()>& start) {
    // From the message loop: an end asked for within `start` would be forgotten by a loop that begins behind it.
    QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
    return exec();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    if (endingByFault && receiver && isStopped(*receiver)) {
        silence(*receiver);
        return false;
    }
    try {
        if (receiver) keepPlain(*receiver, *event);
        return QApplication::notify(receiver, event);
    } catch (...) {
        if (!endingByFault) endByFault(currentFaultLine());
        return false; // a further fault behind the first adds nothing
    }
}

void Application::endByFault(const std::string& line) {
    endingByFault = true;
    tellStandardError(line);
    stoppedWindows = topLevelWidgets();
    passOverAll([this] {
        if (stopEverything) stopEverything();
    });
    passOverAll([this, &line] {
        if (!interactive()) return;
        if (QWidget* popup = activePopupWidget()) popup->close(); // it would keep the mouse from the box
        boxes.message(nullptr, "Brightrank", "Brightrank has to end.\n\n" + line);
    });
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}
