// What becomes of each line of an answer to "help", and where the answer ends.
#include "panels/HelpCapture.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "panels/HelpPage.h"

#include <gmock/gmock.h>

#include <limits>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

struct HelpCaptureTest : testing::Test {
    HelpCaptureTest() {
        modChess = {};
        modChess.gPrompt = Prompt;
        capture.blockRead = [this](const std::string& progress) { done.push_back(progress); };
    }
    ~HelpCaptureTest() override { modChess = {}; }

    bool take(const std::string& line) {
        return zHandleHelp(
            capture, line,
            {.zSendMsg = [this](const std::string& text) { done.push_back(text); },
             .zSetstate = [this](std::int16_t state) { done.push_back("state " + std::to_string(state)); }});
    }
    void takeAll(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) EXPECT_FALSE(take(line)) << line;
    }
    static std::vector<std::string> held() {
        return {modChess.HelpLines.begin(), modChess.HelpLines.begin() + modChess.HelpCount};
    }

    static constexpr const char* Prompt = "fics% ";
    HelpCapture capture;
    std::vector<std::string> done;
};

} // namespace

TEST_F(HelpCaptureTest, AnAnswerOfOneBlockAsksForNoNextAndEndsAtTheFirstPrompt) {
    takeAll(helpLines(3));
    EXPECT_TRUE(take(Prompt));
    EXPECT_THAT(held(), ElementsAreArray(helpLines(3)));
    EXPECT_THAT(done, IsEmpty());
    EXPECT_EQ(modChess.HelpBlock, 0);
}

TEST_F(HelpCaptureTest, AnInvitationIsCountedToldAndAnsweredAndTheTimeOutBeginsAnew) {
    EXPECT_FALSE(take(Invitation));
    EXPECT_EQ(modChess.HelpBlock, 1);
    EXPECT_THAT(done, ElementsAre("Received Blk 1", "Next", "state 8"));
    EXPECT_TRUE(capture.NextPending);
}

TEST_F(HelpCaptureTest, TheInvitationOfEachBlockIsNotKept) {
    takeAll(helpLines(2));
    EXPECT_FALSE(take(Invitation));
    EXPECT_FALSE(take(Prompt));
    takeAll(helpLines(2, 3));
    EXPECT_TRUE(take(Prompt));
    EXPECT_THAT(held(), ElementsAreArray(helpLines(4)));
}

TEST_F(HelpCaptureTest, ThePromptBehindANextIsPassedOverOnceAndTheNextOneIsTheEnd) {
    EXPECT_FALSE(take(Invitation));
    EXPECT_FALSE(take(Prompt));
    EXPECT_FALSE(capture.NextPending);
    EXPECT_TRUE(take(Prompt));
}

TEST_F(HelpCaptureTest, ALineThatMerelyHoldsThePromptCountsAsThePrompt) {
    EXPECT_TRUE(take("the last words of the page.fics% "));
    EXPECT_THAT(held(), IsEmpty());
    EXPECT_TRUE(take("fics% and more\r\n"));
    EXPECT_FALSE(take("fics%\r\n")) << "without its blank it is none";
}

TEST_F(HelpCaptureTest, BeforeAPromptIsLearntEveryLineIsThePrompt) {
    modChess.gPrompt.clear();
    EXPECT_TRUE(take("line 1\r\n"));
    EXPECT_FALSE(take(Invitation)) << "but the invitation is looked for first";
    EXPECT_FALSE(take("line 1\r\n"));
    EXPECT_TRUE(take("line 2\r\n"));
    EXPECT_THAT(held(), IsEmpty());
}

TEST_F(HelpCaptureTest, AnInvitationThatHoldsThePromptIsAnInvitation) {
    EXPECT_FALSE(take("fics% Type [next] to see next page.\r\n"));
    EXPECT_TRUE(capture.NextPending);
    EXPECT_FALSE(take("Type [next]"));
    EXPECT_EQ(modChess.HelpBlock, 2);
}

