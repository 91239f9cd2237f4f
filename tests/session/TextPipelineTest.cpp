// Arrivals in, batches out.
#include "session/TextPipeline.h"

#include "SessionRig.h"

#include "common/Fault.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct TextPipelineTest : SessionRig {
    std::vector<std::string> batches;

    TextPipelineTest() {
        pipeline.hooks.dataParse = [this](const std::string& text) {
            batches.push_back(text);
            lines.zParse(text);
        };
    }

    bool runs(SessionTimer timer) const { return running.contains(timer); }

    // A second of silence behind the tail.
    void silentSecond() {
        ASSERT_TRUE(runs(SessionTimer::tmrPrompt));
        pipeline.tmrPrompt();
    }

    static void raiseAllFlags() {
        for (bool ModChess::*flag :
             {&ModChess::gVarsCapture, &ModChess::MovesCapture, &ModChess::gSoughtCapture, &ModChess::gNotesCapture,
              &ModChess::gHelpCapture, &ModChess::HistoryCapture, &ModChess::NewGameFlag}) {
            modChess.*flag = true;
        }
    }
};

} // namespace

TEST_F(TextPipelineTest, UntilAPromptIsLearntTextPassesAtOnce) {
    modChess.gPrompt.clear();
    arrive("half a li");
    EXPECT_THAT(batches, ElementsAre("half a li"));
}

TEST_F(TextPipelineTest, TextWithoutThePromptIsHeldForThreeSeconds) {
    arrive("some text\n\r");
    EXPECT_THAT(batches, IsEmpty());
    EXPECT_EQ(pipeline.PendingText, "some text\n\r");
    EXPECT_EQ(running.at(SessionTimer::tmrArrival), 3000);
    EXPECT_EQ(modChess.Deadlines[0], 4000);
}

TEST_F(TextPipelineTest, AnArrivalWithThePromptDrainsBothAsOneBatchInOrder) {
    arrive("first\n\r");
    arrive("second\n\rfics% ");
    EXPECT_THAT(batches, ElementsAre("first\n\rsecond\n\rfics% "));
    EXPECT_FALSE(runs(SessionTimer::tmrArrival));
    EXPECT_EQ(modChess.Deadlines[0], 0);
}

TEST_F(TextPipelineTest, APromptCutInTwoByThePacketsIsFound) {
    arrive("text\n\rfi");
    arrive("cs% ");
    EXPECT_THAT(batches, ElementsAre("text\n\rfics% "));
}

TEST_F(TextPipelineTest, APromptInSinglePiecesBehindHeldTextIsFound) {
    modChess.gPrompt = "a prompt of some length% ";
    std::string text = "held text\n\r";
    arrive(text);
    for (const char c : modChess.gPrompt) {
        EXPECT_THAT(batches, IsEmpty());
        arrive({c});
    }
    EXPECT_THAT(batches, ElementsAre(text + modChess.gPrompt));
}

TEST_F(TextPipelineTest, LogOnWordsInPiecesBehindHeldTextAreFound) {
    for (const char* word : {"login:", "password:"}) {
        batches.clear();
        pipeline.PassThroughCount = 0;
        arrive("held ");
        for (const char c : std::string(word)) arrive({c});
        EXPECT_THAT(batches, ElementsAre(std::string("held ") + word));
    }
}

TEST_F(TextPipelineTest, ThePromptCountsAnywhereInTheText) {
    arrive("fics% more behind");
    EXPECT_THAT(batches, ElementsAre("fics% more behind"));
}

TEST_F(TextPipelineTest, APromptThatChangesWhileTextIsHeldIsFoundInAllOfIt) {
    arrive("a line\n\rnew% and more text of that line\n\r");
    modChess.gPrompt = "new% ";
    arrive("x");
    EXPECT_THAT(batches, ElementsAre("a line\n\rnew% and more text of that line\n\rx"));
}

TEST_F(TextPipelineTest, TheSilenceCountsFromTheLatestArrival) {
    arrive("one");
    clock = 2500;
    arrive("two");
    EXPECT_EQ(modChess.Deadlines[0], 5500);
    EXPECT_EQ(pipeline.PendingText, "onetwo");
}

TEST_F(TextPipelineTest, SilenceReleasesPartialTextToo) {
    arrive("half a li");
    pipeline.tmrArrival();
    EXPECT_THAT(batches, ElementsAre("half a li"));
    EXPECT_FALSE(runs(SessionTimer::tmrArrival));
    EXPECT_EQ(modChess.Deadlines[0], -1);
}

