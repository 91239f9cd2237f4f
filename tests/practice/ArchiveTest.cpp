// Tests of the games that are kept.
#include "practice/games/Archive.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

KeptGamePtr gameOf(const std::string& white, const std::string& black, const std::string& reason = "Ada resigns",
                   const std::string& result = "0-1") {
    Game game;
    game.names = {white, black};
    game.ratings = {"1711", "++++"};
    game.terms.minutes = 5;
    game.terms.increment = 0;
    game.startedAt = "Sat Nov 21, 02:40 UTC 2026";
    game.facts.fen = startFen;
    return keptGame(game, reason, result, "Sat Nov 21, 02:42 UTC 2026");
}

std::string lineOf(const std::string& text, int index) {
    std::size_t begin = 0;
    while (index-- > 0) begin = text.find('\n', begin) + 1;
    return text.substr(begin, text.find('\n', begin) - begin);
}

std::string columns(const std::string& row, std::size_t first, std::size_t count) {
    return row.size() < first ? std::string() : row.substr(first - 1, count);
}

TEST(Archive, AGameIsKeptForBothPlayers) {
    Archive archive;
    archive.keep(gameOf("Ada", "Bert"));
    EXPECT_NE(archive.find("ada", "0"), nullptr);
    EXPECT_EQ(archive.find("Bert", "0"), archive.find("Ada", "0"));
    EXPECT_EQ(archive.find("Ada", "1"), nullptr);
    EXPECT_EQ(archive.find("Cora", "0"), nullptr);
}

TEST(Archive, NegativeNumbersCountFromTheLast) {
    Archive archive;
    archive.keep(gameOf("Ada", "Bert"));
    archive.keep(gameOf("Ada", "Cora"));
    EXPECT_EQ(archive.find("Ada", "-1"), archive.find("Ada", "1"));
    EXPECT_EQ(archive.find("Ada", "-2"), archive.find("Ada", "0"));
    EXPECT_EQ(archive.find("Ada", "-3"), nullptr);
    EXPECT_EQ(archive.find("Ada", "-0"), nullptr);
    EXPECT_EQ(archive.find("Ada", "x"), nullptr);
}

TEST(Archive, TheLastTenGamesStayWithTheirNumbers) {
    Archive archive;
    for (int i = 0; i < 105; ++i) archive.keep(gameOf("Ada", "Bert"));
    EXPECT_EQ(archive.shelves.at("ada").games.size(), 10U);
    EXPECT_EQ(archive.find("Ada", "94"), nullptr);
    EXPECT_NE(archive.find("Ada", "95"), nullptr);
    EXPECT_NE(archive.find("Ada", "4"), nullptr) << "numbers begin anew after 99";
}

TEST(Archive, AHistoryRowHasItsColumns) {
    Archive archive;
    archive.keep(gameOf("Ada", "Bert"));
    const std::string table = historyTable(archive, "Ada");
    EXPECT_EQ(lineOf(table, 0), "History for Ada:");
    const std::string row = lineOf(table, 2);
    EXPECT_EQ(row, " 0: - 1711 W    0 Bert          [ bu  5   0] --- Res Sat Nov 21, 02:42 UTC 2026");
    EXPECT_EQ(columns(row, 3, 2), ": ");
    EXPECT_EQ(columns(row, 33, 1), "[");
    EXPECT_EQ(columns(row, 44, 1), "]");
    EXPECT_EQ(columns(row, 50, 3), "Res");
    EXPECT_EQ(columns(row, 54, 17), "Sat Nov 21, 02:42");
    EXPECT_EQ(columns(row, 78, 2), "26");
    EXPECT_EQ(lineOf(historyTable(archive, "Bert"), 2).substr(4, 10), "+    0 B 1");
    EXPECT_EQ(historyTable(archive, "Cora"), "Cora has no history games.");
}

TEST(Archive, TheSignIsThatOfWhoseListItIs) {
    Archive archive;
    archive.keep(gameOf("Ada", "Bert", "Game drawn by repetition", "1/2-1/2"));
    EXPECT_EQ(lineOf(historyTable(archive, "Ada"), 2).substr(4, 1), "=");
    EXPECT_EQ(lineOf(historyTable(archive, "Ada"), 2).substr(49, 3), "Rep");
}

