// Signals and the end of the session end the program in the orderly way.
#include "platform/EndRequests.h"

#include "WaitUntil.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

TEST(EndRequests, SigTermAndSigIntCallFromTheMessageLoop) {
    for (const int number : {SIGTERM, SIGINT}) {
        int calls = 0;
        const EndRequests requests([&] { ++calls; });
        ASSERT_EQ(std::raise(number), 0);
        EXPECT_EQ(calls, 0) << "not from within the signal handler";
        EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
        runFor(20);
        EXPECT_EQ(calls, 1);
    }
}

TEST(EndRequests, ARequestDuringTheOrderlyEndIsIgnored) {
    int calls = 0;
    EndRequests* self = nullptr;
    EndRequests requests([&] {
        ++calls;
        self->requestEnd();
    });
    self = &requests;
    requests.requestEnd();
    EXPECT_EQ(calls, 1);
    requests.requestEnd();
    EXPECT_EQ(calls, 2) << "an end that was refused can be asked for again";
}

TEST(EndRequests, SignalsGoBackToTheSystemAfterwards) {
    {
        const EndRequests requests([] {});
    }
    struct sigaction action {};
    ASSERT_EQ(::sigaction(SIGTERM, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
}

TEST(EndRequests, BehindAFaultASignalEndsTheProcessAtOnceWithStatus1AndSavesNothing) {
    const auto faultThenSignal = [] {
        EndRequests requests([] { std::_Exit(0); });
        requests.endAtOnce();
        requests.requestEnd(); // the end of the session
        std::raise(SIGTERM);
        runFor(1000);
    };
    EXPECT_EXIT(faultThenSignal(), testing::ExitedWithCode(1), "");
}
