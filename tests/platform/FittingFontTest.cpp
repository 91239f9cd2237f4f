// Fonts that are no larger than their room.
#include "platform/FittingFont.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <gtest/gtest.h>

namespace {

QFont sized(int pixels) {
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

} // namespace

TEST(FittingFont, AFontThatFitsKeepsItsSize) {
    const QFont font = unshaped(QFont(QStringLiteral("sans"), 9));
    EXPECT_EQ(fittingFont(font, QStringLiteral("12:34"), {300, 60}), font);
}

TEST(FittingFont, ATextTooWideOrTooHighGetsTheLargestSizeThatFits) {
    for (const QSize room : {QSize(50, 200), QSize(400, 16), QSize(63, 21)}) {
        const QString text = QStringLiteral("-546:08");
        const QFont font = fittingFont(sized(40), text, room);
        EXPECT_LE(QFontMetrics(font).horizontalAdvance(text), room.width());
        EXPECT_LE(QFontMetrics(font).height(), room.height());
        const QFontMetrics larger(unshaped(sized(QFontInfo(font).pixelSize() + 1)));
        EXPECT_TRUE(larger.horizontalAdvance(text) > room.width() || larger.height() > room.height());
    }
}

TEST(FittingFont, LinesOfAnyLengthGoByTheirHeightAlone) {
    const QFont font = fittingFont(sized(40), 16);
    EXPECT_LE(QFontMetrics(font).height(), 16);
    EXPECT_GT(QFontInfo(font).pixelSize(), 9);
}

TEST(FittingFont, NoRoomAtAllStillGivesAFont) {
    EXPECT_EQ(QFontInfo(fittingFont(sized(20), QStringLiteral("x"), {-5, -5})).pixelSize(), 5);
}