TEST_F(HelpCaptureTest, TheInvitationIsLookedForWithItsCapitalAndItsBrackets) {
    takeAll({"type [next] to see next page.\r\n", "Type next\r\n", "Type [Next]\r\n"});
    EXPECT_EQ(modChess.HelpCount, 3);
}

TEST_F(HelpCaptureTest, NoHelpAvailableEndsTheAnswerAtOnceAndIsKept) {
    EXPECT_TRUE(take("No help available on \"nothing\".\r\n"));
    EXPECT_THAT(held(), ElementsAre("No help available on \"nothing\".\r\n"));
}

TEST_F(HelpCaptureTest, BehindANextNoHelpAvailableIsTheEndTooAndThePromptBehindItNotSkipped) {
    EXPECT_FALSE(take(Invitation));
    EXPECT_TRUE(take("No help available\r\n"));
    EXPECT_FALSE(capture.NextPending);
}

TEST_F(HelpCaptureTest, NoHelpAvailableWithThePromptInItsLineIsThePrompt) {
    EXPECT_TRUE(take("fics% No help available\r\n"));
    EXPECT_THAT(held(), IsEmpty());
    EXPECT_FALSE(take(Invitation));
    EXPECT_FALSE(take("fics% No help available\r\n"));
}

TEST_F(HelpCaptureTest, AnyOtherLineIsKeptAsItCameTheEmptyOnesToo) {
    const std::vector<std::string> lines{"\r\n", "  by columns   5\r\n", "\xE9t\xE9\r\n", "", "Bob tells you: hi\r\n"};
    takeAll(lines);
    EXPECT_THAT(held(), ElementsAreArray(lines));
}

// A tell, say, that the server puts between its invitation and its prompt.
TEST_F(HelpCaptureTest, ALineBehindANextMakesTheNextPromptTheEnd) {
    EXPECT_FALSE(take(Invitation));
    EXPECT_FALSE(take("Bob tells you: hi\r\n"));
    EXPECT_FALSE(capture.NextPending);
    EXPECT_TRUE(take(Prompt));
}

TEST_F(HelpCaptureTest, BlocksGoOnBeingCountedFromOneAnswerToTheNext) {
    modChess.HelpBlock = 4;
    EXPECT_FALSE(take(Invitation));
    EXPECT_EQ(done.front(), "Received Blk 5");
}

TEST_F(HelpCaptureTest, LinesGoBehindThoseThatAreHeld) {
    takeAll(helpLines(2));
    EXPECT_TRUE(take(Prompt));
    takeAll(helpLines(1, 3));
    EXPECT_THAT(held(), ElementsAreArray(helpLines(3)));
}

TEST_F(HelpCaptureTest, FiveHundredAndOneLinesAreHeldAndThePromptEndsThem) {
    takeAll(helpLines(501));
    EXPECT_TRUE(take(Prompt));
    EXPECT_EQ(modChess.HelpCount, 501);
    EXPECT_EQ(modChess.HelpLines[500], "line 501\r\n");
}

TEST_F(HelpCaptureTest, TheLineBehindThemIsAFaultThatNamesTheLimit) {
    takeAll(helpLines(501));
    try {
        take("line 502\r\n");
        FAIL() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
        EXPECT_STREQ(fault.what(), "subscript 501 is outside 0 to 500 (lines of a help page)");
    }
    EXPECT_EQ(modChess.HelpCount, 501);
}

TEST_F(HelpCaptureTest, SoIsNoHelpAvailableBehindThem) {
    takeAll(helpLines(501));
    EXPECT_THROW(take("No help available\r\n"), Fault);
}

TEST_F(HelpCaptureTest, ABlockThatCanNotBeCountedIsAFault) {
    modChess.HelpBlock = std::numeric_limits<std::int16_t>::max();
    EXPECT_THROW(take(Invitation), Fault);
    EXPECT_THAT(done, IsEmpty());
}
