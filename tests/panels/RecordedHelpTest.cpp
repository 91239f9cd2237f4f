// Recorded answers to "help" of two servers, whole and cut off behind each line.
#include "common/RecordedText.h"
#include "common/modChess.h"
#include "panels/HelpCapture.h"
#include "session/ServerLines.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

constexpr const char* Blocks = "server-b/53_variables_notes_help.raw";
constexpr const char* Whole = "server-a/53_variables_notes_help.raw";

// From the first line of an answer through as many prompts.
std::string answer(const std::string& file, const std::string& firstLine, int prompts = 1) {
    const std::string text = recordedText(file);
    const auto at = text.find(firstLine);
    EXPECT_NE(at, text.npos) << firstLine;
    auto end = at;
    for (int i = 0; i < prompts; ++i) end = text.find("fics% ", end) + 6;
    return text.substr(at, end - at);
}

struct Read {
    int nexts = 0;
    int endedAt = -1; // index of the line
    int lines = 0;
};

Read read(const std::string& text) {
    modChess = {};
    modChess.gPrompt = "fics% ";
    ServerLines lines;
    HelpCapture capture;
    Read result;
    result.lines = lines.zParse(text);
    for (int i = 0; i < result.lines && result.endedAt < 0; ++i) {
        const bool done =
            zHandleHelp(capture, lines[i],
                        {.zSendMsg = [&](const std::string&) { ++result.nexts; }, .zSetstate = [](std::int16_t) {}});
        if (done) result.endedAt = i;
    }
    return result;
}

std::string page() {
    std::string text;
    for (int i = 0; i < modChess.HelpCount; ++i) text += modChess.HelpLines[i];
    return text;
}

struct RecordedHelp : testing::Test {
    ~RecordedHelp() override { modChess = {}; }
};

} // namespace

TEST_F(RecordedHelp, APageOfFourBlocksIsFetchedWhole) {
    const Read got = read(answer(Blocks, "variables\n\r\n\rUsage: variables", 4));
    EXPECT_EQ(got.nexts, 3);
    EXPECT_EQ(modChess.HelpBlock, 3);
    EXPECT_EQ(got.endedAt, got.lines - 1);
    EXPECT_THAT(page(), HasSubstr("Usage: variables [user]\r\n"));
    EXPECT_THAT(page(), HasSubstr("[Last modified: December 25, 1995 -- Friar]\r\n"));
    EXPECT_EQ(page().find("Type [next]"), std::string::npos);
    EXPECT_EQ(page().find("fics%"), std::string::npos);
}

TEST_F(RecordedHelp, PagesOfOneToThreeBlocks) {
    struct Case {
        const char* firstLine;
        int blocks;
    };
    for (const auto& [firstLine, blocks] :
         {Case{"index\n\r\n\rUsage: index", 1}, Case{"abort              accept", 2},
          Case{"match\n\r\n\rUsage: match", 3}, Case{"set\n\r\n\rUsage: set", 2}, Case{"No help found for topic", 1}}) {
        const Read got = read(answer(Blocks, firstLine, blocks));
        // the third block of "match" invites to a fourth, which was not asked for
        const bool goesOn = blocks == 3;
        EXPECT_EQ(got.nexts, goesOn ? 3 : blocks - 1) << firstLine;
        EXPECT_EQ(got.endedAt, goesOn ? -1 : got.lines - 1) << firstLine;
        EXPECT_GT(modChess.HelpCount, 0) << firstLine;
    }
}

TEST_F(RecordedHelp, WhatTheOtherServerSaysWhereItHasNoPageEndsWithItsPrompt) {
    for (const char* firstLine : {"There is no help available", "It appears \"set\" is a command", "Command: help"}) {
        const Read got = read(answer(Whole, firstLine));
        EXPECT_EQ(got.endedAt, got.lines - 1) << firstLine;
        EXPECT_EQ(got.nexts, 0);
    }
}

TEST_F(RecordedHelp, OfAPageWhoseLastLineRunsIntoThePromptThatLineIsLost) {
    const Read got = read(answer(Whole, "Command: match"));
    EXPECT_EQ(got.endedAt, got.lines - 1);
    EXPECT_THAT(page(), HasSubstr("\r\n"));
    EXPECT_EQ(page().find("[variant] of the game."), std::string::npos);
}

TEST_F(RecordedHelp, CutOffBehindAnyLineAnAnswerGoesOnWithWhatComesNext) {
    const std::string text = answer(Blocks, "variables\n\r\n\rUsage: variables", 4);
    const Read whole = read(text);
    const std::string wholePage = page();
    const std::int16_t count = modChess.HelpCount;
    for (auto at = text.find("\n\r"); at != text.npos; at = text.find("\n\r", at + 2)) {
        const Read got = read(text.substr(0, at + 2));
        EXPECT_EQ(got.endedAt, -1) << at;
        EXPECT_LE(modChess.HelpCount, count);
        EXPECT_EQ(wholePage.substr(0, page().size()), page()) << at;
    }
    EXPECT_EQ(whole.nexts, 3);
}