TEST_F(TextPipelineTest, EveryArrivalClearsTheLogOnPromptAndTheMask) {
    int unmasked = 0;
    pipeline.hooks.clearMask = [&] { ++unmasked; };
    pipeline.login = 2;
    running[SessionTimer::tmrPrompt] = 1000;
    arrive("x");
    EXPECT_EQ(pipeline.login, 0);
    EXPECT_EQ(unmasked, 1);
    EXPECT_FALSE(runs(SessionTimer::tmrPrompt));
}

TEST_F(TextPipelineTest, LoginPassesAtOnce) {
    arrive("\n\rlogin: ");
    EXPECT_THAT(batches, ElementsAre("\n\rlogin: "));
    EXPECT_EQ(pipeline.PassThroughCount, 0);
}

TEST_F(TextPipelineTest, OtherColonsDoNotPass) {
    arrive("logon: pass word: 12:00 Login: ");
    EXPECT_THAT(batches, IsEmpty());
}

TEST_F(TextPipelineTest, PasswordLearnsTheHandleFromTheLastCommandSentBeforeTheDrain) {
    std::string shown;
    std::string handleAtDrain;
    modChess.gLastCmd = "Anders";
    pipeline.hooks.showHandle = [&](const std::string& handle) { shown = handle; };
    pipeline.hooks.dataParse = [&](const std::string&) { handleAtDrain = modChess.MyHandle; };
    arrive("password: ");
    EXPECT_EQ(modChess.MyHandle, "Anders");
    EXPECT_EQ(handleAtDrain, "Anders");
    EXPECT_EQ(shown, "Anders");
}

TEST_F(TextPipelineTest, LoginIsLookedForBeforePassword) {
    modChess.gLastCmd = "x";
    arrive("password: wrong\n\rlogin: ");
    EXPECT_EQ(batches.size(), 1U);
    EXPECT_EQ(modChess.MyHandle, "");
    EXPECT_EQ(pipeline.PassThroughCount, 0);
}

TEST_F(TextPipelineTest, FiveArrivalsBehindPasswordPassAndTheSixthIsHeld) {
    arrive("password: ");
    batches.clear();
    for (const char* text : {"1", "2", "3", "4", "5", "6"}) arrive(text);
    EXPECT_THAT(batches, ElementsAre("1", "2", "3", "4", "5"));
    EXPECT_EQ(pipeline.PendingText, "6");
    EXPECT_EQ(pipeline.PassThroughCount, 0);
}

TEST_F(TextPipelineTest, WhileAnArrivalPassesThroughPasswordIsNotLookedFor) {
    pipeline.PassThroughCount = 3;
    modChess.gLastCmd = "y";
    arrive("password: ");
    EXPECT_EQ(pipeline.PassThroughCount, 2);
    EXPECT_EQ(modChess.MyHandle, "");
}

TEST_F(TextPipelineTest, TextThatArrivesDuringADrainIsTheNextBatch) {
    pipeline.hooks.dataParse = [this](const std::string& text) {
        batches.push_back(text);
        if (batches.size() == 1) {
            arrive("second, without prompt");
            EXPECT_EQ(batches.size(), 1U);
            EXPECT_TRUE(pipeline.ParseBusy);
        }
    };
    arrive("first fics% ");
    EXPECT_THAT(batches, ElementsAre("first fics% ", "second, without prompt"));
    EXPECT_FALSE(pipeline.ParseBusy);
}

TEST_F(TextPipelineTest, AnArrivalDuringTheTimersDrainMayDrainInTheMiddleOfIt) {
    pipeline.hooks.dataParse = [this](const std::string& text) {
        batches.push_back(text);
        if (batches.size() == 1) {
            arrive("inner fics% ");
            EXPECT_EQ(batches.size(), 2U);
        }
    };
    arrive("outer");
    pipeline.tmrArrival();
    EXPECT_THAT(batches, ElementsAre("outer", "inner fics% "));
}

TEST_F(TextPipelineTest, AFaultInADrainLeavesTheGuardDown) {
    pipeline.hooks.dataParse = [](const std::string&) { throw Fault(FaultKind::Subscript, "test"); };
    EXPECT_THROW(arrive("x fics% "), Fault);
    EXPECT_FALSE(pipeline.ParseBusy);
    EXPECT_EQ(pipeline.PendingText, "");
}

