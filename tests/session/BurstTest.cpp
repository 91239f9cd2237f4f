// Floods: nothing is lost, nothing waits at the end, and no batch grows past its limit.
#include "session/ProgramRig.h"

#include "board/BoardRig.h"
#include "common/modChess.h"
#include "platform/WaitUntil.h"
#include "settings/Sounds.h"

#include <QScrollBar>
#include <QTextBlock>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

const std::string Resigned =
    "\n\r{Game 7 (Anders vs. Berta) Berta resigns} 1-0\n\r\n\rNo ratings adjustment done.\n\rfics% ";
constexpr int FloodMs = 60000;

// White's and black's knights go out and home again; `ply` counts from 1.
const char* moveOf(int ply) {
    static const char* const moves[4] = {"Nc3", "Nc6", "Nb1", "Nb8"};
    return moves[(ply - 1) % 4];
}

std::string record(int game, int ply, int moveNumber) {
    static const char* const ranks[4][2] = {
        {"rnbqkbnr", "R-BQKBNR"}, {"r-bqkbnr", "R-BQKBNR"}, {"r-bqkbnr", "RNBQKBNR"}, {"rnbqkbnr", "RNBQKBNR"}};
    const auto& [black, white] = ranks[(ply - 1) % 4];
    const auto line =
        LineOf{.ranks = std::string(black) + " pppppppp -------- -------- -------- -------- PPPPPPPP " + white,
               .turn = ply % 2 == 1 ? "B" : "W",
               .game = game,
               .relation = -1,
               .whiteClock = ply,
               .moveNumber = moveNumber,
               .pretty = moveOf(ply)};
    return "\n\r" + line.text("\n\rfics% ");
}

// The record of a game's ply in its place; the game goes back to its first move after 200.
std::string update(int game, int ply) {
    const int row = (ply - 1) / 2 % 200 + 1;
    return record(game, ply, ply % 2 == 1 ? row : row + 1);
}

struct Burst : testing::Test {
    ProgramRig rig;

    void SetUp() override {
        rig.connectNow();
        rig.learnPrompt();
    }

    // Sent all at once; the client has read it when the last words are on the console.
    void flood(const std::string& text) {
        rig.server.sendLater(text + "\n\rthe flood is over\n\rfics% ");
        EXPECT_TRUE(waitUntil(
            [this] {
                rig.console().flush();
                return rig.console().document()->lastBlock().text().startsWith(QStringLiteral("fics%")) &&
                       rig.console().document()->lastBlock().previous().text() == QStringLiteral("the flood is over");
            },
            FloodMs));
    }

    void expectNoBacklog() {
        EXPECT_EQ(rig.client->session.pipeline.PendingText, "");
        EXPECT_EQ(rig.server.unsent(), 0);
        EXPECT_FALSE(rig.client->session.pipeline.ParseBusy);
        EXPECT_EQ(rig.fault, std::nullopt);
    }
};

} // namespace

TEST_F(Burst, Of2000UpdatesLosesNoneAndEndsOnTheLast) {
    std::string text;
    for (int ply = 1; ply <= 2000; ++ply) text += update(7, ply);
    flood(text);
    EXPECT_EQ(rig.updates.size(), 2000U);
    ASSERT_NE(rig.boardOf(7), nullptr);
    const Game& game = rig.boardOf(7)->game;
    EXPECT_EQ(game.Style12Record.WhiteClock, 2000) << "the clock numbers the updates";
    EXPECT_EQ(game.Board[1], 5) << "the knight is home";
    for (int ply = 1; ply <= 400; ++ply) {
        ASSERT_EQ(game.MoveText[(ply + 1) / 2][(ply - 1) % 2], moveOf(ply)) << ply;
    }
    expectNoBacklog();
}

TEST_F(Burst, OfUpdatesOfTwoGamesKeepsThemApart) {
    std::string text;
    for (int ply = 1; ply <= 200; ++ply) text += update(7, ply) + update(8, ply);
    flood(text);
    EXPECT_EQ(rig.updates.size(), 400U);
    ASSERT_EQ(rig.boards().size(), 2U);
    for (const int number : {7, 8}) {
        ASSERT_NE(rig.boardOf(number), nullptr);
        EXPECT_EQ(rig.boardOf(number)->game.LastRow, 100);
    }
    expectNoBacklog();
}

