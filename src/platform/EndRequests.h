// Requests from outside that the program end: signals and the end of the desktop session.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>

// While it lives, SIGTERM, SIGINT and the desktop's end of session call `endOrderly` from the message loop. A request
// that comes while `endOrderly` still runs is ignored. One instance at a time.
class EndRequests : public QObject {
    Q_OBJECT

public:
    explicit EndRequests(std::function<void()> endOrderly);
    ~EndRequests() override; // gives the signals back to the system

    // What each of the requests does.
    void requestEnd();

    // The program is ending by a fault: from now on a signal ends the process at once with status 1, and the end of
    // the session changes nothing.
    void endAtOnce();

private:
    void readSignal();

    std::function<void()> endOrderly_;
    QSocketNotifier* notifier_ = nullptr;
    bool ending_ = false;
};
