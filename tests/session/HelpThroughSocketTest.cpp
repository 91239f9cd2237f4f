// Help pages in the program, with a server at a real socket: what opens their panel, how blocks are fetched, what ends
// an answer, and what else arrives among its lines.
#include "board/BoardRig.h"
#include "common/RecordedText.h"
#include "panels/HelpPage.h"
#include "panels/frmChessHelp.h"
#include "platform/LoadedWindow.h"
#include "session/ClientRig.h"

#include <QCheckBox>
#include <QPushButton>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* Prompt = "fics% ";
const std::string Next = onWire({Invitation}) + Prompt;

class HelpThroughSocket : public ClientRig {
protected:
    HelpThroughSocket() {
        set("Handle", "Anders");
        set("Seek_Off", "0");
        roads.doors.showHelp = [this] { frmChessHelp::showIt(*helpRoads); };
        roads.doors.startHelp = [this] { frmChessHelp::startIt(*helpRoads); };
    }
    ~HelpThroughSocket() override {
        delete window();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Connected with the prompt learnt.
    void begin() {
        connected();
        helpRoads.emplace(client->helpRoads());
        modChess.gPrompt = Prompt;
    }
    // The panel is up, and has asked for nothing.
    void openPanel() {
        begin();
        chooseEntry(entry("mnuHelp"));
        ASSERT_TRUE(waitUntil([] { return window() != nullptr && window()->focusWidget() == &topic(); }));
    }
    void ask(const char* about = "seek") {
        topic().setLine(about);
        part<QPushButton>("cmdGo").click();
        ASSERT_TRUE(modChess.gHelpCapture);
        ASSERT_TRUE(serverGot(std::string("Help ") + about + "\n"));
        loopback.received.clear();
    }

    static frmChessHelp* window() { return loadedWindow<frmChessHelp>(); }
    template <typename Part>
    static Part& part(const char* name) {
        return *window()->findChild<Part*>(QString::fromLatin1(name));
    }
    static TypingLine& topic() { return part<TypingLine>("txtHelp"); }
    static std::string page() { return part<Console>("txtHelpInfo").text(); }
    static std::string lines(int count, int first = 1) {
        std::string text;
        for (const std::string& line : helpLines(count, first)) text += line.substr(0, line.size() - 2) + "\n";
        return text;
    }
    bool answered() const {
        return waitUntil([] { return !modChess.gHelpCapture; });
    }
    // The client has fetched what was sent; the capture has not ended.
    void expectStillCaptured() {
        runFor(60);
        EXPECT_TRUE(modChess.gHelpCapture);
    }
    // What comes now is printed, and nothing was before.
    void expectSilence() {
        loopback.send("\n\rsettled\n\rfics% ");
        ASSERT_TRUE(consoleHas("settled"));
        const std::string text = console();
        EXPECT_EQ(text.substr(text.find_first_not_of('\n')), "settled\nfics% ");
    }

    std::optional<HelpRoads> helpRoads; // of `client`
};

} // namespace

// Opening

TEST_F(HelpThroughSocket, HelpTypedOpensThePanelWhichAsks) {
    begin();
    type("he seek");
    EXPECT_TRUE(serverGot("Help seek\n"));
    EXPECT_EQ(loopback.received, "Help seek\n") << "the typed line itself does not go out";
    EXPECT_TRUE(consoleHas("he seek"));
    EXPECT_EQ(modChess.gHelpTopic, "");
    EXPECT_EQ(topic().line(), "seek");
}

TEST_F(HelpThroughSocket, HelpAloneOpensThePanelWhichAsksNothing) {
    begin();
    type("HELP");
    ASSERT_TRUE(waitUntil([] { return window() != nullptr; }));
    runFor(200);
    EXPECT_EQ(loopback.received, "");
}

TEST_F(HelpThroughSocket, HelpTypedOnceMoreStartsTheOpenPanelAnew) {
    openPanel();
    const frmChessHelp* before = window();
    type("help match");
    EXPECT_TRUE(serverGot("Help match\n"));
    EXPECT_EQ(window(), before);
}

