// A board window: one game, or the memory of one, on the screen.
#pragma once

#include "board/BoardInput.h"
#include "board/BoardMenus.h"
#include "board/BoardParts.h"
#include "board/BoardRoads.h"
#include "board/Game.h"
#include "platform/Boxes.h"
#include "settings/WindowPlacer.h"
#include "view/ResizeWatch.h"

#include <QMainWindow>
#include <QTimer>

// Owns its Game and shows what the game says. It is in openWindows from its construction until it closes, and deletes
// itself after closing.
class frmChessBoard : public QMainWindow {
    Q_OBJECT
public:
    // `roads` must outlive the window.
    explicit frmChessBoard(const BoardRoads& roads);
    ~frmChessBoard() override;

    // Places and shows the window with the start position.
    void load();
    // Part of the board's interface, and does nothing.
    void zBuildMask(std::int16_t, std::int16_t) {}
    // Takes the ten button commands of the options.
    void takeTells();
    // Takes colours and font of the console's command line for the own one.
    void takeColors();

    // Sends one command of the program's own by the console's road; dropped while not connected.
    void zSendMsg(const std::string& text) { roads_.zSendMsg(text); }
    // Key press of txtSend: Enter (13) sends the line by the console's typed road and empties it. True if the key is
    // consumed; while not connected it is not, and the line stays.
    bool zTxtSend(int key);
    // Makes `text` the newest line of the history that all boards share with the console.
    void zShiftReg(const std::string& text) { roads_.history.zPushCommand(text); }
    // Shows `control` only if it clears the command line.
    void zSolveConflict(QWidget* control) const { parts_.zSolveConflict(control); }
    // Takes the check marks off the piece sets.
    void zUnCheckPieces() { menus_.zUnCheckPieces(); }
    // modChess.ChessSet takes `set`, and the squares their pieces from image list `set` + 1, or `set` if they are wider
    // than `limit` pixels; the next zBoardSetup chooses a list anew.
    void zSetBookup(std::int16_t set, std::int16_t limit);

    // The desktop's dialog for a game file to read, see records/FileDialogs.h. The window may be gone afterwards.
    std::string zLoadFile(bool pgn);
    // Reads which games a file has, shows them in frmPGN, and takes over the one that is chosen there, if the window is
    // still there then; mnuSavePGN is disabled in every case. Faults (file), and as readPgnTags does.
    void zLoadPGN(const std::string& fileName);
    // Shows frmExamine for this board.
    void zExamine() { roads_.showExamine(game.id); }
    // The window of the board with this id; null when there is none any more.
    static frmChessBoard* windowOf(std::int32_t id);

    Game game{surface(), gridSurface()};

Q_SIGNALS:
    // Shift+F9: a chat box for modChess.TellTarget is to open, or to come up if there is one.
    void chatWanted();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void zObjectSetup();
    void connectMenus();
    void connectTyping();
    void connectWalking();
    GameSurface surface();
    MoveGridSurface gridSurface();
    void connectTimers();
    WindowPlace startPlace() const;
    void loadPlace();
    void paintBoard();
    void setPieceSet(std::int16_t set);
    bool mayClose();
    void unload();
    void finishClosing();
    void saveGame();
    void openMatch(bool challenge);
    void mnuPGN();
    void takeGame(const std::string& fileName, int row);
    void sendTyped(const std::string& text);
    void offerDraw();
    void resign();
    void sendConfirmed(const std::string& word, const Boxes::Question& question);
    void showLastMove(const std::string& text);
    void showHoldings(const std::string& white, const std::string& black);
    void hideHoldings();
    void showUn(bool shown);
    std::string movesInWords() const;
    bool answerKey(const QKeyEvent& event);
    bool answerTypingKey(int code, bool shift);
    QSize frame() const;
    QSize sizeFor(int square) const;
    void fitWindow(const BoardGeometry& geometry);

    const BoardRoads& roads_;
    QWidget* inner_ = nullptr; // the parts, inside the margins
    BoardMenus menus_;
    BoardParts parts_;
    BoardInput input_{game, parts_};
    WindowPlacer placer_{this};
    QTimer tmrClock_;
    QTimer tmrNoPlay_;
    QTimer tmrResize_;
    ResizeWatch resizeWatch_;
    std::unique_ptr<LineFile> openFile_; // a file with so many games that its reading did not come to the end
    bool askedByUser_ = true;
    bool closed_ = false;
    bool asking_ = false;     // the question before closing is up
    bool announcing_ = false; // a move is about to be announced
    bool unShown_ = false;    // cmdUn is to be shown wherever it clears the command line
};
