// The parts of a session joined: what one hands to the other, and what of it reaches the outside.
#include "session/Session.h"

#include "session/ChatRig.h"
#include "session/WiredSession.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct SessionTest : WiredSession {};

} // namespace

TEST_F(SessionTest, ARecordReachesItsBoardAndNothingOfItTheConsole) {
    arriveRecord({.ranks = AfterE4, .turn = "B", .game = 12, .relation = -1, .verbose = "P/e2-e4", .pretty = "e4"});
    EXPECT_EQ(game().gameIndex, 12);
    EXPECT_EQ(game().Board[28], 6);
    EXPECT_EQ(console, "");
}

TEST_F(SessionTest, AGameWithoutABoardOpensOneInTheMiddleOfTheBatch) {
    arrive("\n\r" + LineOf{.game = 12}.text(" 0 0\n\r") + "\n\r" + LineOf{.game = 13}.text(" 0 0\n\r") + Prompt);
    ASSERT_EQ(boards.size(), 2U);
    EXPECT_EQ(game(0).gameIndex, 12);
    EXPECT_EQ(game(1).gameIndex, 13);
    EXPECT_EQ(console, "");
}

TEST_F(SessionTest, AQueuedMoveGoesToTheServer) {
    arriveRecord({.game = 12, .relation = 1});
    game().surface.zSqFinish = [this](int) { session.road.zSendMsg("e2-e4"); };
    game().PreMoveSet = true;
    arriveRecord({.ranks = AfterE4, .turn = "B", .game = 12, .relation = 1, .verbose = "P/e2-e4", .pretty = "e4"});
    EXPECT_THAT(sent, ElementsAre("moves 12\n", "e2-e4\n"));
}

TEST_F(SessionTest, AnExaminedGameListsItsMovesAsLongAsNoListCanBeAskedFor) {
    arriveRecord({.game = 12, .relation = 2});
    EXPECT_TRUE(modChess.ExamineNoMoves);
    arriveRecord({.ranks = AfterE4, .turn = "B", .game = 12, .relation = 2, .verbose = "P/e2-e4", .pretty = "e4"});
    EXPECT_EQ(game().grdMoves.text(1, 1), "e4");
}

TEST_F(SessionTest, AGameThatIsPlayedOrObservedLeavesTheQuestionOfListsAlone) {
    arriveRecord({.game = 12, .relation = 0});
    EXPECT_FALSE(modChess.ExamineNoMoves);
}

TEST_F(SessionTest, HoldingsReachTheBoardOfTheLatestRecord) {
    arriveRecord({.game = 12});
    arrive("<b1> game 12 white [PN] black []\n\rfics% ");
    EXPECT_TRUE(game().HoldingsShown);
}

