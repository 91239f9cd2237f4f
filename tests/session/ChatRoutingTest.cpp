// Which box a tell goes to, and what of it is shown there.
#include "session/ChatRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ChatRoutingTest : testing::Test, ChatRig {
    // A personal tell, as the classifier hands it on.
    bool tell(const std::string& sender, const std::string& text = "hi") {
        modChess.TellTarget = sender;
        return routing.zChatBox(sender + " tells you: " + text + "\r\n");
    }
    bool channelTell(const std::string& channel, const std::string& sender, const std::string& text = "hi") {
        modChess.TellTarget = channel;
        modChess.ChannelSender = sender;
        return routing.zChatBox(sender + "(" + channel + "): " + text + "\r\n");
    }
};

} // namespace

TEST_F(ChatRoutingTest, WithoutABoxATellIsNotHandled) {
    EXPECT_FALSE(tell("Bob"));
    open("Ann");
    EXPECT_FALSE(tell("Bob"));
    EXPECT_EQ(chats.front().conversation, "");
}

TEST_F(ChatRoutingTest, OnlyWindowsThatAreBoxesAreAsked) {
    openWindows.add({"frmChessBoard", this, {}});
    EXPECT_FALSE(tell("Bob"));
    open("Bob");
    EXPECT_TRUE(tell("Bob"));
}

TEST_F(ChatRoutingTest, ABoxForBoTakesTheFirstTellOfBobbyAndIsBobbysThen) {
    RecordedChat& chat = open("bo");
    EXPECT_TRUE(tell("Bobby"));
    EXPECT_EQ(chat.box.xBuddy, "Bobby");
    EXPECT_EQ(chat.caption, "Chat with Bobby");
    EXPECT_FALSE(tell("Boris")) << "no longer abbreviated";
}

TEST_F(ChatRoutingTest, ANameOfTwoCharactersIsAHandle) {
    RecordedChat& chat = open("a");
    EXPECT_TRUE(tell("Al"));
    EXPECT_EQ(chat.caption, "Chat with Al");
}

TEST_F(ChatRoutingTest, AWindowThatIsNoBoxFaultsByItsNumber) {
    open("Bob");
    openWindows.add({"frmChessBoard", this, {}});
    EXPECT_EQ(chatAt(0).xBuddy, "Bob");
    for (const int number : {-1, 1, 2}) {
        try {
            chatAt(number);
            ADD_FAILURE() << number << " is no box";
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.what(), "window " + std::to_string(number) + " is no chat box");
        }
    }
}

TEST_F(ChatRoutingTest, ThePrefixIsTakenInAnyCaseAndWithoutBlanksAroundIt) {
    RecordedChat& chat = open(" BOB ");
    EXPECT_TRUE(tell("bobby"));
    EXPECT_EQ(chat.box.xBuddy, "bobby");
}

TEST_F(ChatRoutingTest, ABuddyLongerThanTheSenderDoesNotFit) {
    open("Bobby");
    EXPECT_FALSE(tell("Bob"));
}

TEST_F(ChatRoutingTest, OfBobAndBobbyTheOlderThatFitsTakesEither) {
    RecordedChat& bob = open("Bob");
    RecordedChat& bobby = open("Bobby");
    EXPECT_TRUE(tell("Bobby", "one"));
    EXPECT_EQ(bob.conversation, "one\r\n");
    EXPECT_EQ(bob.box.xBuddy, "Bobby") << "the older box is Bobby's now";
    EXPECT_FALSE(tell("Bob", "two")) << "so nobody has Bob any more";
    EXPECT_EQ(bobby.conversation, "");
}

TEST_F(ChatRoutingTest, OfBobbyAndBobTheOlderThatFitsTakesEither) {
    RecordedChat& bobby = open("Bobby");
    RecordedChat& bob = open("Bob");
    EXPECT_TRUE(tell("Bob", "one"));
    EXPECT_TRUE(tell("Bobby", "two"));
    EXPECT_EQ(bobby.conversation, "two\r\n");
    EXPECT_EQ(bob.conversation, "one\r\n");
    EXPECT_EQ(bob.box.xBuddy, "Bob");
}

TEST_F(ChatRoutingTest, ABoxThatStillAsksForItsBuddyTakesAnyHandle) {
    RecordedChat& chat = open("");
    EXPECT_TRUE(tell("Bob"));
    EXPECT_EQ(chat.box.xBuddy, "Bob");
}

TEST_F(ChatRoutingTest, ABoxThatStillAsksForItsBuddyTakesNoChannel) {
    open("");
    EXPECT_FALSE(channelTell("50", "Ann"));
}

TEST_F(ChatRoutingTest, AHandleMayEndInDigits) {
    RecordedChat& chat = open("GuestA");
    EXPECT_TRUE(tell("GuestA12"));
    EXPECT_EQ(chat.box.xBuddy, "GuestA12");
}

TEST_F(ChatRoutingTest, HandlesThatReadLikeNumberWordsAreHandles) {
    for (const char* handle : {"Nancy", "Infinity", "e5e5", "xFF"}) {
        RecordedChat& chat = open(handle);
        EXPECT_TRUE(tell(handle)) << handle;
        EXPECT_EQ(chat.caption, std::string("Chat with ") + handle);
    }
}

// The exact rule

TEST_F(ChatRoutingTest, ABoxOfChannel50GetsItsTellsInFull) {
    RecordedChat& chat = open("50");
    EXPECT_TRUE(channelTell("50", "Bob(TM)"));
    EXPECT_EQ(chat.conversation, "Bob(TM)(50): hi\r\n");
    EXPECT_EQ(chat.caption, "Chat on 50");
    EXPECT_EQ(chat.box.xBuddy, "50");
}

