// Tests of the server's help.
#include "practice/commands/HelpTexts.h"
#include "practice/commands/CommandNames.h"

#include <gtest/gtest.h>

#include <sstream>

namespace practice {
namespace {

TEST(HelpTexts, TheOverviewStandsForNoTopic) {
    EXPECT_NE(helpOn("").find("sought"), std::string::npos);
    EXPECT_EQ(helpOn(""), helpOn("help"));
}

TEST(HelpTexts, TopicsAreFoundByTheirFirstLetters) {
    EXPECT_EQ(helpOn("SEEK"), helpOn("seek"));
    EXPECT_EQ(helpOn("obs"), helpOn("observe"));
}

TEST(HelpTexts, UnknownTopicsSayThatNoHelpIsAvailable) {
    EXPECT_TRUE(helpOn("nosuchtopic").starts_with("No help available"));
}

TEST(HelpTexts, TheListOfCommandsIsWhole) {
    const std::string list = helpOn("commands");
    for (const std::string& name : commandNames()) EXPECT_NE(list.find(name), std::string::npos) << name;
}

TEST(HelpTexts, HelpSaysThatComputersPlaySeveralGames) {
    EXPECT_NE(helpOn("computers").find("as many opponents at once"), std::string::npos);
}

TEST(HelpTexts, LinesFitAScreenOf79Columns) {
    std::vector<std::string> topics = commandNames();
    topics.insert(topics.end(), {"", "commands", "computers", "register"});
    for (const std::string& topic : topics) {
        std::istringstream text(helpOn(topic));
        for (std::string line; std::getline(text, line);) EXPECT_LE(line.size(), 79U) << topic << ": " << line;
    }
}

} // namespace
} // namespace practice
