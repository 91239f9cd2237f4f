// A key in, the typing line out.
#include "session/TypingKeys.h"

#include "common/modChess.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

struct TypingKeysTest : testing::Test {
    Session session{quietSurface()};
    TextPipeline& pipeline = session.pipeline;
    ServerRoad& road = session.road;
    LogOn& logOn = session.logOn;
    TypingKeys& keys = session.typingKeys;
    std::string typing;
    std::string sent;
    std::string echoed;
    std::int16_t state = 7;
    int carets = 0;
    std::size_t caretAt = 0; // where caretToEnd put it
    int focuses = 0;
    int chats = 0;

    TypingKeysTest() {
        modChess = ModChess{};
        road.hooks.sendData = [this](const std::string& bytes) { sent += bytes; };
        road.hooks.socketState = [this] { return state; };
        road.hooks.echo = [this](const std::string& text) { echoed += text; };
        keys.hooks.text = [this] { return typing; };
        keys.hooks.setText = [this](const std::string& text) { typing = text; };
        keys.hooks.caretToEnd = [this] {
            ++carets;
            caretAt = typing.size();
        };
        keys.hooks.focus = [this] { ++focuses; };
        keys.hooks.zNewChat = [this] { ++chats; };
    }
};

} // namespace

TEST_F(TypingKeysTest, EnterSendsAndEmptiesTheLine) {
    typing = "finger bob";
    EXPECT_TRUE(keys.zTxtSend(13));
    EXPECT_EQ(sent, "finger bob\n");
    EXPECT_EQ(typing, "");
}

TEST_F(TypingKeysTest, OtherCharactersPass) {
    typing = "x";
    EXPECT_FALSE(keys.zTxtSend('a'));
    EXPECT_EQ(typing, "x");
    EXPECT_EQ(sent, "");
}

TEST_F(TypingKeysTest, WhileNotConnectedTheTextStays) {
    state = 0;
    typing = "finger bob";
    EXPECT_FALSE(keys.zTxtSend(13));
    EXPECT_EQ(typing, "finger bob");
    EXPECT_EQ(sent, "");
    EXPECT_EQ(road.history.entries[1], "");
}

TEST_F(TypingKeysTest, HelpAndHistoryOpenTheirPanelsWhileNotConnected) {
    state = 0;
    int panels = 0;
    road.hooks.showHelp = [&] { ++panels; };
    road.hooks.showHistory = [&] { ++panels; };
    for (const char* text : {"help", "he tactics", "history", "hi bob"}) {
        typing = text;
        EXPECT_TRUE(keys.zTxtSend(13)) << text;
        EXPECT_EQ(typing, "");
    }
    EXPECT_EQ(panels, 4);
    for (const char* text : {"h bob", "help~", "history~"}) {
        typing = text;
        EXPECT_FALSE(keys.zTxtSend(13)) << text << " is neither";
    }
}

TEST_F(TypingKeysTest, FunctionKeysReplaceTheLine) {
    modChess.TellTarget = "Bob";
    const std::vector<std::pair<int, std::string>> table{
        {KeyF5, "Say "}, {KeyF7, "Kibitz "}, {KeyF8, "Whisper "}, {KeyF9, "Tell Bob "}};
    for (const auto& [key, text] : table) {
        typing = "before";
        carets = 0;
        EXPECT_TRUE(keys.typingKeyDown(key, false));
        EXPECT_EQ(typing, text);
        EXPECT_EQ(carets, 1);
    }
}

TEST_F(TypingKeysTest, KibitzAndWhisperTakeTheFocus) {
    keys.typingKeyDown(KeyF5, false);
    keys.typingKeyDown(KeyF9, false);
    EXPECT_EQ(focuses, 0);
    keys.typingKeyDown(KeyF7, false);
    keys.typingKeyDown(KeyF8, false);
    EXPECT_EQ(focuses, 2);
}

TEST_F(TypingKeysTest, ShiftF9OpensABoxAndTheKeyStays) {
    typing = "before";
    EXPECT_FALSE(keys.typingKeyDown(KeyF9, true));
    EXPECT_EQ(chats, 1);
    EXPECT_EQ(typing, "before");
    EXPECT_EQ(carets, 1) << "the insertion point goes to the end";
}

TEST_F(TypingKeysTest, OtherKeysPass) {
    for (int key : {0, 13, 37, 39, 112, 117, 121}) EXPECT_FALSE(keys.typingKeyDown(key, false)) << key;
    EXPECT_EQ(carets, 0);
}

TEST_F(TypingKeysTest, UpAndDownWalkTheHistory) {
    road.zSend("one");
    road.zSend("two");
    typing = "edited";
    EXPECT_TRUE(keys.typingKeyDown(KeyUp, false));
    EXPECT_EQ(typing, "two");
    keys.typingKeyDown(KeyUp, false);
    EXPECT_EQ(typing, "one");
    keys.typingKeyDown(KeyUp, false);
    EXPECT_EQ(typing, "one");
    EXPECT_TRUE(keys.typingKeyDown(KeyDown, false));
    keys.typingKeyDown(KeyDown, false);
    EXPECT_EQ(typing, "edited");
    EXPECT_EQ(carets, 5);
}

TEST_F(TypingKeysTest, UpOnAnEmptyHistoryKeepsTheText) {
    typing = "edited";
    EXPECT_TRUE(keys.typingKeyDown(KeyUp, false));
    EXPECT_TRUE(keys.typingKeyDown(KeyDown, false));
    EXPECT_EQ(typing, "edited");
}

TEST_F(TypingKeysTest, AButtonTypesItsCommandAndPressesEnter) {
    keys.pressButton("Accept");
    EXPECT_EQ(sent, "Accept\n");
    EXPECT_EQ(echoed, "Accept\r\n");
    EXPECT_EQ(road.history.entries[1], "Accept");
    EXPECT_EQ(focuses, 1);
    EXPECT_EQ(typing, "");
}

TEST_F(TypingKeysTest, AButtonLeavesTheFocusToThePanelThatItsCommandOpens) {
    int focusesBefore = -1;
    road.hooks.showHelp = [&] { focusesBefore = focuses; };
    keys.pressButton("help tactics");
    EXPECT_EQ(focusesBefore, 1);
    EXPECT_EQ(focuses, 1);
}

TEST_F(TypingKeysTest, AButtonWithoutACommandDoesNothing) {
    typing = "before";
    keys.pressButton("");
    EXPECT_EQ(typing, "before");
    EXPECT_EQ(sent, "");
    EXPECT_EQ(focuses, 0);
}

TEST_F(TypingKeysTest, ACharacterTypedInTheConsoleLandsInTheLine) {
    typing = "wh";
    EXPECT_TRUE(keys.consoleKeyPress('o'));
    EXPECT_EQ(typing, "who");
    EXPECT_EQ(caretAt, 3U);
    EXPECT_EQ(focuses, 1);
}

TEST_F(TypingKeysTest, CopyPasteAndCutStayWithTheConsole) {
    for (int code : {3, 22, 24}) EXPECT_FALSE(keys.consoleKeyPress(code)) << code;
    EXPECT_EQ(typing, "");
    EXPECT_EQ(focuses, 0);
}

TEST_F(TypingKeysTest, UpInTheConsoleAnswersAPromptAndElseScrolls) {
    EXPECT_FALSE(keys.consoleKeyDown(KeyUp));
    pipeline.login = 1;
    logOn.handle = "Own";
    EXPECT_FALSE(keys.consoleKeyDown(KeyDown));
    EXPECT_TRUE(keys.consoleKeyDown(KeyUp));
    EXPECT_EQ(sent, "Own\n");
}
