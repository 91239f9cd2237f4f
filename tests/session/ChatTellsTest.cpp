// Tells on their way from a batch to a chat box: what the box gets, what the console keeps, what sounds.
#include "session/ChatRig.h"
#include "session/SessionRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The classifier with the real routing behind its chat hooks.
struct ChatTellsTest : SessionRig {
    ServerRoad& road = session.road;
    std::list<RecordedChat> chats;

    ChatTellsTest() {
        openWindows = {};
        classifier.hooks.zChatBox = [this](const std::string& line) { return session.chatRouting.zChatBox(line); };
        classifier.hooks.findChat = findChat;
        classifier.hooks.setChatCaption = [](int chat, const std::string& caption) {
            chatAt(chat).hooks.setCaption(caption);
        };
        modChess.MyHandle = "Anders";
    }
    ~ChatTellsTest() override {
        chats.clear();
        openWindows = {};
    }

    RecordedChat& open(const std::string& buddy) {
        RecordedChat& chat = chats.emplace_back(road);
        chat.box.xBuddy = buddy;
        return chat;
    }
};

} // namespace

TEST_F(ChatTellsTest, ATellGoesToItsBoxAndTheLineBeforeItGoesToo) {
    RecordedChat& chat = open("bob");
    batch("\r\nBob(TM)(*) tells you: hi\r\nfics% \r\nmore text\r\nfics% ");
    EXPECT_EQ(chat.conversation, "hi\r\n");
    EXPECT_EQ(chat.box.xBuddy, "Bob");
    EXPECT_THAT(events, ElementsAre("sound whistle.wav 7"));
    EXPECT_EQ(console(), "more text\r\nfics% ");
}

TEST_F(ChatTellsTest, AWindowThatIsNoChatBoxIsAFaultThatNamesIt) {
    try {
        chatAt(7);
        FAIL() << "there are no windows";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
        EXPECT_STREQ(fault.what(), "window 7 is no chat box");
    }
}

TEST_F(ChatTellsTest, WithoutABoxTheTellIsPrinted) {
    open("Ann");
    batch("Bob tells you: hi\r\nfics% \r\nmore text\r\n");
    EXPECT_THAT(printed, ElementsAre(Printed{"Bob tells you: hi\r\n", TellColor}, Printed{"more text\r\n", MainColor}));
}

TEST_F(ChatTellsTest, AContinuationGoesToTheBoxAndTheNextLineVanishes) {
    RecordedChat& chat = open("Bob");
    batch("Bob tells you: a long story that goes on\r\n\\   and on\r\n\\   and on\r\nfics% \r\nshort\r\nlong\r\n");
    EXPECT_EQ(chat.conversation, "a long story that goes on\r\nand on\r\nand on\r\n");
    EXPECT_EQ(console(), "long\r\n") << "SuppressCount 2 takes the continuation and the line behind it";
}

TEST_F(ChatTellsTest, AChannelTellAndItsContinuationGoToTheBoxInFull) {
    RecordedChat& chat = open("50");
    batch("Bob(TM)(50): hello\r\n\\   all\r\nfics% \r\n");
    EXPECT_EQ(chat.conversation, "Bob(TM)(50): hello\r\nall\r\n");
    EXPECT_TRUE(happened("sound whistle.wav 7"));
}

TEST_F(ChatTellsTest, TheUsersOwnChannelTellIsKeptOffTheConsoleAndOutOfTheBox) {
    RecordedChat& chat = open("50");
    batch("Anders(50): mine\r\n\\   too\r\nfics% \r\n");
    EXPECT_EQ(chat.conversation, "");
    EXPECT_EQ(console(), "");
    EXPECT_THAT(events, ElementsAre("sound send.wav 7"));
}

TEST_F(ChatTellsTest, ABoxThatClosesBetweenTellAndContinuationLeavesTheRestToTheConsole) {
    open("Bob");
    classifier.hooks.playSound = [this](std::string_view, std::int16_t) { chats.clear(); };
    batch("Bob tells you: one\r\n\\   two\r\nfics% \r\nlast\r\n");
    EXPECT_THAT(printed, ElementsAre(Printed{"two\r\n", 0}, Printed{"last\r\n", MainColor}))
        << "the tell itself was taken; no line was printed before";
}

TEST_F(ChatTellsTest, AContinuationInTheNextBatchIsTheConsoles) {
    RecordedChat& chat = open("Bob");
    batch("Bob tells you: one\r\n");
    batch("\\   two\r\n");
    EXPECT_EQ(chat.conversation, "one\r\n");
    EXPECT_EQ(console(), "two\r\n");
}