TEST_F(ChatRoutingTest, AChannelIsNoPrefixOfAnother) {
    open("5");
    RecordedChat& fifty = open("50");
    EXPECT_TRUE(channelTell("50", "Bob"));
    EXPECT_EQ(fifty.conversation, "Bob(50): hi\r\n");
    EXPECT_FALSE(channelTell("500", "Bob"));
}

TEST_F(ChatRoutingTest, AOneCharacterTargetGoesByTheExactRule) {
    RecordedChat& chat = open("B");
    modChess.ChannelSender = "Ann";
    EXPECT_TRUE(tell("B"));
    EXPECT_EQ(chat.caption, "Chat on B");
    EXPECT_EQ(chat.conversation, "hi\r\n");
    EXPECT_FALSE(tell("b")) << "case counts";
}

TEST_F(ChatRoutingTest, AOneCharacterTellIsLostWhileNobodyOrTheUserSpokeLastOnAChannel) {
    RecordedChat& chat = open("B");
    EXPECT_TRUE(tell("B")) << "MyHandle and ChannelSender are both empty";
    EXPECT_EQ(chat.conversation, "");
}

TEST_F(ChatRoutingTest, Channel0AndATitleThatCountsAsItGoByTheExactRule) {
    RecordedChat& chat = open("0");
    EXPECT_TRUE(channelTell("0", "Bob"));
    EXPECT_EQ(chat.caption, "Chat on 0");
}

TEST_F(ChatRoutingTest, TheUsersOwnChannelTellIsTakenAndNotShown) {
    RecordedChat& chat = open("50");
    modChess.MyHandle = "Anders";
    EXPECT_TRUE(channelTell("50", "Anders"));
    EXPECT_EQ(chat.conversation, "");
    EXPECT_THAT(chat.steps, IsEmpty());
    EXPECT_EQ(chat.caption, "Chat on 50");
    EXPECT_TRUE(channelTell("50", "Berta"));
    EXPECT_EQ(chat.conversation, "Berta(50): hi\r\n");
}

TEST_F(ChatRoutingTest, APersonalTellIsShownWhoeverSpokeLastOnAChannel) {
    RecordedChat& chat = open("Bob");
    modChess.MyHandle = modChess.ChannelSender = "Anders";
    EXPECT_TRUE(tell("Bob"));
    EXPECT_EQ(chat.conversation, "hi\r\n");
}

// What is shown, and how

TEST_F(ChatRoutingTest, TheTextStartsBehindTellsYouAndItsBlank) {
    RecordedChat& chat = open("Bob");
    tell("Bob", " two blanks, she tells you: twice");
    EXPECT_EQ(chat.conversation, " two blanks, she tells you: twice\r\n");
}

TEST_F(ChatRoutingTest, ThePromptInFrontOfATellIsNotShown) {
    RecordedChat& chat = open("Bob");
    modChess.TellTarget = "Bob";
    routing.zChatBox("fics% Bob(TM) tells you: hi\r\n");
    EXPECT_EQ(chat.conversation, "hi\r\n");
}

TEST_F(ChatRoutingTest, AChannelTellThatQuotesATellStartsBehindThePhrase) {
    RecordedChat& chat = open("50");
    channelTell("50", "Bob", "he tells you: no");
    EXPECT_EQ(chat.conversation, "no\r\n");
}

TEST_F(ChatRoutingTest, TheRestOfATellHasNoPhraseAndIsShownWhole) {
    RecordedChat& chat = open("Bob");
    modChess.TellTarget = "Bob";
    EXPECT_TRUE(routing.zChatBox("and so on\r\n"));
    EXPECT_EQ(chat.conversation, "and so on\r\n");
}

TEST_F(ChatRoutingTest, ATellThatEndsInItsPhraseShowsNothing) {
    RecordedChat& chat = open("Bob");
    modChess.TellTarget = "Bob";
    for (const char* line : {"Bob tells you:", "Bob tells you: "}) EXPECT_TRUE(routing.zChatBox(line));
    EXPECT_EQ(chat.conversation, "");
}

TEST_F(ChatRoutingTest, TheInsertionPointGoesToTheLengthOfTheConsole) {
    RecordedChat& chat = open("Bob");
    routing.consoleLength = [] { return std::size_t{7}; };
    tell("Bob");
    EXPECT_THAT(chat.steps, ElementsAre("color 2", "insert hi\r\n", "move 7"));
}

// The finder and the proposal

TEST_F(ChatRoutingTest, ABoxIsFoundByItsExactBuddy) {
    openWindows.add({"frmChessClient", this, {}});
    open("Bob");
    open("Ann");
    EXPECT_EQ(findChat("Ann"), 2);
    EXPECT_EQ(findChat("ann"), -1);
    EXPECT_EQ(findChat("An"), -1);
}

TEST_F(ChatRoutingTest, TheSenderOfTheLatestTellIsProposedForTheNextBox) {
    modChess.TellTarget = "Bob";
    proposeBuddy();
    EXPECT_EQ(modChess.NewBuddy, "Bob");
}

TEST_F(ChatRoutingTest, ASenderWhoHasABoxIsNotProposed) {
    open("Bob");
    modChess.TellTarget = "Bob";
    modChess.NewBuddy = "Ann";
    proposeBuddy();
    EXPECT_EQ(modChess.NewBuddy, "");
}
