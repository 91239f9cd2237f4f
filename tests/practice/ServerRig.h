// The built server as a process, and clients at its socket.
#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

// One TCP connection that keeps all it received. A wait that takes longer than 20 seconds fails.
class TestClient {
public:
    // `receiveBuffer` keeps the system from holding more bytes than that for a client that does not read; 0 leaves it.
    explicit TestClient(int port, int receiveBuffer = 0);
    ~TestClient();
    TestClient(const TestClient&) = delete;
    TestClient& operator=(const TestClient&) = delete;

    // Sends bytes as they are; `line` adds a line end.
    void send(const std::string& bytes);
    void line(const std::string& text) { send(text + "\n"); }

    // Waits until `text` was received behind what earlier waits took, and gives everything up to its end.
    std::string until(const std::string& text);

    // Sends a line and gives what comes up to the next prompt.
    std::string ask(const std::string& text);

    // Waits for the server to close, and gives what was left; false in `closed` if it did not.
    std::string rest(bool& closed);

    // The pieces in which what it got arrived so far; forgotten by the call.
    std::vector<std::string> takePackets() { return std::exchange(packets_, {}); }

    // Logs on as a guest of this name, or of a name that the server gives; returns the handle.
    std::string enterAsGuest(const std::string& name = "guest");

    // Logs on as one of the built-in registered users.
    void enterRegistered(const std::string& name);

private:
    bool receive(int milliseconds);

    int socket_ = -1;
    bool closed_ = false;
    std::string text_;
    std::vector<std::string> packets_;
};

// Starts the server with arguments behind the usual ones; it is ended by SIGTERM unless it ended before.
class TestServer {
public:
    explicit TestServer(const std::vector<std::string>& arguments = {"--move-delay", "200", "--seed", "5", "--ad-pace",
                                                                     "0"});
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    // The port of its first line; 0 if it printed none.
    int port() const { return port_; }

    // Its process.
    pid_t pid() const { return pid_; }

    // What it has printed before it listened or ended.
    const std::string& output() const { return output_; }

    // Waits for its end and gives the exit status; -1 for an end by a signal and -2 after 20 seconds.
    int wait();

private:
    pid_t pid_ = -1;
    int port_ = 0;
    std::string output_;
};
