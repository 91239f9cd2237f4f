// The system's own watch over a connection: it finds out that the other end can no longer be reached.
#include "platform/LineWatch.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

namespace {

constexpr int IdleSeconds = 30;
constexpr int KnockSeconds = 10;
constexpr int Knocks = 3;
constexpr unsigned UnacknowledgedMs = 60000;

// A system that refuses keeps its own times.
template <typename Value>
void setOption(int descriptor, int level, int option, Value value) {
    ::setsockopt(descriptor, level, option, &value, sizeof value);
}

} // namespace

void watchLine(int descriptor) {
    setOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, IdleSeconds);
    setOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, KnockSeconds);
    setOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, Knocks);
#ifdef TCP_USER_TIMEOUT
    setOption(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT, UnacknowledgedMs);
#endif
}

// An end of the other side's sending alone is no hang-up.
bool lineIsDead(int descriptor) {
    pollfd line{descriptor, 0, 0};
    return ::poll(&line, 1, 0) > 0 && (line.revents & (POLLERR | POLLHUP)) != 0;
}
