// The seek graph's window: how it opens and closes, its size, what pointer and keyboard do.
#include "seek/SeekWindowRig.h"

#include "platform/ShownTip.h"

#include <QFile>
#include <QHelpEvent>
#include <QToolTip>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SeekWindow : public SeekWindowRig {};

} // namespace

// Load

TEST_F(SeekWindow, TheLoadTellsTheServerToAnnounceNoSeeks) {
    open();
    EXPECT_THAT(sent, ElementsAre("Set Seek 0"));
    EXPECT_TRUE(modChess.gSeekOn);
    EXPECT_EQ(openWindows.count("frmSeek"), 1);
}

TEST_F(SeekWindow, AShownGraphIsNotLoadedAgain) {
    open();
    frmSeek& first = *seek;
    EXPECT_EQ(&open(), &first);
    EXPECT_THAT(sent, ElementsAre("Set Seek 0"));
    EXPECT_EQ(openWindows.count("frmSeek"), 1);
}

TEST_F(SeekWindow, AtFirstItStandsInTheCornerInItsDesignedSizeOfWholeCells) {
    open();
    EXPECT_EQ(seek->pos(), QPoint(0, 0));
    EXPECT_EQ(seek->size(), QSize(520, 460));
    EXPECT_EQ(plot().graph().geometry.CellSize, 240);
    EXPECT_EQ(plot().graph().geometry.RightX, 7650);
}

TEST_F(SeekWindow, AStoredPlaceAndSizeAreTakenBeforeTheGraphIsLaidOut) {
    stored("Left", "300");
    stored("Top", "450");
    stored("Width", "6000");
    stored("Height", "5000");
    open();
    EXPECT_EQ(seek->pos(), QPoint(20, 30));
    EXPECT_EQ(seek->width(), 400);
    EXPECT_EQ(plot().graph().geometry.CellSize, 165); // 10.97 pixels
    EXPECT_EQ(seek->height(), (25 * 165 + 82 + 780 + 14) / 15);
}

TEST_F(SeekWindow, AStoredLeftOf0DropsTheSize) {
    stored("Left", "0");
    stored("Top", "450");
    stored("Width", "6000");
    stored("Height", "5000");
    open();
    EXPECT_EQ(seek->pos(), QPoint(0, 0));
    EXPECT_EQ(seek->size(), QSize(520, 460));
}

