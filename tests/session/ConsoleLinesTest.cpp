// Pass 2: a line in, its colour and side effects out.
#include "session/LineClassifier.h"

#include "SessionRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string Seek = "Bob (1500) seeking 5 0 unrated blitz (\"play 3\" to respond)";

struct ConsoleLinesTest : SessionRig {
    // The colour in which `line` is printed.
    std::int32_t colorOf(const std::string& line) {
        printed.clear();
        batch(line + "\n");
        EXPECT_EQ(printed.size(), 1U) << line;
        return printed.empty() ? -1 : printed.front().color;
    }

    bool prints(const std::string& line) {
        printed.clear();
        batch(line + "\n");
        return !printed.empty();
    }

    // An ad of the sought table: 68th character "-".
    static std::string tableRow() {
        std::string row = "  3 1500 Bob               5   0 unrated blitz";
        row.resize(67, ' ');
        return row + "-9999 f";
    }
};

} // namespace

TEST_F(ConsoleLinesTest, OrdinaryTextIsPrintedInTheMainColour) {
    EXPECT_EQ(colorOf("hello"), MainColor);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row1AShoutHasItsColourAndNoSound) {
    EXPECT_EQ(colorOf("Bob shouts: has arrived"), ShoutColor);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row2TellsHaveTheirColourAndWhistle) {
    for (const char* line :
         {"Bob tells you: hi", "Bob would like to abort", "Bob says: hi", "Bob offers you a draw."}) {
        events.clear();
        EXPECT_EQ(colorOf(line), TellColor) << line;
        EXPECT_THAT(events, ElementsAre("sound whistle.wav 7")) << line;
    }
}

TEST_F(ConsoleLinesTest, Row2ChannelTellsAreSilent) {
    EXPECT_EQ(colorOf("Bob(50): login: has arrived"), TellColor);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row3TheAnswerToATellUpdatesItsBoxAndIsHiddenWithTheNextLine) {
    chatBuddies = {"Ann", "Bob"};
    modChess.LastBuddy = "Bob";
    batch("(TOLD bob, who is examining a game) and so on\nfics% \nafter\n");
    EXPECT_THAT(events, ElementsAre("sound send.wav 7", "caption 1 Chatting with Bob (who is examining a game)"));
    EXPECT_EQ(console(), "after\r\n");
}

TEST_F(ConsoleLinesTest, Row3WithoutWhoTheCaptionIsTheBuddyAlone) {
    chatBuddies = {"Bob"};
    modChess.LastBuddy = "Bob";
    batch("fics% (told Bobby)\n");
    EXPECT_TRUE(happened("caption 0 Chatting with Bob"));
}

TEST_F(ConsoleLinesTest, Row3AnUnclosedRemarkEndsWithItsLine) {
    chatBuddies = {"Bob"};
    modChess.LastBuddy = "Bob";
    batch("(told Bob, who is examining\n");
    EXPECT_TRUE(happened("caption 0 Chatting with Bob (who is examining"));
}

TEST_F(ConsoleLinesTest, Row3ARemarkGoesThroughTheNextBracketWhateverItHolds) {
    chatBuddies = {"Bob"};
    modChess.LastBuddy = "Bob";
    batch("(told Bob, who is ~ (away)\n");
    EXPECT_TRUE(happened("caption 0 Chatting with Bob (who is ~ (away)"));
}

TEST_F(ConsoleLinesTest, Row3WithoutABoxTheLineIsPrintedAndNotTestedFurther) {
    modChess.LastBuddy = "Bob";
    EXPECT_TRUE(prints("(told Bob) has arrived"));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row3AnotherBuddysAnswerIsOrdinary) {
    chatBuddies = {"Bob"};
    modChess.LastBuddy = "Bob";
    EXPECT_TRUE(prints("(told Ann)"));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row4AChallengeIsEmphasised) {
    EXPECT_EQ(colorOf("Challenge: Bob (1500) Own (1600) unrated blitz 5 0"), TellColor);
    EXPECT_THAT(events, ElementsAre("emphasis"));
}

