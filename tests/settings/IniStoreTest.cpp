// The settings store on disk: place, mode, content, and what happens when saving is cut short.
#include "settings/IniStore.h"

#include "common/EnvironmentVariable.h"
#include "common/InChild.h"
#include "settings/IniText.h"
#include "settings/Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class IniStore : public testing::Test {
protected:
    QString path() const { return folder.path() + QStringLiteral("/Brightrank/Brightrank.ini"); }

    void put(const QByteArray& bytes, mode_t mode = 0600) const {
        QDir().mkpath(QFileInfo(path()).path());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), mode), 0);
    }

    QByteArray content() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    unsigned mode() const {
        struct stat status {};
        return ::stat(QFile::encodeName(path()).constData(), &status) == 0 ? status.st_mode & 0777U : 0;
    }

    // Writes twenty keys that all hold `text` and makes them durable.
    static void saveAll(const SettingsStore& store, const std::string& text) {
        for (int i = 0; i < 20; ++i) store.write("Client", "Key_" + std::to_string(i), text);
        store.sync();
    }

    // True when the file holds the twenty keys, all with the same text.
    bool whole() const {
        const IniText text(content().toStdString());
        const std::string* first = text.find("Client", "Key_0");
        for (int i = 0; i < 20; ++i) {
            const std::string* found = text.find("Client", "Key_" + std::to_string(i));
            if (!first || !found || *found != *first || found->size() < 2000) return false;
        }
        return true;
    }

    const QTemporaryDir folder;
    const EnvironmentVariable home{"XDG_CONFIG_HOME", QFile::encodeName(folder.path())};
};

} // namespace

TEST_F(IniStore, StandsInTheUsersConfigurationFolderAsSectionsAndKeys) {
    const SettingsStore store = openIniStore();
    store.write("Client", "Registry_OK", "Yes");
    store.sync();
    EXPECT_EQ(content(), "[Client]\nRegistry_OK=Yes\n");
}

TEST_F(IniStore, AFolderOfItsOwnComesBeforeTheUsersIfItsPathIsWhole) {
    const QString usual = iniPath(QStringLiteral("A"));
    for (const char* place : {"/somewhere/else", "somewhere", ""}) {
        const EnvironmentVariable own{"BRIGHTRANK_CONFIG_HOME", place};
        const bool whole = place[0] == '/';
        EXPECT_EQ(iniPath(QStringLiteral("A")), whole ? QStringLiteral("/somewhere/else/Brightrank/A.ini") : usual);
    }
}

TEST_F(IniStore, AnAbsentKeyGivesTheDefaultAndAnEmptyTextDoesNot) {
    const SettingsStore store = openIniStore();
    EXPECT_EQ(store.read("Client", "Left", "0"), "0");
    store.write("Client", "Left", "");
    EXPECT_EQ(store.read("Client", "Left", "0"), "");
    store.sync();
    EXPECT_EQ(openIniStore().read("Client", "Left", "0"), "");
}

TEST_F(IniStore, NothingIsWrittenBeforeSync) {
    const SettingsStore store = openIniStore();
    store.write("Client", "Left", "1");
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(IniStore, EveryByteSurvivesTheDisk) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    const SettingsStore store = openIniStore();
    store.write("Client", "Password", all);
    store.write("Client", "Handle", "a,\"b\"\\c@d%20\r\n");
    store.sync();
    EXPECT_EQ(openIniStore().read("Client", "Password", ""), all);
    EXPECT_EQ(openIniStore().read("Client", "Handle", ""), "a,\"b\"\\c@d%20\r\n");
}

TEST_F(IniStore, IsCreatedForItsOwnerAlone) {
    const mode_t before = ::umask(0);
    const SettingsStore store = openIniStore();
    store.write("Client", "Password", "secret");
    store.sync();
    ::umask(before);
    EXPECT_EQ(mode(), 0600U);
}

TEST_F(IniStore, AWiderModeIsNarrowedWhenTheStoreIsOpened) {
    put("[Client]\nPassword=secret\n", 0664);
    const SettingsStore store = openIniStore();
    EXPECT_EQ(mode(), 0600U);
    EXPECT_EQ(store.read("Client", "Password", ""), "secret");
}

TEST_F(IniStore, AModeWidenedDuringTheRunIsNarrowedBySaving) {
    put("[Client]\nPassword=secret\n");
    const SettingsStore store = openIniStore();
    ::chmod(QFile::encodeName(path()).constData(), 0644);
    store.write("Client", "Left", "1");
    store.sync();
    EXPECT_EQ(mode(), 0600U);
}

TEST_F(IniStore, ASecondClientKeepsWhatTheFirstWroteUnderOtherKeys) {
    const SettingsStore first = openIniStore();
    const SettingsStore second = openIniStore();
    first.write("Seek", "Left", "1");
    first.sync();
    second.write("Chat", "Left", "2");
    second.sync();
    EXPECT_EQ(openIniStore().read("Seek", "Left", ""), "1");
    EXPECT_EQ(openIniStore().read("Chat", "Left", ""), "2");
}

TEST_F(IniStore, WhatWasSavedOnceIsNotSavedAgainOverASecondClients) {
    const SettingsStore first = openIniStore();
    first.write("Client", "Left", "1");
    first.sync();
    const SettingsStore second = openIniStore();
    second.write("Client", "Left", "2");
    second.sync();
    first.write("Client", "Top", "3");
    first.sync();
    EXPECT_EQ(openIniStore().read("Client", "Left", "0"), "2");
}

