// What servers and lines may do to the program: it stays up and responsive, shows text as text, and ends games as told.
#include "session/ProgramRig.h"

#include "board/BoardRig.h"
#include "common/modChess.h"
#include "platform/WaitUntil.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

// Ticks every few milliseconds as long as the message loop is free, and remembers its longest silence.
struct Heartbeat {
    QTimer timer;
    QElapsedTimer since;
    qint64 longestMs = 0;
    int ticks = 0;

    Heartbeat() {
        since.start();
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] {
            longestMs = std::max(longestMs, since.restart());
            ++ticks;
        });
        timer.start(5);
    }
};

// A connected program that knows the prompt.
struct HostileServer : testing::Test {
    ProgramRig rig;

    void SetUp() override {
        rig.connectNow();
        rig.learnPrompt();
    }

    bool consoleHolds(const std::string& text) { return rig.console().text().find(text) != std::string::npos; }
    // The next thing the server says is read as ever.
    bool stillReads() {
        rig.server.send("\n\rstill here\n\rfics% ");
        return waitUntil([this] { return consoleHolds("still here"); });
    }
    // The connection is noticed as gone by the tick that looks after it.
    void expectConnectionLost() {
        ASSERT_TRUE(waitUntil([this] { return rig.client->session.road.hooks.socketState() == 0; }));
        rig.client->session.connection.tmrTCPTimer();
        EXPECT_EQ(rig.client->windowTitle().toStdString(), "Brightrank - Client     Closed");
    }
    void beginGame() {
        const auto line =
            LineOf{.ranks = AfterE4, .turn = "B", .game = 7, .relation = -1, .verbose = "P/e2-e4", .pretty = "e4"};
        rig.server.send("\n\r" + line.text("\n\rfics% "));
        ASSERT_TRUE(waitUntil([this] { return rig.boardOf(7) != nullptr; }));
    }
};

struct OddText {
    const char* name;
    std::string sent;
    std::string shown;
};

void PrintTo(const OddText& text, std::ostream* out) { *out << text.name; }

class OddTextFromServer : public HostileServer, public testing::WithParamInterface<OddText> {};

std::string withNul(const char* before, const char* behind) { return before + std::string(1, '\0') + behind; }

} // namespace

TEST_F(HostileServer, ALineDroppedInTheMiddleOfABatchIsShownAndTheGameEnds) {
    beginGame();
    rig.server.send("\n\rhalf of an answer that never");
    rig.server.hangUp();
    expectConnectionLost();
    const frmChessBoard& board = *rig.boards().at(0);
    EXPECT_EQ(board.game.xMyRel(), "-100");
    EXPECT_EQ(board.game.gameIndex, 0);
    EXPECT_EQ(board.game.Board[28], 6) << "the position stays";
    EXPECT_EQ(ProgramRig::labelOf(board, "stbGame(2)"), "Was Anders - Berta    [5 2]");
    EXPECT_EQ(ProgramRig::labelOf(board, "stbGame(3)"), "");
    EXPECT_EQ(board.windowTitle().toStdString(), "Brightrank - Board");
    EXPECT_FALSE(modChess.GameRunning);
    EXPECT_FALSE(consoleHolds("half of an answer")) << "it is held until the prompt or three seconds";
    EXPECT_TRUE(waitUntil([this] { return consoleHolds("half of an answer that never"); }, 6000));
}

TEST_F(HostileServer, AConnectionCutOffEndsTheGameAndTheTitleSaysSoWithoutABox) {
    beginGame();
    rig.server.cutOff();
    expectConnectionLost();
    const frmChessBoard& board = *rig.boards().at(0);
    EXPECT_EQ(board.game.xMyRel(), "-100");
    EXPECT_EQ(board.windowTitle().toStdString(), "Brightrank - Board");
    EXPECT_TRUE(rig.messages.empty()) << rig.messages[0];
    EXPECT_EQ(rig.questions, 0);
}

TEST_F(HostileServer, AfterALostConnectionTheNextOneWorksWithTheSameBoard) {
    beginGame();
    rig.server.hangUp();
    expectConnectionLost();
    rig.client->session.connection.mnuConnectClick(0);
    ASSERT_TRUE(
        waitUntil([this] { return rig.server.hasClient() && rig.client->session.road.hooks.socketState() == 7; }));
    beginGame();
    EXPECT_EQ(rig.boards().size(), 1U);
}

TEST_F(HostileServer, OneThatSaysNothingLeavesTheProgramFree) {
    const Heartbeat heart;
    runFor(500);
    EXPECT_GT(heart.ticks, 20);
    EXPECT_TRUE(stillReads());
}

