// The server: listening, clients, and the hall they meet in.
#include "practice/server/Server.h"

#include "practice/hall/Computers.h"
#include "practice/play/ComputerRoom.h"
#include "practice/play/Departure.h"
#include "practice/play/Flags.h"
#include "practice/text/Text.h"

#include <QHostAddress>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

namespace practice {

namespace {

constexpr int clockWatchInterval = 250; // milliseconds
constexpr std::size_t clientLimit = 200;

std::int64_t steadyMilliseconds() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

void complain(const std::string& what) {
    if (!what.empty()) std::fprintf(stderr, "brightrank-practice: %s\n", what.c_str());
}

std::string wallClockText() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[64];
    return {text, std::strftime(text, sizeof text, "%a %b %e, %H:%M UTC %Y", &parts)};
}

} // namespace

Server::Server(const Options& options, std::function<void(quint16)> onListening, std::function<void()> onEngineGone)
    : port_(options.port), onListening_(std::move(onListening)), engines_(options.engine, onEngineGone) {
    hall_.accounts = options.accounts;
    hall_.seed = options.seed;
    hall_.random.seed(options.seed);
    hall_.moveDelay = options.moveDelay;
    hall_.adPace = options.adPace;
    fillOutside();
    fillHost();
    if (!options.log.empty()) host_.log.open(options.log);
    if (!options.archive.empty()) openArchive(options.archive);
    hall_.began = hall_.outside.now();
    QObject::connect(&listener_, &QTcpServer::newConnection, &listener_, [this] { accept(); });
    QObject::connect(&clockWatch_, &QTimer::timeout, &clockWatch_, [this] { watchClocks(hall_); });
    engines_.rules({}, std::string(startFen), {}, [this](PositionFacts facts) {
        hall_.start = std::move(facts);
        open();
    });
}

Server::~Server() {
    for (Player& player : hall_.players) {
        player.show = [](const std::string&) {};
        player.resume = [] {};
    }
    connections_.clear();
}

void Server::fillOutside() {
    hall_.outside.now = steadyMilliseconds;
    hall_.outside.wallClock = wallClockText;
    hall_.outside.later = [this](int milliseconds, std::function<void()> what) {
        QTimer::singleShot(milliseconds, &clockWatch_, std::move(what));
    };
    hall_.outside.rules = [this](const Rules& rules, const std::string& fen, const std::string& move, auto then) {
        engines_.rules(rules, fen, move, std::move(then));
    };
    hall_.outside.search = [this](const SearchOrder& order, auto then) { engines_.search(order, std::move(then)); };
}

void Server::fillHost() {
    host_.questions.accounts = &hall_.accounts;
    host_.questions.isOnline = [this](const std::string& name) { return hall_.find(name) != nullptr; };
    host_.questions.freeGuestName = [this] { return freeGuestName(); };
    host_.enter = [this](const Connection& connection) -> Player& { return enter(connection); };
    host_.closed = [this](Connection& connection) { forget(connection); };
}

// What is left of guests goes: their names may be anybody's now. A folder that cannot be read is left as it is.
void Server::openArchive(const std::string& folder) {
    Archive& archive = hall_.archive;
    if (const std::string complaint = archiveFolder_.open(folder, archive); !complaint.empty()) {
        complain(complaint + "; no games are kept");
        return;
    }
    const auto isComputer = [](const std::string& name) {
        const auto& all = computers();
        return std::any_of(all.begin(), all.end(), [&](const Computer& each) { return lower(each.name) == name; });
    };
    const auto gone = [&](const auto& entry) { return !hall_.accounts.find(entry.first) && !isComputer(entry.first); };
    std::erase_if(archive.shelves, gone);
    std::erase_if(archive.journals, gone);
    archive.changed = [this] { complain(archiveFolder_.save(hall_.archive)); };
}

// Listening last: a client must find the computers at their places.
void Server::open() {
    if (!listener_.listen(QHostAddress::LocalHost, port_)) {
        onListening_(0);
        return;
    }
    openComputerRoom(hall_);
    clockWatch_.start(clockWatchInterval);
    onListening_(listener_.serverPort());
}

void Server::accept() {
    while (QTcpSocket* socket = listener_.nextPendingConnection()) {
        if (connections_.size() >= clientLimit) {
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            socket->write("\n\rThe practice hall is full.  Come back later.\n\r");
            socket->disconnectFromHost();
            continue;
        }
        connections_.push_back(std::make_unique<Connection>(socket, hall_, host_));
        connections_.back()->begin();
    }
}

// The newer log-on wins: the older may be a connection that died without a word.
Player& Server::enter(const Connection& connection) {
    const std::string name = connection.login().name;
    const auto same = [&](const auto& other) { return other->handle() == name; };
    if (const auto old = std::find_if(connections_.begin(), connections_.end(), same); old != connections_.end()) {
        (*old)->finish("\n**** " + name + " has arrived; you can't both be logged in. ****\n\n");
        leaveHall(hall_, name);
    }
    const Account* account = connection.login().guest ? nullptr : hall_.accounts.find(name);
    return hall_.enter(name, account ? "" : "(U)", account ? account->ratingText() : "++++");
}

// The connection first: leaving the hall shows texts, and its socket takes none any more.
void Server::forget(Connection& connection) {
    const std::string name = connection.handle();
    connections_.remove_if([&](const auto& each) { return each.get() == &connection; });
    if (!name.empty()) leaveHall(hall_, name);
}

std::string Server::freeGuestName() {
    std::string name;
    do {
        name = "Guest";
        for (int i = 0; i < 4; ++i) name += static_cast<char>('A' + hall_.randomDelay(0, 25));
    } while (hall_.find(name));
    return name;
}

} // namespace practice