TEST_F(HelpThroughSocket, HAndHelpmeGoToTheServer) {
    begin();
    type("h");
    type("helpme");
    EXPECT_TRUE(serverGot("h\nhelpme\n"));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(HelpThroughSocket, HelpTypedWhileNotConnectedOpensThePanelAndArmsTheCapture) {
    start();
    helpRoads.emplace(client->helpRoads());
    type("help seek");
    ASSERT_TRUE(waitUntil([] { return modChess.gHelpCapture; }));
    EXPECT_EQ(part<QLabel>("lblRcvData").text(), QStringLiteral("Sending Help Cmd"));
    client->session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.gHelpCapture);
}

TEST_F(HelpThroughSocket, ABoardsEntryOpensItToo) {
    begin();
    chooseEntry(*boards().front()->findChild<QAction*>(QStringLiteral("mnuHelp")));
    EXPECT_TRUE(waitUntil([] { return window() != nullptr; }));
}

// The panel knows nothing of the log-on: its line goes out for the name.
TEST_F(HelpThroughSocket, AtALogOnPromptTheQuestionGoesOutAllTheSame) {
    openPanel();
    modChess.gPrompt.clear();
    loopback.send("login: ");
    ASSERT_TRUE(waitUntil([this] { return client->session.pipeline.login == 1; }));
    ask("");
}

// Answers

TEST_F(HelpThroughSocket, APageOfOneBlockIsShownAndStaysOffTheConsole) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(3)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(3));
    EXPECT_TRUE(part<QLabel>("lblRcvData").isHidden());
    EXPECT_EQ(loopback.received, "");
    expectSilence();
}

TEST_F(HelpThroughSocket, BlocksAreFetchedOneByOneWithNextAndShownAtTheEnd) {
    openPanel();
    ask();
    for (int block = 1; block <= 3; ++block) {
        loopback.send(onWire(helpLines(20, 20 * block - 19)) + Next);
        ASSERT_TRUE(serverGot("Next\n"));
        EXPECT_EQ(loopback.received, "Next\n");
        loopback.received.clear();
        EXPECT_EQ(part<QLabel>("lblRcvData").text(), QStringLiteral("Received Blk %1").arg(block));
        EXPECT_EQ(page(), "") << "not before the end";
        EXPECT_TRUE(modChess.gHelpCapture);
    }
    loopback.send(onWire(helpLines(5, 61)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(65));
    EXPECT_EQ(loopback.received, "");
    expectSilence();
}

TEST_F(HelpThroughSocket, AnAnswerInAnyPiecesIsTheSame) {
    openPanel();
    const std::string text = onWire(helpLines(10)) + Next;
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, text.size() - 6, text.size() - 3}) {
        ask();
        for (std::size_t at = 0; at < text.size(); at += piece) {
            loopback.send(text.substr(at, piece));
            QCoreApplication::processEvents();
        }
        ASSERT_TRUE(serverGot("Next\n")) << piece;
        loopback.send(onWire(helpLines(2, 11)) + Prompt);
        ASSERT_TRUE(answered()) << piece;
        EXPECT_EQ(page(), lines(12)) << piece;
    }
    expectSilence();
}

// "moved the prompt into the next batch": the block's end comes late.
TEST_F(HelpThroughSocket, AnInvitationWhosePromptComesLaterIsAnsweredOnce) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(2)) + onWire({Invitation}));
    expectStillCaptured();
    loopback.send(Prompt);
    ASSERT_TRUE(serverGot("Next\n"));
    loopback.send(onWire(helpLines(2, 3)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(4));
    EXPECT_EQ(loopback.received, "Next\n");
}

TEST_F(HelpThroughSocket, NoHelpAvailableEndsTheCaptureWithNoWaitForThePrompt) {
    openPanel();
    ask();
    loopback.send("No help available on \"seek\".\n\rBob shouts: hi\n\rfics% ");
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), "No help available on \"seek\".\n");
    EXPECT_TRUE(consoleHas("Bob shouts: hi"));
}

