// Waiting with the message loop running.
#include "platform/MessageLoop.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

#include <limits>

TEST(MessageLoop, PumpRunsWhatIsPendingAndReturns) {
    bool ran = false;
    QTimer::singleShot(0, [&] { ran = true; });
    pumpMessages();
    EXPECT_TRUE(ran);
    pumpMessages();
}

TEST(MessageLoop, ZWaitLetsEventsRunUntilTheTimeHasPassed) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(10);
    QElapsedTimer time;
    time.start();
    zWait(0.2);
    EXPECT_GE(time.elapsed(), 200);
    EXPECT_GE(ticks, 2);
}

TEST(MessageLoop, ZWaitOfNoTimePumpsOnce) {
    for (const double seconds : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        bool ran = false;
        QTimer::singleShot(0, [&] { ran = true; });
        zWait(seconds);
        EXPECT_TRUE(ran);
    }
}

TEST(MessageLoop, AWaitWithinAWaitDoesNotHangTheOuterOne) {
    QElapsedTimer time;
    time.start();
    QTimer::singleShot(10, [] { zWait(0.15); });
    zWait(0.1);
    EXPECT_GE(time.elapsed(), 150);
}