TEST_F(SessionTest, AnEndLineEndsTheGame) {
    arriveRecord({.game = 12, .relation = 1});
    arrive("\n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    EXPECT_EQ(game().gameIndex, 0);
    EXPECT_EQ(game().Style12Record.Relation, -100);
}

TEST_F(SessionTest, TheHandleLearntStandsOnEveryBoard) {
    openBoard();
    arrive("login: ");
    session.road.zSend("Anders");
    arrive("password: ");
    EXPECT_EQ(modChess.MyHandle, "Anders");
    for (const auto& board : boards) EXPECT_TRUE(board->saw("panel 1 Anders"));
}

TEST_F(SessionTest, TheServersStartIsAnsweredByTheStyle) {
    arrive("**** Starting FICS session as Anders ****\n\rfics% ");
    EXPECT_THAT(sent, ElementsAre("Set Style 12\n"));
}

TEST_F(SessionTest, TextThroughTheBridgeNamesTheConnection) {
    session.connection.ConnectionLabel = "Timeseal";
    session.connection.LabelAfterBridge = "FICS";
    arrive("hello");
    EXPECT_EQ(caption, "Connected to FICS");
}

TEST_F(SessionTest, ATellGoesToItsChatBox) {
    RecordedChat box(session.road);
    box.box.xBuddy = "Bob";
    arrive("\n\rBob tells you: hi\n\rfics% ");
    EXPECT_EQ(box.conversation, "hi\r\n");
    EXPECT_EQ(console.find("hi"), console.npos);
}

TEST_F(SessionTest, TheAnswerToATellStandsInTheCaptionOfTheBox) {
    RecordedChat box(session.road);
    box.box.xBuddy = modChess.LastBuddy = "Bob";
    arrive("(told Bob, who is playing)\n\rfics% ");
    EXPECT_EQ(box.caption, "Chatting with Bob (who is playing)");
}

TEST_F(SessionTest, ANewChatBoxProposesTheSenderOfTheLatestTell) {
    modChess.TellTarget = "Bob";
    session.zNewChat();
    EXPECT_THAT(events, ElementsAre("chat for Bob"));
    modChess.AppClosing = true;
    session.zNewChat();
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(SessionTest, TheBoxOfTheLatestSenderComesUpWhereThereIsOne) {
    RecordedChat box(session.road);
    box.box.xBuddy = "Bob";
    modChess.TellTarget = "Bob";
    session.showChat();
    EXPECT_EQ(box.focused, 1);
    EXPECT_THAT(events, IsEmpty());
    modChess.TellTarget = "Carl";
    session.showChat();
    EXPECT_THAT(events, ElementsAre("chat for Carl"));
}

TEST_F(SessionTest, ABoxComesToTheFrontAndThenTakesTheFocus) {
    RecordedChat box(session.road);
    box.box.xBuddy = modChess.TellTarget = "Bob";
    box.box.hooks.bringToFront = [this] { events.emplace_back("front"); };
    box.box.hooks.focus = [this] { events.emplace_back("focus"); };
    session.showChat();
    EXPECT_THAT(events, ElementsAre("front", "focus"));
}

TEST_F(SessionTest, BeforeTheFirstTellABoxOpensWithoutAProposal) {
    const RecordedChat unnamed(session.road);
    session.showChat();
    EXPECT_THAT(events, ElementsAre("chat for "));
}

TEST_F(SessionTest, ShiftF9OpensAChatBox) {
    modChess.TellTarget = "Bob";
    session.typingKeys.typingKeyDown(KeyF9, true);
    EXPECT_THAT(events, ElementsAre("chat for Bob"));
}

TEST_F(SessionTest, ANewGamesBoardLetsNoPieceBeTakenAndComesToTheFront) {
    game().surface.bringToFront = [this] { events.emplace_back("front"); };
    arriveRecord({.game = 12, .relation = 1});
    EXPECT_TRUE(game().noPlay);
    EXPECT_THAT(events, ElementsAre("front"));
}

TEST_F(SessionTest, ThePasswordIsMaskedUntilTheServerAnswers) {
    session.outside.typing.mask = [this](bool on) { events.emplace_back(on ? "mask" : "plain"); };
    arrive("password: ");
    EXPECT_THAT(events, ElementsAre("plain", "mask"));
    arrive("\n\r");
    EXPECT_THAT(events, ElementsAre("plain", "mask", "plain"));
}

TEST_F(SessionTest, ThePasswordIsTheLastCommandWhileItsAnswerIsRead) {
    arrive("password: ");
    session.logOn.password = "secret";
    session.logOn.answer();
    std::string whileRead;
    session.classifier.hooks.insert = [&](const std::string&) { whileRead = modChess.gLastCmd; };
    arrive("\n\rWelcome\n\r");
    EXPECT_EQ(whileRead, "secret");
    EXPECT_EQ(modChess.gLastCmd, "");
}

TEST_F(SessionTest, APasswordTypedByHandIsForgottenThoughTheStyleIsSetInItsAnswer) {
    arrive("password: ");
    session.road.zSend("typed");
    arrive("**** Starting FICS session as Anders ****\n\r");
    EXPECT_EQ(modChess.gLastCmd, "Set Style 12");
    EXPECT_EQ(modChess.gLastTyped, "");
}

TEST_F(SessionTest, ATypedLineIsEchoedAndSent) {
    session.road.zSend("who");
    EXPECT_THAT(sent, ElementsAre("who\n"));
    EXPECT_EQ(console, "who\r\n");
}

TEST_F(SessionTest, BlockModeHoldsTheConsoleBack) {
    session.mnuBlocked();
    arrive("one line of text\n\rfics% ");
    EXPECT_EQ(console, "");
    session.mnuBlocked();
    EXPECT_EQ(console, "one line of text\r\nfics% ");
}

TEST_F(SessionTest, TheLossOfTheConnectionEndsTheGamesAndTheHandle) {
    arriveRecord({.game = 12, .relation = 1});
    modChess.MyHandle = "Anders";
    session.timerFired(SessionTimer::tmrTCP);
    session.socketClosed();
    session.timerFired(SessionTimer::tmrTCP);
    EXPECT_EQ(modChess.MyHandle, "");
    EXPECT_EQ(game().gameIndex, 0);
    EXPECT_EQ(caption, "Brightrank - Client     Closed");
}

TEST_F(SessionTest, AServerChosenWhileConnectedEndsTheGamesOfTheOldOne) {
    arriveRecord({.game = 12, .relation = 1});
    modChess.MyHandle = "Anders";
    session.connection.ConnectionLabel = "FICS";
    session.timerFired(SessionTimer::tmrTCP);
    EXPECT_EQ(caption, "Brightrank - Client     Connected to FICS");
    session.connection.mnuConnectClick(4);
    EXPECT_EQ(game().gameIndex, 0);
    EXPECT_EQ(modChess.MyHandle, "");
    EXPECT_THAT(events, ElementsAre("beep", "to chessclub.com"));
    session.timerFired(SessionTimer::tmrTCP);
    EXPECT_EQ(caption, "Brightrank - Client     Connected to ICC");
}

TEST_F(SessionTest, AutoLogonBringsTheConsoleUpAndThenTheFocusToItsTypingLine) {
    session.connection.mnuAutoLogon = true;
    session.outside.typing.activate = [this] { events.emplace_back("activate"); };
    session.outside.typing.focus = [this] { events.emplace_back("focus"); };
    arrive("login: ");
    EXPECT_THAT(events, ElementsAre("activate", "focus"));
}

TEST_F(SessionTest, TheCloseQuestionEmptiesTheBoardsPanels) {
    arriveRecord({.game = 12, .relation = 1});
    session.connection.LastServer = 1;
    session.connection.ClosedByUser = false;
    session.timerFired(SessionTimer::tmrTCP);
    session.socketClosed();
    session.timerFired(SessionTimer::tmrTCP);
    EXPECT_EQ(running.at(SessionTimer::tmrClose), 550);
    boards.front()->effects.clear();
    game().currentGame = "a game that was opened for review meanwhile";
    for (int beep = 0; beep < 3; ++beep) session.timerFired(SessionTimer::tmrClose);
    EXPECT_EQ(game().currentGame, "");
    EXPECT_TRUE(boards.front()->saw("title Brightrank - Board"));
    EXPECT_THAT(boards.front()->all("panel"), ElementsAre("panel 1 ", "panel 2 ", "panel 3 "));
    EXPECT_FALSE(running.contains(SessionTimer::tmrClose));
}

TEST_F(SessionTest, EachTickWithoutAChangeCountsAnIdleSecond) {
    for (int tick = 0; tick < 4; ++tick) session.timerFired(SessionTimer::tmrTCP);
    EXPECT_EQ(session.road.idleSeconds, 2) << "from -1, by three ticks behind the change";
}

TEST_F(SessionTest, TheLoopRunsWhileABridgeEnds) {
    int turns = 0;
    session.outside.bridge.wait = [&](double seconds) {
        EXPECT_EQ(seconds, 0.01);
        ++turns;
    };
    session.connection.mnuCloseClick();
    EXPECT_EQ(turns, 1);
}

TEST_F(SessionTest, TheTimersRunTheirRoutines) {
    arrive("held without its prompt");
    EXPECT_EQ(running.at(SessionTimer::tmrArrival), 3000);
    session.timerFired(SessionTimer::tmrArrival);
    EXPECT_EQ(console, "held without its prompt");
    session.pipeline.zSetstate(3);
    session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.gVarsCapture);
    session.serverLines.PartialLine = "new% ";
    session.timerFired(SessionTimer::tmrPrompt);
    EXPECT_EQ(modChess.gPrompt, "new% ");
}

TEST_F(SessionTest, ACompleteAnswerGoesToTheWindowThatAskedForIt) {
    openWindows.add({.className = "frmICSVars", .window = &events, .unload = {}, .answered = [this] {
                         events.emplace_back("answered");
                     }});
    session.captures.vars = {[](std::string& line, int) { return line.starts_with("end"); }, answersTo("frmICSVars")};
    session.pipeline.zSetstate(3);
    arrive("Variable settings\n\rend\n\rfics% ");
    EXPECT_THAT(events, ElementsAre("answered"));
    EXPECT_FALSE(modChess.gVarsCapture);
    openWindows.remove(&events);
    session.pipeline.zSetstate(3);
    arrive("end\n\rfics% ");
    EXPECT_EQ(events.size(), 1U) << "the window has been closed meanwhile";
}

TEST_F(SessionTest, AllListsOfGamesGoToOneWindow) {
    openWindows.add({.className = "frmHistory", .window = &events, .unload = {}, .answered = [this] {
                         events.emplace_back("answered");
                     }});
    for (const auto* list : {&session.captures.history, &session.captures.journal, &session.captures.stored}) {
        events.clear();
        list->done();
        EXPECT_THAT(events, ElementsAre("answered"));
    }
    openWindows.remove(&events);
}

TEST_F(SessionTest, AHelpPageGoesToTheHelpWindow) {
    openWindows.add({.className = "frmChessHelp", .window = &events, .unload = {}, .answered = [this] {
                         events.emplace_back("answered");
                     }});
    session.captures.help.done();
    EXPECT_THAT(events, ElementsAre("answered"));
    openWindows.remove(&events);
}

TEST_F(SessionTest, TextIsPutAtTheEndInItsColour) {
    std::vector<std::string> steps;
    session.outside.console.moveToEnd = [&] { steps.emplace_back("end"); };
    session.outside.console.setColor = [&](std::int32_t color) { steps.push_back("color " + std::to_string(color)); };
    session.outside.console.insert = [&](const std::string& text) { steps.push_back(text); };
    modChess.ColorMain = 7;
    session.print("words");
    EXPECT_THAT(steps, ElementsAre("end", "color 7", "words", "end"));
    steps.clear();
    modChess.ColorCopy = 8;
    session.road.zSend("who");
    EXPECT_THAT(steps, ElementsAre("end", "color 8", "who\r\n", "end", "color 7"));
    steps.clear();
    session.blockMode.hooks.insertAtEnd("block");
    EXPECT_THAT(steps, ElementsAre("end", "block"));
}

TEST_F(SessionTest, TheTicksOfConnectionAndLogOnAreTimersOfTheSession) {
    session.connection.hooks.setTickInterval(345);
    EXPECT_EQ(running.at(SessionTimer::tmrTCP), 345);
    session.logOn.hooks.startTimer(678);
    EXPECT_EQ(running.at(SessionTimer::AutoLogon), 678);
}

TEST_F(SessionTest, AnAnswerThatNothingReadsIsNotWaitedFor) {
    session.captures.vars = {};
    session.pipeline.zSetstate(3);
    EXPECT_THAT([this] { arrive("Variable settings\n\rfics% "); },
                testing::ThrowsMessage<std::logic_error>("an answer is waited for that nothing reads"));
}

// Boxes

TEST_F(SessionTest, WhatIsToldWhileABatchIsReadComesUpBehindItInOrder) {
    session.classifier.hooks.zEndGame = [this](const std::string&) {
        session.tell("one");
        session.tell("two");
    };
    arrive("Game aborted.\n\rfics% ");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(running.at(SessionTimer::Messages), 0);
    session.timerFired(SessionTimer::Messages);
    EXPECT_THAT(events, ElementsAre("box one", "end of one", "box two", "end of two"));
}

TEST_F(SessionTest, WhatIsToldUnderABoxWaitsForItsEnd) {
    inBox = [this] {
        session.tell("two");
        session.timerFired(SessionTimer::Messages);
    };
    session.tell("one");
    EXPECT_THAT(events, ElementsAre("box one", "end of one", "box two", "end of two"));
}

TEST_F(SessionTest, WhatTheConnectionHasToTellIsToldInABox) {
    session.connection.hooks.message("no such server");
    EXPECT_THAT(events, ElementsAre("box no such server", "end of no such server"));
}

TEST_F(SessionTest, AnErrorOfTheSocketIsToldInABoxAndClosesIt) {
    session.socketError("refused");
    EXPECT_THAT(events, ElementsAre("box refused", "end of refused"));
    EXPECT_EQ(socket, 0);
}

TEST_F(SessionTest, OnceTheProgramClosesNoFurtherBoxComesUp) {
    inBox = [this] {
        session.tell("two");
        modChess.AppClosing = true;
    };
    session.tell("one");
    session.timerFired(SessionTimer::Messages);
    session.tell("three");
    EXPECT_THAT(events, ElementsAre("box one", "end of one"));
}

// Faults

TEST_F(SessionTest, AFaultNamesTheLimitAndTheLineThatMetIt) {
    arriveRecord({.game = 12});
    try {
        arriveRecord({.ranks = AfterE4, .turn = "B", .game = 12, .moveNumber = 201, .pretty = "Ke2"});
        ADD_FAILURE() << "move 201 has no place";
    } catch (const Fault& fault) {
        EXPECT_THAT(fault.what(),
                    testing::StartsWith("subscript 201 is outside 0 to 200 (rows of the move list), met by \"<12> "));
    }
}

TEST_F(SessionTest, AFaultsTextHasNoControlCharacters) {
    try {
        arrive("Bob(9e9): \x1b[2Jhi\n\rfics% ");
        ADD_FAILURE() << "the channel has no place in 16 bits";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Overflow);
        EXPECT_STREQ(fault.what(), "the number 9e+09 does not fit a field of 16 bits, met by \"Bob(9e9): ?[2Jhi\"");
    }
}

TEST_F(SessionTest, AFaultsTextShows160CharactersOfTheLineAtMost) {
    const auto shownOf = [this](const std::string& line) {
        try {
            arrive(line + "\n\rfics% ");
        } catch (const Fault& fault) {
            const std::string text = fault.what();
            return text.substr(text.find('"'));
        }
        return std::string("no fault");
    };
    std::string line = "Bob(9e9): ~\x7f";
    line.resize(158, 'x');
    std::string shown = line;
    shown[11] = '?';
    EXPECT_EQ(shownOf(line), '"' + shown + '"') << "160 with its ending";
    EXPECT_EQ(shownOf(line + "yyyyy"), '"' + shown + "yy...\"");
}

TEST_F(SessionTest, AGameNumberPast16BitsEndsTheProgramInAnEndLineToo) {
    EXPECT_THROW(arrive("{Game 99999 (a vs. b) a resigns} 1-0\n\rfics% "), Fault);
}