TEST_F(HelpThroughSocket, RecordedPagesComeWhole) {
    openPanel();
    const std::string blocks = recordedText("server-b/53_variables_notes_help.raw");
    const std::string other = recordedText("server-a/53_variables_notes_help.raw");
    struct Case {
        const std::string& text;
        const char* from;
        int prompts;
    };
    for (const auto& [text, from, prompts] :
         {Case{blocks, "variables\n\r\n\rUsage: variables", 4}, Case{blocks, "abort              accept", 2},
          Case{blocks, "No help found for topic", 1}, Case{other, "There is no help available", 1},
          Case{other, "Command: help", 1}}) {
        ask();
        auto at = text.find(from);
        for (int block = 1; block <= prompts; ++block) {
            const auto end = text.find(Prompt, at) + 6;
            loopback.send(text.substr(at, end - at));
            at = end;
            if (block == prompts) break;
            ASSERT_TRUE(serverGot("Next\n")) << from;
            loopback.received.clear();
        }
        ASSERT_TRUE(answered()) << from;
        EXPECT_EQ(loopback.received, "") << from;
        EXPECT_THAT(page(), HasSubstr(std::string(from).substr(0, 5))) << from;
        EXPECT_THAT(page(), Not(HasSubstr("Type [next]")));
        EXPECT_THAT(page(), Not(HasSubstr(Prompt)));
    }
    expectSilence();
}

TEST_F(HelpThroughSocket, AnAnswerCutBehindAnyLineShowsTheLinesThatCame) {
    openPanel();
    for (int length = 0; length <= 5; ++length) {
        ask();
        loopback.send(onWire(helpLines(length)) + Prompt);
        ASSERT_TRUE(answered()) << length;
        EXPECT_EQ(page(), lines(length));
    }
}

TEST_F(HelpThroughSocket, InVerboseModeThePageIsShownAndPrinted) {
    openPanel();
    entry("mnuStupid").trigger();
    ask();
    loopback.send(onWire(helpLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(2));
    EXPECT_TRUE(consoleHas("line 2"));
}

// What ends a capture, and what does not

TEST_F(HelpThroughSocket, AnAnswerThatDiesStaysUnseenUntilTheNextAnswerIsShown) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(2)));
    ASSERT_TRUE(waitUntil([this] { return !client->session.pipeline.PendingText.empty(); }));
    client->session.timerFired(SessionTimer::tmrArrival);
    client->session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.gHelpCapture);
    EXPECT_EQ(page(), "");
    EXPECT_EQ(modChess.HelpCount, 2);
    EXPECT_FALSE(part<QLabel>("lblRcvData").isHidden());
    loopback.send(onWire(helpLines(1, 3)) + Prompt);
    ASSERT_TRUE(consoleHas("line 3"));
    client->session.pipeline.zSetstate(8); // and the panel has not asked anew
    loopback.send(Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(2));
}

TEST_F(HelpThroughSocket, ALateAnswerIsPrintedAndItsInvitationNotTaken) {
    openPanel();
    ask();
    client->session.timerFired(SessionTimer::tmrState);
    loopback.send(onWire(helpLines(2)) + Next);
    ASSERT_TRUE(consoleHas("Type [next]"));
    EXPECT_EQ(loopback.received, "");
}

TEST_F(HelpThroughSocket, EachNextStartsTheTimeOutAnew) {
    openPanel();
    std::vector<int> started;
    auto& startTimer = client->session.pipeline.hooks.startTimer;
    startTimer = [&started, own = startTimer](SessionTimer timer, int milliseconds) {
        if (timer == SessionTimer::tmrState) started.push_back(milliseconds);
        own(timer, milliseconds);
    };
    ask();
    loopback.send(onWire(helpLines(2)) + Next);
    ASSERT_TRUE(serverGot("Next\n"));
    EXPECT_THAT(started, testing::ElementsAre(5000, 5000));
}

