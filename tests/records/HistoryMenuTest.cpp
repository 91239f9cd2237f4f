// The window of listed games: what the menu of a row does, and the keys.
#include "records/HistoryWindowRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using HistoryMenu = HistoryWindowRig;

} // namespace

TEST_F(HistoryMenu, AddShowsInAHistoryAloneAndRemoveInAJournal) {
    opened();
    const std::pair<const char*, std::pair<bool, bool>> shown[] = {
        {"cmdHistory", {true, false}}, {"cmdJournal", {false, true}}, {"cmdStored", {false, false}}};
    for (const auto& [button, visible] : shown) {
        press(button);
        EXPECT_EQ(part<QAction>("mnuAddJourn").isVisible(), visible.first) << button;
        EXPECT_EQ(part<QAction>("mnuRemove").isVisible(), visible.second) << button;
    }
}

TEST_F(HistoryMenu, TheMenuHasItsEntriesInOrder) {
    open();
    std::vector<std::string> captions;
    for (const QAction* entry : menu().actions()) captions.push_back(bytesOf(entry->text()));
    EXPECT_THAT(captions,
                ElementsAre("Examine", "Review", "Move List", "Save PGN", "Mail Stored", "Add Journal", "Remove"));
    captions.clear();
    for (const QAction* slot : part<QAction>("mnuAddJourn").menu()->actions())
        captions.push_back(bytesOf(slot->text()));
    EXPECT_THAT(captions, ElementsAre("A", "B", "C", "D", "E", "F", "G", "H", "I", "J"));
}

TEST_F(HistoryMenu, TheRightButtonPicksTheRowUnderItForTheMenu) {
    threeGames();
    pressRight(2);
    EXPECT_THAT(popups, ElementsAre("mnuGame"));
    EXPECT_EQ(list().selectedRow(), 2);
    choose("mnuExamine");
    EXPECT_THAT(asked, ElementsAre("ex foo 7"));
}

TEST_F(HistoryMenu, BesideTheRowsTheRightButtonIsAboutTheSelectedOne) {
    threeGames();
    list().setCurrentItem(list().topLevelItem(1));
    const QPoint below(30, placeOf(2).y() + 3 * list().visualItemRect(list().topLevelItem(0)).height());
    ASSERT_EQ(list().itemAt(below), nullptr);
    pressRight(below);
    EXPECT_EQ(popups.size(), 1U);
    choose("mnuMoves");
    EXPECT_THAT(asked, ElementsAre("smoves foo  6"));
}

TEST_F(HistoryMenu, WithNoRowsTheRightButtonOpensNothing) {
    opened();
    pressRight(QPoint(30, 30));
    EXPECT_THAT(popups, IsEmpty());
}

TEST_F(HistoryMenu, WhatWasPickedStaysPickedWhileTheMenuIsUp) {
    threeGames();
    pressRight(2);
    list().setCurrentItem(list().topLevelItem(0));
    choose("mnuExamine");
    EXPECT_THAT(asked, ElementsAre("ex foo 7"));
}

TEST_F(HistoryMenu, EachEntrySendsItsLine) {
    threeGames();
    pressRight(0);
    for (const char* entry : {"mnuExamine", "mnuMoves", "mnuMailStored"}) choose(entry);
    EXPECT_THAT(asked, ElementsAre("ex foo 5", "smoves foo  5", "Mailstored foo  5"));
}

TEST_F(HistoryMenu, AStoredGameGoesByItsOpponent) {
    twoStored();
    pressRight(1);
    for (const char* entry : {"mnuExamine", "mnuMoves", "mnuMailStored", "mnuReview"}) choose(entry);
    EXPECT_THAT(asked, ElementsAre("ex foo PyChess", "smoves foo PyChess", "Mailstored foo PyChess",
                                   "smoves foo PyChess", "state 4"));
}

TEST_F(HistoryMenu, ReviewAsksForTheMovesAndArmsTheirCaptureBehind) {
    twoSlots();
    modChess.MovesRecord.WhiteMoves[1] = "e4";
    pressRight(1);
    choose("mnuReview");
    EXPECT_THAT(asked, ElementsAre("smoves foo B", "state 4"));
    EXPECT_EQ(modChess.MovesTarget, -2);
    EXPECT_EQ(modChess.MovesRecord.WhiteMoves[1], "e4") << "the record's moves are not emptied";
}

TEST_F(HistoryMenu, ADoubleClickReviews) {
    threeGames();
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, placeOf(1));
    EXPECT_THAT(asked, ElementsAre("smoves foo  6", "state 4"));
    EXPECT_EQ(modChess.MovesTarget, -2);
    EXPECT_THAT(popups, IsEmpty());
}

TEST_F(HistoryMenu, ADoubleClickBesideTheRowsDoesNothing) {
    threeGames();
    const QPoint below(30, list().viewport()->height() - 2);
    ASSERT_EQ(list().itemAt(below), nullptr);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, below);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HistoryMenu, ADoubleClickOfTheRightButtonReviewsNothing) {
    threeGames();
    QTest::mouseDClick(list().viewport(), Qt::RightButton, {}, placeOf(1));
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HistoryMenu, AddSendsSlotPlayerAndFirstColumn) {
    threeGames();
    pressRight(1);
    chooseSlot('A');
    chooseSlot('J');
    EXPECT_THAT(asked, ElementsAre("jsave A foo  6", "jsave J foo  6"));
}

