// The user's variables on the server: what is taken of an answer, what counts as a change, and what is sent.
#include "panels/ServerVars.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "panels/RoadRig.h"

#include <map>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct VarsLines : testing::Test {
    VarsLines() { modChess = {}; }
    ~VarsLines() override { modChess = {}; }

    static bool read(const std::vector<std::string>& lines) {
        bool done = false;
        for (const std::string& line : lines) done = zVarsLines(line);
        return done;
    }
};

struct VarsBlock : testing::Test {
    ServerVars said;

    // By caption.
    std::int16_t value(std::string_view caption) const {
        for (std::size_t index = 0; index < numberVars.size(); ++index) {
            if (numberVars[index].caption == caption) return said.VarNumber[static_cast<long>(index)];
        }
        for (std::size_t index = 0; index < flagVars.size(); ++index) {
            if (flagVars[index].caption == caption) return said.VarFlag[static_cast<long>(index)];
        }
        throw std::logic_error("no such variable");
    }
};

struct SentVars : RoadRig {
    SentVars() { modChess = {}; }
    ~SentVars() override { modChess = {}; }
};

} // namespace

TEST(ServerVars, ThePauseBehindEachChangeHas22HundredthsOfASecond) { EXPECT_DOUBLE_EQ(ChangePause, 0.22); }

// zVarsLines

TEST_F(VarsLines, ATitleEmptiesTheBlockAndIsNotPartOfIt) {
    modChess.VarsBlock = "time=9";
    EXPECT_FALSE(read({"Variable settings of Anders = me:\r\n"}));
    EXPECT_EQ(modChess.VarsBlock, "");
}

TEST_F(VarsLines, LinesWithAnEqualsSignAreAppendedEndToEndWithTheirLineEnds) {
    EXPECT_FALSE(read({"time=2 inc=12\r\n", "rated=1\r\n"}));
    EXPECT_EQ(modChess.VarsBlock, "time=2 inc=12\r\nrated=1\r\n");
}

TEST_F(VarsLines, OtherLinesArePassedOver) {
    EXPECT_FALSE(read({"\r\n", "Berta shouts: hi\r\n", "", "prompt: x\r\n"}));
    EXPECT_EQ(modChess.VarsBlock, "");
}

TEST_F(VarsLines, TheLineWithThePromptIsAppendedAndTheLastOne) {
    EXPECT_TRUE(read({"time=2\r\n", "Prompt: fics% \r\n"}));
    EXPECT_EQ(modChess.VarsBlock, "time=2\r\nPrompt: fics% \r\n");
}

TEST_F(VarsLines, ThePromptMayStandBehindValues) {
    EXPECT_TRUE(read({"simopen=0   tourney=0     Lang=English                    Prompt: fics% \r\n"}));
    EXPECT_EQ(modChess.VarsBlock.substr(0, 9), "simopen=0");
}

TEST_F(VarsLines, NoBlankIsNeededBehindThePromptsColon) {
    EXPECT_TRUE(read({"Prompt:go> \r\n"}));
    ServerVars said;
    said.zParseVars(modChess.VarsBlock);
    EXPECT_EQ(said.VarPrompt, "go> ");
}

TEST_F(VarsLines, ATitleWinsOverAPromptInItsLine) {
    EXPECT_FALSE(read({"time=2\r\n", "Variable settings, Prompt: x\r\n"}));
    EXPECT_EQ(modChess.VarsBlock, "");
}

// zParseVars

TEST_F(VarsBlock, EachKeyFillsItsOwnVariable) {
    for (std::size_t index = 0; index < numberVars.size(); ++index) {
        ServerVars vars;
        vars.zParseVars(std::string(" ") + numberVars[index].key + "7 \r\n");
        EXPECT_EQ(vars.VarNumber[static_cast<long>(index)], 7) << numberVars[index].key;
    }
    for (std::size_t index = 0; index < flagVars.size(); ++index) {
        ServerVars vars;
        vars.zParseVars(std::string(" ") + flagVars[index].key + "1 \r\n");
        EXPECT_EQ(vars.VarFlag[static_cast<long>(index)], 1) << flagVars[index].key;
    }
}

