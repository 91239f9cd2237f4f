// The player of wave files: only what is a sound is read, no server is silence, and one that does not answer holds up
// nobody.
#include "settings/WavePlayer.h"

#include "common/EnvironmentVariable.h"
#include "settings/Sounds.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <system_error>
#include <thread>

#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// The surroundings of a program whose sound server, if any, is the one in a folder of the test's own.
class OwnServerFolder {
public:
    QTemporaryDir folder;

private:
    EnvironmentVariable server_{"PULSE_SERVER", nullptr};
    EnvironmentVariable runtime_{"PULSE_RUNTIME_PATH", QFile::encodeName(folder.path())};
};

// Listens where a sound server does, and says nothing.
class SilentServer {
public:
    explicit SilentServer(const QTemporaryDir& folder) : SilentServer(folder.path()) {}
    explicit SilentServer(const QString& folder) {
        EXPECT_TRUE(QDir().mkpath(folder));
        const QByteArray path = QFile::encodeName(folder + QStringLiteral("/native"));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), address.sun_path);
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(socket_, 10), 0);
    }
    ~SilentServer() { ::close(socket_); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    // The bytes with which the next client begins, once there are some; empty when it goes without a word. It is kept
    // waiting for as long as the test's process lives.
    QByteArray nextClient() {
        const int client = ::accept(socket_, nullptr, nullptr);
        pollfd readable{client, POLLIN, 0};
        ::poll(&readable, 1, 10000);
        QByteArray bytes(1000, '\0');
        bytes.resize(std::max<qsizetype>(0, ::recv(client, bytes.data(), 1000, MSG_DONTWAIT)));
        return bytes;
    }

private:
    int socket_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

qsizetype entriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

// By their numbers: one that another test left behind may end at any time, so a count would not do.
QSet<QString> threads() {
    const QStringList numbers =
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    return {numbers.begin(), numbers.end()};
}

// Whether the thread of a player ends with it that was given a sound and then some time for it.
bool threadEnds(int milliseconds) {
    const QSet<QString> before = threads();
    {
        WavePlayer player;
        player.play(waveFile("move.wav"));
        QTest::qWait(milliseconds);
    }
    // The system lists one that ended a moment longer.
    return QTest::qWaitFor([&before] { return before.contains(threads()); });
}

// For its time no thread can be started: each would get a stack for which no machine has room.
class NoThreads {
public:
    NoThreads() {
        pthread_getattr_default_np(&before_);
        pthread_attr_t vast;
        pthread_attr_init(&vast);
        EXPECT_EQ(pthread_attr_setstacksize(&vast, std::size_t{1} << 47U), 0);
        EXPECT_EQ(pthread_setattr_default_np(&vast), 0);
        pthread_attr_destroy(&vast);
    }
    ~NoThreads() {
        pthread_setattr_default_np(&before_);
        pthread_attr_destroy(&before_);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t before_;
};

} // namespace

TEST(FileOfASound, IsReadWhole) {
    QFile file(waveFile("move.wav"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_GT(file.size(), 44);
    EXPECT_EQ(fileBytes(file.fileName()), file.readAll());
}

TEST(FileOfASound, OneOfFourGigabytesIsNotRead) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("move.wav"));
    ASSERT_TRUE(QFile::copy(waveFile("move.wav"), path));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_FALSE(fileBytes(path).isEmpty());
    ASSERT_TRUE(QFile::resize(path, qint64{4} * 1024 * 1024 * 1024)); // takes no room on the disk
    EXPECT_TRUE(fileBytes(path).isEmpty());
    ASSERT_TRUE(QFile::resize(path, 0));
    EXPECT_TRUE(fileBytes(path).isEmpty());
}

TEST(FileOfASound, AFolderAPipeALinkToItselfAndNoFileAreNotWaitedFor) {
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("pipe.wav")));
    ASSERT_EQ(::mkfifo(path.constData(), 0600), 0);
    EXPECT_TRUE(fileBytes(QFile::decodeName(path)).isEmpty());
    const QString loop = folder.filePath(QStringLiteral("loop.wav"));
    ASSERT_TRUE(QFile::link(loop, loop));
    EXPECT_TRUE(fileBytes(loop).isEmpty());
    EXPECT_TRUE(fileBytes(folder.path()).isEmpty());
    EXPECT_TRUE(fileBytes(QStringLiteral("/dev/zero")).isEmpty());
    EXPECT_TRUE(fileBytes(folder.filePath(QStringLiteral("gone.wav"))).isEmpty());
}

