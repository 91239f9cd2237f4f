// What the program asks of the process that it runs in, whoever started it.
#include "platform/OwnProcess.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

void settleProcess() {
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
        if (::fcntl(number, F_GETFD) == -1) ::open("/dev/null", O_RDWR); // gets the lowest number that is free
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}
