// Recorded answers to "sought" of three servers, whose columns are not all alike.
#include "common/RecordedText.h"
#include "seek/AdTexts.h"
#include "seek/SoughtCapture.h"
#include "session/ServerLines.h"

#include <algorithm>

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

// What each answer left in the table, and the lines that stayed on the console. A batch ends behind a prompt, as it
// does when the server's answer comes behind one.
struct Answers {
    std::vector<std::vector<std::string>> tables; // by count line: the ads' texts
    std::vector<std::string> left;                // lines that were not taken
    SeekTable table;

    explicit Answers(const std::string& name) {
        const std::string prompt = "fics% ";
        const std::string text = recordedText(name);
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find(prompt, at), text.size() - prompt.size()) + prompt.size();
            read(text.substr(at, end - at));
            at = end;
        }
    }

    void read(const std::string& batch) {
        ServerLines lines;
        const int count = lines.zParse(batch);
        for (int i = 0; i < count; ++i) {
            const std::string line = lines[i];
            const bool done = zSoughtLines(table, line, [&] { lines.zClearLines(i); });
            if (!lines[i].empty()) left.push_back(line);
            if (done) keep();
        }
    }

    void keep() {
        std::vector<std::string>& texts = tables.emplace_back();
        for (int i = 0; i < table.SeekAdCount; ++i) texts.push_back(adText(table.SeekAds[i]));
        table.SeekAdCount = 0;
    }
};

} // namespace

TEST(RecordedSought, ThePublicServersTableIsReadWhole) {
    const Answers answers("text/sought.txt");
    ASSERT_THAT(answers.tables, SizeIs(1));
    const auto& ads = answers.tables[0];
    ASSERT_THAT(ads, SizeIs(41));
    EXPECT_EQ(ads[0], "meru(C) (2276) seeks blitz 5 0 rated    0-9999 ");
    EXPECT_EQ(ads[2], "COGITObotB (-1) seeks blitz 10 2 unrated    0-9999 mf");
    EXPECT_EQ(ads[11], "whogivesafork (1165) seeks standard 15 10 rated  800-1300 ");
    EXPECT_EQ(ads[12], "GnuCheese(C) (2402) seeks wild/fr 2 12 rated    0-9999 mf");
    EXPECT_EQ(ads[40], "kurushi(C) (1663) seeks wild/4 3 0 rated    0-9999 mf");
    EXPECT_THAT(answers.left, ElementsAre("\r\n")) << "the break in front of the first row";
}

TEST(RecordedSought, AnnouncementsAndTakenSeeksStayOnTheConsole) {
    for (const char* name : {"text/seek_announcements.txt", "text/seek_taken.txt"}) {
        const Answers answers(name);
        EXPECT_THAT(answers.tables, SizeIs(0)) << name;
        EXPECT_EQ(answers.table.SeekAdCount, 0) << name;
    }
}

// Its variants and colour words share the type's column, an untimed ad says so twice, and one ad is counted in the
// singular.
TEST(RecordedSought, AServerWithVariantsAndColourWordsInTheTypesColumn) {
    const Answers answers("server-a/50_sought.raw");
    std::vector<std::size_t> sizes;
    for (const auto& ads : answers.tables) sizes.push_back(ads.size());
    EXPECT_THAT(sizes, ElementsAre(0, 0, 10, 9, 10, 9, 6, 6, 0))
        << "the untimed ad is not accepted; the first 10 hold the one that the singular count line left";
    EXPECT_EQ(answers.tables[2][0], answers.tables[2][1]);
    EXPECT_THAT(answers.tables[3], ElementsAre("Detlef (-1) seeks blitz 5 0 rated    0-9999",
                                               "Carla (-1) seeks standard   [white] 15 5 unrated    0-9999",
                                               "GuestSeek(U) (-1) seeks blitz 3 0 unrated    0-9999",
                                               "Berta (-1) seeks lightning crazyhouse 1 0 unrated  [black]     ",
                                               "Detlef (-1) seeks blitz suicide 3 0 unrated       0-9999",
                                               "Carla (-1) seeks standard 10 10 rated    0-9999 m",
                                               "Anders (-1) seeks blitz chess960 4 4 unrated        0-9999",
                                               "Anders (-1) seeks blitz chess960 3 3 unrated        0-9999",
                                               "Detlef (-1) seeks blitz 5 5 rated    0-9999 f"));
    EXPECT_THAT(answers.left, Contains("\\   0-9999\r\n"));
    EXPECT_THAT(answers.left, Contains("1 ad displayed.\r\n"));
}

TEST(RecordedSought, AServerWithShorterRowsAndNoCountLineHasNoAds) {
    const Answers answers("server-b/50_sought.raw");
    EXPECT_THAT(answers.tables, SizeIs(0));
    EXPECT_EQ(answers.table.SeekAdCount, 0);
    EXPECT_THAT(answers.left, Contains("  1    0 Carla              15   5 unrated standard  \r\n"));
}