// All positions of a batch reach the boards before the end of a game in it is noticed.
TEST_F(Burst, AGameNumberReusedInTheBatchOfItsEndIsBackWithItsNextUpdate) {
    rig.server.send(update(7, 1) + Resigned + update(7, 1));
    ASSERT_TRUE(waitUntil([this] { return rig.updates.size() == 2; }));
    rig.server.send(update(7, 2));
    ASSERT_TRUE(waitUntil([this] { return rig.updates.size() == 3; }));
    ASSERT_NE(rig.boardOf(7), nullptr);
    EXPECT_EQ(ProgramRig::labelOf(*rig.boardOf(7), "stbGame(3)"), "Game 7");
    EXPECT_EQ(rig.boardOf(7)->game.MoveText[1][1], "Nc6");
    EXPECT_EQ(rig.boards().size(), 1U);
}

TEST_F(Burst, AGameNumberReusedAtOnceStartsAnewOnTheSameBoard) {
    rig.server.send(update(7, 1) + update(7, 2));
    ASSERT_TRUE(waitUntil([this] { return rig.updates.size() == 2; }));
    rig.server.send(Resigned);
    ASSERT_TRUE(waitUntil([this] { return rig.boardOf(7) == nullptr; }));
    std::string next = update(7, 1);
    next.replace(next.find("Anders Berta"), 12, "Cesar Doris");
    rig.server.send(next);
    ASSERT_TRUE(waitUntil([this] { return rig.updates.size() == 3; }));
    ASSERT_EQ(rig.boards().size(), 1U);
    const frmChessBoard& board = *rig.boards().at(0);
    EXPECT_EQ(board.game.gameIndex, 7);
    EXPECT_EQ(ProgramRig::labelOf(board, "stbGame(2)"), "Cesar - Doris    [5 2]");
    EXPECT_EQ(ProgramRig::labelOf(board, "stbGame(3)"), "Game 7");
    EXPECT_EQ(board.game.MoveText[1][0], "Nc3");
    EXPECT_TRUE(modChess.GameRunning);
}

TEST_F(Burst, Of5MegabytesOfTextShowsEveryLineOnceInOrderWithTheEndInView) {
    std::string text;
    std::vector<std::string> expected;
    for (int line = 0; text.size() < 5'000'000; ++line) {
        expected.push_back("line " + std::to_string(line) + std::string(60, '.'));
        text += "\n\r" + expected.back();
        if (line % 20 == 19) text += "\n\rfics% ";
    }
    flood(text);
    std::vector<std::string> shown;
    for (const std::string& line : rig.consoleLines()) {
        if (line.starts_with("line ")) shown.push_back(line);
    }
    ASSERT_EQ(shown.size(), expected.size());
    EXPECT_TRUE(shown == expected);
    const QScrollBar& bar = *rig.console().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    expectNoBacklog();
}

TEST_F(Burst, WithSoundsOnAsksForEachSoundOnceAndStartsNoProcess) {
    Sounds sounds;
    int waves = 0;
    sounds.wave = [&](const QString&) { ++waves; };
    sounds.beep = [] {};
    rig.boardRoads->playSound = [&](std::string_view name, std::int16_t mode) {
        sounds.zPlaySound(std::string(name), mode);
    };
    modChess.SoundOn = 1;
    modChess.SoundMove = 3;
    std::string text;
    for (int ply = 1; ply <= 300; ++ply) text += update(7, ply);
    flood(text);
    EXPECT_EQ(waves, 300);
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream children(task.path() / "children");
        std::string first;
        children >> first;
        EXPECT_EQ(first, "") << "a process was started";
    }
}

// Opening a board runs the message loop: what arrives meanwhile joins the drain that is running.
TEST_F(Burst, TextThatArrivesWhileABoardOpensJoinsTheRunningDrain) {
    bool busyAtArrival = false;
    const auto open = rig.roads.openBoard;
    rig.roads.openBoard = [&] {
        rig.server.send(update(8, 2));
        busyAtArrival = waitUntil([&] { return !rig.client->session.pipeline.PendingText.empty(); }) &&
                        rig.client->session.pipeline.ParseBusy;
        return open();
    };
    rig.server.send(update(7, 1) + update(8, 1));
    ASSERT_TRUE(waitUntil([this] { return rig.updates.size() == 3; }));
    EXPECT_TRUE(busyAtArrival);
    EXPECT_EQ(rig.boardOf(8)->game.LastCol, 1) << "the update that came during the opening was read last";
    EXPECT_EQ(rig.boardOf(7)->game.LastCol, 0);
    expectNoBacklog();
}
