// How a board window carries out what its game says: texts, first layout, coming to the front.
#include "board/BoardWindowRig.h"

#include "platform/Clock.h"

#include <QTimer>

namespace {

using BoardWindow = BoardWindowRig;

} // namespace

TEST_F(BoardWindow, TheUsersHandleAndTheLastMoveAreShownCharacterByCharacter) {
    modChess.MyHandle = "Ren\xE9";
    frmChessBoard& board = open();
    EXPECT_EQ(part<QLabel>(board, "stbGame(1)").text(), QStringLiteral("Ren\u00E9"));
    position(board.game, 1, "e4\xA7");
    EXPECT_EQ(part<QLabel>(board, "lblMove").text(), QStringLiteral("1. e4\u00A7"));
}

TEST_F(BoardWindow, TheCommandLineTakesTheConsolesColoursAndFont) {
    modChess.ColorBar = 0x112233;
    modChess.ColorType = 0x445566;
    modChess.MainFont = "Some Typewriter";
    const auto& txtSend = part<TypingLine>(open(), "txtSend");
    EXPECT_EQ(txtSend.palette().color(QPalette::Base), QColor(0x33, 0x22, 0x11));
    EXPECT_EQ(txtSend.palette().color(QPalette::Text), QColor(0x66, 0x55, 0x44));
    EXPECT_EQ(txtSend.font().family(), QStringLiteral("Some Typewriter"));
}

TEST_F(BoardWindow, TheRowsOfTheGridAreCountedByTheEndOfTheLoad) {
    frmChessBoard& board = open();
    const int counted = board.game.grdMoves.VisibleRows;
    EXPECT_GT(counted, 5);
    board.game.zBoardSetup(false);
    EXPECT_EQ(counted, board.game.grdMoves.VisibleRows) << "counted alike before the window was shown and after";
}

TEST_F(BoardWindow, TheRowCountedLastIsTheLastButOneInView) {
    frmChessBoard& board = open();
    const auto& grid = part<MoveGrid>(board, "grdMoves");
    const int whole = grid.viewport()->height() / grid.rowHeight(0);
    EXPECT_EQ(board.game.grdMoves.VisibleRows, whole - 1);
}

TEST_F(BoardWindow, AMinimisedBoardPopsUpForItsNewGame) {
    frmChessBoard& board = open();
    board.showMinimized();
    ASSERT_TRUE(board.isMinimized());
    board.game.surface.bringToFront();
    EXPECT_FALSE(board.isMinimized());
    EXPECT_TRUE(board.isVisible());
}

TEST_F(BoardWindow, ANewGamesBoardComesToTheFront) {
    frmChessBoard& board = open();
    frmChessBoard& other = open();
    other.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return other.isActiveWindow(); }));
    board.game.surface.bringToFront();
    EXPECT_TRUE(waitUntil([&] { return board.isActiveWindow(); }));
}

TEST_F(BoardWindow, TheKeptPictureHoldsAPieceThatHasLanded) {
    frmChessBoard& board = open();
    auto& picChess = part<BoardView>(board, "picChess");
    picChess.zYankPiece(12);
    const QImage before = picChess.picture().copy();
    const float middle = static_cast<float>(picChess.geometry().SquarePixels) * 4.5F;
    board.game.surface.zMovePiece(middle, middle, 255);
    EXPECT_EQ(picChess.picture(), before);
    board.game.surface.keepPicture();
    EXPECT_NE(picChess.picture(), before);
}

TEST_F(BoardWindow, TheClockLooksAtTheTimeAtOnceAndThenBehindEachChangeOfTheSecond) {
    int looks = 0;
    wallClock.secondsOfDay = [&looks] { return 1000.75 + ++looks; };
    frmChessBoard& board = open();
    position(board.game, 0);
    auto& tmrClock = part<QTimer>(board, "tmrClock");
    EXPECT_TRUE(tmrClock.isActive());
    EXPECT_EQ(tmrClock.interval(), 100);
    looks = 0;
    EXPECT_TRUE(waitUntil([&] { return looks > 0; }));
    EXPECT_EQ(tmrClock.interval(), 252);
    EXPECT_TRUE(tmrClock.isActive());
    board.game.surface.stopClock();
    EXPECT_FALSE(tmrClock.isActive());
    wallClock = Clock();
}

TEST_F(BoardWindow, NothingElseRunsWhileAPositionIsShown) {
    modChess.PreMoveOK = 1;
    frmChessBoard& board = open();
    bool ran = false;
    QTimer::singleShot(0, &board, [&] { ran = true; });
    receive(board.game, {.flip = 1}); // turns the board
    board.game.zExitMove();
    board.game.tmrNoPlay();
    position(board.game, -1, "e4", false);
    EXPECT_FALSE(ran);
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

TEST_F(BoardWindow, ZBuildMaskDoesNothing) {
    frmChessBoard& board = open();
    const QImage before = part<BoardView>(board, "picChess").picture();
    const int images = imlPieces.count(0);
    board.zBuildMask(0, 1);
    EXPECT_EQ(part<BoardView>(board, "picChess").picture(), before);
    EXPECT_EQ(imlPieces.count(0), images);
}
