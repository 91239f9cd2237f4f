// Fuzzes the reader of game files: lines, tags, the moves of each game, and the board that takes them over.
#include "MemoryFile.h"
#include "PgnModel.h"
#include "Require.h"
#include "board/QuietGame.h"
#include "common/modChess.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t MostLoaded = 3; // games of an input, which take the longest

const std::map<std::string, std::string PgnGame::*> Fields{
    {"event", &PgnGame::Event},
    {"site", &PgnGame::Site},
    {"round", &PgnGame::Round},
    {"white", &PgnGame::White},
    {"black", &PgnGame::Black},
    {"result", &PgnGame::Result},
    {"whiteelo", &PgnGame::WhiteElo},
    {"blackelo", &PgnGame::BlackElo},
    {"date", &PgnGame::Date},
    {"time", &PgnGame::Time},
    {"timecontrol", &PgnGame::TimeControl},
};

void checkTags(const PgnGame& row, const pgnModel::Game& told) {
    require(row.Line == static_cast<std::int16_t>(told.line), "the moves begin behind the tags");
    for (const auto& [name, field] : Fields) {
        const auto tag = told.tags.find(name);
        require(row.*field == (tag == told.tags.end() ? "" : tag->second), "a value is that of its tag");
    }
}

// The game of one row on a board; false when that was a fault.
bool load(Game& board, const std::string& path, int line) {
    LineFile file(path);
    std::string skipped;
    for (int before = 1; before < line; ++before) file.take(skipped);
    try {
        board.zReadPGNgame(file);
        return true;
    } catch (const Fault& fault) {
        require(fault.kind() != FaultKind::TypeMismatch, "no number is read strictly");
        return false;
    }
}

void checkMoves(Game& board, const pgnModel::Moves& told) {
    for (int row = 0; row <= LastMoveRow; ++row) {
        for (int side = 0; side < 2; ++side) {
            const auto text = told.texts.find({row, side});
            require(board.MoveText[row][side] == (text == told.texts.end() ? "" : text->second),
                    "a move stands where its number says");
        }
    }
    require(board.LastRow == static_cast<int>(told.number), "the last row is the last number");
    require(board.LastCol == told.awaited - 1, "the last side is told by what was awaited");
    require(board.zDevMove() == 0 && board.CanForward && board.GameLoaded && board.GridLightOn && board.Deviated == 0,
            "the board stands at the start of a stored game");
    require(modChess.FileOneHolder == nullptr, "the file is closed");
}

// To the end and back, and to the end at once.
void walk(Game& board) {
    int steps = 0;
    for (int ply = -1; board.zDevMove() != ply && steps < LastPly; ++steps) {
        ply = board.zDevMove();
        board.zReposition(1);
    }
    for (int step = 0; step < steps; ++step) board.zReposition(-1);
    require(board.zDevMove() == 0, "as many steps back lead to the start");
    board.zReposition(2);
    board.zReposition(-1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 100000) return 0;
    modChess = {};
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const MemoryFile memory(bytes);
    const std::vector<std::string> lines = pgnModel::linesOf(bytes);
    const std::vector<pgnModel::Game> told = pgnModel::gamesOf(lines);
    const auto board = quietGame();
    std::int16_t next = 0;
    try {
        LineFile file(memory.path());
        next = readPgnTags(file, board->PgnGames);
    } catch (const Fault&) {
        require(!told.empty() && told.back().line > 32767, "a fault of the tags is a line beyond 16 bits");
        return 0;
    }
    require(next == std::ssize(told) + 1, "each game is found");
    board->beginLoad();
    board->finishLoad();
    for (std::size_t index = 0; index < told.size(); ++index) {
        const PgnGame& row = board->PgnGames[static_cast<long>(index) + 1];
        checkTags(row, told[index]);
        if (index >= MostLoaded) continue;
        const auto words = pgnModel::wordsOf(lines, told[index].line);
        const auto moves = words ? pgnModel::movesOf(*words) : std::nullopt;
        board->MoveText = {};
        const bool loaded = load(*board, memory.path(), row.Line);
        require(!loaded || moves, "what faults by the rules is not loaded");
        if (!loaded) {
            if (moves) require(moves->texts.contains({200, 1}), "a game that the rules let pass is loaded");
            return 0; // the program would have ended
        }
        checkMoves(*board, *moves);
        walk(*board);
    }
    return 0;
}
