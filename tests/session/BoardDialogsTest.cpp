// What boards and dialogs send, all the way to a server: draw, challenges and seeks, and the dialog in close-down and
// dump.
#include "seek/frmMatch.h"
#include "session/ClientRig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class BoardDialogs : public ClientRig {
protected:
    BoardDialogs() {
        roads.showMatch = [this] { dialog = &frmMatch::showIt(matchRoads); };
        roads.runningWindows.place = [this](const WindowSection& section) {
            return dialog && section.name == std::string("Match") ? dialog->place() : WindowPlace{};
        };
        roads.runningWindows.match = [this] { return dialog ? dialog->fields() : MatchSettings{}; };
    }
    ~BoardDialogs() override { delete dialog.data(); }

    static void chooseOnBoard(const char* name) {
        chooseEntry(*boards()[0]->findChild<QAction*>(QString::fromLatin1(name)));
    }
    void press(const char* name) const { dialog->findChild<QPushButton*>(QString::fromLatin1(name))->click(); }

    MatchRoads matchRoads{
        .store = roads.store,
        .zSendMsg = [this](const std::string& text) { client->session.road.zSendMsg(text); },
    };
    QPointer<frmMatch> dialog;
};

} // namespace

TEST_F(BoardDialogs, DrawGoesOutByTheTypedRoadWithEchoAndHistory) {
    set("Confirm_Resign", "0");
    connected();
    boards()[0]->findChild<QPushButton*>(QStringLiteral("cmdDraw"))->click();
    EXPECT_TRUE(serverGot("Draw\n"));
    EXPECT_TRUE(consoleHas("Draw"));
    EXPECT_EQ(client->session.road.history.entries[1], "Draw");
    EXPECT_TRUE(messages.empty());
}

TEST_F(BoardDialogs, ResignAsksFirstAsTheSettingsStandAtFirst) {
    okay = true;
    connected();
    chooseOnBoard("mnuRes");
    EXPECT_TRUE(serverGot("Resign\n"));
    EXPECT_EQ(messages, std::vector<std::string>{"Resign"});
}

TEST_F(BoardDialogs, MatchOfTheConsoleRaisesMatchModeAndItsLineIsSilent) {
    connected();
    chooseEntry(entry("mnuMatch"));
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(modChess.MatchMode);
    dialog->findChild<QLineEdit*>(QStringLiteral("txtOpp"))->setText(QStringLiteral("fred"));
    press("cmdOK");
    EXPECT_TRUE(serverGot("Match fred 2 12 Normal r Auto Color \n"));
    EXPECT_EQ(console().find("Match"), std::string::npos);
    EXPECT_EQ(client->session.road.history.entries[1], "");
}

TEST_F(BoardDialogs, MatchOfABoardRaisesMatchModeAndSeekLowersIt) {
    start();
    chooseOnBoard("mnuMatch");
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(modChess.MatchMode);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Match"));
    press("cmdCancel");
    chooseOnBoard("mnuSeek");
    EXPECT_FALSE(modChess.MatchMode);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Seek"));
}

TEST_F(BoardDialogs, WhileNotConnectedTheLineIsDroppedAndTheDialogCloses) {
    start();
    chooseOnBoard("mnuSeek");
    press("cmdOK");
    EXPECT_EQ(openWindows.count("frmMatch"), 0);
    EXPECT_EQ(modChess.LinesSent, 0);
}

TEST_F(BoardDialogs, AClosingBoardTakesTheDialogAlong) {
    start();
    chooseEntry(entry("mnuMatch"));
    boards()[0]->close();
    EXPECT_EQ(openWindows.count("frmMatch"), 0);
    EXPECT_NE(stored("Match", "Time"), "(absent)");
}

TEST_F(BoardDialogs, TheCloseDownUnloadsTheDialogBeforeTheSettingsAreWritten) {
    start();
    delete boards()[0]; // which would take it along
    chooseEntry(entry("mnuMatch"));
    client->close();
    EXPECT_EQ(openWindows.count("frmMatch"), 0);
    ASSERT_EQ(values->keysWritten.front(), "Left");
    EXPECT_EQ(values->keysWritten[2], "Time");
    EXPECT_EQ(values->keysWritten[10], "Registry_OK");
}

TEST_F(BoardDialogs, TheDumpGivesTheRunningValuesOfTheOpenDialog) {
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    for (const char* key : {"Left", "Top", "Time"}) values->texts[{"Match", key}] = "30";
    set("Registry_OK", "Yes");
    start();
    chooseEntry(entry("mnuMatch"));
    dialog->move(40, 50);
    values->texts.erase({"Match", "Left"});
    values->texts.erase({"Match", "Time"});
    entry("mnuTest").trigger();
    QDir::setCurrent(before);
    QFile file(folder.filePath(QStringLiteral("regdump.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::string dumped = file.readAll().toStdString();
    EXPECT_NE(dumped.find("\nMatch\nLeft:  600\nTop:  30\nTime:  30\nIncrement:  0\n"), std::string::npos);
}
