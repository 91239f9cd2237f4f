// What the special keys put into a typing line.
#include "common/TypingKey.h"

#include "common/modChess.h"

#include <gtest/gtest.h>

namespace {

struct TypingKeyTest : testing::Test {
    CommandHistory history;

    TypingKeyTest() { modChess = ModChess{}; }
    std::optional<std::string> text(int key, std::optional<int> game = {}) {
        return typingAnswer(key, history, "before", game).text;
    }
};

} // namespace

TEST_F(TypingKeyTest, TheFunctionKeysOfTheConsolePutInTheFirstWordsOfACommand) {
    modChess.TellTarget = "Bob";
    EXPECT_EQ(text(KeyF5), "Say ");
    EXPECT_EQ(text(KeyF7), "Kibitz ");
    EXPECT_EQ(text(KeyF8), "Whisper ");
    EXPECT_EQ(text(KeyF9), "Tell Bob ");
}

TEST_F(TypingKeyTest, OnABoardKibitzAndWhisperNameItsGame) {
    modChess.TellTarget = "50";
    EXPECT_EQ(text(KeyF5, 42), "Say ");
    EXPECT_EQ(text(KeyF7, 42), "xKibitz 42 ");
    EXPECT_EQ(text(KeyF8, 42), "xWhisper 42 ");
    EXPECT_EQ(text(KeyF9, 42), "Tell 50 ");
    EXPECT_EQ(text(KeyF7, 0), "xKibitz 0 ") << "an idle board";
}

TEST_F(TypingKeyTest, UpAndDownWalkTheHistoryAndKeepTheEditedText) {
    history.zPushCommand("one");
    EXPECT_EQ(text(KeyUp), "one");
    EXPECT_EQ(text(KeyDown), "before");
}

TEST_F(TypingKeyTest, UpIsTakenEvenWithNothingToShow) {
    EXPECT_TRUE(typingAnswer(KeyUp, history, "before").taken);
    EXPECT_EQ(text(KeyUp), std::nullopt);
}

TEST_F(TypingKeyTest, OtherKeysAreLeft) {
    for (const int key : {0, int{KeyEnter}, 37, 39, 112, 117, 121}) {
        EXPECT_FALSE(typingAnswer(key, history, "before").taken) << key;
        EXPECT_EQ(text(key), std::nullopt) << key;
    }
}
