// What a board window shows: clocks, holdings, last move, grid, buttons, menus, and the fit of its parts.
#include "board/BoardWindowRig.h"

#include "board/BoardClock.h"

#include <QScrollBar>

namespace {

class BoardFace : public BoardWindowRig {
protected:
    static int square(frmChessBoard& board) { return part<BoardView>(board, "picChess").geometry().SquarePixels; }
    static int frameWidth(frmChessBoard& board) { return board.width() - inner(board).width(); }
};

} // namespace

// Clocks

TEST_F(BoardFace, APositionSetsBothClocksWithOneBlankInFront) {
    frmChessBoard& board = open();
    position(board.game, 1);
    EXPECT_EQ(clock(board, 0), " 5:00");
    EXPECT_EQ(clock(board, 1), " 12:34");
}

TEST_F(BoardFace, TheSideToMoveHasWhiteGround) {
    frmChessBoard& board = open();
    position(board.game, 1);
    EXPECT_EQ(static_cast<ClockFace&>(part(board, "lblTime(0)")).background(), ClockColor::Waiting);
    EXPECT_EQ(static_cast<ClockFace&>(part(board, "lblTime(1)")).background(), 0xFFFFFFU);
}

TEST_F(BoardFace, TheRunningClockFallsBySecondsAndTheOtherStands) {
    frmChessBoard& board = open();
    position(board.game, 1);
    EXPECT_TRUE(waitUntil([&] { return clock(board, 1) == " 12:33"; }, 3000));
    EXPECT_EQ(clock(board, 0), " 5:00");
}

TEST_F(BoardFace, AnExaminedGameNeverCounts) {
    frmChessBoard& board = open();
    position(board.game, 2);
    runFor(1200);
    EXPECT_EQ(clock(board, 1), " 12:34");
}

// Holdings, last move, grid

TEST_F(BoardFace, HoldingsShowOnlyWithABughouseLine) {
    frmChessBoard& board = open();
    EXPECT_FALSE(part(board, "lblBug(0)").isVisible());
    position(board.game, 1);
    board.game.zSetBughouse("<b1> game 12 white [PPN] black [Q]\r\n");
    EXPECT_TRUE(part(board, "lblBug(0)").isVisible());
    EXPECT_TRUE(part(board, "lblBug(1)").isVisible());
    EXPECT_EQ(label(board, "lblBug(0)"), "[PPN]");
    EXPECT_EQ(label(board, "lblBug(1)"), "[Q]");
}

TEST_F(BoardFace, TheFirstPositionOfAGameHidesBothHoldings) {
    frmChessBoard& board = open();
    board.game.zSetBughouse("<b1> game 12 white [PPN] black [Q]\r\n");
    position(board.game, 1, "none");
    EXPECT_FALSE(part(board, "lblBug(0)").isVisible());
    EXPECT_FALSE(part(board, "lblBug(1)").isVisible());
}

TEST_F(BoardFace, HoldingsChangePlacesWithAFlip) {
    frmChessBoard& board = open();
    const int white = part(board, "lblBug(0)").y();
    const int black = part(board, "lblBug(1)").y();
    EXPECT_LT(white, part(board, "picChess").y());
    EXPECT_GT(black, part(board, "picChess").y());
    EXPECT_LT(white, black);
    entry(board, "mnuInvert").trigger();
    EXPECT_EQ(part(board, "lblBug(0)").y(), black);
    EXPECT_EQ(part(board, "lblBug(1)").y(), white);
    EXPECT_EQ(part(board, "lblBug(0)").x(), part(board, "picChess").x());
}

TEST_F(BoardFace, AMoveIsNamedAndEntersTheGrid) {
    frmChessBoard& board = open();
    position(board.game, 1, "none");
    EXPECT_EQ(label(board, "lblMove"), "");
    position(board.game, 1, "e4", false);
    EXPECT_EQ(label(board, "lblMove"), "1. e4");
    EXPECT_EQ(part<MoveGrid>(board, "grdMoves").model()->index(0, 1).data().toString(), QStringLiteral("e4"));
}

TEST_F(BoardFace, TheGridFollowsTheCurrentMove) {
    frmChessBoard& board = open();
    auto& grid = part<MoveGrid>(board, "grdMoves");
    board.game.MoveRow = 120;
    board.game.grdMoves.zSetTop(120);
    EXPECT_GT(grid.verticalScrollBar()->value(), 50);
    const int row = grid.rowAt(grid.viewport()->height() - 2);
    EXPECT_GE(row, 118);
}

