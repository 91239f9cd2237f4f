// A board window's commands: what its command line, its buttons and its piece-set entries do.
#include "board/frmChessBoard.h"

#include "common/TypingKey.h"
#include "common/modChess.h"
#include "records/FileDialogs.h"

#include <QPointer>

#include <memory>

void frmChessBoard::zSetBookup(std::int16_t set, std::int16_t limit) {
    modChess.ChessSet = set;
    const bool wide = parts_.picChess->geometry().SquarePixels > limit;
    parts_.picChess->usePieceList(wide ? set : static_cast<std::int16_t>(set + 1));
}

void frmChessBoard::setPieceSet(std::int16_t set) {
    constexpr std::int16_t Limit = 48; // pixels
    modChess.ChessSet = set;
    if (set == 0) zSetBookup(set, Limit);
    game.zBoardSetup(false);
    menus_.checkPieces(set);
    game.zBoardSetup(false);
}

bool frmChessBoard::zTxtSend(int key) {
    if (key != KeyEnter || !roads_.zSend(parts_.txtSend->line())) return false;
    parts_.txtSend->clear();
    return true;
}

// What a button stands for, as if the user had typed it.
void frmChessBoard::sendTyped(const std::string& text) {
    parts_.txtSend->setLine(text);
    zTxtSend(KeyEnter);
}

void frmChessBoard::offerDraw() { sendConfirmed("Draw", boxes.yesNo); }

void frmChessBoard::resign() { sendConfirmed("Resign", boxes.confirm); }

// The setting guards draws as well, though its name speaks of resigning only.
void frmChessBoard::sendConfirmed(const std::string& word, const Boxes::Question& question) {
    const QPointer<frmChessBoard> self(this);
    const bool confirmed = modChess.ConfirmResign == 0 || question(this, "Brightrank", word);
    if (!self || closed_) return; // closed while the box was up
    parts_.txtSend->setFocus();
    if (confirmed) sendTyped(word);
}

// The game is the one that was on the board when the user chose to save; the file dialog lets a next one begin.
void frmChessBoard::saveGame() {
    const auto record = std::make_unique<GameRecord>(game.BoardRecord);
    const BoardRoads& roads = roads_; // which outlive the board
    const std::string fileName = zSaveFile(this, true);
    if (!fileName.empty()) roads.zWriteGame(fileName, *record);
}

void frmChessBoard::openMatch(bool challenge) {
    modChess.MatchMode = challenge;
    roads_.showMatch();
}