TEST_F(TextPipelineTest, TheConnectionHearsOfEachArrivalBeforeItIsDrained) {
    int arrivals = 0;
    int arrivalsAtDrain = 0;
    pipeline.hooks.textArrived = [&] { ++arrivals; };
    pipeline.hooks.dataParse = [&](const std::string&) { arrivalsAtDrain = arrivals; };
    arrive("a");
    arrive("b fics% ");
    EXPECT_EQ(arrivals, 2);
    EXPECT_EQ(arrivalsAtDrain, 2);
}

TEST_F(TextPipelineTest, ATailStartsThePromptTimer) {
    arrive("\n\rfics% ");
    EXPECT_EQ(running.at(SessionTimer::tmrPrompt), 1000);
    arrive("x");
    EXPECT_FALSE(runs(SessionTimer::tmrPrompt));
}

TEST_F(TextPipelineTest, ATailThatStandsAloneForASecondBecomesThePrompt) {
    modChess.gPrompt.clear();
    arrive("\n\raics% ");
    silentSecond();
    EXPECT_EQ(modChess.gPrompt, "aics% ");
    EXPECT_EQ(promptLabel, "aics% ");
    EXPECT_FALSE(runs(SessionTimer::tmrPrompt));
}

TEST_F(TextPipelineTest, ATailOfOneCharacterOrWithoutABlankNeverBecomesThePrompt) {
    modChess.gPrompt.clear();
    for (const char* tail : {" ", "fics%", "x"}) {
        arrive(tail);
        silentSecond();
        EXPECT_EQ(modChess.gPrompt, "") << tail;
    }
    EXPECT_EQ(promptLabel, "");
}

TEST_F(TextPipelineTest, TheSamePromptAgainFlipsTheLabelToStarsAndBack) {
    for (const char* label : {"fics% ", "***", "fics% "}) {
        arrive("fics% ");
        silentSecond();
        EXPECT_EQ(promptLabel, label);
    }
}

TEST_F(TextPipelineTest, EachStateRaisesItsFlag) {
    const std::vector<std::pair<std::int16_t, bool ModChess::*>> table{
        {3, &ModChess::gVarsCapture},  {4, &ModChess::MovesCapture}, {6, &ModChess::gSoughtCapture},
        {7, &ModChess::gNotesCapture}, {8, &ModChess::gHelpCapture}, {9, &ModChess::HistoryCapture}};
    for (const auto& [state, flag] : table) {
        modChess = ModChess{};
        running.clear();
        pipeline.zSetstate(state);
        for (const auto& row : table) EXPECT_EQ(modChess.*row.second, row.second == flag) << state;
        EXPECT_FALSE(modChess.NewGameFlag);
        EXPECT_EQ(running.at(SessionTimer::tmrState), 5000);
        EXPECT_EQ(modChess.Deadlines[1], 6000);
    }
}

TEST_F(TextPipelineTest, AStateOutsideTheTableOnlyRestartsTheTimeOut) {
    for (std::int16_t state : {std::int16_t{0}, std::int16_t{5}, std::int16_t{10}, std::int16_t{-1}}) {
        running.clear();
        pipeline.zSetstate(state);
        EXPECT_FALSE(TextPipeline::BusyTest());
        EXPECT_FALSE(modChess.HistoryCapture);
        EXPECT_TRUE(runs(SessionTimer::tmrState));
    }
}

TEST_F(TextPipelineTest, TheTimeOutClearsAllFlagsButTheHistorys) {
    raiseAllFlags();
    running[SessionTimer::tmrState] = 5000;
    pipeline.tmrState();
    EXPECT_FALSE(TextPipeline::BusyTest());
    EXPECT_TRUE(modChess.HistoryCapture);
    EXPECT_FALSE(runs(SessionTimer::tmrState));
    EXPECT_EQ(modChess.Deadlines[1], -1);
}

TEST_F(TextPipelineTest, BusyTestsEveryFlagButTheHistorys) {
    for (bool ModChess::*flag : {&ModChess::gVarsCapture, &ModChess::MovesCapture, &ModChess::gSoughtCapture,
                                 &ModChess::gNotesCapture, &ModChess::gHelpCapture, &ModChess::NewGameFlag}) {
        modChess = ModChess{};
        EXPECT_FALSE(TextPipeline::BusyTest());
        modChess.*flag = true;
        EXPECT_TRUE(TextPipeline::BusyTest());
    }
    modChess = ModChess{};
    modChess.HistoryCapture = true;
    EXPECT_FALSE(TextPipeline::BusyTest());
}
