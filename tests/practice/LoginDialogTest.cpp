// Tests of the talk before a session.
#include "practice/server/LoginDialog.h"

#include <gtest/gtest.h>

#include <set>

namespace practice {
namespace {

using Course = LoginDialog::Course;
using Typing = LoginDialog::Typing;

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

TEST_F(LoginDialogTest, ARegisteredHandleIsAskedForItsPasswordWithTypingHidden) {
    const auto step = take("ada");
    EXPECT_EQ(step.course, Course::Asking);
    EXPECT_TRUE(has(step.text, "\"Ada\" is a registered name."));
    EXPECT_TRUE(step.text.ends_with("\npassword: "));
    EXPECT_EQ(step.typing, Typing::Hidden);
}

TEST_F(LoginDialogTest, TheRightPasswordEntersAndShowsTypingAgain) {
    take("Ada");
    const auto step = take("secret");
    EXPECT_EQ(step.course, Course::Entered);
    EXPECT_FALSE(dialog.guest);
    EXPECT_EQ(dialog.name, "Ada");
    EXPECT_EQ(step.text, "\n");
    EXPECT_EQ(step.typing, Typing::Shown);
}

TEST_F(LoginDialogTest, AWrongPasswordAsksForTheHandleAgain) {
    take("Ada");
    const auto step = take("wrong");
    EXPECT_EQ(step.course, Course::Asking);
    EXPECT_EQ(step.typing, Typing::Shown);
    EXPECT_TRUE(step.text.starts_with("\n\n**** Invalid password! ****\n"));
    EXPECT_TRUE(step.text.ends_with("\nlogin: "));
    EXPECT_TRUE(has(take("Ada").text, "password: "));
}

TEST_F(LoginDialogTest, TheThirdWrongPasswordEndsTheTalk) {
    for (int i = 0; i < 2; ++i) {
        take("Ada");
        EXPECT_EQ(take("wrong").course, Course::Asking) << i;
    }
    take("Ada");
    const auto step = take("wrong");
    EXPECT_EQ(step.course, Course::Refused);
    EXPECT_EQ(step.typing, Typing::Shown);
    EXPECT_TRUE(step.text.starts_with("\n\n**** Invalid password! ****\n"));
    EXPECT_FALSE(has(step.text, "login: "));
}

TEST_F(LoginDialogTest, WrongPasswordsCountWhateverTheHandle) {
    accounts.users.push_back({"Bert", "hidden", 0});
    take("Ada");
    take("hidden");
    take("Bert");
    take("secret");
    take("Ada");
    EXPECT_EQ(take("").course, Course::Asking) << "an empty line is no password";
    take("Ada");
    EXPECT_EQ(take("hidden").course, Course::Refused);
}

TEST_F(LoginDialogTest, TwoWrongPasswordsDoNotKeepOutTheRightOne) {
    for (const char* password : {"wrong", "Secret"}) {
        take("Ada");
        take(password);
    }
    take("Ada");
    EXPECT_EQ(take("secret").course, Course::Entered);
}

TEST_F(LoginDialogTest, AnEmptyPasswordLetsChooseAnotherName) {
    take("Ada");
    const auto step = take("");
    EXPECT_EQ(step.course, Course::Asking);
    EXPECT_EQ(step.typing, Typing::Shown);
    EXPECT_FALSE(has(step.text, "Invalid"));
    EXPECT_TRUE(step.text.ends_with("\nlogin: "));
}

TEST_F(LoginDialogTest, GuestGetsANameOfOurs) {
    const auto step = take("Guest");
    EXPECT_TRUE(has(step.text, "\nLogging you in as \"GuestWXYZ\";"));
    EXPECT_TRUE(step.text.ends_with("\nPress return to enter the server as \"GuestWXYZ\":\n"));
    EXPECT_EQ(step.typing, Typing::AsBefore) << "there is nothing to hide";
    EXPECT_EQ(take("").course, Course::Entered);
    EXPECT_TRUE(dialog.guest);
    EXPECT_EQ(dialog.name, "GuestWXYZ");
}

TEST_F(LoginDialogTest, AnUnregisteredHandleEntersAsAGuestOfThatName) {
    const auto step = take("Zorro");
    EXPECT_TRUE(has(step.text, "\"Zorro\" is not a registered name."));
    EXPECT_TRUE(has(step.text, "\nPress return to enter the server as \"Zorro\":\n"));
    EXPECT_EQ(take("").course, Course::Entered);
    EXPECT_TRUE(dialog.guest);
}

TEST_F(LoginDialogTest, OddHandlesAreRefused) {
    for (const char* name : {"ab", "Bad1!", "Abcdefghijklmnopqrstuvwxyz", "two words"}) {
        const auto step = take(name);
        EXPECT_EQ(step.course, Course::Asking);
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
    EXPECT_EQ(take("").course, Course::Asking);
    EXPECT_EQ(dialog.stage, LoginDialog::Stage::Name);
}

TEST_F(LoginDialogTest, TheSessionBeginsWithTheStarredLine) {
    EXPECT_TRUE(welcome("Zorro(U)").starts_with("**** Starting FICS session as Zorro(U) ****\n"));
}

} // namespace
} // namespace practice
