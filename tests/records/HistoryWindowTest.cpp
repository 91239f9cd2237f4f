// The window of listed games: what its buttons ask and what it shows.
#include "records/HistoryWindowRig.h"

#include "platform/Spoken.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QScreen>

#include <map>

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using HistoryWindow = HistoryWindowRig;

std::string headingsOf(const HistoryTable& list) {
    std::string all;
    for (int column = 0; column < list.columnCount(); ++column) all += bytesOf(list.headerItem()->text(column)) + "|";
    return all;
}

QAccessibleInterface* spoken(HistoryTable& list) { return QAccessible::queryAccessibleInterface(&list); }

} // namespace

// Start

TEST_F(HistoryWindow, AtItsStartItProposesTheOwnHandleWithTheCaretBehindIt) {
    open();
    EXPECT_EQ(player(), "");
    ASSERT_TRUE(waitUntil([this] { return player() == "Anders"; }));
    EXPECT_EQ(txtPlayer().cursorPosition(), 6);
    EXPECT_FALSE(txtPlayer().hasSelectedText());
    EXPECT_EQ(window->focusWidget(), &txtPlayer());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(title(), "History");
}

TEST_F(HistoryWindow, ATopicIsAskedForAtOnceAndUsedUp) {
    modChess.gHelpTopic = "bob";
    open();
    ASSERT_TRUE(waitUntil([this] { return !asked.empty(); }));
    EXPECT_THAT(asked, ElementsAre("state 9", "History bob"));
    EXPECT_EQ(player(), "bob");
    EXPECT_EQ(modChess.gHelpTopic, "");
    EXPECT_EQ(title(), "History for bob");
}

TEST_F(HistoryWindow, StartedAnewTheOpenOneTakesTheNextTopic) {
    twoSlots();
    list().setFocus();
    const frmHistory* before = window;
    modChess.gHelpTopic = "bob";
    frmHistory::startIt(roads);
    EXPECT_EQ(openWindows.count("frmHistory"), 1);
    ASSERT_TRUE(waitUntil([this] { return !asked.empty(); }));
    EXPECT_EQ(window, before);
    EXPECT_EQ(window->focusWidget(), &txtPlayer());
    EXPECT_THAT(asked, ElementsAre("state 9", "History bob"));
    EXPECT_EQ(modChess.HistoryKind, 0) << "its button has run, columns and all";
    EXPECT_EQ(headingsOf(list()), "#|R|Rat|C|vs|Opponent|Type|ECO|End|Date|");
}

TEST_F(HistoryWindow, ShownOnceMoreItKeepsItsPlayer) {
    opened();
    setPlayer("bob");
    frmHistory::showIt(roads);
    runFor(200);
    EXPECT_EQ(player(), "bob");
}

TEST_F(HistoryWindow, TheFirstTickIsATenthOfASecondAway) {
    open();
    EXPECT_EQ(part<QTimer>("tmrHist").interval(), 100);
    EXPECT_TRUE(part<QTimer>("tmrHist").isSingleShot());
}

// Asking

TEST_F(HistoryWindow, TheButtonsAskWithTheirCapitals) {
    opened();
    setPlayer("foo");
    const std::pair<const char*, const char*> buttons[] = {
        {"cmdHistory", "History foo"}, {"cmdJournal", "Journal foo"}, {"cmdStored", "Stored foo"}};
    int kind = 0;
    for (const auto& [button, line] : buttons) {
        asked.clear();
        press(button);
        EXPECT_THAT(asked, ElementsAre("state 9", line));
        EXPECT_EQ(modChess.HistoryKind, kind++);
    }
    EXPECT_EQ(title(), "Stored games for foo");
}

