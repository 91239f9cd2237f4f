// The lines that the menu of a listed game sends.
#include "records/ListCommands.h"

#include <gtest/gtest.h>

namespace {

const ListedGame Numbered{"foo", " 5", std::nullopt};
const ListedGame Stored{"foo", " 1", "PyChess      "};

} // namespace

TEST(ListCommands, AGameGoesByItsFirstColumnWhichExamineTrims) {
    EXPECT_EQ(examineLine(Numbered), "ex foo 5");
    EXPECT_EQ(movesLine(Numbered), "smoves foo  5");
    EXPECT_EQ(mailLine(Numbered), "Mailstored foo  5");
    EXPECT_EQ(gameArguments(Numbered), "foo  5");
}

TEST(ListCommands, AStoredGameGoesByItsOpponent) {
    EXPECT_EQ(examineLine(Stored), "ex foo PyChess");
    EXPECT_EQ(movesLine(Stored), "smoves foo PyChess");
    EXPECT_EQ(mailLine(Stored), "Mailstored foo PyChess");
    EXPECT_EQ(gameArguments(Stored), "foo PyChess");
}

TEST(ListCommands, AddAndRemoveAlwaysUseTheFirstColumn) {
    EXPECT_EQ(addLine(Numbered, "C"), "jsave C foo  5");
    EXPECT_EQ(addLine(Stored, "J"), "jsave J foo  1");
    EXPECT_EQ(removeLine({"foo", "B", std::nullopt}), "jkill B");
    EXPECT_EQ(removeLine(Stored), "jkill  1");
}

TEST(ListCommands, RemoveAsksInItsOwnSpelling) {
    EXPECT_EQ(removeQuestion({"foo", "B", std::nullopt}), "Are you sure you want to permenantly remove game B?");
}
