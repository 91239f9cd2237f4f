// The console as a surface: insertion point, colours, keys, mouse, following view.
#include "platform/Console.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace {

QColor colorAt(Console& console, int position) {
    console.flush();
    QTextCursor cursor(console.document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().foreground().color();
}

void press(Console& console, Qt::MouseButton button, QPoint place) {
    QTest::mousePress(console.viewport(), button, Qt::NoModifier, place);
}

std::string lines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "line " + std::to_string(i) + "\r\n";
    return text;
}

} // namespace

TEST(Console, TextGoesInAtTheInsertionPointInTheColourInForce) {
    Console console;
    console.setColor(0x0000FF);
    console.insert("red\r\n");
    console.setColor(0xFF0000);
    console.insert("blue");
    EXPECT_EQ(console.text(), "red\nblue");
    EXPECT_EQ(colorAt(console, 0), QColor(255, 0, 0));
    EXPECT_EQ(colorAt(console, 5), QColor(0, 0, 255));
}

TEST(Console, AllTextTakesAColourTheWaitingOneAndWhatComesToo) {
    Console console;
    console.setColor(0x0000FF);
    console.insert("red\r\n");
    console.flush();
    console.setColor(0xFF0000);
    console.insert("waiting");
    console.setAllColor(0x00FF00);
    console.insert("later");
    for (const int position : {0, 5, 12}) EXPECT_EQ(colorAt(console, position), QColor(0, 255, 0)) << position;
    EXPECT_EQ(console.text(), "red\nwaitinglater");
}

TEST(Console, AColourForAllTextLeavesBoldAsItIs) {
    Console console;
    console.insert("a");
    console.setEmphasis();
    console.insert("b");
    console.setAllColor(0x00FF00);
    QTextCursor cursor(console.document());
    cursor.setPosition(1);
    EXPECT_NE(cursor.charFormat().fontWeight(), QFont::Bold);
    cursor.setPosition(2);
    EXPECT_EQ(cursor.charFormat().fontWeight(), QFont::Bold);
}

TEST(Console, AColourForAllTextTakesTheInsertionPointToTheEndAndTheSelectionAway) {
    Console console;
    console.insert(lines(20));
    console.flush();
    QTextCursor selection(console.document());
    selection.setPosition(5, QTextCursor::KeepAnchor);
    console.setTextCursor(selection);
    console.setAllColor(0x00FF00);
    EXPECT_TRUE(console.textCursor().atEnd());
    EXPECT_FALSE(console.textCursor().hasSelection());
}

TEST(Console, InsertingLeavesTheInsertionPointWhereItStandsInOldText) {
    Console console;
    console.insert("ab\r\ncd");
    console.flush();
    QTextCursor point = console.textCursor();
    point.setPosition(1);
    console.setTextCursor(point);
    console.insert("X");
    console.insert("Y");
    EXPECT_EQ(console.text(), "aXYb\ncd");
    console.moveToEnd();
    console.insert("Z");
    EXPECT_EQ(console.text(), "aXYb\ncdZ");
}

TEST(Console, ALineOfMoreThan4096CharactersGoesOnInANewOne) {
    Console console;
    console.insert(std::string(4096, 'a') + "\r\nb");
    EXPECT_EQ(console.text(), std::string(4096, 'a') + "\nb");
    console.clearScreen();
    console.insert(std::string(4000, 'a'));
    console.flush();
    console.insert(std::string(5000, 'b') + "\r\nc");
    const std::string b4096(4096, 'b');
    EXPECT_EQ(console.text(),
              std::string(4000, 'a') + b4096.substr(0, 96) + "\n" + b4096 + "\n" + std::string(808, 'b') + "\nc");
}

TEST(Console, ASelectionOfTheUserSurvivesArrivingText) {
    Console console;
    console.insert("hello world");
    console.flush();
    QTextCursor selection = console.textCursor();
    selection.setPosition(0);
    selection.setPosition(5, QTextCursor::KeepAnchor);
    console.setTextCursor(selection);
    console.insert("!");
    EXPECT_EQ(console.text(), "hello! world");
    EXPECT_EQ(console.textCursor().selectedText(), QStringLiteral("hello"));
}

TEST(Console, TextThatArrivesOneByOneBesideASelectionKeepsItsOrder) {
    for (const bool backwards : {false, true}) {
        Console console;
        console.insert("hello world");
        console.flush();
        QTextCursor selection = console.textCursor();
        selection.setPosition(backwards ? 5 : 0);
        selection.setPosition(backwards ? 0 : 5, QTextCursor::KeepAnchor);
        console.setTextCursor(selection);
        for (const char* text : {"1", "2", "3"}) {
            console.insert(text);
            console.flush();
            EXPECT_EQ(console.textCursor().selectedText(), QStringLiteral("hello"));
        }
        EXPECT_EQ(console.text(), backwards ? "123hello world" : "hello123 world");
    }
}

