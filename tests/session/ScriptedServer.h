// A chess server on the loopback interface that says what a test tells it to, in packets of the test's choice.
#pragma once

#include <QTcpServer>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class QTcpSocket;

// How a script is cut into packets. `UpToAPause` sends all at once up to the next place where a server waits for its
// client: behind "login: " and "password: ". The others pause there too.
enum class Packets { OneByte, SevenBytes, OneLine, UpToAPause };

// The packets of `script` in order; together they are the script.
std::vector<std::string_view> packetsOf(std::string_view script, Packets packets);

// Takes one client at a time. Runs on the test's own message loop: what it received is up to date after each pump.
class ScriptedServer {
public:
    // Listens on a free port of 127.0.0.1.
    ScriptedServer();
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    std::uint16_t port() const { return listener_.serverPort(); }
    bool hasClient() const { return client_ != nullptr; }

    // One packet: all bytes are with the system on return, unless the client has stopped reading.
    void send(std::string_view bytes);
    // Hands over bytes that may be more than the client takes now; the message loop sends the rest.
    void sendLater(std::string_view bytes);
    // Bytes that `sendLater` has left.
    std::int64_t unsent() const;

    // Ends the connection: in order, or at once with what is under way thrown away.
    void hangUp();
    void cutOff();
    // No client is taken any more; connecting is refused.
    void refuse() { listener_.close(); }

    // All bytes that clients have sent, and the same as lines without their LF; an unfinished line is the last.
    std::string received;
    std::vector<std::string> commands() const;

private:
    void takeClient();

    QTcpServer listener_;
    QTcpSocket* client_ = nullptr;
};
