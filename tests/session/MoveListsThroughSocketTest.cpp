// Move lists in the program, with a server at a real socket: a running game is joined, saved and reviewed.
#include "board/BoardRig.h"
#include "session/ClientRig.h"
#include "settings/TemporaryFolder.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* Answer = "\n\rMovelist for game 12:\n\r\n\r"
                               "Anders (1500) vs. Berta (1600) --- Thu Oct 14, 20:36 PDT 2010\n\r"
                               "Rated blitz match, initial time: 5 minutes, increment: 2 seconds.\n\r\n\r"
                               "Move  Anders             Berta\n\r"
                               "----  ----------------   ----------------\n\r"
                               "  1.  e4      (0:00)     e5      (0:01)\n\r"
                               "      {Still in progress} *\n\r\n\rfics% ";

class MoveListsThroughSocket : public ClientRig {
protected:
    void begin() {
        connected();
        modChess.gPrompt = "fics% ";
    }
    static std::string position(int relation) {
        const LineOf line{.ranks = AfterE4E5,
                          .game = 12,
                          .relation = relation,
                          .moveNumber = 2,
                          .verbose = "P/e7-e5",
                          .pretty = "e5"};
        return "\n\r" + line.text(" 0 0\n\r") + "\n\rfics% ";
    }
    // Game 12 is joined, and its list has come.
    void join() {
        loopback.send(position(0));
        ASSERT_TRUE(serverGot("moves 12\n"));
        loopback.send(Answer);
        ASSERT_TRUE(waitUntil([] { return firstGame().LastRow == 2; }));
    }
    static std::string cell(int row, int col) {
        const auto& grid = *boards()[0]->findChild<MoveGrid*>();
        return grid.model()->index(row - 1, col).data().toString().toStdString();
    }
    static std::string panel(int number) {
        const auto name = QStringLiteral("stbGame(%1)").arg(number);
        return boards()[0]->findChild<QLabel*>(name)->text().toStdString();
    }
    static QAction& saving() { return *boards()[0]->findChild<QAction*>(QStringLiteral("mnuSavePGN")); }
};

} // namespace

TEST_F(MoveListsThroughSocket, JoiningARunningGameFillsListTitleAndPanels) {
    begin();
    join();
    EXPECT_EQ(cell(1, 1) + " " + cell(1, 2), "e4 e5");
    EXPECT_EQ(cell(2, 0) + cell(2, 1), "2");
    EXPECT_EQ(boards()[0]->windowTitle().toStdString(), "Anders (1500) vs. Berta (1600) - Observing");
    EXPECT_EQ(panel(2), "Anders - Berta    [5 2]   Rated");
    EXPECT_EQ(panel(3), "Game 12");
    EXPECT_TRUE(saving().isEnabled());
}

TEST_F(MoveListsThroughSocket, TheConsoleShowsTheMovelistsLineAndThenTheGame) {
    begin();
    join();
    EXPECT_THAT(console(), HasSubstr("Movelist for game 12:\n"));
    EXPECT_THAT(console(), HasSubstr("\nAnders (1500) vs. Berta (1600) --- Thu Oct 14, 20:36 PDT 2010\n"
                                     "Rated blitz match, initial time: 5 minutes, increment: 2 seconds.\n"));
    EXPECT_THAT(console(), Not(HasSubstr("(0:01)")));
    EXPECT_THAT(console(), Not(HasSubstr("Still in progress")));
}

TEST_F(MoveListsThroughSocket, TheListMayComeInPiecesAndWithTheNextMoveInFrontOfIt) {
    begin();
    loopback.send(position(0));
    ASSERT_TRUE(serverGot("moves 12\n"));
    const LineOf next{.ranks = "rnbqkbnr pppp-ppp -------- ----p--- ----P--- -----N-- PPPP-PPP RNBQKB-R",
                      .turn = "B",
                      .game = 12,
                      .relation = 0,
                      .moveNumber = 2,
                      .verbose = "N/g1-f3",
                      .pretty = "Nf3"};
    loopback.send("\n\r" + next.text(" 0 0\n\r") + "\n\rfics% ");
    for (const std::string_view piece : packetsOf(Answer, Packets::SevenBytes)) loopback.send(piece);
    ASSERT_TRUE(waitUntil([] { return !modChess.MovesCapture; }));
    EXPECT_EQ(cell(1, 2), "e5");
    EXPECT_EQ(firstGame().Board[21], 5) << "the knight stands on f3";
    firstGame().zReposition(-2);
    EXPECT_EQ(firstGame().Board[21], 0);
    firstGame().zReposition(2);
    EXPECT_EQ(firstGame().Board[21], 5);
}

TEST_F(MoveListsThroughSocket, AJoinedGameIsSavedFromItsMenuAndTheConsoleSaysSo) {
    const TemporaryFolder folder;
    boxes.fileSave = [](QWidget*, const std::string&, const std::string&, const std::string&) {
        return std::optional<std::string>("joined.pgn");
    };
    begin();
    join();
    chooseEntry(saving());
    ASSERT_TRUE(consoleHas("Game was saved to joined.pgn"));
    EXPECT_THAT(folder.read("joined.pgn"), HasSubstr("[White \"Anders\"]"));
    EXPECT_THAT(folder.read("joined.pgn"), HasSubstr("\r\n\r\n1. e4 e5\r\n*\r\n\r\n"));
}

TEST_F(MoveListsThroughSocket, AFileThatCannotTakeTheGameIsToldInABoxAlone) {
    boxes.fileSave = [](QWidget*, const std::string&, const std::string&, const std::string&) {
        return std::optional<std::string>("/dev/full");
    };
    begin();
    join();
    chooseEntry(saving());
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_EQ(messages, std::vector<std::string>{"Game could not be saved."});
    EXPECT_THAT(console(), Not(HasSubstr("saved")));
}

TEST_F(MoveListsThroughSocket, AListForAFileThatCannotTakeItIsToldInABoxBehindTheArrival) {
    begin();
    modChess.MovesTarget = -1;
    modChess.MovesFile = "/dev/full";
    client->session.zGetMoves(100, "Anders 17");
    ASSERT_TRUE(serverGot("smoves Anders 17\n"));
    loopback.send(Answer);
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_EQ(messages, std::vector<std::string>{"Game could not be saved."});
}

TEST_F(MoveListsThroughSocket, AGameForReviewStandsAtItsStartAndIsWalked) {
    begin();
    modChess.MovesTarget = -2;
    client->session.road.zSendMsg("smoves Anders 17");
    client->session.pipeline.zSetstate(4);
    loopback.send(Answer);
    ASSERT_TRUE(waitUntil([] { return firstGame().GameLoaded; }));
    EXPECT_EQ(boards()[0]->windowTitle().toStdString(), "Anders (1500) vs. Berta (1600) - Reviewing");
    EXPECT_EQ(panel(2), "Anders - Berta   [5 2]  Rated");
    firstGame().zReposition(2);
    EXPECT_EQ(firstGame().Board[36], -6) << "a black pawn on e5";
    firstGame().zReposition(-2);
    firstGame().zReposition(1);
    EXPECT_EQ(firstGame().Board[28], 6);
    EXPECT_EQ(firstGame().Board[36], 0);
}
