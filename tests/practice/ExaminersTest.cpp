// Tests of several examiners at one board, and of the lines around an examined game beside recorded ones.
#include "common/RecordedText.h"
#include "practice/HallRig.h"
#include "practice/play/Departure.h"

#include <gtest/gtest.h>

#include <set>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Ada examines the game of three half-moves that she lost to Bert; Cora and Dora watch.
struct ExaminersTest : testing::Test {
    HallRig rig;

    ExaminersTest() {
        for (const char* name : {"Ada", "Bert", "Cora", "Dora"}) rig.enter(name, "1500");
        rig.match("Ada", "Bert");
        for (const char* move : {"e4", "e5", "Nf3"}) rig.type(rig.hall.game(1)->toMove() == 0 ? "Ada" : "Bert", move);
        rig.type("Ada", "resign");
        rig.type("Ada", "examine ada 0");
        rig.type("Cora", "observe 1");
        rig.type("Dora", "observe 1");
        rig.shown.clear();
    }
};

// "Game 29: guesttick backs up 22 moves." without its names and numbers: "Game #: * backs up # moves."
std::string shapeOf(const std::string& line, const std::set<std::string>& names) {
    std::string shape;
    for (std::size_t at = 0; at < line.size();) {
        auto end = line.find_first_of(" .:", at);
        end = end == at ? at + 1 : std::min(end, line.size());
        const std::string word = line.substr(at, end - at);
        const bool digits = word.find_first_not_of("0123456789") == std::string::npos;
        shape += digits ? "#" : names.contains(word) ? "*" : word;
        at = end;
    }
    return shape;
}

std::set<std::string> recordedShapes() {
    const std::set<std::string> names{"TibetianTick", "guesttick", "Anders", "GuestSVXU", "Cesar"};
    std::set<std::string> shapes;
    for (const char* file : {"text/tells_shouts_events.txt", "server-a/01_anders_registered.raw",
                             "server-b/01_anders_registered.raw", "server-b/10_examine_journal.raw"}) {
        for (std::string line : recordedLines(file)) {
            if (line.starts_with("fics% ")) line.erase(0, 6);
            shapes.insert(shapeOf(line, names));
        }
    }
    return shapes;
}

TEST_F(ExaminersTest, TheLinesAroundAnExaminedGameAreTheRecordedOnes) {
    const auto recorded = recordedShapes();
    std::vector<std::string> lines;
    const auto keep = [&](const std::string& text) { lines.push_back(text.substr(0, text.find('\n'))); };
    keep(rig.type("Ada", "back"));
    keep(rig.type("Ada", "forward"));
    keep(rig.type("Ada", "For 999"));
    keep(rig.type("Ada", "forward"));
    keep(rig.type("Ada", "back"));
    keep(rig.type("Ada", "Back 999"));
    keep(rig.type("Ada", "Revert"));
    rig.takeShown("Ada");
    rig.type("Ada", "e4");
    const std::string tried = rig.takeShown("Ada");
    keep(tried.substr(tried.find('\n') + 1));
    rig.type("Ada", "d5");
    rig.type("Ada", "Nc6");
    keep(rig.type("Ada", "forward"));
    keep(rig.type("Ada", "revert"));
    keep(rig.type("Ada", "mexamine bert"));
    rig.takeShown("Cora");
    rig.takeShown("Dora");
    rig.type("Ada", "mexamine cora");
    keep(rig.takeShown("Cora").substr(1));
    keep(rig.takeShown("Dora").substr(1));
    rig.type("Cora", "unexamine");
    keep(rig.takeShown("Dora").substr(1));
    keep(rig.type("Ada", "unexamine"));
    for (const char* typed : {"refresh", "back", "revert", "e4", "examine ada 9", "examine", "examine ada 0"})
        keep(rig.type("Ada", typed));
    ASSERT_EQ(lines.size(), 22U);
    for (const std::string& line : lines)
        EXPECT_TRUE(recorded.contains(shapeOf(line, {"Ada", "Bert", "Cora", "Dora"}))) << line;
}

TEST_F(ExaminersTest, AnObserverIsMadeAnExaminerAndEverybodyIsTold) {
    EXPECT_EQ(rig.type("Ada", "mexamine cora"), "Cora is now an examiner of game 1.");
    const std::string shown = rig.takeShown("Cora");
    EXPECT_TRUE(shown.starts_with("|Ada has made you an examiner of game 1.\n\n<12> ")) << shown;
    EXPECT_TRUE(has(shown, " 1 Ada Bert 2 5 0 ")) << shown;
    EXPECT_EQ(rig.takeShown("Dora"), "|Cora is now an examiner of game 1.");
    EXPECT_TRUE(rig.hall.find("Cora")->observing.empty());
}