TEST_F(HelpThroughSocket, AnEndlessAnswerGoesOnUntilThe502ndLineWhichIsTheProgramsLimit) {
    openPanel();
    std::string limit;
    auto& read = client->session.pipeline.hooks.dataParse;
    read = [&limit, own = read](const std::string& batch) {
        try {
            own(batch);
        } catch (const Fault& fault) {
            limit = fault.what();
        }
    };
    ask();
    int block = 0;
    for (; limit.empty() && block < 60; ++block) {
        loopback.received.clear();
        loopback.send(onWire(helpLines(10, 10 * block + 1)) + Next);
        ASSERT_TRUE(waitUntil([&] { return !limit.empty() || loopback.received == "Next\n"; })) << block;
    }
    EXPECT_EQ(block, 51);
    EXPECT_THAT(limit, HasSubstr("subscript 501 is outside 0 to 500 (lines of a help page)"));
    EXPECT_EQ(modChess.HelpCount, 501);
}

// What else arrives

TEST_F(HelpThroughSocket, BoardUpdatesReachTheirBoardsAmongTheLines) {
    openPanel();
    const std::string record = "\n\r" + LineOf{.game = 12, .relation = 0}.text(" 0 0\n\r");
    const std::string Long = "a line that is long enough to stay behind a record";
    loopback.send(record + Prompt);
    ASSERT_TRUE(serverGot("moves 12\n"));
    client->session.timerFired(SessionTimer::tmrState);
    ask();
    const auto next = LineOf{.ranks = AfterE4, .turn = "B", .game = 12, .relation = 0, .pretty = "e4"};
    loopback.send(onWire(helpLines(2)) + "\n\r" + next.text(" 0 0\n\r") + Long + "\n\r" + onWire(helpLines(1, 3)) +
                  Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(firstGame().Style12Record.PrettyMove, "e4");
    EXPECT_THAT(page(), HasSubstr("line 1\nline 2\n"));
    EXPECT_THAT(page(), testing::EndsWith(Long + "\nline 3\n"));
    EXPECT_THAT(page(), Not(HasSubstr("<12>")));
}

// Short lines behind a record go with it, and so does a prompt.
TEST_F(HelpThroughSocket, APromptBehindABoardUpdateGoesWithItAndEndsNothing) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(2)) + "\n\r" + LineOf{.game = 12, .relation = 0}.text(" 0 0\n\r") +
                  "line 3\n\rfics% ");
    expectStillCaptured();
    loopback.send(Prompt);
    ASSERT_TRUE(answered());
    EXPECT_THAT(page(), testing::StartsWith("line 1\nline 2\n"));
    EXPECT_THAT(page(), Not(HasSubstr("line 3")));
}

// It came before the answer, and stands in front of the page's first line.
TEST_F(HelpThroughSocket, AMovesPromptThatArrivesWithThePageEndsItAndItsLinesArePrinted) {
    openPanel();
    loopback.send("\n\r" + LineOf{.game = 12, .relation = 0}.text(" 0 0\n\r") + Prompt);
    ASSERT_TRUE(serverGot("moves 12\n"));
    client->session.timerFired(SessionTimer::tmrState);
    ask();
    const auto next = LineOf{.ranks = AfterE4, .turn = "B", .game = 12, .relation = 0, .pretty = "e4"};
    loopback.send("\n\r" + next.text(" 0 0\n\r") + Prompt + "the first line of the page\n\r" + onWire(helpLines(2)) +
                  Prompt);
    ASSERT_TRUE(answered());
    EXPECT_TRUE(consoleHas("line 1\nline 2"));
    EXPECT_EQ(page(), "\n");
}

TEST_F(HelpThroughSocket, TellsAndShoutsAmongTheLinesBecomeLinesOfThePageAndStayOffTheConsole) {
    openPanel();
    for (const std::string foreign : {"Berta tells you: hi\n\r", "Berta shouts: hi all\n\r", "\n\r"}) {
        for (int at = 0; at <= 3; ++at) {
            ask();
            loopback.send(onWire(helpLines(at)) + foreign + onWire(helpLines(3 - at, at + 1)) + Prompt);
            ASSERT_TRUE(answered()) << foreign << at;
            EXPECT_EQ(page(), lines(at) + foreign.substr(0, foreign.size() - 2) + "\n" + lines(3 - at, at + 1));
        }
    }
    EXPECT_THAT(console(), Not(HasSubstr("Berta")));
}