TEST(Console, AnotherSelectionMovesTheInsertionPoint) {
    Console console;
    console.insert("ab cd");
    console.flush();
    const auto select = [&](int from, int to) {
        QTextCursor selection = console.textCursor();
        selection.setPosition(from);
        selection.setPosition(to, QTextCursor::KeepAnchor);
        console.setTextCursor(selection);
    };
    select(0, 2);
    console.insert("X");
    console.flush();
    select(4, 6);
    console.insert("Y");
    EXPECT_EQ(console.text(), "abX cdY");
}

TEST(Console, EmphasisIsBoldAndStaysOn) {
    Console console;
    console.insert("a");
    console.setEmphasis();
    console.insert("b");
    console.setColor(255);
    console.insert("c");
    console.flush();
    QTextCursor cursor(console.document());
    cursor.setPosition(1);
    EXPECT_NE(cursor.charFormat().fontWeight(), QFont::Bold);
    cursor.setPosition(2);
    EXPECT_EQ(cursor.charFormat().fontWeight(), QFont::Bold);
    cursor.setPosition(3);
    EXPECT_EQ(cursor.charFormat().fontWeight(), QFont::Bold);
}

TEST(Console, ClearScreenEmptiesItWaitingTextIncluded) {
    Console console;
    console.insert("old");
    console.flush();
    console.insert("waiting");
    console.clearScreen();
    EXPECT_EQ(console.text(), "");
}

TEST(Console, BytesShowAsTextWhateverTheyAre) {
    Console console;
    const std::string bytes("<b>x</b>\x1b[31m&amp;\xe9\x00z", 22);
    console.insert(bytes);
    EXPECT_EQ(console.text(), bytes);
}

TEST(Console, TheViewFollowsWhatArrives) {
    Console console;
    console.resize(400, 200);
    console.show();
    console.insert(lines(500));
    console.flush();
    EXPECT_EQ(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
    EXPECT_GT(console.verticalScrollBar()->maximum(), 0);
}

TEST(Console, ArrivingTextShowsWithinAFrameByItself) {
    Console console;
    console.insert("soon");
    EXPECT_TRUE(QTest::qWaitFor([&] { return console.toPlainText() == QStringLiteral("soon"); }, 1000));
}

TEST(Console, ATypedCharacterGoesToTheCommandLine) {
    Console console;
    QString got;
    console.typed = [&](const QString& text) { got += text; };
    QTest::keyClick(&console, Qt::Key_W);
    QTest::keyClick(&console, Qt::Key_Backspace);
    EXPECT_EQ(got, QStringLiteral("w\b"));
    EXPECT_EQ(console.text(), "");
}

TEST(Console, CtrlCStaysWithTheConsoleAndCopies) {
    Console console;
    QString got;
    console.typed = [&](const QString& text) { got += text; };
    console.insert("copy me");
    console.flush();
    console.selectAll();
    QTest::keyClick(&console, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(got, QString());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("copy me"));
}

TEST(Console, UpGoesToTheWindowFirstAndScrollsIfItIsNotTaken) {
    Console console;
    bool take = true;
    int asked = 0;
    console.keyDown = [&](int code) {
        EXPECT_EQ(code, 38);
        ++asked;
        return take;
    };
    console.resize(400, 200);
    console.show();
    console.insert(lines(200));
    console.moveToEnd();
    const int end = console.verticalScrollBar()->value();
    QTest::keyClick(&console, Qt::Key_Up);
    EXPECT_EQ(console.verticalScrollBar()->value(), end);
    take = false;
    for (int i = 0; i < 40; ++i) QTest::keyClick(&console, Qt::Key_Up);
    EXPECT_LT(console.verticalScrollBar()->value(), end);
    EXPECT_EQ(asked, 41);
}

TEST(Console, TheRightButtonBeepsAndMovesToTheEnd) {
    Console console;
    int beeps = 0;
    console.beep = [&] { ++beeps; };
    console.resize(400, 200);
    console.show();
    console.insert("first\r\nlast");
    console.flush();
    press(console, Qt::LeftButton, {5, 5});
    console.insert("<");
    press(console, Qt::RightButton, {5, 5});
    console.insert(">");
    EXPECT_EQ(console.text(), "<first\nlast>");
    EXPECT_EQ(beeps, 1);
}
