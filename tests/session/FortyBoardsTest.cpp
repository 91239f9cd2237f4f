// Forty boards at once, each with a running game: every update reaches its board, and games come and go beside others.
#include "session/ManyBoardsRig.h"

#include "common/modChess.h"

#include <QPushButton>

#include <algorithm>
#include <numeric>

namespace {

class FortyBoards : public ManyBoards {
protected:
    // `rounds` positions of each game, in an order drawn anew for each round.
    std::string shuffledRounds(int rounds) {
        std::vector<std::size_t> order(games.size());
        std::iota(order.begin(), order.end(), 0U);
        std::string text;
        for (int round = 0; round < rounds; ++round) {
            std::ranges::shuffle(order, random);
            for (const std::size_t place : order) text += games[place].next();
        }
        return text;
    }
    void sendInPackets(const std::string& text, Packets packets) {
        for (const std::string_view packet : packetsOf(text, packets)) {
            rig.server.send(packet);
            QCoreApplication::processEvents();
        }
    }
};

} // namespace

TEST_F(FortyBoards, FedInTurnFromOneStreamEachShowsItsOwnGame) {
    openAll();
    expectFaces();
    rig.updates.clear();
    read(shuffledRounds(25));
    EXPECT_EQ(rig.updates.size(), 1000U);
    expectFaces();
    expectMoves();
    EXPECT_EQ(rig.boards().size(), std::size_t{Forty});
}

TEST_F(FortyBoards, FedInSmallPacketsEachShowsItsOwnGame) {
    openAll();
    sendInPackets(shuffledRounds(2), Packets::SevenBytes);
    sendInPackets(shuffledRounds(3), Packets::OneLine);
    read("");
    expectFaces();
    expectMoves();
}

TEST_F(FortyBoards, AMoveTakenBackAndPlayedAnewOnOneLeavesTheOthersAlone) {
    openAll();
    read(shuffledRounds(4));
    games[6] = gameOf(7, "first");
    read(games[6].next());
    read(games[6].next());
    expectFaces();
}

TEST_F(FortyBoards, OfWhichSomeEndShowWhatTheyWereWhileTheOthersGoOn) {
    openAll();
    read(shuffledRounds(3));
    std::string text;
    for (int number = 1; number <= Forty; number += 4) text += game(number).end();
    read(text);
    for (int number = 1; number <= Forty; number += 4) {
        EXPECT_EQ(rig.boardOf(number), nullptr);
        const frmChessBoard& board = *rig.boards()[static_cast<std::size_t>(number - 1)];
        const std::string squares = game(number).face().substr(0, 64);
        EXPECT_EQ(faceOf(board).substr(0, 64), squares) << "the position stays";
        EXPECT_TRUE(ProgramRig::labelOf(board, "stbGame(2)").starts_with("Was Whitefirst" + std::to_string(number)));
        EXPECT_EQ(board.windowTitle().toStdString(), "Brightrank - Board");
    }
    std::erase_if(games, [](const WatchedGame& each) { return each.number() % 4 == 1; });
    read(shuffledRounds(3));
    expectFaces();
    expectMoves();
}

TEST_F(FortyBoards, NumbersReusedByOtherGamesStartAnewOnTheBoardsThatAreFree) {
    openAll();
    read(shuffledRounds(3));
    for (const char* round : {"second", "third"}) {
        std::string text;
        for (int number = 3; number <= Forty; number += 5) text += game(number).end();
        read(text);
        text.clear();
        for (int number = Forty - 2; number >= 3; number -= 5) { // the oldest free board takes the first
            game(number) = gameOf(number, round);
            text += game(number).next();
        }
        read(text);
        read(shuffledRounds(4));
        expectFaces();
        expectMoves();
    }
    EXPECT_EQ(rig.boards().size(), std::size_t{Forty});
}

TEST_F(FortyBoards, AllEndingAtOnceAreAllFreeForTheNextForty) {
    openAll();
    std::string text;
    for (const WatchedGame& each : games) text += each.end();
    read(text);
    for (const frmChessBoard* board : rig.boards()) EXPECT_EQ(board->game.xMyRel(), "-100");
    games.clear();
    openAll();
    read(shuffledRounds(2));
    expectFaces();
    EXPECT_EQ(rig.boards().size(), std::size_t{Forty});
}

TEST_F(FortyBoards, OneThatIsUnobservedByItsButtonIsFreeWhenTheServerHasRemovedIt) {
    openAll();
    frmChessBoard& board = *rig.boardOf(17);
    board.findChild<QPushButton*>(QStringLiteral("cmdUn"))->click();
    ASSERT_TRUE(serverGot("unob"));
    EXPECT_EQ(board.game.gameIndex, 17) << "the server has the word";
    read("\n\rRemoving game 17 from observation list.\n\rfics% ");
    EXPECT_EQ(board.game.gameIndex, 0);
    EXPECT_TRUE(board.findChild<QPushButton*>(QStringLiteral("cmdUn"))->isHidden());
    games.erase(games.begin() + 16);
    read(shuffledRounds(2));
    expectFaces();
    expectMoves();
    games.push_back(gameOf(90, "next"));
    read(games.back().next());
    EXPECT_EQ(rig.boardOf(90), &board);
}

TEST_F(FortyBoards, LoseTheirGamesWithTheConnectionAndKeepTheirPositions) {
    openAll();
    read(shuffledRounds(2));
    rig.server.hangUp();
    ASSERT_TRUE(waitUntil([this] { return rig.client->session.road.hooks.socketState() == 0; }));
    rig.client->session.connection.tmrTCPTimer();
    const auto boards = rig.boards();
    ASSERT_EQ(boards.size(), std::size_t{Forty});
    for (std::size_t place = 0; place < boards.size(); ++place) {
        EXPECT_EQ(boards[place]->game.xMyRel(), "-100");
        EXPECT_EQ(faceOf(*boards[place]).substr(0, 64), games[place].face().substr(0, 64));
    }
    EXPECT_FALSE(modChess.GameRunning);
}
