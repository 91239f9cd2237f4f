// The loudspeaker: nothing happens in the caller's time, bursts end in their latest sound, and no device is silence.
#include "settings/Speaker.h"

#include "EnvironmentVariable.h"
#include "settings/Sounds.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/stat.h>

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

TEST(PlayableFile, OnesOwnSoundsAreSuch) { EXPECT_TRUE(isPlayable(waveFile("move.wav"))); }

TEST(PlayableFile, OneOfFourGigabytesIsNotRead) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("move.wav"));
    ASSERT_TRUE(QFile::copy(waveFile("move.wav"), path));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_TRUE(isPlayable(path));
    ASSERT_TRUE(QFile::resize(path, qint64{4} * 1024 * 1024 * 1024)); // takes no room on the disk
    EXPECT_FALSE(isPlayable(path));
    ASSERT_TRUE(QFile::resize(path, 0));
    EXPECT_FALSE(isPlayable(path));
}

TEST(PlayableFile, AFolderAPipeALinkToItselfAndNoFileAreNotWaitedFor) {
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("pipe.wav")));
    ASSERT_EQ(::mkfifo(path.constData(), 0600), 0);
    EXPECT_FALSE(isPlayable(QFile::decodeName(path)));
    const QString loop = folder.filePath(QStringLiteral("loop.wav"));
    ASSERT_TRUE(QFile::link(loop, loop));
    EXPECT_FALSE(isPlayable(loop));
    EXPECT_FALSE(isPlayable(folder.path()));
    EXPECT_FALSE(isPlayable(QStringLiteral("/dev/zero")));
    EXPECT_FALSE(isPlayable(folder.filePath(QStringLiteral("gone.wav"))));
}

TEST(SpeakerWithoutServer, PlaysNothingAndPrintsNothing) {
    const QTemporaryDir empty;
    const EnvironmentVariable server("PULSE_SERVER", {});
    const EnvironmentVariable folder("PULSE_RUNTIME_PATH", {});
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", empty.path().toLocal8Bit());
    EXPECT_FALSE(soundServerAnswers());
    testing::internal::CaptureStderr();
    Speaker speaker;
    speaker.playWave(QStringLiteral("/a.wav"));
    QTest::qWait(60);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
