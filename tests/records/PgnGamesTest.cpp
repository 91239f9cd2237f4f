// The tags of a game file: which lines are tags, what they store, and where the moves of a game begin.
#include "records/PgnGames.h"

#include "records/PgnRig.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

// The value that a tag leaves in the row of game 1.
std::string valueOf(const std::string& line, std::string PgnGame::*field) {
    const PgnRig rig;
    rig.games[1].*field = "before";
    EXPECT_TRUE(fQuote(line, 1, rig.games)) << line;
    return rig.games[1].*field;
}

bool isTag(const std::string& line) { return fQuote(line, 1, PgnRig().games); }

} // namespace

// One line

TEST(PgnTag, BeginsAndEndsWithABracket) {
    EXPECT_TRUE(isTag("[White \"Anders\"]"));
    EXPECT_TRUE(isTag("[]"));
    EXPECT_FALSE(isTag("["));
    EXPECT_FALSE(isTag("]"));
    EXPECT_FALSE(isTag(""));
    EXPECT_FALSE(isTag("1. e4 e5"));
    EXPECT_FALSE(isTag(" [White \"Anders\"]"));
}

TEST(PgnTag, WithABlankBehindItIsNone) {
    const PgnRig rig;
    EXPECT_FALSE(fQuote("[White \"Anders\"] ", 1, rig.games));
    EXPECT_EQ(rig.games[1].White, "");
}

TEST(PgnTag, EachNameHasItsField) {
    EXPECT_EQ(valueOf("[Event \"rated\"]", &PgnGame::Event), "rated");
    EXPECT_EQ(valueOf("[Site \"here\"]", &PgnGame::Site), "here");
    EXPECT_EQ(valueOf("[Round \"3\"]", &PgnGame::Round), "3");
    EXPECT_EQ(valueOf("[White \"Anders\"]", &PgnGame::White), "Anders");
    EXPECT_EQ(valueOf("[Black \"Berta\"]", &PgnGame::Black), "Berta");
    EXPECT_EQ(valueOf("[Result \"1/2-1/2\"]", &PgnGame::Result), "1/2-1/2");
    EXPECT_EQ(valueOf("[WhiteElo \"1613\"]", &PgnGame::WhiteElo), "1613");
    EXPECT_EQ(valueOf("[BlackElo \"-\"]", &PgnGame::BlackElo), "-");
    EXPECT_EQ(valueOf("[Date \"2026.11.22\"]", &PgnGame::Date), "2026.11.22");
    EXPECT_EQ(valueOf("[Time \"20:36\"]", &PgnGame::Time), "20:36");
    EXPECT_EQ(valueOf("[TimeControl \"5+0\"]", &PgnGame::TimeControl), "5+0");
}

TEST(PgnTag, ItsNameIsReadInAnyCase) {
    EXPECT_EQ(valueOf("[WHITE \"Anders\"]", &PgnGame::White), "Anders");
    EXPECT_EQ(valueOf("[tImEcOnTrOl \"5+0\"]", &PgnGame::TimeControl), "5+0");
}

TEST(PgnTag, AnUnknownNameIsATagWhoseValueIsDropped) {
    EXPECT_EQ(valueOf("[ECO \"B01\"]", &PgnGame::Event), "before");
    EXPECT_EQ(valueOf("[Whit \"Anders\"]", &PgnGame::White), "before");
}

TEST(PgnTag, WithoutABlankStoresNothing) { EXPECT_EQ(valueOf("[White]", &PgnGame::White), "before"); }

TEST(PgnTag, OneCharacterInFrontOfTheValueAndTwoBehindItAreStepsWithoutALook) {
    EXPECT_EQ(valueOf("[White Anders]", &PgnGame::White), "nder");
    EXPECT_EQ(valueOf("[White  \"Anders\"]", &PgnGame::White), "\"Anders") << "a second blank";
    EXPECT_EQ(valueOf("[White \"Anders\" ]", &PgnGame::White), "Anders\"");
}

TEST(PgnTag, TooShortForAValueItEmptiesTheField) {
    EXPECT_EQ(valueOf("[White ]", &PgnGame::White), "");
    EXPECT_EQ(valueOf("[White \"]", &PgnGame::White), "");
    EXPECT_EQ(valueOf("[White \"\"]", &PgnGame::White), "");
    EXPECT_EQ(valueOf("[White \"A\"]", &PgnGame::White), "A");
}

TEST(PgnTag, AValueHoldsEveryByteAsItStands) {
    EXPECT_EQ(valueOf("[White \"J\xC3\xB8rgen \\\" ]\0x\"]"s, &PgnGame::White), "J\xC3\xB8rgen \\\" ]\0x"s);
}

TEST(PgnTag, OfARowThatIsNotThereIsAFault) {
    const PgnRig rig;
    EXPECT_EQ(faultOf([&] { fQuote("[White \"A\"]", 101, rig.games); }), "subscript");
    EXPECT_EQ(faultOf([&] { fQuote("[White \"A\"]", 100, rig.games); }), "none");
}

// A file