TEST_F(ExaminersTest, OnlyAnObserverOfTheGameIsMadeAnExaminer) {
    EXPECT_EQ(rig.type("Ada", "mexamine bert"), "Bert is not observing the game you are examining.");
    EXPECT_EQ(rig.type("Ada", "mexamine ada"), "Ada is examining this game already.");
    EXPECT_EQ(rig.type("Ada", "mexamine nobody"), "No player named \"nobody\" is online.");
    EXPECT_EQ(rig.type("Ada", "mexamine"), "Usage: mexamine NAME");
    EXPECT_EQ(rig.type("Cora", "mexamine dora"), "You are not examining any games.");
    EXPECT_EQ(rig.hall.game(1)->examiners, std::vector<std::string>{"Ada"});
}

TEST_F(ExaminersTest, ANewExaminerWatchesNoOtherGameAndOffersNone) {
    rig.match("Bert", "Dora");
    rig.type("Cora", "observe 2");
    rig.type("Cora", "seek 5 0");
    rig.shown.clear();
    rig.type("Ada", "mexamine cora");
    EXPECT_TRUE(rig.takeShown("Cora").starts_with("|Removing game 2 from observation list.\nAda has made you"));
    EXPECT_TRUE(rig.hall.seeks.open.empty());
}

TEST_F(ExaminersTest, EachExaminerWalksAndTheOthersSeeTheirOwnBoard) {
    rig.type("Ada", "mexamine cora");
    rig.shown.clear();
    const std::string own = rig.type("Cora", "forward 2");
    EXPECT_TRUE(own.starts_with("Game 1: Cora goes forward 2 moves.\n\n<12> ")) << own;
    EXPECT_TRUE(has(own, " 1 Ada Bert 2 5 0 "));
    EXPECT_EQ(rig.takeShown("Ada"), "|" + own);
    const std::string watched = rig.takeShown("Dora");
    EXPECT_TRUE(watched.starts_with("|Game 1: Cora goes forward 2 moves.\n\n<12> "));
    EXPECT_TRUE(has(watched, " 1 Ada Bert -2 5 0 "));
    EXPECT_EQ(rig.takeShown("Cora"), "");
}

TEST_F(ExaminersTest, ATriedMoveNamesWhoMoved) {
    rig.type("Ada", "mexamine cora");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Cora", "d4"), "");
    for (const char* name : {"Ada", "Cora", "Dora"})
        EXPECT_TRUE(rig.takeShown(name).ends_with("\nGame 1: Cora moves: d4")) << name;
}

TEST_F(ExaminersTest, AMoveOfTheGameThatIsTriedStaysOnTheMainLine) {
    rig.type("Ada", "e4");
    EXPECT_EQ(rig.type("Ada", "revert"), "Game 1: Already at mainline.");
    EXPECT_TRUE(rig.type("Ada", "forward").starts_with("Game 1: Ada goes forward 1 move."));
}

TEST_F(ExaminersTest, WhoStopsLeavesTheGameToTheOthers) {
    rig.type("Ada", "mexamine cora");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "unexamine"), "You are no longer examining game 1.");
    EXPECT_EQ(rig.takeShown("Cora"), "|Ada stopped examining game 1.");
    EXPECT_EQ(rig.takeShown("Dora"), "|Ada stopped examining game 1.");
    EXPECT_TRUE(rig.type("Cora", "forward").starts_with("Game 1: Cora goes forward 1 move."));
    rig.shown.clear();
    leaveHall(rig.hall, "Cora");
    EXPECT_EQ(rig.takeShown("Dora"), "|Cora stopped examining game 1.\nRemoving game 1 from observation list.");
    EXPECT_TRUE(rig.hall.games.empty());
    EXPECT_TRUE(rig.hall.find("Dora")->observing.empty());
}

TEST_F(ExaminersTest, TheLinesOfAllExaminersWaitWhileAMoveIsJudged) {
    rig.type("Ada", "mexamine cora");
    rig.holdRules = true;
    rig.type("Ada", "d4");
    EXPECT_EQ(rig.type("Cora", "e4"), "It is not your move.");
    rig.resumed.clear();
    rig.holdRules = false;
    rig.release();
    EXPECT_GT(rig.resumed["Ada"], 0);
    EXPECT_GT(rig.resumed["Cora"], 0);
}

TEST_F(ExaminersTest, AnExaminerWhoLeavesWhileHisMoveIsJudgedIsForgotten) {
    rig.type("Ada", "mexamine cora");
    rig.holdRules = true;
    rig.type("Ada", "d4");
    leaveHall(rig.hall, "Ada");
    rig.shown.clear();
    rig.holdRules = false;
    rig.release();
    EXPECT_TRUE(rig.takeShown("Cora").ends_with("\nGame 1: Ada moves: d4"));
    EXPECT_EQ(rig.takeShown("Ada"), "");
    EXPECT_EQ(rig.hall.game(1)->examiners, std::vector<std::string>{"Cora"});
}

TEST_F(ExaminersTest, KibitzesReachAllExaminers) {
    rig.type("Ada", "mexamine cora");
    rig.shown.clear();
    rig.type("Dora", "kibitz why");
    for (const char* name : {"Ada", "Cora"})
        EXPECT_TRUE(has(rig.takeShown(name), "Dora(1500)[1] kibitzes: why")) << name;
}

} // namespace
} // namespace practice