TEST_F(HistoryWindow, EachButtonHasItsColumns) {
    opened();
    press("cmdJournal");
    EXPECT_EQ(headingsOf(list()), "#|White|Rat|Black|Rat|Type|ECO|End|Result||");
    press("cmdStored");
    EXPECT_EQ(headingsOf(list()), "#|C|Opponent|On|Type|Str|M|ECO|Date||");
    press("cmdHistory");
    EXPECT_EQ(headingsOf(list()), "#|R|Rat|C|vs|Opponent|Type|ECO|End|Date|");
}

TEST_F(HistoryWindow, ThePrescribedProceduresSetColumnsAlone) {
    opened();
    window->zSetJournal();
    EXPECT_EQ(headingsOf(list()), "#|White|Rat|Black|Rat|Type|ECO|End|Result||");
    window->zSetStored();
    EXPECT_EQ(headingsOf(list()), "#|C|Opponent|On|Type|Str|M|ECO|Date||");
    window->zSetHistory();
    EXPECT_EQ(headingsOf(list()), "#|R|Rat|C|vs|Opponent|Type|ECO|End|Date|");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(modChess.HistoryKind, 0);
}

TEST_F(HistoryWindow, ReturnInThePlayerAsksForTheHistoryAndKeepsTheKind) {
    twoSlots();
    QTest::keyClick(&txtPlayer(), Qt::Key_Return);
    EXPECT_THAT(asked, ElementsAre("state 9", "History foo"));
    EXPECT_EQ(modChess.HistoryKind, 1);
    EXPECT_EQ(headingsOf(list()), "#|White|Rat|Black|Rat|Type|ECO|End|Result||");
    answer({GameRow, SlotRow});
    EXPECT_EQ(list().topLevelItemCount(), 1) << "it is read by the journal's rules";
    EXPECT_EQ(list().cell(0, 0), "A");
}

TEST_F(HistoryWindow, WhileAnotherAnswerIsCapturedItWaitsWithTheProgramAlive) {
    opened();
    setPlayer("foo");
    busy = true;
    QTimer::singleShot(50, window, [this] { busy = false; });
    press("cmdHistory");
    EXPECT_FALSE(busy) << "its timer has run";
    EXPECT_THAT(asked, ElementsAre("state 9", "History foo"));
}

TEST_F(HistoryWindow, AfterFourSecondsItGivesUpSilently) {
    opened();
    double now = 1000;
    wallClock.secondsOfDay = [&now] { return now += 1; };
    busy = true;
    press("cmdHistory");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(title(), "History");
}