TEST(PgnTags, AFileWithoutTagsHasNoGame) {
    EXPECT_EQ(PgnRig().scan(""), 1);
    EXPECT_EQ(PgnRig().scan("1. e4 e5 1-0\n\n"), 1);
}

TEST(PgnTags, AGameBeginsWithTheFirstLineBehindItsTags) {
    PgnRig rig;
    EXPECT_EQ(rig.scan(pgnText("Anders", "1. e4 e5") + "a word\n" + pgnText("Carla", "1. d4")), 3);
    EXPECT_EQ(rig.games[1].White, "Anders");
    EXPECT_EQ(rig.games[1].Line, 6) << "the empty one";
    EXPECT_EQ(rig.games[2].White, "Carla");
    EXPECT_EQ(rig.games[2].Line, 16);
}

TEST(PgnTags, LinesAreCountedByWhateverEndsThem) {
    const std::string text = pgnText("Anders", "1. e4") + pgnText("Carla", "1. d4");
    for (const char* end : {"\n", "\r", "\r\n"}) {
        std::string other;
        for (const char c : text) {
            if (c == '\n') other += end;
            if (c != '\n' && c != '\r') other += c;
        }
        PgnRig rig;
        EXPECT_EQ(rig.scan(other), 3);
        EXPECT_EQ(rig.games[2].Line, 15);
    }
}

TEST(PgnTags, MovesMayFollowWithoutAnEmptyLine) {
    PgnRig rig;
    EXPECT_EQ(rig.scan("[White \"A\"]\n1. e4 e5\n\n"), 2);
    EXPECT_EQ(rig.games[1].Line, 2);
}

TEST(PgnTags, AnyTagBeginsAGame) {
    PgnRig rig;
    EXPECT_EQ(rig.scan("[x]\n\n1. e4\n\n[]\n\n"), 3);
    EXPECT_EQ(rig.games[1].Line, 2);
    EXPECT_EQ(rig.games[2].Line, 6);
}

TEST(PgnTags, ThatReachTheEndOfTheFileAreNoGame) {
    PgnRig rig;
    EXPECT_EQ(rig.scan(pgnText("Anders", "1. e4") + "[White \"Carla\"]\n"), 2);
    EXPECT_EQ(rig.games[2].White, "Carla") << "they are stored all the same";
    EXPECT_EQ(rig.games[2].Line, 0);
}

TEST(PgnTags, OneTo99GamesAreReadToTheEndOfTheFile) {
    for (const int count : {1, 2, 99}) {
        PgnRig rig;
        EXPECT_EQ(rig.scan(pgnTexts(count)), count + 1);
        EXPECT_EQ(rig.games[count].White, std::to_string(count));
    }
}

TEST(PgnTags, AHundredGamesEndTheReading) {
    for (const int count : {100, 101, 150}) {
        PgnRig rig;
        EXPECT_EQ(rig.scan(pgnTexts(count)), 101);
        EXPECT_EQ(rig.games[100].White, "100");
    }
}

TEST(PgnTags, TheTableKeepsWhatAFileDoesNotTell) {
    PgnRig rig;
    rig.scan(pgnTexts(3));
    rig.scan("[White \"Anders\"]\n\n");
    EXPECT_EQ(rig.games[1].White, "Anders");
    EXPECT_EQ(rig.games[1].Black, "Berta");
    EXPECT_EQ(rig.games[3].White, "3");
}

TEST(PgnTags, AGameBehindLine32767IsAFault) {
    PgnRig rig;
    EXPECT_EQ(rig.scan(std::string(32765, '\n') + "[x]\n\n"), 2);
    EXPECT_EQ(rig.games[1].Line, 32767);
    EXPECT_EQ(faultOf([&] { rig.scan(std::string(32766, '\n') + "[x]\n\n"); }), "overflow");
    EXPECT_EQ(rig.scan(std::string(40000, '\n')), 1) << "lines alone do not count";
}

// Its moves

TEST(PgnMoveLines, AreJoinedByBlanksUpToAnEmptyLine) {
    const PgnRig rig;
    rig.file("\n\r\n1. e4 e5\r\n2. Nf3\r\n1-0\r\n\r\n3. d4\r\n");
    LineFile file(rig.path());
    EXPECT_EQ(readPgnMoves(file), "1. e4 e5 2. Nf3 1-0 ");
    std::string line;
    file.take(line);
    EXPECT_EQ(line, "3. d4");
}

TEST(PgnMoveLines, ALineOfBlanksIsNotEmpty) {
    const PgnRig rig;
    rig.file("  \n1. e4\n \n\n");
    LineFile file(rig.path());
    EXPECT_EQ(readPgnMoves(file), "   1. e4   ");
}

TEST(PgnMoveLines, WithoutAnEmptyLineBehindTheMovesIsAFault) {
    for (const char* text : {"1. e4 e5 1-0", "1. e4 e5 1-0\n", "\n\n", ""}) {
        const PgnRig rig;
        rig.file(text);
        LineFile file(rig.path());
        EXPECT_EQ(faultOf([&] { readPgnMoves(file); }), "file") << text;
    }
}
