// The caret blinks while somebody types, and then rests.
#include "platform/RestingCaret.h"

#include <QApplication>
#include <QLineEdit>
#include <QStyleHints>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace {

class RestingCaretTest : public testing::Test {
protected:
    RestingCaretTest() {
        hints.setCursorFlashTime(800);
        caret.emplace(*qApp);
        line.show();
        line.setFocus();
    }
    ~RestingCaretTest() override {
        caret.reset();
        hints.setCursorFlashTime(before);
    }
    // As if nobody had touched anything for so long.
    void rest() {
        auto* timer = caret->findChild<QTimer*>();
        ASSERT_NE(timer, nullptr);
        EXPECT_TRUE(timer->isActive());
        EXPECT_EQ(timer->interval(), 10000);
        timer->setInterval(0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->isActive(); }));
        timer->setInterval(10000);
    }

    QStyleHints& hints = *QGuiApplication::styleHints();
    const int before = hints.cursorFlashTime();
    std::optional<RestingCaret> caret;
    QLineEdit line;
};

} // namespace

TEST_F(RestingCaretTest, ItBlinksAtFirst) { EXPECT_EQ(hints.cursorFlashTime(), 800); }

TEST_F(RestingCaretTest, BehindTenSecondsWithoutTheUserItRests) {
    rest();
    EXPECT_EQ(hints.cursorFlashTime(), 0);
}

TEST_F(RestingCaretTest, AKeyOrAPressAwakesItToTheDesktopsPace) {
    rest();
    QTest::keyClick(&line, Qt::Key_A);
    EXPECT_EQ(hints.cursorFlashTime(), 800);
    rest();
    QTest::mouseClick(&line, Qt::LeftButton);
    EXPECT_EQ(hints.cursorFlashTime(), 800);
    EXPECT_EQ(line.text(), QStringLiteral("a"));
}

TEST_F(RestingCaretTest, AFocusThatComesAwakesIt) {
    rest();
    QFocusEvent comes(QEvent::FocusIn, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(&line, &comes);
    EXPECT_EQ(hints.cursorFlashTime(), 800);
}

TEST_F(RestingCaretTest, WhereNoneBlinksNoneBegins) {
    caret.reset();
    hints.setCursorFlashTime(0);
    caret.emplace(*qApp);
    rest();
    QTest::keyClick(&line, Qt::Key_A);
    EXPECT_EQ(hints.cursorFlashTime(), 0);
}
