// Moves by mouse in a real board window: what is sent, and what is on the screen meanwhile.
#include "board/MouseWindowRig.h"

#include <QTimer>

namespace {

using Sent = std::vector<std::string>;

class BoardInputTest : public MouseWindowRig {
protected:
    // The board's pixels now are those of a board that is painted anew.
    static void expectFreshlyPainted(frmChessBoard& board) {
        const QImage shown = screenOf(board);
        board.game.zBoardSetup(false);
        EXPECT_EQ(shown, screenOf(board));
    }
};

} // namespace

// Two styles

TEST_F(BoardInputTest, ADragPlaysTheMove) {
    frmChessBoard& board = openMine();
    drag(board, "e2", "e4");
    EXPECT_EQ(sent, Sent{"e2-e4"});
    EXPECT_EQ(board.game.Board[28], 6);
}

TEST_F(BoardInputTest, TwoClicksPlayTheMoveInClickStyle) {
    modChess.DragMode = 0;
    frmChessBoard& board = openMine();
    press(board, "e2");
    release(board, "e2");
    carry(board, "e2", "e4", Qt::NoButton);
    EXPECT_TRUE(sent.empty());
    press(board, "e4");
    release(board, "e4");
    EXPECT_EQ(sent, Sent{"e2-e4"});
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, ADropBesideTheWindowPutsThePieceBack) {
    frmChessBoard& board = openMine();
    int beeps = 0;
    view(board).beep = [&] { ++beeps; };
    press(board, "e2");
    move(board, QPoint(-200, 5000));
    send(board, QEvent::MouseButtonRelease, QPoint(-200, 5000), Qt::LeftButton, Qt::NoButton);
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(beeps, 1);
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, AfterAMoveTheCommandLineHasTheFocus) {
    frmChessBoard& board = openMine();
    part(board, "grdMoves").setFocus();
    drag(board, "e2", "e4");
    EXPECT_EQ(board.focusWidget(), &part(board, "txtSend"));
}

// What is on the screen

TEST_F(BoardInputTest, ADragLeavesNoTrail) {
    frmChessBoard& board = openMine();
    press(board, "b1");
    carry(board, "b1", "h8");
    carry(board, "h8", "a4");
    carry(board, "a4", "c3");
    release(board, "c3");
    EXPECT_EQ(sent, Sent{"b1-c3"});
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, ARefusedDragLeavesNoTrail) {
    frmChessBoard& board = openMine();
    drag(board, "b1", "g6");
    EXPECT_TRUE(sent.empty());
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, ThePieceIsBlendedUnderThePointerAndGoneFromItsSquare) {
    frmChessBoard& board = openMine();
    const QPoint middle = at(board, "e2");
    const QColor solid = pixel(screenOf(board), middle);
    press(board, "e2");
    carry(board, "e2", "e4");
    const QImage shown = screenOf(board);
    const QColor ground = colorOf(squareColor(28));
    const QColor blended = pixel(shown, at(board, "e4"));
    EXPECT_NEAR(blended.red(), (solid.red() * 128 + ground.red() * 127) / 255, 2);
    EXPECT_NEAR(blended.green(), (solid.green() * 128 + ground.green() * 127) / 255, 2);
    EXPECT_NEAR(blended.blue(), (solid.blue() * 128 + ground.blue() * 127) / 255, 2);
    EXPECT_EQ(pixel(shown, middle), colorOf(squareColor(12)));
    EXPECT_EQ(frameOf(board, "e2"), colorOf(modChess.ColorMove));
}

