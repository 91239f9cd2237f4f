// What a clock paints: its three states, and every digit at every size.
#include "board/ClockFace.h"

#include "board/BoardClock.h"
#include "platform/Spoken.h"

#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

namespace {

constexpr QSize OnABoard(80, 21); // pixels

class ClockFaceTest : public testing::Test {
protected:
    ~ClockFaceTest() override { QApplication::setFont(before); }

    static QImage painted(const std::string& text, std::uint32_t background = ClockColor::Running) {
        ClockFace clock(0, nullptr);
        clock.resize(OnABoard);
        clock.setText(text);
        clock.setBackground(background);
        return clock.grab().toImage();
    }
    static bool shows(const QImage& picture, const QColor& color) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = picture.width() / 4; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == color) return true;
            }
        }
        return false;
    }
    static QColor paper(const QImage& picture) {
        return picture.pixelColor(picture.width() / 40, picture.height() / 2);
    }
    // No letter reaches these columns and rows, in pixels, at the edges inside the frame.
    static bool clearAtTheEdges(const QImage& picture) {
        const double ratio = picture.devicePixelRatio();
        const QColor blank = paper(picture);
        const int right = int((OnABoard.width() - 3) * ratio);
        for (int y = int(2 * ratio); y < int(19 * ratio); ++y) {
            if (picture.pixelColor(right, y) != blank) return false;
        }
        for (int x = int(20 * ratio); x < right; ++x) {
            if (picture.pixelColor(x, int(1 * ratio)) != blank) return false;
            if (picture.pixelColor(x, int(19 * ratio)) != blank) return false;
        }
        return true;
    }

    const QFont before = QApplication::font();
};

} // namespace

TEST_F(ClockFaceTest, AWaitingClockHasTheButtonsColours) {
    const QImage picture = painted(" 5:00", ClockColor::Waiting);
    const QPalette look = QApplication::palette();
    EXPECT_EQ(paper(picture), look.color(QPalette::Button));
    EXPECT_TRUE(shows(picture, look.color(QPalette::ButtonText)));
}

TEST_F(ClockFaceTest, ARunningClockIsBlackOnWhite) {
    const QImage picture = painted(" 5:00", ClockColor::Running);
    EXPECT_EQ(paper(picture), QColor(Qt::white));
    EXPECT_TRUE(shows(picture, Qt::black));
}

TEST_F(ClockFaceTest, AWarningClockIsBlackOnRed) {
    const QImage picture = painted(" 0:05", ClockColor::Warning);
    EXPECT_EQ(paper(picture), QColor(0xFF, 0x7F, 0x7F));
    EXPECT_TRUE(shows(picture, Qt::black));
}

TEST_F(ClockFaceTest, TheSwatchHasTheColourOfItsSideInEveryState) {
    for (const std::uint32_t state : {ClockColor::Waiting, ClockColor::Running, ClockColor::Warning}) {
        for (int side = 0; side < 2; ++side) {
            ClockFace clock(side, nullptr);
            clock.resize(OnABoard);
            clock.setBackground(state);
            const QImage picture = clock.grab().toImage();
            const double ratio = picture.devicePixelRatio();
            EXPECT_EQ(picture.pixelColor(int(11 * ratio), int(10 * ratio)), QColor(side == 0 ? Qt::white : Qt::black));
        }
    }
}

TEST_F(ClockFaceTest, OnADarkDesktopARunningClockIsBlackOnWhiteToo) {
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(49, 54, 59), QColor(35, 38, 41));
    QApplication::setPalette(dark);
    const QImage waiting = painted(" 5:00", ClockColor::Waiting);
    EXPECT_EQ(paper(waiting), dark.color(QPalette::Button));
    EXPECT_TRUE(shows(waiting, dark.color(QPalette::ButtonText)));
    const QImage running = painted(" 5:00", ClockColor::Running);
    EXPECT_EQ(paper(running), QColor(Qt::white));
    EXPECT_TRUE(shows(running, Qt::black));
    QApplication::setPalette(light);
}

TEST_F(ClockFaceTest, EveryDigitShowsAtEveryDesktopFont) {
    const std::vector<std::string> times{"0:0",    "12:3",   "100:0",   "546:0",    "-0:0",
                                         "-546:0", "1:02:0", "10:00:0", "-100:00:0"};
    for (int points = 8; points <= 20; ++points) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        for (const std::string& time : times) {
            const QImage four = painted(" " + time + "4");
            EXPECT_NE(four, painted(" " + time + "7")) << time << " at " << points << ": the last digit";
            EXPECT_TRUE(clearAtTheEdges(four)) << time << " at " << points;
            const QImage longer = painted(" 1" + time + "4");
            EXPECT_NE(longer, painted(" 7" + time + "4")) << time << " at " << points << ": the first digit";
        }
    }
}

TEST_F(ClockFaceTest, ATimeThatGrowsIsFittedAnew) {
    ClockFace clock(0, nullptr);
    clock.resize(OnABoard);
    clock.setBackground(ClockColor::Running);
    clock.show(); // what does not show is laid out anew for each picture
    for (const char* time : {" 0:05", " -546:08", " 12:34"}) {
        clock.setText(time);
        EXPECT_EQ(clock.grab().toImage(), painted(time)) << time;
    }
}

TEST_F(ClockFaceTest, AnotherFontIsFittedAtOnce) {
    QFont large = before;
    large.setPointSize(20);
    ClockFace clock(0, nullptr);
    clock.resize(OnABoard);
    clock.setText(" -546:08");
    clock.show();
    const QImage usual = clock.grab().toImage();
    QFont small = before;
    small.setPointSize(5);
    clock.setFont(small);
    EXPECT_NE(clock.grab().toImage(), usual);
    clock.setFont(large);
    ClockFace other(0, nullptr);
    other.setFont(large);
    other.resize(OnABoard);
    other.setText(" -546:08");
    other.show();
    EXPECT_EQ(clock.grab().toImage(), other.grab().toImage());
}

TEST_F(ClockFaceTest, ATimeThatComesBackLooksAsItDid) {
    ClockFace clock(0, nullptr);
    clock.resize(OnABoard);
    clock.show();
    clock.setText(" 111:11");
    const QImage ones = clock.grab().toImage();
    clock.setText(" 100:00");
    clock.setText(" 111:11");
    EXPECT_EQ(clock.grab().toImage(), ones);
}

TEST_F(ClockFaceTest, ItsTimeIsThereToBeReadAndItsTicksAreNotSaid) {
    ClockFace clock(0, nullptr);
    clock.setText(" 5:00");
    EXPECT_EQ(spokenText(clock, QAccessible::Name), QStringLiteral("White's clock"));
    EXPECT_EQ(spokenText(clock, QAccessible::Description), QStringLiteral("5:00"));
    clock.setText(" 4:59");
    EXPECT_EQ(spokenText(clock, QAccessible::Description), QStringLiteral("4:59"));
    EXPECT_EQ(clock.accessibleDescription(), QString()) << "what is set there is said";
}
