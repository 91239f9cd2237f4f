// A folder with a relay of our own as "timeseal.exe" in it.
#pragma once

#include "TestPaths.h"
#include "platform/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

// Relay.cpp tells how the relay behaves in each mode. Its port is one for the whole machine, so the tests that use it
// wait for each other.
class RelayFolder {
public:
    explicit RelayFolder(const QString& path) : folder(path) {
        EXPECT_TRUE(portLock.tryLock(60000));
        mode("relay");
    }
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
    QLockFile portLock{QDir::temp().filePath(QStringLiteral("brightrank-test-port-6000.lock"))};
};
