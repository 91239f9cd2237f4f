// The panel of the user's variables: what it shows, what it marks, and what its buttons do.
#include "common/Fault.h"
#include "panels/PanelWindowRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* Answer = " time=2 inc=12 kiblevel=0 unobserve=1 tolerance=3 width=79 height=24 rated=1 open=1 "
                               "ctell=1 availmax=2000 Prompt: fics% \r\n";

struct VarsWindow : PanelWindowRig {
    frmICSVars& answered() {
        frmICSVars& panel = opened<frmICSVars>();
        answerVars(Answer);
        return panel;
    }
    std::string ticked() const {
        std::string all;
        for (int index = 0; index < 26; ++index) all += box(index).isChecked() ? std::to_string(index) + " " : "";
        return all;
    }
};

} // namespace

// Asking

TEST_F(VarsWindow, OpenedItIsOnTheScreenAtOnceAndAsksFromTheMessageLoop) {
    open<frmICSVars>();
    EXPECT_TRUE(window->isVisible());
    EXPECT_THAT(asked, IsEmpty());
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
    EXPECT_THAT(asked, ElementsAre("state 3", "Vars"));
    EXPECT_EQ(bytesOf(window->windowTitle()), "Variables");
    EXPECT_EQ(openWindows.count("frmICSVars"), 1);
}

