// A board with pieces put on it by name, and moves named as "e2e4".
#pragma once

#include "board/BoardRig.h"

#include "board/PieceCodes.h"
#include "common/Squares.h"

#include <string>
#include <string_view>

// Pieces such as "Ke1 pa7": capitals are white. A local game of move 1 unless `live` is called; white is to move unless
// `turn` is -1.
struct MoveRig : BoardRig {
    explicit MoveRig(const std::string& pieces, std::int16_t turn = 1) {
        game.Board.fill(0);
        std::istringstream words(pieces);
        for (std::string word; words >> word;) put(word);
        game.Turn = turn;
    }

    static MoveRig start() {
        return MoveRig("Ra1 Nb1 Bc1 Qd1 Ke1 Bf1 Ng1 Rh1 Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 "
                       "ra8 nb8 bc8 qd8 ke8 bf8 ng8 rh8 pa7 pb7 pc7 pd7 pe7 pf7 pg7 ph7");
    }

    void put(std::string_view word) { game.Board[zSquareNumber(word.substr(1))] = pieceCode(word[0]); }
    std::int16_t at(std::string_view square) const { return game.Board[zSquareNumber(square)]; }

    // The board as the server keeps it: a live game in which the user is to move.
    MoveRig& live(std::int16_t relation = 1) {
        game.icsMode = true;
        game.Style12Record.Relation = relation;
        game.NextPly = 10;
        game.ShownPly = 8;
        return *this;
    }

    bool legal(std::string_view move) {
        return game.zMoveLegal(zSquareNumber(move.substr(0, 2)), zSquareNumber(move.substr(2)));
    }

    // The names of all squares that the piece may go to, in their order.
    std::string targets(std::string_view from) {
        std::string names;
        for (int to = 0; to < 64; ++to) {
            if (game.zMoveLegal(zSquareNumber(from), to)) names += (names.empty() ? "" : " ") + zSquareName(to);
        }
        return names;
    }

    // Makes a move as the user's drop does.
    std::string make(std::string_view move, bool check = true, bool display = true) {
        game.zSetFrom(zSquareNumber(move.substr(0, 2)));
        return game.zMakeMove(zSquareNumber(move.substr(2)), check, display);
    }

    // Drops `piece` from the hand.
    std::string drop(std::int16_t piece, std::string_view square) {
        game.Board[HandSquare] = piece;
        game.zSetFrom(HandSquare);
        return game.zMakeMove(zSquareNumber(square), true, true);
    }

    std::string text(std::string_view move) {
        return game.zMoveText(zSquareNumber(move.substr(0, 2)), zSquareNumber(move.substr(2)));
    }

    std::int16_t undo(int row, int col, int kind) const { return game.MoveUndo[row][col][kind]; }
};
