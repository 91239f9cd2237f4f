// One walk through games on a board, beside a model: the steps, and what has to hold behind each.
#include "WalkRun.h"

#include "MoveModel.h"
#include "Require.h"
#include "board/QuietInput.h"
#include "board/Style12Line.h"
#include "common/Fault.h"
#include "common/modChess.h"

#include <algorithm>

namespace {

constexpr int Squares = 64;

MoveInputSurface handOfTheWalk() {
    MoveInputSurface surface = quietInput();
    surface.popupPromote = [] { require(false, "queens are taken always"); };
    return surface;
}

// A legal move of a game, each equally far from any number; nothing where there is none.
std::pair<int, int> pick(const Game& game, int number) {
    for (int tried = 0; tried < Squares * Squares; ++tried) {
        const int pair = (number * 977 + tried) % (Squares * Squares);
        const int from = pair / Squares;
        const int to = pair % Squares;
        if (signOf(game.Board[from]) == game.Turn && modelMayMove(game, from, to)) return {from, to};
    }
    return {0, 0};
}

char letterOf(int code) {
    const char letter = "-kqrbnp"[std::abs(code)];
    return code > 0 ? static_cast<char>(letter & ~0x20) : letter;
}

Style12Record recordOf(const Game& game, const std::string& pretty) {
    Style12Record record;
    for (int square = 0; square < Squares; ++square) record.Position += letterOf(game.Board[square]);
    record.SideToMove = static_cast<std::int16_t>((1 - game.Turn) / 2);
    record.GameNumber = 12;
    record.MoveNumber = game.MoveRow;
    record.VerboseMove = "none";
    record.PrettyMove = pretty;
    return record;
}

constexpr std::array OddTexts{"O-O+",
                              "o-x",
                              "0-0",
                              "P@e4",
                              "N@f3+",
                              "Q@d5",
                              "P@",
                              "e8=Q",
                              "a1=N",
                              "exd8=R+",
                              "Qa1xb2",
                              "N1d2",
                              "Nbd7",
                              "zx",
                              "z4",
                              "y8",
                              "Na9",
                              "Nz8",
                              "E4",
                              "none",
                              "p@e5",
                              "e",
                              "N",
                              "Nx",
                              "k@a1",
                              "Ra8",
                              "\xE4"
                              "4",
                              "O-O",
                              "O-O-O",
                              "exd5",
                              "e4",
                              "axb1"};

} // namespace

WalkRun::WalkRun(std::string_view bytes) : rest_(bytes), input_(*game_, handOfTheWalk()) {
    modChess = {};
    modChess.AutoQueen = -1;
    game_->surface.setLastMove = [this](const std::string& text) { label_ = text; };
    game_->surface.zSendMsg = [this](const std::string& text) { sent_.push_back(text); };
    game_->surface.zDrawSquare = [](int square, int) { require(square >= 0 && square < 64, "squares are painted"); };
    game_->beginLoad();
    game_->finishLoad();
    server_->finishLoad();
}

int WalkRun::run() {
    int steps = 0;
    for (; rest_.size() >= 2; ++steps) {
        const auto first = static_cast<unsigned char>(rest_[0]);
        const auto second = static_cast<unsigned char>(rest_[1]);
        rest_.remove_prefix(2);
        const int row = game_->MoveRow;
        try {
            step(first & 15, second + 256 * (first >> 4U));
        } catch (const Fault& fault) {
            require(fault.kind() == FaultKind::Subscript && row >= LastMoveRow, "a walk faults at row 200 alone");
            return steps;
        }
        check();
    }
    return steps;
}

void WalkRun::step(int what, int how) {
    switch (what) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
        game_->zReposition(what - 2);
        model_.reposition(what - 2);
        return;
    case 5: {
        const int row = std::clamp(game_->MoveRow + how % 13 - 6, 0, LastMoveRow);
        game_->grdMovesClick(row, how / 13 % 3);
        model_.click(row, how / 13 % 3);
        return;
    }
    case 6:
    case 7:
        return ownMove(how);
    case 8:
        return tryAnyMove(how);
    case 9:
    case 10:
        return serverMoves(how);
    case 11:
        if (how % 4 == 0) beginGame(how);
        return;
    case 12:
        if (how % 4 != 0 || !game_->icsMode) return;
        game_->zEndParms();
        model_.endGame();
        return;
    case 13:
        if (how % 8 == 0 || game_->MoveRow > 150) newBoard();
        return;
    case 14:
        return loadTexts(how);
    default:
        return writeText(how);
    }
}

void WalkRun::ownMove(int how) {
    const auto [from, to] = pick(*game_, how);
    require(from == to || model_.mayMove(from, to), "the model may make the move too");
    game_->zSetFrom(from);
    input_.zSqFinish(to);
    model_.ownMove(from, to);
}

// A stored move by hand, or a pair of squares that the rules may refuse.
void WalkRun::tryAnyMove(int how) {
    const int from = how % Squares;
    const int to = how / Squares % Squares;
    game_->zSetFrom(from);
    input_.zSqFinish(to);
    model_.ownMove(from, to);
}