TEST_F(BoardInputTest, APieceInHandSurvivesAnArrivingPosition) {
    frmChessBoard& board = openWaiting();
    press(board, "g1");
    carry(board, "g1", "f4");
    const QPoint pointer = at(board, "f4");
    const QRect around(pointer - QPoint(20, 20), QSize(40, 40));
    const QImage before = cut(screenOf(board), around);
    receiveAnswer(board);
    EXPECT_EQ(cut(screenOf(board), around), before);
    EXPECT_EQ(frameOf(board, "e5"), colorOf(modChess.ColorMove)) << "the answer is on the board";
    carry(board, "f4", "f3");
    release(board, "f3");
    EXPECT_EQ(sent, Sent{"g1-f3"});
    receive(board, {BlackE5, "W", 12, 1, 300, 300, 2, "none", "e5", 0}); // refused: all goes back, no marks
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, ABoardTurnedInTheMiddleOfADragKeepsThePieceOnThePointer) {
    frmChessBoard& board = openMine();
    press(board, "e2");
    carry(board, "e2", "e4");
    const QPoint pointer = at(board, "e4"); // d5 once it is turned
    const QImage before = screenOf(board);
    entry(board, "mnuInvert").trigger();
    const QImage turned = screenOf(board);
    EXPECT_EQ(at(board, "d5"), pointer);
    const QRect around(pointer - QPoint(20, 20), QSize(40, 40));
    EXPECT_EQ(cut(turned, around), cut(before, around));
    EXPECT_EQ(pixel(turned, at(board, "e2")), colorOf(squareColor(12))) << "and not on its square";
    carry(board, "d5", "e4");
    release(board, "e4");
    EXPECT_EQ(sent, Sent{"e2-e4"});
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, PreMovesShowInTheirColourUntilTheyArePlayed) {
    frmChessBoard& board = openWaiting();
    drag(board, "g1", "f3");
    EXPECT_EQ(frameOf(board, "g1"), colorOf(modChess.ColorPreMove));
    EXPECT_EQ(frameOf(board, "f3"), colorOf(modChess.ColorPreMove));
    drag(board, "d2", "d4");
    EXPECT_EQ(frameOf(board, "g1"), colorOf(squareColor(6)));
    EXPECT_EQ(frameOf(board, "f3"), colorOf(squareColor(21)));
    EXPECT_EQ(frameOf(board, "d4"), colorOf(modChess.ColorPreMove));
    move(board, at(board, "h5"), Qt::NoButton);
    receiveAnswer(board);
    EXPECT_EQ(sent, Sent{"d2-d4"});
    EXPECT_EQ(frameOf(board, "d4"), colorOf(squareColor(27)));
}

TEST_F(BoardInputTest, APreMoveTakenBackLeavesNoColour) {
    frmChessBoard& board = openWaiting();
    drag(board, "g1", "f3");
    drag(board, "d2", "d2");
    for (const char* square : {"g1", "f3", "d2"}) {
        EXPECT_EQ(frameOf(board, square), colorOf(squareColor(zSquareNumber(square)))) << square;
    }
    EXPECT_FALSE(board.game.PreMoveSet);
}

TEST_F(BoardInputTest, APieceInHandGoesBackWhenTheQueuedPreMoveWasPlayedMeanwhile) {
    frmChessBoard& board = openWaiting();
    drag(board, "g1", "f3");
    press(board, "b1");
    carry(board, "b1", "c3");
    receiveAnswer(board);
    release(board, "c3");
    EXPECT_TRUE(sent.empty()) << "MoveMode of the lift has queued it again";
    EXPECT_TRUE(board.game.PreMoveSet);
    for (const char* square : {"g1", "f3"}) EXPECT_EQ(frameOf(board, square), colorOf(modChess.ColorPreMove)) << square;
    const QImage shown = screenOf(board);
    board.game.zBoardSetup(false);
    const QImage fresh = screenOf(board);
    const QPoint half(view(board).geometry().SquarePixels / 2 - 1, view(board).geometry().SquarePixels / 2 - 1);
    for (const char* square : {"b1", "c3"}) {
        const QRect area(at(board, square) - half, at(board, square) + half);
        EXPECT_EQ(cut(shown, area), cut(fresh, area)) << square;
    }
}

