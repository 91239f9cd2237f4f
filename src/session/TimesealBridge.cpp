// The relay program of the chess server's side, run as a child process of the client.
#include "session/TimesealBridge.h"

#include "platform/OwnFiles.h"
#include "platform/StreamText.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <utility>

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

constexpr int PartingMs = 500;

bool runs(const QProcess& process) { return process.state() != QProcess::NotRunning; }

// Runs in the child before the program: from now on the system ends it when the client is gone. Nobody would be there
// to end one that does not heed a request, and it would keep the port from the next client's relay.
void endWithClient(pid_t client) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != client) ::_exit(1); // gone already
}

} // namespace

TimesealBridge::~TimesealBridge() {
    for (Relay& relay : relays_) {
        if (!runs(*relay.process)) continue;
        request(relay);
        if (relay.process->waitForFinished(PartingMs)) continue;
        std::fprintf(stderr, "brightrank: %s (process %lld) did not end when asked and was stopped\n", BridgeProgram,
                     static_cast<long long>(relay.process->processId()));
        relay.process->kill();
        relay.process->waitForFinished();
    }
}

bool TimesealBridge::programFound() {
    const QFileInfo program(QString::fromLatin1(BridgeProgram));
    if (!program.isFile() || !program.isExecutable()) return false;
    const auto reason = strangersHand(BridgeProgram);
    if (reason) std::fprintf(stderr, "brightrank: %s is not started: %s\n", BridgeProgram, reason->c_str());
    return !reason;
}

void TimesealBridge::start(const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments) list << shownText(argument);
    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([client = ::getpid()] { endWithClient(client); });
    process->start(QDir::current().absoluteFilePath(QString::fromLatin1(BridgeProgram)), list);
    relays_.push_back({std::move(process)});
}

std::int32_t TimesealBridge::zTimeSealHandle() {
    std::erase_if(relays_, [](const Relay& relay) { return !runs(*relay.process); });
    return relays_.empty() ? 0 : static_cast<std::int32_t>(relays_.back().process->processId());
}

void TimesealBridge::requestEnd(std::int32_t handle) {
    for (Relay& relay : relays_) {
        if (runs(*relay.process) && relay.process->processId() == handle) request(relay);
    }
}

// Once is enough.
void TimesealBridge::request(Relay& relay) {
    if (!std::exchange(relay.asked, true)) relay.process->terminate();
}