TEST_F(ChatTellsTest, AContinuationOfALaterTellWithoutABoxIsTheConsoles) {
    RecordedChat& chat = open("Bob");
    batch("Bob tells you: one\r\nfics% \r\nAnn tells you: two\r\n\\   three\r\nfics% \r\n");
    EXPECT_EQ(chat.conversation, "one\r\n");
    EXPECT_THAT(printed, ElementsAre(Printed{"Ann tells you: two\r\n", TellColor}, Printed{"three\r\n", TellColor},
                                     Printed{"fics% \r\n", MainColor}));
}

TEST_F(ChatTellsTest, TwoTellsOfOneBatchGoEachToItsBox) {
    RecordedChat& bob = open("Bob");
    RecordedChat& ann = open("Ann");
    batch("\r\nBob tells you: one\r\nfics% \r\n\r\nAnn tells you: two\r\nfics% \r\n\r\nBob tells you: three\r\nfics% ");
    EXPECT_EQ(bob.conversation, "one\r\nthree\r\n");
    EXPECT_EQ(ann.conversation, "two\r\n");
    EXPECT_EQ(times("sound"), 3);
}

// In pass 2 the box is asked with the target of the batch's latest tell.
TEST_F(ChatTellsTest, ContinuationsOfTwoTellsInOneBatchGoToTheLatersBox) {
    RecordedChat& bob = open("Bob");
    RecordedChat& ann = open("Ann");
    batch("Bob tells you: one\r\n\\   one b\r\nfics% \r\nAnn tells you: two\r\n\\   two b\r\nfics% \r\n");
    EXPECT_EQ(bob.conversation, "one\r\n");
    EXPECT_EQ(ann.conversation, "two\r\none b\r\ntwo b\r\n");
}

TEST_F(ChatTellsTest, ShoutsAndSaysAreNoTellsOfABox) {
    RecordedChat& chat = open("Bob");
    batch("Bob shouts: a\r\nBob says: b\r\nBob kibitzes: c\r\n");
    EXPECT_EQ(chat.conversation, "");
    EXPECT_EQ(console(), "Bob shouts: a\r\nBob says: b\r\nBob kibitzes: c\r\n");
}

TEST_F(ChatTellsTest, InVerboseModeTheTellIsPrintedAsWell) {
    RecordedChat& chat = open("Bob");
    lines.verbose = true;
    batch("Bob tells you: hi\r\n");
    EXPECT_EQ(chat.conversation, "hi\r\n");
    EXPECT_EQ(console(), "Bob tells you: hi\r\n");
}

// The server's answer "(told ...)"

TEST_F(ChatTellsTest, TheAnswerToATellIsHiddenWithItsPromptAndNamesTheBox) {
    RecordedChat& chat = open("Bob");
    modChess.LastBuddy = "Bob";
    batch("(told Bob)\r\nfics% \r\nnext\r\n");
    EXPECT_EQ(chat.caption, "Chatting with Bob");
    EXPECT_EQ(console(), "next\r\n");
    EXPECT_THAT(events, ElementsAre("sound send.wav 7"));
}

TEST_F(ChatTellsTest, TheAnswerTellsWhatTheBuddyIsDoing) {
    RecordedChat& chat = open("Bob");
    modChess.LastBuddy = "Bob";
    batch("(told Bob, who is examining a game)\r\n");
    EXPECT_EQ(chat.caption, "Chatting with Bob (who is examining a game)");
    batch("Bob tells you: later\r\n");
    EXPECT_EQ(chat.caption, "Chat with Bob") << "until he speaks";
}

TEST_F(ChatTellsTest, AnAbbreviatedBuddyIsAnsweredByHisFullName) {
    RecordedChat& chat = open("bo");
    modChess.LastBuddy = "bo";
    batch("(told Bobby, who is idle)\r\n");
    EXPECT_EQ(chat.caption, "Chatting with bo (who is idle)");
}

TEST_F(ChatTellsTest, TheAnswerToABoxThatWasCompletedMeanwhileIsPrinted) {
    RecordedChat& chat = open("bo");
    modChess.LastBuddy = "bo";
    batch("Bobby tells you: hi\r\n");
    batch("(told Bobby)\r\n");
    EXPECT_EQ(chat.caption, "Chat with Bobby");
    EXPECT_EQ(console(), "(told Bobby)\r\n");
}

TEST_F(ChatTellsTest, TheAnswerToABoxThatWasClosedMeanwhileIsPrinted) {
    open("Bob");
    modChess.LastBuddy = "Bob";
    chats.clear();
    batch("(told Bob)\r\n");
    EXPECT_EQ(console(), "(told Bob)\r\n");
    EXPECT_THAT(events, IsEmpty());
}