TEST_F(VarsBlock, CaptionsAreTheKeysInOtherLetters) {
    for (const ServerVar& var : numberVars) EXPECT_STRCASEEQ((std::string(var.caption) + "=").c_str(), var.key);
    for (const ServerVar& var : flagVars) {
        const std::string key = var.key;
        EXPECT_STRCASEEQ((std::string(var.caption) + "=").c_str(), key.substr(key.find_first_not_of(' ')).c_str());
    }
}

TEST_F(VarsBlock, OpenInsideALongerNameCountsWhereItComesFirst) {
    said.zParseVars("ropen=1   open=0\r\n");
    EXPECT_EQ(value("Open"), 1);
    EXPECT_EQ(value("ROpen"), 1);
    said.zParseVars("bugopen=0 open=1\r\n");
    EXPECT_EQ(value("Open"), 0);
    said.zParseVars("open=1 bugopen=0 ropen=0\r\n");
    EXPECT_EQ(value("Open"), 1);
}

TEST_F(VarsBlock, TimeAndIncCountWhereTheyComeFirstTooAndOtherOverlapsLikewise) {
    said.zParseVars("ptime=1 time=5 zinc=3 inc=4 cshout=1 shout=0 jprivate=1 private=0\r\n");
    EXPECT_EQ(value("Time"), 1);
    EXPECT_EQ(value("Inc"), 3);
    EXPECT_EQ(value("Shout"), 1);
    EXPECT_EQ(value("Private"), 1);
}

TEST_F(VarsBlock, TellIsKeptOffCTellByItsBlank) {
    said.zParseVars("ctell=1      tell=0\r\n");
    EXPECT_EQ(value("Tell"), 0);
    EXPECT_EQ(value("CTell"), 1);
    said.VarFlag[18] = 7;
    said.zParseVars("tell=1\r\n");
    EXPECT_EQ(value("Tell"), 7) << "at the front of a line it has none";
}

TEST_F(VarsBlock, AnAbsentKeyLeavesItsOldValue) {
    said.zParseVars("time=2 rated=1 Prompt: a% \r\n");
    said.zParseVars("inc=3\r\n");
    EXPECT_EQ(value("Time"), 2);
    EXPECT_EQ(value("Rated"), 1);
    EXPECT_EQ(said.VarPrompt, "a% ");
}

TEST_F(VarsBlock, AValueIsTheNumberAtItsFront) {
    const std::map<std::string, int> cases{{"12x", 12}, {"?", 0},   {"-3", -3}, {"   4", 4},
                                           {"", 0},     {"2.5", 2}, {"2.6", 3}, {"on", 0}};
    for (const auto& [text, number] : cases) {
        said.zParseVars("time=" + text + "\r\n");
        EXPECT_EQ(value("Time"), number) << text;
    }
}

TEST_F(VarsBlock, ANumberBeyondSixteenBitsFaults) {
    for (const char* block : {"time=32768\r\n", "availmax=99999\r\n"}) {
        try {
            said.zParseVars(block);
            ADD_FAILURE() << block;
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.kind(), FaultKind::Overflow);
        }
    }
}

TEST_F(VarsBlock, NumbersAreReadBeforeFlagsAndAFaultEndsTheReading) {
    try {
        said.zParseVars("rated=50000 open=1 time=40000 inc=3 Prompt: a% \r\n");
        ADD_FAILURE() << "neither fits";
    } catch (const Fault& fault) {
        EXPECT_STREQ(fault.what(), "the number 40000 does not fit a field of 16 bits");
    }
    EXPECT_THROW(said.zParseVars("time=4 rated=50000 open=1 Prompt: a% \r\n"), Fault);
    EXPECT_EQ(value("Time"), 4);
    EXPECT_EQ(value("Open"), 0);
    EXPECT_EQ(said.VarPrompt, "");
}

TEST_F(VarsBlock, AFlagBeyondOneKeepsItsValue) {
    said.zParseVars("availmax=2000 availmin=-1\r\n");
    EXPECT_EQ(value("AvailMax"), 2000);
    EXPECT_EQ(value("AvailMin"), -1);
}

