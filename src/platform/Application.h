// The application object, and the orderly end by a fault that nothing took.
#pragma once

#include <QApplication>

#include <functional>
#include <string>

// Catches every exception that leaves an event handler, at whatever depth of nested message loops. It then stops the
// sockets and timers, prints one line on standard error, tells the user the same in one box, and ends the process with
// status 1; nothing is saved and no window is asked to close.
// No label of its windows takes a text for markup.
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    // Stops the program's socket and timers before the box comes up; faults in it are passed over.
    std::function<void()> stopEverything;

    // Runs the message loop, and in it first of all `start`, which builds the windows; gives the exit status. An end
    // asked for while `start` runs comes when it returns.
    int run(const std::function<void()>& start);

    // The end itself; `line` says which limit was met and with which text.
    [[noreturn]] void endByFault(const std::string& line);

    // Whether somebody can answer a box here; by default not on the displays that exist in memory only.
    std::function<bool()> interactive;

    bool notify(QObject* receiver, QEvent* event) override;
};

// One line that tells the exception being handled, such as "subscript error: subscript 1001 is outside 0 to 1000".
std::string currentFaultLine();
