// A board window: what its game shows where, and what its menus and keys do.
#include "board/frmChessBoard.h"

#include "board/BoardClock.h"
#include "common/TypingKey.h"
#include "platform/Boxes.h"
#include "platform/ButtonKeys.h"
#include "platform/Clock.h"
#include "platform/Described.h"
#include "platform/InFront.h"
#include "platform/MenuEntry.h"
#include "platform/StreamText.h"
#include "view/PositionWords.h"
#include "view/frmBoardColors.h"

#include <QApplication>
#include <QStatusBar>

#include <utility>

namespace {
constexpr int FirstClockTick = 100; // milliseconds; the second in which a game begins counts, as in its later looks
} // namespace

GameSurface frmChessBoard::surface() {
    return {
        .zDrawSquare =
            [this](int square, int mode) {
                parts_.picChess->zDrawSquare(static_cast<std::int16_t>(square), static_cast<std::int16_t>(mode));
            },
        .zMovePiece = [this](float x, float y,
                             int alpha) { parts_.picChess->zMovePiece(x, y, static_cast<std::uint8_t>(alpha)); },
        .paintBoard = [this] { paintBoard(); },
        .keepPicture = [this] { parts_.picChess->persist(); },
        .setPointerPicture = [this](int picture) { input_.showPointer(picture); },
        .setLastMove = [this](const std::string& text) { showLastMove(text); },
        .setClock = [this](int side, const std::string& text) { parts_.lblTime[side]->setText(text); },
        .setClockColor = [this](int side, std::uint32_t color) { parts_.lblTime[side]->setBackground(color); },
        .showHoldings = [this](const std::string& white, const std::string& black) { showHoldings(white, black); },
        .hideHoldings = [this] { hideHoldings(); },
        .setPanel = [this](int panel, const std::string& text) { parts_.panels[panel - 1]->setText(shownStart(text)); },
        .setTitle = [this](const std::string& text) { setWindowTitle(shownStart(text)); },
        .showUn = [this](bool shown) { showUn(shown); },
        .enableSavePGN = [this](bool enabled) { menus_.mnuSavePGN->setEnabled(enabled); },
        .bringToFront = [this] { bringInFront(*this); },
        .startClock = [this] { tmrClock_.start(FirstClockTick); },
        .stopClock = [this] { tmrClock_.stop(); },
        .startNoPlay = [this] { tmrNoPlay_.start(); },
        .stopNoPlay = [this] { tmrNoPlay_.stop(); },
        .secondsOfDay = [] { return wallClock.secondsOfDay(); },
        .print = [this](const std::string& text) { roads_.print(text); },
        .beep = [] { QApplication::beep(); },
        .playSound = [this](std::string_view name, std::int16_t mode) { roads_.playSound(name, mode); },
        .zSendMsg = [this](const std::string& text) { zSendMsg(text); },
        .zSqFinish = [this](int square) { input_.moves.zSqFinish(square); },
    };
}

MoveGridSurface frmChessBoard::gridSurface() {
    return {
        .showCell = [this](int row, int col) { parts_.grdMoves->showCell(row, col); },
        .scrollTo = [this](int row) { parts_.grdMoves->scrollToRow(row); },
        .setUp = [this] { parts_.grdMoves->setUp(); },
        .showCurrent = [this] { parts_.grdMoves->showCurrent(); },
        .zFindBottomRow = [this] { parts_.grdMoves->zFindBottomRow(); },
    };
}

void frmChessBoard::showHoldings(const std::string& white, const std::string& black) {
    parts_.lblBug[0]->setText(shownStart(white));
    parts_.lblBug[1]->setText(shownStart(black));
    for (QLabel* label : parts_.lblBug) label->show();
}

void frmChessBoard::hideHoldings() {
    for (QLabel* label : parts_.lblBug) label->hide();
}

void frmChessBoard::showUn(bool shown) {
    unShown_ = shown;
    if (shown) {
        zSolveConflict(parts_.cmdUn);
    } else {
        parts_.cmdUn->hide();
    }
}

// The announcement comes from the message loop: a tool that reads at once would read whose move it was before. Of moves
// that come together the last one is what it finds to read.
void frmChessBoard::showLastMove(const std::string& text) {
    const QString shown = shownStart(text);
    if (shown == parts_.lblMove->text()) return;
    parts_.lblMove->setText(shown);
    parts_.txtSend->setAccessibleDescription(shownText(describeMove(text))); // heard where the keys are
    if (text.empty() || std::exchange(announcing_, true)) return;
    const auto announce = [this] {
        announcing_ = false;
        announceDescription(parts_.picChess);
    };
    QMetaObject::invokeMethod(this, announce, Qt::QueuedConnection);
}

std::string frmChessBoard::movesInWords() const {
    std::string words = describeMove(bytesOf(parts_.lblMove->text()));
    if (!words.empty()) words += "; ";
    if (game.PreMoveSet) words += describePreMove(game.PreFrom, game.PreTo) + "; ";
    return words + (game.Turn == 1 ? "White to move" : "Black to move");
}

