// Tests of commands about players and settings, and of finding a command at all.
#include "practice/HallRig.h"
#include "practice/commands/HelpTexts.h"
#include "practice/play/Departure.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace practice {
namespace {

struct InfoCommandsTest : testing::Test {
    HallRig rig;

    InfoCommandsTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
    }
};

TEST_F(InfoCommandsTest, UnknownWordsAreNoCommands) {
    EXPECT_EQ(rig.type("Ada", "foo bar"), "foo: Command not found.");
    EXPECT_EQ(rig.type("Ada", "r"), "Ambiguous command. Matches: refresh rematch resign revert");
}

TEST_F(InfoCommandsTest, AnEmptyLineGivesThePromptAlone) {
    const Answer answer = runCommand(rig.hall, *rig.hall.find("Ada"), "  ");
    EXPECT_EQ(answer.text, "");
    EXPECT_TRUE(answer.prompt);
}

TEST_F(InfoCommandsTest, LetterCaseDoesNotMatter) {
    EXPECT_EQ(rig.type("Ada", "Set Style 12"), "Style 12 set.");
    EXPECT_EQ(rig.type("Ada", "STYLE 12"), "Style 12 set.");
}

TEST_F(InfoCommandsTest, WhoListsPlayersWithTheirStates) {
    rig.enter("Cora");
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Cora", "who"), "1711^Ada                   ++++^Bert(U)               ++++ Cora(U)\n\n"
                                       " 3 players displayed (of 3).");
    rig.now += 400'000;
    EXPECT_NE(rig.type("Ada", "who").find("++++.Cora(U)"), std::string::npos);
}

TEST_F(InfoCommandsTest, FingerTellsAboutOneself) {
    rig.now += 65'000;
    EXPECT_EQ(rig.type("Bert", "finger"),
              "Finger of Bert(U):\n\nOn for: 1 min   Idle: 0 secs\n\nBert is NOT a registered player.");
}

TEST_F(InfoCommandsTest, FingerShowsTheNotes) {
    rig.type("Ada", "set 1 I like endgames.");
    rig.type("Ada", "set 10 And openings.");
    EXPECT_TRUE(
        rig.type("Bert", "fi ada")
            .ends_with("\n\n 1: I like endgames.\n 2: \n 3: \n 4: \n 5: \n 6: \n 7: \n 8: \n 9: \n10: And openings."));
    EXPECT_EQ(rig.type("Ada", "finger"), rig.type("Bert", "finger ada"));
}

TEST_F(InfoCommandsTest, NotesAreWrappedToTheReadersWidth) {
    rig.type("Ada", "set 1 one two three four five six seven eight nine ten");
    rig.type("Bert", "set width 40");
    EXPECT_TRUE(rig.type("Bert", "finger ada")
                    .ends_with("\n\n 1: one two three four five six seven \n"
                               "\\   eight nine ten"));
}

TEST_F(InfoCommandsTest, FingerCountsTheGamesThatHistoryLists) {
    for (const char* loser : {"Bert", "Bert", "Ada"}) {
        rig.match("Ada", "Bert");
        rig.type("Ada", "e4");
        rig.type("Bert", "e5");
        rig.type(loser, "resign");
    }
    rig.match("Ada", "Bert");
    rig.type("Ada", "abort");
    const std::string head = "          rating     RD      win    loss    draw   total   best\n";
    EXPECT_TRUE(rig.type("Bert", "finger ada")
                    .ends_with("\n\n" + head + "Blitz      1711     80.0       2       1       0       3"));
    EXPECT_TRUE(rig.type("Ada", "finger bert")
                    .ends_with("\n\nBert is NOT a registered player.\n\n" + head +
                               "Blitz      ++++     80.0       1       2       0       3"));
    EXPECT_NE(rig.type("Ada", "history").find("\n 2: "), std::string::npos);
    EXPECT_EQ(rig.type("Ada", "history").find("\n 3: "), std::string::npos);
}

TEST_F(InfoCommandsTest, FingerOfAbsentPlayers) {
    rig.hall.accounts = builtInAccounts();
    EXPECT_EQ(rig.type("Ada", "finger pupil"), "Finger of Pupil:\n\nPupil is not logged on.\n\n"
                                               "          rating     RD      win    loss    draw   total   best\n"
                                               "Blitz      1200     80.0       0       0       0       0");
    EXPECT_TRUE(rig.type("Ada", "finger novice").ends_with("\n\nNovice has not played any rated games."));
    EXPECT_EQ(rig.type("Ada", "finger zzz"), "There is no player matching the name zzz.");
}

TEST_F(InfoCommandsTest, FingerOfARegisteredPlayerWhoLeftKeepsGamesAndNotes) {
    rig.hall.accounts.users = {{"Ada", "secret", 1711}};
    rig.type("Ada", "set 2 Back tomorrow.");
    rig.match("Ada", "Bert");
    rig.type("Ada", "resign");
    leaveHall(rig.hall, "Ada");
    EXPECT_TRUE(
        rig.type("Bert", "finger ada")
            .ends_with("\nBlitz      1711     80.0       0       1       0       1\n\n 1: \n 2: Back tomorrow."));
}

