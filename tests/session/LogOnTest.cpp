// The log-on from prompt to Style 12, by hand and by itself.
#include "session/LogOn.h"

#include "SessionRig.h"

#include "session/TypingKeys.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct LogOnTest : SessionRig {
    ServerRoad road;
    LogOn logOn{pipeline, road};
    TypingKeys keys{road, logOn};
    std::vector<std::string> sent;
    std::string echoed;
    std::string typing;
    std::int16_t state = 7;

    LogOnTest() {
        road.hooks.sendData = [this](const std::string& bytes) { sent.push_back(bytes); };
        road.hooks.socketState = [this] { return state; };
        road.hooks.login = [this] { return pipeline.login; };
        road.hooks.echo = [this](const std::string& text) { echoed += text; };
        keys.hooks.text = [this] { return typing; };
        keys.hooks.setText = [this](const std::string& text) { typing = text; };
        classifier.hooks.zSendMsg = [this](const std::string& text) { road.zSendMsg(text); };
        classifier.hooks.autoLogonKey = [this] { keys.typingKeyDown(KeyUp, false); };
        logOn.handle = "Anders";
        logOn.password = "secret";
    }
};

} // namespace

TEST_F(LogOnTest, UpAtLoginSendsTheHandleAsATypedCommand) {
    arrive("login: ");
    EXPECT_TRUE(keys.typingKeyDown(KeyUp, false));
    EXPECT_THAT(sent, ElementsAre("Anders\n"));
    EXPECT_EQ(pipeline.login, 0);
    EXPECT_EQ(typing, "");
    EXPECT_EQ(modChess.gLastTyped, "Anders");
    EXPECT_EQ(echoed, "Anders\r\n");
}

TEST_F(LogOnTest, UpAtPasswordSendsItUnseenAndUnkept) {
    arrive("password: ");
    road.idleSeconds = 9;
    EXPECT_TRUE(keys.typingKeyDown(KeyUp, false));
    EXPECT_THAT(sent, ElementsAre("secret\n"));
    EXPECT_EQ(modChess.gLastCmd, "secret");
    EXPECT_EQ(modChess.gLastTyped, "");
    EXPECT_EQ(road.idleSeconds, 0);
    EXPECT_EQ(road.history.entries[1], "");
    EXPECT_EQ(echoed, "");
    EXPECT_EQ(pipeline.login, 0);
}

TEST_F(LogOnTest, UpAtPasswordWhileNotConnectedOnlyClearsThePrompt) {
    pipeline.login = 2;
    state = 8;
    EXPECT_TRUE(keys.typingKeyDown(KeyUp, false));
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(pipeline.login, 0);
    EXPECT_EQ(modChess.gLastCmd, "");
}

TEST_F(LogOnTest, UpAtAnyOtherTimeWalksTheHistory) {
    road.zSend("who");
    keys.typingKeyDown(KeyUp, false);
    EXPECT_EQ(typing, "who");
}

TEST_F(LogOnTest, EmptySettingsSendEmptyLines) {
    logOn.handle.clear();
    logOn.password.clear();
    pipeline.login = 1;
    logOn.answer();
    pipeline.login = 2;
    logOn.answer();
    EXPECT_THAT(sent, ElementsAre("\n", "\n"));
}

TEST_F(LogOnTest, ThePromptLastsOnlyUntilTheNextText) {
    arrive("login: ");
    EXPECT_EQ(pipeline.login, 1);
    arrive("x");
    EXPECT_EQ(pipeline.login, 0);
    EXPECT_FALSE(logOn.answer());
}

TEST_F(LogOnTest, AutoLogonNeedsNoKeyPress) {
    classifier.menu.mnuAutoLogon = true;
    arrive("Welcome\n\rlogin: ");
    arrive("\n\rpassword: ");
    arrive("\n\r**** Starting FICS session as Anders ****\n\r");
    EXPECT_THAT(sent, ElementsAre("Anders\n", "secret\n", "Set Style 12\n"));
    EXPECT_EQ(modChess.MyHandle, "Anders");
}

TEST_F(LogOnTest, EachPromptIsAnsweredAgain) {
    classifier.menu.mnuAutoLogon = true;
    arrive("login: ");
    arrive("the word login: in ordinary text\n\r");
    EXPECT_THAT(sent, ElementsAre("Anders\n", "Anders\n"));
}

TEST_F(LogOnTest, ALogOnWithoutPasswordLeavesTheOwnHandleEmpty) {
    arrive("login: ");
    keys.typingKeyDown(KeyUp, false);
    arrive("\n\r**** Starting FICS session as Guest ****\n\rfics% ");
    EXPECT_EQ(modChess.MyHandle, "");
}

TEST_F(LogOnTest, APasswordTypedByHandIsNeitherEchoedNorKept) {
    arrive("password: ");
    typing = "typed";
    EXPECT_TRUE(keys.zTxtSend(13));
    EXPECT_THAT(sent, ElementsAre("typed\n"));
    EXPECT_EQ(echoed, "");
    EXPECT_EQ(road.history.entries[1], "");
}