void frmChessBoard::connectTimers() {
    const auto prepare = [this](QTimer& timer, const char* name, int milliseconds) {
        timer.setParent(this); // where it is found by its name
        timer.setObjectName(QString::fromLatin1(name));
        timer.setInterval(milliseconds);
    };
    prepare(tmrClock_, "tmrClock", FirstClockTick);
    tmrClock_.setTimerType(Qt::PreciseTimer); // so that the clocks of all boards tick as one
    prepare(tmrNoPlay_, "tmrNoPlay", 4000);
    tmrResize_.setInterval(ResizeWatch::IntervalMs);
    connect(&tmrClock_, &QTimer::timeout, this, [this] {
        tmrClock_.setInterval(untilNextSecond(wallClock.secondsOfDay()));
        game.tmrClock();
    });
    connect(&tmrNoPlay_, &QTimer::timeout, this, [this] { game.tmrNoPlay(); });
    connect(&tmrResize_, &QTimer::timeout, this, [this] {
        tmrResize_.stop();
        if (!resizeWatch_.timerFired()) return;
        game.zBoardSetup(false);
        resizeWatch_.fitted();
    });
}

void frmChessBoard::connectMenus() {
    const auto on = [this](QAction* entry, auto answer) { connect(entry, &QAction::triggered, this, answer); };
    on(menus_.mnuNew, [this] { game.mnuNew(); });
    onChosen(menus_.mnuSavePGN, this, [this] { saveGame(); });
    on(menus_.mnuInvert, [this] { game.mnuInvert(); });
    on(menus_.mnuClean, [this] { game.mnuClean(); });
    on(menus_.mnuBookup, [this] { setPieceSet(0); });
    on(menus_.mnuQuorl, [this] { setPieceSet(1); });
    on(menus_.mnuGNU, [this] { setPieceSet(2); });
    onChosen(menus_.mnuPGN, this, [this] { mnuPGN(); });
    onChosen(menus_.mnuColors, this, [this] { frmBoardColors::showAt(pos()); });
    onChosen(menus_.mnuSeek, this, [this] { openMatch(false); });
    onChosen(menus_.mnuMatch, this, [this] { openMatch(true); });
    onChosen(menus_.mnuSeekGrf, this, [this] { roads_.showSeek(); });
    onChosen(menus_.mnuDraw, this, [this] { offerDraw(); });
    onChosen(menus_.mnuRes, this, [this] { resign(); });
    onChosen(menus_.mnuExamine, this, [this] { zExamine(); });
    onChosen(menus_.mnuSelfCheck, this, [this] { roads_.doors.showSelfCheck(this); });
    onChosen(menus_.mnuVars, this, roads_.doors.showVars);
    onChosen(menus_.mnuNotes, this, roads_.doors.showNotes);
    onChosen(menus_.mnuOptions, this, roads_.doors.showOptions);
    onChosen(menus_.mnuHelp, this, roads_.doors.showHelp);
    onChosen(menus_.mnuAbout, this, [this] { showAbout(this); });
    for (QAction* exit : {menus_.mnuExit, menus_.mnuExit1}) onChosen(exit, this, [this] { close(); });
}

void frmChessBoard::connectTyping() {
    parts_.txtSend->keyDown = [this](int code, bool shift) { return answerTypingKey(code, shift); };
    connect(parts_.cmdUn, &QPushButton::clicked, this, [this] {
        parts_.txtSend->setFocus(); // the button goes with the game
        game.cmdUn();
    });
    connect(parts_.cmdDraw, &QPushButton::clicked, this, [this] { offerDraw(); });
    connect(parts_.cmdRes, &QPushButton::clicked, this, [this] { resign(); });
    for (QToolButton* button : parts_.cmdTell) {
        connect(button, &QToolButton::clicked, this, [this, button] {
            const std::string text = bytesOf(button->toolTip());
            parts_.txtSend->setFocus();
            if (!text.empty()) sendTyped(text);
        });
    }
}

void frmChessBoard::connectWalking() {
    for (const StepButton* button : parts_.cmdScroll) {
        connect(button, &QToolButton::clicked, this, [this, button] {
            parts_.txtSend->setFocus();
            game.zReposition(button->step);
        });
    }
    connect(parts_.grdMoves, &MoveGrid::cellClicked, this, [this](int row, int col) {
        game.grdMovesClick(row, col);
        parts_.txtSend->setFocus();
    });
    connect(parts_.grdMoves, &MoveGrid::walked, this, [this](int step) { game.zReposition(step); });
    parts_.lblMove->doubleClicked = [this] { game.lblMoveDoubleClick(); };
}

bool frmChessBoard::answerTypingKey(int code, bool shift) {
    if (code == KeyEnter) return zTxtSend(code);
    if (code == KeyF9 && shift) {
        Q_EMIT chatWanted();
        parts_.txtSend->end(false);
        return true;
    }
    const TypingAnswer answer = typingAnswer(code, roads_.history, parts_.txtSend->line(), game.gameIndex);
    if (answer.text) parts_.txtSend->setLine(*answer.text);
    if (answer.taken) parts_.txtSend->end(false);
    return answer.taken;
}

void frmChessBoard::keyPressEvent(QKeyEvent* event) {
    if (!answerKey(*event)) QMainWindow::keyPressEvent(event);
}

// What the part that has the focus leaves to the window.
bool frmChessBoard::answerKey(const QKeyEvent& event) {
    const bool onBoard = focusWidget() == parts_.picChess;
    if (event.key() == Qt::Key_F6) {
        (onBoard ? static_cast<QWidget*>(parts_.txtSend) : parts_.picChess)->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (!onBoard) return answerButtonKey(focusWidget(), event, *parts_.txtSend);
    return (event.key() == Qt::Key_Escape && input_.putBack()) || goOnInLine(event, *parts_.txtSend);
}
