// Requests from outside that the program end: signals and the end of the desktop session.
#include "platform/EndRequests.h"

#include <QGuiApplication>

#include <array>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

// The pipe from the signal handler, which may do no more than write, to the message loop.
std::array<int, 2> signalPipe{-1, -1};
constexpr std::array<int, 2> Signals{SIGTERM, SIGINT};

void noteSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

void leaveAtOnce(int) { ::_exit(EXIT_FAILURE); }

void handleSignals(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : Signals) ::sigaction(number, &action, nullptr);
}

} // namespace

EndRequests::EndRequests(std::function<void()> endOrderly) : endOrderly_(std::move(endOrderly)) {
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        notifier_ = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
        connect(notifier_, &QSocketNotifier::activated, this, &EndRequests::readSignal);
        handleSignals(noteSignal);
    }
    // The session waits for this signal to be answered, so the settings are written before it goes on to end.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &EndRequests::requestEnd, Qt::DirectConnection);
}

EndRequests::~EndRequests() {
    if (!notifier_) return;
    handleSignals(SIG_DFL);
    delete notifier_;
    for (int& end : signalPipe) ::close(std::exchange(end, -1));
}

void EndRequests::readSignal() {
    std::array<char, 16> bytes;
    while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
    }
    requestEnd();
}

void EndRequests::requestEnd() {
    if (std::exchange(ending_, true)) return;
    if (endOrderly_) endOrderly_();
    ending_ = false;
}

void EndRequests::endAtOnce() {
    endOrderly_ = nullptr;
    if (notifier_) handleSignals(leaveAtOnce);
}
