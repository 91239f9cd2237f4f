// The lists of games in the program, with a server at a real socket: what opens their window, what becomes of the
// answers, and what else arrives among them.
#include "board/BoardRig.h"
#include "common/RecordedText.h"
#include "platform/LoadedWindow.h"
#include "records/HistoryTable.h"
#include "records/ListLines.h"
#include "records/frmHistory.h"
#include "session/ClientRig.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* Prompt = "fics% ";

class HistoryThroughSocket : public ClientRig {
protected:
    HistoryThroughSocket() {
        set("Handle", "Anders");
        set("Seek_Off", "0");
        roads.showHistory = [this] { frmHistory::showIt(*historyRoads); };
        roads.startHistory = [this] { frmHistory::startIt(*historyRoads); };
    }
    ~HistoryThroughSocket() override {
        delete window();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Connected with the prompt learnt.
    void begin() {
        connected();
        historyRoads.emplace(client->historyRoads());
        modChess.gPrompt = Prompt;
    }
    // The window is up with this player in it.
    void openFor(const char* name) {
        begin();
        chooseEntry(entry("mnuHistory"));
        ASSERT_TRUE(waitUntil([] { return part<QLineEdit>("txtPlayer").text() == QStringLiteral("Anders"); }));
        part<QLineEdit>("txtPlayer").setText(QString::fromLatin1(name));
    }
    void ask(const char* button = "cmdHistory") {
        part<QPushButton>(button).click();
        ASSERT_TRUE(modChess.HistoryCapture);
    }

    static frmHistory* window() { return loadedWindow<frmHistory>(); }
    template <typename Part>
    static Part& part(const char* name) {
        return *window()->findChild<Part*>(QString::fromLatin1(name));
    }
    static HistoryTable& list() { return part<HistoryTable>("lvwHistory"); }
    static int rows() { return window() ? list().topLevelItemCount() : -1; }
    static std::string title() { return window()->windowTitle().toStdString(); }

    static std::string wire(const std::string& line) { return line.substr(0, line.size() - 2) + "\n\r"; }
    static std::vector<std::string> historyLines(int games) {
        std::vector<std::string> all{"History for Foo:\n\r",
                                     "                  Opponent      Type         ECO End Date\n\r"};
        for (int number = 1; number <= games; ++number) all.push_back(wire(numbered(number, GameRow)));
        return all;
    }
    static std::string whole(const std::vector<std::string>& lines) {
        std::string text;
        for (const std::string& line : lines) text += line;
        return text;
    }
    bool answered() const {
        return waitUntil([] { return !modChess.HistoryCapture; });
    }
    // What comes now is printed, and nothing was before.
    void expectSilence() {
        loopback.send("\n\rsettled\n\rfics% ");
        ASSERT_TRUE(consoleHas("settled"));
        const std::string text = console();
        EXPECT_EQ(text.substr(text.find_first_not_of('\n')), "settled\nfics% ");
    }
    // Game 12 is on a board, and the move list that a new board asks for has come. A game is new up to its next move.
    void joinGame() {
        loopback.send(record() + Prompt);
        ASSERT_TRUE(serverGot("moves 12\n"));
        loopback.send(moveList() + record() + Prompt);
        ASSERT_TRUE(waitUntil([] { return !modChess.MovesCapture && !modChess.NewGameFlag; }));
        loopback.received.clear();
    }
    static std::string record() { return "\n\r" + LineOf{.game = 12, .relation = 0}.text(" 0 0\n\r"); }
    static std::string moveList() {
        return "\n\rMovelist for game 12:\n\r\n\r"
               "Foo (1500) vs. Bar (1600) --- Thu Oct 14, 20:36 PDT 2010\n\r"
               "Rated blitz match, initial time: 5 minutes, increment: 2 seconds.\n\r\n\r"
               "      {Still in progress} *\n\r\n\rfics% ";
    }
    // The client has fetched what was sent; the capture has not ended.
    void expectStillCaptured() {
        runFor(100);
        EXPECT_TRUE(modChess.HistoryCapture);
    }

    std::optional<HistoryRoads> historyRoads; // of `client`
};

} // namespace

// Opening

