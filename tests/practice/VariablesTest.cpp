// Tests of a player's settings.
#include "practice/people/Variables.h"

#include <gtest/gtest.h>

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
    EXPECT_TRUE(variablesTable("Ada", variables).ends_with("\nInterface: \"probe 1\""));
}

TEST(Variables, TenNotesAreKept) {
    Variables variables;
    EXPECT_EQ(applySetting(variables, "1", "my note"), "Note 1 set: my note");
    EXPECT_EQ(applySetting(variables, "10", "last"), "Note 10 set: last");
    EXPECT_EQ(applySetting(variables, "1", ""), "Note 1 unset.");
    EXPECT_EQ(applySetting(variables, "11", "x"), "No such variable \"11\".");
    EXPECT_EQ(variables.notes[9], "last");
}

TEST(Variables, TheTableKeepsItsColumns) {
    const std::string table = variablesTable("Ada", Variables());
    EXPECT_TRUE(table.starts_with("Variable settings of Ada:\n\n"
                                  "time=2       private=0     shout=1         pin=0           style=12\n"
                                  "inc=12       jprivate=0    cshout=1        notifiedby=0    flip=0\n"
                                  "rated=0                    kibitz=1        availinfo=0     highlight=0\n"
                                  "open=1       automail=0    kiblevel=0      availmin=0      bell=0\n"));
    EXPECT_TRUE(
        table.ends_with("\nminmovetime=1              tolerance=1     noescape=0      notakeback=0\n\nPrompt: fics% "));
}

} // namespace
} // namespace practice
