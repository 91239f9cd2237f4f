// A folder with a relay of our own as "timeseal.exe" in it.
#pragma once

#include "TestPaths.h"
#include "platform/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

// The right to use the relays' port, which is one for the whole machine: the tests that do, those in Python too, wait
// for each other. It ends with the process at the latest; the file stays.
class RelayPortLock {
public:
    RelayPortLock() {
        EXPECT_TRUE(waitUntil([this] { return ::flock(file, LOCK_EX | LOCK_NB) == 0; }, 60000));
    }
    ~RelayPortLock() { ::close(file); }
    RelayPortLock(const RelayPortLock&) = delete;
    RelayPortLock& operator=(const RelayPortLock&) = delete;

private:
    const QByteArray path = QFile::encodeName(QDir::temp().filePath(QStringLiteral("brightrank-relay-port.lock")));
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
};

// Relay.cpp tells how the relay behaves in each mode.
class RelayFolder {
public:
    explicit RelayFolder(const QString& path) : folder(path) { mode("relay"); }
    ~RelayFolder() { qunsetenv("RELAY_MODE"); }
    RelayFolder(const RelayFolder&) = delete;
    RelayFolder& operator=(const RelayFolder&) = delete;

    // Of the relays that start from now on.
    void mode(const char* name) const { qputenv("RELAY_MODE", name); }
    void put() const {
        EXPECT_TRUE(QFile::link(QStringLiteral(RELAY_PROGRAM), folder.filePath(QStringLiteral("timeseal.exe"))));
    }
    // The lines that relays wrote so far.
    QStringList log() const {
        QFile file(folder.filePath(QStringLiteral("relay.log")));
        if (!file.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
    bool hasNoted(const char* line) const { return log().contains(QString::fromLatin1(line)); }
    bool notes(const char* line) const {
        return waitUntil([this, line] { return hasNoted(line); });
    }

private:
    QDir folder;
    RelayPortLock portLock;
};
