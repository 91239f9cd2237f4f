// The marks of the last move on the board.
#include "board/Game.h"

#include "common/Numbers.h"
#include "common/Squares.h"
#include "common/Text.h"

#include <algorithm>

namespace {

// The square whose file and rank letters stand in columns `place` and `place` + 1 of "P/e2-e4". A text that names no
// square, such as the "@@" of a drop, gives a negative number, which is never painted.
std::int16_t squareAt(std::string_view verbose, long place) {
    const auto name = mid(verbose, place, 2);
    if (name.size() < 2) return -1;
    const int rank = static_cast<int>(leadingNumber(name.substr(1)));
    const int square = 8 * (rank - 1) + static_cast<unsigned char>(name[0]) - 97;
    const bool named = name[0] >= 'a' && name[0] <= 'h' && rank >= 1 && rank <= 8;
    return static_cast<std::int16_t>(named ? square : std::min(square, -1));
}

} // namespace

void Game::zHighlightMove(std::string_view verbose) {
    const std::string move = lower(verbose);
    const bool whiteMoved = Style12Record.SideToMove == 1;
    const bool mark = move != "none";
    if (move == "o-o" || move == "o-o-o") {
        FromSq = whiteMoved ? 4 : 60;
        ToSq = static_cast<std::int16_t>(move == "o-o" ? FromSq + 2 : FromSq - 2);
    } else if (mark) {
        FromSq = squareAt(verbose, 3);
        ToSq = squareAt(verbose, 6);
    }
    drawSquare(HiFrom, 0);
    drawSquare(HiTo, 0);
    if (!mark) return;
    HiFrom = FromSq;
    HiTo = ToSq;
    drawSquare(HiFrom, -1);
    drawSquare(HiTo, -1);
}

void Game::drawSquare(int square, int mode) const {
    if (square >= 0 && square < HandSquare) surface.zDrawSquare(square, mode);
}