TEST_F(VarsWindow, UntilItIsAnsweredItsFieldsAreEmptyAndNothingIsMarked) {
    opened<frmICSVars>();
    EXPECT_EQ(text("txtVar(0)") + text("txtVar(6)") + text("txtPrompt"), "");
    EXPECT_EQ(ticked(), "");
    EXPECT_EQ(marked(), "");
    press("cmdOK");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(VarsWindow, WhileAnotherAnswerIsCapturedItWaitsOnTheScreen) {
    busy = true;
    open<frmICSVars>();
    QTimer::singleShot(60, window, [this] {
        EXPECT_TRUE(window->isVisible());
        EXPECT_THAT(asked, IsEmpty());
        busy = false;
    });
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
}

TEST_F(VarsWindow, AfterFourSecondsItGivesUpAndStaysAsItWasDesigned) {
    double now = 1000;
    wallClock.secondsOfDay = [&now] { return now += 1; };
    busy = true;
    open<frmICSVars>();
    ASSERT_TRUE(waitUntil([&now] { return now > 1005; }));
    runFor(20);
    busy = false;
    runFor(20);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(VarsWindow, ClosedInTheWaitItAsksNothing) {
    busy = true;
    open<frmICSVars>();
    QTimer::singleShot(20, window, [this] { press("cmdCancel"); });
    ASSERT_TRUE(waitUntil([this] { return window.isNull() || !window->isVisible(); }));
    busy = false;
    runFor(30);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(openWindows.count("frmICSVars"), 0);
}

TEST_F(VarsWindow, ClosedBeforeItAskedItAsksNothing) {
    open<frmICSVars>();
    window->close();
    runFor(30);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(VarsWindow, OpenedOnceMoreTheOpenOneComesToTheFrontAndAsksNothing) {
    const frmICSVars* before = &answered();
    type("txtVar(0)", "9");
    EXPECT_EQ(&open<frmICSVars>(), before);
    runFor(30);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(text("txtVar(0)"), "9");
}

// An answer for a panel that has gone

TEST_F(VarsWindow, AnAnswerWithoutAPanelLoadsOneThatIsNotShownAndAsksOnce) {
    answerVars(Answer);
    window = loadedWindow<frmICSVars>();
    ASSERT_FALSE(window.isNull());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(text("txtVar(1)"), "12");
    EXPECT_THAT(asked, IsEmpty()) << "never where the answer is read";
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
    answerVars(Answer);
    runFor(50);
    EXPECT_THAT(asked, ElementsAre("state 3", "Vars"));
    EXPECT_EQ(openWindows.count("frmICSVars"), 1);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(VarsWindow, OneThatWasNeverShownIsShownByTheMenuAndAsksAnew) {
    answerVars(Answer);
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
    asked.clear();
    open<frmICSVars>();
    EXPECT_TRUE(window->isVisible());
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
    EXPECT_EQ(openWindows.count("frmICSVars"), 1);
}

TEST_F(VarsWindow, OneThatWaitsUnseenAndIsShownByTheMenuAsksOnce) {
    busy = true;
    answerVars(Answer);
    QTimer::singleShot(20, [this] {
        EXPECT_FALSE(loadedWindow<frmICSVars>()->isVisible());
        open<frmICSVars>();
    });
    QTimer::singleShot(80, [this] { busy = false; });
    ASSERT_TRUE(waitUntil([this] { return asked.size() >= 2; }));
    runFor(50);
    EXPECT_THAT(asked, ElementsAre("state 3", "Vars"));
}

// Answers

TEST_F(VarsWindow, AnAnswerFillsTheControls) {
    answered();
    const char* const numbers[] = {"2", "12", "0", "1", "3", "79", "24"};
    for (int index = 0; index < 7; ++index) {
        EXPECT_EQ(text("txtVar(" + std::to_string(index) + ")"), numbers[index]) << index;
    }
    EXPECT_EQ(ticked(), "0 1 5 19 ");
    EXPECT_EQ(text("txtPrompt"), "fics% ");
    EXPECT_EQ(marked(), "");
}

TEST_F(VarsWindow, AnAnswerTakesBackWhatTheUserChanged) {
    answered();
    type("txtVar(0)", "9");
    box(3).click();
    type("txtPrompt", "x");
    answerVars("inc=5");
    EXPECT_EQ(text("txtVar(0)"), "2");
    EXPECT_EQ(text("txtVar(1)"), "5");
    EXPECT_EQ(text("txtPrompt"), "fics% ");
    EXPECT_EQ(ticked(), "0 1 5 19 ");
    EXPECT_EQ(marked(), "");
}

TEST_F(VarsWindow, ANumberBeyondSixteenBitsFaultsLikeAnyOfTheServers) {
    opened<frmICSVars>();
    EXPECT_THROW(answerVars("time=99999"), Fault);
}

// Marks

TEST_F(VarsWindow, AnotherNumberMarksItsLabelAndTheSameOneUnmarksIt) {
    answered();
    type("txtVar(0)", "9");
    EXPECT_TRUE(red("lblVar(0)"));
    EXPECT_EQ(marked(), "txtVar(0) ");
    type("txtVar(0)", "2 minutes");
    EXPECT_FALSE(red("lblVar(0)"));
    EXPECT_EQ(marked(), "");
    type("txtVar(0)", "99999999");
    EXPECT_TRUE(red("lblVar(0)"));
}

TEST_F(VarsWindow, ABoxTickedAndUntickedIsNoChange) {
    answered();
    box(2).click();
    EXPECT_TRUE(red("chkVar(2)"));
    EXPECT_EQ(marked(), "chkVar(2) ");
    box(2).click();
    EXPECT_FALSE(red("chkVar(2)"));
    press("cmdOK");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(VarsWindow, AFlagBeyondOneIsTickedAndUnchangedAndAnyClickIsAChange) {
    answered();
    EXPECT_TRUE(box(5).isChecked());
    EXPECT_FALSE(red("chkVar(5)"));
    box(5).click();
    EXPECT_TRUE(red("chkVar(5)"));
    box(5).click();
    EXPECT_TRUE(red("chkVar(5)")) << "a tick is 1, and the server said 2000";
    press("cmdCurrent");
    EXPECT_FALSE(red("chkVar(5)"));
}

TEST_F(VarsWindow, AnotherPromptMarksItsLabel) {
    answered();
    type("txtPrompt", "fics%");
    EXPECT_TRUE(red("lblPrompt"));
    type("txtPrompt", "fics% ");
    EXPECT_FALSE(red("lblPrompt"));
}

TEST_F(VarsWindow, CurrentGoesBackToTheServersValues) {
    answered();
    type("txtVar(3)", "7");
    box(0).click();
    type("txtPrompt", "x");
    press("cmdCurrent");
    EXPECT_EQ(text("txtVar(3)"), "1");
    EXPECT_EQ(ticked(), "0 1 5 19 ");
    EXPECT_EQ(text("txtPrompt"), "fics% ");
    EXPECT_EQ(marked(), "");
    EXPECT_TRUE(window->isVisible());
}

TEST_F(VarsWindow, InADarkPaletteTheMarkIsALighterRedAndFollowsAChange) {
    answered();
    box(2).click();
    EXPECT_EQ(box(2).palette().color(QPalette::WindowText), QColor(255, 0, 0));
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    window->setPalette(dark);
    EXPECT_EQ(box(2).palette().color(QPalette::WindowText), QColor(255, 128, 128));
    EXPECT_EQ(box(1).palette().color(QPalette::WindowText), QColor(Qt::white)) << "unchanged ones are as all others";
}

// OK, Cancel

TEST_F(VarsWindow, OKSendsTheChangesWithPausesAndCloses) {
    answered();
    type("txtVar(5)", "80");
    box(0).click();
    box(2).click();
    type("txtPrompt", "go>");
    const auto begin = std::chrono::steady_clock::now();
    press("cmdOK");
    const double took = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    EXPECT_THAT(asked, ElementsAre("Set Width 80", "Set Rated", "Set ROpen", "Set Prompt go>"));
    EXPECT_GE(took, 3 * 0.22) << "three pauses, and none behind the prompt";
    EXPECT_EQ(modChess.gPrompt, "go> ");
    EXPECT_EQ(openWindows.count("frmICSVars"), 0);
}

TEST_F(VarsWindow, WhatIsPastedWithLineEndsIsOneLine) {
    answered();
    field("txtVar(0)").setText(QStringLiteral("5\nquit\r\nquit"));
    press("cmdOK");
    EXPECT_THAT(asked, ElementsAre("Set Time 5 quit  quit"));
}

TEST_F(VarsWindow, WhileItSendsItTakesNoInputAndASecondOKSendsNothing) {
    answered();
    box(0).click();
    bool looked = false;
    QTimer::singleShot(50, window, [&] {
        EXPECT_FALSE(window->isEnabled());
        EXPECT_TRUE(window->isVisible());
        press("cmdOK");
        QTest::keyClick(window, Qt::Key_Return);
        looked = true;
    });
    press("cmdOK");
    EXPECT_TRUE(looked);
    EXPECT_THAT(asked, ElementsAre("Set Rated"));
}

TEST_F(VarsWindow, AnAnswerWhileItSendsChangesNothingOfWhatIsSent) {
    answered();
    type("txtVar(0)", "9");
    type("txtVar(1)", "8");
    QTimer::singleShot(50, window, [this] { answerVars(Answer); });
    press("cmdOK");
    EXPECT_THAT(asked, ElementsAre("Set Time 9", "Set Inc 8"));
}

TEST_F(VarsWindow, ClosedInAPauseTheRestIsStillSent) {
    answered();
    type("txtVar(0)", "9");
    type("txtVar(1)", "8");
    QTimer::singleShot(50, window, [this] {
        window->close();
        stored("ICS_Vars", "Left", "777"); // by another one, which the user has opened and closed since
    });
    press("cmdOK");
    EXPECT_THAT(asked, ElementsAre("Set Time 9", "Set Inc 8"));
    EXPECT_EQ(kept("ICS_Vars", "Left"), "777") << "it writes its place once";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(VarsWindow, WhenTheConnectionGoesInAPauseTheRestIsNotSentToTheNextOne) {
    answered();
    for (int index = 0; index < 7; ++index) type("txtVar(" + std::to_string(index) + ")", "99");
    QTimer::singleShot(100, window, [this] { connected = false; });
    QTimer::singleShot(300, window, [this] { connected = true; });
    press("cmdOK");
    EXPECT_THAT(asked, ElementsAre("Set Time 99"));
    EXPECT_EQ(openWindows.count("frmICSVars"), 0);
}

TEST_F(VarsWindow, WhenTheProgramClosesInAPauseItStops) {
    answered();
    for (int index = 0; index < 7; ++index) type("txtVar(" + std::to_string(index) + ")", "99");
    QTimer::singleShot(50, window, [this] {
        modChess.AppClosing = true;
        openWindows.unload("frmICSVars");
    });
    press("cmdOK");
    EXPECT_THAT(asked, ElementsAre("Set Time 99"));
}

TEST_F(VarsWindow, EnterInAFieldIsOKAndEscapeIsCancel) {
    answered();
    type("txtVar(0)", "9");
    QTest::keyClick(&field("txtVar(0)"), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_THAT(asked, IsEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    answered();
    type("txtVar(0)", "9");
    QTest::keyClick(&field("txtVar(0)"), Qt::Key_Return);
    EXPECT_THAT(asked, ElementsAre("Set Time 9"));
}

TEST_F(VarsWindow, CancelSendsNothing) {
    answered();
    type("txtVar(0)", "9");
    press("cmdCancel");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(openWindows.count("frmICSVars"), 0);
}

// Place

TEST_F(VarsWindow, ItStandsWhereItWasLeftAndWritesItsPlace) {
    stored("ICS_Vars", "Left", "1500");
    stored("ICS_Vars", "Top", "900");
    opened<frmICSVars>();
    EXPECT_EQ(window->pos(), QPoint(100, 60));
    window->move(120, 80);
    press("cmdCancel");
    EXPECT_EQ(kept("ICS_Vars", "Left"), "1800");
    EXPECT_EQ(kept("ICS_Vars", "Top"), "1200");
}

TEST_F(VarsWindow, APlaceBelowOneTwipIsTheCornerAndOneBeyondTheScreenToo) {
    for (const auto& [left, top] : {std::pair{"0", "900"}, {"900", "32000"}}) {
        stored("ICS_Vars", "Left", left);
        stored("ICS_Vars", "Top", top);
        opened<frmICSVars>();
        EXPECT_EQ(window->pos(), QPoint(0, 0)) << left << " " << top;
        delete window.data();
    }
}

TEST_F(VarsWindow, BeforeTheFirstSaveItsOlderFileIsRead) {
    QFile file(QStringLiteral("vars.def"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1500,900\r\n");
    file.close();
    opened<frmICSVars>();
    EXPECT_EQ(window->pos(), QPoint(100, 60));
}

TEST_F(VarsWindow, OneThatWasNeverShownKeepsThePlaceInTheStore) {
    stored("ICS_Vars", "Left", "1500");
    stored("ICS_Vars", "Top", "900");
    answerVars(Answer);
    window = loadedWindow<frmICSVars>();
    openWindows.unload("frmICSVars");
    EXPECT_EQ(kept("ICS_Vars", "Left"), "1500");
    EXPECT_EQ(kept("ICS_Vars", "Top"), "900");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(VarsWindow, ClosedMinimisedItKeepsItsPlace) {
    opened<frmICSVars>();
    window->move(45, 60);
    window->showMinimized();
    window->close();
    EXPECT_FALSE(window->isMinimized());
    EXPECT_EQ(kept("ICS_Vars", "Left"), "675");
}

// Look

TEST_F(VarsWindow, SwitchesStandWellApartAndTheNumbersGrowWithTheFont) {
    answered();
    int widest = 0; // of the first column
    for (int index = 0; index < 9; ++index) widest = std::max(widest, box(index).sizeHint().width());
    EXPECT_GE(box(9).x(), box(0).x() + widest + 2 * window->fontMetrics().averageCharWidth());
    const int before = field("txtVar(0)").width();
    QFont large = window->font();
    large.setPointSize(2 * large.pointSize());
    window->setFont(large);
    EXPECT_GT(field("txtVar(0)").width(), before + before / 3);
}

TEST_F(VarsWindow, AtEverySizeOfTheFontAllIsWholeOnALowScreen) {
    const QFont before = QApplication::font();
    for (const int points : {8, 9, 11, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        answered();
        EXPECT_LE(window->width(), 1024) << points;
        EXPECT_LE(window->height(), 600 - 30) << points;
        for (const QWidget* each : window->findChildren<QWidget*>()) {
            EXPECT_GE(each->width(), each->minimumSizeHint().width()) << points << each->objectName().toStdString();
            EXPECT_GE(each->height(), each->minimumSizeHint().height()) << points << each->objectName().toStdString();
        }
        for (int index = 0; index < 7; ++index) {
            const QLineEdit& number = field("txtVar(" + std::to_string(index) + ")");
            EXPECT_GT(number.width(), number.fontMetrics().horizontalAdvance(QStringLiteral("-32768")) + 8) << points;
        }
        delete window.data();
    }
    QApplication::setFont(before);
}

TEST_F(VarsWindow, TabLeadsThroughNumbersSwitchesPromptAndButtons) {
    answered();
    window->activateWindow();
    field("txtVar(0)").setFocus();
    std::vector<std::string> order;
    for (int step = 0; step < 37; ++step) {
        order.push_back(window->focusWidget()->objectName().toStdString());
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    std::vector<std::string> expected;
    for (int index = 0; index < 7; ++index) expected.push_back("txtVar(" + std::to_string(index) + ")");
    for (int index = 0; index < 26; ++index) expected.push_back("chkVar(" + std::to_string(index) + ")");
    for (const char* name : {"txtPrompt", "cmdOK", "cmdCurrent", "cmdCancel"}) expected.emplace_back(name);
    EXPECT_EQ(order, expected);
    EXPECT_EQ(window->focusWidget()->objectName(), QStringLiteral("txtVar(0)"));
}

TEST_F(VarsWindow, ControlsAreReadByTheCaptionsOfTheirVariables) {
    answered();
    for (std::size_t index = 0; index < numberVars.size(); ++index) {
        const std::string number = std::to_string(index);
        EXPECT_EQ(field("txtVar(" + number + ")").accessibleName().toStdString(), numberVars[index].caption);
        EXPECT_EQ(part<QLabel>("lblVar(" + number + ")").text().remove(u'&').toStdString(), numberVars[index].caption);
    }
    for (std::size_t index = 0; index < flagVars.size(); ++index) {
        EXPECT_EQ(box(static_cast<int>(index)).text().toStdString(), flagVars[index].caption);
    }
    EXPECT_EQ(field("txtPrompt").accessibleName(), QStringLiteral("Prompt"));
}

TEST_F(VarsWindow, OpenedAndClosedManyTimesNoWindowStays) {
    for (int time = 0; time < 50; ++time) {
        open<frmICSVars>();
        window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_TRUE(window.isNull());
    EXPECT_THAT(openWindows.windows, IsEmpty());
}
