// Tests of the talk before a session.
#include "practice/server/LoginDialog.h"

#include <gtest/gtest.h>

#include <set>

namespace practice {
namespace {

struct LoginDialogTest : testing::Test {
    Accounts accounts{{{"Ada", "secret", 1500}}};
    std::set<std::string> online;
    LoginDialog dialog;

    LoginDialog::Step take(const std::string& line) {
        LoginDialog::Questions ask;
        ask.accounts = &accounts;
        ask.isOnline = [this](const std::string& name) { return online.count(name) > 0; };
        ask.freeGuestName = [] { return std::string("GuestWXYZ"); };
        return dialog.take(line, ask);
    }
};

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST_F(LoginDialogTest, TheGreetingEndsWithTheLoginPrompt) {
    EXPECT_TRUE(LoginDialog::greeting().ends_with("\nlogin: "));
}

TEST_F(LoginDialogTest, ARegisteredHandleIsAskedForItsPasswordWithEchoOff) {
    const auto step = take("ada");
    EXPECT_FALSE(step.entered);
    EXPECT_TRUE(has(step.text, "\"Ada\" is a registered name."));
    EXPECT_TRUE(step.text.ends_with("\npassword: \xFF\xFB\x01"));
}

TEST_F(LoginDialogTest, TheRightPasswordEntersAndTurnsEchoOn) {
    take("Ada");
    const auto step = take("secret");
    EXPECT_TRUE(step.entered);
    EXPECT_FALSE(dialog.guest);
    EXPECT_EQ(dialog.name, "Ada");
    EXPECT_EQ(step.text, "\xFF\xFC\x01\n");
}

TEST_F(LoginDialogTest, AWrongPasswordAsksForTheHandleAgain) {
    take("Ada");
    const auto step = take("wrong");
    EXPECT_FALSE(step.entered);
    EXPECT_TRUE(step.text.starts_with("\xFF\xFC\x01\n\n**** Invalid password! ****\n"));
    EXPECT_TRUE(step.text.ends_with("\nlogin: "));
    EXPECT_TRUE(has(take("Ada").text, "password: "));
}

TEST_F(LoginDialogTest, AnEmptyPasswordLetsChooseAnotherName) {
    take("Ada");
    const auto step = take("");
    EXPECT_FALSE(step.entered);
    EXPECT_FALSE(has(step.text, "Invalid"));
    EXPECT_TRUE(step.text.ends_with("\nlogin: "));
}

TEST_F(LoginDialogTest, GuestGetsANameOfOurs) {
    const auto step = take("Guest");
    EXPECT_TRUE(has(step.text, "\nLogging you in as \"GuestWXYZ\";"));
    EXPECT_TRUE(has(step.text, "\nPress return to enter the server as \"GuestWXYZ\":\n"));
    EXPECT_TRUE(take("").entered);
    EXPECT_TRUE(dialog.guest);
    EXPECT_EQ(dialog.name, "GuestWXYZ");
}

TEST_F(LoginDialogTest, AnUnregisteredHandleEntersAsAGuestOfThatName) {
    const auto step = take("Zorro");
    EXPECT_TRUE(has(step.text, "\"Zorro\" is not a registered name."));
    EXPECT_TRUE(has(step.text, "\nPress return to enter the server as \"Zorro\":\n"));
    EXPECT_TRUE(take("").entered);
    EXPECT_TRUE(dialog.guest);
}

TEST_F(LoginDialogTest, OddHandlesAreRefused) {
    for (const char* name : {"ab", "Bad1!", "Abcdefghijklmnopqrstuvwxyz", "two words"}) {
        const auto step = take(name);
        EXPECT_FALSE(step.entered);
        EXPECT_TRUE(has(step.text, "Try again.")) << name;
        EXPECT_TRUE(step.text.ends_with("login: ")) << name;
    }
}

TEST_F(LoginDialogTest, AnEmptyLineShowsThePromptAgain) { EXPECT_EQ(take("").text, "login: "); }

TEST_F(LoginDialogTest, AGuestsNameInUseIsRefused) {
    online.insert("Zorro");
    EXPECT_TRUE(has(take("Zorro").text, "logged on already"));
    EXPECT_EQ(dialog.stage, LoginDialog::Stage::Name);
}

TEST_F(LoginDialogTest, AGuestsNameTakenDuringTheQuestionIsRefused) {
    take("Zorro");
    online.insert("Zorro");
    EXPECT_FALSE(take("").entered);
    EXPECT_EQ(dialog.stage, LoginDialog::Stage::Name);
}

TEST_F(LoginDialogTest, TheSessionBeginsWithTheStarredLine) {
    EXPECT_TRUE(welcome("Zorro(U)").starts_with("**** Starting FICS session as Zorro(U) ****\n"));
}

} // namespace
} // namespace practice
