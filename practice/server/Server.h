// The server: listening, clients, and the hall they meet in.
#pragma once

#include "practice/engine/Engines.h"
#include "practice/games/ArchiveFolder.h"
#include "practice/hall/Hall.h"
#include "practice/server/Connection.h"
#include "practice/server/Options.h"

#include <QTcpServer>
#include <QTimer>

#include <functional>
#include <list>
#include <memory>

namespace practice {

// Owns the whole. It listens on 127.0.0.1 once the rules engine has answered.
class Server {
public:
    // `onListening` gets the port, or 0 if it could not be had; `onEngineGone` comes when an engine cannot be kept
    // alive. What is wrong with the archive's folder goes to standard error.
    Server(const Options& options, std::function<void(quint16)> onListening, std::function<void()> onEngineGone);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

private:
    // Give the hall and the connections what they need of this.
    void fillOutside();
    void fillHost();
    // Takes over the games of the archive's folder, and keeps it up to date from then on.
    void openArchive(const std::string& folder);
    // Listens and lets the computers in.
    void open();
    // Takes all clients that knock.
    void accept();
    // Makes a connection a player; an older session of the same name ends.
    Player& enter(const Connection& connection);
    // Drops a connection whose socket is gone, and its player.
    void forget(Connection& connection);
    // "Guest" and four letters that nobody has.
    std::string freeGuestName();

    quint16 port_;
    std::function<void(quint16)> onListening_;
    Hall hall_;
    ArchiveFolder archiveFolder_;
    Connection::Host host_;
    QTcpServer listener_;
    QTimer clockWatch_;
    Engines engines_;
    std::list<std::unique_ptr<Connection>> connections_;
};

} // namespace practice
