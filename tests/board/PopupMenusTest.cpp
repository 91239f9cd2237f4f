// The popup menus of a board window: promotion and drops, answered at the seam and as real menus.
#include "board/MouseWindowRig.h"

namespace {

using Sent = std::vector<std::string>;

class PopupMenusTest : public MouseWindowRig {
protected:
    frmChessBoard& openPromoting() { return openMine({.ranks = PawnOnA7}); }
    frmChessBoard& openBughouse() {
        frmChessBoard& board = openMine();
        board.game.zSetBughouse("<b1> game 12 white [QPPP] black [RB]");
        return board;
    }
    static QAction& entry(QMenu& menu, const char* name) {
        return *menu.findChild<QAction*>(QString::fromLatin1(name));
    }
    void choose(const char* name) {
        answer = [name](QMenu& menu) { return &entry(menu, name); };
    }
    static void click(QMenu& menu, const char* name) {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&entry(menu, name)).center());
    }
    static QStringList captions(const QMenu& menu) {
        QStringList found;
        for (const QAction* entry : menu.actions()) {
            found +=
                entry->objectName() + u' ' + entry->text() + (entry->isEnabled() ? QString() : QStringLiteral(" off"));
        }
        return found;
    }

    // Lets real menus come up, and runs `then` on the next one that is shown.
    void onRealMenu(const std::function<void(QMenu&)>& then) {
        boxes.popup = Boxes().popup;
        watch.disconnect();
        QObject::connect(&watch, &QTimer::timeout, &watch, [this, then] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu || !menu->isVisible()) return;
            watch.stop();
            ++shown;
            QTimer::singleShot(3000, menu, [menu] { // an answer that does not answer must not hang the test
                ADD_FAILURE() << "the menu stays up";
                menu->hide();
            });
            then(*menu);
        });
        watch.start(1);
    }

    bool isShown() {
        return waitUntil([this] { return shown > 0; });
    }
    bool isSent(const std::string& text) {
        return waitUntil([this] { return !sent.empty(); }) && sent == Sent{text};
    }

    QTimer watch;
    int shown = 0;
};

} // namespace

TEST_F(PopupMenusTest, EachEntryOfThePromotionMenuPromotes) {
    const std::vector<std::pair<const char*, std::string>> entries{
        {"mnuQueen", "=Q+"}, {"mnuRook", "=R+"}, {"mnuBishop", "=B"}, {"mnuKnight", "=N"}};
    for (const auto& [name, part] : entries) {
        choose(name);
        sent.clear();
        drag(openPromoting(), "a7", "a8");
        EXPECT_TRUE(menusAnswered());
        EXPECT_EQ(sent, Sent{"a7-a8" + part});
    }
    EXPECT_EQ(popups, std::vector<std::string>(4, "mnuPromote"));
}

TEST_F(PopupMenusTest, InClickStyleTheSecondClickAsks) {
    modChess.DragMode = 0;
    choose("mnuRook");
    frmChessBoard& board = openPromoting();
    press(board, "a7");
    release(board, "a7");
    press(board, "a8");
    release(board, "a8");
    EXPECT_EQ(popups, Sent{"mnuPromote"});
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(sent, Sent{"a7-a8=R+"});
}

TEST_F(PopupMenusTest, ThePromotionMenuHasFourEntries) {
    QStringList found;
    answer = [&](QMenu& menu) {
        found = captions(menu);
        return nullptr;
    };
    drag(openPromoting(), "a7", "a8");
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(found.join(u',').toStdString(), "mnuQueen &Queen,mnuRook &Rook,mnuBishop &Bishop,mnuKnight K&night");
}

TEST_F(PopupMenusTest, ADismissedPromotionMenuSendsTheMoveWithoutAPiece) {
    frmChessBoard& board = openPromoting();
    drag(board, "a7", "a8");
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(popups, Sent{"mnuPromote"});
    EXPECT_EQ(sent, Sent{"a7-a8"});
    EXPECT_EQ(board.game.Board[48], 0);
}

TEST_F(PopupMenusTest, WithAutoQueenNoMenuComesUp) {
    modChess.AutoQueen = 1;
    drag(openPromoting(), "a7", "a8");
    EXPECT_TRUE(popups.empty());
    EXPECT_EQ(sent, Sent{"a7-a8=Q+"});
}

TEST_F(PopupMenusTest, ThePawnStandsOnItsTargetUntilTheMenuIsAnswered) {
    frmChessBoard& board = openPromoting();
    const QColor pawn = pixel(screenOf(board), at(board, "a7"));
    press(board, "a7");
    carry(board, "a7", "a8");
    boxes.popup = [](QMenu&, const std::function<void(QAction*)>&) {};
    release(board, "a8");
    EXPECT_EQ(pixel(screenOf(board), at(board, "a8")), pawn);
    EXPECT_NE(pixel(screenOf(board), at(board, "a7")), pawn);
}

