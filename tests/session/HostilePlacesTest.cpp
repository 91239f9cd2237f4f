// The built program in hostile surroundings: it starts and ends as ever, whatever stands where its files should.
#include "TestPaths.h"
#include "platform/WaitUntil.h"
#include "session/RunningProgram.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// What the program looks for in the folder that it starts in, and where it would write there.
const std::vector<const char*> LookedFor{"timeseal.exe", "Brightrank.hlp", "peistenam.def", "Chessclient.def",
                                         "fitebell.wav", "capture.wav",    "castle.wav",    "move.wav",
                                         "whistle.wav",  "send.wav",       "regdump.txt"};

struct HostilePlaces : testing::Test {
    RunningProgram program;
    const fs::path start = program.process.workingDirectory().toStdString();

    // Connects, shows a line and ends in order.
    void expectLife() {
        ASSERT_TRUE(program.start());
        program.server.send("\n\rlogin: ");
        EXPECT_TRUE(waitUntil([this] { return !program.server.commands().empty(); }, 15000)) << "it answers";
        program.signal(SIGTERM);
        ASSERT_TRUE(program.ended());
        EXPECT_EQ(program.process.exitCode(), 0);
        EXPECT_NE(program.settingsText().find("Registry_OK=Yes"), std::string::npos) << "its settings are saved";
    }
    // The program runs with the argument "test", its caches in `cache`; where it is then.
    fs::path testFolder(const fs::path& cache) {
        QProcessEnvironment surroundings = program.process.processEnvironment();
        surroundings.insert(QStringLiteral("XDG_CACHE_HOME"), QString::fromStdString(cache.string()));
        program.process.setProcessEnvironment(surroundings);
        program.process.start(QStringLiteral(BRIGHTRANK_PROGRAM), {QStringLiteral("test")});
        EXPECT_TRUE(waitUntil([this] { return program.server.hasClient(); }, 15000));
        return fs::read_symlink("/proc/" + std::to_string(program.process.processId()) + "/cwd");
    }
};

} // namespace

TEST_F(HostilePlaces, AStartFolderFullOfFoldersIsAsGoodAsAnEmptyOne) {
    for (const char* name : LookedFor) fs::create_directory(start / name);
    expectLife();
}

TEST_F(HostilePlaces, AStartFolderFullOfPipesIsAsGoodAsAnEmptyOne) {
    for (const char* name : LookedFor) ASSERT_EQ(::mkfifo((start / name).c_str(), 0777), 0);
    expectLife();
}

TEST_F(HostilePlaces, AStartFolderFullOfLinksToThemselvesIsAsGoodAsAnEmptyOne) {
    for (const char* name : LookedFor) fs::create_symlink(start / name, start / name);
    expectLife();
}

TEST_F(HostilePlaces, WithoutTheRightToWriteThereItStartsAndEnds) {
    fs::permissions(start, fs::perms(0555));
    expectLife();
    fs::permissions(start, fs::perms(0755));
}

TEST_F(HostilePlaces, WithoutStandardInputOutputAndErrorItStartsAndEnds) {
    program.process.setChildProcessModifier([] {
        for (const int number : {0, 1, 2}) ::close(number);
    });
    expectLife();
}

TEST_F(HostilePlaces, WhatItSaysMayBeReadByNobody) {
    program.process.setChildProcessModifier([] {
        int ends[2];
        if (::pipe(ends) == 0 && ::dup2(ends[1], 2) == 2 && ::close(ends[0]) == 0) ::close(ends[1]);
    });
    expectLife();
}

// A limit of the user's stands for a full disk here.
TEST_F(HostilePlaces, WhereNoFileMayGrowItStartsAndEndsWithTheSettingsAsTheyWere) {
    program.process.setChildProcessModifier([] {
        constexpr rlimit Nothing{10, 10}; // bytes
        ::setrlimit(RLIMIT_FSIZE, &Nothing);
    });
    const std::string before = program.settingsText();
    expectLife();
    EXPECT_EQ(program.settingsText(), before);
}

TEST_F(HostilePlaces, APipeInPlaceOfTheSettingsDoesNotKeepItFromStarting) {
    fs::remove(program.settingsPath());
    ASSERT_EQ(::mkfifo(program.settingsPath().c_str(), 0600), 0);
    program.process.start(QStringLiteral(BRIGHTRANK_PROGRAM), QStringList());
    ASSERT_TRUE(program.process.waitForStarted());
    runFor(1500); // its signals are not taken before it is up
    program.signal(SIGTERM);
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(program.process.exitCode(), 0);
    EXPECT_TRUE(fs::is_regular_file(program.settingsPath()));
}

TEST_F(HostilePlaces, TheArgumentTestLeadsToAFolderOfTheUsersOwn) {
    const fs::path cache = start / "cache";
    const fs::path there = testFolder(cache);
    EXPECT_EQ(there, fs::canonical(cache) / "Brightrank" / "test");
    EXPECT_EQ(fs::status(cache / "Brightrank" / "test").permissions(), fs::perms(0700));
}

TEST_F(HostilePlaces, ARelativeNameOfTheCachesLeadsToTheOnesInTheHomeFolder) {
    QProcessEnvironment surroundings = program.process.processEnvironment();
    surroundings.insert(QStringLiteral("HOME"), QString::fromStdString(start.string()) + QStringLiteral("/home"));
    program.process.setProcessEnvironment(surroundings);
    EXPECT_EQ(testFolder("cache"), fs::canonical(start) / "home" / ".cache" / "Brightrank" / "test");
}

TEST_F(HostilePlaces, WhereThatFolderCannotBeMadeItStaysWhereItStarted) {
    const fs::path cache = start / "cache";
    std::ofstream(cache) << "a file is in the way";
    EXPECT_EQ(testFolder(cache), fs::canonical(start));
}