TEST_F(HistoryWindow, ClosedAndDestroyedInTheWaitItAsksNothing) {
    opened();
    busy = true;
    QTimer::singleShot(20, window, [this] {
        window->close();
        busy = false;
    });
    press("cmdHistory");
    EXPECT_THAT(asked, IsEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(HistoryWindow, ASecondButtonInTheWaitAsksBesideTheFirst) {
    opened();
    setPlayer("foo");
    busy = true;
    QTimer::singleShot(20, window, [this] { press("cmdJournal"); });
    QTimer::singleShot(60, window, [this] { busy = false; });
    press("cmdHistory");
    EXPECT_THAT(asked, ElementsAre("state 9", "Journal foo", "state 9", "History foo"));
    EXPECT_EQ(modChess.HistoryKind, 1);
}

// Answers

TEST_F(HistoryWindow, AHistorysRowsStandInTheServersOrderByTheColumns) {
    threeGames();
    EXPECT_EQ(list().topLevelItemCount(), 3);
    EXPECT_THAT(cells(0), ElementsAre(" 5", "+", "1735", "W", "1059", "cesarCR      ", "br  5  12", "C53", "Res",
                                      "Thu Oct 24, 16:32 02"));
    EXPECT_EQ(list().cell(1, 0), " 6");
    EXPECT_EQ(list().cell(2, 0), " 7");
}

TEST_F(HistoryWindow, AJournalsRowsByTheColumns) {
    twoSlots();
    EXPECT_THAT(cells(0), ElementsAre("A", "tentacle     ", "2291", "larsa        ", "2050", "lr  1   2", "D35", "Rep",
                                      "1/2-1/2", ""));
    EXPECT_EQ(list().cell(1, 0), "B");
}

TEST_F(HistoryWindow, StoredGamesRowsByTheColumns) {
    twoStored();
    EXPECT_THAT(cells(1), ElementsAre(" 2", "W", "PyChess      ", "  Y", "su  2  12", "39-39", "W3  ", "C20",
                                      "Sun Jan 11, 17:40 09", ""));
}

TEST_F(HistoryWindow, ALineEndInAFieldIsNotShown) {
    opened();
    press("cmdJournal");
    answer({SlotRow.substr(0, 70) + "0-1\r\n"});
    EXPECT_EQ(lists.HistRows[0][1], "0-1\r\n");
    EXPECT_EQ(list().cell(0, 8), "0-1");
}

TEST_F(HistoryWindow, TheNextAnswerReplacesTheList) {
    threeGames();
    press("cmdHistory");
    EXPECT_EQ(list().topLevelItemCount(), 3) << "until it comes";
    answer({numbered(9, GameRow)});
    EXPECT_EQ(list().topLevelItemCount(), 1);
    EXPECT_EQ(list().cell(0, 0), " 9");
}

TEST_F(HistoryWindow, RowsOfAnotherKindGoWithTheirColumns) {
    threeGames();
    press("cmdStored");
    EXPECT_EQ(list().topLevelItemCount(), 0);
}

TEST_F(HistoryWindow, AnEmptyListIsToldOfThePlayer) {
    threeGames();
    const std::pair<const char*, const char*> kinds[] = {{"cmdHistory", "foo has played no games."},
                                                         {"cmdJournal", "foo has no games in the journal."},
                                                         {"cmdStored", "foo has no stored games."}};
    for (const auto& [button, text] : kinds) {
        press(button);
        told.clear();
        answer({});
        EXPECT_THAT(told, ElementsAre(text));
        EXPECT_EQ(list().topLevelItemCount(), 0);
    }
}

TEST_F(HistoryWindow, ATitleNamesThePlayerAndTheWindow) {
    opened();
    setPlayer("fo");
    press("cmdHistory");
    EXPECT_EQ(title(), "History for fo");
    zHistoryLines(lists, "History for foobar:\r\n");
    EXPECT_EQ(player(), "foobar");
    EXPECT_EQ(title(), "History for foobar");
    press("cmdStored");
    zStoredLines(lists, "Stored games for Foobar:\r\n");
    EXPECT_EQ(title(), "Stored games for Foobar");
}

TEST_F(HistoryWindow, ATitleShowsANameThatLooksLikeMarkupAsItIsAndTheFrontOfOneWithoutAnEnd) {
    opened();
    press("cmdHistory");
    zHistoryLines(lists, "History for <b>x</b>&amp;%1:\r\n");
    EXPECT_EQ(title(), "History for <b>x</b>&amp;%1");
    EXPECT_EQ(player(), "<b>x</b>&amp;%1");
    for (const char* button : {"cmdHistory", "cmdJournal", "cmdStored"}) {
        setPlayer(std::string(10000, 'W').c_str());
        press(button);
        EXPECT_EQ(title().size(), 500U) << button;
    }
    zHistoryLines(lists, "History for " + std::string(1000, 'W') + ":\r\n");
    EXPECT_LE(title().size(), 500U);
}

TEST_F(HistoryWindow, AnAnswerBehindItsCloseIsReadAndShownByNobody) {
    opened();
    press("cmdHistory");
    window->close();
    zHistoryLines(lists, "History for foobar:\r\n");
    EXPECT_EQ(player(), "Anders") << "it is not there any more, though it is not deleted yet";
    answer({});
    EXPECT_EQ(lists.HistHandle, "foobar");
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(HistoryWindow, OpenedAgainItHasTheColumnsOfTheKindThatItWillRead) {
    twoStored();
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    opened();
    EXPECT_EQ(headingsOf(list()), "#|C|Opponent|On|Type|Str|M|ECO|Date||");
    EXPECT_EQ(list().topLevelItemCount(), 0);
}

// Look

TEST_F(HistoryWindow, EveryColumnIsAsWideAsPrescribedOrAsItsTextsNeed) {
    for (const int points : {8, 9, 14, 20}) {
        open();
        QFont font = window->font();
        font.setPointSize(points);
        window->setFont(font);
        for (const char* button : {"cmdHistory", "cmdJournal", "cmdStored"}) {
            press(button);
            const ListLook& look = lookOf(modChess.HistoryKind);
            int column = 0;
            for (const ListColumn& prescribed : look.columns) {
                const int width = list().header()->sectionSize(column);
                EXPECT_GE(width, prescribed.twips / 15) << points << " " << prescribed.heading;
                EXPECT_GE(width, list().fontMetrics().horizontalAdvance(QString::fromLatin1(prescribed.widest)));
                ++column;
            }
        }
        delete window.data();
    }
}

TEST_F(HistoryWindow, ColumnsGrowWithAFontThatChangesUnderThem) {
    threeGames();
    QFont font = window->font();
    font.setPointSize(3 * font.pointSize());
    window->setFont(font);
    EXPECT_GE(list().header()->sectionSize(2), list().fontMetrics().horizontalAdvance(QStringLiteral("1735")));
}

TEST_F(HistoryWindow, CellsAndHeadingsStandByTheirColumnsAlignmentAndOrder) {
    twoStored();
    const std::map<int, Qt::Alignment> expected{
        {1, Qt::AlignHCenter}, {2, Qt::AlignLeft}, {3, Qt::AlignRight}, {5, Qt::AlignHCenter}, {6, Qt::AlignLeft}};
    for (const auto& [column, alignment] : expected) {
        EXPECT_EQ(list().topLevelItem(0)->textAlignment(column) & Qt::AlignHorizontal_Mask, alignment) << column;
        EXPECT_EQ(list().headerItem()->textAlignment(column) & Qt::AlignHorizontal_Mask, alignment) << column;
    }
    EXPECT_FALSE(list().header()->sectionsMovable());
}

TEST_F(HistoryWindow, AWideTextWidensItsColumn) {
    threeGames();
    const int before = list().header()->sectionSize(5);
    press("cmdHistory");
    answer({GameRow.substr(0, 18) + "WWWWWWWWWWWWW" + GameRow.substr(31)});
    EXPECT_GT(list().header()->sectionSize(5), before);
    EXPECT_GT(list().header()->sectionSize(5), list().fontMetrics().horizontalAdvance(QStringLiteral("WWWWWWWWWWWWW")));
}

TEST_F(HistoryWindow, TenRowsOfAnyListFitWithoutScrolling) {
    const QFont before = QApplication::font();
    for (const int points : {8, 9, 14}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        opened();
        const QSize screen = window->screen()->availableSize();
        const QSize wanted = window->sizeHint();
        EXPECT_EQ(window->size(), wanted.boundedTo(screen).expandedTo(window->minimumSizeHint())) << points;
        window->resize(wanted); // on a larger screen, should this one not have the room
        const std::pair<const char*, std::string> kinds[] = {
            {"cmdHistory", GameRow}, {"cmdStored", StoredRow}, {"cmdJournal", SlotRow}};
        for (const auto& [button, row] : kinds) {
            press(button);
            answer(std::vector<std::string>(10, row));
            QCoreApplication::processEvents();
            const QRect last = list().visualItemRect(list().topLevelItem(9));
            EXPECT_GE(list().viewport()->height(), last.bottom()) << points << button;
            EXPECT_GE(list().viewport()->width(), list().header()->length()) << points << button;
        }
        delete window.data();
    }
    QApplication::setFont(before);
}

TEST_F(HistoryWindow, ItOpensNoLargerThanTheScreen) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSize(30);
    QApplication::setFont(font);
    open();
    EXPECT_GT(list().header()->length(), window->screen()->availableSize().width());
    const int needed = window->minimumSizeHint().width(); // by the row of buttons
    EXPECT_LE(window->width(), std::max(window->screen()->availableSize().width(), needed));
    EXPECT_LT(needed, list().header()->length());
    QApplication::setFont(before);
}

TEST_F(HistoryWindow, ARowIsReadWhole) {
    threeGames();
    QAccessibleInterface* cell = spoken(list())->tableInterface()->cellAt(0, 0);
    EXPECT_EQ(cell->text(QAccessible::Name),
              QStringLiteral("5, win, 1735, white, 1059, cesarCR, br  5  12, C53, Res, Thu Oct 24, 16:32 02"));
    EXPECT_EQ(spoken(list())->tableInterface()->cellAt(0, 1)->text(QAccessible::Name), QStringLiteral("win"));
    EXPECT_EQ(spoken(list())->tableInterface()->cellAt(0, 3)->text(QAccessible::Name), QStringLiteral("white"));
    EXPECT_EQ(list().cell(0, 1), "+") << "the signs stay on the screen";
}

TEST_F(HistoryWindow, ControlsHaveNames) {
    open();
    EXPECT_EQ(spokenText(txtPlayer(), QAccessible::Name), QStringLiteral("Player"));
    EXPECT_EQ(spokenText(list(), QAccessible::Name), QStringLiteral("Games"));
    EXPECT_EQ(spokenText(part("cmdStored"), QAccessible::Name), QStringLiteral("Stored"));
    EXPECT_EQ(list().headerItem()->data(1, Qt::AccessibleTextRole).toString(), QStringLiteral("Result"));
    EXPECT_EQ(list().headerItem()->toolTip(1), QStringLiteral("Result"));
}

// Place

TEST_F(HistoryWindow, ItOpensWhereItWasAndKeepsItsPlace) {
    stored("Left", "450");
    stored("Top", "600");
    open();
    EXPECT_EQ(window->pos(), QPoint(30, 40));
    window->move(45, 60);
    window->close();
    EXPECT_EQ(kept("Left"), "675");
    EXPECT_EQ(kept("Top"), "900");
    EXPECT_EQ(kept("Width"), "(absent)");
}

TEST_F(HistoryWindow, ClosedMinimisedItKeepsItsPlace) {
    opened();
    window->move(45, 60);
    window->showMinimized();
    window->close();
    EXPECT_FALSE(window->isMinimized());
    EXPECT_EQ(kept("Left"), "675");
}

TEST_F(HistoryWindow, ItClosesOnceAndItsTimerWithIt) {
    open();
    window->close();
    EXPECT_FALSE(part<QTimer>("tmrHist").isActive());
    values->texts[{"History", "Left"}] = "of another";
    QCloseEvent oneMore;
    QCoreApplication::sendEvent(window, &oneMore);
    EXPECT_EQ(kept("Left"), "of another");
}

TEST_F(HistoryWindow, APlaceBeyondTheScreenIsNotUsed) {
    const QSize screen = QGuiApplication::primaryScreen()->virtualSize(); // of all screens
    const std::pair<int, int> places[] = {{screen.width() * 15, 600}, {450, screen.height() * 15}};
    for (const auto& [left, top] : places) {
        stored("Left", std::to_string(left).c_str());
        stored("Top", std::to_string(top).c_str());
        open();
        EXPECT_EQ(window->pos(), QPoint(0, 0));
        delete window.data();
    }
}

TEST_F(HistoryWindow, BeforeTheFirstExitThePlaceComesFromItsOlderFile) {
    QFile file(QStringLiteral("chesshist.def"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("450,600\r\n");
    file.close();
    open();
    EXPECT_EQ(window->pos(), QPoint(30, 40));
}

TEST_F(HistoryWindow, ExitClosesIt) {
    opened();
    press("cmdExit");
    EXPECT_EQ(openWindows.count("frmHistory"), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}