// It has a prompt of its own, which ends the page; the rest of it is printed.
TEST_F(HelpThroughSocket, ATellWhileANextIsUnderWayEndsThePage) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(2)) + Next);
    ASSERT_TRUE(serverGot("Next\n"));
    loopback.send("\n\rBerta tells you: hi\n\rfics% ");
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(2) + "\nBerta tells you: hi\n");
    loopback.send(onWire(helpLines(2, 3)) + Prompt);
    EXPECT_TRUE(consoleHas("line 4"));
}

// The panel, closed or busy

TEST_F(HelpThroughSocket, ClosedInTheMiddleOfAnAnswerTheRestIsStillFetchedAndNothingShows) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(2)) + Next);
    ASSERT_TRUE(serverGot("Next\n"));
    window()->close();
    loopback.received.clear();
    loopback.send(onWire(helpLines(2, 3)) + Next);
    ASSERT_TRUE(serverGot("Next\n"));
    loopback.send(onWire(helpLines(1, 5)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(modChess.HelpCount, 5);
    expectSilence();
}

TEST_F(HelpThroughSocket, OpenedAgainInTheMiddleItShowsThePage) {
    openPanel();
    ask();
    window()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frmChessHelp::showIt(*helpRoads);
    loopback.send(onWire(helpLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(2));
}

TEST_F(HelpThroughSocket, WhileAnotherAnswerIsReadTheQuestionWaits) {
    openPanel();
    client->session.pipeline.zSetstate(6);
    QTimer::singleShot(60, window(), [this] {
        EXPECT_EQ(loopback.received, "");
        client->session.timerFired(SessionTimer::tmrState);
    });
    ask();
}

TEST_F(HelpThroughSocket, ASecondQuestionWaitsForTheEndOfTheFirstAnswer) {
    openPanel();
    ask("seek");
    QTimer::singleShot(60, window(), [this] { loopback.send(onWire(helpLines(2)) + Prompt); });
    part<QCheckBox>("chkAuto").setChecked(false);
    ask("match");
    EXPECT_EQ(page(), lines(2));
    loopback.send(onWire(helpLines(1, 3)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(3));
}

TEST_F(HelpThroughSocket, TheFirstOfTwoCapturesTakesTheLinesOfBoth) {
    openPanel();
    ask();
    modChess.gVarsCapture = true;
    loopback.send(onWire(helpLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(2));
    EXPECT_TRUE(modChess.gVarsCapture);
    modChess.gVarsCapture = false;
}

TEST_F(HelpThroughSocket, AHistoryCapturedAtTheSameTimeGetsNothingOfThePage) {
    openPanel();
    client->session.pipeline.zSetstate(9);
    ask();
    loopback.send(onWire(helpLines(2)) + Prompt);
    ASSERT_TRUE(answered());
    EXPECT_EQ(page(), lines(2));
    EXPECT_TRUE(modChess.HistoryCapture);
}

TEST_F(HelpThroughSocket, AReconnectInBetweenLeavesTheCaptureToItsTimeOut) {
    openPanel();
    ask();
    loopback.send(onWire(helpLines(2)) + Next);
    ASSERT_TRUE(serverGot("Next\n"));
    chooseEntry(entry("mnuClose"));
    ASSERT_TRUE(waitUntil([this] { return socketState() != 7; }));
    loopback.received.clear();
    chooseEntry(*client->menus.mnuConnect[1]);
    ASSERT_TRUE(waitUntil([this] { return socketState() == 7; }));
    EXPECT_TRUE(modChess.gHelpCapture);
    client->session.timerFired(SessionTimer::tmrState);
    loopback.send("Welcome\n\rlogin: ");
    ASSERT_TRUE(consoleHas("Welcome"));
    EXPECT_EQ(page(), "");
}
