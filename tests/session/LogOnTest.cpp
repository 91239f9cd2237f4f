// The log-on from prompt to Style 12, by hand and by itself.
#include "session/LogOn.h"

#include "SessionRig.h"

#include "session/TypingKeys.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct LogOnTest : SessionRig {
    ServerRoad& road = session.road;
    LogOn& logOn = session.logOn;
    TypingKeys& keys = session.typingKeys;
    std::vector<std::string> sent;
    std::string echoed;
    std::string typing;
    std::int16_t state = 7;
    std::vector<int> pauses; // of the automatic keys, in milliseconds

    LogOnTest() {
        road.hooks.sendData = [this](const std::string& bytes) { sent.push_back(bytes); };
        road.hooks.socketState = [this] { return state; };
        road.hooks.login = [this] { return pipeline.login; };
        road.hooks.echo = [this](const std::string& text) { echoed += text; };
        keys.hooks.text = [this] { return typing; };
        keys.hooks.setText = [this](const std::string& text) { typing = text; };
        classifier.hooks.zSendMsg = [this](const std::string& text) { road.zSendMsg(text); };
        logOn.hooks.startTimer = [this](int milliseconds) { pauses.push_back(milliseconds); };
        logOn.handle = "Anders";
        logOn.password = "secret";
    }

    // An arrival, and the message loop behind it.
    void arriveAndWait(const std::string& text) {
        const auto before = pauses.size();
        arrive(text);
        if (pauses.size() > before) session.timerFired(SessionTimer::AutoLogon);
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

TEST_F(LogOnTest, NoKeyIsPressedThatNoPromptAskedFor) {
    session.connection.mnuAutoLogon = true;
    pipeline.login = 1;
    logOn.timer();
    EXPECT_EQ(pipeline.login, 1);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(LogOnTest, UpAtPasswordSendsItUnseenAndUnkept) {
    road.zSend("who");
    sent.clear();
    echoed.clear();
    arrive("password: ");
    road.idleSeconds = 9;
    EXPECT_TRUE(keys.typingKeyDown(KeyUp, false));
    EXPECT_THAT(sent, ElementsAre("secret\n"));
    EXPECT_EQ(typing, "") << "the history does not move";
    EXPECT_EQ(modChess.gLastCmd, "secret");
    EXPECT_EQ(modChess.gLastTyped, "who");
    EXPECT_EQ(road.idleSeconds, 0);
    EXPECT_EQ(road.history.entries[1], "who");
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
    session.connection.mnuAutoLogon = true;
    arriveAndWait("Welcome\n\rlogin: ");
    arriveAndWait("\n\rpassword: ");
    arriveAndWait("\n\r**** Starting FICS session as Anders ****\n\r");
    EXPECT_THAT(sent, ElementsAre("Anders\n", "secret\n", "Set Style 12\n"));
    EXPECT_EQ(modChess.MyHandle, "Anders");
}

TEST_F(LogOnTest, EachPromptIsAnsweredAgain) {
    session.connection.mnuAutoLogon = true;
    arriveAndWait("login: ");
    arriveAndWait("the word login: in ordinary text\n\r");
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

TEST_F(LogOnTest, TheAutomaticKeyComesBehindTheLineOfThePrompt) {
    session.connection.mnuAutoLogon = true;
    arrive("Welcome\n\rlogin: ");
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_TRUE(console().ends_with("login: "));
    session.timerFired(SessionTimer::AutoLogon);
    EXPECT_THAT(sent, ElementsAre("Anders\n"));
}

TEST_F(LogOnTest, AKeyThatComesTooLateNeitherSendsNorWalksTheHistory) {
    session.connection.mnuAutoLogon = true;
    road.zSend("who");
    sent.clear();
    arrive("login: ");
    arrive("\n\rtoo slow\n\r");
    session.timerFired(SessionTimer::AutoLogon);
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(typing, "");
}

TEST_F(LogOnTest, TheAutomaticKeyBringsTheKeyboardToTheTypingLine) {
    session.connection.mnuAutoLogon = true;
    arrive("login: ");
    EXPECT_EQ(times("keyboard"), 1);
    session.connection.mnuAutoLogon = false;
    arrive("login: ");
    EXPECT_EQ(times("keyboard"), 1);
    EXPECT_EQ(pauses.size(), 1U);
}

TEST_F(LogOnTest, TheFirstAutomaticKeysGoAtOnceAndEachFurtherOneAfterAPauseThatDoubles) {
    session.connection.mnuAutoLogon = true;
    for (int refusal = 0; refusal < 4; ++refusal) {
        arriveAndWait("login: ");
        arriveAndWait("password: ");
    }
    EXPECT_THAT(pauses, ElementsAre(0, 0, 1000, 1000, 2000, 2000, 4000, 4000));
    for (int refusal = 0; refusal < 40; ++refusal) arriveAndWait("login: ");
    EXPECT_EQ(pauses.back(), 1000 << 12) << "more than an hour is no better than an hour";
}

TEST_F(LogOnTest, APromptThatComesTwiceBeforeItsKeyIsAnsweredOnceAndWithoutAPause) {
    session.connection.mnuAutoLogon = true;
    arriveAndWait("Write your handle behind login: now.\n\rlogin: ");
    EXPECT_EQ(pauses.back(), 0);
    EXPECT_THAT(sent, ElementsAre("Anders\n"));
    arriveAndWait("login: ");
    EXPECT_EQ(pauses.back(), 1000);
}

TEST_F(LogOnTest, ANewConnectionBeginsWithoutAPause) {
    session.connection.mnuAutoLogon = true;
    arriveAndWait("login: ");
    arriveAndWait("login: ");
    session.connection.hooks.connectTo("host", 5000);
    arriveAndWait("login: ");
    EXPECT_THAT(pauses, ElementsAre(0, 1000, 0));
}

TEST_F(LogOnTest, AKeyThatWaitsIsNotForTheNextServer) {
    session.connection.mnuAutoLogon = true;
    arrive("password: ");
    session.connection.hooks.connectTo("another host", 5000);
    session.timerFired(SessionTimer::AutoLogon);
    EXPECT_THAT(sent, IsEmpty()) << "the new one has not asked";
}

TEST_F(LogOnTest, AKeyThatWaitsEndsWithItsConnection) {
    session.connection.mnuAutoLogon = true;
    arrive("login: ");
    session.connection.mnuCloseClick();
    session.timerFired(SessionTimer::AutoLogon);
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(typing, "");
}

TEST_F(LogOnTest, AKeyThatWaitsIsTakenBackWithTheTick) {
    session.connection.mnuAutoLogon = true;
    arrive("login: ");
    session.connection.mnuAutoLogonClick();
    session.timerFired(SessionTimer::AutoLogon);
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(pipeline.login, 1) << "the user may still press Up";
}

TEST_F(LogOnTest, TheLastCommandIsThePasswordUntilTheServerHasAnswered) {
    arrive("password: ");
    keys.typingKeyDown(KeyUp, false);
    EXPECT_EQ(modChess.gLastCmd, "secret");
    arrive("\n\r");
    EXPECT_EQ(modChess.gLastCmd, "");
}

TEST_F(LogOnTest, APasswordTypedByHandIsForgottenTooWhenTheServerHasAnswered) {
    arrive("password: ");
    typing = "typed";
    keys.zTxtSend(13);
    EXPECT_EQ(modChess.gLastTyped, "typed");
    arrive("\n\r");
    EXPECT_EQ(modChess.gLastCmd, "");
    EXPECT_EQ(modChess.gLastTyped, "");
}

TEST_F(LogOnTest, AHandleAndAnOrdinaryCommandStayTheLastCommand) {
    arrive("login: ");
    keys.typingKeyDown(KeyUp, false);
    arrive("\n\r");
    EXPECT_EQ(modChess.gLastCmd, "Anders");
    road.zSend("who");
    arrive("fics% ");
    EXPECT_EQ(modChess.gLastCmd, "who");
    EXPECT_EQ(modChess.gLastTyped, "who");
}
