// The user's finger notes: what is taken of an answer, and what is sent.
#include "panels/FingerNotes.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "panels/RoadRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct NotesLines : testing::Test {
    NotesLines() {
        modChess = {};
        modChess.gPrompt = "fics% ";
    }
    ~NotesLines() override { modChess = {}; }

    static std::string note(long number) { return modChess.NotesText[number - 1]; }
    static std::string all() {
        std::string text;
        for (const std::string& each : modChess.NotesText) text += each;
        return text;
    }
    static bool faults(const std::string& line) {
        try {
            zNotesLines(line);
        } catch (const Fault& fault) {
            return fault.kind() == FaultKind::Subscript;
        }
        return false;
    }
};

using SentNotes = RoadRig;

} // namespace

TEST(FingerNotes, AreTen) { EXPECT_EQ(FingerNotes, 10U); }

TEST_F(NotesLines, ANoteIsWhatStandsFromColumnFiveWithoutItsLineEnd) {
    EXPECT_FALSE(zNotesLines(" 1: First note\r\n"));
    EXPECT_FALSE(zNotesLines("10: The tenth \r\n"));
    EXPECT_EQ(note(1), "First note");
    EXPECT_EQ(note(10), "The tenth ");
}

TEST_F(NotesLines, TheBlankBehindTheColonMayBeAnything) {
    zNotesLines(" 2:x Some text\r\n");
    EXPECT_EQ(note(2), " Some text");
}

TEST_F(NotesLines, ALaterLineOfTheSameNumberReplacesTheNote) {
    zNotesLines(" 3: the older one\r\n");
    zNotesLines("3 : the newer one\r\n");
    zNotesLines("03: the newest one\r\n");
    EXPECT_EQ(note(3), "the newest one") << "\"3 :\" has its colon in column 3 as well";
}

TEST_F(NotesLines, ALineOfElevenCharactersIsTakenAndAShorterOneIsNot) {
    zNotesLines(" 1: seven\r\n"); // 11 with its line end
    zNotesLines(" 2: five\r\n");
    zNotesLines(" 3: hi\r\n");
    zNotesLines(" 4: \r\n");
    EXPECT_EQ(note(1), "seven");
    EXPECT_EQ(all(), "seven");
}

TEST_F(NotesLines, TwoCharactersAreCutWhateverTheyAre) {
    zNotesLines(" 1: an unfinished line");
    EXPECT_EQ(note(1), "an unfinished li");
}

TEST_F(NotesLines, ALongLineWithoutAColonInColumnThreeIsDropped) {
    EXPECT_FALSE(zNotesLines("Finger of Anders:\r\n"));
    EXPECT_FALSE(zNotesLines("\\   goes on here\r\n"));
    EXPECT_FALSE(zNotesLines("123: is no note\r\n"));
    EXPECT_EQ(all(), "");
}

TEST_F(NotesLines, TheColonIsLookedForBehindTheCut) {
    EXPECT_FALSE(zNotesLines(" 1: 456789\r")) << "11 characters, 9 behind the cut";
    EXPECT_EQ(note(1), "45678");
}

TEST_F(NotesLines, AShortLineThatIsThePromptIsTheEnd) {
    EXPECT_TRUE(zNotesLines("fics% "));
    EXPECT_FALSE(zNotesLines("fics% \r\n"));
    EXPECT_FALSE(zNotesLines("fics%"));
    EXPECT_FALSE(zNotesLines("\r\n"));
    EXPECT_FALSE(zNotesLines(""));
}

TEST_F(NotesLines, APromptOfElevenCharactersNeverEndsTheAnswer) {
    modChess.gPrompt = "0123456789 ";
    EXPECT_FALSE(zNotesLines("0123456789 "));
    modChess.gPrompt = "012345678 ";
    EXPECT_TRUE(zNotesLines("012345678 "));
}

TEST_F(NotesLines, WhileNoPromptIsLearntABlankedLineIsTheEnd) {
    modChess.gPrompt = "";
    EXPECT_TRUE(zNotesLines(""));
    EXPECT_FALSE(zNotesLines("\r\n"));
}

TEST_F(NotesLines, ANumberOutsideOneToTenFaults) {
    for (const char* line :
         {"11: eleven is too many\r\n", "99: far too many\r\n", " 0: zero is too few\r\n", "00: zero is too few\r\n",
          "ab: has no number\r\n", "  : has no number\r\n", "-1: is too few\r\n"}) {
        EXPECT_TRUE(faults(line)) << line;
    }
    EXPECT_EQ(all(), "");
}

TEST_F(NotesLines, OneIsTakenOffTheNumberBeforeItIsRounded) {
    EXPECT_FALSE(faults(".5: half a note\r\n"));
    EXPECT_EQ(note(1), "half a note");
    EXPECT_TRUE(faults(".4: not even half\r\n"));
}

TEST_F(NotesLines, AShortLineWithSuchANumberIsDropped) {
    EXPECT_FALSE(faults("11: a\r\n"));
    EXPECT_FALSE(faults(" 0: a\r\n"));
}

// Changes

TEST_F(SentNotes, NothingMarkedNothingSent) {
    zSendChanges(NotesChanges{}, road());
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(SentNotes, MarkedOnesGoInOrderWithAPauseBehindEachAndAnEmptiedOneWithItsBlank) {
    NotesChanges changes;
    changes.lblNote[0] = changes.lblNote[2] = changes.lblNote[9] = true;
    changes.txtNote[0] = "One = two";
    changes.txtNote[1] = "unchanged";
    changes.txtNote[9] = "ten";
    zSendChanges(changes, road());
    EXPECT_THAT(events, ElementsAre("Set 1 One = two", "pause", "Set 3 ", "pause", "Set 10 ten", "pause"));
}

TEST_F(SentNotes, BehindALineThatDidNotGoOutNothingIsSent) {
    NotesChanges changes;
    changes.lblNote.fill(true);
    refuseFrom = 1;
    zSendChanges(changes, road());
    EXPECT_THAT(events, ElementsAre("Set 1 ", "pause", "refused Set 2 "));
}
