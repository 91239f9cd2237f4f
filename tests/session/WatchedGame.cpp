// A running game as a server tells it to those who watch, and what a board of it has to show.
#include "session/WatchedGame.h"

#include "board/ClockFace.h"
#include "common/RecordedText.h"
#include "session/ProgramRig.h"

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>

namespace {

// The words of a Style 12 line, counted from "<12>".
constexpr std::size_t Turn = 9;
constexpr std::size_t Number = 16;
constexpr std::size_t White = 17;
constexpr std::size_t Black = 18;
constexpr std::size_t Relation = 19;
constexpr std::size_t WhiteClock = 24;
constexpr std::size_t BlackClock = 25;
constexpr std::size_t Row = 26;
constexpr std::size_t Move = 29;
constexpr std::size_t Flip = 30;
constexpr int LastRow = 195; // a board holds 200

using Words = std::vector<std::string>;

// The positions of the recorded game, each after a move.
std::vector<Words> readPositions() {
    std::vector<Words> positions;
    for (const std::string& line : recordedLines("server-b/03_long_game_smoves.raw")) {
        const auto begin = line.find("<12> ");
        if (begin == line.npos) continue;
        std::istringstream text(line.substr(begin));
        Words words{std::istream_iterator<std::string>(text), {}};
        if (std::stoi(words[Row]) > LastRow) break;
        if (words[Move] != "none") positions.push_back(std::move(words));
    }
    return positions;
}

const std::vector<Words>& positions() {
    static const std::vector<Words> all = readPositions();
    return all;
}

std::string timeText(int seconds) {
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

int whiteClock(int number, int told) { return 3000 + 7 * number - told; }
int blackClock(int number, int told) { return 2000 + 5 * number - 2 * told; }

// Of the move that led to a position: its row, and 0 for white's.
std::pair<int, int> cellOf(const Words& words) {
    const bool whiteMoved = words[Turn] == "B";
    return {std::stoi(words[Row]) - (whiteMoved ? 0 : 1), whiteMoved ? 0 : 1};
}

std::string cellText(const std::pair<int, int>& cell, const std::string& move) {
    return std::to_string(cell.first) + (cell.second == 0 ? ". " : ".. ") + move;
}

} // namespace

WatchedGame::WatchedGame(int number, std::string white, std::string black, std::size_t start)
    : number_(number), white_(std::move(white)), black_(std::move(black)), at_(start) {
    EXPECT_EQ(positions().size(), 389U) << "the recorded game";
}

const Words& WatchedGame::words() const { return positions()[(at_ - 1) % positions().size()]; }

std::string WatchedGame::next() {
    ++at_;
    ++told_;
    Words line = words();
    if (told_ > 1) moves_[cellOf(line)] = line[Move];
    line[Number] = std::to_string(number_);
    line[White] = white_;
    line[Black] = black_;
    line[Relation] = "0";
    line[WhiteClock] = std::to_string(whiteClock(number_, told_));
    line[BlackClock] = std::to_string(blackClock(number_, told_));
    line[Flip] = "0";
    std::string text = "\n\r";
    for (const std::string& word : line) text += word + " ";
    text.back() = '\n';
    return text + "\rfics% ";
}

std::string WatchedGame::end() const {
    return "\n\r{Game " + std::to_string(number_) + " (" + white_ + " vs. " + black_ + ") " + black_ +
           " resigns} 1-0\n\rfics% ";
}

std::string WatchedGame::face() const {
    const Words& line = words();
    std::string squares;
    for (std::size_t rank = 8; rank >= 1; --rank) squares += line[rank];
    const std::string players = white_ + " - " + black_ + "    [" + line[20] + " " + line[21] + "]";
    return squares + "\nclocks " + timeText(whiteClock(number_, told_)) + " " + timeText(blackClock(number_, told_)) +
           "\nlast " + cellText(cellOf(line), line[Move]) + "\n" + players + "\n" + players + "\nGame " +
           std::to_string(number_) + "\n";
}

std::string WatchedGame::moves() const {
    std::string text;
    for (const auto& [cell, move] : moves_) text += cellText(cell, move) + "\n";
    return text;
}

std::string faceOf(const frmChessBoard& board) {
    constexpr std::string_view Letters = "kqrbnp";
    std::string text;
    for (int square = 0; square < 64; ++square) {
        const int code = board.game.Board[square];
        const char letter = code == 0 ? '-' : Letters[static_cast<std::size_t>(std::abs(code)) - 1];
        text += code > 0 ? static_cast<char>(std::toupper(letter)) : letter;
    }
    text += "\nclocks";
    for (const char* name : {"lblTime(0)", "lblTime(1)"}) {
        text += static_cast<ClockFace*>(board.findChild<QWidget*>(QString::fromLatin1(name)))->text();
    }
    text += "\nlast " + ProgramRig::labelOf(board, "lblMove") + "\n" + board.windowTitle().toStdString() + "\n";
    for (const char* name : {"stbGame(2)", "stbGame(3)"}) text += ProgramRig::labelOf(board, name) + "\n";
    return text;
}

std::string movesOf(const frmChessBoard& board) {
    std::string text;
    for (int row = 1; row <= 200; ++row) {
        for (int side = 0; side <= 1; ++side) {
            const std::string move = board.game.grdMoves.text(row, side + 1);
            if (!move.empty()) text += cellText({row, side}, move) + "\n";
        }
    }
    return text;
}
