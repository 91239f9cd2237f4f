// What the console's view does as text arrives and the window changes: it follows the end, or keeps a reader's place.
#include "platform/Console.h"

#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <random>

namespace {

std::string numbered(int count, const std::string& rest = {}) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "line " + std::to_string(i) + rest + "\r\n";
    return text;
}

const std::string Words = " of a text that is long enough to be broken where the window is narrow, and then once more";

class ConsoleFollowing : public testing::Test {
protected:
    ConsoleFollowing() {
        console.resize(500, 300);
        console.show();
    }

    void say(const std::string& text) {
        console.insert(text);
        console.flush();
        settle();
    }
    // What waits in the message loop has been done, layout and painting included.
    void settle() {
        QCoreApplication::processEvents();
        console.grab();
        QCoreApplication::processEvents();
    }
    void wheel(int steps) {
        const QPointF at(50, 50);
        QWheelEvent event(at, console.viewport()->mapToGlobal(at), {}, QPoint(0, 120 * steps), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(console.viewport(), &event);
        settle();
    }
    // The user reads old text.
    void scrollUp() {
        wheel(6);
        ASSERT_FALSE(endShows());
    }
    bool endShows() const {
        QTextCursor end(console.document());
        end.movePosition(QTextCursor::End);
        return console.viewport()->rect().contains(console.cursorRect(end));
    }
    std::string firstShown() const {
        return console.cursorForPosition(QPoint(3, 3)).block().text().left(12).toStdString();
    }
    QScrollBar& bar() const { return *console.verticalScrollBar(); }

    Console console;
};

} // namespace

// Nothing but the user stops it

TEST_F(ConsoleFollowing, TheEndShowsAsTextArrives) {
    for (int i = 0; i < 5; ++i) {
        say(numbered(100, Words));
        EXPECT_TRUE(endShows()) << i;
    }
}

TEST_F(ConsoleFollowing, InALowerWindowTheEndShowsAtOnceAndLater) {
    say(numbered(100));
    console.resize(500, 120);
    settle();
    EXPECT_TRUE(endShows());
    say("Bob tells you: hi\r\n");
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, InANarrowerWindowWhoseLinesAreBrokenAnewToo) {
    say(numbered(100, Words));
    for (const int width : {300, 200, 700, 150}) {
        console.resize(width, 300);
        settle();
        EXPECT_TRUE(endShows()) << width;
        say("Bob tells you: hi\r\n");
        EXPECT_TRUE(endShows()) << width;
    }
}

TEST_F(ConsoleFollowing, AHigherWindowShowsMoreOldLinesAboveTheEnd) {
    say(numbered(100));
    console.resize(500, 600);
    settle();
    EXPECT_TRUE(endShows());
    EXPECT_LT(std::stoi(firstShown().substr(5)), 80);
}

TEST_F(ConsoleFollowing, ALowWindowThatTheFirstTextFillsFollows) {
    console.resize(500, 60);
    say(numbered(1));
    for (int i = 0; i < 10; ++i) {
        say("another\r\n");
        EXPECT_TRUE(endShows()) << i;
    }
}

TEST_F(ConsoleFollowing, AWindowThatComesBackFollows) {
    say(numbered(100));
    console.showMinimized();
    say(numbered(50));
    console.showNormal();
    settle();
    EXPECT_TRUE(endShows());
    console.hide();
    say(numbered(50, Words));
    console.show();
    settle();
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, AMaximisedWindowAndOneThatGoesBackFollow) {
    say(numbered(300, Words));
    console.showMaximized();
    settle();
    EXPECT_TRUE(endShows());
    console.showNormal();
    settle();
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, AnotherFontFollows) {
    say(numbered(200, Words));
    for (const int points : {20, 8, 14, 11}) {
        QFont font = console.font();
        font.setPointSize(points);
        console.setFont(font);
        settle();
        EXPECT_TRUE(endShows()) << points;
        say("Bob tells you: hi\r\n");
        EXPECT_TRUE(endShows()) << points;
    }
}

TEST_F(ConsoleFollowing, AMegabyteOfTextFollowsThroughAllOfIt) {
    say(numbered(11000, Words));
    ASSERT_GT(console.length(), 1000000U);
    for (const QSize size : {QSize(500, 120), QSize(200, 120), QSize(640, 480), QSize(300, 80)}) {
        console.resize(size);
        settle();
        EXPECT_TRUE(endShows()) << size.width();
        say("Bob tells you: hi\r\n");
        EXPECT_TRUE(endShows()) << size.width();
    }
}