TEST_F(PopupMenusTest, WhenThePawnHasGoneUnderTheMenuBothSquaresAreRepainted) {
    frmChessBoard& board = openPromoting();
    answer = [&](QMenu&) {
        receive(board, {.ranks = PawnOnA7, .turn = "B", .relation = -1});
        return nullptr;
    };
    drag(board, "a7", "a8");
    EXPECT_TRUE(menusAnswered());
    EXPECT_TRUE(sent.empty());
    const QImage seen = screenOf(board);
    board.game.zBoardSetup(false);
    EXPECT_EQ(seen, screenOf(board));
}

TEST_F(PopupMenusTest, TheDropMenuShowsTheCountsOfTheSideToMove) {
    QStringList found;
    answer = [&](QMenu& menu) {
        found = captions(menu);
        return nullptr;
    };
    press(openBughouse(), "e4", Qt::RightButton);
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(found.join(u',').toStdString(),
              "mnuDQ Queen 1,mnuDR Rook off,mnuDB Bishop off,mnuDN Knight off,mnuDP Pawn 3");
}

TEST_F(PopupMenusTest, ADropGoesToTheServerAndTheBoardWaits) {
    frmChessBoard& board = openBughouse();
    choose("mnuDP");
    press(board, "e4", Qt::RightButton);
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(sent, Sent{"P@e4"});
    EXPECT_EQ(board.game.Board[28], 0);
}

TEST_F(PopupMenusTest, ADismissedDropMenuSendsNothing) {
    press(openBughouse(), "e4", Qt::RightButton);
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(popups, Sent{"mnuDrop"});
    EXPECT_TRUE(sent.empty());
}

// Real menus

TEST_F(PopupMenusTest, TheRealPromotionMenuIsAnsweredByKey) {
    onRealMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_N); });
    drag(openPromoting(), "a7", "a8");
    EXPECT_TRUE(isSent("a7-a8=N"));
    EXPECT_EQ(shown, 1);
}

TEST_F(PopupMenusTest, TheRealPromotionMenuIsDismissedByEscape) {
    onRealMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    drag(openPromoting(), "a7", "a8");
    EXPECT_TRUE(isSent("a7-a8"));
    EXPECT_EQ(shown, 1);
}

TEST_F(PopupMenusTest, TheRealDropMenuIsAnsweredByAClick) {
    onRealMenu([](QMenu& menu) { click(menu, "mnuDQ"); });
    press(openBughouse(), "e4", Qt::RightButton);
    EXPECT_TRUE(isSent("Q@e4"));
    EXPECT_EQ(shown, 1);
}

TEST_F(PopupMenusTest, APositionArrivesWhileTheRealMenuIsUp) {
    frmChessBoard& board = openPromoting();
    onRealMenu([&](QMenu& menu) {
        receive(board, {.ranks = PawnOnA7, .moveNumber = 1, .pretty = "none"});
        QTest::keyClick(&menu, Qt::Key_Q);
    });
    drag(board, "a7", "a8");
    EXPECT_TRUE(isSent("a7-a8=Q+"));
    EXPECT_EQ(board.game.Board[56], 2);
}

TEST_F(PopupMenusTest, APreMoveThatPromotesBringsTheRealMenuUpBehindItsPosition) {
    modChess.PreMoveOK = 1;
    frmChessBoard& board = openMine({.ranks = PawnOnA7, .turn = "B", .relation = -1});
    press(board, "a7");
    release(board, "a8");
    ASSERT_TRUE(board.game.PreMoveSet);
    onRealMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_R); });
    receive(board, {.ranks = PawnOnA7, .moveNumber = 2, .pretty = "Ke8"});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(clock(board, 0), " 5:00");
    EXPECT_TRUE(isSent("a7-a8=R+"));
    EXPECT_EQ(shown, 1);
}

TEST_F(PopupMenusTest, TheWindowClosesWhileTheRealMenuIsUp) {
    for (const bool promotion : {true, false}) {
        made.clear();
        shown = 0;
        frmChessBoard& board = promotion ? openPromoting() : openBughouse();
        onRealMenu([&](QMenu&) {
            modChess.AppClosing = true;
            board.close();
        });
        if (promotion) {
            drag(board, "a7", "a8");
        } else {
            press(board, "e4", Qt::RightButton);
        }
        EXPECT_TRUE(isShown());
        modChess.AppClosing = false;
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(waitUntil([this] { return made.front().isNull(); })) << "the window goes";
        EXPECT_TRUE(sent.empty());
    }
}

