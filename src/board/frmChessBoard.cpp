// A board window: its life from load to closing.
#include "board/frmChessBoard.h"

#include "board/CloseRules.h"
#include "common/Twips.h"
#include "common/modChess.h"
#include "platform/ConsoleFont.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"
#include "platform/TipText.h"
#include "settings/WindowSettings.h"
#include "view/frmBoardColors.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QGuiApplication>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>

namespace {

constexpr int DesignSquare = 54; // pixels
constexpr int Margin = 6;        // pixels round the parts, part of the window's frame

} // namespace

frmChessBoard::frmChessBoard(const BoardRoads& roads) : roads_(roads) {
    setObjectName(QStringLiteral("frmChessBoard"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Brightrank - Board"));
    menus_.build(*menuBar());
    zObjectSetup();
    parts_.picChess->movesInWords = [this] { return movesInWords(); };
    connectTimers();
    input_.build(this);
    connectMenus();
    connectTyping();
    connectWalking();
    openWindows.add({.className = "frmChessBoard",
                     .window = this,
                     .unload = [this] { unload(); },
                     .content = &game,
                     .takeTells = [this] { takeTells(); },
                     .takeLook = [this] { takeColors(); },
                     .zBoardSetup = [this] { game.zBoardSetup(false); }});
}

frmChessBoard::~frmChessBoard() { openWindows.remove(this); }

// The status bar and the parts, once; where the parts stand is paintBoard's.
void frmChessBoard::zObjectSetup() {
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setFixedHeight(BoardParts::StatusHeight);
    statusBar()->setContentsMargins(Margin - 2, 0, Margin, 0);
    setCentralWidget(new QWidget(this));
    inner_ = new QWidget(centralWidget());
    parts_.build(inner_, statusBar(), game);
}

void frmChessBoard::load() {
    game.beginLoad();
    resizeWatch_.Muted = true;
    menus_.mnuSelfCheck->setVisible(QApplication::arguments().mid(1).join(u' ').contains(QStringLiteral("est")));
    menus_.checkPieces(modChess.ChessSet);
    setMinimumSize(sizeFor(BoardDesign::SmallestSquare));
    resize(sizeFor(DesignSquare));
    loadPlace();
    takeColors();
    parts_.panels[0]->setText(shownStart(modChess.MyHandle));
    takeTells();
    frmBoardColors::loaded().zSave();
    show();
    game.finishLoad();
    openWindows.unload("frmBoardColors");
    parts_.txtSend->setFocus();
    resizeWatch_.Muted = false;
    tmrResize_.start(); // its first firing fits nothing; it should not be the one of the user's first resize
}

// A board that has no place of its own does not cover the console if there is room for both on its screen.
WindowPlace frmChessBoard::startPlace() const {
    const WindowPlace atCorner = designedPlace(twipsOf(size()));
    const QRect console = roads_.consoleFrame();
    if (console.isEmpty()) return atCorner;
    const QScreen* at = QGuiApplication::screenAt(console.center());
    const QRect area = (at ? at : screen())->geometry();
    return beside(twipsOf(console), twipsOf(size()), twipsOf(area)).value_or(atCorner);
}

void frmChessBoard::loadPlace() {
    const WindowPlace designed = startPlace();
    WindowPlace read = designed;
    readBoard(roads_.store, read);
    std::vector<float> lefts;
    for (const OpenWindow& open : openWindows.windows) {
        if (open.className != "frmChessBoard") continue;
        lefts.push_back(static_cast<const frmChessBoard*>(open.window)->placer_.place().Left);
    }
    cascade(read, lefts);
    placer_.moveTo(placedBoard(read, designed, screensFor(read)));
}

void frmChessBoard::takeTells() {
    for (std::size_t index = 0; index < parts_.cmdTell.size(); ++index) {
        const QString text = shownText(roads_.tellText(static_cast<int>(index)));
        parts_.cmdTell[index]->setToolTip(tipText(text));
        parts_.cmdTell[index]->setEnabled(!text.isEmpty());
    }
}

void frmChessBoard::takeColors() {
    parts_.txtSend->setColors(modChess.ColorBar, modChess.ColorType);
    parts_.txtSend->setFont(consoleFont());
}

// What the window has round the inner surface: the menus and the margins. The status bar belongs to the inner size.
QSize frmChessBoard::frame() const { return {2 * Margin, menuBar()->sizeHint().height() + Margin}; }

// The window round a board whose squares have sides of so many pixels.
QSize frmChessBoard::sizeFor(int square) const {
    return frame() + QSize(8 * square + BoardDesign::MinWidth, 8 * square + BoardDesign::MinHeight);
}

// Fits the board to the window, paints it whole, and gives the window its size: the height decides.
void frmChessBoard::paintBoard() {
    BoardGeometry geometry = parts_.picChess->geometry();
    geometry.Flipped = game.Flipped;
    geometry.zBoardSetup(
        {height() * TwipsPerPixelY, frame().width() * TwipsPerPixelX, frame().height() * TwipsPerPixelY},
        modChess.ChessSet);
    fitWindow(geometry);
    parts_.picChess->zBoardSetup(geometry);
    input_.moves.boardPainted();
    parts_.grdMoves->zFindBottomRow();
}

void frmChessBoard::fitWindow(const BoardGeometry& geometry) {
    const QSize fitted(geometry.FormWidth / TwipsPerPixelX, geometry.FormHeight / TwipsPerPixelY);
    const bool free = !isMaximized() && !isFullScreen();
    if (free && fitted != size()) resize(fitted);
    const QSize inner = (free ? fitted : size()) - frame();
    inner_->setGeometry(Margin, Margin, inner.width(), inner.height() - BoardParts::StatusHeight);
    parts_.place(inner, geometry.SquarePixels, game.Flipped);
    if (unShown_) zSolveConflict(parts_.cmdUn);
}

// The program closes the window. With its own question still up it is closed already, and the question goes: whoever
// waits for its answer ends the closing.
void frmChessBoard::unload() {
    askedByUser_ = false;
    if (!asking_) {
        close();
        return;
    }
    finishClosing();
    for (QDialog* box : findChildren<QDialog*>()) box->reject();
}

void frmChessBoard::finishClosing() {
    closed_ = true;
    input_.stop();
    openFile_.reset();
    zSaveReg(roads_.store, BoardSection, placer_.place());
    openWindows.remove(this);
}

// A resize by hand is answered once, a second after its last step.
void frmChessBoard::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (resizeWatch_.formResized(isMinimized())) tmrResize_.start();
}

void frmChessBoard::closeEvent(QCloseEvent* event) {
    if (closed_) return; // asked again before it is deleted
    placer_.unminimise();
    const QPointer<frmChessBoard> self(this);
    const bool may = mayClose();
    if (!self || closed_) return; // taken along by the program while the box was up
    asking_ = false;
    if (!may) {
        askedByUser_ = true;
        event->ignore();
        input_.goOn();
        return;
    }
    finishClosing();
    event->accept();
}

bool frmChessBoard::mayClose() {
    // A board that refused while the program closes, as its chooser was open, is asked once more by its end.
    const bool byProgram = !askedByUser_ || modChess.AppClosing;
    const CloseFacts facts{openWindows.count("frmChessBoard"), byProgram, openWindows.count("frmPGN") > 0,
                           modChess.AppClosing};
    const CloseDecision decision = queryUnload(game, facts);
    if (decision.enableBoardMenu) roads_.enableBoardMenu();
    if (decision.closeChooser) openWindows.unload("frmPGN");
    if (decision.refused) return false;
    if (decision.unloadPanels) {
        for (const char* panel : {"frmBoardColors", "frmMatch", "frmPGN", "frmExamine"}) openWindows.unload(panel);
    }
    if (!decision.send.empty()) roads_.zSendMsg(decision.send);
    asking_ = decision.ask;
    if (asking_) input_.hold();
    return !decision.ask || boxes.okCancel(this, std::string(CloseBoxTitle), std::string(CloseBoxText));
}
