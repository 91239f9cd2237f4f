// Tests of counting a player's games.
#include "practice/games/Scores.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace practice {
namespace {

struct ScoresTest : testing::Test {
    Archive archive;

    void keep(const std::string& white, const std::string& black, const std::string& result,
              const std::string& variant = {}, int minutes = 5) {
        Game game;
        game.names = {white, black};
        game.terms.minutes = minutes;
        game.terms.increment = 0;
        game.terms.variant = variant;
        archive.keep(keptGame(game, "Bert resigns", result, "Sat Nov 21, 02:42 UTC 2026"));
    }

    // "Blitz 1 0 2 3|": kind, won, lost, drawn, total.
    std::string scores(const std::string& name) const {
        std::string text;
        for (const auto& [kind, score] : scoresOf(archive, name)) {
            text += kind;
            for (const int count : {score.won, score.lost, score.drawn, score.total()})
                text += " " + std::to_string(count);
            text += "|";
        }
        return text;
    }
};

TEST_F(ScoresTest, ResultsCountForBothSides) {
    keep("Ada", "Bert", "1-0");
    keep("Bert", "Ada", "1-0");
    keep("Ada", "Bert", "1-0");
    keep("Bert", "Ada", "1/2-1/2");
    EXPECT_EQ(scores("Ada"), "Blitz 2 1 1 4|");
    EXPECT_EQ(scores("bert"), "Blitz 1 2 1 4|");
    EXPECT_EQ(scores("Cora"), "");
}

TEST_F(ScoresTest, EachKindHasItsRowInTheOrderOfTheTable) {
    keep("Ada", "Bert", "0-1", "losers");
    keep("Ada", "Bert", "0-1", "suicide");
    keep("Ada", "Bert", "0-1", "crazyhouse");
    keep("Ada", "Bert", "0-1", "wild/fr");
    keep("Ada", "Bert", "1-0", "wild/5");
    keep("Ada", "Bert", "0-1", {}, 0);
    keep("Ada", "Bert", "0-1", {}, 1);
    keep("Ada", "Bert", "0-1", {}, 60);
    keep("Ada", "Bert", "0-1");
    EXPECT_EQ(scores("Bert"), "Blitz 1 0 0 1|Standard 1 0 0 1|Lightning 1 0 0 1|Untimed 1 0 0 1|Wild 1 1 0 2|"
                              "Crazyhouse 1 0 0 1|Suicide 1 0 0 1|Losers 1 0 0 1|");
}

TEST_F(ScoresTest, EveryKindThatIsPlayedHereIsCounted) {
    for (const Variant& variant : variants()) {
        archive.forget("Ada");
        keep("Ada", "Bert", "1-0", variant.name);
        EXPECT_TRUE(scores("Ada").ends_with(" 1 0 0 1|")) << variant.name;
    }
}

TEST_F(ScoresTest, TheTotalsAreTheRowsOfTheHistory) {
    for (int i = 0; i < 13; ++i) keep("Ada", "Bert", i < 4 ? "1-0" : "0-1");
    EXPECT_EQ(scores("Ada"), "Blitz 1 9 0 10|") << "the last ten";
    const std::string history = historyTable(archive, "Ada");
    EXPECT_EQ(std::count(history.begin(), history.end(), '\n'), 1 + 10);
}

TEST_F(ScoresTest, TheTableHasTheServersColumns) {
    keep("Ada", "Bert", "1-0");
    keep("Ada", "Bert", "1/2-1/2", "crazyhouse");
    EXPECT_EQ(scoreTable(archive, "Ada", "1711"), "          rating     RD      win    loss    draw   total   best\n"
                                                  "Blitz      1711     80.0       1       0       0       1\n"
                                                  "Crazyhouse 1711     80.0       0       0       1       1");
}

TEST_F(ScoresTest, ARatedPlayerHasARowWithoutGames) {
    EXPECT_TRUE(
        scoreTable(archive, "Ada", " 886").ends_with("\nBlitz       886     80.0       0       0       0       0"));
    EXPECT_EQ(scoreTable(archive, "Ada", "----"), "");
    EXPECT_EQ(scoreTable(archive, "Ada", "++++"), "");
}

} // namespace
} // namespace practice
