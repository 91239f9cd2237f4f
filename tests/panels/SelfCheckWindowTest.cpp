// The panel of the self check: its boxes under mouse and keyboard, what it holds back, and where it stands.
#include "board/MouseWindowRig.h"
#include "panels/TallyBox.h"
#include "panels/frmSelfCheck.h"
#include "platform/LoadedWindow.h"

#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SelfCheckWindow : public MouseWindowRig {
protected:
    SelfCheckWindow() {
        roads.doors.showSelfCheck = [this](const QWidget* board) { panel = &frmSelfCheck::showIt(board); };
    }
    ~SelfCheckWindow() override {
        delete panel.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    frmSelfCheck& openPanel() {
        panel = &frmSelfCheck::showIt(nullptr);
        return *panel;
    }
    TallyBox& box(const char* name = "txtAgainst(0)") const {
        return *panel->findChild<TallyBox*>(QString::fromLatin1(name));
    }
    QCheckBox& chkForced() const { return *panel->findChild<QCheckBox*>(QStringLiteral("chkForced")); }
    std::string text(const char* name = "txtAgainst(0)") const { return box(name).text().toStdString(); }
    void click(Qt::MouseButton button = Qt::LeftButton, const char* name = "txtAgainst(0)") const {
        QTest::mouseClick(&box(name), button);
    }
    QList<TallyBox*> all() const { return panel->findChildren<TallyBox*>(); }
    void fill() const {
        for (TallyBox* each : all()) QTest::mouseClick(each, Qt::LeftButton);
    }
    bool isEmpty() const {
        return std::ranges::all_of(all(), [](TallyBox* each) { return each->text().isEmpty(); });
    }
    void key(int code) const { QTest::keyClick(&box(), static_cast<Qt::Key>(code)); }
    static void drag(frmChessBoard& board, const char* from, const char* to) {
        press(board, from);
        move(board, at(board, to));
        release(board, to);
    }

    QPointer<frmSelfCheck> panel;
};

} // namespace

TEST_F(SelfCheckWindow, ItsCaptionsAreThosePrescribed) {
    openPanel();
    EXPECT_EQ(panel->windowTitle(), QStringLiteral("Self Check"));
    EXPECT_EQ(chkForced().text().remove(u'&'), QStringLiteral("Forced Move"));
    std::vector<std::string> frames;
    for (const QGroupBox* frame : panel->findChildren<QGroupBox*>()) {
        frames.push_back(frame->title().remove(u'&').toStdString());
        std::vector<std::string> rows;
        for (const QLabel* row : frame->findChildren<QLabel*>()) rows.push_back(row->text().toStdString());
        EXPECT_THAT(rows, ElementsAre("Pieces on-take", "Pawn threats", "Possible pins/skewres", "Possible forks",
                                      "Possible checks"));
    }
    EXPECT_THAT(frames, ElementsAre("Against me", "By me"));
    EXPECT_TRUE(isEmpty());
    for (const char* name : {"txtAgainst(0)", "txtAgainst(4)", "txtBy(0)", "txtBy(4)"}) {
        EXPECT_NE(panel->findChild<TallyBox*>(QString::fromLatin1(name)), nullptr) << name;
    }
}

TEST_F(SelfCheckWindow, OpenItHoldsTheBoardsBackAndClosedItFreesThem) {
    openPanel();
    EXPECT_TRUE(modChess.SelfCheckOpen);
    EXPECT_FALSE(modChess.SelfCheckOK);
    panel->close();
    EXPECT_FALSE(modChess.SelfCheckOpen);
    EXPECT_TRUE(modChess.SelfCheckOK);
    EXPECT_EQ(openWindows.count("frmSelfCheck"), 0);
}

TEST_F(SelfCheckWindow, EscapeClosesIt) {
    openPanel();
    QTest::keyClick(&box(), Qt::Key_Escape);
    EXPECT_TRUE(modChess.SelfCheckOK);
}

// By mouse

TEST_F(SelfCheckWindow, TheMouseGoingDownOnAnEmptyBoxShows0WhateverTheButton) {
    openPanel();
    QTest::mousePress(&box("txtBy(3)"), Qt::RightButton);
    EXPECT_EQ(text("txtBy(3)"), "0");
    QTest::mousePress(&box("txtBy(2)"), Qt::MiddleButton);
    EXPECT_EQ(text("txtBy(2)"), "0");
    QTest::mousePress(&box(), Qt::LeftButton);
    EXPECT_EQ(text(), "0");
}

TEST_F(SelfCheckWindow, TheLeftButtonCountsUpAndAnyOtherDownNotBelow0) {
    openPanel();
    for (int i = 0; i < 4; ++i) click();
    EXPECT_EQ(text(), "3");
    click(Qt::RightButton);
    click(Qt::MiddleButton);
    EXPECT_EQ(text(), "1");
    for (int i = 0; i < 3; ++i) click(Qt::RightButton);
    EXPECT_EQ(text(), "0");
}