TEST_F(SeekWindow, TheOlderFileIsReadAsLongAsTheStoreWasNeverWritten) {
    QFile file(folder.filePath(QStringLiteral("seek.def")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("150,225,6000,6900\n") > 0);
    file.close();
    open();
    EXPECT_EQ(seek->pos(), QPoint(10, 15));
    EXPECT_EQ(seek->size(), QSize(400, 460));
}

TEST_F(SeekWindow, AStoredSizeBelowTheLeastIsRaisedToIt) {
    stored("Left", "15");
    stored("Top", "15");
    stored("Width", "1");
    stored("Height", "1");
    open();
    EXPECT_EQ(seek->size(), QSize(200, 103));
    EXPECT_EQ(plot().graph().geometry.CellSize, 30);
}

TEST_F(SeekWindow, TheFocusIsOffTheVisibleArea) {
    open();
    EXPECT_EQ(seek->focusWidget(), &part("cmddummy"));
    EXPECT_EQ(part("cmddummy").x(), seek->width() + 20);
}

TEST_F(SeekWindow, TheGraphIsWhiteOrHasTheConsolesColours) {
    modChess.ColorBackground = 0x203040;
    modChess.ColorMain = 0xA0B0C0;
    const auto paper = [this] { return plot().grab().toImage().pixelColor(1, 1); };
    const auto ink = [this] { // of the base line
        const GraphGeometry& at = plot().graph().geometry;
        return plot().grab().toImage().pixelColor(at.RightX / 15 - 20, at.BaseY / 15);
    };
    modChess.SeekWhite = -1;
    open();
    EXPECT_EQ(paper(), QColor(255, 255, 255));
    EXPECT_EQ(ink(), QColor(0, 0, 0));
    seek->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    modChess.SeekWhite = 0;
    open();
    EXPECT_EQ(paper(), QColor(0x40, 0x30, 0x20));
    EXPECT_EQ(ink(), QColor(0xC0, 0xB0, 0xA0));
}

// The poll

TEST_F(SeekWindow, TheFirstQuestionComesByItselfAndEnablesTheButton) {
    open();
    EXPECT_FALSE(part("cmdSeek").isEnabled());
    ASSERT_TRUE(waitUntil([this] { return sent.size() == 3; }));
    EXPECT_THAT(sent, ElementsAre("Set Seek 0", "state 6", "sought"));
    EXPECT_TRUE(part("cmdSeek").isEnabled());
    EXPECT_TRUE(modChess.gConsoleQuiet);
    EXPECT_EQ(part<QTimer>("tmrSeek").interval(), 4000);
}

TEST_F(SeekWindow, AnAnswerRestartsTheTimerWithTwoSeconds) {
    open();
    threeAds();
    EXPECT_EQ(part<QTimer>("tmrSeek").interval(), 2000);
    EXPECT_TRUE(part<QTimer>("tmrSeek").isActive());
    EXPECT_EQ(seek->windowTitle(), QStringLiteral("Seek Graph (3 Ads)"));
}

// Closing

TEST_F(SeekWindow, ClosedByTheUserTheTickGoes) {
    open();
    seek->close();
    EXPECT_EQ(closedByUser, 1);
    EXPECT_FALSE(modChess.gSeekOn);
    EXPECT_EQ(openWindows.count("frmSeek"), 0);
}

TEST_F(SeekWindow, UnloadedByTheProgramTheTickStays) {
    open();
    openWindows.unload("frmSeek");
    EXPECT_EQ(closedByUser, 0);
    EXPECT_FALSE(modChess.gSeekOn);
    EXPECT_EQ(openWindows.count("frmSeek"), 0);
}

TEST_F(SeekWindow, ClosedItPollsNoMoreAndTheConsoleIsHeardAgain) {
    open();
    modChess.gConsoleQuiet = true;
    modChess.Deadlines[2] = 5;
    QTimer& timer = part<QTimer>("tmrSeek");
    seek->close();
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(modChess.Deadlines[2], 0);
    EXPECT_FALSE(modChess.gConsoleQuiet);
}

TEST_F(SeekWindow, ItsPlaceIsKept) {
    open();
    seek->move(40, 50);
    seek->close();
    EXPECT_EQ(kept("Left"), "600");
    EXPECT_EQ(kept("Top"), "750");
    EXPECT_EQ(kept("Width"), "7800");
    EXPECT_EQ(kept("Height"), "6900");
}

TEST_F(SeekWindow, AMinimisedOneIsSetBackForItsPlace) {
    open();
    seek->setWindowState(Qt::WindowMinimized);
    seek->close();
    EXPECT_FALSE(seek->isMinimized());
    EXPECT_EQ(kept("Width"), "7800");
}

TEST_F(SeekWindow, AnAnswerBehindItsEndDrawsNothing) {
    open();
    seek->close();
    add(11, "Anders", 5);
    answer();
    EXPECT_EQ(table.SeekAdCount, 1) << "the next capture goes on from here";
}

TEST_F(SeekWindow, OpenedAgainItStartsAnew) {
    open();
    seek->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open();
    EXPECT_THAT(sent, ElementsAre("Set Seek 0", "Set Seek 0"));
    EXPECT_EQ(part<QTimer>("tmrSeek").interval(), 100);
    EXPECT_FALSE(part("cmdSeek").isEnabled());
}

// Size

TEST_F(SeekWindow, AResizeTakesEffectWithTheNextAnswer) {
    open();
    seek->resize(450, 370);
    EXPECT_EQ(plot().graph().geometry.CellSize, 240);
    answer();
    EXPECT_EQ(plot().graph().geometry.CellSize, 180); // 12.47 pixels
    EXPECT_EQ(seek->size(), QSize(450, 25 * 12 + 6 + 52)) << "whole cells";
}

TEST_F(SeekWindow, AResizeWhileAnAnswerIsUnderWayWaitsForItsEnd) {
    open();
    threeAds();
    add(14, "Dora", 5);
    seek->resize(450, 370);
    EXPECT_EQ(plot().graph().geometry.CellSize, 240);
    EXPECT_LE(plot().pixels(plot().graph().geometry.BaseY), plot().height()) << "all of it can be seen meanwhile";
    add(15, "Emil", 10);
    answer();
    EXPECT_EQ(plot().graph().DotsDrawn, 2);
    EXPECT_EQ(plot().graph().geometry.CellSize, 180);
}

TEST_F(SeekWindow, WithoutAResizeNothingIsLaidOutAgain) {
    open();
    tall = true; // which would show
    answer();
    EXPECT_EQ(seek->height(), 460);
}

TEST_F(SeekWindow, TallTitleBarsMakeItSevenPixelsHigher) {
    tall = true;
    open();
    EXPECT_EQ(seek->height(), 467);
    EXPECT_EQ(plot().height(), 409) << "the graph is as high as without";
}

TEST_F(SeekWindow, TheGraphIsLaidOutFromTheLeastSizeToAFullScreen) {
    open();
    for (const QSize size :
         {QSize(200, 103), QSize(200, 1000), QSize(3000, 103), QSize(1920, 1080), QSize(7680, 4320)}) {
        seek->resize(size);
        for (int i = 0; i < 201; ++i) add(i, "Anders", 1 + i % 60, 1000 + 10 * i);
        answer();
        EXPECT_EQ(plot().graph().DotsDrawn, 201) << size.height();
        EXPECT_GE(plot().graph().geometry.CellSize, 30);
        EXPECT_NEAR(seek->width(), size.width(), 1);
        const int below = seek->height() - plot().height();
        EXPECT_EQ(below, 51);
        EXPECT_LE(plot().graph().geometry.BaseY, 15 * plot().height());
    }
}

TEST_F(SeekWindow, AMaximisedWindowKeepsItsSizeAndShowsTheWholeGraph) {
    open();
    seek->setWindowState(Qt::WindowMaximized);
    ASSERT_TRUE(waitUntil([this] { return seek->height() > 500; }));
    const QSize full = seek->size();
    threeAds();
    EXPECT_EQ(seek->size(), full);
    EXPECT_LE(plot().pixels(plot().graph().geometry.BaseY), plot().height());
    press(dot(1));
    EXPECT_EQ(sent.back(), "Play 12");
}

TEST_F(SeekWindow, TheButtonsRightEdgeStandsOnTheRightEndOfTheGraph) {
    open();
    EXPECT_EQ(part("cmdSeek").x() + part("cmdSeek").width(), 510);
    seek->resize(700, 500);
    answer();
    EXPECT_EQ(part("cmdSeek").x() + part("cmdSeek").width(), plot().graph().geometry.RightX / 15);
}

TEST_F(SeekWindow, LayingOutGivesTheFocusBack) {
    open();
    threeAds();
    plot().setFocus();
    answer();
    EXPECT_EQ(seek->focusWidget(), &plot());
    seek->resize(700, 500);
    answer();
    EXPECT_EQ(seek->focusWidget(), &part("cmddummy"));
    plot().setFocus();
    answer();
    EXPECT_EQ(seek->focusWidget(), &plot()) << "the resize has had its effect";
}

// The pointer

TEST_F(SeekWindow, TheLeftButtonPlaysTheAd) {
    open();
    threeAds();
    sent.clear();
    press(dot(1));
    EXPECT_THAT(sent, ElementsAre("Play 12"));
    EXPECT_THAT(popups, IsEmpty());
}

TEST_F(SeekWindow, ADoubleClickPlaysOnce) {
    open();
    threeAds();
    sent.clear();
    press(dot(1));
    QTest::mouseDClick(&plot(), Qt::LeftButton, {}, dot(1)); // the second half alone
    EXPECT_THAT(sent, ElementsAre("Play 12"));
}

TEST_F(SeekWindow, TheMenuComesUpHoweverSoonItIsAskedForAgain) {
    open();
    threeAds();
    press(dot(1), Qt::RightButton);
    QTest::mouseDClick(&plot(), Qt::RightButton, {}, dot(1));
    EXPECT_THAT(popups, ElementsAre("mnuCmd", "mnuCmd"));
}

TEST_F(SeekWindow, BesideTheDotsNothingHappens) {
    open();
    threeAds();
    sent.clear();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) press(QPoint(2, 2), button);
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(popups, IsEmpty());
}