TEST_F(HostileServer, OneByteASecondIsReadAsItsLineIsComplete) {
    const Heartbeat heart;
    for (const char c : std::string("ab\n\r")) {
        rig.server.send(std::string(1, c));
        runFor(700);
    }
    EXPECT_GT(heart.ticks, 100);
    rig.server.send("fics% ");
    EXPECT_TRUE(waitUntil([this] { return consoleHolds("ab"); }));
}

TEST(HostileHost, ALineOfTenMegabytesComesThroughWithoutLosingAByte) {
    ProgramRig rig; // no prompt is learnt: text that has none would be held for three seconds again and again
    rig.connectNow();
    const qsizetype length = 10'000'000;
    const Heartbeat heart;
    rig.server.sendLater(std::string(length, 'x') + "\n\rend of it\n\r");
    const auto* text = rig.console().document();
    EXPECT_TRUE(waitUntil([&] { return text->characterCount() > length + 10; }, 60000)) << text->characterCount();
    std::string shown = rig.console().text();
    EXPECT_TRUE(shown.ends_with("x\nend of it\n"));
    EXPECT_EQ(std::ranges::count(shown, 'x'), length);
    EXPECT_LT(heart.longestMs, 5000);
    EXPECT_GT(heart.ticks, 0);
}

TEST_P(OddTextFromServer, IsShownAsText) {
    rig.server.send("\n\r" + GetParam().sent + "\n\rfics% ");
    EXPECT_TRUE(waitUntil([this] { return consoleHolds(GetParam().shown); })) << rig.console().text();
    EXPECT_TRUE(stillReads());
    EXPECT_EQ(rig.boards().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Such, OddTextFromServer,
                         testing::Values(OddText{"Nul", withNul("before", "behind"), withNul("before", "behind")},
                                         OddText{"Escape", "red \x1b[31m and \x1b]0;title\x07 end",
                                                 "red \x1b[31m and \x1b]0;title\x07 end"},
                                         OddText{"Html", "<b>bold</b> <img src='http://x/y.png'> &amp;",
                                                 "<b>bold</b> <img src='http://x/y.png'> &amp;"},
                                         OddText{"WithoutTelnet", "x\xff\xfb\x01\xff\xfc\x01y", "xy"},
                                         OddText{"Latin1", "gr\xfc\xdf dich", "gr\xfc\xdf dich"},
                                         OddText{"Utf8", "\xe2\x99\x94 king", "\xe2\x99\x94 king"},
                                         OddText{"PercentSigns", "%s%n%1 %2", "%s%n%1 %2"}),
                         [](const auto& text) { return std::string(text.param.name); });

// A record of nonsense may move pieces; it must not do more than that.
TEST_F(HostileServer, BrokenStyle12LinesDoNoHarm) {
    const std::string ranks = StartRanks + " ";
    const std::vector<std::string> broken{
        "<12> ", "<12> " + ranks, "<12> a b c d e f g h W x x x x x x 7 A B 1 x x x x x x 1 P/z9-z9 (0:00) e4 0",
        "<12> " + ranks + "W -1 1 1 1 1 0 99999 A B 1 1 1 1 1 1 1 1 none (0:00) none 0",
        "<12> " + ranks + "W -1 1 1 1 1 0 7 A B 1 1 1 1 1 9e99 -9e99 1 none (0:00) none 0"};
    for (const std::string& line : broken) {
        rig.server.send("\n\r" + line + "\n\rfics% ");
        runFor(60);
    }
    EXPECT_TRUE(stillReads());
    EXPECT_EQ(rig.fault, std::nullopt);
}

TEST(HostileHost, OneThatRefusesIsToldAndTheProgramGoesOn) {
    ProgramRig rig;
    rig.server.refuse();
    rig.client->session.connection.tmrTCPTimer();
    ASSERT_TRUE(waitUntil([&] { return !rig.messages.empty(); }));
    EXPECT_EQ(rig.messages, std::vector<std::string>{"Server not found\nCheck Internet connection"});
    EXPECT_EQ(rig.client->session.road.hooks.socketState(), 0);
}

TEST(HostileHost, ANameThatCannotBeResolvedIsTold) {
    ProgramRig rig;
    modChess.ServerIP = "no-such-host.invalid";
    const Heartbeat heart;
    rig.client->session.connection.tmrTCPTimer();
    ASSERT_TRUE(waitUntil([&] { return !rig.messages.empty(); }, 30000));
    EXPECT_EQ(rig.messages, std::vector<std::string>{"Server not found\nCheck Internet connection"});
    EXPECT_EQ(rig.client->session.road.hooks.socketState(), 0);
}
