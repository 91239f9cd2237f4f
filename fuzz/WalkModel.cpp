// Walking through a game once more, worked out apart from the board's own: where the board stands, and what its list
// shows.
#include "WalkModel.h"

#include "MoveModel.h"
#include "board/Style12Line.h"
#include "common/modChess.h"

#include <algorithm>

namespace {

constexpr int LastRowOfAll = 200;

WalkModel::Squares squaresOf(std::string_view position) {
    WalkModel::Squares squares{};
    for (std::size_t square = 0; square < 64; ++square) {
        const auto kind = std::string_view("kqrbnp").find(static_cast<char>(position[square] | 0x20));
        const int code = position[square] == '-' ? 0 : static_cast<int>(kind) + 1;
        squares[square] = position[square] >= 'a' ? -code : code;
    }
    return squares;
}

constexpr std::string_view Start = "RNBQKBNRPPPPPPPP--------------------------------pppppppprnbqkbnr";

} // namespace

WalkModel::WalkModel() {
    maker_->finishLoad();
    board = squaresOf(Start);
    keep(0);
    clearGrid();
    deviated = -1;
    current = {1, 1};
}

void WalkModel::lend() {
    for (int square = 0; square < 64; ++square) {
        maker_->Board[square] = static_cast<std::int16_t>(board[static_cast<std::size_t>(square)]);
    }
    maker_->Turn = static_cast<std::int16_t>(turn);
    maker_->MoveRow = static_cast<std::int16_t>(row);
    maker_->icsMode = live;
}

bool WalkModel::mayMove(int from, int to) {
    lend();
    return signOf(maker_->Board[from]) == turn && modelMayMove(*maker_, from, to);
}

std::string WalkModel::make(int from, int to, bool display) {
    lend();
    const int column = turn > 0 ? 1 : 2;
    const int before = row;
    maker_->surface.zSendMsg = [this](const std::string& line) { sent.push_back(line); };
    maker_->zSetFrom(from);
    const std::string made = maker_->zMakeMove(to, true, false);
    for (std::size_t square = 0; square < 64; ++square) board[square] = maker_->Board[static_cast<long>(square)];
    if (made.empty()) return made;
    if (!live && display) {
        current = {before, column};
        if (column == 1) cell({before, 0}).text = std::to_string(before);
        cell(current).text = made;
    }
    if (turn < 0) ++row;
    turn = -turn;
    if (!live) keep(ply());
    return made;
}

// The lowest square of a piece that may go to `target`; else what came.
std::pair<int, int> WalkModel::search(int piece, int file, int rank, int from, const std::string& target) {
    if (target.size() < 2 || target[1] < '0' || target[1] > '9') return {from, 0};
    const int to = static_cast<unsigned char>(target[0]) - 'a' + 8 * (target[1] - '1');
    lend();
    for (int step = 0; step < (file >= 0 || rank >= 0 ? 8 : 64); ++step) {
        const int square = file >= 0 ? file + 8 * step : rank >= 0 ? 8 * rank + step : step;
        if (square > 64) break;
        if (maker_->Board[square] != turn * piece || to < 0 || to > 64) continue;
        if (modelMayMove(*maker_, square, to)) return {square, to};
    }
    return {from, to};
}

std::pair<int, int> WalkModel::decode(const std::string& said) {
    if (said.empty()) return {0, 0};
    if (said[0] == 'O' || said[0] == 'o') {
        const bool shortSide = said.size() == 3 && said[1] == '-' && (said[2] | 0x20) == 'o';
        const int king = turn == 1 ? 4 : 60;
        return {king, shortSide ? king + 2 : king - 2};
    }
    const auto kind = std::string("KQRBN").find(said[0]);
    const int piece = kind == std::string::npos ? 6 : static_cast<int>(kind) + 1;
    const std::string padded = said + std::string(8, '\0');
    const int file = piece == 6 ? static_cast<unsigned char>(said[0]) - 'a' : -1;
    if (padded[1] == '@') {
        maker_->Board[64] = static_cast<std::int16_t>(turn * piece);
        return search(piece, file, -1, 64, padded.substr(2, 2));
    }
    if (piece == 6) {
        const std::size_t place = padded[1] == 'x' ? 2 : 0;
        if (padded[place + 1] == '8' || padded[place + 1] == '1') {
            const char named = padded[place + 2] == '=' ? padded[place + 3] : padded[place + 2];
            const auto promoted = std::string("QRBN").find(named);
            maker_->PromotePiece = static_cast<std::int16_t>(promoted == std::string::npos ? 0 : promoted + 2);
        }
        return search(6, file, -1, 0, padded.substr(place, 2));
    }
    if (padded[1] == 'x') return search(piece, -1, -1, 0, padded.substr(2, 2));
    const std::size_t behind = padded[2] == 'x' ? 3 : 2;
    if (padded[1] >= '1' && padded[1] <= '8') return search(piece, -1, padded[1] - '1', 0, padded.substr(behind, 2));
    if (static_cast<unsigned char>(padded[2]) > 'Z') {
        return search(piece, static_cast<unsigned char>(padded[1]) - 'a', -1, 0, padded.substr(behind, 2));
    }
    return search(piece, -1, -1, 0, padded.substr(1, 2));
}