TEST_F(SeekWindow, AnyOtherButtonBringsTheMenu) {
    open();
    threeAds();
    sent.clear();
    press(dot(0), Qt::RightButton);
    press(dot(0), Qt::MiddleButton);
    EXPECT_THAT(popups, ElementsAre("mnuCmd", "mnuCmd"));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(SeekWindow, TheMenusCommandsAreAboutTheSeekerWithoutHisMarks) {
    open();
    threeAds();
    sent.clear();
    press(dot(0), Qt::RightButton);
    for (const char* entry : {"mnuFinger", "mnuAssess", "mnuPlay"}) choose(entry);
    EXPECT_THAT(sent, ElementsAre("fi Anders", "ass Anders", "Play Anders"));
}

TEST_F(SeekWindow, HistoryOfTheMenuIsAskedForTheSeekerWithoutHisMarks) {
    open();
    threeAds();
    sent.clear();
    press(dot(0), Qt::RightButton);
    ASSERT_TRUE(part<QAction>("mnuHistory").isEnabled());
    choose("mnuHistory");
    EXPECT_THAT(historyAsked, ElementsAre("Anders"));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(SeekWindow, MatchOfTheMenuComposesAChallengeToTheSeeker) {
    open();
    threeAds();
    press(dot(1), Qt::RightButton);
    choose("mnuMatch");
    const auto* dialog = loadedWindow<frmMatch>();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(modChess.MatchMode);
    EXPECT_EQ(dialog->challenge().txtOpp, "Berta");
}

TEST_F(SeekWindow, TheStatusLineAndTheToolTipTellTheAdUnderThePointer) {
    open();
    threeAds();
    point(dot(1));
    EXPECT_EQ(status(), "Berta (1540) seeks blitz 15 0 rated    0-9999");
    EXPECT_EQ(plot().toolTip(), QStringLiteral("Berta (1540) seeks blitz 15 0 rated    0-9999"));
    point(QPoint(2, 2));
    EXPECT_EQ(status(), "");
    EXPECT_EQ(plot().toolTip(), QString());
}

TEST_F(SeekWindow, TheToolTipGoesWhenThePointerLeavesItsDot) {
    open();
    threeAds();
    ASSERT_TRUE(QTest::qWaitForWindowActive(seek.data()));
    point(dot(1));
    QHelpEvent rest(QEvent::ToolTip, dot(1), plot().mapToGlobal(dot(1)));
    QCoreApplication::sendEvent(&plot(), &rest);
    ASSERT_TRUE(QToolTip::isVisible());
    point(dot(1) + QPoint(1, 1));
    EXPECT_FALSE(waitUntil([] { return !QToolTip::isVisible(); }, 500)) << "it stays on the dot";
    point(QPoint(2, 2));
    EXPECT_TRUE(waitUntil([] { return !QToolTip::isVisible(); }, 5000)) << "ten seconds on, it goes by itself";
}

TEST_F(SeekWindow, AToolTipIsNeverMarkup) {
    open();
    add(11, "<b>x</b>", 5);
    answer();
    point(dot(0));
    EXPECT_EQ(status().substr(0, 8), "<b>x</b>");
    QHelpEvent rest(QEvent::ToolTip, dot(0), plot().mapToGlobal(dot(0)));
    QCoreApplication::sendEvent(&plot(), &rest);
    ASSERT_NE(shownTip(), nullptr);
    EXPECT_EQ(shownTip()->text().left(8), QStringLiteral("<b>x</b>"));
    EXPECT_EQ(shownTip()->textFormat(), Qt::PlainText);
    QToolTip::hideText();
}

TEST_F(SeekWindow, ThePointerLeavesAndTheStatusLineIsEmpty) {
    open();
    threeAds();
    point(dot(1));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&plot(), &leave);
    EXPECT_EQ(status(), "");
}

TEST_F(SeekWindow, WhileAnAnswerComesInTheStatusLineReadsTheTableOfThatMoment) {
    open();
    threeAds();
    add(21, "Newer", 30);
    point(dot(0));
    EXPECT_EQ(status(), "Newer (1540) seeks blitz 30 0 rated    0-9999");
}

TEST_F(SeekWindow, TheHandOverADotSaysThatItCanBeClicked) {
    open();
    threeAds();
    point(dot(0));
    EXPECT_EQ(plot().cursor().shape(), Qt::PointingHandCursor);
    point(QPoint(2, 2));
    EXPECT_EQ(plot().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SeekWindow, TheButtonComposesASeek) {
    modChess.MatchMode = true;
    open();
    tick();
    part<QPushButton>("cmdSeek").click();
    EXPECT_FALSE(modChess.MatchMode);
    ASSERT_TRUE(loadedWindow<frmMatch>());
    EXPECT_EQ(seek->focusWidget(), &part("cmddummy"));
}

// The keyboard

TEST_F(SeekWindow, WhatIsTypedGoesOnInTheConsoleWhereverTheFocusIs) {
    open();
    tick();
    for (QWidget* focus :
         {&part("cmddummy"), &part("cmdSeek"), static_cast<QWidget*>(&plot()), static_cast<QWidget*>(seek)}) {
        typed.clear();
        focus->setFocus();
        QTest::keyClicks(focus, QStringLiteral("te ll"));
        EXPECT_EQ(typed, "te ll") << focus->objectName().toStdString();
    }
    EXPECT_FALSE(loadedWindow<frmMatch>()) << "a blank does not press the button";
}

TEST_F(SeekWindow, CommandsAreNotTyped) {
    open();
    QTest::keyClick(seek.data(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(seek.data(), Qt::Key_Return);
    QTest::keyClick(seek.data(), Qt::Key_Backspace);
    EXPECT_EQ(typed, "");
    EXPECT_THAT(sent, ElementsAre("Set Seek 0"));
}

TEST_F(SeekWindow, EnterOnTheButtonPressesIt) {
    open();
    tick();
    threeAds();
    QTest::keyClick(seek.data(), Qt::Key_Down);
    part("cmdSeek").setFocus();
    sent.clear();
    QTest::keyClick(&part("cmdSeek"), Qt::Key_Return);
    EXPECT_TRUE(loadedWindow<frmMatch>());
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(SeekWindow, ArrowKeysWalkTheDotsInTheOrderOfTheTable) {
    open();
    threeAds();
    QWidget* focus = &part("cmddummy");
    std::vector<int> walked;
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Up,
                              Qt::Key_Left, Qt::Key_End, Qt::Key_Home}) {
        QTest::keyClick(focus, key);
        walked.push_back(plot().chosenDot());
        focus = &plot();
    }
    EXPECT_THAT(walked, ElementsAre(0, 1, 2, 2, 1, 0, 0, 2, 0));
    EXPECT_EQ(seek->focusWidget(), &plot());
}

TEST_F(SeekWindow, EnterPlaysTheChosenAd) {
    open();
    threeAds();
    QTest::keyClick(seek.data(), Qt::Key_Left);
    sent.clear();
    QTest::keyClick(&plot(), Qt::Key_Return);
    EXPECT_THAT(sent, ElementsAre("Play 13"));
    EXPECT_EQ(status(), "Carla (1540) seeks blitz 30 0 rated    0-9999");
}

TEST_F(SeekWindow, TheChoiceStaysWithItsAdWhileOthersComeAndGo) {
    open();
    threeAds();
    QTest::keyClick(seek.data(), Qt::Key_End);
    add(13, "Carla", 30);
    answer();
    EXPECT_EQ(plot().chosenDot(), 0);
    sent.clear();
    QTest::keyClick(&plot(), Qt::Key_Return);
    EXPECT_THAT(sent, ElementsAre("Play 13"));
}

TEST_F(SeekWindow, AChosenAdThatHasGoneIsNotPlayedAndTheWalkGoesOnFromItsPlace) {
    open();
    threeAds();
    QTest::keyClick(seek.data(), Qt::Key_Right);
    QTest::keyClick(seek.data(), Qt::Key_Right);
    add(11, "Anders", 5);
    add(13, "Carla", 30);
    answer();
    EXPECT_EQ(plot().chosenDot(), -1);
    sent.clear();
    QTest::keyClick(&plot(), Qt::Key_Return);
    EXPECT_THAT(sent, IsEmpty());
    QTest::keyClick(&plot(), Qt::Key_Left);
    EXPECT_EQ(plot().chosenDot(), 0);
}

TEST_F(SeekWindow, TheWalkGoesOnFromWhereTheChosenAdIsNow) {
    open();
    for (int i = 1; i <= 4; ++i) add(i, "Anders", 10 * i);
    answer();
    QTest::keyClick(seek.data(), Qt::Key_Right);
    QTest::keyClick(&plot(), Qt::Key_Right);
    for (int i = 2; i <= 4; ++i) add(i, "Anders", 10 * i); // the chosen one is the first now
    answer();
    QTest::keyClick(&plot(), Qt::Key_Right);
    EXPECT_EQ(plot().chosenDot(), 1);
}

TEST_F(SeekWindow, BehindAnAdThatHasGoneTheNextOneIsNotPassedOver) {
    open();
    for (int i = 1; i <= 4; ++i) add(i, "Anders", 10 * i);
    answer();
    QTest::keyClick(seek.data(), Qt::Key_Right);
    QTest::keyClick(&plot(), Qt::Key_Right);
    for (const int number : {1, 3, 4}) add(number, "Anders", 10 * number);
    answer();
    sent.clear();
    QTest::keyClick(&plot(), Qt::Key_Right);
    QTest::keyClick(&plot(), Qt::Key_Return);
    EXPECT_THAT(sent, ElementsAre("Play 3"));
}

TEST_F(SeekWindow, KeysWithAModifierNeitherWalkNorPlay) {
    open();
    threeAds();
    QTest::keyClick(seek.data(), Qt::Key_Right);
    sent.clear();
    for (const Qt::KeyboardModifier held : {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier}) {
        QTest::keyClick(&plot(), Qt::Key_Right, held);
        QTest::keyClick(&plot(), Qt::Key_Return, held);
    }
    EXPECT_EQ(plot().chosenDot(), 0);
    EXPECT_THAT(sent, IsEmpty());
    QTest::keyClick(&plot(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(sent, ElementsAre("Play 11"));
}

TEST_F(SeekWindow, AnEmptyGraphHasNothingToWalk) {
    open();
    QTest::keyClick(seek.data(), Qt::Key_Right);
    QTest::keyClick(seek.data(), Qt::Key_End);
    EXPECT_EQ(plot().chosenDot(), -1);
}

TEST_F(SeekWindow, EscapeTakesTheChoiceBack) {
    open();
    threeAds();
    QTest::keyClick(seek.data(), Qt::Key_Right);
    QTest::keyClick(&plot(), Qt::Key_Escape);
    EXPECT_EQ(plot().chosenDot(), -1);
    EXPECT_EQ(status(), "");
    EXPECT_EQ(seek->focusWidget(), &part("cmddummy"));
}
