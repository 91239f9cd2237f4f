// One client at its socket.
#pragma once

#include "practice/hall/Hall.h"
#include "practice/server/LoginDialog.h"
#include "practice/wire/LineReader.h"
#include "practice/wire/WireLog.h"

#include <QTcpSocket>

#include <deque>
#include <functional>
#include <string>

namespace practice {

// Reads typed lines, leads the log-on, runs commands and writes texts in the server's manners. Memory stays bounded:
// a client that sends much is read slowly, and one that does not read what it is sent is dropped.
class Connection {
public:
    static constexpr qint64 outputLimit = 4 * 1024 * 1024; // bytes waiting; more drops the client

    // What the server does for a connection.
    struct Host {
        WireLog log;
        LoginDialog::Questions questions;
        std::function<Player&(const Connection&)> enter; // the log-on is done: make it a player
        std::function<void(Connection&)> closed;         // the socket is gone: called once, from the event loop
    };

    // Takes the socket over; `host` and `hall` must outlive the connection.
    Connection(QTcpSocket* socket, Hall& hall, Host& host);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Greets and begins to read.
    void begin();

    // The log-on talk, with the handle that it found out.
    const LoginDialog& login() const { return login_; }

    // The handle of this client's player; empty before the log-on and after the session.
    const std::string& handle() const { return handle_; }

    // Ends the session with a last text; the socket closes once that is written.
    void finish(const std::string& text);

private:
    static constexpr qint64 readLimit = 64 * 1024;   // bytes that wait in the socket
    static constexpr int closingTime = 5'000;        // milliseconds for the last text to go out
    static constexpr qint64 writePause = 256 * 1024; // no further command is run above this

    // Runs lines as long as there are any and the client keeps up.
    void work();
    // False while lines have to wait: for the judge of a move, or for the client to read.
    bool mayWork();
    // Takes a portion off the socket; false if there was none.
    bool readMore();
    // Hands a line to the log-on or to the commands.
    void takeLine(const std::string& line);
    // Takes a line of the log-on: asks on, makes the connection a player's, or hangs up.
    void logOn(const std::string& line);
    // Ties the connection to its player and gives his welcome.
    std::string startSession(Player& player);
    // Runs a command and writes what it says, the blocks that it showed its own player, and one prompt behind all.
    void run(Player& player, const std::string& line);
    // Writes a block that was not asked for, with line breaks and the prompt around it; keeps it while a command runs.
    void show(const std::string& text);
    // Sends the last bytes and closes the socket once they are written.
    void hangUp(const std::string& bytes);
    // Send text, or bytes as they are, in one write: whatever belongs together, its prompt included, comes in one call.
    // A client whose output piles up is dropped.
    void write(const std::string& text);
    void send(const std::string& bytes);
    // The player's prompt; empty without a session.
    std::string prompt();

    QTcpSocket* socket_;
    Hall& hall_;
    Host& host_;
    LineReader reader_;
    LoginDialog login_;
    std::deque<std::string> lines_;
    std::string unlogged_; // the bytes of a line whose end the log waits for
    std::string handle_;
    std::string blocks_; // shown since the command that runs began
    bool running_ = false;
    bool working_ = false;
    bool finished_ = false;
};

} // namespace practice
