// The help panel: what its controls ask, what it shows of an answer, where its parts and the window stand.
#include "panels/HelpWindowRig.h"

#include "platform/Colors.h"

#include <QAccessible>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>

#include <fstream>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class HelpWindow : public HelpWindowRig {
protected:
    void ask(const char* topic) {
        opened();
        setTopic(topic);
        press("cmdGo");
    }
    void enter() const {
        QTest::keyClick(&txtHelp(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    QColor colorOfLine(int line) const {
        const QTextBlock block = pane().document()->findBlockByNumber(line);
        return block.begin().fragment().charFormat().foreground().color();
    }
    bool atTop() const { return pane().verticalScrollBar()->value() == 0; }
    void size(int width, int height) {
        window->resize(width, height);
        QCoreApplication::processEvents();
    }
    QRect place(const char* name) const { return part(name).geometry(); }
    void useFont(int points) {
        QFont larger = window->font();
        larger.setPointSize(points);
        window->setFont(larger);
        QCoreApplication::processEvents();
    }
    // No part is cut or hides another.
    void expectRoom() const {
        const std::vector<const char*> row{"txtHelp", "cmdGo", "cmdClear", "cmdExit", "chkAuto", "lblRcvData"};
        label().show();
        for (const char* name : row) {
            const QRect at = place(name);
            EXPECT_GE(at.height(), part(name).minimumSizeHint().height()) << name;
            EXPECT_TRUE(window->rect().contains(at)) << name;
            EXPECT_FALSE(at.intersects(place("txtHelpInfo"))) << name;
            EXPECT_TRUE(row.front() == name || at.width() >= part(name).sizeHint().width()) << name;
        }
        for (std::size_t i = 1; i < row.size(); ++i) EXPECT_GT(place(row[i]).left(), place(row[i - 1]).right());
        EXPECT_GE(place("txtHelp").width(), 60);
    }
};

} // namespace

// Opening

TEST_F(HelpWindow, ItsCaptionsAreThosePrescribed) {
    open();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Help Panel"));
    EXPECT_EQ(part<QPushButton>("cmdClear").text().remove(u'&'), QStringLiteral("Clear"));
    EXPECT_EQ(part<QPushButton>("cmdExit").text().remove(u'&'), QStringLiteral("Exit"));
    EXPECT_EQ(part<QCheckBox>("chkAuto").text().remove(u'&'), QStringLiteral("Auto Clear"));
    EXPECT_TRUE(part<QCheckBox>("chkAuto").isChecked());
    EXPECT_EQ(label().text(), QStringLiteral("Receiving Data"));
    EXPECT_TRUE(label().isHidden());
    EXPECT_EQ(part<QTimer>("tmrHelp").interval(), 100);
    EXPECT_TRUE(part<QTimer>("tmrHelp").isActive());
}

TEST_F(HelpWindow, TheFirstTickTakesTheKeyboardToTheTopicAndAsksNothing) {
    opened();
    EXPECT_EQ(window->focusWidget(), &txtHelp());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_FALSE(part<QTimer>("tmrHelp").isActive());
}

TEST_F(HelpWindow, ATopicThatWaitsIsTakenAndAskedFor) {
    modChess.gHelpTopic = "seek";
    opened();
    EXPECT_EQ(txtHelp().line(), "seek");
    EXPECT_EQ(modChess.gHelpTopic, "");
    EXPECT_THAT(asked, ElementsAre("state 8", "Help seek"));
}

TEST_F(HelpWindow, OpenedAgainItIsTheSameWindowAndStartsNothing) {
    const frmChessHelp* first = &opened();
    EXPECT_EQ(&open(), first);
    EXPECT_FALSE(part<QTimer>("tmrHelp").isActive());
}

TEST_F(HelpWindow, StartedWhileItIsOpenItTakesTheNewTopic) {
    const frmChessHelp* first = &opened();
    modChess.gHelpTopic = "match";
    frmChessHelp::startIt(roads);
    tick();
    EXPECT_THAT(asked, ElementsAre("state 8", "Help match"));
    EXPECT_EQ(loadedWindow<frmChessHelp>(), first);
}

TEST_F(HelpWindow, TheOptionsColoursAndFontAreTaken) {
    modChess.MainFont = "Some Typewriter";
    open();
    EXPECT_EQ(pane().palette().color(QPalette::Base), colorOf(0xF0E0D0));
    EXPECT_EQ(txtHelp().palette().color(QPalette::Base), colorOf(0x102030));
    EXPECT_EQ(txtHelp().palette().color(QPalette::Text), colorOf(0xA0B0C0));
    EXPECT_EQ(pane().font().family(), QStringLiteral("Some Typewriter"));
    EXPECT_EQ(txtHelp().font().family(), QStringLiteral("Some Typewriter"));
}

TEST_F(HelpWindow, ChangedOptionsAreTakenWhileItIsOpenAndOldTextKeepsItsColour) {
    opened();
    answer(helpLines(1));
    modChess.ColorMain = 0x00FF00;
    modChess.ColorBackground = 0x010101;
    modChess.ColorBar = 0x020202;
    modChess.ColorType = 0x030303;
    modChess.MainFont = "Some Typewriter";
    openWindows.windows.back().takeLook();
    part<QCheckBox>("chkAuto").setChecked(false);
    answer(helpLines(1, 2));
    EXPECT_EQ(pane().palette().color(QPalette::Base), colorOf(0x010101));
    EXPECT_EQ(txtHelp().palette().color(QPalette::Base), colorOf(0x020202));
    EXPECT_EQ(txtHelp().palette().color(QPalette::Text), colorOf(0x030303));
    EXPECT_EQ(pane().font().family(), QStringLiteral("Some Typewriter"));
    EXPECT_EQ(txtHelp().font().family(), QStringLiteral("Some Typewriter"));
    EXPECT_EQ(colorOfLine(0), colorOf(0x112233));
    EXPECT_EQ(colorOfLine(1), colorOf(0x00FF00));
}

// Asking

TEST_F(HelpWindow, GoTellsThatItAsksAndCountsBlocksFromTheBeginning) {
    modChess.HelpBlock = 4;
    modChess.HelpCount = 9;
    ask("seek");
    EXPECT_EQ(progress(), "Sending Help Cmd");
    EXPECT_EQ(modChess.HelpBlock, 0);
    EXPECT_EQ(modChess.HelpCount, 0);
    EXPECT_THAT(asked, ElementsAre("state 8", "Help seek"));
}

TEST_F(HelpWindow, EnterInTheTopicAsksWithoutTheLabelAndBlocksGoOnBeingCounted) {
    opened();
    setTopic("seek");
    modChess.HelpBlock = 4;
    enter();
    EXPECT_EQ(progress(), "(hidden)");
    EXPECT_EQ(modChess.HelpBlock, 4);
    EXPECT_THAT(asked, ElementsAre("state 8", "Help seek"));
    EXPECT_EQ(txtHelp().line(), "seek");
}

TEST_F(HelpWindow, ABlockShowsInTheLabelWhichEnterDoesNotShow) {
    ask("seek");
    capture.blockRead("Received Blk 1");
    EXPECT_EQ(progress(), "Received Blk 1");
    answer({});
    enter();
    capture.blockRead("Received Blk 2");
    EXPECT_EQ(progress(), "(hidden)");
    EXPECT_EQ(label().text(), QStringLiteral("Received Blk 2"));
}

TEST_F(HelpWindow, WithAutoClearAQuestionEmptiesThePaneAtOnceAndWithoutItNot) {
    opened();
    answer(helpLines(3));
    part<QCheckBox>("chkAuto").setChecked(false);
    press("cmdGo");
    EXPECT_EQ(pane().text(), "line 1\nline 2\nline 3\n");
    part<QCheckBox>("chkAuto").setChecked(true);
    busy = true;
    modChess.gHelpTopic.clear();
    QTimer::singleShot(30, window, [this] {
        EXPECT_EQ(pane().text(), "") << "before its turn has come";
        busy = false;
    });
    press("cmdGo");
    EXPECT_EQ(pane().text(), "");
}

TEST_F(HelpWindow, ItWaitsForAnotherAnswer) {
    opened();
    setTopic("seek");
    busy = true;
    QTimer::singleShot(50, window, [this] {
        EXPECT_THAT(asked, IsEmpty());
        busy = false;
    });
    press("cmdGo");
    EXPECT_THAT(asked, ElementsAre("state 8", "Help seek"));
}

TEST_F(HelpWindow, ClosedInTheWaitItAsksNothing) {
    opened();
    busy = true;
    QTimer::singleShot(30, window, [this] { window->close(); });
    for (const bool byEnter : {false, true}) {
        if (byEnter) {
            opened();
            QTimer::singleShot(30, window, [this] { window->close(); });
            enter();
        } else {
            press("cmdGo");
        }
        ASSERT_TRUE(waitUntil([this] { return window.isNull(); }));
        EXPECT_THAT(asked, IsEmpty());
    }
    busy = false;
    runFor(50);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HelpWindow, GoLetsTheLoopRunBeforeItAsksAndClosedMeanwhileItAsksNothing) {
    opened();
    QTimer::singleShot(0, window, [this] { window->close(); });
    press("cmdGo");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(HelpWindow, ClosedBeforeItsFirstTickItLeavesTheTopic) {
    modChess.gHelpTopic = "seek";
    open();
    window->close();
    runFor(150);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(modChess.gHelpTopic, "seek");
}

TEST_F(HelpWindow, ATopicThatWasPastedInTwoLinesIsOneCommand) {
    ask("seek\nquit");
    EXPECT_EQ(asked.back(), "Help seek quit");
}

// What shows

TEST_F(HelpWindow, AnAnswerStandsLineByLineInTheMainColour) {
    opened();
    answer({"\r\n", "seek      set\r\n", "  more    columns\r\n"});
    EXPECT_EQ(pane().text(), "\nseek      set\n  more    columns\n");
    EXPECT_EQ(colorOfLine(1), colorOf(0x112233));
}

TEST_F(HelpWindow, ColumnsStayBelowEachOther) {
    opened();
    answer({"iiii|\r\n", "WWWW|\r\n", "    |\r\n"});
    QTextCursor at(pane().document());
    std::vector<int> places;
    for (int line = 0; line < 3; ++line) {
        at.setPosition(pane().document()->findBlockByNumber(line).position() + 4);
        places.push_back(pane().cursorRect(at).left());
    }
    EXPECT_THAT(places, testing::Each(places.front()));
}

TEST_F(HelpWindow, ABarePromptIsNotShownAndALineThatHoldsItIs) {
    opened();
    answer({"line 1\r\n", "fics% ", "line 2\r\n", "fics% and more\r\n"});
    EXPECT_EQ(pane().text(), "line 1\nline 2\nfics% and more\n");
}

TEST_F(HelpWindow, AnAnswerHidesTheLabel) {
    ask("seek");
    answer(helpLines(1));
    EXPECT_EQ(progress(), "(hidden)");
}

TEST_F(HelpWindow, TheReaderStartsAtTheTop) {
    opened();
    answer(helpLines(300));
    EXPECT_TRUE(atTop());
    EXPECT_EQ(pane().textCursor().position(), 1);
    runFor(50);
    pane().grab();
    EXPECT_TRUE(atTop());
}

TEST_F(HelpWindow, WithoutAutoClearTheNextAnswerGoesBehindAndTheViewToTheTop) {
    opened();
    part<QCheckBox>("chkAuto").setChecked(false);
    answer(helpLines(100));
    pane().verticalScrollBar()->setValue(50);
    answer(helpLines(100, 101));
    EXPECT_EQ(pane().text().find("line 100\nline 101\n"), pane().text().find("line 100\n"));
    EXPECT_TRUE(atTop());
}

TEST_F(HelpWindow, AnAnswerOfNoLinesIsShownAsNothing) {
    ask("seek");
    answer({});
    EXPECT_EQ(pane().text(), "");
    EXPECT_EQ(progress(), "(hidden)");
}

TEST_F(HelpWindow, FiveHundredAndOneLinesAreShown) {
    opened();
    answer(helpLines(501));
    EXPECT_TRUE(pane().text().ends_with("line 501\n"));
}

TEST_F(HelpWindow, ClearEmptiesThePane) {
    opened();
    answer(helpLines(3));
    press("cmdClear");
    EXPECT_EQ(pane().text(), "");
}

TEST_F(HelpWindow, OnceClosedItIsToldOfNothing) {
    opened();
    window->close();
    modChess.HelpCount = 1;
    openWindows.answer("frmChessHelp");
    capture.blockRead("Received Blk 1");
    EXPECT_EQ(openWindows.count("frmChessHelp"), 0);
}

// By keyboard

TEST_F(HelpWindow, ThePagesTurnFromTheTopic) {
    opened();
    answer(helpLines(300));
    QTest::keyClick(&txtHelp(), Qt::Key_PageDown);
    EXPECT_FALSE(atTop());
    QTest::keyClick(&txtHelp(), Qt::Key_PageUp);
    EXPECT_TRUE(atTop());
}

TEST_F(HelpWindow, WhatIsTypedInThePageGoesToTheTopic) {
    opened();
    setTopic("se");
    pane().setFocus();
    QTest::keyClick(&pane(), Qt::Key_T);
    EXPECT_EQ(txtHelp().line(), "set");
    EXPECT_EQ(window->focusWidget(), &txtHelp());
    pane().setFocus();
    QTest::keyClick(&pane(), Qt::Key_Return);
    QTest::keyClick(&pane(), Qt::Key_Backspace);
    EXPECT_EQ(txtHelp().line(), "set");
}

TEST_F(HelpWindow, TabLeadsThroughAllOfIt) {
    opened();
    std::vector<std::string> order;
    for (int i = 0; i < 7; ++i) {
        order.push_back(window->focusWidget()->objectName().toStdString());
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(order, ElementsAre("txtHelp", "cmdGo", "cmdClear", "cmdExit", "chkAuto", "txtHelpInfo", "txtHelp"));
}

TEST_F(HelpWindow, EnterPressesTheButtonThatHasTheKeyboard) {
    opened();
    setTopic("seek");
    part("cmdGo").setFocus();
    QTest::keyClick(&part("cmdGo"), Qt::Key_Return);
    EXPECT_EQ(asked.back(), "Help seek");
}

TEST_F(HelpWindow, ExitAndEscapeClose) {
    opened();
    press("cmdExit");
    EXPECT_TRUE(window.isNull() || window->isHidden());
    opened();
    QTest::keyClick(&txtHelp(), Qt::Key_Escape);
    EXPECT_TRUE(window.isNull() || window->isHidden());
}

TEST_F(HelpWindow, EachControlHasANameForAssistiveTools) {
    open();
    for (const char* name : {"txtHelp", "cmdGo", "cmdClear", "cmdExit", "chkAuto", "txtHelpInfo"}) {
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(&part(name))->text(QAccessible::Name).isEmpty()) << name;
    }
}

// Room

TEST_F(HelpWindow, ThePaneAndTheRowTakeTheirPrescribedPlaces) {
    open();
    for (const QSize each : {QSize(680, 480), QSize(900, 300), QSize(1000, 700)}) {
        size(each.width(), each.height());
        EXPECT_EQ(place("txtHelpInfo").width(), each.width() - 120 / 15);
        EXPECT_EQ(place("txtHelpInfo").height(), each.height() - 795 / 15);
        for (const char* name : {"txtHelp", "cmdGo", "cmdClear", "cmdExit"}) {
            EXPECT_EQ(place(name).top(), each.height() - 780 / 15) << name;
        }
        for (const char* name : {"chkAuto", "lblRcvData"}) {
            EXPECT_EQ(place(name).top(), each.height() - 780 / 15 + 60 / 15) << name;
        }
    }
}

TEST_F(HelpWindow, NothingIsCutInAnyFontAtTheLeastSize) {
    opened();
    for (const int points : {8, 9, 11, 14, 20}) {
        useFont(points);
        size(1, 1);
        expectRoom();
        EXPECT_LE(window->width(), 1024) << points;
        EXPECT_LE(window->height(), 560) << points;
    }
}

TEST_F(HelpWindow, ALabelThatGrowsTakesItsRoomFromTheTopic) {
    opened();
    label().show();
    capture.blockRead("Received Blk 32767");
    EXPECT_GE(label().width(), label().sizeHint().width());
    expectRoom();
}

// Where the window stands

TEST_F(HelpWindow, AFirstOneStandsAtTheCornerInItsDesignedSize) {
    open();
    const WindowPlace start = frmChessHelp::startPlace();
    EXPECT_EQ(window->place(), start);
}

TEST_F(HelpWindow, ItComesBackToItsPlaceAndSize) {
    stored("Left", "900");
    stored("Top", "750");
    stored("Width", "12000");
    stored("Height", "6000");
    open();
    EXPECT_EQ(window->pos(), QPoint(60, 50));
    EXPECT_EQ(window->size(), QSize(800, 400));
}

TEST_F(HelpWindow, AtTheVeryCornerAndBeyondTheScreenTheSavedSizeIsDropped) {
    const QRect area = QGuiApplication::primaryScreen()->virtualGeometry();
    for (const std::string& left : {std::string("0"), std::to_string(area.width() * 15)}) {
        stored("Left", left.c_str());
        stored("Top", "750");
        stored("Width", "12000");
        stored("Height", "6000");
        open();
        EXPECT_EQ(window->place(), frmChessHelp::startPlace()) << left;
        delete window.data();
    }
}

TEST_F(HelpWindow, BeforeTheFirstOrderlyEndItsOlderFileIsRead) {
    std::ofstream("chesshelp.def") << "450,600,12000,6000\r\n";
    open();
    EXPECT_EQ(window->pos(), QPoint(30, 40));
    EXPECT_EQ(window->size(), QSize(800, 400));
}

TEST_F(HelpWindow, ClosingWritesItsSectionAMinimisedOneToo) {
    stored("Left", "900");
    stored("Top", "750");
    stored("Width", "12000");
    stored("Height", "6000");
    for (const bool minimised : {false, true}) {
        open();
        size(700, 500);
        if (minimised) window->showMinimized();
        window->close();
        EXPECT_FALSE(window->isMinimized());
        EXPECT_EQ(kept("Left"), "900");
        EXPECT_EQ(kept("Top"), "750");
        EXPECT_EQ(kept("Width"), "10500");
        EXPECT_EQ(kept("Height"), "7500");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
