// Tests of the answer to "variables", as clients read it.
#include "practice/people/Variables.h"

#include "common/RecordedText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

namespace practice {
namespace {

void replace(std::string& text, const std::string& what, const std::string& by) {
    const std::size_t at = text.find(what);
    ASSERT_NE(at, std::string::npos) << what;
    text.replace(at, what.size(), by);
}

Variables withSettings(std::initializer_list<std::pair<const char*, const char*>> settings) {
    Variables variables;
    for (const auto& [word, value] : settings) applySetting(variables, word, value);
    return variables;
}

TEST(VariablesTable, OneSettingMoreIsAllThatAPublicServersTableLacks) {
    const Variables variables = withSettings({{"time", "5"},
                                              {"inc", "0"},
                                              {"cshout", "0"},
                                              {"notifiedby", "1"},
                                              {"pgn", "1"},
                                              {"width", "240"},
                                              {"seek", "0"},
                                              {"minmovetime", "0"},
                                              {"noescape", "1"},
                                              {"prompt", "aics%"},
                                              {"interface", "RookICS marcelk-20061212 + ./rookie"}});
    std::string ours = variablesTable("blik", variables);
    replace(ours, "\nropen=1      ", "\n             ");
    replace(ours, "tzone=SERVER", "tzone=???");
    const std::string theirs = recordedText("text/variables_registered.txt");
    EXPECT_EQ(ours, theirs.substr(0, ours.size()));
}

TEST(VariablesTable, AGuestsTableHasThePublicServersColumnsToo) {
    const Variables variables = withSettings(
        {{"shout", "0"}, {"cshout", "0"}, {"rated", "0"}, {"width", "80"}, {"seek", "0"}, {"chanoff", "1"}});
    std::string ours = variablesTable("GuestPQJM", variables);
    replace(ours, "\nropen=1      ", "\n             ");
    const std::string columns = ours.substr(0, ours.find("\nPrompt: "));
    EXPECT_EQ(columns, recordedText("text/variables_guest.txt").substr(0, columns.size()));
}

TEST(VariablesTable, ThePromptsLineIsFollowedByTheInterfaceAndAnEmptyLine) {
    Variables variables;
    EXPECT_TRUE(variablesTable("Ada", variables).ends_with(" notakeback=0\n\nPrompt: fics% \n"));
    applySetting(variables, "prompt", "box$");
    applySetting(variables, "interface", "probe");
    EXPECT_TRUE(variablesTable("Ada", variables).ends_with("\n\nPrompt: box$ \nInterface: \"probe\"\n"));
}

// What a client gets that looks for a key anywhere in the lines put end to end.
int readPlainly(const std::string& table, const std::string& key) {
    std::string block;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        if (line.find('=') != std::string::npos) block += line + "\r\n";
    }
    const std::size_t at = block.find(key);
    return at == std::string::npos ? -1 : std::atoi(block.c_str() + at + key.size());
}

const char* const numberKeys[] = {"time=", "inc=", "kiblevel=", "unobserve=", "tolerance=", "width=", "height="};

const char* const flagKeys[] = {
    "rated=",     "open=",    "ropen=",    "seek=",       "provshow=", "availmax=", "availmin=",
    "availinfo=", "private=", "jprivate=", "automail=",   "pgn=",      "mailmess=", "messreply=",
    "autoflag=",  "kibitz=",  "shout=",    "cshout=",     " tell=",    "ctell=",    "chanoff=",
    "silence=",   "pin=",     "gin=",      "notifiedby=", "bugopen="};

std::string nameIn(const std::string& key) {
    return key.substr(key[0] == ' ' ? 1 : 0, key.find('=') - (key[0] == ' ' ? 1 : 0));
}

TEST(VariablesTable, APlainSearchFindsEachNumber) {
    for (const std::string key : numberKeys) {
        Variables variables;
        const int other = variables.value(nameIn(key)) == 2 ? 3 : key == "width=" ? 132 : key == "height=" ? 50 : 2;
        applySetting(variables, nameIn(key), std::to_string(other));
        EXPECT_EQ(readPlainly(variablesTable("Ada", variables), key), other) << key;
    }
}

TEST(VariablesTable, APlainSearchFindsEachSwitchBeforeAndAfterItIsToggled) {
    for (const std::string key : flagKeys) {
        Variables variables;
        const int before = readPlainly(variablesTable("Ada", variables), key);
        EXPECT_EQ(before, variables.value(nameIn(key))) << key;
        applySetting(variables, nameIn(key), "");
        EXPECT_EQ(readPlainly(variablesTable("Ada", variables), key), 1 - before) << key;
    }
}

TEST(VariablesTable, ALimitOfAvailabilityIsAFlagBeyondOne) {
    Variables variables;
    applySetting(variables, "availmax", "1800");
    EXPECT_EQ(readPlainly(variablesTable("Ada", variables), "availmax="), 1800);
}

} // namespace
} // namespace practice