TEST_F(SelfCheckWindow, TheSecondPressOfADoubleClickCounts) {
    openPanel();
    click();
    QTest::mouseDClick(&box(), Qt::LeftButton);
    EXPECT_EQ(text(), "1");
}

TEST_F(SelfCheckWindow, TenClicksOpenTheWay) {
    openPanel();
    fill();
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckWindow, ForcedMoveOpensTheWayAndUntickedClosesIt) {
    openPanel();
    chkForced().click();
    EXPECT_TRUE(modChess.SelfCheckOK);
    chkForced().click();
    EXPECT_FALSE(modChess.SelfCheckOK);
    fill();
    chkForced().click();
    chkForced().click();
    EXPECT_TRUE(modChess.SelfCheckOK);
}

// By keyboard

TEST_F(SelfCheckWindow, ABoxTakesDigits) {
    openPanel();
    for (const int code : {Qt::Key_1, Qt::Key_0, Qt::Key_7, Qt::Key_7, Qt::Key_A, Qt::Key_Minus, Qt::Key_Space})
        key(code);
    EXPECT_EQ(text(), "107");
}

TEST_F(SelfCheckWindow, UpAndDownCountAsTheButtonsDo) {
    openPanel();
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "0");
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "0");
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "1");
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), "");
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "0");
}

TEST_F(SelfCheckWindow, BackspaceTakesADigitAndDeleteAll) {
    openPanel();
    key(Qt::Key_1);
    key(Qt::Key_2);
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), "1");
    key(Qt::Key_2);
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), "");
}

TEST_F(SelfCheckWindow, NothingElseGetsIntoABox) {
    openPanel();
    key(Qt::Key_5);
    box().selectAll();
    QTest::keyClick(&box(), Qt::Key_X, Qt::ControlModifier);
    QTest::keyClick(&box(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClicks(&box(), QStringLiteral("a.,-+"));
    EXPECT_EQ(text(), "5");
}

TEST_F(SelfCheckWindow, TheWholeSheetIsFilledByKeyboard) {
    openPanel();
    panel->findChild<QCheckBox*>()->setFocus();
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(panel->focusWidget(), Qt::Key_Tab);
        QTest::keyClick(panel->focusWidget(), Qt::Key_0);
        EXPECT_EQ(modChess.SelfCheckOK, i == 9) << i;
    }
    QTest::keyClick(panel->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(panel->focusWidget(), &chkForced());
}

// Assistive tools

TEST_F(SelfCheckWindow, ABoxIsASpinBoxNamedByRowAndFrame) {
    openPanel();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&box("txtBy(2)"));
    EXPECT_EQ(spoken->role(), QAccessible::SpinBox);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Possible pins/skewres, by me"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&box())->text(QAccessible::Name),
              QStringLiteral("Pieces on-take, against me"));
}

TEST_F(SelfCheckWindow, ABoxSaysItsNumberOrThatItIsEmpty) {
    openPanel();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&box());
    EXPECT_EQ(spoken->text(QAccessible::Value), QStringLiteral("empty"));
    for (int i = 0; i < 3; ++i) click();
    EXPECT_EQ(spoken->text(QAccessible::Value), QStringLiteral("2"));
    ASSERT_NE(spoken->valueInterface(), nullptr);
    EXPECT_EQ(spoken->valueInterface()->currentValue(), QVariant(2));
    EXPECT_EQ(spoken->valueInterface()->minimumValue(), QVariant(0));
}

TEST_F(SelfCheckWindow, AssistiveToolsMaySetANumber) {
    openPanel();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&box());
    spoken->valueInterface()->setCurrentValue(7);
    EXPECT_EQ(text(), "7");
    spoken->valueInterface()->setCurrentValue(-1);
    EXPECT_EQ(text(), "7");
}

TEST_F(SelfCheckWindow, ForcedMoveTickedByAnAssistiveToolOpensTheWayToo) {
    openPanel();
    auto* actions = QAccessible::queryAccessibleInterface(&chkForced())->actionInterface();
    for (const bool open : {true, false}) {
        actions->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(modChess.SelfCheckOK, open);
    }
}

// With a board

TEST_F(SelfCheckWindow, TheBoardsEntryOpensItOnce) {
    frmChessBoard& board = open();
    for (int i = 0; i < 2; ++i) {
        chooseEntry(entry(board, "mnuSelfCheck"));
        ASSERT_TRUE(waitUntil([this] { return !panel.isNull(); }));
    }
    EXPECT_EQ(openWindows.count("frmSelfCheck"), 1);
}

