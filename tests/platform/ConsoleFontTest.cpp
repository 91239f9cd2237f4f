// The font of the console: its name, and what stands in for it.
#include "platform/ConsoleFont.h"

#include "common/modChess.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>

#include <gtest/gtest.h>

namespace {

class ConsoleFontTest : public testing::Test {
protected:
    ~ConsoleFontTest() override { modChess = {}; }

    static std::string nameOf(const QFont& font) { return font.families().value(0).toStdString(); }
};

} // namespace

TEST_F(ConsoleFontTest, IsFixedsysWhileTheOptionIsEmptyAndElseTheOption) {
    EXPECT_EQ(nameOf(consoleFont()), "fixedsys");
    modChess.MainFont = "Mine";
    EXPECT_EQ(nameOf(consoleFont()), "Mine");
}

TEST_F(ConsoleFontTest, Has9PointsWhateverItsName) {
    for (const char* name : {"fixedsys", "Mine"}) EXPECT_EQ(consoleFont(name).pointSize(), 9) << name;
}

TEST_F(ConsoleFontTest, AFixedWidthOneStandsInForAMissingName) {
    for (const char* name : {"Fixedsys", "Lucida COnsole", "No Such Font 7"}) {
        const QFontMetrics letters(consoleFont(name));
        EXPECT_EQ(letters.horizontalAdvance(u'i'), letters.horizontalAdvance(u'W')) << name;
    }
}

TEST_F(ConsoleFontTest, AFontThatIsThereIsTaken) {
    const QString there = QFontDatabase::families().value(0);
    ASSERT_FALSE(there.isEmpty());
    EXPECT_EQ(QFontInfo(consoleFont(there.toStdString())).family(), there);
}
