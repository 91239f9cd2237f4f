// Walking through a game once more, worked out apart from the board's own: where the board stands, and what its list
// shows.
#pragma once

#include "board/Game.h"
#include "board/QuietGame.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One board. Making a move and its text are those of a game of its own, which fuzz_rules looks at; all else is written
// anew. Faults past row 200 as the board does.
class WalkModel {
public:
    struct Cell {
        std::string text;
        std::int32_t tint = 0xFFFFFF;
        bool operator==(const Cell&) const = default;
    };
    using Squares = std::array<int, 64>;

    WalkModel();

    // What happens to the board.
    void reposition(int step);
    void click(int row, int col);
    void ownMove(int from, int to);
    void receive(const Style12Record& record, bool newGame);
    void endGame();
    void newBoard();
    void endOfMoves(); // zEnd

    // What can be asked: whether the piece of the side to move on `from` may go to `to`.
    bool mayMove(int from, int to);
    int ply() const { return 2 * (row - 1) + (turn > 0 ? 0 : 1); }

    // What undoes the moves, and the piece in the hand.
    const MoveUndos& records() const { return maker_->MoveUndo; }
    int grant() const { return maker_->EPGranted; }
    int hand() const { return maker_->Board[64]; }

    Squares board{};
    std::array<Squares, 401> store{};
    std::array<std::array<std::string, 2>, 201> texts;
    std::array<std::array<Cell, 3>, 201> grid;
    std::pair<int, int> current{0, 0};
    std::pair<int, int> tinted{0, 0};
    int row = 1;
    int turn = 1;
    int deviated = 0;
    bool ahead = false; // stored moves lie ahead
    bool light = false;
    bool live = false;
    bool loaded = false;
    int relation = -100;
    int newest = 0; // 2 x move number + side of the newest position
    int shown = 0;
    std::pair<int, int> last{0, 0};     // row and side of the last move held
    std::pair<int, int> examined{0, 0}; // the cell of an examined game
    std::string label;
    std::vector<std::string> sent;

private:
    void start();
    void stepBack();
    std::string stepForward(bool display);
    void takeQueen(int from, int to);
    void goTo(int toRow, int toCol);
    std::string make(int from, int to, bool display);
    std::pair<int, int> decode(const std::string& text);
    std::pair<int, int> search(int piece, int file, int rank, int from, const std::string& target);
    void tint(const std::string& text);
    void tintCurrent() { tint(ahead ? cell(current).text : "No"); }
    void showLabel(int number, int col);
    void clearGrid();
    void fillGrid();
    Cell& cell(std::pair<int, int> at) {
        return grid.at(static_cast<std::size_t>(at.first)).at(static_cast<std::size_t>(at.second));
    }
    std::string& text(int ofRow, int side) {
        return texts.at(static_cast<std::size_t>(ofRow)).at(static_cast<std::size_t>(side));
    }
    void view(int ply) { board = store.at(static_cast<std::size_t>(ply)); }
    void keep(int ply) { store.at(static_cast<std::size_t>(ply)) = board; }
    void lend(); // the position to the game that makes moves

    std::unique_ptr<Game> maker_ = quietGame();
};
