// Pieces moved by keyboard alone: the keys on the board do what the mouse does, in both styles.
#include "board/MouseWindowRig.h"
#include "platform/Spoken.h"
#include "view/PositionWords.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BoardByKeyboard : public MouseWindowRig {
protected:
    // On a board that has the focus.
    void key(frmChessBoard& board, Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(board.focusWidget(), code, modifiers);
    }
    static void goTo(frmChessBoard& board, const std::string& square) {
        view(board).setFocus();
        view(board).choose(zSquareNumber(square));
    }
    void playByKeys(frmChessBoard& board, const std::string& from, const std::string& to,
                    Qt::Key code = Qt::Key_Return) {
        goTo(board, from);
        key(board, code);
        view(board).choose(zSquareNumber(to));
        key(board, code);
    }
    static std::string focused(frmChessBoard& board) { return board.focusWidget()->objectName().toStdString(); }
    static void contextKey(frmChessBoard& board) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
        QCoreApplication::sendEvent(&view(board), &event);
    }
};

} // namespace

TEST_F(BoardByKeyboard, ArrowsGoFromSquareToSquareAsTheBoardStands) {
    frmChessBoard& board = openMine();
    goTo(board, "e2");
    key(board, Qt::Key_Up);
    key(board, Qt::Key_Right);
    EXPECT_EQ(view(board).chosenSquare(), zSquareNumber("f3"));
    entry(board, "mnuInvert").trigger();
    EXPECT_EQ(view(board).chosenSquare(), zSquareNumber("f3"));
    key(board, Qt::Key_Up);
    key(board, Qt::Key_Right);
    EXPECT_EQ(view(board).chosenSquare(), zSquareNumber("e2"));
    key(board, Qt::Key_Down);
    key(board, Qt::Key_Left);
    EXPECT_EQ(view(board).chosenSquare(), zSquareNumber("f3"));
}

TEST_F(BoardByKeyboard, EnterLiftsAndEnterLetsGoInEitherStyle) {
    for (const std::int16_t style : {std::int16_t{0}, std::int16_t{1}}) {
        modChess.DragMode = style;
        sent.clear();
        frmChessBoard& board = openMine();
        playByKeys(board, "e2", "e4");
        EXPECT_THAT(sent, ElementsAre("e2-e4")) << style;
        EXPECT_EQ(focused(board), "txtSend");
    }
}

TEST_F(BoardByKeyboard, SpaceAndTheKeypadsEnterDoTheSame) {
    for (const Qt::Key code : {Qt::Key_Space, Qt::Key_Enter}) {
        sent.clear();
        playByKeys(openMine(), "g1", "f3", code);
        EXPECT_THAT(sent, ElementsAre("g1-f3")) << code;
    }
}

TEST_F(BoardByKeyboard, AKeyThatIsHeldDownPressesOnce) {
    frmChessBoard& board = openMine();
    goTo(board, "e2");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(&view(board), &held);
    EXPECT_FALSE(board.game.hand.Dragging);
}

TEST_F(BoardByKeyboard, ThePieceGoesAlong) {
    frmChessBoard& board = openMine();
    goTo(board, "e2");
    key(board, Qt::Key_Return);
    EXPECT_TRUE(board.game.hand.Dragging);
    key(board, Qt::Key_Up);
    const int side = view(board).geometry().SquarePixels;
    EXPECT_EQ(static_cast<int>(board.game.hand.MouseX), 4 * side + side / 2);
    EXPECT_EQ(static_cast<int>(board.game.hand.MouseY), 5 * side + side / 2);
}

TEST_F(BoardByKeyboard, EscapePutsThePieceBackAndThenGoesToTheLine) {
    frmChessBoard& board = openMine();
    goTo(board, "e2");
    key(board, Qt::Key_Return);
    key(board, Qt::Key_Up);
    key(board, Qt::Key_Escape);
    EXPECT_FALSE(board.game.hand.Dragging);
    EXPECT_FALSE(view(board).isLifted(zSquareNumber("e2")));
    EXPECT_THAT(sent, IsEmpty());
    goTo(board, "e2");
    key(board, Qt::Key_Escape);
    EXPECT_EQ(focused(board), "txtSend");
}

