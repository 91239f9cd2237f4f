// A board window's games from files.
#include "board/frmChessBoard.h"

#include "board/GameRouting.h"
#include "records/FileDialogs.h"
#include "records/frmPGN.h"

#include <QApplication>
#include <QPointer>

frmChessBoard* frmChessBoard::windowOf(std::int32_t id) {
    if (zFindBoardById(id) < 0) return nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* board = qobject_cast<frmChessBoard*>(widget);
        if (board && board->game.id == id) return board;
    }
    return nullptr;
}

std::string frmChessBoard::zLoadFile(bool pgn) { return ::zLoadFile(this, pgn); }

void frmChessBoard::mnuPGN() {
    const QPointer<frmChessBoard> self(this);
    const std::string fileName = zLoadFile(true);
    if (!self || closed_) return; // closed while the dialog was up
    if (fileName.empty()) {
        game.surface.enableSavePGN(false);
    } else {
        zLoadPGN(fileName);
    }
}

// The choice comes from the message loop: by then the chooser is gone, or the board with it.
void frmChessBoard::zLoadPGN(const std::string& fileName) {
    auto file = std::make_unique<LineFile>(fileName);
    const std::int16_t next = readPgnTags(*file, game.PgnGames);
    if (next > LastPgnGame) openFile_ = std::move(file);
    file.reset();
    frmPGN& chooser = frmPGN::showIt(*this, game.id, fileName, game.PgnGames, next - 1);
    const auto answer = [this, fileName](int row) {
        if (closed_) return;
        if (row > 0) takeGame(fileName, row);
        game.surface.enableSavePGN(false);
    };
    connect(&chooser, &frmPGN::chosen, this, answer, Qt::QueuedConnection);
}

void frmChessBoard::takeGame(const std::string& fileName, int row) {
    const PgnGame& chosen = game.PgnGames[row];
    game.surface.setTitle(chosen.White + " - " + chosen.Black + "  " + chosen.Result);
    LineFile file(fileName);
    std::string skipped;
    for (int line = 1; line < chosen.Line; ++line) file.take(skipped);
    game.zReadPGNgame(file);
    activateWindow();
    parts_.txtSend->setFocus();
}
