// The whole program in a test: what its windows show, as text.
#include "session/ProgramRig.h"

#include "platform/OpenWindows.h"

#include <QLabel>
#include <QTextBlock>

#include <algorithm>

namespace {

constexpr const char* Letters = " KQRBNP";

std::string squaresOf(const Game& game) {
    std::string squares;
    for (int square = 0; square < 64; ++square) {
        const int code = game.Board[square];
        const char letter = Letters[std::abs(code)];
        squares += code == 0 ? '-' : code > 0 ? letter : char(letter + ('a' - 'A'));
    }
    return squares;
}

std::string movesOf(const Game& game) {
    std::string moves;
    for (int row = 0; row <= 200; ++row) {
        for (int side = 0; side <= 1; ++side) {
            if (game.MoveText[row][side].empty()) continue;
            moves += " " + std::to_string(row) + (side == 0 ? "." : "..") + game.MoveText[row][side];
        }
    }
    return moves;
}

std::string holdingsOf(const Game& game) {
    std::string counts = game.HoldingsShown ? "shown" : "hidden";
    for (int kind = 0; kind <= 4; ++kind) {
        for (int side = 0; side <= 1; ++side) counts += " " + std::to_string(game.Holdings[kind][side]);
    }
    return counts;
}

std::string boardText(const frmChessBoard& board) {
    const Game& game = board.game;
    const auto& record = game.Style12Record;
    std::string text = "game " + std::to_string(game.gameIndex) + " relation " + game.xMyRel() + " turn " +
                       std::to_string(game.Turn) + " next ply " + std::to_string(game.NextPly) + "\n  " +
                       squaresOf(game) + "\n  clocks " + std::to_string(record.WhiteClock) + " " +
                       std::to_string(record.BlackClock) + (game.Flipped ? " flipped" : "") + "\n  holdings " +
                       holdingsOf(game) + "\n  moves" + movesOf(game) + "\n  title " +
                       board.windowTitle().toLatin1().toStdString() + "\n";
    for (const char* name : {"stbGame(1)", "stbGame(2)", "stbGame(3)", "lblMove", "lblBug(0)", "lblBug(1)"}) {
        text += std::string("  ") + name + " " + ProgramRig::labelOf(board, name) + "\n";
    }
    return text;
}

} // namespace

std::vector<frmChessBoard*> ProgramRig::boards() const {
    std::vector<frmChessBoard*> all;
    for (const OpenWindow& open : openWindows.windows) {
        if (open.className != "frmChessBoard") continue;
        all.push_back(const_cast<frmChessBoard*>(static_cast<const frmChessBoard*>(open.window)));
    }
    return all;
}

frmChessBoard* ProgramRig::boardOf(int game) const {
    const auto all = boards();
    const auto found = std::ranges::find_if(all, [game](const auto* board) { return board->game.gameIndex == game; });
    return found == all.end() ? nullptr : *found;
}

std::string ProgramRig::labelOf(const frmChessBoard& board, const char* name) {
    const auto* label = board.findChild<QLabel*>(QString::fromLatin1(name));
    return label ? label->text().toLatin1().toStdString() : "there is no such label";
}

std::string ProgramRig::boardsText() const {
    std::string text;
    for (const frmChessBoard* board : boards()) text += boardText(*board);
    return text;
}

std::vector<std::string> ProgramRig::consoleLines(std::optional<QColor> color) {
    console().flush();
    std::vector<std::string> lines;
    for (QTextBlock block = console().document()->begin(); block.isValid(); block = block.next()) {
        std::string line;
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            const bool fits = !color || fragment.charFormat().foreground().color() == *color;
            if (fits) line += fragment.text().toLatin1().toStdString();
        }
        if (!color || !line.empty()) lines.push_back(line);
    }
    return lines;
}
