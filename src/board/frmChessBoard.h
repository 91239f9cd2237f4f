// A board window: one game, or the memory of one, on the screen.
#pragma once

#include "board/BoardMenus.h"
#include "board/BoardParts.h"
#include "board/BoardRoads.h"
#include "board/Game.h"
#include "platform/PaintHold.h"
#include "settings/WindowPlacer.h"
#include "view/ResizeWatch.h"

#include <QMainWindow>
#include <QTimer>

// Owns its Game and shows what the game says. It is in openWindows from its construction until it closes, and deletes
// itself after closing, which may happen whenever the message loop is pumped.
class frmChessBoard : public QMainWindow {
    Q_OBJECT
public:
    // `roads` must outlive the window.
    explicit frmChessBoard(const BoardRoads& roads);
    ~frmChessBoard() override;

    // Places and shows the window with the start position; pumps.
    void load();
    // Part of the board's interface, and does nothing.
    void zBuildMask(std::int16_t, std::int16_t) {}
    // Takes colours and font of the console's command line for the own one.
    void takeColors();

    Game game;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void zObjectSetup();
    void connectMenus();
    void connectTyping();
    void fillSurface();
    void fillLabels();
    void fillTimers();
    void loadPlace();
    void paintBoard();
    void setPieceSet(std::int16_t set);
    bool mayClose();
    void unload();
    void finishClosing();
    void sendLine();
    bool answerTypingKey(int code, bool shift);
    QSize frame() const;
    QSize sizeFor(int square) const;
    void fitWindow(const BoardGeometry& geometry);

    const BoardRoads& roads_;
    QWidget* inner_ = nullptr; // the parts, inside the margins
    BoardMenus menus_;
    BoardParts parts_;
    PaintHold paintHold_{this};
    WindowPlacer placer_{this};
    QTimer tmrClock_;
    QTimer tmrNoPlay_;
    QTimer tmrResize_;
    ResizeWatch resizeWatch_;
    bool askedByUser_ = true;
    bool asking_ = false;  // the question before closing is up
    bool unShown_ = false; // cmdUn is to be shown wherever it clears the command line
};