TEST_F(BoardFace, TheGridsHeadingSaysWhiteAndBlack) {
    const auto* model = part<MoveGrid>(open(), "grdMoves").model();
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("White"));
    EXPECT_EQ(model->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Black"));
    EXPECT_EQ(model->rowCount(), 200);
}

TEST_F(BoardFace, TheMoveJustMadeIsMarkedOnItsSquares) {
    modChess.ColorMove = 0x0000FF;
    frmChessBoard& board = open();
    const auto& picChess = part<BoardView>(board, "picChess");
    const auto cornerIsRed = [&](int square) {
        float x = 0;
        float y = 0;
        picChess.geometry().zGetXY(static_cast<std::int16_t>(square), x, y);
        const QPointF corner = QPointF(x, y) * picChess.devicePixelRatioF();
        return picChess.picture().pixelColor(corner.toPoint()) == QColor(255, 0, 0);
    };
    position(board.game, 1);
    for (int square = 0; square < 64; ++square) EXPECT_EQ(cornerIsRed(square), square == 12 || square == 28) << square;
}

// Leaving a game

TEST_F(BoardFace, UnobserveShowsForAnObservedGameAndLeavesIt) {
    frmChessBoard& board = open();
    EXPECT_FALSE(part(board, "cmdUn").isVisible());
    position(board.game, 0);
    ASSERT_TRUE(part(board, "cmdUn").isVisible());
    QTest::mouseClick(&part(board, "cmdUn"), Qt::LeftButton);
    EXPECT_EQ(sent, (std::vector<std::string>{"unob"}));
    board.game.zEndParms();
    EXPECT_FALSE(part(board, "cmdUn").isVisible());
}

TEST_F(BoardFace, UnobserveStaysHiddenWhereItWouldStandInTheCommandLine) {
    savedPlace("150", "150", "100", "100");
    frmChessBoard& board = open();
    position(board.game, 0);
    const QWidget& button = part(board, "cmdUn");
    EXPECT_GE(button.x() + button.width() + 4, part(board, "txtSend").x());
    EXPECT_FALSE(button.isVisible());
}

// Menus

TEST_F(BoardFace, PieceSetsCheckTheirOwnEntryAlone) {
    frmChessBoard& board = open();
    const std::vector<std::string> names{"mnuBookup", "mnuQuorl", "mnuGNU"};
    for (std::size_t set = 0; set < names.size(); ++set) {
        for (int again = 0; again < 2; ++again) {
            entry(board, names[set].c_str()).trigger();
            EXPECT_EQ(modChess.ChessSet, static_cast<std::int16_t>(set));
            for (const std::string& name : names) {
                EXPECT_EQ(entry(board, name.c_str()).isChecked(), name == names[set]) << name;
            }
        }
    }
    EXPECT_GE(part<BoardView>(board, "picChess").geometry().PieceList, 16);
}

TEST_F(BoardFace, ANewBoardChecksThePieceSetOfTheSettings) {
    modChess.ChessSet = 1;
    frmChessBoard& board = open();
    EXPECT_TRUE(entry(board, "mnuQuorl").isChecked());
    EXPECT_FALSE(entry(board, "mnuBookup").isChecked());
}

TEST_F(BoardFace, FlipTurnsTheBoardAndBack) {
    frmChessBoard& board = open();
    entry(board, "mnuInvert").trigger();
    EXPECT_TRUE(board.game.Flipped);
    EXPECT_EQ(part<BoardView>(board, "picChess").geometry().DisplaySquare[0], 63);
    entry(board, "mnuInvert").trigger();
    EXPECT_EQ(part<BoardView>(board, "picChess").geometry().DisplaySquare[0], 0);
}

TEST_F(BoardFace, CleanRepaintsWithoutChangingThePosition) {
    frmChessBoard& board = open();
    position(board.game, 1);
    const auto before = board.game.Board;
    const QSize size = board.size();
    entry(board, "mnuClean").trigger();
    EXPECT_EQ(board.game.Board, before);
    EXPECT_EQ(board.size(), size);
}

// The fit to the window

TEST_F(BoardFace, TheFormIsEightSquaresAndTheDesignFigures) {
    frmChessBoard& board = open();
    EXPECT_EQ(square(board), 54);
    EXPECT_EQ(inner(board).width(), 8 * 54 + 186);
    EXPECT_EQ(inner(board).height() + board.statusBar()->height(), 8 * 54 + 68);
    EXPECT_EQ(part(board, "picChess").size(), QSize(8 * 54 + 4, 8 * 54 + 4));
    EXPECT_EQ(part(board, "grdMoves").x(), inner(board).width() - 162);
    EXPECT_EQ(part(board, "grdMoves").height(), 8 * 54 + 68 - 109);
    EXPECT_EQ(part(board, "txtSend").height(), 21);
}