TEST(Archive, EachEndHasItsLetters) {
    const auto lettersOf = [](const std::string& reason) {
        Archive archive;
        archive.keep(gameOf("Ada", "Bert", reason, "0-1"));
        return lineOf(historyTable(archive, "Ada"), 2).substr(49, 3);
    };
    EXPECT_EQ(lettersOf("Ada resigns"), "Res");
    EXPECT_EQ(lettersOf("Ada checkmated"), "Mat");
    EXPECT_EQ(lettersOf("Ada forfeits on time"), "Fla");
    EXPECT_EQ(lettersOf("Game drawn because both players ran out of time"), "Fla");
    EXPECT_EQ(lettersOf("Ada forfeits by disconnection"), "Dis");
    EXPECT_EQ(lettersOf("Game drawn by mutual agreement"), "Agr");
    EXPECT_EQ(lettersOf("Game drawn by the 50 move rule"), "50 ");
    EXPECT_EQ(lettersOf("Game drawn by stalemate"), "Sta");
    EXPECT_EQ(lettersOf("Ada wins by stalemate"), "Sta");
    EXPECT_EQ(lettersOf("Game drawn by adjudication"), "Adj");
    EXPECT_EQ(lettersOf("Neither player has mating material"), "NM ");
    EXPECT_EQ(lettersOf("Ada ran out of time and Bert has no material to mate"), "TM ");
    EXPECT_EQ(lettersOf("Ada wins by losing all material"), "WLM");
    EXPECT_EQ(lettersOf("Ada wins by having less material (stalemate)"), "WNM");
    EXPECT_EQ(lettersOf("Ada ran out of time and resigns has no material to mate"), "TM ") << "a name is no reason";
}

TEST(Archive, AStoredRowHasItsColumns) {
    Archive archive;
    archive.adjourn(gameOf("Ada", "Bert", "Game adjourned by mutual agreement", "*"));
    const std::string table = storedTable(archive, "Bert", [](const std::string& name) { return name == "Ada"; });
    EXPECT_EQ(lineOf(table, 0), "Stored games for Bert:");
    const std::string row = lineOf(table, 2);
    EXPECT_EQ(row, " 1: B Ada             Y [ bu  5   0] 39-39 W1   --- Sat Nov 21, 02:42 UTC 2026");
    EXPECT_EQ(columns(row, 25, 1), "[");
    EXPECT_EQ(columns(row, 36, 1), "]");
    EXPECT_EQ(columns(row, 38, 5), "39-39");
    EXPECT_EQ(columns(row, 44, 4), "W1  ");
    EXPECT_EQ(columns(row, 53, 17), "Sat Nov 21, 02:42");
    EXPECT_EQ(columns(row, 77, 2), "26");
    EXPECT_EQ(storedTable(archive, "Cora", [](const std::string&) { return true; }), "Cora has no adjourned games.");
}

TEST(Archive, TwoPlayersHaveOneAdjournedGame) {
    Archive archive;
    archive.adjourn(gameOf("Ada", "Bert"));
    archive.adjourn(gameOf("Bert", "Ada"));
    EXPECT_EQ(archive.adjourned.size(), 1U);
    EXPECT_EQ(archive.adjournedBetween("ada", "bert")->game.names[0], "Bert");
    EXPECT_EQ(archive.adjournedBetween("Ada", "Cora"), nullptr);
    EXPECT_NE(archive.takeAdjourned("Bert", "Ada"), nullptr);
    EXPECT_EQ(archive.takeAdjourned("Bert", "Ada"), nullptr);
}

TEST(Archive, AdjournedGamesDoNotPileUp) {
    Archive archive;
    for (std::size_t i = 1; i <= 60; ++i) archive.adjourn(gameOf("Ada", std::string(i, 'x')));
    EXPECT_EQ(archive.adjourned.size(), Archive::adjournedLimit);
}

TEST(Archive, AKeptMoveListEndsInTheResult) {
    const auto kept = gameOf("Ada", "Bert");
    EXPECT_TRUE(keptMoveList(*kept).starts_with("Ada (1711) vs. Bert (++++) --- Sat Nov 21, 02:40 UTC 2026\n"));
    EXPECT_TRUE(keptMoveList(*kept).ends_with("      {Ada resigns} 0-1\n"));
}

} // namespace
} // namespace practice
