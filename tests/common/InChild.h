// Tests that would harm their own process run in one of their own.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

// `act` in a process of its own; whether it came to its end. It tells a failure by ::_exit with another number than 0.
inline bool inChild(const std::function<void()>& act) {
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) {
        [&]() noexcept { act(); }(); // what it throws ends the process, which would go on as a second runner of tests
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// From now on no file of this process grows beyond `bytes`, as on a disk that is full.
inline void limitFiles(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{bytes, bytes};
    ::setrlimit(RLIMIT_FSIZE, &full);
}