// How many lines a text has is known only when the view comes near them.
TEST_F(ConsoleFollowing, ThroughAnyMixOfTextSizesAndFontsTheEndShows) {
    std::mt19937 random(20);
    const auto below = [&random](unsigned end) { return static_cast<int>(random() % end); };
    for (int i = 0; i < 200; ++i) {
        const int what = below(5);
        if (what < 2) console.insert(numbered(below(40), what == 0 ? Words : std::string()));
        if (what == 2) console.resize(120 + below(800), 60 + below(700));
        if (what == 3) console.moveTo(random() % 50000);
        if (what == 4) {
            QFont font = console.font();
            font.setPointSize(8 + below(13));
            console.setFont(font);
        }
        console.flush();
        ASSERT_TRUE(endShows()) << "at once, after " << i << " changes, the last of the kind " << what;
        settle();
        ASSERT_TRUE(endShows()) << "after " << i << " changes, the last of the kind " << what;
    }
}

TEST_F(ConsoleFollowing, AStandingSelectionDoesNotStopIt) {
    say(numbered(100));
    QTextCursor selection = console.textCursor();
    selection.movePosition(QTextCursor::End);
    selection.movePosition(QTextCursor::Up);
    selection.movePosition(QTextCursor::Up, QTextCursor::KeepAnchor);
    console.setTextCursor(selection);
    console.moveTo(1000000); // where a chat box puts its next text
    selection = console.textCursor();
    selection.movePosition(QTextCursor::Up, QTextCursor::KeepAnchor);
    console.setTextCursor(selection);
    for (int i = 0; i < 3; ++i) {
        console.resize(500 - i, 200 - 40 * i);
        say("Bob tells you: hi\r\n");
        EXPECT_TRUE(endShows()) << i;
        EXPECT_TRUE(console.textCursor().hasSelection());
    }
}

TEST_F(ConsoleFollowing, AnInsertionPointInTheTextAboveDoesNotStopIt) {
    say(numbered(100));
    console.moveTo(20);
    settle();
    EXPECT_TRUE(endShows());
    say(numbered(3, Words));
    EXPECT_TRUE(endShows());
    console.resize(400, 150);
    settle();
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, AnEmptiedConsoleFollowsAgain) {
    say(numbered(100));
    bar().setValue(0);
    console.clearScreen();
    say(numbered(100));
    EXPECT_TRUE(endShows());
}

// The user does

TEST_F(ConsoleFollowing, OfAReaderTheViewStaysWhereItIsAsTextArrives) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    for (int i = 0; i < 5; ++i) {
        say(numbered(10, Words));
        EXPECT_EQ(firstShown(), first);
    }
}

TEST_F(ConsoleFollowing, OfAReaderTheViewStaysWithItsTextWhenSomeComesInAbove) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    for (int i = 0; i < 5; ++i) {
        console.moveTo(50);
        say(numbered(10, Words));
        EXPECT_EQ(firstShown(), first);
    }
}

TEST_F(ConsoleFollowing, OneLineUpIsEnoughToReadOn) {
    say(numbered(200));
    bar().triggerAction(QAbstractSlider::SliderSingleStepSub);
    const std::string first = firstShown();
    say(numbered(10));
    EXPECT_EQ(firstShown(), first);
}

TEST_F(ConsoleFollowing, AReadersFirstLineStaysThroughEverySizeAndFont) {
    say(numbered(1000, Words));
    bar().setValue(bar().maximum() / 2);
    settle();
    const std::string first = firstShown();
    for (const QSize size : {QSize(500, 120), QSize(200, 120), QSize(640, 480), QSize(300, 80)}) {
        console.resize(size);
        settle();
        EXPECT_EQ(firstShown(), first) << size.width();
        say("Bob tells you: hi\r\n");
        EXPECT_EQ(firstShown(), first) << size.width();
    }
    QFont font = console.font();
    font.setPointSize(20);
    console.setFont(font);
    settle();
    EXPECT_EQ(firstShown(), first);
    say("Bob tells you: hi\r\n");
    EXPECT_EQ(firstShown(), first);
}

TEST_F(ConsoleFollowing, NeitherTheFocusNorAColourNorAKeyThatCopiesMovesAReadersView) {
    say(numbered(200));
    scrollUp();
    const std::string first = firstShown();
    console.clearFocus();
    console.setFocus();
    console.setColor(255);
    console.setEmphasis();
    QTest::keyClick(&console, Qt::Key_Control);
    QTest::keyClick(&console, Qt::Key_C, Qt::ControlModifier);
    console.moveTo(1000000);
    settle();
    EXPECT_EQ(firstShown(), first);
}

