// Published games written into game files, read from there onto a board and walked to their end, against an engine that
// knows chess.
//
// Every position on the way is the engine's, to the last move or to the one that the reader is told not to read.
#include "board/Game.h"
#include "board/PieceCodes.h"
#include "board/QuietGame.h"
#include "common/Squares.h"
#include "common/Text.h"
#include "common/modChess.h"
#include "practice/chess/MoveText.h"
#include "records/PgnRig.h"
#include "rules/EngineTalk.h"
#include "rules/GameTexts.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>

namespace {

constexpr int Files = 99; // games to a file, the most that can be chosen from
constexpr std::size_t LineLength = 76;

// In lines as our own writer makes them.
std::string written(const GameText& game) {
    std::string lines;
    std::size_t column = LineLength;
    const auto put = [&](const std::string& token) {
        const bool fits = column + token.size() < LineLength;
        lines += (fits ? " " : "\r\n") + token;
        column = fits ? column + 1 + token.size() : token.size();
    };
    for (std::size_t half = 0; half < game.moves.size(); ++half) {
        put((half % 2 == 0 ? std::to_string(half / 2 + 1) + ". " : "") + game.moves[half]);
    }
    return "[White \"Anders\"]\r\n[Black \"Berta\"]\r\n" + lines + "\r\n*\r\n\r\n";
}

bool standsAt(const Game& game, const std::string& fen) {
    const auto position = practice::readFen(fen).value();
    for (int square = 0; square < 64; ++square) {
        if (game.Board[square] != pieceCode(position.board[static_cast<std::size_t>(square)])) return false;
    }
    return true;
}

using Counts = std::map<std::string, int>;

struct File {
    const char* name;
    const char* variant; // as the engine calls it
    Counts counts;       // of games
};

void PrintTo(const File& file, std::ostream* out) { *out << file.name; }

class ReadGames : public testing::TestWithParam<File> {
protected:
    // The positions of a game, its start first.
    static std::vector<practice::PositionFacts> positionsOf(const GameText& game, EngineTalk& engine) {
        std::vector<practice::PositionFacts> positions{engine.facts(std::string(practice::startFen))};
        for (const std::string& text : game.moves) {
            const practice::PositionFacts& before = positions.back();
            const std::string move = practice::readMove(before, text, 'q').move;
            positions.push_back(engine.factsBehind(before.fen, move));
        }
        return positions;
    }

    // Whether half-move `half` was made by a piece that chess does not let go there.
    static bool madeByPinnedTwin(const Game& board, std::size_t half, const practice::PositionFacts& before) {
        const auto& undo = board.MoveUndo[static_cast<long>(half / 2 + 1)][static_cast<long>(half % 2)];
        const std::string move = zSquareName(undo[0]) + zSquareName(undo[1]);
        return std::ranges::none_of(before.legal, [&](const std::string& legal) { return legal.starts_with(move); });
    }

    // How the game was read; `board` holds it.
    static std::string walk(Game& board, const GameText& game, EngineTalk& engine) {
        const std::vector<practice::PositionFacts> positions = positionsOf(game, engine);
        std::size_t made = 0;
        for (; made < game.moves.size(); ++made) {
            const int ply = board.zDevMove();
            board.zReposition(1);
            if (board.zDevMove() == ply) break;
            if (!standsAt(board, positions[made + 1].fen)) break;
        }
        if (made == game.moves.size()) {
            board.zReposition(-2);
            board.zReposition(2); // at once, from what the reading stored
            return standsAt(board, positions.back().fen) ? "to its end" : "with another end in store";
        }
        const std::string& text = game.moves[made];
        if (contains(text, "@")) return made % 2 == 1 ? "to a drop of black's" : "to a drop that a like piece can make";
        if (contains(text, "=K")) return "to a promotion to a king";
        if (text == "O-O+" || text == "O-O#") return "to a short castling with a sign";
        if (madeByPinnedTwin(board, made, positions[made])) return "to a move of a pinned twin";
        return "to " + std::to_string(made) + " " + text;
    }

    void readFile(const std::vector<GameText>& games, EngineTalk& engine, Counts& counts) {
        std::string bytes;
        for (const GameText& game : games) bytes += written(game);
        const auto board = quietGame();
        rig.file(bytes);
        auto scanned = std::make_unique<LineFile>(rig.path());
        ASSERT_EQ(readPgnTags(*scanned, board->PgnGames), std::ssize(games) + 1);
        scanned.reset();
        for (std::size_t index = 0; index < games.size(); ++index) {
            SCOPED_TRACE("game " + std::to_string(index + 1));
            board->beginLoad();
            board->finishLoad();
            board->MoveText = {};
            LineFile file(rig.path());
            std::string line;
            for (int skipped = 1; skipped < board->PgnGames[static_cast<long>(index) + 1].Line; ++skipped) {
                file.take(line);
            }
            if (games[index].moves.size() > 2 * LastMoveRow) {
                EXPECT_EQ(faultOf([&] { board->zReadPGNgame(file); }), "subscript");
                ++counts["not at all, with more than 200 moves"];
                continue;
            }
            board->zReadPGNgame(file);
            ++counts[walk(*board, games[index], engine)];
        }
    }

    PgnRig rig;
};

} // namespace

TEST_P(ReadGames, EachIsTheEnginesToItsEndOrToWhatIsTold) {
    const std::string program = findEngineProgram();
    ASSERT_FALSE(program.empty()) << "fairy-stockfish is not installed";
    EngineTalk engine(program);
    engine.play(GetParam().variant, false);
    Counts counts;
    std::vector<GameText> part;
    const auto readPart = [&] {
        readFile(part, engine, counts);
        part.clear();
    };
    for (const GameText& game : gamesOf(GetParam().name)) {
        if (!game.fen.empty()) continue; // a file tells of no start
        part.push_back(game);
        if (part.size() == Files) readPart();
    }
    readPart();
    for (const auto& [how, count] : counts) std::cout << GetParam().name << ": " << count << " " << how << "\n";
    EXPECT_EQ(counts, GetParam().counts);
}

INSTANTIATE_TEST_SUITE_P(
    Published, ReadGames,
    testing::Values(File{"standard.pgn", "chess", {{"to its end", 33}, {"not at all, with more than 200 moves", 1}}},
                    File{"crazyhouse.pgn",
                         "crazyhouse",
                         {{"to its end", 7},
                          {"to a drop of black's", 176},
                          {"to a drop that a like piece can make", 15},
                          {"to a move of a pinned twin", 2}}},
                    File{"losers.pgn", "losers", {{"to its end", 198}}},
                    File{"suicide.pgn", "suicide", {{"to its end", 167}, {"to a promotion to a king", 32}}}));