TEST(LookForASoundServer, FindsTheOneThatTheSurroundingsName) {
    const OwnServerFolder surroundings;
    const QString path = surroundings.folder.path();
    EXPECT_EQ(soundServer(), "");
    {
        const SilentServer server(surroundings.folder);
        EXPECT_EQ(soundServer(), "unix:" + QFile::encodeName(path) + "/native");
    }
    EXPECT_EQ(soundServer(), "") << "nobody listens at what it left";
    const EnvironmentVariable named("PULSE_SERVER", "tcp:127.0.0.1:9");
    EXPECT_EQ(soundServer(), "tcp:127.0.0.1:9");
}

TEST(LookForASoundServer, FindsTheOneOfTheDesktop) {
    const OwnServerFolder surroundings;
    const EnvironmentVariable own("PULSE_RUNTIME_PATH", nullptr);
    const QTemporaryDir desktop;
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", QFile::encodeName(desktop.path()));
    EXPECT_EQ(soundServer(), "");
    const SilentServer server(desktop.filePath(QStringLiteral("pulse")));
    EXPECT_EQ(soundServer(), "unix:" + QFile::encodeName(desktop.path()) + "/pulse/native");
}

TEST(LookForASoundServer, LeavesNothingOpenAndWaitsForNoServerThatIsBusy) {
    const OwnServerFolder surroundings;
    const SilentServer server(surroundings.folder);
    const qsizetype open = entriesOf(QStringLiteral("/proc/self/fd"));
    for (int i = 0; i < 100; ++i) soundServer();
    EXPECT_EQ(entriesOf(QStringLiteral("/proc/self/fd")), open);
    EXPECT_EQ(soundServer(), "") << "nobody takes the clients in, and no more may wait";
}

TEST(WavePlayer, WithoutAServerPlaysNothingAndPrintsNothing) {
    const OwnServerFolder surroundings;
    EXPECT_EQ(soundServer(), "");
    testing::internal::CaptureStderr();
    EXPECT_TRUE(threadEnds(60)) << "nothing holds it up";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(WavePlayer, WhatIsNoSoundIsNotTakenToTheServer) {
    const OwnServerFolder surroundings;
    SilentServer server(surroundings.folder);
    WavePlayer player;
    const QString text = surroundings.folder.filePath(QStringLiteral("text.wav"));
    ASSERT_TRUE(QFile::copy(QStringLiteral("/proc/self/status"), text));
    for (const QString& path : {surroundings.folder.path(), text}) {
        player.play(path);
        QTest::qWait(60);
    }
    player.play(waveFile("move.wav"));
    EXPECT_EQ(server.nextClient(), "") << "a look whether somebody listens, for the last alone";
    EXPECT_NE(server.nextClient(), "");
}

TEST(WavePlayer, AServerThatIsNamedAndNotThereIsSilence) {
    const EnvironmentVariable named("PULSE_SERVER", "tcp:127.0.0.1:9");
    EXPECT_TRUE(threadEnds(200)) << "it was refused at once";
}

TEST(WavePlayer, WithoutAThreadToBeHadIsSilentAndAsksAgain) {
    const OwnServerFolder surroundings;
    SilentServer server(surroundings.folder);
    WavePlayer player;
    {
        const NoThreads none;
        ASSERT_THROW(std::thread([] {}).join(), std::system_error);
        player.play(waveFile("move.wav"));
    }
    player.play(waveFile("move.wav"));
    EXPECT_EQ(server.nextClient(), "");
    EXPECT_NE(server.nextClient(), "") << "it asks for a stream";
}

TEST(WavePlayer, AServerThatDoesNotAnswerHoldsUpNeitherTheCallerNorTheEnd) {
    const OwnServerFolder surroundings;
    SilentServer server(surroundings.folder);
    const QSet<QString> before = threads();
    QSet<QString> own;
    {
        WavePlayer player;
        player.play(waveFile("move.wav"));
        EXPECT_EQ(server.nextClient(), "") << "a look whether somebody listens";
        EXPECT_NE(server.nextClient(), "") << "it asks for a stream, and waits";
        own = threads() - before;
        for (int i = 0; i < 1000; ++i) player.play(waveFile("capture.wav"));
        EXPECT_TRUE((before + own).contains(threads()));
    }
    EXPECT_FALSE(own.isEmpty());
    EXPECT_TRUE(threads().contains(own)) << "it waits still";
}
