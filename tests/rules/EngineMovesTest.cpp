// The rules of the board against an engine that knows chess, in random games.
//
// BRIGHTRANK_RULES_GAMES (default 8) and BRIGHTRANK_RULES_SEED (default 1) choose the games.
#include "board/Game.h"
#include "board/MoveRules.h"
#include "board/PieceCodes.h"
#include "board/QuietGame.h"
#include "common/Squares.h"
#include "common/Text.h"
#include "practice/chess/MoveText.h"
#include "rules/EngineTalk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <random>

namespace {

constexpr int MostPlies = 200;

// Random games from the start position castle late and seldom: each second game begins here.
constexpr std::string_view ReadyToCastle = "r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R w KQkq - 0 1";

int numberFrom(const char* variable, int otherwise) {
    const char* const text = std::getenv(variable);
    return text != nullptr ? std::atoi(text) : otherwise;
}

// What a run has seen, so that a run without castling cannot pass for one with it.
struct Seen {
    long positions = 0;
    long moves = 0;
    long shortCastlings = 0;
    long longCastlings = 0;
    long enPassants = 0;
    long promotions = 0;
    long checks = 0;
    long moreThanEngine = 0; // accepted by the rules alone
};

// A local game that walks beside the engine.
struct Walk {
    EngineTalk& engine;
    Seen& seen;
    std::unique_ptr<Game> owned = quietGame();
    Game& game = *owned;
    std::string fen;

    Walk(EngineTalk& talk, Seen& record, std::string_view start) : engine(talk), seen(record), fen(start) {
        game.beginLoad();
        game.finishLoad();
        const practice::Position position = practice::readFen(fen).value();
        for (int square = 0; square < 64; ++square) {
            game.Board[square] = pieceCode(position.board[static_cast<std::size_t>(square)]);
        }
    }

    // Whether the user would be asked for the piece of a promotion.
    bool takeUp(const std::string& move) {
        game.zSetFrom(zSquareNumber(move.substr(0, 2)));
        return game.asksPromotion(zSquareNumber(move.substr(2, 2)));
    }

    // The text of the move, empty if it was refused. `move` is the engine's, such as "e7e8q".
    std::string make(const std::string& move, bool display) {
        if (takeUp(move)) game.PromotePiece = static_cast<std::int16_t>(std::abs(pieceCode(move.at(4))));
        return game.zMakeMove(zSquareNumber(move.substr(2, 2)), true, display);
    }

    std::string boardText() const {
        std::string text;
        for (int square = 0; square < 64; ++square) {
            const int code = game.Board[square];
            const char letter = "-kqrbnp"[std::abs(code)];
            text += code > 0 ? static_cast<char>(letter - ('a' - 'A')) : letter;
        }
        return text;
    }
};

std::string boardText(const std::string& fen) {
    const auto position = practice::readFen(fen).value();
    return {position.board.begin(), position.board.end()};
}

// What a move of the game changes, to be taken back.
struct Before {
    Game& game;
    BoardSquares board = game.Board;
    MoveUndos undo = game.MoveUndo;
    std::int16_t turn = game.Turn;
    std::int16_t row = game.MoveRow;