TEST_F(ConsoleFollowing, BackAtTheEndItFollowsAgain) {
    say(numbered(200, Words));
    scrollUp();
    say(numbered(10));
    for (int i = 0; i < 6; ++i) wheel(-3);
    EXPECT_TRUE(endShows());
    say(numbered(10));
    EXPECT_TRUE(endShows());
    console.resize(300, 100);
    settle();
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, AWindowThatGrowsUntilItHoldsAllFollowsAgain) {
    say(numbered(25));
    bar().setValue(0);
    ASSERT_FALSE(endShows());
    console.resize(500, 700);
    settle();
    ASSERT_TRUE(endShows());
    console.resize(500, 300);
    settle();
    EXPECT_TRUE(endShows());
    say(numbered(30));
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, OfAReaderTheViewStaysAsTheInsertionPointGoesToTheEnd) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    console.moveToEnd();
    say("finger bob\r\n"); // as the echo of a command
    console.moveToEnd();
    settle();
    EXPECT_EQ(firstShown(), first);
    EXPECT_TRUE(console.textCursor().atEnd());
    say(numbered(10));
    EXPECT_EQ(firstShown(), first);
}

TEST_F(ConsoleFollowing, TheRightButtonTakesAReaderToTheEndWhereItFollowsAgain) {
    say(numbered(200, Words));
    scrollUp();
    QTest::mouseClick(console.viewport(), Qt::RightButton, {}, QPoint(50, 50));
    settle();
    EXPECT_TRUE(endShows());
    say(numbered(10));
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, OfAReaderTheViewStaysAsAMegabyteComesAtOnce) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    say(numbered(11000, Words));
    EXPECT_EQ(firstShown(), first);
    EXPECT_FALSE(endShows());
}

TEST_F(ConsoleFollowing, AMegabyteAtOnceIsFollowed) {
    say(numbered(200, Words));
    say(numbered(11000, Words));
    EXPECT_TRUE(endShows());
}

// What Block Mode has held back goes in at the end of the text in one piece.
TEST_F(ConsoleFollowing, ThePileOfBlockModeLeavesAReadersViewAndIsFollowedAtTheEnd) {
    for (const bool reading : {true, false}) {
        console.clearScreen();
        say(numbered(200, Words));
        if (reading) scrollUp();
        const std::string first = firstShown();
        console.moveToEnd();
        say(numbered(500, Words));
        EXPECT_EQ(endShows(), !reading);
        EXPECT_TRUE(!reading || firstShown() == first);
    }
}

TEST_F(ConsoleFollowing, OfAReaderWhoHasSelectedTextViewAndSelectionStay) {
    say(numbered(200, Words));
    scrollUp();
    QTextCursor selection = console.cursorForPosition(QPoint(3, 30));
    selection.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 2);
    console.setTextCursor(selection);
    const std::string first = firstShown();
    const QString selected = console.textCursor().selectedText();
    ASSERT_FALSE(selected.isEmpty());
    say(numbered(100, Words));
    console.setColor(255);
    console.resize(500, 200);
    settle();
    EXPECT_EQ(firstShown(), first);
    EXPECT_EQ(console.textCursor().selectedText(), selected);
}

TEST_F(ConsoleFollowing, NewColoursForPaperAndTextLeaveAReadersView) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    console.setPaper(0xFFFFFF);
    console.setColor(0x112233);
    settle();
    EXPECT_EQ(firstShown(), first);
    say(numbered(10));
    EXPECT_EQ(firstShown(), first);
}

TEST_F(ConsoleFollowing, ANewColourForAllTextLeavesAReadersViewAndIsFollowedAtTheEnd) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    console.setAllColor(0x112233);
    settle();
    EXPECT_EQ(firstShown(), first);
    say(numbered(10));
    EXPECT_EQ(firstShown(), first);
    bar().setValue(bar().maximum());
    console.setAllColor(0x332211);
    settle();
    EXPECT_TRUE(endShows());
    say(numbered(10, Words));
    EXPECT_TRUE(endShows());
}

TEST_F(ConsoleFollowing, PaperFontAndColourTogetherLeaveAReadersView) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    QFont font = console.font();
    for (const int points : {14, 8}) {
        font.setPointSize(points);
        console.setPaper(0xFFFFFF);
        console.setFont(font);
        console.setAllColor(0x112233);
        settle();
        EXPECT_EQ(firstShown(), first) << points;
    }
}

TEST_F(ConsoleFollowing, OfAReaderTheKeyboardsArrivalAndTheInsertionPointMoveNothing) {
    say(numbered(200, Words));
    scrollUp();
    const std::string first = firstShown();
    QWidget other;
    other.show();
    other.activateWindow();
    console.activateWindow();
    console.setFocus();
    console.moveTo(3);
    settle();
    EXPECT_EQ(firstShown(), first);
    console.moveTo(1000000);
    settle();
    EXPECT_EQ(firstShown(), first);
}
