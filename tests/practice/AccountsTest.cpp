// Tests of registered users and handles.
#include "practice/people/Accounts.h"

#include <gtest/gtest.h>

#include <sstream>

namespace practice {
namespace {

TEST(Accounts, BuiltInUsersAllHaveThePracticePassword) {
    const Accounts accounts = builtInAccounts();
    EXPECT_GE(accounts.users.size(), 3U);
    for (const Account& account : accounts.users) {
        EXPECT_EQ(account.password, practicePassword);
        EXPECT_EQ(handleComplaint(account.name), "");
    }
}

TEST(Accounts, UsersAreFoundInAnyLetterCase) {
    const Accounts accounts = builtInAccounts();
    ASSERT_NE(accounts.find("pUPIL"), nullptr);
    EXPECT_EQ(accounts.find("pUPIL")->name, "Pupil");
    EXPECT_EQ(accounts.find("Nobody"), nullptr);
}

TEST(Accounts, AFileOfUsersIsRead) {
    std::istringstream in("# who may come\n\nAda secret 1500\nBert hidden\n");
    std::string error;
    const auto accounts = readAccounts(in, error);
    ASSERT_TRUE(accounts) << error;
    EXPECT_EQ(accounts->users.size(), 2U);
    EXPECT_EQ(accounts->find("ada")->rating, 1500);
    EXPECT_EQ(accounts->find("bert")->rating, 0);
}

TEST(Accounts, ABrokenLineIsNamed) {
    for (const char* text :
         {"Ada\n", "Ada a b c\n", "A1 secret\n", "Ada secret strong\n", "Ada x\nada y\n", "Ada x 10000\n"}) {
        std::istringstream in(text);
        std::string error;
        EXPECT_FALSE(readAccounts(in, error)) << text;
        EXPECT_NE(error.find("line "), std::string::npos) << text;
    }
}

TEST(Accounts, HandlesHaveThreeToSeventeenLetters) {
    EXPECT_EQ(handleComplaint("Ada"), "");
    EXPECT_EQ(handleComplaint(std::string(17, 'a')), "");
    EXPECT_NE(handleComplaint("Al"), "");
    EXPECT_NE(handleComplaint(std::string(18, 'a')), "");
    EXPECT_NE(handleComplaint("Ada1"), "");
    EXPECT_NE(handleComplaint("A da"), "");
    EXPECT_NE(handleComplaint("Z\xfc"
                              "rich"),
              "");
}

} // namespace
} // namespace practice
