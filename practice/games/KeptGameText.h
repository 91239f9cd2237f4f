// Kept games as texts, for files.
#pragma once

#include "practice/games/KeptGame.h"

#include <optional>
#include <string>

namespace practice {

// A game as lines of text, all of it that an examined, listed or resumed game needs:
//
//     brightrank-practice game 1
//     white Rookery 1640
//     black Partner 1500
//     terms 15 0 rated -
//     rules chess 0
//     start rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1
//     began Sat Nov 21, 02:40 UTC 2026
//     ended Sat Nov 21, 02:42 UTC 2026
//     end 1-0 Partner resigns
//     clock 900000 900000 0 0 1
//     move e2e4 P/e2-e4 e4 0 4 900000 900000 1 rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1
//     over
//
// "clock" has both clocks before the first move and the increment in milliseconds, half-moves made, and whether it is
// timed; "move" the time taken, the file of a pawn's double step, and both clocks and the half-moves after it.
std::string keptGameText(const KeptGame& kept);

// Reads such a text; nothing for one of another form.
std::optional<KeptGame> readKeptGame(const std::string& text);

} // namespace practice
