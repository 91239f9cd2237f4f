// The diagnostic dump from the Help menu.
#include "session/ChatWindowRig.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBrowser>

namespace {

class RegistryDump : public ChatWindowRig {
protected:
    RegistryDump() {
        QDir::setCurrent(folder.path());
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer, "setSource");
    }
    ~RegistryDump() override {
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        QDir::setCurrent(startFolder);
    }

    std::string dumped() const {
        QFile file(folder.filePath(QStringLiteral("regdump.txt")));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
    QTextBrowser viewer; // stands in for the desktop's
};

} // namespace

TEST_F(RegistryDump, IsWrittenToTheCurrentDirectoryAndOpened) {
    start();
    EXPECT_EQ(entry("mnuTest").text(), QStringLiteral("Resgistry Dump"));
    entry("mnuTest").trigger();
    EXPECT_EQ(dumped().substr(0, 24), "Client\nRegistry_OK:  No\n");
    EXPECT_EQ(viewer.source().toLocalFile(), folder.filePath(QStringLiteral("regdump.txt")));
}

TEST_F(RegistryDump, GivesTheRunningPlaceOfTheConsole) {
    start();
    client->move(40, 30);
    entry("mnuTest").trigger();
    EXPECT_NE(dumped().find("\nLeft:  600\nTop:  450\nWidth:  11400\nHeight:  8400\n"), std::string::npos);
}

TEST_F(RegistryDump, GivesTheRunningPlaceOfTheOldestChatBoxOrTheOneItWouldStartWith) {
    start();
    entry("mnuTest").trigger();
    EXPECT_NE(dumped().find("Chat\nLeft:  0\nTop:  0\nWidth:  6300\nHeight:  4500\n"), std::string::npos);
    put(openChat("Bob"), {100, 50, 500, 400});
    openChat("Ann");
    entry("mnuTest").trigger();
    EXPECT_NE(dumped().find("Chat\nLeft:  1500\nTop:  750\nWidth:  7500\nHeight:  6000\n"), std::string::npos);
}

TEST_F(RegistryDump, WritesNothingIntoTheStore) {
    start();
    entry("mnuTest").trigger();
    EXPECT_TRUE(values->keysWritten.empty());
}
