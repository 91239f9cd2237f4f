// Tests of journals: games that a player chose to keep, and everything that names them by their slot.
#include "practice/HallRig.h"
#include "practice/games/Archive.h"
#include "practice/play/Departure.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

// Ada has lost a game of one half-move against Bert and won one of none.
struct JournalTest : testing::Test {
    HallRig rig;

    JournalTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert", "1500");
        rig.enter("Cora");
        rig.match("Ada", "Bert");
        rig.type("Ada", "e4");
        rig.type("Ada", "resign");
        rig.match("Ada", "Bert");
        rig.type("Bert", "resign");
        rig.shown.clear();
    }
};

// A piece of a row, columns counted from 1.
std::string columns(const std::string& row, std::size_t first, std::size_t count) {
    return row.size() < first ? std::string() : row.substr(first - 1, count);
}

std::string lastLine(const std::string& text) { return text.substr(text.rfind('\n') + 1); }

TEST_F(JournalTest, APrivateJournalIsReadByItsOwnerAlone) {
    rig.type("Ada", "jsave B Ada 0");
    rig.type("Ada", "set jprivate 1");
    EXPECT_EQ(rig.type("Bert", "journal ada"), "The journal of Ada is private.");
    EXPECT_EQ(rig.type("Bert", "smoves ada b"), "The journal of Ada is private.");
    EXPECT_TRUE(rig.type("Ada", "journal").starts_with("Journal for Ada:"));
    EXPECT_TRUE(rig.type("Bert", "smoves ada 0").starts_with("\n"));
    leaveHall(rig.hall, "Ada");
    rig.hall.accounts.users = {{"Ada", "secret", 1711}};
    EXPECT_EQ(rig.type("Bert", "journal ada"), "The journal of Ada is private.");
}

TEST_F(JournalTest, AGameIsPutIntoASlotAndListed) {
    EXPECT_EQ(rig.type("Ada", "journal"), "Ada has no journal entries.");
    EXPECT_EQ(rig.type("Ada", "jsave B Ada 0"), "Game Ada 0 saved in slot B in journal.");
    EXPECT_EQ(rig.type("Ada", "journal"),
              "Journal for Ada:\n"
              "    White         Rating  Black         Rating  Type         ECO End Result\n"
              "%02: Ada           1711    Bert          1500    [ bu  5   0] --- Res 0-1    ");
    EXPECT_EQ(rig.type("Cora", "journal ada"), rig.type("Ada", "journal"));
    EXPECT_EQ(rig.type("Ada", "journal nobody"), "There is no player matching the name nobody.");
}

TEST_F(JournalTest, TheColumnsAreThoseThatClientsRead) {
    rig.type("Ada", "jsave J Ada 1");
    const std::string row = lastLine(rig.type("Ada", "journal"));
    EXPECT_EQ(columns(row, 1, 5), "%10: ");
    EXPECT_EQ(columns(row, 6, 13), "Ada          ");
    EXPECT_EQ(columns(row, 20, 4), "1711");
    EXPECT_EQ(columns(row, 28, 13), "Bert         ");
    EXPECT_EQ(columns(row, 42, 4), "1500");
    EXPECT_EQ(columns(row, 50, 1) + columns(row, 61, 1), "[]");
    EXPECT_EQ(columns(row, 63, 3), "---");
    EXPECT_EQ(columns(row, 67, 3), "Res");
    EXPECT_EQ(columns(row, 71, 7), "1-0    ");
}

TEST_F(JournalTest, GamesOfOthersAndOfJournalsCanBeSavedToo) {
    EXPECT_EQ(rig.type("Cora", "jsave a Bert 1"), "Game Bert 1 saved in slot A in journal.");
    EXPECT_EQ(rig.type("Bert", "jsave C Cora A"), "Game Cora A saved in slot C in journal.");
    EXPECT_EQ(rig.type("Bert", "jsave D C"), "Game C saved in slot D in journal.") << "of one's own journal";
    EXPECT_EQ(rig.type("Bert", "jsave E -1"), "Game -1 saved in slot E in journal.") << "of one's own history";
    EXPECT_EQ(rig.type("Cora", "jsave A Bert 77"), "There is no history game 77 for Bert.");
    EXPECT_EQ(rig.type("Cora", "jsave A Bert J"), "Journal entry J is not available for Bert.");
    EXPECT_EQ(rig.type("Cora", "jsave A"), "Usage: jsave slot [name] number|slot|opponent");
    EXPECT_EQ(rig.type("Cora", "jsave K Bert 1"), "Your maximum journal entry is J");
}

TEST_F(JournalTest, ASlotIsEmptied) {
    rig.type("Ada", "jsave A Ada 0");
    EXPECT_EQ(rig.type("Ada", "jkill a"), "Journal entry A deleted.");
    EXPECT_EQ(rig.type("Ada", "jkill A"), "You have no journal entry A.");
    EXPECT_EQ(rig.type("Ada", "jkill Z"), "Your maximum journal entry is J");
    EXPECT_EQ(rig.type("Ada", "jkill"), "Usage: jkill slot");
    EXPECT_EQ(rig.type("Ada", "journal"), "Ada has no journal entries.");
}

TEST_F(JournalTest, ASlotNamesAGameToReviewExamineAndMail) {
    rig.type("Ada", "jsave A Ada 0");
    EXPECT_EQ(rig.type("Cora", "smoves ada a"), rig.type("Cora", "smoves ada 0"));
    EXPECT_EQ(rig.type("Cora", "smoves ada b"), "Journal entry B is not available for Ada.");
    EXPECT_EQ(rig.type("Ada", "Mailstored Ada A"),
              "There is no mail in the practice hall; \"smoves Ada A\" shows the moves.");
    EXPECT_EQ(rig.type("Ada", "mailstored Ada 55"), "There is no history game 55 for Ada.");
    EXPECT_EQ(rig.type("Ada", "mailstored"), "Usage: mailstored [name] number|slot|opponent");
    EXPECT_NE(rig.type("Cora", "ex Ada A").find(" Ada Bert 2 5 0 "), std::string::npos);
}

TEST_F(JournalTest, AJournalOutlivesTheHistoryItCameFrom) {
    rig.type("Ada", "jsave A Ada 0");
    const std::string moves = rig.type("Ada", "smoves ada 0");
    for (int game = 0; game < 11; ++game) {
        rig.match("Ada", "Bert");
        rig.type("Bert", "resign");
    }
    EXPECT_EQ(rig.type("Ada", "smoves ada 0"), "There is no history game 0 for Ada.");
    EXPECT_EQ(rig.type("Ada", "smoves ada A"), moves);
}

TEST_F(JournalTest, AGuestsJournalGoesWithHim) {
    rig.enter("Guest");
    rig.type("Guest", "jsave A Ada 0");
    leaveHall(rig.hall, "Guest");
    rig.enter("Guest");
    EXPECT_EQ(rig.type("Guest", "journal"), "Guest has no journal entries.");
}

} // namespace
} // namespace practice