TEST_F(BoardFace, ButtonsHoldTheirCaptionsWithALargeFontToo) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPixelSize(24);
    QApplication::setFont(large);
    frmChessBoard& board = open();
    for (const char* name : {"cmdDraw", "cmdRes", "cmdUn", "cmdTell(0)"}) {
        const auto& button = part<QAbstractButton>(board, name);
        EXPECT_LE(button.fontMetrics().horizontalAdvance(button.text()) + 2, button.width()) << name;
        EXPECT_LE(button.fontMetrics().ascent(), button.height()) << name;
    }
    QApplication::setFont(before);
}

TEST_F(BoardFace, NoTwoPartsOverlapAtAnySize) {
    frmChessBoard& board = open();
    position(board.game, 0);
    board.game.zSetBughouse("<b1> game 12 white [PPN] black [Q]\r\n");
    for (int height : {100, 300, 420, 555, 700, 900}) {
        board.resize(board.width(), height);
        board.game.zBoardSetup(false);
        const auto parts = inner(board).findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        for (const QWidget* one : parts) {
            if (!one->isVisible()) continue;
            EXPECT_TRUE(inner(board).rect().contains(one->geometry()))
                << height << " " << one->objectName().toStdString();
            for (const QWidget* other : parts) {
                if (one == other || !other->isVisible()) continue;
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << height << " " << one->objectName().toStdString() << " " << other->objectName().toStdString();
            }
        }
    }
}

TEST_F(BoardFace, ASquareIsNeverBelow24Pixels) {
    savedPlace("150", "150", "1500", "1500");
    frmChessBoard& board = open();
    EXPECT_EQ(square(board), 24);
    EXPECT_EQ(inner(board).width(), 8 * 24 + 186);
    board.resize(10, 10);
    board.game.zBoardSetup(false);
    EXPECT_EQ(square(board), 24);
}

TEST_F(BoardFace, AMaximisedBoardKeepsTheScreenAndItsPartsStayInside) {
    frmChessBoard& board = open();
    board.showMaximized();
    board.game.zBoardSetup(false);
    EXPECT_TRUE(board.isMaximized());
    EXPECT_EQ(part(board, "grdMoves").geometry().right() + 1, inner(board).width());
    EXPECT_LE(part(board, "picChess").geometry().bottom(), inner(board).height());
}

TEST_F(BoardFace, TheFirstFiringOfTheResizeTimerOnlyCounts) {
    frmChessBoard& board = open();
    board.resize(board.width(), board.height() + 80);
    runFor(1150);
    EXPECT_EQ(square(board), 54);
    board.resize(board.width(), board.height() + 1);
    EXPECT_TRUE(waitUntil([&] { return square(board) == 64; }, 2500));
    EXPECT_EQ(board.width() - frameWidth(board), 8 * 64 + 186);
}

TEST_F(BoardFace, AResizeByHandIsAnsweredOnceItHasRestedForASecond) {
    frmChessBoard& board = open();
    board.resize(board.width(), board.height() + 1);
    runFor(1150);
    for (int step = 0; step < 6; ++step) {
        board.resize(board.width(), board.height() + 16);
        runFor(250);
        EXPECT_EQ(square(board), 54);
    }
    EXPECT_TRUE(waitUntil([&] { return square(board) > 64; }, 2500));
}

TEST_F(BoardFace, TheSizeThatFitsIsNoResizeToBeAnsweredOnceMore) {
    frmChessBoard& board = open();
    runFor(1200);
    int fitted = 0;
    const auto paint = board.game.surface.paintBoard;
    board.game.surface.paintBoard = [&] {
        ++fitted;
        paint();
    };
    board.resize(board.width(), board.height() + 3);
    ASSERT_TRUE(waitUntil([&] { return fitted == 1; }, 3000));
    runFor(1300);
    EXPECT_EQ(fitted, 1);
}

TEST_F(BoardFace, TheFirstResizeByHandFitsTheBoardASecondLater) {
    frmChessBoard& board = open();
    runFor(1200); // the first firing of tmrResize, which fits nothing
    board.resize(board.width(), board.height() - 8 * 10);
    runFor(500);
    EXPECT_EQ(square(board), 54) << "not with every step of a drag";
    EXPECT_TRUE(waitUntil([&] { return square(board) == 44; }, 3000));
}