TEST_F(SelfCheckWindow, NoPieceIsLiftedBeforeTheSheetIsDoneAndTheMoveEmptiesIt) {
    frmChessBoard& board = openMine();
    board.game.noPlay = false;
    openPanel();
    drag(board, "e2", "e4");
    EXPECT_THAT(sent, IsEmpty());
    fill();
    drag(board, "e2", "e4");
    EXPECT_THAT(sent, ElementsAre("e2-e4"));
    EXPECT_TRUE(isEmpty());
    EXPECT_FALSE(modChess.SelfCheckOK);
    EXPECT_FALSE(chkForced().isChecked());
}

TEST_F(SelfCheckWindow, AForcedMoveGoesAndUnticksTheBox) {
    frmChessBoard& board = openMine();
    board.game.noPlay = false;
    openPanel();
    chkForced().click();
    drag(board, "e2", "e4");
    EXPECT_THAT(sent, ElementsAre("e2-e4"));
    EXPECT_FALSE(chkForced().isChecked());
    EXPECT_FALSE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckWindow, APieceThatIsPutBackEmptiesItToo) {
    frmChessBoard& board = openMine();
    board.game.noPlay = false;
    openPanel();
    fill();
    drag(board, "e2", "e2");
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_TRUE(isEmpty());
    EXPECT_FALSE(modChess.SelfCheckOK);
}

TEST_F(SelfCheckWindow, AMoveThatIsQueuedEmptiesItToo) {
    frmChessBoard& board = openWaiting();
    board.game.noPlay = false;
    openPanel();
    fill();
    drag(board, "d2", "d4");
    EXPECT_TRUE(board.game.PreMoveSet);
    EXPECT_TRUE(isEmpty());
}

TEST_F(SelfCheckWindow, ClosedInTheGameItFreesTheBoard) {
    frmChessBoard& board = openMine();
    board.game.noPlay = false;
    openPanel();
    panel->close();
    drag(board, "e2", "e4");
    EXPECT_THAT(sent, ElementsAre("e2-e4"));
    EXPECT_TRUE(modChess.SelfCheckOK) << "and no sheet begins anew";
}

TEST_F(SelfCheckWindow, ANewBoardLetsTheNextMoveThrough) {
    openPanel();
    open();
    EXPECT_TRUE(modChess.SelfCheckOK);
    EXPECT_TRUE(modChess.SelfCheckOpen);
}

TEST_F(SelfCheckWindow, ItStandsBesideTheBoardThatItIsOpenedFrom) {
    QWidget board;
    board.setGeometry(10, 20, 300, 300);
    board.show();
    panel = &frmSelfCheck::showIt(&board);
    EXPECT_GT(panel->frameGeometry().left(), board.frameGeometry().right());
    EXPECT_EQ(panel->frameGeometry().top(), board.frameGeometry().top());
    EXPECT_TRUE(board.screen()->availableGeometry().contains(panel->frameGeometry()));
}

TEST_F(SelfCheckWindow, ItsFramesStandAboveEachOtherWhereTheScreenIsHighEnough) {
    openPanel();
    const QList<QGroupBox*> frames = panel->findChildren<QGroupBox*>();
    const QRect against = frames[0]->geometry();
    const QRect by = frames[1]->geometry();
    EXPECT_GT(by.top(), against.bottom());
    EXPECT_EQ(by.left(), against.left());
    EXPECT_LT(panel->height(), panel->screen()->availableSize().height());
}

TEST_F(SelfCheckWindow, WithItsFramesSideBySideItStandsAsFarLeftAsItsWidthWants) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(28);
    QApplication::setFont(large);
    QWidget board;
    const QRect screen = board.screen()->availableGeometry();
    board.setGeometry(screen.adjusted(0, 0, -10, -200));
    board.show();
    panel = &frmSelfCheck::showIt(&board);
    QApplication::setFont(before);
    const QList<QGroupBox*> frames = panel->findChildren<QGroupBox*>();
    ASSERT_GT(frames[1]->geometry().left(), frames[0]->geometry().right());
    EXPECT_EQ(panel->frameGeometry().left(),
              std::max(board.frameGeometry().right() + 1 - panel->frameGeometry().width(), screen.left()));
}

TEST_F(SelfCheckWindow, NothingIsCutInAnyFont) {
    const QFont before = QApplication::font();
    for (const int points : {8, 11, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        delete panel.data();
        openPanel();
        QCoreApplication::processEvents();
        for (const QLabel* label : panel->findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width()) << points;
        }
        for (TallyBox* each : all()) {
            EXPECT_GE(each->width(), each->sizeHint().width()) << points;
            EXPECT_GE(each->height(), each->fontMetrics().height()) << points;
        }
        EXPECT_TRUE(panel->screen()->availableGeometry().contains(QRect(QPoint(), panel->size()))) << points;
    }
    QApplication::setFont(before);
}
