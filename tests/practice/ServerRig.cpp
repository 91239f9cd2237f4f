// The built server as a process, and clients at its socket.
#include "practice/ServerRig.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace {

constexpr int patience = 40'000; // milliseconds; a machine at work keeps the deepest searches waiting

std::int64_t milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

[[noreturn]] void runServer(const std::vector<std::string>& arguments, int output) {
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    std::vector<std::string> all{PRACTICE_SERVER};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& argument : all) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execv(PRACTICE_SERVER, pointers.data());
    std::_Exit(127);
}

// Reads until the line with the port, or the end.
std::string readStart(int from) {
    std::string text;
    char byte = 0;
    while (read(from, &byte, 1) == 1) {
        text += byte;
        if (byte == '\n' && text.find("listening on 127.0.0.1:") != std::string::npos) break;
    }
    return text;
}

} // namespace

TestClient::TestClient(int port, int receiveBuffer) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    if (receiveBuffer > 0) setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
}

TestClient::~TestClient() { close(socket_); }

void TestClient::send(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) return;
        sent += static_cast<std::size_t>(count);
    }
}

bool TestClient::receive(int wait) {
    pollfd entry{socket_, POLLIN, 0};
    if (closed_ || poll(&entry, 1, wait) <= 0) return false;
    char buffer[65536];
    const auto count = recv(socket_, buffer, sizeof buffer, 0);
    closed_ = count <= 0;
    if (count > 0) packets_.emplace_back(buffer, static_cast<std::size_t>(count));
    if (count > 0) text_ += packets_.back();
    return count > 0;
}

std::string TestClient::until(const std::string& text) {
    const auto end = milliseconds() + patience;
    auto at = text_.find(text);
    while (at == std::string::npos && !closed_ && milliseconds() < end) {
        receive(500);
        at = text_.find(text);
    }
    if (at == std::string::npos) {
        ADD_FAILURE() << "no \"" << text << "\" in: " << text_;
        return {};
    }
    const std::string found = text_.substr(0, at + text.size());
    text_.erase(0, at + text.size());
    return found;
}

std::string TestClient::ask(const std::string& text) {
    line(text);
    return until("fics% ");
}

std::string TestClient::rest(bool& closed) {
    const auto end = milliseconds() + patience;
    while (!closed_ && milliseconds() < end) receive(500);
    closed = closed_;
    return text_;
}

std::string TestClient::enterAsGuest(const std::string& name) {
    until("login: ");
    line(name);
    until("enter the server as \"");
    std::string handle = until("\"");
    handle.pop_back();
    line("");
    until("**** Starting FICS session as " + handle + "(U) ****");
    until("fics% ");
    return handle;
}

void TestClient::enterRegistered(const std::string& name) {
    until("login: ");
    line(name);
    until("password: ");
    line("practice");
    until("**** Starting FICS session as " + name + " ****");
    until("fics% ");
}

TestServer::TestServer(const std::vector<std::string>& arguments) {
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    pid_ = fork();
    if (pid_ == 0) runServer(arguments, ends[1]);
    close(ends[1]);
    output_ = readStart(ends[0]);
    close(ends[0]);
    const std::string mark = "listening on 127.0.0.1:";
    if (const auto at = output_.find(mark); at != std::string::npos)
        port_ = std::atoi(output_.c_str() + at + mark.size());
}

TestServer::~TestServer() {
    if (pid_ < 0) return;
    kill(pid_, SIGTERM);
    EXPECT_EQ(wait(), 0);
}

int TestServer::wait() {
    const auto end = milliseconds() + patience;
    int status = 0;
    while (waitpid(pid_, &status, WNOHANG) == 0) {
        if (milliseconds() > end) {
            kill(pid_, SIGKILL);
            waitpid(pid_, &status, 0);
            pid_ = -1;
            return -2;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
