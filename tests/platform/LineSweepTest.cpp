// The sweep frees the layouts of lines and changes nothing else.
#include "platform/LineSweep.h"

#include "common/HeapInUse.h"
#include "platform/Console.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Glyph {
    QChar character;
    QTextCharFormat format;
    bool operator==(const Glyph&) const = default;
};

std::vector<Glyph> glyphsOf(QTextDocument& text) {
    std::vector<Glyph> all;
    QTextCursor at(&text);
    for (int place = 1; place < text.characterCount(); ++place) {
        at.setPosition(place);
        all.push_back({text.characterAt(place - 1), at.charFormat()});
    }
    return all;
}

// Lines of several colours, an empty one, one without an end, and rows as a narrow page would count them.
class LineSweepTest : public testing::Test {
protected:
    LineSweepTest() {
        QTextCursor at(&text);
        for (int line = 0; line < 60; ++line) {
            QTextCharFormat format;
            format.setForeground(QColor(line, 255 - line, 3));
            if (line % 7 == 0) format.setFontWeight(QFont::Bold);
            at.insertText(QStringLiteral("%1: line").arg(line), format);
            if (line % 5 == 0) at.insertText(QStringLiteral("\n"), format);
            format.setForeground(Qt::white);
            at.insertText(QStringLiteral(" and rest\n"), format);
        }
        for (QTextBlock line = text.begin(); line.isValid(); line = line.next()) {
            line.setLineCount(1 + line.blockNumber() % 3);
        }
    }

    std::vector<int> rows() const {
        std::vector<int> all;
        for (QTextBlock line = text.begin(); line.isValid(); line = line.next()) all.push_back(line.firstLineNumber());
        return all;
    }

    QTextDocument text;
    LineSweep sweep{text};

    // Takes all lines as laid out.
    void sweepAll(std::initializer_list<int> cursors = {}) {
        sweep.allLaidOut();
        sweep.sweep(text.blockCount(), 10, cursors);
        sweep.sweep(text.blockCount(), 1000, cursors);
    }
};

bool comesDownTo(std::size_t bytes) {
    return QTest::qWaitFor([&] { return heapInUse() < bytes; });
}

} // namespace

TEST_F(LineSweepTest, TextFormatsAndCountedLinesStay) {
    const QString before = text.toPlainText();
    const auto glyphs = glyphsOf(text);
    const auto counted = rows();
    sweepAll();
    EXPECT_EQ(sweep.behind(text.blockCount()), 0);
    EXPECT_EQ(text.toPlainText(), before);
    EXPECT_EQ(glyphsOf(text), glyphs);
    EXPECT_EQ(rows(), counted);
}

TEST_F(LineSweepTest, CursorsStayWhereTheyStandThoseAtALinesEndsToo) {
    const QTextBlock line = text.findBlockByNumber(20);
    for (const int place : {line.position() - 1, line.position(), line.position() + 4}) {
        QTextCursor cursor(&text);
        cursor.setPosition(place);
        cursor.setPosition(line.position() + 200, QTextCursor::KeepAnchor);
        const QString selected = cursor.selectedText();
        sweepAll({cursor.anchor(), cursor.position()});
        EXPECT_EQ(cursor.anchor(), place);
        EXPECT_EQ(cursor.selectedText(), selected);
    }
}

TEST_F(LineSweepTest, NobodyIsToldOfIt) {
    std::string told;
    const auto note = [&told](const char* what) { return [&told, what] { told += what; }; };
    text.documentLayout(); // which is made when it is asked for
    QCoreApplication::processEvents();
    QObject::connect(&text, &QTextDocument::contentsChanged, &text, note("contents "));
    QObject::connect(&text, &QTextDocument::contentsChange, &text, note("change "));
    QObject::connect(&text, &QTextDocument::blockCountChanged, &text, note("count "));
    QObject::connect(text.documentLayout(), &QAbstractTextDocumentLayout::update, &text, note("update "));
    QObject::connect(text.documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, &text, note("size "));
    sweepAll();
    EXPECT_EQ(told, "");
    QTextCursor(&text).insertText(QStringLiteral("x"));
    EXPECT_NE(told, "");
}

TEST_F(LineSweepTest, ItIsBehindByWhatHasChanged) {
    EXPECT_EQ(sweep.behind(30), 29);
    sweep.sweep(30, 10, {});
    EXPECT_EQ(sweep.behind(30), 19);
    sweep.sweep(30, 1000, {});
    EXPECT_EQ(sweep.behind(30), 0);
    EXPECT_EQ(sweep.behind(20), 0);
    sweep.changedFrom(40);
    EXPECT_EQ(sweep.behind(30), 0);
    sweep.changedFrom(25);
    EXPECT_EQ(sweep.behind(30), 5);
}

