// The seek graph in the program, with a server at a real socket: what its polls ask, what becomes of the answers, and
// how it goes and comes around games.
#include "board/BoardRig.h"
#include "platform/LoadedWindow.h"
#include "seek/SoughtLines.h"
#include "seek/frmSeek.h"
#include "session/ClientRig.h"

#include <QCloseEvent>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

class SeekGraphThroughSocket : public ClientRig {
protected:
    SeekGraphThroughSocket() {
        set("Seek_Off", "0");
        roads.showSeek = [this] { frmSeek::showIt(*seekRoads); };
    }
    ~SeekGraphThroughSocket() override {
        delete graph();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Connected with the prompt learnt.
    void begin() {
        connected();
        seekRoads.emplace(client->seekRoads(match));
        modChess.gPrompt = "fics% ";
    }
    // The graph is up, and its first question has reached the server.
    void openGraph() {
        chooseEntry(entry("mnuSeekGrf"));
        ASSERT_TRUE(asked(1));
    }
    static frmSeek* graph() { return loadedWindow<frmSeek>(); }
    static SeekPlot& plot() { return *graph()->findChild<SeekPlot*>(); }
    static int drawn() { return graph() ? plot().graph().DotsDrawn : -1; }

    // So many questions have come, since the connection began.
    bool asked(long times) {
        return waitUntil([&] { return std::ranges::count(loopback.commands(), std::string("sought")) >= times; });
    }
    // The watchdog's or the next poll's tick, now.
    void tick() const { // nobody waits seconds for it
        graph()->findChild<QTimer*>(QStringLiteral("tmrSeek"))->start(0);
        QCoreApplication::processEvents();
    }
    // The poll's own time is over once: the console is heard again.
    void secondPoll() {
        answer({});
        ASSERT_TRUE(waitUntil([] { return drawn() == 0; }));
        ASSERT_TRUE(asked(2));
        ASSERT_FALSE(modChess.gConsoleQuiet);
    }
    static std::string table(const std::vector<SoughtLine>& ads) {
        std::string text;
        for (const SoughtLine& ad : ads) text += ad.wire();
        return text + std::to_string(ads.size()) + " ads displayed.\n\r";
    }
    static std::vector<SoughtLine> ads(int count) {
        std::vector<SoughtLine> all;
        for (int i = 1; i <= count; ++i)
            all.push_back({.number = std::to_string(i), .time = std::to_string(i % 60 + 1)});
        return all;
    }
    void answer(const std::vector<SoughtLine>& ads) { loopback.send(table(ads) + "fics% "); }
    // Something behind everything else has been read, and nothing but that was printed.
    void expectSilence() {
        loopback.send("\n\rsettled\n\rfics% ");
        ASSERT_TRUE(consoleHas("settled"));
        const std::string text = console(); // its first break ends a prompt that is read with it, or stands alone
        EXPECT_EQ(text.substr(text.find_first_not_of('\n')), "settled\nfics% ");
    }
    static std::string record(int relation) {
        return "\n\r" + LineOf{.game = 12, .relation = relation}.text(" 0 0\n\r") + "\n\rfics% ";
    }

    MatchRoads match{.store = roads.store, .zSendMsg = [](const std::string&) {}};
    std::optional<SeekRoads> seekRoads; // of `client`
};

} // namespace

// Polls

TEST_F(SeekGraphThroughSocket, ThePollsAnswerBecomesDotsAndNothingOfItReachesTheConsole) {
    begin();
    openGraph();
    EXPECT_THAT(loopback.received, HasSubstr("Set Seek 0\nsought\n"));
    answer(ads(3));
    ASSERT_TRUE(waitUntil([] { return drawn() == 3; }));
    EXPECT_EQ(graph()->windowTitle(), QStringLiteral("Seek Graph (3 Ads)"));
    EXPECT_EQ(console(), "");
    EXPECT_FALSE(modChess.gSoughtCapture);
}

TEST_F(SeekGraphThroughSocket, LaterPollsAreSilentOnAConsoleThatIsHeard) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    for (const int count : {0, 1, 41}) {
        const long questions = std::ranges::count(loopback.commands(), std::string("sought"));
        answer(ads(count));
        ASSERT_TRUE(waitUntil([&] { return drawn() == count; })) << count;
        ASSERT_TRUE(asked(questions + 1));
    }
    answer({});
    expectSilence();
}