    void restore() const {
        game.Board = board;
        game.MoveUndo = undo;
        game.Turn = turn;
        game.MoveRow = row;
    }
};

void count(Seen& seen, const Walk& walk, const std::string& move, const practice::PositionFacts& behind) {
    const int from = zSquareNumber(move.substr(0, 2));
    const int to = zSquareNumber(move.substr(2, 2));
    const int piece = walk.game.Board[from];
    ++seen.moves;
    if (zCastle(piece, from, to)) ++(to > from ? seen.shortCastlings : seen.longCastlings);
    seen.enPassants += zEnPassantCapture(piece, from, to, walk.game.Board[to]);
    seen.promotions += move.size() == 5;
    seen.checks += behind.check;
}

// Each legal move is accepted, leads where the engine says, and has a text that names it alone.
void tryEveryMove(Walk& walk, const practice::PositionFacts& facts) {
    const Before before{walk.game};
    const auto behind = walk.engine.behind(walk.fen, facts.legal);
    const practice::Position position = practice::readFen(walk.fen).value();
    for (std::size_t i = 0; i < behind.size(); ++i) {
        const std::string& move = facts.legal[i];
        SCOPED_TRACE(move + " in " + walk.fen);
        count(walk.seen, walk, move, behind[i]);
        ASSERT_EQ(walk.takeUp(move), move.size() == 5);
        const std::string text = walk.make(move, false);
        ASSERT_EQ(walk.boardText(), boardText(behind[i].fen)) << "text " << text;
        ASSERT_EQ(text.ends_with('+'), behind[i].check) << text;
        const practice::TypedMove read = practice::readMove(facts, text, 'q');
        ASSERT_EQ(read.reading, practice::MoveReading::Legal) << text;
        ASSERT_EQ(read.move, move) << text;
        ASSERT_EQ(contains(text, "x"), contains(practice::shortForm(position, facts.legal, move), "x")) << text;
        before.restore();
    }
}

// A live board does not know of the last moves, and must accept the same ones.
void tryLiveRules(Game& game, const practice::PositionFacts& facts, const std::string& fen) {
    const Before before{game};
    game.MoveUndo = {};
    game.icsMode = true;
    for (const std::string& move : facts.legal) {
        ASSERT_TRUE(game.zMoveLegal(zSquareNumber(move.substr(0, 2)), zSquareNumber(move.substr(2, 2))))
            << move << " live in " << fen;
    }
    game.icsMode = false;
    before.restore();
}

// Two squares free towards higher files, three towards lower ones; whatever stands in the corner.
bool freeToCastle(const BoardSquares& board, int from, int to) {
    const int side = to > from ? 1 : -1;
    for (int step = 1; step <= (side > 0 ? 2 : 3); ++step) {
        if (board[from + side * step] != 0) return false;
    }
    return true;
}

// The only moves that the rules accept beside the engine's: those that leave the own king in check, castling, and en
// passant of another pawn while one may be taken so.
void tryNoOtherMove(Walk& walk, const practice::PositionFacts& facts) {
    Game& game = walk.game;
    const Before before{game};
    const bool granted = game.MoveUndo[game.MoveRow][(1 - game.Turn) / 2][6] != 0;
    std::vector<bool> listed(64 * 64);
    for (const std::string& move : facts.legal) {
        listed[static_cast<std::size_t>(zSquareNumber(move.substr(0, 2)) * 64 + zSquareNumber(move.substr(2, 2)))] =
            true;
    }
    for (int from = 0; from < 64; ++from) {
        const int piece = game.Board[from];
        if (signOf(piece) != game.Turn) continue;
        for (int to = 0; to < 64; ++to) {
            if (listed[static_cast<std::size_t>(from * 64 + to)] || !game.zMoveLegal(from, to)) continue;
            ++walk.seen.moreThanEngine;
            if (zCastle(piece, from, to)) {
                ASSERT_TRUE(freeToCastle(game.Board, from, to)) << zLiteral(from, to) << " in " << walk.fen;
                continue;
            }
            if (granted && zEnPassantCapture(piece, from, to, game.Board[to])) continue;
            walk.make(zSquareName(from) + zSquareName(to) + "q", false);
            ASSERT_TRUE(game.zCheckTest(game.Turn)) << zLiteral(from, to) << " in " << walk.fen;
            before.restore();
        }
    }
}

void playGame(Walk& walk, std::mt19937& random) {
    for (int ply = 1; ply <= MostPlies; ++ply) {
        const practice::PositionFacts facts = walk.engine.facts(walk.fen);
        if (facts.legal.empty()) return;
        ++walk.seen.positions;
        tryEveryMove(walk, facts);
        tryLiveRules(walk.game, facts, walk.fen);
        tryNoOtherMove(walk, facts);
        if (testing::Test::HasFatalFailure()) return;
        const std::string& move = facts.legal[random() % facts.legal.size()];
        walk.fen = walk.engine.behind(walk.fen, {move}).at(0).fen;
        const std::string text = walk.make(move, true);
        ASSERT_EQ(walk.game.grdMoves.text((ply + 1) / 2, 2 - ply % 2), text);
        const std::string stored = boardText(walk.fen);
        for (int square = 0; square < 64; ++square) {
            ASSERT_EQ(walk.game.PositionStore.plies[ply][square], walk.game.Board[square]);
        }
        ASSERT_EQ(walk.boardText(), stored) << walk.fen;
    }
}

} // namespace

TEST(EngineMoves, EveryMoveOfRandomGamesIsAcceptedAndLeadsToTheEnginesPosition) {
    const std::string program = findEngineProgram();
    ASSERT_FALSE(program.empty()) << "fairy-stockfish is not installed";
    EngineTalk engine(program);
    const int games = numberFrom("BRIGHTRANK_RULES_GAMES", 8);
    std::mt19937 random(static_cast<std::uint32_t>(numberFrom("BRIGHTRANK_RULES_SEED", 1)));
    Seen seen;
    for (int number = 0; number < games && !HasFatalFailure(); ++number) {
        Walk walk(engine, seen, number % 2 == 0 ? practice::startFen : ReadyToCastle);
        playGame(walk, random);
    }
    std::cout << games << " games, " << seen.positions << " positions, " << seen.moves
              << " moves: " << seen.shortCastlings << " short and " << seen.longCastlings << " long castlings, "
              << seen.enPassants << " en passant, " << seen.promotions << " promotions, " << seen.checks << " checks; "
              << seen.moreThanEngine << " moves more than the engine's\n";
    EXPECT_GT(seen.shortCastlings, 0);
    EXPECT_GT(seen.longCastlings, 0);
    EXPECT_GT(seen.enPassants, 0);
    EXPECT_GT(seen.promotions, 0);
    EXPECT_GT(seen.checks, 0);
    EXPECT_GT(seen.moreThanEngine, 0);
}
