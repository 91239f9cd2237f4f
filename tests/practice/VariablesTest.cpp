// Tests of a player's settings.
#include "practice/people/Variables.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace practice {
namespace {

TEST(Variables, Style12IsConfirmed) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "style", "12"), "Style 12 set.");
    EXPECT_EQ(applySetting(variables, "Style", "12"), "Style 12 set.");
}

TEST(Variables, OtherStylesAreRefused) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "style", "99"), "Bad value given for variable \"style\".");
    EXPECT_EQ(variables.value("style"), 12);
}

TEST(Variables, SwitchesAreSetAndSayWhatTheyDo) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "seek", "0"), "You will not see seek ads.");
    EXPECT_EQ(variables.value("seek"), 0);
    EXPECT_EQ(applySetting(variables, "seek", "1"), "You will now see seek ads.");
    EXPECT_EQ(variables.value("seek"), 1);
}

TEST(Variables, ASwitchWithoutAValueToggles) {
    Variables variables;
    const int before = variables.value("gin");
    applySetting(variables, "Gin", "");
    EXPECT_EQ(variables.value("gin"), 1 - before);
    applySetting(variables, "Gin", "");
    EXPECT_EQ(variables.value("gin"), before);
}

TEST(Variables, NumbersKeepWithinTheirRange) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "width", "120"), "width set to 120.");
    EXPECT_EQ(applySetting(variables, "width", "10"), "Bad value given for variable \"width\".");
    EXPECT_EQ(applySetting(variables, "width", "wide"), "Bad value given for variable \"width\".");
    EXPECT_EQ(variables.value("width"), 120);
}

TEST(Variables, TheTimesOfAnUnsaidChallengeStayBelowWhatAClientsClockHolds) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "time", "546"), "time set to 546.");
    EXPECT_EQ(applySetting(variables, "time", "547"), "Bad value given for variable \"time\".");
    EXPECT_EQ(applySetting(variables, "inc", "999"), "inc set to 999.");
    EXPECT_EQ(applySetting(variables, "inc", "1000"), "Bad value given for variable \"inc\".");
}

TEST(Variables, FirstLettersFindAVariableIfTheyAreItsOwn) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "autofl", "0"), "Auto-flagging disabled.");
    EXPECT_EQ(applySetting(variables, "avail", "1"), "No such variable \"avail\".");
    EXPECT_EQ(applySetting(variables, "foo", "bar"), "No such variable \"foo\".");
}

TEST(Variables, ThePromptGetsABlankBehindIt) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "prompt", "box$"), "prompt set to \"box$ \".");
    EXPECT_EQ(variables.prompt, "box$ ");
    EXPECT_EQ(applySetting(variables, "prompt", ""), "prompt set to \"fics% \".");
}

TEST(Variables, TheInterfaceIsNamed) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "interface", "probe 1"), "interface set to \"probe 1\".");
    EXPECT_TRUE(variablesTable("Ada", variables).ends_with("\nPrompt: fics% \nInterface: \"probe 1\"\n"));
}

TEST(Variables, TenNotesAreKept) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "1", "my note"), "Note 1 set: my note");
    EXPECT_EQ(applySetting(variables, "10", "last"), "Note 10 set: last");
    EXPECT_EQ(applySetting(variables, "1", ""), "Note 1 cleared.");
    EXPECT_EQ(applySetting(variables, "11", "x"), "No such variable \"11\".");
    EXPECT_EQ(variables.notes[9], "last");
}

