// Tests of what the program asks of its process, each in a process of its own, as it starts: 0 to 2 may be closed.
#include "platform/OwnProcess.h"

#include "common/InChild.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>

namespace {

bool isOpen(int number) { return ::fcntl(number, F_GETFD) != -1; }

// What a parent may have left behind.
void endAtBadWrites() {
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
}

} // namespace

TEST(OwnProcess, StandardStreamsThatAreClosedAreOpenedOnNothing) {
    EXPECT_TRUE(inChild([] {
        for (const int number : {0, 1, 2}) ::close(number);
        settleProcess();
        char byte = 0;
        if (::read(0, &byte, 1) != 0) ::_exit(1);
        if (::write(1, "x", 1) != 1 || ::write(2, "x", 1) != 1) ::_exit(2);
        if (::open("/dev/null", O_RDONLY) < 3) ::_exit(3);
    }));
}

TEST(OwnProcess, OneOfThemThatIsClosedGetsItsOwnNumber) {
    for (const int closed : {0, 1, 2}) {
        EXPECT_TRUE(inChild([closed] {
            ::close(closed);
            settleProcess();
            if (!isOpen(closed)) ::_exit(1);
        })) << closed;
    }
}

TEST(OwnProcess, StandardStreamsThatAreOpenStayWhatTheyAre) {
    EXPECT_TRUE(inChild([] {
        int ends[2]{};
        if (::pipe(ends) != 0) ::_exit(1);
        ::dup2(ends[0], 0);
        ::dup2(ends[1], 2);
        const int next = ::dup(0);
        ::close(next);
        settleProcess();
        char byte = 0;
        if (::write(2, "x", 1) != 1 || ::read(0, &byte, 1) != 1 || byte != 'x') ::_exit(2);
        if (::dup(0) != next) ::_exit(3); // nothing else was opened
    }));
}

TEST(OwnProcess, AWriteThatNobodyReadsFails) {
    EXPECT_TRUE(inChild([] {
        endAtBadWrites();
        settleProcess();
        int ends[2]{};
        if (::pipe(ends) != 0 || ::close(ends[0]) != 0) ::_exit(1);
        if (::write(ends[1], "x", 1) != -1 || errno != EPIPE) ::_exit(2);
    }));
}

TEST(OwnProcess, AWriteBeyondALimitOfTheUsersFails) {
    EXPECT_TRUE(inChild([] {
        limitFiles(0);
        endAtBadWrites();
        settleProcess();
        std::FILE* const file = std::tmpfile();
        if (file == nullptr) ::_exit(1);
        if (::write(::fileno(file), "x", 1) != -1 || errno != EFBIG) ::_exit(2);
    }));
}
