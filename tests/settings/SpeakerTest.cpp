// The loudspeaker: nothing happens in the caller's time, and bursts end in their latest sound.
#include "settings/Speaker.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Loudspeaker : public testing::Test {
protected:
    Loudspeaker() {
        speaker.startWave = [this](const QString& path) { served << path; };
        speaker.startBeep = [this] { served << QStringLiteral("beep"); };
    }

    Speaker speaker;
    QStringList served;
};

} // namespace

TEST_F(Loudspeaker, ARequestIsServedByTheMessageLoopAndNotInTheCall) {
    speaker.playWave(QStringLiteral("/a.wav"));
    EXPECT_TRUE(served.isEmpty());
    QTest::qWait(10);
    EXPECT_EQ(served, QStringList{QStringLiteral("/a.wav")});
}

TEST_F(Loudspeaker, ABurstEndsInItsLatestSound) {
    for (int i = 0; i < 2000; ++i) speaker.playWave(QStringLiteral("/%1.wav").arg(i));
    QTest::qWait(60);
    EXPECT_EQ(served, QStringList{QStringLiteral("/1999.wav")});
}

TEST_F(Loudspeaker, ABurstOfBeepsIsOneBeepAndDoesNotSwallowTheWave) {
    speaker.playWave(QStringLiteral("/a.wav"));
    for (int i = 0; i < 2000; ++i) speaker.beep();
    QTest::qWait(60);
    EXPECT_EQ(served, (QStringList{QStringLiteral("/a.wav"), QStringLiteral("beep")}));
}

TEST_F(Loudspeaker, ServedSoundsAreSpacedWhenTheMessageLoopRunsBetweenRequests) {
    QElapsedTimer clock;
    clock.start();
    int requests = 0;
    while (clock.elapsed() < 200) {
        speaker.playWave(QStringLiteral("/%1.wav").arg(++requests));
        QCoreApplication::processEvents();
    }
    const auto passed = clock.elapsed();
    EXPECT_GT(requests, 20);
    EXPECT_GE(served.size(), 1);
    EXPECT_LE(served.size(), passed / Speaker::Spacing + 2);
}
