// One game of random moves on a random position: the steps.
#include "RulesRun.h"

#include "MoveModel.h"
#include "Require.h"
#include "board/Style12Line.h"
#include "common/Fault.h"
#include "common/modChess.h"

#include <algorithm>
#include <utility>

RulesRun::RulesRun(std::string_view bytes) : rest_(bytes) {
    modChess = {};
    GameSurface& surface = game_->surface;
    surface.zSendMsg = [this](const std::string& text) {
        require(sent_.empty(), "a move sends one line");
        sent_ = text;
    };
    surface.zDrawSquare = [](int square, int mode) {
        require(square >= 0 && square < 64 && mode == 0, "a move paints squares of the board, plain");
    };
}

void RulesRun::run() {
    setUp();
    if (rest_.size() > 1) checkAnySquares(static_cast<signed char>(rest_[0]), static_cast<signed char>(rest_[1]));
    while (!rest_.empty()) {
        const std::int16_t row = game_->MoveRow;
        const std::uint8_t first = nextByte();
        try {
            step(first, nextByte());
        } catch (const Fault& fault) {
            require(fault.kind() == FaultKind::Subscript && row >= LastMoveRow, "a move faults past row 200 alone");
            return;
        }
        require(game_->KingMoved == kingMoved_, "no move sets or clears that a king has moved");
    }
}

std::uint8_t RulesRun::nextByte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

void RulesRun::setUp() {
    const std::uint8_t flags = nextByte();
    game_->MoveRow = static_cast<std::int16_t>(1 + nextByte() % LastMoveRow);
    game_->icsMode = (flags & 1U) != 0;
    modChess.AutoQueen = (flags & 2U) != 0;
    game_->Turn = (flags & 4U) != 0 ? -1 : 1;
    picks_ = (flags & 32U) != 0;
    if ((flags & 8U) != 0) {
        const std::int16_t row = game_->MoveRow;
        game_->zLoadPosition(FixedStartLine, false);
        game_->MoveRow = row;
    } else {
        const auto code = [](unsigned nibble) {
            const int number = static_cast<int>(nibble);
            return static_cast<std::int16_t>(number > 12 ? 0 : number > 6 ? 6 - number : number);
        };
        for (int square = 0; square < 64; square += 2) {
            const std::uint8_t two = nextByte();
            game_->Board[square] = code(two & 15U);
            game_->Board[square + 1] = code(two >> 4U);
        }
    }
    game_->KingMoved[game_->Turn + 1] = (flags & 16U) != 0;
    kingMoved_ = game_->KingMoved;
    game_->zStorePos(game_->zDevMove());
}

void RulesRun::step(std::uint8_t first, std::uint8_t second) {
    const int choice = first >> 6U;
    int from = first & 63;
    int to = second & 63;
    promotion_ = (second >> 6U) == 1 ? 0 : Piece::Queen + choice;
    sent_.clear();
    switch (second >> 6U) {
    case 2:
        return takeBack();
    case 3:
        return drop(Piece::Queen + choice + from % 2, to);
    default:
        if (picks_) pickMove(from, to);
        return move(from, to);
    }
}

// The first move from `from` to `to` on that the rules allow to the side to move; 4,096 pairs, round and round.
void RulesRun::pickMove(int& from, int& to) const {
    for (int tried = 0; tried < 64 * 64; ++tried) {
        if (signOf(game_->Board[from]) == game_->Turn && modelMayMove(*game_, from, to, &grants_)) return;
        to = (to + 1) % 64;
        if (to == 0) from = (from + 1) % 64;
    }
}

// Makes the move as a hand does: a pawn that has to be asked for is answered at once.
std::string RulesRun::make(int from, int to, bool legal) {
    Game& game = *game_;
    game.zSetFrom(from);
    const bool asks = game.asksPromotion(to);
    require(asks == (legal && modelAsks(game, from, to)), "a pawn that reaches the end is asked for");
    if (asks) game.PromotePiece = static_cast<std::int16_t>(promotion_);
    return game.zMakeMove(to, true, true);
}

void RulesRun::move(int from, int to) {
    Game& game = *game_;
    const Before before{game.Board, game.Turn, game.MoveRow};
    const bool legal = from != to && modelMayMove(game, from, to, &grants_);
    require(game.zMoveOK(from) == modelMayTake(game, from), "who may take up a piece");
    require(from == to || game.zMoveLegal(from, to) == legal, "the rules allow what they should");
    const std::string text = make(from, to, legal);
    require(text.empty() != legal, "a move is made if the rules allow it");
    require(game.hand.FromSet == 0, "no move is in hand behind one");
    if (legal) return checkMade(before, from, to, text);
    require(game.Board == before.squares && game.Turn == before.turn && game.MoveRow == before.row,
            "a refused move changes nothing");
    require(sent_.empty(), "a refused move is not sent");
}

// The rules ask nothing of a drop, nor whether its square is free.
void RulesRun::drop(int kind, int to) {
    Game& game = *game_;
    game.Board[HandSquare] = static_cast<std::int16_t>(game.Turn * kind);
    const Before before{game.Board, game.Turn, game.MoveRow};
    const std::string text = make(HandSquare, to, true);
    require(!text.empty(), "a drop is made");
    checkMade(before, HandSquare, to, text);
}

// By the store, which has the position before each ply of a local game. No button of the board does it.
void RulesRun::takeBack() {
    if (past_.empty()) return;
    Game& game = *game_;
    const Before before = past_.back();
    past_.pop_back();
    game.Turn = before.turn;
    game.MoveRow = before.row;
    game.zGetPos(game.zDevMove(), false, true);
    require(std::equal(game.Board.begin(), game.Board.begin() + 64, before.squares.begin()),
            "taking back restores the position exactly");
    auto& record = game.MoveUndo[game.MoveRow][(1 - game.Turn) / 2];
    for (int kind = 0; kind < 6; ++kind) record[kind] = 0;
}