TEST_F(LineSweepTest, ATextThatWasEmptiedIsNoMatter) {
    sweepAll();
    text.clear();
    sweep.changedFrom(0);
    sweep.sweep(50, 1000, {});
    EXPECT_EQ(text.toPlainText(), QString());
}

// In the console

class SweptConsole : public testing::Test {
protected:
    SweptConsole() {
        console.resize(500, 300);
        console.show();
        letGo();
    }
    // Nothing is swept under a button that another test has left pressed.
    void letGo() {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            if (QGuiApplication::mouseButtons() & button) QTest::mouseRelease(console.viewport(), button);
        }
        ASSERT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton);
    }
    // Numbered lines in eight colours, all of them shown.
    void say(int lines, int together = 15) { sayTo(console, said, lines, together); }
    static void sayTo(Console& console, int& said, int lines, int together) {
        for (int line = 0; line < lines; ++line) {
            console.setColor(said % 8);
            console.insert("line " + std::to_string(said++) + "\r\n");
            if (line % together != 0) continue;
            console.flush();
            QCoreApplication::processEvents();
        }
        console.flush();
        QTest::qWait(60);
    }
    // What will be in use, 50 bytes a line aside, when so many more lines have been shown and swept: as much as they
    // cost in a console that nobody sees and that has grown as this one has. Bytes.
    std::size_t boundOf(int lines, int together) {
        sayTo(unseen, saidUnseen, 1000, together);
        const std::size_t before = heapInUse();
        sayTo(unseen, saidUnseen, lines, together);
        const std::size_t cost = heapInUse() - before;
        say(1000, together);
        return heapInUse() + cost + static_cast<std::size_t>(lines) * 50U;
    }
    static std::string numbered(int begin, int end) {
        std::string text;
        for (int line = begin; line < end; ++line) text += "line " + std::to_string(line) + "\n";
        return text;
    }

    Console console;
    int said = 0;
    Console unseen;
    int saidUnseen = 0;
};

TEST_F(SweptConsole, LinesThatWereShownCostNoMoreThanThoseThatNeverWere) {
    if (heapInUse() == 0) GTEST_SKIP() << "the allocator does not tell";
    for (const int together : {1, 40}) {
        const std::size_t swept = boundOf(2000, together);
        say(2000, together);
        EXPECT_TRUE(comesDownTo(swept)) << together << "; a layout is some 430 bytes";
    }
}

TEST_F(SweptConsole, BehindANewWidthTheyDoNotEither) {
    if (heapInUse() == 0) GTEST_SKIP() << "the allocator does not tell";
    const std::size_t swept = boundOf(6000, 15);
    say(6000);
    ASSERT_TRUE(comesDownTo(swept));
    console.resize(400, 300);
    QCoreApplication::processEvents();
    EXPECT_GT(heapInUse(), swept + 6000U * 100U) << "the toolkit has a new way to break all lines anew";
    EXPECT_TRUE(comesDownTo(swept));
}

TEST_F(SweptConsole, TextAndColoursStay) {
    say(4000);
    EXPECT_EQ(console.text(), numbered(0, 4000));
    for (QTextBlock line = console.document()->begin(); line.blockNumber() < 4000; line = line.next()) {
        QTextCursor in(line);
        in.movePosition(QTextCursor::EndOfBlock);
        ASSERT_EQ(in.charFormat().foreground().color().red(), line.blockNumber() % 8) << line.blockNumber();
    }
}

TEST_F(SweptConsole, TextThatGoesOnInOldTextLeavesSelectionAndOrder) {
    say(4000);
    QTextCursor some = console.textCursor();
    some.setPosition(console.document()->findBlockByNumber(800).position());
    some.setPosition(console.document()->findBlockByNumber(900).position(), QTextCursor::KeepAnchor);
    console.setTextCursor(some);
    const QString selected = some.selectedText();
    for (int time = 0; time < 3; ++time) say(1000);
    EXPECT_EQ(console.textCursor().selectedText(), selected);
    EXPECT_EQ(console.text(), numbered(0, 900) + numbered(4000, 7000) + numbered(900, 4000));
    console.moveToEnd();
    for (int time = 0; time < 3; ++time) say(1000);
    EXPECT_EQ(console.text(), numbered(0, 900) + numbered(4000, 7000) + numbered(900, 4000) + numbered(7000, 10000));
}

TEST_F(SweptConsole, AConsoleThatWasEmptiedIsSweptAnew) {
    say(3000);
    console.clearScreen();
    said = 0;
    say(3000);
    EXPECT_EQ(console.text(), numbered(0, 3000));
}

TEST_F(SweptConsole, AReadersPageStaysAsItIs) {
    say(3000);
    console.verticalScrollBar()->setValue(700);
    const QImage page = console.viewport()->grab().toImage();
    QTest::qWait(60);
    say(1000);
    EXPECT_EQ(console.verticalScrollBar()->value(), 700);
    EXPECT_EQ(console.viewport()->grab().toImage(), page);
}
