// The popup menus of a board window: promotion and drops, answered at the seam and as real menus.
#include "board/MouseWindowRig.h"

#include <QTimer>

#include <algorithm>

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
    void choose(const char* name) {
        answer = [name](QMenu& menu) { menu.findChild<QAction*>(QString::fromLatin1(name))->trigger(); };
    }
    static QStringList captions(const QMenu& menu) {
        QStringList found;
        for (const QAction* entry : menu.actions()) {
            found +=
                entry->objectName() + u' ' + entry->text() + (entry->isEnabled() ? QString() : QStringLiteral(" off"));
        }
        return found;
    }

    // Lets real menus come up, and runs `then` on the first one that is shown.
    void onRealMenu(const std::function<void(QMenu&)>& then) {
        boxes.popup = Boxes().popup;
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

    QTimer watch;
    int shown = 0;
};

} // namespace

TEST_F(PopupMenusTest, EachEntryOfThePromotionMenuPromotes) {
    const std::vector<std::pair<const char*, std::string>> entries{
        {"mnuQueen", "=Q+"}, {"mnuRook", "=R+"}, {"mnuBishop", "=B"}, {"mnuKnight", "=N"}};
    for (const auto& [name, suffix] : entries) {
        choose(name);
        sent.clear();
        drag(openPromoting(), "a7", "a8");
        EXPECT_EQ(sent, Sent{"a7-a8" + suffix});
    }
    EXPECT_EQ(popups, std::vector<std::string>(4, "mnuPromote"));
}

TEST_F(PopupMenusTest, ThePromotionMenuHasFourEntries) {
    QStringList found;
    answer = [&](QMenu& menu) { found = captions(menu); };
    drag(openPromoting(), "a7", "a8");
    EXPECT_EQ(found.join(u',').toStdString(), "mnuQueen &Queen,mnuRook &Rook,mnuBishop &Bishop,mnuKnight K&night");
}

TEST_F(PopupMenusTest, ADismissedPromotionMenuSendsTheMoveWithoutAPiece) {
    frmChessBoard& board = openPromoting();
    drag(board, "a7", "a8");
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

TEST_F(PopupMenusTest, TheDropMenuShowsTheCountsOfTheSideToMove) {
    QStringList found;
    answer = [&](QMenu& menu) { found = captions(menu); };
    press(openBughouse(), "e4", Qt::RightButton);
    EXPECT_EQ(found.join(u',').toStdString(),
              "mnuDQ Queen 1,mnuDR Rook off,mnuDB Bishop off,mnuDN Knight off,mnuDP Pawn 3");
}

TEST_F(PopupMenusTest, ADropGoesToTheServerAndTheBoardWaits) {
    frmChessBoard& board = openBughouse();
    choose("mnuDP");
    press(board, "e4", Qt::RightButton);
    EXPECT_EQ(sent, Sent{"P@e4"});
    EXPECT_EQ(board.game.Board[28], 0);
}

TEST_F(PopupMenusTest, TheRealPromotionMenuIsAnsweredByKey) {
    frmChessBoard& board = openPromoting();
    onRealMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_N); });
    drag(board, "a7", "a8");
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(sent, Sent{"a7-a8=N"});
}

TEST_F(PopupMenusTest, TheRealPromotionMenuIsDismissedByEscape) {
    frmChessBoard& board = openPromoting();
    onRealMenu([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    drag(board, "a7", "a8");
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(sent, Sent{"a7-a8"});
}

TEST_F(PopupMenusTest, TheRealDropMenuIsAnsweredByAClick) {
    frmChessBoard& board = openBughouse();
    onRealMenu([](QMenu& menu) {
        const QAction* entry = menu.findChild<QAction*>(QStringLiteral("mnuDQ"));
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(const_cast<QAction*>(entry)).center());
    });
    press(board, "e4", Qt::RightButton);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(sent, Sent{"Q@e4"});
}

TEST_F(PopupMenusTest, APositionArrivesWhileTheRealMenuIsUp) {
    frmChessBoard& board = openPromoting();
    onRealMenu([&](QMenu& menu) {
        receive(board, {.ranks = PawnOnA7, .moveNumber = 1, .pretty = "none"});
        QTest::keyClick(&menu, Qt::Key_Q);
    });
    drag(board, "a7", "a8");
    EXPECT_EQ(sent, Sent{"a7-a8=Q+"});
    EXPECT_EQ(board.game.Board[56], 2);
}

TEST_F(PopupMenusTest, TheWindowClosesWhileTheRealMenuIsUp) {
    for (const bool promotion : {true, false}) {
        made.clear();
        sent.clear();
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
        modChess.AppClosing = false;
        EXPECT_TRUE(sent.empty());
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(waitUntil([this] { return made.front().isNull(); })) << "the window goes";
        watch.disconnect();
    }
    EXPECT_EQ(shown, 2);
}

TEST_F(PopupMenusTest, TwoRightClicksOfOneBatchBringNoMenuWithinTheOther) {
    frmChessBoard& board = openBughouse();
    int up = 0;
    int most = 0;
    answer = [&](QMenu&) {
        most = std::max(most, ++up);
        QCoreApplication::processEvents();
        --up;
    };
    for (const char* square : {"e4", "e5"}) {
        send(board, QEvent::MouseButtonPress, at(board, square), Qt::RightButton, Qt::RightButton);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(most, 1);
}

TEST_F(PopupMenusTest, TheWindowIsDeletedWhileTheRealMenuIsUp) {
    frmChessBoard& board = openPromoting();
    onRealMenu([&](QMenu&) { delete &board; });
    press(board, "a7");
    const auto finish = board.game.surface.zSqFinish;
    finish(56);
    EXPECT_TRUE(made.front().isNull());
    EXPECT_TRUE(sent.empty());
}