void WalkModel::tint(const std::string& text) {
    constexpr std::int32_t Plain = 0xFFFFFF;
    constexpr std::int32_t OnLine = 0xC0C0FF;
    constexpr std::int32_t OffLine = 0x80FFFF;
    constexpr std::int32_t Behind = 0xC0FFFF;
    if (tinted.first != 0) {
        std::int32_t& old = cell(tinted).tint;
        if (text != "No") {
            old = old == OffLine || old == Behind ? Behind : Plain;
        } else if (old == OnLine) {
            old = Plain;
        } else if (old == OffLine) {
            old = Behind;
        }
    }
    tinted = current;
    if (current.first == 0) return;
    if (cell(current).text == text) cell(current).tint = OnLine;
    if (text == "No") cell(current).tint = OffLine;
}

void WalkModel::showLabel(int number, int col) {
    label = number == 0 ? "" : std::to_string(number) + (col == 1 ? ". " : ".. ") + cell(current).text;
}

void WalkModel::clearGrid() {
    for (auto& each : grid) each.fill({});
    grid[0][1].text = "White";
    grid[0][2].text = "Black";
    row = 1;
}

void WalkModel::fillGrid() {
    for (int each = 1; each <= last.first; ++each) {
        cell({each, 0}).text = std::to_string(each);
        cell({each, 1}).text = text(each, 0);
        cell({each, 2}).text = text(each, 1);
    }
}

void WalkModel::start() {
    board = squaresOf(Start);
    clearGrid();
    keep(0);
    fillGrid();
    current = {0, 2};
    ahead = true;
    deviated = 0;
    turn = 1;
    label.clear();
}

void WalkModel::stepBack() {
    turn = -turn;
    if (turn < 0) --row;
    const int side = turn < 0 ? 1 : 0;
    view(2 * (row - 1) + side);
    auto& record = maker_->MoveUndo[row][side];
    maker_->EPGranted = record[6];
    for (int kind = 0; kind < 6; ++kind) record[kind] = 0;
    if (ply() < deviated) {
        ahead = true;
        deviated = 0;
    }
    if (light) {
        current = side == 1 ? std::pair{row, 1} : std::pair{row - 1, 2};
        tintCurrent();
    } else {
        cell({row, side + 1}).text.clear();
        if (side == 0) cell({row, 0}).text.clear();
    }
}

std::string WalkModel::stepForward(bool display) {
    const auto [from, to] = row > LastRowOfAll ? std::pair{0, 0} : decode(text(row, turn > 0 ? 0 : 1));
    takeQueen(from, to);
    const std::string made = make(from, to, display);
    if (made.empty()) maker_->PromotePiece = 0;
    maker_->Board[64] = 0;
    if (display && light) tintCurrent();
    return made;
}

// A stored promotion that names no piece.
void WalkModel::takeQueen(int from, int to) {
    lend();
    const bool pawn = maker_->Board[from] == 6 * turn && (to / 8 == 0 || to / 8 == 7) && from != to;
    if (!pawn || to > 63 || to < 0 || maker_->PromotePiece != 0 || modChess.AutoQueen != 0) return;
    if (from == 64 || mayMove(from, to)) maker_->PromotePiece = 2;
}

