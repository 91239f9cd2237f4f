// Tests of the server's help.
#include "practice/commands/HelpTexts.h"
#include "practice/commands/CommandNames.h"
#include "practice/commands/HelpPages.h"
#include "practice/people/Variables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace practice {
namespace {

TEST(HelpTexts, TheOverviewStandsForNoTopic) {
    EXPECT_NE(helpOn("").find("sought"), std::string::npos);
    EXPECT_EQ(helpOn(""), helpOn("help"));
}

TEST(HelpTexts, TopicsAreFoundByTheirFirstLetters) {
    EXPECT_EQ(helpOn("SEEK"), helpOn("seek"));
    EXPECT_EQ(helpOn("obs"), helpOn("observe"));
    EXPECT_EQ(helpOn("prompt").substr(0, 10), "The prompt");
}

TEST(HelpTexts, UnknownTopicsSayThatNoHelpIsAvailable) {
    EXPECT_EQ(helpOn("NoSuchTopic"), "No help available on \"nosuchtopic\".");
    EXPECT_TRUE(helpOn("seeking").starts_with("No help available"));
}

TEST(HelpTexts, TheListOfCommandsIsWhole) {
    const std::string list = helpOn("commands");
    for (const std::string& name : commandNames()) EXPECT_NE(list.find(name), std::string::npos) << name;
}

TEST(HelpTexts, HelpSaysThatComputersPlaySeveralGames) {
    EXPECT_NE(helpOn("computers").find("as many opponents at once"), std::string::npos);
}

TEST(HelpTexts, TheListOfCommandsHasFourColumns) {
    EXPECT_TRUE(helpOn("commands")
                    .starts_with("abort              accept             adjourn            allobservers       \n"
                                 "assess             backward           date               decline            \n"));
}

TEST(HelpTexts, EachCommandHasAPageOfItsOwn) {
    for (const std::string& name : commandNames()) {
        const std::string page = helpOn(name);
        EXPECT_EQ(page.substr(0, page.find_first_of(" \n")), name);
        EXPECT_NE(page.find("\n\n"), std::string::npos) << name;
    }
    EXPECT_EQ(commandPages().size(), commandNames().size());
}

TEST(HelpTexts, TheManualHoldsThePagesOfAllCommands) {
    const std::string manual = helpOn("manual");
    for (const auto& [name, page] : commandPages()) EXPECT_NE(manual.find("\n\n" + page), std::string::npos) << name;
    const auto lines = std::count(manual.begin(), manual.end(), '\n') + 1;
    EXPECT_GT(lines, 300);
    EXPECT_LE(lines, 400);
}

TEST(HelpTexts, ThePageOnVariablesNamesAllOfThem) {
    const std::string page = helpOn("variables");
    for (const auto& [name, value] : Variables().numbers) {
        EXPECT_TRUE(page.find("  " + name + " ") != std::string::npos ||
                    page.find("  " + name + "\n") != std::string::npos)
            << name;
    }
}

std::vector<std::string> allTexts() {
    std::vector<std::string> texts{helpOn("commands"), helpOn("manual")};
    for (const auto& [topic, page] : guidePages()) texts.push_back(page);
    return texts;
}

TEST(HelpTexts, LinesFitAScreenOf79Columns) {
    for (const std::string& text : allTexts()) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 79U) << line;
        EXPECT_FALSE(text.ends_with('\n'));
    }
}

// A client finds the prompt, the end of a game or the question for the password by such words in any line.
TEST(HelpTexts, NoPageHoldsTheWordsByWhichClientsKnowTheServersMessages) {
    for (const std::string& text : allTexts()) {
        for (const char* word : {"fics% ",      "[next]",       "No help available", "<12>",
                                 "<b1>",        "login:",       "password:",         "} ",
                                 "{Game",       "Challenge:",   "Style 12 set",      "Variable settings",
                                 "Prompt:",     " tells you:",  " shouts:",          "Game aborted",
                                 "has arrived", "has departed", "backs up",          "goes forward",
                                 "(told ",      "Movelist",     "Creating:",         "__________"}) {
            EXPECT_EQ(text.find(word), std::string::npos) << word;
        }
    }
}

} // namespace
} // namespace practice