TEST_F(SeekGraphThroughSocket, WhileTheFirstAnswerIsWaitedForNothingIsPrinted) {
    begin();
    openGraph();
    loopback.send("\n\rA line of another kind.\n\rfics% ");
    ASSERT_TRUE(waitUntil([this] { return client->session.serverLines[1] == "A line of another kind.\r\n"; }));
    answer(ads(1));
    ASSERT_TRUE(waitUntil([] { return drawn() == 1; }));
    EXPECT_EQ(console(), "");
}

TEST_F(SeekGraphThroughSocket, TheSecondQuestionComesTwoSecondsBehindTheAnswer) {
    begin();
    openGraph();
    answer(ads(1));
    ASSERT_TRUE(waitUntil([] { return drawn() == 1; }));
    ASSERT_TRUE(asked(2));
    EXPECT_EQ(modChess.gLastCmd, "sought");
}

TEST_F(SeekGraphThroughSocket, UpTo201AdsAreShown) {
    begin();
    openGraph();
    for (const int count : {200, 201}) {
        answer(ads(count));
        ASSERT_TRUE(waitUntil([&] { return drawn() == count; })) << count;
        tick();
    }
    EXPECT_EQ(console(), "");
}

TEST_F(SeekGraphThroughSocket, The202ndAdIsAFaultOfTheBatch) {
    begin();
    openGraph();
    auto& read = client->session.pipeline.hooks.dataParse;
    std::string fault;
    read = [&fault, real = read](const std::string& batch) {
        try {
            real(batch);
        } catch (const std::exception& thrown) {
            fault = thrown.what();
        }
    };
    answer(ads(202));
    ASSERT_TRUE(waitUntil([&] { return !fault.empty(); }));
    EXPECT_THAT(fault, HasSubstr("subscript 201 is outside 0 to 200 (ads of the server), met by \"202 1711"));
}

TEST_F(SeekGraphThroughSocket, AnAnswerInTwoHalvesAroundABoardUpdateIsOneAnswer) {
    begin();
    loopback.send(record(0));
    ASSERT_TRUE(waitUntil([] { return firstGame().gameIndex == 12; }));
    client->session.timerFired(SessionTimer::tmrState); // the game's move list never comes
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    const std::vector<SoughtLine> all = ads(4);
    loopback.send(all[0].wire() + all[1].wire() + "fics% " + record(0) + all[2].wire());
    loopback.send(all[3].wire() + "4 ads displayed.\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return drawn() == 3; }))
        << "what stands behind a prompt is no row: the third begins with one";
}

TEST_F(SeekGraphThroughSocket, AGameThatBeginsInMidAnswerAsksForItsMovesAndTheAnswersRestIsNotRead) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    const std::vector<SoughtLine> all = ads(2);
    loopback.send(all[0].wire() + "fics% " + record(0));
    ASSERT_TRUE(serverGot("moves 12\n"));
    loopback.send(all[1].wire() + "2 ads displayed.\n\rfics% ");
    loopback.send("\n\r      {Still in progress} *\n\r\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return !modChess.MovesCapture; }));
    EXPECT_EQ(client->session.seekAds.SeekAdCount, 1);
    EXPECT_EQ(drawn(), 0);
}

TEST_F(SeekGraphThroughSocket, AServerThatNeverAnswersIsAskedAgainWhenTheCaptureHasRunOut) {
    begin();
    openGraph();
    EXPECT_TRUE(modChess.gSoughtCapture);
    tick(); // the watchdog of the fourth second: the capture is up until the fifth
    EXPECT_EQ(std::ranges::count(loopback.commands(), std::string("sought")), 1);
    client->session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.gSoughtCapture);
    ASSERT_TRUE(asked(2)) << "two seconds behind the watchdog";
}

TEST_F(SeekGraphThroughSocket, ALateAnswerIsHiddenRowByRowWhileTheGraphIsOn) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    client->session.timerFired(SessionTimer::tmrState);
    answer(ads(2));
    expectSilence();
    EXPECT_EQ(drawn(), 0) << "nobody reads it any more";
}