TEST_F(PopupMenusTest, TheQuestionBeforeClosingTakesTheMenuDownAndThePromotionWaitsForItsAnswer) {
    for (const bool closes : {true, false}) {
        made.clear();
        shown = 0;
        frmChessBoard& board = openPromoting();
        boxes.okCancel = [this, closes](QWidget*, const std::string&, const std::string&) {
            QApplication::activePopupWidget()->hide();
            runFor(20);
            EXPECT_TRUE(sent.empty());
            return closes;
        };
        onRealMenu([&](QMenu&) { board.close(); });
        drag(board, "a7", "a8");
        EXPECT_TRUE(isShown());
        EXPECT_TRUE(waitUntil([&] { return closes ? made.front().isNull() : !sent.empty(); }));
        EXPECT_EQ(sent, closes ? Sent{} : Sent{"a7-a8"});
    }
}

TEST_F(PopupMenusTest, AfterAClosingThatWasRefusedMenusAnswerAsEver) {
    frmChessBoard& board = openPromoting();
    board.close();
    EXPECT_TRUE(sent.empty());
    drag(board, "a7", "a8");
    EXPECT_TRUE(menusAnswered());
    EXPECT_EQ(sent, Sent{"a7-a8"});
}

TEST_F(PopupMenusTest, APromotionChosenWhileTheClosingIsAskedForIsSentAtOnce) {
    choose("mnuRook");
    frmChessBoard& board = openPromoting();
    boxes.okCancel = [&](QWidget*, const std::string&, const std::string&) {
        drag(board, "a7", "a8"); // as a queued pre-move would
        EXPECT_TRUE(menusAnswered());
        EXPECT_EQ(sent, Sent{"a7-a8=R+"});
        return false;
    };
    board.close();
    EXPECT_EQ(sent, Sent{"a7-a8=R+"});
}

TEST_F(PopupMenusTest, AMenuThatIsUpWhenTheClosingIsRefusedIsNotAnsweredByTheOneBeforeIt) {
    frmChessBoard& board = openPromoting();
    boxes.okCancel = [&](QWidget*, const std::string&, const std::string&) {
        drag(board, "a7", "a8");
        EXPECT_TRUE(menusAnswered());
        boxes.popup = [](QMenu&, const std::function<void(QAction*)>&) {};
        drag(board, "a7", "a8");
        return false;
    };
    board.close();
    EXPECT_TRUE(sent.empty());
}

TEST_F(PopupMenusTest, TheWindowClosesBeforeTheRealMenuShows) {
    onRealMenu([](QMenu& menu) { menu.hide(); });
    frmChessBoard& board = openPromoting();
    press(board, "a7");
    release(board, "a8");
    modChess.AppClosing = true;
    board.close();
    modChess.AppClosing = false;
    EXPECT_TRUE(waitUntil([this] { return made.front().isNull(); }));
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(PopupMenusTest, TheWindowClosesWithTheAnswerOnItsWay) {
    for (const bool promotion : {true, false}) {
        made.clear();
        shown = 0;
        frmChessBoard& board = promotion ? openPromoting() : openBughouse();
        onRealMenu([&](QMenu& menu) {
            click(menu, promotion ? "mnuQueen" : "mnuDP");
            EXPECT_FALSE(menu.isVisible());
            modChess.AppClosing = true;
            board.close();
        });
        if (promotion) {
            drag(board, "a7", "a8");
        } else {
            press(board, "e4", Qt::RightButton);
        }
        EXPECT_TRUE(isShown());
        modChess.AppClosing = false;
        EXPECT_TRUE(waitUntil([this] { return made.front().isNull(); }));
        EXPECT_TRUE(sent.empty()) << promotion;
    }
}

TEST_F(PopupMenusTest, TheWindowIsDeletedWhileTheRealMenuIsUp) {
    frmChessBoard& board = openPromoting();
    onRealMenu([&](QMenu&) { delete &board; });
    press(board, "a7");
    release(board, "a8");
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(made.front().isNull());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(sent.empty());
}

TEST_F(PopupMenusTest, OfTwoRightClicksInOneBatchTheLastOneBringsTheMenu) {
    frmChessBoard& board = openBughouse();
    onRealMenu([](QMenu& menu) { click(menu, "mnuDP"); });
    for (const char* square : {"e4", "e5"}) press(board, square, Qt::RightButton);
    EXPECT_TRUE(isSent("P@e5"));
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}