TEST_F(BoardInputTest, ForFourSecondsAfterAGameOpenedNothingIsLifted) {
    frmChessBoard& board = openMine();
    auto& timer = part<QTimer>(board, "tmrNoPlay");
    EXPECT_FALSE(timer.isActive());
    board.game.zExitMove();
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 4000);
    drag(board, "e2", "e4");
    EXPECT_TRUE(sent.empty());
    timer.start(1); // sooner, so that the test need not wait
    EXPECT_TRUE(waitUntil([&] { return !timer.isActive(); }));
    drag(board, "e2", "e4");
    EXPECT_EQ(sent, Sent{"e2-e4"});
}

TEST_F(BoardInputTest, ThePointerTellsWhatMayBeLifted) {
    frmChessBoard& board = openMine();
    const auto hover = [&](const char* square) {
        move(board, at(board, square), Qt::NoButton);
        return view(board).cursor();
    };
    const QCursor mine = hover("e2");
    EXPECT_EQ(mine.shape(), Qt::BitmapCursor);
    EXPECT_NE(hover("e7").shape(), Qt::BitmapCursor);
    EXPECT_NE(hover("e4").shape(), Qt::BitmapCursor);
    modChess.PreMoveOK = 1;
    receive(board, {AfterE4, "B", 12, -1, 300, 300, 1, "P/e2-e4", "e4", 0});
    const QCursor waiting = hover("d2");
    EXPECT_EQ(waiting.shape(), Qt::BitmapCursor);
    EXPECT_NE(waiting.pixmap().toImage(), mine.pixmap().toImage());
    drag(board, "d2", "d4");
    EXPECT_NE(view(board).cursor().shape(), Qt::BitmapCursor) << "the default after the move";
}

// The delay

TEST_F(BoardInputTest, TheTimerHoldsTheMoveForItsDelay) {
    frmChessBoard& board = openMine();
    const auto& timer = part<QTimer>(board, "tmrSlip");
    EXPECT_EQ(timer.interval(), 165);
    modChess.MouseSlip = 2;
    drag(board, "e2", "e4");
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 220);
    EXPECT_TRUE(sent.empty());
    EXPECT_TRUE(waitUntil([this] { return !sent.empty(); }));
    EXPECT_EQ(sent, Sent{"e2-e4"});
    EXPECT_FALSE(timer.isActive());
    expectFreshlyPainted(board);
}

TEST_F(BoardInputTest, TheRightButtonDefeatsAnEndlessDelay) {
    frmChessBoard& board = openMine();
    modChess.MouseSlip = 11;
    drag(board, "e2", "e4");
    press(board, "e4");
    release(board, "e4");
    EXPECT_EQ(part<QTimer>(board, "tmrSlip").interval(), 60000);
    EXPECT_TRUE(sent.empty());
    press(board, "a1", Qt::RightButton);
    release(board, "a1", Qt::RightButton);
    EXPECT_EQ(sent, Sent{"e2-e4"});
    EXPECT_FALSE(part<QTimer>(board, "tmrSlip").isActive());
}

TEST_F(BoardInputTest, AWindowClosedInTheDelaySendsNothingMore) {
    frmChessBoard& board = openMine();
    modChess.MouseSlip = 1;
    drag(board, "e2", "e4");
    modChess.AppClosing = true;
    board.close();
    EXPECT_FALSE(part<QTimer>(board, "tmrSlip").isActive());
    runFor(250);
    EXPECT_TRUE(sent.empty());
}

TEST_F(BoardInputTest, AWindowMayCloseWithAPieceOnThePointer) {
    frmChessBoard& board = openMine();
    press(board, "e2");
    carry(board, "e2", "e4");
    modChess.AppClosing = true;
    board.close();
    release(board, "e4");
    EXPECT_TRUE(waitUntil([this] { return made.front().isNull(); }));
    EXPECT_TRUE(sent.empty());
}
