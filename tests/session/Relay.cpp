// A relay for tests, started as "timeseal.exe host port -p 6000": what reaches the local port goes on to host and port.
// RELAY_MODE: "relay" (and nothing) ends with its connection; "stays" runs until it is asked to end; "deaf" does so
// without opening its port; "stubborn" does not end when asked; "dies" ends at once. The file "relay.log" in the
// current directory gets a line for each argument, its process id, "ready" and "asked to end". No relay lives longer
// than a minute.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr unsigned LifeSeconds = 60;

int logFile = -1;
bool stubborn = false;

void note(const std::string& line) {
    const std::string text = line + "\n";
    if (::write(logFile, text.data(), text.size()) < 0) std::_Exit(2);
}

void askedToEnd(int) {
    static constexpr char Line[] = "asked to end\n";
    if (::write(logFile, Line, sizeof Line - 1) < 0 || !stubborn) std::_Exit(0);
}

sockaddr_in loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

int accepted(int port) {
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    const int on = 1;
    ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    const sockaddr_in address = loopback(port);
    if (::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) std::_Exit(3);
    if (::listen(listener, 1) != 0) std::_Exit(3);
    note("ready");
    return ::accept(listener, nullptr, nullptr);
}

int connected(int port) {
    const int server = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = loopback(port);
    if (::connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) std::_Exit(4);
    return server;
}

// False at the end of the connection.
bool pass(int from, int to) {
    char bytes[4096];
    const ssize_t count = ::read(from, bytes, sizeof bytes);
    return count > 0 && ::write(to, bytes, static_cast<std::size_t>(count)) == count;
}

void relay(int localPort, int serverPort) {
    const int client = accepted(localPort);
    const int server = connected(serverPort);
    pollfd ends[]{{client, POLLIN, 0}, {server, POLLIN, 0}};
    while (::poll(ends, 2, -1) > 0) {
        if (ends[0].revents != 0 && !pass(client, server)) return;
        if (ends[1].revents != 0 && !pass(server, client)) return;
    }
}

void stay() {
    while (true) ::pause();
}

} // namespace

int main(int argc, char** argv) {
    ::alarm(LifeSeconds);
    logFile = ::open("relay.log", O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    for (int i = 1; i < argc; ++i) note(argv[i]);
    note("process " + std::to_string(::getpid()));
    const char* given = std::getenv("RELAY_MODE");
    const std::string mode = given ? given : "relay";
    if (mode == "dies" || argc != 5) return 1;
    stubborn = mode == "stubborn";
    ::signal(SIGTERM, askedToEnd);
    ::signal(SIGPIPE, SIG_IGN);
    if (mode != "deaf") relay(std::atoi(argv[4]), std::atoi(argv[2]));
    if (mode != "relay") stay();
    return 0;
}