TEST_F(BoardByKeyboard, F6GoesToTheBoardAndBackToTheLine) {
    frmChessBoard& board = openMine();
    board.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&board));
    for (const char* start : {"txtSend", "grdMoves", "cmdDraw"}) {
        part(board, start).setFocus();
        key(board, Qt::Key_F6);
        EXPECT_EQ(focused(board), "picChess") << start;
        key(board, Qt::Key_F6);
        EXPECT_EQ(focused(board), "txtSend");
    }
}

TEST_F(BoardByKeyboard, ACharacterGoesOnInTheLine) {
    frmChessBoard& board = openMine();
    board.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&board));
    view(board).setFocus();
    QTest::keyClick(board.focusWidget(), 'w');
    EXPECT_EQ(focused(board), "txtSend");
    EXPECT_EQ(part<TypingLine>(board, "txtSend").line(), "w");
}

TEST_F(BoardByKeyboard, AMoveThatTheRulesRefuseGoesBack) {
    frmChessBoard& board = openMine();
    playByKeys(board, "e2", "e5");
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(board.game.Board[zSquareNumber("e2")], 6);
}

TEST_F(BoardByKeyboard, APreMoveIsQueuedAndPlayed) {
    frmChessBoard& board = openWaiting();
    playByKeys(board, "g1", "f3");
    EXPECT_TRUE(board.game.PreMoveSet);
    EXPECT_TRUE(view(board).description().contains(QStringLiteral("pre-move g1 to f3")));
    receiveAnswer(board);
    EXPECT_THAT(sent, ElementsAre("g1-f3"));
}

TEST_F(BoardByKeyboard, APromotionAsksByItsMenu) {
    frmChessBoard& board = openMine({.ranks = PawnOnA7});
    answer = [](QMenu& menu) { return menu.actions().at(3); };
    playByKeys(board, "a7", "a8");
    ASSERT_TRUE(menusAnswered());
    EXPECT_THAT(sent, ElementsAre("a7-a8=N"));
}

TEST_F(BoardByKeyboard, TheMenuKeyOnAnEmptySquareOffersTheDrops) {
    frmChessBoard& board = openMine();
    board.game.zSetBughouse("<b1> game 12 white [PPN] black [Q]\r\n");
    goTo(board, "e5");
    answer = [](QMenu& menu) { return menu.actions().at(3); };
    contextKey(board);
    ASSERT_TRUE(menusAnswered());
    EXPECT_THAT(popups, ElementsAre("mnuDrop"));
    EXPECT_THAT(sent, ElementsAre("N@e5"));
}

TEST_F(BoardByKeyboard, TheRightButtonOpensNoSecondMenu) {
    frmChessBoard& board = openMine();
    board.game.zSetBughouse("<b1> game 12 white [PPN] black [Q]\r\n");
    goTo(board, "e5");
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(1, 1), QPoint(1, 1));
    QCoreApplication::sendEvent(&view(board), &event);
    EXPECT_THAT(popups, IsEmpty());
}

TEST_F(BoardByKeyboard, TheMenuKeyEndsADelayAsTheRightButtonDoes) {
    modChess.MouseSlip = 11; // endless
    frmChessBoard& board = openMine();
    playByKeys(board, "e2", "e4");
    EXPECT_TRUE(board.game.hand.Dragging);
    EXPECT_THAT(sent, IsEmpty());
    contextKey(board);
    EXPECT_THAT(sent, ElementsAre("e2-e4"));
}

TEST_F(BoardByKeyboard, AClickOnTheBoardLeavesTheKeysInTheLine) {
    frmChessBoard& board = openMine();
    drag(board, "e2", "e4");
    EXPECT_EQ(focused(board), "txtSend");
    press(board, "e5");
    EXPECT_EQ(focused(board), "txtSend");
}