TEST_F(HistoryThroughSocket, HistoryTypedOpensTheWindowWhichAsks) {
    begin();
    type("hi bob");
    EXPECT_TRUE(serverGot("History bob\n"));
    EXPECT_EQ(loopback.received, "History bob\n") << "the typed line itself does not go out";
    EXPECT_TRUE(consoleHas("hi bob"));
    EXPECT_EQ(modChess.gHelpTopic, "");
    EXPECT_EQ(title(), "History for bob");
}

TEST_F(HistoryThroughSocket, HistoryAloneIsThatOfTheOwnHandle) {
    begin();
    type("HISTORY");
    EXPECT_TRUE(serverGot("History Anders\n"));
}

TEST_F(HistoryThroughSocket, HistoryTypedOnceMoreStartsTheOpenWindowAnew) {
    openFor("carla");
    const frmHistory* before = window();
    type("hist bob");
    EXPECT_TRUE(serverGot("History bob\n"));
    EXPECT_EQ(window(), before);
}

TEST_F(HistoryThroughSocket, HAndHistor1GoToTheServer) {
    begin();
    type("h");
    type("histor1");
    EXPECT_TRUE(serverGot("h\nhistor1\n"));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(HistoryThroughSocket, HistoryTypedWhileNotConnectedOpensTheWindow) {
    start();
    historyRoads.emplace(client->historyRoads());
    type("hi bob");
    ASSERT_TRUE(waitUntil([] { return window() != nullptr && title() == "History for bob"; }));
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(HistoryThroughSocket, TheConsolesEntryShowsTheWindowAndAsksNothing) {
    openFor("bob");
    EXPECT_EQ(loopback.received, "");
    chooseEntry(entry("mnuHistory"));
    runFor(200);
    EXPECT_EQ(part<QLineEdit>("txtPlayer").text(), QStringLiteral("bob")) << "an open one stays as it is";
    EXPECT_EQ(openWindows.count("frmHistory"), 1);
}

TEST_F(HistoryThroughSocket, ControlHIsTheEntrysKey) {
    begin();
    client->activateWindow();
    ASSERT_TRUE(waitUntil([this] { return client->isActiveWindow(); }));
    QTest::keyClick(&txtSend(), Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([] { return window() != nullptr; }));
}

// Answers

TEST_F(HistoryThroughSocket, AnAnswerInOnePacketBecomesTheListAndStaysOffTheConsole) {
    openFor("foo");
    ask();
    EXPECT_TRUE(serverGot("History foo\n"));
    loopback.send(whole(historyLines(3)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(title(), "History for Foo");
    EXPECT_EQ(part<QLineEdit>("txtPlayer").text(), QStringLiteral("Foo"));
    EXPECT_THAT(messages, IsEmpty());
    expectSilence();
}

TEST_F(HistoryThroughSocket, AnAnswerInAnyPiecesIsTheSame) {
    openFor("foo");
    const std::string text = whole(historyLines(10)) + Prompt;
    for (const std::size_t piece :
         {std::size_t{1}, std::size_t{7}, std::size_t{80}, text.size() - 6, text.size() - 3}) {
        ask();
        for (std::size_t at = 0; at < text.size(); at += piece) {
            loopback.send(text.substr(at, piece));
            QCoreApplication::processEvents();
        }
        ASSERT_TRUE(answered()) << piece;
        EXPECT_EQ(rows(), 10) << piece;
        EXPECT_EQ(list().cell(9, 0), "10");
    }
    expectSilence();
}

TEST_F(HistoryThroughSocket, MoreThanTenRowsAreTenAndThePromptEndsTheCapture) {
    openFor("foo");
    ask();
    loopback.send(whole(historyLines(14)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 10);
    expectSilence();
}

TEST_F(HistoryThroughSocket, RecordedAnswersOfBothServersEndWithTheirPrompts) {
    struct Case {
        const char* file;
        const char* title;
        const char* button;
        int rows;
    };
    const Case cases[] = {
        {"server-a/51_history_stored.raw", "History for Carla:", "cmdHistory", 5},
        {"server-a/51_history_stored.raw", "Stored games for Detlef:", "cmdStored", 2},
        {"server-a/51_history_stored.raw", "Anders has no history games.", "cmdHistory", 0},
        {"server-a/51_history_stored.raw", "journal: Command not found.", "cmdJournal", 0},
        {"server-b/51_history_examine.raw", "History for Carla:", "cmdHistory", 7},
        {"server-b/51_history_examine.raw", "There is no player matching that name.", "cmdHistory", 0},
        {"server-b/52_journal_stored.raw", "Journal for Carla:", "cmdJournal", 0},
        {"server-b/52_journal_stored.raw", "Stored games for Carla:", "cmdStored", 0}};
    openFor("foo");
    for (const Case& each : cases) {
        const std::string text = recordedText(each.file);
        const auto at = text.find(each.title);
        ASSERT_NE(at, text.npos) << each.title;
        const std::string block = text.substr(at, text.find(Prompt, at) + 6 - at);
        for (const bool promptAlone : {false, true}) {
            ask(each.button);
            loopback.send(block.substr(0, block.size() - (promptAlone ? 6 : 0)));
            if (promptAlone) {
                expectStillCaptured();
                loopback.send(Prompt);
            }
            ASSERT_TRUE(answered()) << each.title;
            EXPECT_EQ(rows(), each.rows) << each.title;
        }
    }
    expectSilence();
}

TEST_F(HistoryThroughSocket, AnEmptyListIsToldInABoxBehindTheBatch) {
    openFor("foo");
    bool inBatch = false;
    bool boxInBatch = false;
    auto& read = client->session.pipeline.hooks.dataParse;
    read = [&inBatch, own = read](const std::string& batch) {
        inBatch = true;
        own(batch);
        inBatch = false;
    };
    boxes.message = [&](QWidget*, const std::string&, const std::string& text) {
        messages.push_back(text);
        boxInBatch = boxInBatch || inBatch;
    };
    for (const char* button : {"cmdHistory", "cmdJournal", "cmdStored"}) {
        ask(button);
        loopback.send("There is no player matching that name.\n\rfics% ");
        ASSERT_TRUE(answered());
    }
    ASSERT_TRUE(waitUntil([this] { return messages.size() == 3; }));
    EXPECT_THAT(messages, ElementsAre("foo has played no games.", "foo has no games in the journal.",
                                      "foo has no stored games."));
    EXPECT_FALSE(boxInBatch);
}

TEST_F(HistoryThroughSocket, TheBoxBelongsToTheWindowThatHasTheKeyboard) {
    openFor("foo");
    ask();
    window()->activateWindow();
    ASSERT_TRUE(waitUntil([] { return window()->isActiveWindow(); }));
    const QWidget* owner = nullptr;
    boxes.message = [&](QWidget* parent, const std::string&, const std::string&) { owner = parent; };
    loopback.send("nothing\n\rfics% ");
    ASSERT_TRUE(waitUntil([&] { return owner != nullptr; }));
    EXPECT_EQ(owner, window());
}

TEST_F(HistoryThroughSocket, SeveralEmptyListsAreToldOneBehindTheOther) {
    openFor("foo");
    int up = 0;
    int most = 0;
    boxes.message = [&](QWidget*, const std::string&, const std::string& text) {
        messages.push_back(text);
        most = std::max(most, ++up);
        if (messages.size() < 3) { // in the box the loop runs, and the user asks for the next list
            ask("cmdStored");
            loopback.send("nothing\n\rfics% ");
            EXPECT_TRUE(answered());
            runFor(20);
        }
        --up;
    };
    ask();
    loopback.send("nothing\n\rfics% ");
    ASSERT_TRUE(waitUntil([this] { return messages.size() == 3; }));
    EXPECT_EQ(most, 1);
}

TEST_F(HistoryThroughSocket, ABoxComesUpThoughItsWindowHasGone) {
    openFor("foo");
    ask();
    auto& read = client->session.pipeline.hooks.dataParse;
    read = [own = read](const std::string& batch) {
        own(batch);
        window()->close(); // between the batch and its box
    };
    loopback.send("nothing\n\rfics% ");
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_EQ(window(), nullptr);
    EXPECT_THAT(messages, ElementsAre("foo has played no games."));
}

TEST_F(HistoryThroughSocket, ClosedInTheMiddleOfAnAnswerTheRestIsStillTakenUpToThePrompt) {
    openFor("foo");
    ask();
    window()->close();
    loopback.send("nothing\n\rfics% ");
    ASSERT_TRUE(answered());
    EXPECT_THAT(messages, IsEmpty());
    expectSilence();
}

TEST_F(HistoryThroughSocket, InVerboseModeTheAnswerIsReadAndPrinted) {
    openFor("foo");
    entry("mnuStupid").trigger();
    ask();
    loopback.send(whole(historyLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 2);
    EXPECT_TRUE(consoleHas("cesarCR"));
}

// What ends a capture, and what does not

TEST_F(HistoryThroughSocket, TheTimeOutDoesNotEndTheCapture) {
    openFor("foo");
    ask();
    loopback.send(whole(historyLines(2)));
    client->session.timerFired(SessionTimer::tmrArrival);
    client->session.timerFired(SessionTimer::tmrState);
    EXPECT_TRUE(modChess.HistoryCapture);
    loopback.send(Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 2);
}

// No connection clears it: the server's first words are taken for the answer, unless Verbose Mode lets all through.
TEST_F(HistoryThroughSocket, AListAskedForWithoutAConnectionSwallowsTheLogOnButForVerboseMode) {
    start();
    historyRoads.emplace(client->historyRoads());
    type("hi bob");
    ASSERT_TRUE(waitUntil([] { return modChess.HistoryCapture; }));
    chooseEntry(*client->menus.mnuConnect[1]);
    ASSERT_TRUE(waitUntil([this] { return loopback.hasClient() && socketState() == 7; }));
    loopback.send("Welcome!\n\rlogin: ");
    expectStillCaptured();
    EXPECT_THAT(console(), Not(HasSubstr("Welcome!")));
    EXPECT_EQ(client->session.pipeline.login, 0);
    entry("mnuStupid").trigger();
    loopback.send("\n\rlogin: ");
    ASSERT_TRUE(consoleHas("login: "));
    EXPECT_EQ(client->session.pipeline.login, 1);
    EXPECT_TRUE(modChess.HistoryCapture);
    EXPECT_EQ(loopback.received, "");
}

TEST_F(HistoryThroughSocket, APromptWithALineEndIsSwallowedAndTheNextOneEndsTheCapture) {
    openFor("foo");
    ask();
    loopback.send(whole(historyLines(2)) + "fics% \n\rA line of another kind.\n\r");
    expectStillCaptured();
    EXPECT_EQ(rows(), 0);
    loopback.send("\n\rMore of it.\n\rfics% ");
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 2);
    expectSilence();
}

TEST_F(HistoryThroughSocket, APromptBehindABoardUpdateGoesWithItAndEndsNothing) {
    openFor("foo");
    joinGame();
    ask();
    loopback.send(whole(historyLines(2)) + record() + "\n\rfics% ");
    expectStillCaptured();
    loopback.send(Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 2);
}

TEST_F(HistoryThroughSocket, TellsShoutsAndBoardUpdatesAmongTheRowsTakeNoneOfThem) {
    openFor("foo");
    joinGame();
    const std::string among[] = {"Berta tells you: hi\n\r", "Berta shouts: hi all\n\r", "\n\r", record()};
    const std::vector<std::string> block = historyLines(3);
    for (const std::string& foreign : among) {
        for (std::size_t at = 0; at <= block.size(); ++at) {
            ask();
            std::vector<std::string> lines = block;
            lines.insert(lines.begin() + static_cast<long>(at), foreign);
            const bool lastIsRecord = at == block.size() && foreign.find("<12>") != foreign.npos;
            loopback.send(whole(lines) + Prompt);
            if (lastIsRecord) { // with which its prompt goes
                expectStillCaptured();
                loopback.send("\n\rfics% ");
            }
            ASSERT_TRUE(answered()) << foreign << at;
            EXPECT_EQ(rows(), 3) << foreign << at;
        }
    }
    EXPECT_THAT(console(), Not(HasSubstr("cesarCR")));
    EXPECT_THAT(console(), Not(HasSubstr("hi")));
}

// A move list that is waited for is looked at first: the games are printed, and so is their prompt, which ends nothing.
TEST_F(HistoryThroughSocket, AnAnswerThatCrossesANewBoardsMoveListLandsInTheConsole) {
    openFor("foo");
    ask();
    loopback.send(record() + Prompt);
    ASSERT_TRUE(serverGot("History foo\nmoves 12\n"));
    loopback.send("\n\r" + whole(historyLines(2)) + Prompt);
    ASSERT_TRUE(consoleHas("[ br  5  12] C53 Res"));
    EXPECT_TRUE(modChess.MovesCapture);
    loopback.send(moveList());
    ASSERT_TRUE(waitUntil([] { return !modChess.MovesCapture; }));
    EXPECT_TRUE(modChess.HistoryCapture) << "the prompt behind a move list goes with it";
    loopback.send("\n\rA line of another kind.\n\rfics% ");
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 0);
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre("foo has played no games."));
    EXPECT_THAT(console(), Not(HasSubstr("A line of another kind.")));
}

TEST_F(HistoryThroughSocket, AnAnswerCutBehindAnyLineShowsTheRowsThatCame) {
    openFor("foo");
    const std::vector<std::string> block = historyLines(4);
    for (std::size_t length = 0; length <= block.size(); ++length) {
        ask();
        loopback.send(whole({block.begin(), block.begin() + static_cast<long>(length)}) + Prompt);
        ASSERT_TRUE(answered()) << length;
        EXPECT_EQ(rows(), std::max(0, static_cast<int>(length) - 2)) << length;
    }
}

TEST_F(HistoryThroughSocket, ADoubledLineIsTwoRows) {
    openFor("foo");
    const std::vector<std::string> block = historyLines(4);
    for (std::size_t doubled = 0; doubled < block.size(); ++doubled) {
        ask();
        std::vector<std::string> lines = block;
        lines.insert(lines.begin() + static_cast<long>(doubled), block[doubled]);
        loopback.send(whole(lines) + Prompt);
        ASSERT_TRUE(answered()) << doubled;
        EXPECT_EQ(rows(), doubled < 2 ? 4 : 5) << doubled;
        EXPECT_EQ(title(), "History for Foo");
    }
}

TEST_F(HistoryThroughSocket, TwoListsAskedForAtOnceAreReadByTheRulesOfTheLaterOne) {
    openFor("foo");
    ask("cmdHistory");
    ask("cmdJournal");
    EXPECT_TRUE(serverGot("History foo\nJournal foo\n"));
    loopback.send(whole(historyLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(rows(), 0);
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre("foo has no games in the journal."));
    loopback.send("Journal for Foo:\n\r" + wire(SlotRow) + Prompt);
    EXPECT_TRUE(consoleHas("Journal for Foo:")) << "its capture has ended with the first prompt";
}

TEST_F(HistoryThroughSocket, WhileAnotherAnswerIsReadTheQuestionWaits) {
    openFor("foo");
    client->session.pipeline.zSetstate(6);
    QTimer::singleShot(60, window(), [this] { client->session.timerFired(SessionTimer::tmrState); });
    ask();
    EXPECT_FALSE(modChess.gSoughtCapture);
    EXPECT_TRUE(serverGot("History foo\n"));
}

TEST_F(HistoryThroughSocket, ClosedByTheProgramInTheWaitNothingIsSent) {
    openFor("foo");
    client->session.pipeline.zSetstate(6);
    QTimer::singleShot(20, client.get(), [] { openWindows.unload("frmHistory"); });
    part<QPushButton>("cmdHistory").click();
    EXPECT_FALSE(modChess.HistoryCapture);
    loopback.send("\n\rsettled\n\rfics% ");
    ASSERT_TRUE(consoleHas("settled"));
    EXPECT_EQ(loopback.received, "");
}

TEST_F(HistoryThroughSocket, TheMenusLinesGoOutSilently) {
    openFor("foo");
    ask();
    loopback.send(whole(historyLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(list().viewport(), &event);
    chooseEntry(part<QAction>("mnuExamine"));
    EXPECT_TRUE(serverGot("History foo\nex Foo 1\n"));
    chooseEntry(part<QAction>("mnuReview"));
    EXPECT_TRUE(serverGot("smoves Foo  1\n"));
    EXPECT_TRUE(modChess.MovesCapture);
    EXPECT_EQ(modChess.MovesTarget, -2);
    EXPECT_EQ(console(), "");
}

TEST_F(HistoryThroughSocket, SavePgnArmsTheCaptureOfItsMoves) {
    openFor("foo");
    ask();
    loopback.send(whole(historyLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    boxes.fileSave = [](auto&&...) { return std::optional<std::string>("/tmp/games.pgn"); };
    modChess.MovesRecord.WhiteMoves[1] = "e4";
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(list().viewport(), &event);
    chooseEntry(part<QAction>("mnuSavePGN"));
    EXPECT_TRUE(serverGot("smoves Foo  1\n"));
    EXPECT_TRUE(modChess.MovesCapture);
    EXPECT_EQ(modChess.MovesTarget, -1);
    EXPECT_EQ(modChess.MovesRecord.WhiteMoves[1], "");
}