TEST_F(HistoryMenu, RemoveAsksFirstWithNoAsItsDefault) {
    twoSlots();
    std::vector<std::string> questions;
    bool yes = false;
    boxes.confirm = [&](QWidget*, const std::string&, const std::string& text) {
        questions.push_back(text);
        return yes;
    };
    pressRight(1);
    choose("mnuRemove");
    EXPECT_THAT(questions, ElementsAre("Are you sure you want to permenantly remove game B?"));
    EXPECT_THAT(asked, IsEmpty());
    yes = true;
    choose("mnuRemove");
    EXPECT_THAT(asked, ElementsAre("jkill B"));
}

TEST_F(HistoryMenu, SavePgnAsksForANameAndThenForTheMoves) {
    threeGames();
    std::string filter;
    boxes.fileSave = [&](QWidget*, const std::string&, const std::string&, const std::string& wanted) {
        filter = wanted;
        return std::optional<std::string>("/tmp/games.pgn");
    };
    pressRight(1);
    choose("mnuSavePGN");
    EXPECT_EQ(filter, "PGN Files (*.pgn)");
    EXPECT_EQ(modChess.MovesFile, "/tmp/games.pgn");
    EXPECT_EQ(modChess.MovesTarget, -1);
    EXPECT_THAT(asked, ElementsAre("moves of foo  6"));
}

TEST_F(HistoryMenu, SavePgnOfAStoredGameNamesTheOpponent) {
    twoStored();
    boxes.fileSave = [](auto&&...) { return std::optional<std::string>("/tmp/games.pgn"); };
    pressRight(0);
    choose("mnuSavePGN");
    EXPECT_THAT(asked, ElementsAre("moves of foo PyChess"));
}

TEST_F(HistoryMenu, SavePgnWithoutANameDoesNothing) {
    threeGames();
    modChess.MovesTarget = 12;
    boxes.fileSave = [](auto&&...) { return std::optional<std::string>(); };
    pressRight(1);
    choose("mnuSavePGN");
    EXPECT_EQ(modChess.MovesTarget, 12);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HistoryMenu, AListThatComesWhileTheQuestionIsUpDoesNotChangeWhatItIsAbout) {
    twoSlots();
    boxes.confirm = [this](auto&&...) {
        lists.HistCount = 0;
        answer({"%07" + SlotRow.substr(3)});
        return true;
    };
    pressRight(1);
    choose("mnuRemove");
    EXPECT_THAT(asked, ElementsAre("jkill B"));
}

TEST_F(HistoryMenu, ClosedUnderItsQuestionOrDialogNothingIsTouched) {
    twoSlots();
    boxes.confirm = [this](auto&&...) {
        delete window.data();
        return false;
    };
    pressRight(1);
    choose("mnuRemove");
    EXPECT_TRUE(window.isNull());
    twoSlots();
    boxes.fileSave = [this](auto&&...) {
        delete window.data();
        return std::optional<std::string>();
    };
    pressRight(1);
    choose("mnuSavePGN");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HistoryMenu, AMenuGoesWithTheRowsThatItIsAbout) {
    twoSlots();
    for (const bool otherKind : {false, true}) {
        menu().popup(QPoint(10, 10));
        ASSERT_TRUE(menu().isVisible());
        if (otherKind) {
            press("cmdStored");
        } else {
            answer({});
        }
        EXPECT_FALSE(menu().isVisible());
    }
}

// The keyboard

TEST_F(HistoryMenu, TheFirstRowIsSelectedSoThatTheKeysFindIt) {
    threeGames();
    EXPECT_EQ(list().selectedRow(), 0);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(list().selectedRow(), 1);
}

TEST_F(HistoryMenu, EnterOnARowReviews) {
    threeGames();
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_THAT(asked, ElementsAre("smoves foo  6", "state 4"));
    asked.clear();
    QTest::keyClick(&list(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(asked.size(), 2U);
}

TEST_F(HistoryMenu, EnterWithoutRowsDoesNothing) {
    opened();
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HistoryMenu, TheMenuKeyAndShiftF10OpenTheMenuBelowItsRow) {
    threeGames();
    QTest::keyClick(&list(), Qt::Key_Down);
    for (const bool menuKey : {true, false}) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        if (menuKey) QCoreApplication::sendEvent(list().viewport(), &event);
        if (!menuKey) QTest::keyClick(&list(), Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_TRUE(menu().isVisible()) << menuKey;
        const QRect row = list().visualItemRect(list().topLevelItem(1));
        EXPECT_EQ(menu().pos(), list().viewport()->mapToGlobal(row.bottomLeft()));
        menu().close();
    }
    choose("mnuMoves");
    EXPECT_THAT(asked, ElementsAre("smoves foo  6"));
}

TEST_F(HistoryMenu, ByTheKeysARowOutOfSightComesIntoSightWithItsMenu) {
    opened();
    press("cmdHistory");
    answer(std::vector<std::string>(10, GameRow));
    window->resize(window->width(), window->minimumSizeHint().height());
    QCoreApplication::processEvents();
    list().setCurrentItem(list().topLevelItem(9));
    list().scrollToTop();
    const QRect view = list().viewport()->rect();
    ASSERT_FALSE(view.contains(placeOf(9)));
    QTest::keyClick(&list(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(view.contains(placeOf(9)));
    menu().close();
}

TEST_F(HistoryMenu, TabGoesFromThePlayerOverTheButtonsToTheList) {
    opened();
    std::vector<std::string> order{bytesOf(window->focusWidget()->objectName())};
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        order.push_back(bytesOf(window->focusWidget()->objectName()));
    }
    EXPECT_THAT(order, ElementsAre("txtPlayer", "cmdHistory", "cmdJournal", "cmdStored", "cmdExit", "lvwHistory"));
}

TEST_F(HistoryMenu, EnterPressesTheButtonThatHasTheFocus) {
    opened();
    part<QPushButton>("cmdStored").setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_THAT(asked, ElementsAre("state 9", "Stored Anders"));
}
