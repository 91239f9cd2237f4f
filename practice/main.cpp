// Starts the practice server and ends it on a signal or with its owner.
#include "practice/server/Options.h"
#include "practice/server/Server.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int listenFailed = 1;
constexpr int engineFailed = 2;

int signalPipe[2] = {-1, -1};

// All that a signal handler may do here: wake the event loop.
void onSignal(int) {
    const char byte = 0;
    // Nothing helps if the pipe is full: then a wake-up is on its way already.
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}

bool catchSignals() {
    if (pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return false;
    std::signal(SIGPIPE, SIG_IGN);
    return std::signal(SIGTERM, onSignal) != SIG_ERR && std::signal(SIGINT, onSignal) != SIG_ERR;
}

// Ends the event loop once the process is gone; a process of another user is there as well.
void watchOwner(QTimer& timer, qint64 pid) {
    if (pid == 0) return;
    QObject::connect(&timer, &QTimer::timeout, &timer, [pid] {
        if (kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) QCoreApplication::quit();
    });
    timer.start(1000);
}

void tellPort(quint16 port) {
    if (port == 0) {
        std::fputs("brightrank-practice: cannot listen on that port\n", stderr);
        QCoreApplication::exit(listenFailed);
        return;
    }
    std::printf("listening on 127.0.0.1:%u\n", static_cast<unsigned>(port));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    std::setlocale(LC_TIME, "C"); // what it says is English, whatever language the machine speaks: its dates too
    QCoreApplication::setApplicationVersion(QStringLiteral(BRIGHTRANK_VERSION));
    int exitCode = 0;
    const auto options = practice::readOptions(QCoreApplication::arguments(), exitCode);
    if (!options) return exitCode;
    if (!catchSignals()) return listenFailed;
    QSocketNotifier wakeUp(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&wakeUp, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    QTimer ownerWatch;
    watchOwner(ownerWatch, options->ownerPid);
    const practice::Server server(*options, tellPort, [] { QCoreApplication::exit(engineFailed); });
    return QCoreApplication::exec();
}
