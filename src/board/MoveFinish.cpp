// The end of a move by mouse: queued as the pre-move, or played and written down.
#include "board/MoveInput.h"

#include "common/RaisedFlag.h"

#include <utility>

void MoveInput::zSqFinish(int square) {
    if (game.hand.MoveMode != 1) {
        playMove(square);
        return;
    }
    queuePreMove(square);
    showFinished();
}

void MoveInput::showFinished() {
    if (!game.icsMode && game.GridLightOn) game.lightCurrentMove();
    game.zUpdate();
}

// No rule is tested here: the position in which the pre-move will be played is not known yet.
void MoveInput::queuePreMove(int square) {
    game.hand.FromSet = 0;
    if (game.PreMoveSet) unmarkPreMove();
    game.PreMoveSet = square != game.FromSq;
    if (!game.PreMoveSet) {
        game.drawSquare(game.FromSq, 0); // the piece is back on its square
        return;
    }
    game.ToSq = static_cast<std::int16_t>(square);
    game.drawSquare(game.FromSq, 1);
    game.drawSquare(game.ToSq, 1);
    game.PreFrom = game.FromSq;
    game.PreTo = game.ToSq;
}

void MoveInput::unmarkPreMove() {
    game.drawSquare(game.PreFrom, 0);
    game.drawSquare(game.PreTo, 0);
}

void MoveInput::playMove(int square) {
    // A pre-move that a position played with this piece in hand has taken the from-square: both squares go back.
    if (game.hand.FromSet != 1) game.ToSq = static_cast<std::int16_t>(square);
    if (game.asksPromotion(square)) {
        askPromotion(square);
        return;
    }
    const int row = game.MoveRow;
    const int col = (1 - game.Turn) / 2;
    const std::string text = game.zMakeMove(square, true, true);
    if (text.empty()) {
        game.drawSquare(game.FromSq, 0);
        game.drawSquare(game.ToSq, 0);
    } else {
        keepMove(row, col, text);
    }
    showFinished();
}

// Positions may arrive while the menu is up, and one that plays a pre-move may ask again: the move that waits goes
// back.
void MoveInput::askPromotion(int square) {
    if (game.hand.promotion) putBack(*game.hand.promotion);
    game.hand.FromSet = 0;
    game.ToSq = static_cast<std::int16_t>(square);
    game.hand.promotion = AskedPromotion{game.FromSq, square, game.Board[game.FromSq], game.Turn, game.MoveRow};
    surface.popupPromote();
}

void MoveInput::promote(int piece) {
    const auto asked = std::exchange(game.hand.promotion, std::nullopt);
    if (!asked) return;
    game.FromSq = static_cast<std::int16_t>(asked->from);
    game.ToSq = static_cast<std::int16_t>(asked->to);
    if (game.Board[asked->from] != asked->pawn || game.Turn != asked->turn) { // another game or a takeback came
        putBack(*asked);
    } else {
        const auto inHand = std::exchange(game.hand.FromSet, std::int16_t{1}); // a piece lifted since stays in hand
        const RaisedFlag answered(game.hand.promotionAnswered);
        game.PromotePiece = static_cast<std::int16_t>(piece);
        const std::string text = game.zMakeMove(asked->to, false, true);
        game.hand.FromSet = inHand;
        keepMove(asked->row, (1 - asked->turn) / 2, text);
    }
    showFinished();
}

void MoveInput::putBack(const AskedPromotion& asked) const {
    game.drawSquare(asked.from, 0);
    game.drawSquare(asked.to, 0);
}

// A move that repeats the game held here walks along it; another one overwrites it and ends what lay ahead, but the
// moves of a loaded game stay.
void MoveInput::keepMove(int row, int col, const std::string& text) {
    if (game.GameLoaded) {
        if (game.Deviated != 0) return;
    } else {
        if (text == game.MoveText[row][col]) return;
        game.MoveText[row][col] = text;
        game.MoveText[row + col][1 - col].clear();
    }
    game.Deviated = game.zDevMove();
    game.zFor(false);
}
