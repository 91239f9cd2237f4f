// The built program as a process of its own, with settings and a server of the test's.
#pragma once

#include "session/ScriptedServer.h"

#include <QProcess>
#include <QTemporaryDir>

#include <string>

// Offscreen, in an empty folder, with a settings file of its own; it connects to `server` by itself. Ended by its id
// when the test is over.
class RunningProgram {
public:
    RunningProgram();
    ~RunningProgram();

    // Starts it with the settings file as it stands and waits until it has connected; false after 15 seconds.
    bool start();
    // Waits until the program has ended; false after 15 seconds.
    bool ended();
    // Sends a signal of the system to it.
    void signal(int number) const;

    // The lines of standard error that are the program's own.
    std::string errorLines();
    std::string settingsPath() const;
    std::string settingsText() const;
    void writeSettings(const std::string& text) const;
    // Settings that connect to the server and log on.
    std::string connectingSettings() const;

    ScriptedServer server;
    QProcess process;

private:
    QTemporaryDir folder_;
};
