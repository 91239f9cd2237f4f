// Tests of finding commands by typed words.
#include "practice/commands/CommandNames.h"
#include "practice/commands/Subjects.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace practice {
namespace {

TEST(CommandNames, FullNamesAreFoundInAnyLetterCase) {
    EXPECT_EQ(matchCommand("observe").name, "observe");
    EXPECT_EQ(matchCommand("GaMeS").name, "games");
}

TEST(CommandNames, FirstLettersFindTheirCommand) {
    EXPECT_EQ(matchCommand("ref").name, "refresh");
    EXPECT_EQ(matchCommand("unob").name, "unobserve");
    EXPECT_EQ(matchCommand("fi").name, "finger");
    EXPECT_EQ(matchCommand("sou").name, "sought");
}

TEST(CommandNames, CustomaryShortFormsAreKnown) {
    EXPECT_EQ(matchCommand("t").name, "tell");
    EXPECT_EQ(matchCommand("ob").name, "observe");
    EXPECT_EQ(matchCommand("vars").name, "variables");
    EXPECT_EQ(matchCommand("exit").name, "quit");
}

TEST(CommandNames, AFullNameIsNotAmbiguousThoughAnotherBeginsWithIt) {
    EXPECT_EQ(matchCommand("it").name, "it");
    EXPECT_EQ(matchCommand("set").name, "set");
    EXPECT_EQ(matchCommand("tell").name, "tell");
}

TEST(CommandNames, SeveralFittingCommandsAreAllNamed) {
    const auto match = matchCommand("r");
    EXPECT_EQ(match.name, "");
    EXPECT_EQ(match.ambiguous, (std::vector<std::string>{"refresh", "rematch", "resign", "revert"}));
}

TEST(CommandNames, LeavingIsNeverAMatterOfOneLetter) {
    EXPECT_EQ(matchCommand("q").name, "");
    EXPECT_EQ(matchCommand("qu").name, "");
    EXPECT_EQ(matchCommand("qui").name, "quit");
}

TEST(CommandNames, UnknownWordsFindNothing) {
    for (const char* word : {"", "foo", "observex", "journals"}) {
        EXPECT_EQ(matchCommand(word).name, "") << word;
        EXPECT_TRUE(matchCommand(word).ambiguous.empty()) << word;
    }
}

TEST(CommandNames, NamesAreSortedAndEachHasOneRoutine) {
    const auto& names = commandNames();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (const std::string& name : names) {
        int routines = 0;
        for (const auto subject :
             {gameCommands, offerCommands, examineCommands, watchCommands, talkCommands, infoCommands}) {
            routines += static_cast<int>(subject().count(name));
        }
        EXPECT_EQ(routines, 1) << name;
    }
}

} // namespace
} // namespace practice
