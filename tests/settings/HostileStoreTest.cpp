// What may stand where the settings file should: the program starts with what can be read, waits for nothing, and its
// next save puts things right where it can.
#include "settings/IniStore.h"

#include "common/EnvironmentVariable.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

struct HostileStore : testing::Test {
    const QTemporaryDir folder;
    const EnvironmentVariable home{"XDG_CONFIG_HOME", QFile::encodeName(folder.path())};
    const fs::path root = folder.path().toStdString();
    const fs::path path = root / "Brightrank" / "Brightrank.ini";

    HostileStore() { fs::create_directories(path.parent_path()); }

    static void put(const fs::path& file, const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }
    static std::string left() { return openIniStore().read("Client", "Left", "absent"); }
    // What the next start reads after a save of 7.
    static std::string savedLeft() {
        const SettingsStore store = openIniStore();
        store.write("Client", "Left", "7");
        store.sync();
        return left();
    }
    static unsigned mode(const fs::path& file) {
        struct stat status {};
        return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
    }
};

// No file can have more bytes while it lives; stands for a full disk.
struct FullDisk {
    rlimit before{};
    void (*heard)(int) = std::signal(SIGXFSZ, SIG_IGN);

    explicit FullDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit little{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &little);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, heard);
    }
};

} // namespace

// Short texts wait in a buffer until the file is closed, long ones are written at once.
TEST_F(HostileStore, OnAFullDiskASaveLeavesTheFileAsItWasAndKeepsItsWrites) {
    for (const std::size_t length : {std::size_t{30}, std::size_t{30'000}}) {
        const std::string before = "[Client]\nLeft=5\nHandle=" + std::string(length, 'x') + "\n";
        put(path, before);
        const SettingsStore store = openIniStore();
        store.write("Client", "Left", "7");
        for (const rlim_t room : {rlim_t{0}, rlim_t{10}, rlim_t{length - 1}}) {
            {
                const FullDisk disk(room);
                store.sync();
            }
            EXPECT_EQ(fs::file_size(path), before.size()) << room;
            EXPECT_EQ(left(), "5") << room;
        }
        store.sync();
        EXPECT_EQ(left(), "7");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(path.parent_path()), {}), 1) << "nothing else is left there";
}

TEST_F(HostileStore, APipeIsNotWaitedForAndASavePutsAFileInItsPlace) {
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(left(), "absent");
    EXPECT_EQ(savedLeft(), "7");
    EXPECT_TRUE(fs::is_regular_file(path));
}

TEST_F(HostileStore, ALinkToAFileIsFollowedAndStaysALink) {
    const fs::path target = root / "elsewhere.ini";
    put(target, "[Client]\nLeft=5\n");
    fs::create_symlink(target, path);
    EXPECT_EQ(left(), "5");
    EXPECT_EQ(savedLeft(), "7");
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(mode(target), 0600U) << "the password is there now";
}

TEST_F(HostileStore, ALinkToNowhereIsAnEmptyStoreAndASaveMakesWhatItNames) {
    fs::create_symlink(root / "elsewhere.ini", path);
    EXPECT_EQ(left(), "absent");
    EXPECT_EQ(savedLeft(), "7");
    EXPECT_EQ(mode(root / "elsewhere.ini"), 0600U);
}

TEST_F(HostileStore, ALinkToItselfIsAnEmptyStoreAndASavePutsAFileInItsPlace) {
    fs::create_symlink(path, path);
    EXPECT_EQ(left(), "absent");
    EXPECT_EQ(savedLeft(), "7");
}

// A pipe stands for any device here: a test must not put those of the machine at risk.
TEST_F(HostileStore, WhatALinkLeadsToIsNotReplacedUnlessItIsAFile) {
    const fs::path pipe = root / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink(pipe, path);
    EXPECT_EQ(left(), "absent");
    EXPECT_EQ(savedLeft(), "absent") << "the writes are kept for the next save";
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(HostileStore, OfAHundredMegabytesTheFrontIsReadAndSavedAgain) {
    put(path, "[Client]\nLeft=5\nHandle=" + std::string(1000, 'x') + "\n" + std::string(100'000'000, '\n'));
    EXPECT_EQ(left(), "5");
    EXPECT_EQ(savedLeft(), "7");
    EXPECT_EQ(openIniStore().read("Client", "Handle", "").size(), 1000U);
    EXPECT_LT(fs::file_size(path), 10'000U);
}

TEST_F(HostileStore, OfAHundredMegabytesOfKeysTheFrontIsReadToo) {
    const std::string value(1000, 'v');
    std::string keys = "[Client]\nLeft=5\n";
    for (int number = 0; keys.size() < 100'000'000; ++number)
        keys += "Key_" + std::to_string(number) + "=" + value + "\n";
    put(path, keys);
    const SettingsStore store = openIniStore();
    EXPECT_EQ(store.read("Client", "Left", ""), "5");
    EXPECT_EQ(store.read("Client", "Key_1000", ""), value);
    EXPECT_EQ(store.read("Client", "Key_90000", "absent"), "absent");
}

TEST_F(HostileStore, OneThatMayNotBeReadIsAnEmptyStore) {
    if (::geteuid() == 0) GTEST_SKIP() << "an administrator may read everything";
    put(path, "[Client]\nLeft=5\n");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    EXPECT_EQ(left(), "absent");
}

TEST_F(HostileStore, APipeInPlaceOfItsLockIsNotWaitedFor) {
    const std::string lock = path.string() + ".lock";
    ASSERT_EQ(::mkfifo(lock.c_str(), 0600), 0);
    EXPECT_EQ(savedLeft(), "7");
}

TEST_F(HostileStore, AFolderThatCannotBeMadeIsAnEmptyStoreThatKeepsItsWrites) {
    fs::remove(path.parent_path());
    put(path.parent_path(), "a file where the folder should be");
    const SettingsStore store = openIniStore();
    store.write("Client", "Left", "7");
    store.sync();
    EXPECT_EQ(store.read("Client", "Left", ""), "7");
}

TEST_F(HostileStore, ARelativeNameOfTheSettingsFolderDoesNotLeadToTheFolderStartedIn) {
    const EnvironmentVariable homeFolder("HOME", QFile::encodeName(folder.path() + QStringLiteral("/home")));
    const QString inHome = folder.path() + QStringLiteral("/home/.config/Brightrank/Brightrank.ini");
    for (const char* name : {"config", "./config", "../config", ":/config", "", static_cast<const char*>(nullptr)}) {
        const EnvironmentVariable config("XDG_CONFIG_HOME", name);
        EXPECT_EQ(iniPath(QStringLiteral("Brightrank")), inHome) << (name ? name : "(not set)");
    }
}

TEST_F(HostileStore, CharactersThatLatin1DoesNotHoldAndMarksThatTurnTextAroundBecomeQuestionMarks) {
    put(path, "[Client]\nTell_0=a\xE2\x80\xAE"
              "b\xE2\x80\x8B"
              "c\xEF\xBB\xBF"
              "d\xE2\x99\x94\n");
    EXPECT_EQ(openIniStore().read("Client", "Tell_0", ""), "a?b?c?d?");
}