TEST_F(InfoCommandsTest, VariablesOfOneselfAndOthers) {
    EXPECT_TRUE(rig.type("Ada", "Vars").starts_with("Variable settings of Ada:\n"));
    EXPECT_TRUE(rig.type("Ada", "variables bert").starts_with("Variable settings of Bert:\n"));
}

TEST_F(InfoCommandsTest, VariablesOfARegisteredPlayerWhoIsNotHere) {
    rig.hall.accounts.users = {{"Ada", "secret", 1711}, {"Dora", "secret", 1500}};
    rig.type("Ada", "set time 17");
    leaveHall(rig.hall, "Ada");
    EXPECT_TRUE(rig.type("Bert", "variables ada").starts_with("Variable settings of Ada:\n\ntime=17 "));
    EXPECT_TRUE(rig.type("Bert", "variables dora").starts_with("Variable settings of Dora:\n\ntime=2 "));
    EXPECT_EQ(rig.type("Bert", "variables emil"), "There is no player matching the name emil.");
}

TEST_F(InfoCommandsTest, GuestsAskForUnratedGamesUnlessTheySayMore) {
    EXPECT_NE(rig.type("Bert", "variables").find("\nrated=0 "), std::string::npos);
    EXPECT_NE(rig.type("Ada", "variables").find("\nrated=1 "), std::string::npos);
}

TEST_F(InfoCommandsTest, SettingsKeepTheRestOfTheLine) {
    EXPECT_EQ(rig.type("Ada", "set interface probe  2"), "interface set to \"probe  2\".");
    EXPECT_EQ(rig.type("Ada", "Set Prompt go>"), "prompt set to \"go> \".");
}

TEST_F(InfoCommandsTest, SettingsOfARegisteredPlayerAreRemembered) {
    for (const char* name : {"Ada", "Bert"}) {
        for (const char* setting : {"width 100", "prompt go>", "4 Fourth."}) {
            rig.type(name, std::string("set ") + setting);
        }
    }
    leaveHall(rig.hall, "Ada");
    leaveHall(rig.hall, "Bert");
    const Variables ada = rig.enter("Ada", "1711").variables;
    const Variables bert = rig.enter("Bert").variables;
    EXPECT_EQ(ada.value("width"), 100);
    EXPECT_EQ(ada.prompt, "go> ");
    EXPECT_EQ(ada.notes[3], "Fourth.");
    EXPECT_EQ(bert.value("width"), 79);
    EXPECT_EQ(bert.prompt, "fics% ");
    EXPECT_EQ(bert.noteCount(), 0);
}

TEST_F(InfoCommandsTest, ArrivalsAreToldToThoseWhoWantThem) {
    rig.type("Ada", "set pin 1");
    rig.enter("Cora");
    leaveHall(rig.hall, "Cora");
    EXPECT_EQ(rig.takeShown("Ada"), "|[Cora(U) has connected.]|[Cora(U) has disconnected.]");
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(InfoCommandsTest, HelpIsGiven) {
    EXPECT_TRUE(rig.type("Ada", "help seek").starts_with("seek "));
    EXPECT_TRUE(rig.type("Ada", "help nosuch").starts_with("No help available"));
}

TEST_F(InfoCommandsTest, LongHelpComesInPiecesOfTheScreensHeight) {
    rig.type("Ada", "set height 12");
    std::string whole;
    std::string piece = rig.type("Ada", "help variables");
    const std::string invitation = "\nType [next] to see next page.";
    int pieces = 1;
    for (; piece.ends_with(invitation); ++pieces) {
        EXPECT_EQ(std::count(piece.begin(), piece.end(), '\n'), 11);
        whole += piece.substr(0, piece.size() - invitation.size()) + "\n";
        piece = rig.type("Ada", "next");
    }
    EXPECT_EQ(pieces, 5);
    EXPECT_EQ(whole + piece, helpOn("variables"));
    EXPECT_EQ(rig.type("Ada", "next"), "There is no more.");
}

TEST_F(InfoCommandsTest, EveryReaderHasHisOwnPlaceInHelp) {
    rig.type("Ada", "help manual");
    EXPECT_EQ(rig.type("Bert", "next"), "There is no more.");
    rig.type("Ada", "who");
    EXPECT_TRUE(rig.type("Ada", "next").ends_with("Type [next] to see next page."));
    rig.type("Ada", "help date");
    EXPECT_EQ(rig.type("Ada", "next"), "There is no more.");
}

TEST_F(InfoCommandsTest, WhatIsNotThereSaysSo) {
    EXPECT_EQ(rig.type("Ada", "history"), "Ada has no history games.");
    EXPECT_EQ(rig.type("Ada", "stored bert"), "Bert has no adjourned games.");
    EXPECT_EQ(rig.type("Ada", "iset seekinfo 1"), "No such ivariable \"seekinfo\".");
    EXPECT_EQ(rig.type("Ada", "next"), "There is no more.");
}

} // namespace
} // namespace practice