TEST_F(ConsoleLinesTest, Row5LoginSetsThePromptState) {
    batch("text login: text");
    EXPECT_EQ(pipeline.login, 1);
    EXPECT_THAT(events, ElementsAre("login 1"));
}

TEST_F(ConsoleLinesTest, Row5WithAutoLogonTheKeyIsPressed) {
    session.connection.mnuAutoLogon = true;
    batch("login: ");
    EXPECT_THAT(events, ElementsAre("login 1", "keyboard", "key in 0"));
}

TEST_F(ConsoleLinesTest, Row5LoginInACaptureSetsNothing) {
    modChess.gHelpCapture = true;
    batch("login: ");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row6PasswordSetsThePromptStateAndTheMask) {
    batch("password: ");
    EXPECT_EQ(pipeline.login, 2);
    EXPECT_THAT(events, ElementsAre("login 2", "mask"));
}

TEST_F(ConsoleLinesTest, Row6WithAutoLogonTheKeyIsPressed) {
    session.connection.mnuAutoLogon = true;
    batch("password: ");
    EXPECT_THAT(events, ElementsAre("login 2", "mask", "keyboard", "key in 0"));
}

TEST_F(ConsoleLinesTest, Row7And8TheSessionStartAsksForStyle12) {
    EXPECT_TRUE(prints("**** Starting FICS session as Bob ****"));
    EXPECT_TRUE(prints("  " + std::string(30, '_')));
    EXPECT_THAT(events, ElementsAre("send Set Style 12", "send Set Style 12"));
}

TEST_F(ConsoleLinesTest, Row8TwentyNineUnderscoresAreOrdinary) {
    prints(std::string(29, '_'));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row9And10BackAndForwardArePrintedAndTheNextLineIsDropped) {
    batch("Game 1: Bob backs up 1 move.\ndropped\nkept\n");
    batch("Game 1: Bob goes forward 1 move.\ndropped\nkept\n");
    EXPECT_EQ(console(), "Game 1: Bob backs up 1 move.\r\nkept\r\nGame 1: Bob goes forward 1 move.\r\nkept\r\n");
}

TEST_F(ConsoleLinesTest, Row11EachEndOfAGameEndsIt) {
    for (const char* text :
         {"{Game 12 (a vs. b) b resigns} 1-0", "{Game 12 (a vs. b) drawn} 1/2-1/2", "{Game 12 (a vs. b) x} 0-1",
          "{Game 12 (a vs. b) game adjourned} *", "Removing game 12 from observation list.",
          "You are no longer examining game 12.", "{Game 12 (a vs. b) aborted by mutual agreement} *",
          "Game aborted on move 1", "The game aborted."}) {
        events.clear();
        EXPECT_EQ(colorOf(text), MainColor);
        EXPECT_THAT(events, ElementsAre(std::string("end ") + text + "\r\n"));
    }
}

TEST_F(ConsoleLinesTest, Row11AnArrivalInAGamesEndCountsAsTheEnd) {
    prints("Bob has arrived {Game 12} 1-0");
    EXPECT_THAT(events, ElementsAre("end Bob has arrived {Game 12} 1-0\r\n"));
}

TEST_F(ConsoleLinesTest, Row12And13ArrivalsAndDeparturesBeep) {
    EXPECT_TRUE(prints("[Bob has arrived]"));
    EXPECT_TRUE(prints("Notification: Bob has departed."));
    EXPECT_THAT(events, ElementsAre("beep", "beep"));
}

TEST_F(ConsoleLinesTest, Row14TheSessionIsReadyForTheGraph) {
    prints("Style 12 set.");
    EXPECT_THAT(events, IsEmpty());
    classifier.menu.mnuSeekGrf = true;
    prints("Style 12 set.");
    EXPECT_THAT(events, ElementsAre("show seek"));
}

TEST_F(ConsoleLinesTest, Row15ThePersonalFilterEatsTwoLines) {
    batch("quillf\nnext\nkept\n");
    EXPECT_EQ(console(), "kept\r\n");
}

TEST_F(ConsoleLinesTest, Row16ATailOfOneCharacterIsDroppedAndAnEmptyLineIsNot) {
    batch("\nx");
    EXPECT_EQ(console(), "\r\n");
    EXPECT_EQ(classifier.SuppressCount, 0);
}