TEST_F(SeekGraphThroughSocket, ClosedInTheMiddleOfAnAnswerTheRestIsReadAndDrawnByNobody) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    const std::vector<SoughtLine> all = ads(2);
    loopback.send(all[0].wire() + "fics% ");
    ASSERT_TRUE(waitUntil([this] { return client->session.seekAds.SeekAdCount == 1; }));
    graph()->close();
    EXPECT_FALSE(modChess.gSeekOn);
    loopback.send(all[1].wire() + "2 ads displayed.\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return !modChess.gSoughtCapture; }));
    EXPECT_EQ(client->session.seekAds.SeekAdCount, 2);
    EXPECT_THAT(console(), Not(HasSubstr("GUILTYKING")));
}

TEST_F(SeekGraphThroughSocket, OpenedAgainInMidAnswerItsTableGoesOnBehindWhatWasRead) {
    begin();
    openGraph();
    loopback.send(ads(1)[0].wire() + "fics% ");
    ASSERT_TRUE(waitUntil([this] { return client->session.seekAds.SeekAdCount == 1; }));
    graph()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    client->session.timerFired(SessionTimer::tmrState);
    chooseEntry(entry("mnuSeekGrf"));
    ASSERT_TRUE(asked(2));
    std::vector<SoughtLine> others = ads(2);
    for (SoughtLine& ad : others) ad.name = "Anders";
    answer(others);
    ASSERT_TRUE(waitUntil([] { return drawn() == 2; })) << "the count line cuts";
    EXPECT_EQ(client->session.seekAds.SeekAds[0].AdName, "GUILTYKING");
    EXPECT_EQ(client->session.seekAds.SeekAds[1].AdName, "Anders");
    tick();
    ASSERT_TRUE(asked(3));
    answer(others);
    ASSERT_TRUE(waitUntil([this] { return client->session.seekAds.SeekAds[0].AdName == "Anders"; }));
}

TEST_F(SeekGraphThroughSocket, SoughtOfTheUsersIsTakenForTheGraphsOwnQuestion) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    type("sought");
    ASSERT_TRUE(asked(3));
    answer(ads(3));
    ASSERT_TRUE(waitUntil([] { return drawn() == 3; }));
    answer(ads(3)); // the other question's
    loopback.send("\n\rsettled\n\rfics% ");
    ASSERT_TRUE(consoleHas("settled"));
    EXPECT_THAT(console(), Not(HasSubstr("GUILTYKING")));
    EXPECT_THAT(console(), Not(HasSubstr("displayed")));
}

TEST_F(SeekGraphThroughSocket, ACommandOfTheUserInBetweenEndsTheCaptureAndItsAnswerIsPrinted) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    type("who");
    ASSERT_TRUE(serverGot("who\n"));
    loopback.send("\n\r1500 Berta\n\rfics% ");
    ASSERT_TRUE(consoleHas("1500 Berta"));
    EXPECT_FALSE(modChess.gSoughtCapture);
}

TEST_F(SeekGraphThroughSocket, ATableThatTheUserAskedForIsPrinted) {
    begin();
    openGraph();
    secondPoll();
    if (HasFatalFailure()) return;
    type("sought all");
    ASSERT_TRUE(serverGot("sought all\n"));
    answer(ads(2));
    ASSERT_TRUE(consoleHas("2 ads displayed."));
    EXPECT_THAT(console(), HasSubstr("1 1711 GUILTYKING"));
}

// Window and menus

TEST_F(SeekGraphThroughSocket, TheConsolesEntryTicksItselfAndShowsTheGraph) {
    begin();
    EXPECT_FALSE(entry("mnuSeekGrf").isChecked());
    chooseEntry(entry("mnuSeekGrf"));
    ASSERT_TRUE(graph());
    EXPECT_TRUE(entry("mnuSeekGrf").isChecked());
    EXPECT_TRUE(client->session.classifier.menu.mnuSeekGrf);
    chooseEntry(entry("mnuSeekGrf"));
    EXPECT_TRUE(entry("mnuSeekGrf").isChecked()) << "chosen once more it shows the graph again";
    EXPECT_EQ(openWindows.count("frmSeek"), 1);
}

TEST_F(SeekGraphThroughSocket, ABoardsEntryTicksTheConsoles) {
    begin();
    chooseEntry(*boards()[0]->findChild<QAction*>(QStringLiteral("mnuSeekGrf")));
    ASSERT_TRUE(graph());
    EXPECT_TRUE(entry("mnuSeekGrf").isChecked());
}

