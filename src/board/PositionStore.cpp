// Every position and every move text of the game on a board, in fixed arrays.
#include "board/PositionStore.h"

#include <algorithm>

void PositionStore::store(std::int32_t ply, const BoardSquares& board) {
    auto& stored = plies[ply];
    std::copy_n(board.begin(), 64, stored.begin());
}