void WalkModel::goTo(int toRow, int toCol) {
    if (toRow > last.first || 2 * toRow + toCol - 2 < 0) return;
    view(2 * toRow + toCol - 2);
    current = {toRow, toCol};
    tint(cell(current).text);
    showLabel(toRow, toCol);
    turn = toCol == 1 ? -1 : 1;
    row = toCol == 1 ? toRow : toRow + 1;
}

void WalkModel::reposition(int step) {
    if (step == 0) return;
    if (live && relation == 2) {
        static constexpr std::array Commands{"Back 999", "Back", "", "For", "For 999"};
        sent.emplace_back(Commands.at(static_cast<std::size_t>(step + 2)));
    } else if (live && step == -1) {
        if (shown > 0) {
            view(shown);
            turn = -turn;
        }
        showLabel(current.first, current.second);
    } else if (live) {
        if (step == 1 && shown >= newest - 2) return;
        shown = step == -2 ? 0 : step == 1 ? shown + 1 : newest - 2;
        view(shown);
    } else if (step == -2) {
        start();
    } else if (step == -1) {
        if (row == 1 && turn == 1) return;
        stepBack();
        showLabel(current.first, current.second);
    } else if (ahead && step == 1) {
        stepForward(true);
        showLabel(current.first, current.second);
    } else if (ahead) {
        goTo(last.first, last.second + 1);
    }
}

void WalkModel::click(int clickedRow, int clickedCol) {
    if (clickedRow == 0 || clickedCol == 0) return;
    if (!live || relation != 2) return goTo(clickedRow, clickedCol);
    const int way = 2 * clickedRow + clickedCol - 2 * examined.first - examined.second;
    if (way != 0) sent.push_back((way > 0 ? "For " : "Back ") + std::to_string(std::abs(way)));
}

void WalkModel::ownMove(int from, int to) {
    const int before = row;
    const int side = turn > 0 ? 0 : 1;
    const std::string made = make(from, to, true);
    if (!made.empty() && !loaded && made != text(before, side)) {
        text(before, side) = made;
        deviated = ply();
        text(before + side, 1 - side).clear();
        ahead = false;
    } else if (!made.empty() && loaded && deviated == 0) {
        deviated = ply();
        ahead = false;
    }
    if (!live && light) tintCurrent();
}

void WalkModel::receive(const Style12Record& record, bool newGame) {
    relation = record.Relation;
    board = squaresOf(record.Position);
    const int number = record.MoveNumber;
    const bool whiteMoved = record.SideToMove == 1;
    const int madeRow = whiteMoved ? number : number - 1;
    const std::pair made{madeRow, whiteMoved ? 1 : 2};
    const int count = 2 * number + (whiteMoved ? 1 : 0);
    if (relation == 2) examined = made;
    if (relation == 2 && !modChess.ExamineNoMoves) {
        current = made;
    } else if (count > newest) {
        cell({madeRow, 0}).text = std::to_string(madeRow);
        cell(made).text = record.PrettyMove;
        text(madeRow, whiteMoved ? 0 : 1) = record.PrettyMove;
        keep(2 * madeRow - (whiteMoved ? 1 : 0));
        last = {madeRow, whiteMoved ? 0 : 1};
    } else if (whiteMoved) {
        cell({number, 2}).text.clear();
    } else {
        cell({number, 1}).text.clear();
        cell({number, 0}).text.clear();
    }
    if (relation == 2) tint(record.PrettyMove);
    label = madeRow == 0 ? "" : std::to_string(madeRow) + (whiteMoved ? ". " : ".. ") + record.PrettyMove;
    newest = count;
    shown = count - 2;
    row = number;
    turn = whiteMoved ? -1 : 1;
    if (newGame) {
        live = true;
        clearGrid();
    }
    keep(shown);
}

void WalkModel::endGame() {
    relation = -100;
    live = false;
    light = true;
    ahead = true;
    deviated = 0;
}

void WalkModel::newBoard() {
    light = false;
    board = squaresOf(Start);
    clearGrid();
    ahead = false;
    deviated = -1;
    keep(0);
    current = {1, 1};
    turn = 1;
    loaded = false;
}

void WalkModel::endOfMoves() {
    while (!stepForward(false).empty()) {
    }
    if (last.first == 0) return;
    view(2 * last.first + last.second - 2);
    current = {last.first, last.second + 1};
    tint(cell(current).text);
}
