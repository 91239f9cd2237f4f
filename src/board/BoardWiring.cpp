// A board window: what its game shows where, and what its menus and keys do.
#include "board/frmChessBoard.h"

#include "common/TypingKey.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/StreamText.h"
#include "view/frmBoardColors.h"

#include <QApplication>
#include <QStatusBar>

void frmChessBoard::fillSurface() {
    GameSurface& surface = game.surface;
    surface.zDrawSquare = [this](int square, int mode) {
        parts_.picChess->zDrawSquare(static_cast<std::int16_t>(square), static_cast<std::int16_t>(mode));
    };
    surface.zMovePiece = [this](float x, float y, int alpha) {
        parts_.picChess->zMovePiece(x, y, static_cast<std::uint8_t>(alpha));
    };
    surface.keepPicture = [this] { parts_.picChess->persist(); };
    surface.paintBoard = [this] { paintBoard(); };
    surface.playSound = [this](std::string_view name, std::int16_t mode) { roads_.playSound(name, mode); };
    surface.zSendMsg = [this](const std::string& text) { zSendMsg(text); };
    fillLabels();
    fillTimers();
}

void frmChessBoard::fillLabels() {
    GameSurface& surface = game.surface;
    surface.setLastMove = [this](const std::string& text) { parts_.lblMove->setText(shownText(text)); };
    surface.setClock = [this](int side, const std::string& text) { parts_.lblTime[side]->setText(text); };
    surface.setClockColor = [this](int side, std::uint32_t color) { parts_.lblTime[side]->setBackground(color); };
    surface.showHoldings = [this](const std::string& white, const std::string& black) {
        parts_.lblBug[0]->setText(shownText(white));
        parts_.lblBug[1]->setText(shownText(black));
        for (QLabel* label : parts_.lblBug) label->show();
    };
    surface.hideHoldings = [this] {
        for (QLabel* label : parts_.lblBug) label->hide();
    };
    surface.setPanel = [this](int panel, const std::string& text) {
        parts_.panels[panel - 1]->setText(shownText(text));
    };
    surface.setTitle = [this](const std::string& text) { setWindowTitle(shownText(text)); };
    surface.showUn = [this](bool shown) {
        unShown_ = shown;
        if (shown) {
            zSolveConflict(parts_.cmdUn);
        } else {
            parts_.cmdUn->hide();
        }
    };
    surface.bringToFront = [this] {
        setWindowState(windowState() & ~Qt::WindowMinimized);
        show();
        raise();
        activateWindow();
    };
}

void frmChessBoard::fillTimers() {
    GameSurface& surface = game.surface;
    const auto prepare = [this](QTimer& timer, const char* name, int milliseconds) {
        timer.setParent(this); // where it is found by its name
        timer.setObjectName(QString::fromLatin1(name));
        timer.setInterval(milliseconds);
    };
    prepare(tmrClock_, "tmrClock", 100);
    prepare(tmrNoPlay_, "tmrNoPlay", 4000);
    tmrResize_.setInterval(ResizeWatch::IntervalMs);
    surface.startClock = [this] { tmrClock_.start(); };
    surface.stopClock = [this] { tmrClock_.stop(); };
    surface.startNoPlay = [this] { tmrNoPlay_.start(); };
    surface.stopNoPlay = [this] { tmrNoPlay_.stop(); };
    surface.secondsOfDay = [] { return wallClock.secondsOfDay(); };
    connect(&tmrClock_, &QTimer::timeout, this, [this] { game.tmrClock(); });
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
    on(menus_.mnuInvert, [this] { game.mnuInvert(); });
    on(menus_.mnuClean, [this] { game.mnuClean(); });
    on(menus_.mnuColors, [this] { frmBoardColors::showAt(pos()); });
    on(menus_.mnuBookup, [this] { setPieceSet(0); });
    on(menus_.mnuQuorl, [this] { setPieceSet(1); });
    on(menus_.mnuGNU, [this] { setPieceSet(2); });
    on(menus_.mnuSeek, [this] { openMatch(false); });
    on(menus_.mnuMatch, [this] { openMatch(true); });
    on(menus_.mnuDraw, [this] { sendConfirmed("Draw"); });
    on(menus_.mnuRes, [this] { sendConfirmed("Resign"); });
    on(menus_.mnuAbout,
       [this] { boxes.message(this, "Brightrank", "Brightrank " + bytesOf(QApplication::applicationVersion())); });
    on(menus_.mnuExit, [this] { close(); });
    on(menus_.mnuExit1, [this] { close(); });
}

void frmChessBoard::connectTyping() {
    parts_.txtSend->keyDown = [this](int code, bool shift) { return answerTypingKey(code, shift); };
    connect(parts_.cmdUn, &QPushButton::clicked, this, [this] { game.cmdUn(); });
    connect(parts_.cmdDraw, &QPushButton::clicked, this, [this] { sendConfirmed("Draw"); });
    connect(parts_.cmdRes, &QPushButton::clicked, this, [this] { sendConfirmed("Resign"); });
    for (QToolButton* button : parts_.cmdTell) {
        connect(button, &QToolButton::clicked, this, [this, button] {
            const std::string text = bytesOf(button->toolTip());
            parts_.txtSend->setFocus();
            if (!text.empty()) sendTyped(text);
        });
    }
    for (QToolButton* button : parts_.cmdScroll) button->setEnabled(false);
}

bool frmChessBoard::answerTypingKey(int code, bool shift) {
    if (code == KeyEnter) return zTxtSend(code);
    if (code == KeyF9 && shift) {
        Q_EMIT chatWanted();
        parts_.txtSend->end(false);
        return true;
    }
    const TypingAnswer answer = typingAnswer(code, *roads_.history, parts_.txtSend->line(), game.gameIndex);
    if (answer.text) parts_.txtSend->setLine(*answer.text);
    if (answer.taken) parts_.txtSend->end(false);
    return answer.taken;
}
