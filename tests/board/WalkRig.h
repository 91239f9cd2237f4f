// A board to walk on: moves by hand, games that are watched, and what its list and label show.
#pragma once

#include "board/MoveRig.h"
#include "board/QuietInput.h"
#include "common/Squares.h"

#include <initializer_list>
#include <tuple>

using Effects = std::vector<std::string>;
using Tints = std::vector<std::tuple<int, int, std::int32_t>>;

struct WalkRig : BoardRig {
    MoveInput input{game, quietInput()};

    // "e2e4" as the user's hand makes it.
    void play(std::string_view move) {
        game.zSetFrom(zSquareNumber(move.substr(0, 2)));
        input.zSqFinish(zSquareNumber(move.substr(2)));
    }

    // A game that the server shows move by move; the positions are those of a local board that makes the same moves.
    void watch(const std::vector<std::string>& moves, int relation = 0) {
        MoveRig other = MoveRig::start();
        modChess.NewGameFlag = true;
        receiveFrom(other.game, relation, "none");
        modChess.NewGameFlag = false;
        for (const std::string& move : moves) {
            other.game.MoveText[other.game.MoveRow][(1 - other.game.Turn) / 2] = move;
            other.game.zStepForward(false);
            receiveFrom(other.game, relation, move);
        }
    }

    // What the board of `other` stands at, as a line of game 12.
    void receiveFrom(const Game& other, int relation, const std::string& pretty) {
        LineOf line{
            .turn = other.Turn > 0 ? "W" : "B", .relation = relation, .moveNumber = other.MoveRow, .pretty = pretty};
        line.ranks.clear();
        for (int rank = 7; rank >= 0; --rank) {
            for (int file = 0; file < 8; ++file) line.ranks += letterOf(other.Board[8 * rank + file]);
            if (rank > 0) line.ranks += ' ';
        }
        receive(line);
    }

    static char letterOf(int code) {
        const char letter = "-kqrbnp"[std::abs(code)];
        return code > 0 ? static_cast<char>(letter - ('a' - 'A')) : letter;
    }

    std::int16_t at(std::string_view square) const { return game.Board[zSquareNumber(square)]; }
    int ply() const { return game.zDevMove(); }

    // "2,1 Nf3".
    std::string current() const {
        const MoveGridState& grid = game.grdMoves;
        return std::to_string(grid.row) + "," + std::to_string(grid.col) + " " + grid.currentText();
    }

    // What lblMove was set to last.
    std::string label() const {
        const auto labels = all("last");
        return labels.empty() ? "(never)" : labels.back().substr(std::min<std::size_t>(5, labels.back().size()));
    }

    // The cells that are not plain: row, column, tint.
    Tints tints() const {
        Tints found;
        for (int row = 0; row <= MoveGridState::LastRow; ++row) {
            for (int col = 0; col <= MoveGridState::LastCol; ++col) {
                const std::int32_t tint = game.grdMoves.cells[row][col].tint;
                if (tint != GridTint::Plain) found.emplace_back(row, col, tint);
            }
        }
        return found;
    }
};