TEST_F(VarsBlock, ThePromptLosesTheBlanksInFrontAndItsLineEndAndKeepsTheBlankBehind) {
    said.zParseVars("Prompt:    fics% \r\n");
    EXPECT_EQ(said.VarPrompt, "fics% ");
}

TEST_F(VarsBlock, APromptTextOfTwoCharactersOrLessKeepsTheOldOne) {
    said.VarPrompt = "old";
    for (const char* text : {"\r\n", "  \r\n", "", "a", "ab", "   ab  "}) {
        said.zParseVars(std::string("Prompt:") + text);
        EXPECT_EQ(said.VarPrompt, "old") << text;
    }
    said.zParseVars("Prompt: a\r\n");
    EXPECT_EQ(said.VarPrompt, "a");
}

TEST_F(VarsBlock, AnUnfinishedPromptLineLosesTwoOfItsOwnCharacters) {
    said.zParseVars("Prompt: fics% ");
    EXPECT_EQ(said.VarPrompt, "fic");
}

// Changes

TEST(VarsChange, ANumberIsOtherByItsFrontAlone) {
    EXPECT_FALSE(isOtherNumber(12, "12"));
    EXPECT_FALSE(isOtherNumber(12, " 12 minutes"));
    EXPECT_FALSE(isOtherNumber(0, ""));
    EXPECT_FALSE(isOtherNumber(0, "none"));
    EXPECT_TRUE(isOtherNumber(12, "12.4"));
    EXPECT_TRUE(isOtherNumber(12, "1 2"));
    EXPECT_TRUE(isOtherNumber(12, "99999999999")) << "what a user types never faults";
}

TEST_F(SentVars, NothingMarkedNothingSent) {
    zSendChanges(VarsChanges{}, road());
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(modChess.gPrompt, "");
}

TEST_F(SentVars, NumbersGoBeforeFlagsBeforeThePromptWithAPauseBehindEachButThePrompt) {
    VarsChanges changes;
    changes.lblVar = {true, false, false, false, false, false, true};
    changes.txtVar[0] = "5 or so";
    changes.txtVar[6] = "30";
    changes.chkVar[0] = changes.chkVar[18] = changes.chkVar[25] = true;
    changes.lblPrompt = true;
    changes.txtPrompt = "go>";
    zSendChanges(changes, road());
    EXPECT_THAT(events, ElementsAre("Set Time 5 or so", "pause", "Set Height 30", "pause", "Set Rated", "pause",
                                    "Set Tell", "pause", "Set BugOpen", "pause", "Set Prompt go>"));
}

TEST_F(SentVars, EveryVariableIsSentByItsCaption) {
    VarsChanges changes;
    changes.lblVar.fill(true);
    changes.chkVar.fill(true);
    zSendChanges(changes, road());
    std::vector<std::string> expected;
    for (const ServerVar& var : numberVars) expected.push_back(std::string("Set ") + var.caption + " ");
    for (const ServerVar& var : flagVars) expected.push_back(std::string("Set ") + var.caption);
    EXPECT_EQ(lines(), expected);
}

TEST_F(SentVars, AChangedPromptBecomesTheLearntOneWithABlank) {
    modChess.gPrompt = "fics% ";
    VarsChanges changes;
    changes.txtPrompt = "go>";
    zSendChanges(changes, road());
    EXPECT_EQ(modChess.gPrompt, "fics% ") << "not marked";
    changes.lblPrompt = true;
    zSendChanges(changes, road());
    EXPECT_EQ(modChess.gPrompt, "go> ");
}

TEST_F(SentVars, BehindALineThatDidNotGoOutNothingIsSentAndThereIsNoPause) {
    VarsChanges changes;
    changes.lblVar.fill(true);
    changes.lblPrompt = true;
    changes.txtPrompt = "go>";
    refuseFrom = 2;
    zSendChanges(changes, road());
    EXPECT_THAT(events, ElementsAre("Set Time ", "pause", "Set Inc ", "pause", "refused Set KibLevel "));
    EXPECT_EQ(modChess.gPrompt, "go> ") << "sent or not";
}