TEST_F(IniStore, RemoveDeletesTheNamedApplicationAndNoOther) {
    const SettingsStore stray = openIniStore(QStringLiteral("ChessClient"));
    stray.write("WndProc", "WndProc", "1");
    stray.sync();
    const SettingsStore store = openIniStore();
    store.write("Client", "Left", "1");
    store.sync();
    ASSERT_TRUE(QFile::exists(iniPath(QStringLiteral("ChessClient"))));
    store.remove("ChessClient");
    EXPECT_FALSE(QFile::exists(iniPath(QStringLiteral("ChessClient"))));
    EXPECT_EQ(openIniStore().read("Client", "Left", ""), "1");
    store.remove("../Brightrank/Brightrank");
    EXPECT_TRUE(QFile::exists(path()));
    store.remove("Brightrank");
    EXPECT_FALSE(QFile::exists(path()));
    EXPECT_EQ(store.read("Client", "Left", "gone"), "gone");
}

TEST_F(IniStore, IsReadAndWrittenInTheFormOfQSettings) {
    {
        QSettings settings(path(), QSettings::IniFormat);
        settings.setValue(QStringLiteral("Client/Tell_0"), QStringLiteral(" a, \"b\"\\ \u00FC;=% \n"));
        settings.setValue(QStringLiteral("Client/Handle"), QStringLiteral("@x"));
    }
    const SettingsStore store = openIniStore();
    EXPECT_EQ(store.read("Client", "Tell_0", ""), " a, \"b\"\\ \xFC;=% \n");
    EXPECT_EQ(store.read("Client", "Handle", ""), "@x");
    store.write("Client", "Tell_1",
                "q, \"r\"\\ \xFC;=%\x01"
                "2 ");
    store.sync();
    const QSettings again(path(), QSettings::IniFormat);
    EXPECT_EQ(again.value(QStringLiteral("Client/Tell_1")).toString(), QStringLiteral("q, \"r\"\\ \u00FC;=%\u00012 "));
    EXPECT_EQ(again.value(QStringLiteral("Client/Handle")).toString(), QStringLiteral("@x"));
}

TEST_F(IniStore, HostileFilesAreReadWithoutHarmAndSavedOver) {
    QByteArray junk;
    std::mt19937 random(3);
    for (int i = 0; i < 200'000; ++i) junk += static_cast<char>(random());
    const QByteArray line(1'000'000, 'x');
    for (const QByteArray& bytes :
         {junk, "[Client]\nLeft=" + line + "\n",
          QByteArray("[Client]\nLeft=@Variant(\\0\\0\\0\\x9\\0\\x7f\\xff\\xff\\xff)\n"),
          QByteArray("[Client]\nLeft=1, 2, 3\n"), QByteArray("[[[[[\n=\n\"\n\\x\n@\n"), QByteArray(100'000, '\0')}) {
        put(bytes);
        const SettingsStore store = openIniStore();
        ClientSettings client;
        zGetReg(store, client);
        EXPECT_EQ(client.Left, 0);
        zSaveReg(store, client);
        EXPECT_EQ(openIniStore().read("Client", "Registry_OK", ""), "Yes");
    }
}

TEST_F(IniStore, AFolderOrADeviceInPlaceOfTheFileIsAnEmptyStore) {
    QDir().mkpath(path());
    EXPECT_EQ(openIniStore().read("Client", "Left", "0"), "0");
    const SettingsStore store = openIniStore();
    store.write("Client", "Left", "1");
    store.sync();
    EXPECT_EQ(store.read("Client", "Left", "0"), "1");
    QDir().rmdir(path());
    store.sync();
    EXPECT_EQ(content(), "[Client]\nLeft=1\n") << "the writes are kept for the next save";
}

TEST_F(IniStore, AFullDiskLeavesTheOldContent) {
    saveAll(openIniStore(), std::string(3000, 'a'));
    EXPECT_TRUE(inChild([] {
        limitFiles(10'000);
        saveAll(openIniStore(), std::string(3000, 'b'));
    }));
    EXPECT_TRUE(whole());
    EXPECT_EQ(openIniStore().read("Client", "Key_7", ""), std::string(3000, 'a'));
}

TEST_F(IniStore, AFullDiskLeavesTheOldContentOfAShortFileToo) {
    saveAll(openIniStore(), "a");
    const auto before = content();
    EXPECT_TRUE(inChild([] {
        limitFiles(10);
        saveAll(openIniStore(), "b");
    }));
    EXPECT_EQ(content(), before);
}

TEST_F(IniStore, AProgramKilledWhileSavingLeavesTheOldOrTheNewContent) {
    saveAll(openIniStore(), std::string(2000, 'a'));
    std::mt19937 random(5);
    for (int round = 0; round < 60; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const SettingsStore store = openIniStore();
            for (unsigned i = 0;; ++i) saveAll(store, std::string(2000 + i % 7 * 400, static_cast<char>('a' + i % 26)));
        }
        ::usleep(static_cast<unsigned>(500 + random() % 8000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_TRUE(whole()) << "round " << round;
        ASSERT_EQ(mode(), 0600U);
    }
    saveAll(openIniStore(), std::string(2000, 'z'));
    EXPECT_EQ(openIniStore().read("Client", "Key_19", ""), std::string(2000, 'z'))
        << "the lock of the dead is taken over";
}