TEST_F(ConsoleLinesTest, Row17TheGraphsOwnPollIsHidden) {
    modChess.gLastCmd = "sought";
    modChess.gSeekOn = true;
    batch(tableRow() + "\n2 ads displayed.\nfics% \nafter\n" + tableRow() + "\nbehind a row\n");
    EXPECT_EQ(console(), "after\r\nbehind a row\r\n");
}

TEST_F(ConsoleLinesTest, Row17ALongLineOfThePollThatRatesNothingIsPrinted) {
    modChess.gLastCmd = "sought";
    modChess.gSeekOn = true;
    const std::string line = std::string(67, 'x') + "-9999 f";
    batch(line + "\n");
    EXPECT_EQ(console(), line + "\r\n");
}

TEST_F(ConsoleLinesTest, Row17OtherLinesOfThePollAreNotTestedFurther) {
    modChess.gLastCmd = "sought";
    modChess.gSeekOn = true;
    classifier.hooks.zSoughtLine = [this](const std::string&) {
        event("sought line");
        return true;
    };
    EXPECT_TRUE(prints("ordinary"));
    std::string row = tableRow();
    row[67] = '+';
    EXPECT_TRUE(prints(row));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, Row17ACountLineHasUpTo68CharactersWithItsLineEnding) {
    modChess.gLastCmd = "sought";
    modChess.gSeekOn = true;
    std::string line = "2 ads displayed.";
    line.resize(66, ' ');
    EXPECT_FALSE(prints(line));
    classifier.SuppressCount = 0;
    EXPECT_TRUE(prints(line + " "));
}

TEST_F(ConsoleLinesTest, Row17NeedsTheExactCommandAndTheGraph) {
    classifier.hooks.zSoughtLine = [](const std::string&) { return false; }; // nor row 18
    modChess.gSeekOn = true;
    for (const char* command : {"sought all", "Sought", ""}) {
        modChess.gLastCmd = command;
        EXPECT_TRUE(prints("2 ads displayed.")) << command;
    }
    modChess.gLastCmd = "sought";
    modChess.gSeekOn = false;
    EXPECT_TRUE(prints("2 ads displayed."));
}

TEST_F(ConsoleLinesTest, Row18AdsAreHiddenWhileTheGraphIsOnOrAGameHasBegun) {
    classifier.hooks.zSoughtLine = [](const std::string& line) { return line.starts_with(Seek); };
    EXPECT_TRUE(prints(Seek));
    modChess.gSeekOn = true;
    EXPECT_FALSE(prints(Seek));
    EXPECT_TRUE(prints("ordinary"));
    modChess.gSeekOn = false;
    modChess.NewGameFlag = true;
    EXPECT_FALSE(prints(Seek));
}

TEST_F(ConsoleLinesTest, Row18KnowsTheRowsAndTheCountLineOfAnAnswerToAnotherCommand) {
    modChess.gLastCmd = "who";
    const std::string row = " 12 1711 GUILTYKING          2   0 rated   blitz                  0-9999 ";
    EXPECT_TRUE(prints(row));
    modChess.gSeekOn = true;
    EXPECT_FALSE(prints(row));
    EXPECT_FALSE(prints("41 ads displayed."));
    EXPECT_TRUE(prints("ordinary")) << "one line each";
    modChess.gLastTyped = "sought all";
    EXPECT_TRUE(prints(row));
}

TEST_F(ConsoleLinesTest, Row18AWordTypedWithSoShowsThem) {
    classifier.hooks.zSoughtLine = [](const std::string&) { return true; };
    modChess.gSeekOn = true;
    modChess.gLastTyped = "SOught all";
    EXPECT_TRUE(prints(Seek));
    modChess.gLastTyped = "so?";
    EXPECT_TRUE(prints(Seek));
    modChess.gLastTyped = "so";
    EXPECT_FALSE(prints(Seek));
    modChess.gLastTyped = "who so";
    EXPECT_FALSE(prints(Seek));
}

