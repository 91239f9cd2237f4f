// What a chat box sends, what its keys do, and its own history.
#include "session/ChatRig.h"
#include "session/TypingKeys.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ChatBoxTest : testing::Test, ChatRig {
    RecordedChat& chat = open("Bob");

    bool enter(const std::string& text) {
        chat.typing = text;
        return chat.box.zTxtTell(13);
    }
    void press(const std::string& keys) {
        for (const char key : keys) chat.box.chatKeyPress(static_cast<unsigned char>(key));
    }
};

} // namespace

// The name

TEST_F(ChatBoxTest, TheCaptionOfAHandleSaysWith) {
    chat.box.name("bo");
    EXPECT_EQ(chat.box.xBuddy, "bo");
    EXPECT_EQ(chat.caption, "Chat with bo");
    chat.box.name("Bob50");
    EXPECT_EQ(chat.caption, "Chat with Bob50");
}

TEST_F(ChatBoxTest, TheCaptionOfOneCharacterOrANumberSaysOn) {
    for (const char* buddy : {"B", "0", "5", "50", "50x", "-3"}) {
        chat.box.name(buddy);
        EXPECT_EQ(chat.caption, std::string("Chat on ") + buddy);
    }
    chat.box.name("00");
    EXPECT_EQ(chat.caption, "Chat with 00") << "its value is 0";
}

// Sending

TEST_F(ChatBoxTest, TextGoesOutAsATellToTheBuddy) {
    EXPECT_TRUE(enter("hi"));
    EXPECT_THAT(sent, ElementsAre("Tell Bob hi\n"));
}

TEST_F(ChatBoxTest, ATellCommandGoesOutUnchanged) {
    enter("tell bob hi");
    enter("TELL 50 x");
    enter("tells");
    EXPECT_THAT(sent, ElementsAre("tell bob hi\n", "TELL 50 x\n", "tells\n"));
}

TEST_F(ChatBoxTest, TellAloneIsTooShortToBeACommand) {
    enter("tell");
    enter("");
    EXPECT_THAT(sent, ElementsAre("Tell Bob tell\n", "Tell Bob \n"));
}

TEST_F(ChatBoxTest, TheSentLineIsRememberedWhereItBelongs) {
    road.idleSeconds = 12;
    enter("hi");
    EXPECT_EQ(modChess.gLastCmd, "Tell Bob hi");
    EXPECT_EQ(modChess.gLastTyped, "Tell Bob hi");
    EXPECT_EQ(modChess.LastBuddy, "Bob");
    EXPECT_EQ(road.txtOld, "Tell Bob hi");
    EXPECT_EQ(road.idleSeconds, 0);
    EXPECT_EQ(modChess.LinesSent, 1);
}

TEST_F(ChatBoxTest, TheBoxsHistoryKeepsWhatWasTypedAndTheConsolesDoesNot) {
    enter("hi");
    EXPECT_EQ(chat.box.ChatHistory.entries[1], "hi");
    EXPECT_EQ(road.history.entries[1], "");
}

TEST_F(ChatBoxTest, TheTypedTextIsEchoedAtTheEndInTheColourOfCopies) {
    enter("hi");
    EXPECT_THAT(chat.steps, ElementsAre("end", "color 4", "insert hi\r\n", "end", "color 2"));
    EXPECT_EQ(chat.typing, "");
}

TEST_F(ChatBoxTest, NotConnectedEnterDoesNothingAndTheTextStays) {
    socket = 0;
    EXPECT_FALSE(enter("hi"));
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(chat.typing, "hi");
    EXPECT_EQ(chat.box.ChatHistory.entries[1], "");
    EXPECT_THAT(chat.steps, IsEmpty());
}

TEST_F(ChatBoxTest, OnlyEnterSends) {
    chat.typing = "hi";
    EXPECT_FALSE(chat.box.zTxtTell('x'));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(ChatBoxTest, AnAnswerGoesToTheCompletedBuddy) {
    chat.box.xBuddy = "bo";
    modChess.TellTarget = "Bobby";
    routing.zChatBox("Bobby tells you: hi\r\n");
    enter("hello");
    EXPECT_THAT(sent, ElementsAre("Tell Bobby hello\n"));
}

// Up and Down

TEST_F(ChatBoxTest, UpAndDownWalkTheBoxsHistory) {
    enter("one");
    enter("two");
    chat.typing = "edited";
    EXPECT_TRUE(chat.box.keyDown(KeyUp));
    EXPECT_EQ(chat.typing, "two");
    chat.box.keyDown(KeyUp);
    EXPECT_EQ(chat.typing, "one");
    chat.box.keyDown(KeyUp);
    EXPECT_EQ(chat.typing, "one") << "nothing older";
    EXPECT_TRUE(chat.box.keyDown(KeyDown));
    EXPECT_EQ(chat.typing, "two");
    chat.box.keyDown(KeyDown);
    EXPECT_EQ(chat.typing, "edited");
    chat.box.keyDown(KeyDown);
    EXPECT_EQ(chat.typing, "edited");
}

TEST_F(ChatBoxTest, TheOldestOf21LinesIsGone) {
    for (int i = 1; i <= 21; ++i) chat.box.zShiftReg(std::to_string(i));
    EXPECT_EQ(chat.box.ChatHistory.entries[20], "2");
}

TEST_F(ChatBoxTest, EachBoxHasAHistoryOfItsOwn) {
    RecordedChat& other = open("Ann");
    enter("hi");
    other.box.keyDown(KeyUp);
    EXPECT_EQ(other.typing, "");
}

TEST_F(ChatBoxTest, OtherKeysPass) {
    for (const int key : {0, 13, static_cast<int>(KeyF5), static_cast<int>(KeyF9)}) EXPECT_FALSE(chat.box.keyDown(key));
}

// Typing in the conversation

TEST_F(ChatBoxTest, ACharacterTypedInTheConversationGoesToTheTypingLine) {
    press("hi");
    EXPECT_EQ(chat.typing, "hi");
    EXPECT_EQ(chat.focused, 2);
    EXPECT_EQ(chat.conversation, "");
}

TEST_F(ChatBoxTest, BackspaceInTheConversationTakesTheLastCharacterOffTheTypingLine) {
    press("hi\b");
    EXPECT_EQ(chat.typing, "h");
    press("\b\b");
    EXPECT_EQ(chat.typing, "");
    EXPECT_EQ(chat.focused, 5);
}

TEST_F(ChatBoxTest, EnterInTheConversationSends) {
    press("hi\r");
    EXPECT_THAT(sent, ElementsAre("Tell Bob hi\n"));
    EXPECT_EQ(chat.focused, 3);
}
