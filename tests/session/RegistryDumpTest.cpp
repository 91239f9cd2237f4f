// The diagnostic dump from the Help menu, and how windows look for assistive tools and on a dark desktop.
#include "session/ChatWindowRig.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
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

class ClientFace : public ClientRig {};

} // namespace

TEST_F(RegistryDump, IsWrittenToTheStartDirectoryAndOpened) {
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
    openChat("Bob").setGeometry(100, 50, 500, 400);
    openChat("Ann");
    entry("mnuTest").trigger();
    EXPECT_NE(dumped().find("Chat\nLeft:  1500\nTop:  750\nWidth:  7500\nHeight:  6000\n"), std::string::npos);
}

TEST_F(RegistryDump, WritesNothingIntoTheStore) {
    start();
    entry("mnuTest").trigger();
    EXPECT_TRUE(values->keysWritten.empty());
}

TEST_F(ClientFace, EveryButtonAndFieldHasANameForAssistiveTools) {
    start();
    EXPECT_EQ(txtOutput().accessibleName(), QStringLiteral("Console"));
    EXPECT_EQ(txtSend().accessibleName(), QStringLiteral("Command line"));
    const std::initializer_list<QWidget*> windows{client.get(), boards()[0]};
    for (const QWidget* window : windows) {
        for (const auto* found : window->findChildren<QAbstractButton*>(QRegularExpression(QStringLiteral("^cmd")))) {
            if (found->objectName() == QStringLiteral("cmdScroll(2)")) continue; // has no effect
            EXPECT_FALSE(found->text().isEmpty() && found->accessibleName().isEmpty())
                << found->objectName().toStdString();
        }
    }
}

TEST_F(ClientFace, TheButtonsTakeNoFocusFromTheCommandLine) {
    start();
    for (const auto* found : client->findChildren<QAbstractButton*>(QRegularExpression(QStringLiteral("^cmd")))) {
        EXPECT_EQ(found->focusPolicy(), Qt::NoFocus) << found->objectName().toStdString();
    }
    EXPECT_EQ(client->focusWidget(), &txtSend());
}

TEST_F(ClientFace, ALongPromptDoesNotWidenTheWindow) {
    start();
    const QSize before = client->size();
    lblPrompt().setText(QString(200, QLatin1Char('w')));
    runFor(20);
    EXPECT_EQ(client->size(), before);
    EXPECT_LE(lblPrompt().width(), 140);
}