TEST_F(ConsoleLinesTest, OfTwoRowsInOneLineTheEarlierCountsWhereverItStands) {
    const std::vector<std::string> rows{
        "(told Bob", "Challenge:", "login:",      "password:",    "**** Starting FICS session as",
        "backs up",  "} 1-0",      "has arrived", "Style 12 set", "quillf"};
    chatBuddies = {modChess.LastBuddy = "Bob"};
    classifier.menu.mnuSeekGrf = true;
    classifier.hooks.zEndGame = [this](const std::string&) { event("end"); };
    const auto effect = [this](const std::string& line) {
        events.clear();
        classifier.SuppressCount = 0;
        batch(line + "\n");
        std::string all = std::to_string(classifier.SuppressCount);
        for (const std::string& event : events) all += "; " + event;
        return all;
    };
    for (std::size_t first = 0; first < rows.size(); ++first) {
        const std::string alone = effect(rows[first]);
        for (std::size_t second = first + 1; second < rows.size(); ++second) {
            EXPECT_EQ(effect(rows[first] + " " + rows[second]), alone) << rows[first] << " before " << rows[second];
            EXPECT_EQ(effect(rows[second] + " " + rows[first]), alone) << rows[second] << " before " << rows[first];
        }
    }
}

TEST_F(ConsoleLinesTest, CaseMatters) {
    prints("LOGIN: Password: challenge: Has arrived BACKS UP Quillf style 12 set");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ConsoleLinesTest, AContinuationLosesItsFrontAndTakesTheColourBefore) {
    batch("Bob tells you: a long\n\\   \\ tell\nprompt\nplain\n");
    EXPECT_THAT(printed, ElementsAre(Printed{"Bob tells you: a long\r\n", TellColor}, Printed{"\\ tell\r\n", TellColor},
                                     Printed{"plain\r\n", MainColor}));
}

TEST_F(ConsoleLinesTest, AContinuationOfAContinuationKeepsTheColour) {
    batch("Bob shouts: a\n\\   b\n\\   c\n");
    EXPECT_EQ(printed.at(2), (Printed{"c\r\n", ShoutColor}));
}

TEST_F(ConsoleLinesTest, AContinuationOfABoxedTellGoesToTheBoxAndTheNextLineIsDropped) {
    chatBuddies = {"Bob"};
    batch("Bob tells you: a long\n\\   tell\nprompt\nnext\nkept\n");
    EXPECT_THAT(chatTexts, ElementsAre("Bob tells you: a long\r\n", "tell\r\n"));
    EXPECT_EQ(console(), "kept\r\n");
}

TEST_F(ConsoleLinesTest, AContinuationThatItsBoxNoLongerTakesIsPrintedInTheColourBefore) {
    classifier.hooks.zChatBox = [](const std::string& line) { return line.starts_with("Bob"); };
    batch("Ann shouts: a\n");
    batch("Bob tells you: a long\n\\   tell\nprompt\nnext\n");
    EXPECT_TRUE(classifier.TellToChat);
    EXPECT_THAT(printed, ElementsAre(Printed{"Ann shouts: a\r\n", ShoutColor}, Printed{"tell\r\n", ShoutColor},
                                     Printed{"next\r\n", MainColor}));
}

TEST_F(ConsoleLinesTest, AContinuationWithoutBlanksLosesItsBackslashAlone) {
    batch("a\n\\bc\n");
    EXPECT_EQ(console(), "a\r\nbc\r\n");
}

TEST_F(ConsoleLinesTest, ABackslashAloneIsNothing) {
    batch("a\n\\");
    EXPECT_EQ(console(), "a\r\n");
}

TEST_F(ConsoleLinesTest, PassTwoChangesItsCopyAlone) {
    batch("\\  x\n");
    EXPECT_EQ(lines[0], "\\  x\r\n");
}

TEST_F(ConsoleLinesTest, TheColourIsSetForDroppedLinesToo) {
    batch("Bob shouts: a\n");
    modChess.gConsoleQuiet = true;
    batch("plain\n");
    EXPECT_EQ(insertionColor, MainColor);
    EXPECT_EQ(classifier.PreviousColor, MainColor);
}
