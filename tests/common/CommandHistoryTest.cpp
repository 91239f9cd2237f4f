// The walk through the lines sent.
#include "common/CommandHistory.h"

#include <gtest/gtest.h>

TEST(CommandHistory, NewestIsEntryOneAndTheTwentyFirstFallsOff) {
    CommandHistory history;
    history.entries[0] = "edited";
    for (int i = 1; i <= 21; ++i) history.zPushCommand("line " + std::to_string(i));
    EXPECT_EQ(history.entries[0], "edited");
    EXPECT_EQ(history.entries[1], "line 21");
    EXPECT_EQ(history.entries[20], "line 2");
}

TEST(CommandHistory, PushPutsTheCursorBack) {
    CommandHistory history;
    history.zPushCommand("a");
    history.up("");
    EXPECT_EQ(history.CommandCursor, 1);
    history.zPushCommand("b");
    EXPECT_EQ(history.CommandCursor, 0);
}

TEST(CommandHistory, UpOnAnEmptyHistoryShowsNothing) {
    CommandHistory history;
    EXPECT_EQ(history.up("typed"), std::nullopt);
    EXPECT_EQ(history.CommandCursor, 0);
    EXPECT_EQ(history.entries[0], "typed");
}

TEST(CommandHistory, DownAtTheEditedTextDoesNothing) {
    CommandHistory history;
    history.zPushCommand("a");
    EXPECT_EQ(history.down(), std::nullopt);
    EXPECT_EQ(history.CommandCursor, 0);
}

TEST(CommandHistory, UpStopsAtTheOldestLine) {
    CommandHistory history;
    for (int i = 1; i <= 25; ++i) history.zPushCommand(std::to_string(i));
    std::optional<std::string> shown;
    for (int i = 0; i < 20; ++i) shown = history.up("");
    EXPECT_EQ(shown, "6");
    EXPECT_EQ(history.up(""), std::nullopt);
    EXPECT_EQ(history.CommandCursor, 20);
}

TEST(CommandHistory, AnEditedTextSurvivesAWalkUpAndDown) {
    CommandHistory history;
    history.zPushCommand("first");
    history.zPushCommand("second");
    EXPECT_EQ(history.up("half a li"), "second");
    EXPECT_EQ(history.up("second"), "first");
    EXPECT_EQ(history.down(), "second");
    EXPECT_EQ(history.down(), "half a li");
    EXPECT_EQ(history.CommandCursor, 0);
}

TEST(CommandHistory, AnEditedTextThatEqualsTheNewestEntryIsNotComeBackTo) {
    CommandHistory history;
    history.zPushCommand("same");
    EXPECT_EQ(history.up("same"), "same");
    EXPECT_EQ(history.down(), std::nullopt);
    EXPECT_EQ(history.CommandCursor, 1);
}