// The server goes on, back, or shows the same once more.
void WalkRun::serverMoves(int how) {
    if (!game_->icsMode || shown_.empty()) return;
    const auto asked = sent_.empty() ? std::string() : sent_.back();
    if (relation_ == 2 && asked.starts_with("Back") && how % 4 != 0) {
        place_ -= std::min(place_, static_cast<std::size_t>(asked == "Back" ? 1 : std::atoi(asked.c_str() + 5)));
    } else if (how % 8 == 1) {
        place_ -= std::min<std::size_t>(place_, static_cast<std::size_t>(how / 8 % 3));
    } else if (place_ + 1 < shown_.size() && how % 8 > 3) {
        ++place_;
    } else if (how % 8 > 1 && server_->MoveRow < 150) {
        const auto [from, to] = pick(*server_, how / 8);
        server_->zSetFrom(from);
        const std::string text = server_->zMakeMove(to, true, false);
        if (!text.empty()) shown_.push_back(recordOf(*server_, text));
        place_ = shown_.size() - 1;
    }
    serverShows(false);
}

void WalkRun::serverShows(bool newGame) {
    modChess.Record = shown_.at(place_);
    modChess.Record.Relation = relation_;
    modChess.NewGameFlag = newGame;
    game_->zGS();
    game_->zSetPosition(false);
    modChess.NewGameFlag = false;
    game_->noPlay = false;
    model_.receive(modChess.Record, newGame);
}

void WalkRun::beginGame(int how) {
    static constexpr std::array<std::int16_t, 6> Relations{0, 1, -1, 2, -2, -3};
    modChess.ExamineNoMoves = how % 16 >= 8;
    relation_ = Relations.at(static_cast<std::size_t>(how / 4 % 6));
    server_ = quietGame();
    server_->finishLoad();
    shown_ = {recordOf(*server_, "none")};
    place_ = 0;
    const int known = how / 24 % 20; // the user comes to a game that goes on
    for (int move = 0; move < known; ++move) {
        const auto [from, to] = pick(*server_, how + move);
        server_->zSetFrom(from);
        const std::string text = server_->zMakeMove(to, true, false);
        if (!text.empty()) shown_.push_back(recordOf(*server_, text));
    }
    if (how % 3 == 0) place_ = shown_.size() - 1;
    serverShows(true);
}

void WalkRun::newBoard() {
    if (game_->icsMode) {
        game_->zEndParms();
        model_.endGame();
    }
    game_->mnuNew();
    model_.newBoard();
}

// What the reading of a stored game leaves behind, or the making of all its moves.
void WalkRun::loadTexts(int how) {
    if (game_->icsMode) return;
    if (how % 4 == 0) {
        game_->GameLoaded = model_.loaded = how % 8 == 0;
        game_->GridLightOn = model_.light = true;
    } else if (how % 4 == 1) {
        game_->zEnd();
        model_.endOfMoves();
    }
}

void WalkRun::writeText(int how) {
    const int row = std::clamp(game_->MoveRow + how % 3 - 1, 0, LastMoveRow);
    const int side = how / 3 % 2;
    const std::string text = OddTexts.at(static_cast<std::size_t>(how / 6) % OddTexts.size());
    game_->MoveText[row][side] = text;
    model_.texts.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(side)) = text;
}

void WalkRun::check() const {
    const Game& game = *game_;
    for (int square = 0; square < Squares; ++square) {
        require(game.Board[square] == model_.board[static_cast<std::size_t>(square)], "the board is at its position");
    }
    require(game.Board[HandSquare] == model_.hand(), "the hand holds what a drop left there");
    require(game.MoveUndo == model_.records() && game.EPGranted == model_.grant(), "what undoes the moves is kept");
    require(game.Turn == model_.turn, "it is that side's turn");
    require(game.MoveRow == model_.row, "the board stands at that row");
    require(game.CanForward == model_.ahead, "stored moves lie ahead, or none");
    require(game.Deviated == model_.deviated, "the stored line was left there");
    require(game.ShownPly == model_.shown, "that position of the store is on view");
    require(game.hand.FromSet == 0, "no move is in hand behind a step");
    require(label_ == model_.label, "the label tells the move");
    require(sent_ == model_.sent, "what goes to the server is what was asked for");
    checkList();
}

void WalkRun::checkList() const {
    const MoveGridState& grid = game_->grdMoves;
    require(std::pair(grid.row, grid.col) == model_.current, "that cell is the current one");
    for (int row = 0; row <= LastMoveRow; ++row) {
        for (int col = 0; col < 3; ++col) {
            const auto& cell = model_.grid[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
            require(grid.text(row, col) == cell.text, "the cells have their texts");
            require(grid.cells[row][col].tint == cell.tint, "the cells have their tints");
        }
    }
    for (int row = 0; row <= LastMoveRow; ++row) {
        for (int side = 0; side < 2; ++side) {
            require(game_->MoveText[row][side] ==
                        model_.texts[static_cast<std::size_t>(row)][static_cast<std::size_t>(side)],
                    "the stored moves are kept");
        }
    }
}