// Some words of a public server, each for what was typed behind "set ".
TEST(Variables, SettingsAreAnsweredInThePublicServersWords) {
    Variables variables;
    const std::vector<std::array<std::string, 3>> spoken{
        {"open", "0", "You are no longer receiving match requests."},
        {"open", "1", "You are now receiving match requests."},
        {"open", "", "You are no longer receiving match requests."},
        {"rated", "off", "rated set to 0."},
        {"rated", "on", "rated set to 1."},
        {"ropen", "0", "ropen set to 0."},
        {"time", "5", "time set to 5."},
        {"inc", "3", "inc set to 3."},
        {"shout", "0", "You will not hear shouts."},
        {"shout", "1", "You will now hear shouts."},
        {"bell", "1", "You will now hear beeps."},
        {"bell", "0", "You will not hear beeps."},
        {"seek", "0", "You will not see seek ads."},
        {"seek", "1", "You will now see seek ads."},
        {"nosuch", "1", "No such variable \"nosuch\"."},
        {"height", "24", "height set to 24."},
        {"width", "79", "width set to 79."},
        {"width", "5", "Bad value given for variable \"width\"."},
        {"private", "1", "Your games will be private."},
        {"private", "0", "Your games may not be private."},
        {"interface", "Client 1.0", "interface set to \"Client 1.0\"."},
        {"prompt", "foo%", "prompt set to \"foo% \"."},
        {"prompt", "", "prompt set to \"fics% \"."},
        {"flip", "1", "Flip on."},
        {"flip", "0", "Flip off."},
        {"availmax", "5", "You will be notified of availability with blitz ratings 0 - 5."},
        {"kibitz", "0", "You will not hear kibitzes."},
        {"kibitz", "1", "You will now hear kibitzes."},
        {"tell", "0", "You will not hear direct tells from unregistered users."},
        {"tell", "1", "You will now hear direct tells from unregistered users."},
        {"mailmess", "1", "Your messages will be mailed to you."},
        {"autoflag", "1", "Auto-flagging enabled."},
        {"ptime", "1", "Your prompt will now show the time."},
        {"ptime", "0", "Your prompt will now not show the time."},
    };
    for (const auto& [word, value, answer] : spoken) EXPECT_EQ(applySetting(variables, word, value), answer);
}

TEST(Variables, ASwitchTakesZeroOneOffAndOnAndNothingElse) {
    Variables variables;
    for (const char* value : {"1", "on", "ON"}) {
        variables.numbers["pin"] = 0;
        applySetting(variables, "pin", value);
        EXPECT_EQ(variables.value("pin"), 1) << value;
    }
    for (const char* value : {"0", "off", "Off"}) {
        variables.numbers["pin"] = 1;
        applySetting(variables, "pin", value);
        EXPECT_EQ(variables.value("pin"), 0) << value;
    }
    EXPECT_EQ(applySetting(variables, "pin", "2"), "Bad value given for variable \"pin\".");
    EXPECT_EQ(variables.value("pin"), 0);
}

TEST(Variables, TheLimitsOfAvailabilityAreNumbersThatToggleToo) {
    Variables variables;
    applySetting(variables, "availmin", "1200");
    EXPECT_EQ(variables.value("availmin"), 1200);
    applySetting(variables, "AvailMin", "");
    EXPECT_EQ(variables.value("availmin"), 0);
    EXPECT_EQ(applySetting(variables, "availmin", ""),
              "You will be notified of availability with blitz ratings 1 - 0.");
    EXPECT_EQ(applySetting(variables, "availmin", "10000"), "Bad value given for variable \"availmin\".");
    EXPECT_EQ(applySetting(variables, "width", ""), "Bad value given for variable \"width\".");
}

TEST(Variables, APromptMayBeAsLongAsALine) {
    Variables variables;
    applySetting(variables, "prompt", std::string(200, 'p'));
    EXPECT_EQ(variables.prompt, std::string(200, 'p') + " ");
}

TEST(Variables, AnEmptiedNoteLeavesTheOthersTheirNumbers) {
    Variables variables;
    for (const char* index : {"1", "2", "3"}) applySetting(variables, index, std::string("note ") + index);
    EXPECT_EQ(applySetting(variables, "4", ""), "You do not have that many lines set.");
    EXPECT_EQ(applySetting(variables, "2", ""), "Note 2 cleared.");
    EXPECT_EQ(variables.notes[0], "note 1");
    EXPECT_EQ(variables.notes[1], "");
    EXPECT_EQ(variables.notes[2], "note 3");
    EXPECT_EQ(variables.noteCount(), 3);
    EXPECT_EQ(applySetting(variables, "3", ""), "Note 3 cleared.");
    EXPECT_EQ(variables.noteCount(), 1);
    EXPECT_EQ(applySetting(variables, "3", ""), "You do not have that many lines set.");
}

TEST(Variables, TheAnswerToALongNoteIsWrapped) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "2",
                           "A second note, which is long enough to be wrapped by the server since it has more than "
                           "seventy nine characters in it"),
              "Note 2 set: A second note, which is long enough to be wrapped by the server \n"
              "\\   since it has more than seventy nine characters in it");
}

} // namespace
} // namespace practice
