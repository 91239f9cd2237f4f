// Fuzzes move lists: the reader line by line, the record on a board, live and for review, and the record as a game
// file.
#include "Require.h"
#include "board/QuietGame.h"
#include "common/Fault.h"
#include "common/modChess.h"
#include "records/MoveListCapture.h"
#include "records/PgnWriter.h"
#include "session/ServerLines.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t LongestLine = 77;

void checkLine(const std::string& line, const MovesLine& read) {
    require(!read.done || (read.taken && line.starts_with("      ") && line.find("} ") != line.npos),
            "a list ends with a result");
    require(!read.taken || line.size() >= 20 || line == "\r\n", "a short line is left alone");
}

void checkRecord(const GameRecord& record) {
    require(record.LastMove >= -0.5F && record.LastMove <= 200, "the last move is in the list");
    for (const auto* moves : {&record.WhiteMoves, &record.BlackMoves}) {
        require(std::ranges::all_of(*moves, [](const std::string& text) { return text.size() <= 6; }),
                "a move has six columns");
    }
    for (const auto* times : {&record.WhiteTimes, &record.BlackTimes}) {
        require(
            std::ranges::all_of(
                *times, [](const std::string& text) { return text.empty() || (text[0] == '(' && text.back() == ')'); }),
            "a time stands in brackets");
    }
    require(record.Date.empty() || record.Date.size() == 10, "a date has its form");
    require(record.Time.size() <= 5, "a time has five columns");
}

// What stands between the empty line behind the tags and the result, put together, is the moves.
void checkFile(const GameRecord& record) {
    const std::string text = pgnText(record);
    require(text.empty() == (record.LastMove == 0), "a game with moves is written");
    if (text.empty()) return;
    require(text.starts_with("[Event \"") && text.ends_with("\r\n\r\n"), "a game has tags and ends with an empty line");
    std::size_t moves = 0;
    for (int number = 1; static_cast<float>(number) <= record.LastMove + 0.6F; ++number) {
        moves += std::to_string(number).size() + 3 + record.WhiteMoves[number].size();
        if (static_cast<float>(number) <= record.LastMove) moves += record.BlackMoves[number].size() + 1;
    }
    require(text.size() >= moves, "no move is left out");
    for (std::size_t at = text.find("\"]\r\n\r\n"); at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        require(end - at <= LongestLine || end == text.npos || text[at] != ' ', "a line of moves has its width");
        at = end == text.npos ? text.size() : end + 2;
    }
}

// The rows of the list are those of the record, and the board stands as it should.
void checkBoard(bool live) {
    const auto game = quietGame();
    game->beginLoad();
    game->finishLoad();
    if (live) game->Style12Record.Relation = 0;
    game->Style12Record.MoveNumber = 1;
    game->NextPly = 2;
    modChess.MovesTarget = live ? std::int16_t{12} : std::int16_t{-2};
    const BoardSquares before = game->Board;
    const bool whole = passOver([&] { live ? game->zParseMoves() : game->zReviewGame(); });
    if (!whole) return; // past row 200
    require(game->Board == before, "the board stands at its start, and so does the live one");
    for (int row = 1; row <= game->LastRow; ++row) {
        require(game->grdMoves.text(row, 1) == modChess.MovesRecord.WhiteMoves[row], "the list is the record's");
    }
    if (live) return;
    for (int step = 0; step <= LastPly && game->CanForward && !game->zStepForward(true).empty(); ++step) {
    }
    for (int step = 0; step <= LastPly; ++step) game->zReposition(-1);
    require(game->Board == before, "all moves can be taken back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    modChess = {};
    const auto lines = std::make_unique<ServerLines>();
    int count = 0;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (!passOver([&] { count = lines->zParse(text); })) return 0;
    GameRecord& record = modChess.MovesRecord;
    for (int i = 0; i < count; ++i) {
        MovesLine read;
        if (!passOver([&] { read = zMovesLines((*lines)[i], record); })) return 0; // a number that ends the program
        checkLine((*lines)[i], read);
        checkRecord(record);
    }
    checkFile(record);
    checkBoard(true);
    checkBoard(false);
    return 0;
}