TEST_F(SeekGraphThroughSocket, ClosedByTheUserTheTickGoesAndTheGraphStaysAway) {
    begin();
    openGraph();
    graph()->close();
    EXPECT_FALSE(entry("mnuSeekGrf").isChecked());
    EXPECT_FALSE(client->session.classifier.menu.mnuSeekGrf);
    loopback.send("Style 12 set.\n\rfics% ");
    ASSERT_TRUE(consoleHas("Style 12 set."));
    EXPECT_EQ(openWindows.count("frmSeek"), 0);
}

TEST_F(SeekGraphThroughSocket, WithTheTickStoredItOpensWhenTheServerHasSetTheStyle) {
    set("Seek_Graph", "True");
    begin();
    EXPECT_FALSE(graph());
    loopback.send("Style 12 set.\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return graph() != nullptr; }));
    EXPECT_TRUE(serverGot("Set Seek 0\n"));
}

TEST_F(SeekGraphThroughSocket, TheEndOfTheConnectionUnloadsItAndKeepsTheTick) {
    begin();
    openGraph();
    loopback.hangUp();
    ASSERT_TRUE(waitUntil([this] { return socketState() == 0; }));
    client->session.connection.tmrTCPTimer();
    EXPECT_EQ(openWindows.count("frmSeek"), 0);
    EXPECT_TRUE(entry("mnuSeekGrf").isChecked());
    EXPECT_FALSE(modChess.gConsoleQuiet);
}

TEST_F(SeekGraphThroughSocket, TheCloseDownUnloadsItWithItsTickAndPlaceKept) {
    set("Registry_OK", "Yes");
    begin();
    openGraph();
    graph()->move(45, 60);
    client->close();
    EXPECT_EQ(openWindows.count("frmSeek"), 0);
    EXPECT_EQ(stored("Client", "Seek_Graph"), "True");
    EXPECT_EQ(stored("Seek", "Left"), "675");
}

TEST_F(SeekGraphThroughSocket, WhatIsTypedThereStandsInTheConsolesLine) {
    begin();
    openGraph();
    QTest::keyClicks(graph(), QStringLiteral("te"));
    EXPECT_EQ(txtSend().line(), "te");
    EXPECT_EQ(client->focusWidget(), &txtSend());
}

TEST_F(SeekGraphThroughSocket, AClickOnADotPlaysItSilently) {
    begin();
    openGraph();
    answer(ads(3));
    ASSERT_TRUE(waitUntil([] { return drawn() == 3; }));
    QTest::mouseClick(&plot(), Qt::LeftButton, {}, plot().squareOf(1).center().toPoint());
    EXPECT_TRUE(serverGot("Play 2\n"));
    EXPECT_EQ(console(), "");
}

// Around games

TEST_F(SeekGraphThroughSocket, WithSeekOffEveryRecordUnloadsItAndTheEndOfAGameOfOnesOwnBringsItBack) {
    set("Seek_Off", "1");
    begin();
    openGraph();
    loopback.send(record(1));
    ASSERT_TRUE(waitUntil([] { return openWindows.count("frmSeek") == 0; }));
    EXPECT_FALSE(modChess.gSeekOn);
    EXPECT_TRUE(entry("mnuSeekGrf").isChecked());
    loopback.send("\n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return graph() != nullptr; }));
    EXPECT_TRUE(modChess.gSeekOn);
    EXPECT_TRUE(asked(2));
}

TEST_F(SeekGraphThroughSocket, WithSeekOffAnObservedGameUnloadsItTooAndItsEndBringsNothingBack) {
    set("Seek_Off", "1");
    begin();
    openGraph();
    loopback.send(record(0));
    ASSERT_TRUE(waitUntil([] { return openWindows.count("frmSeek") == 0; }));
    loopback.send("\n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    ASSERT_TRUE(consoleHas("Berta resigns"));
    EXPECT_EQ(openWindows.count("frmSeek"), 0);
}

TEST_F(SeekGraphThroughSocket, WithoutSeekOffAGameBeginsAndEndsBesideIt) {
    begin();
    openGraph();
    const frmSeek* before = graph();
    loopback.send(record(1));
    ASSERT_TRUE(waitUntil([] { return firstGame().gameIndex == 12; }));
    EXPECT_EQ(graph(), before);
    loopback.send("\n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return firstGame().gameIndex == 0; }));
    EXPECT_EQ(graph(), before);
    EXPECT_TRUE(modChess.gSeekOn);
}
