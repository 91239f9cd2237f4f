// Answers that a panel waits for, from the socket to what the panel looks at.
#include "session/Session.h"

#include "session/WiredSession.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const std::string Row = " 12 1711 GUILTYKING          2   0 rated   blitz                  0-9999 ";

struct SessionAnswers : WiredSession {
    // A loaded window that writes down that its answer is complete.
    void load(const char* className) {
        openWindows.add({.className = className, .window = &console, .unload = {}, .answered = [this, className] {
                             events.push_back(std::string("answer to ") + className);
                         }});
    }
};

} // namespace

TEST_F(SessionAnswers, TheAdsOfAnAnswerStandInTheTableAndVanishFromTheConsole) {
    load("frmSeek");
    session.road.zSendMsg("sought");
    session.pipeline.zSetstate(6);
    arrive("\n\r" + Row + "\n\r1 ads displayed.\n\r\n\rfics% ");
    EXPECT_EQ(session.seekAds.SeekAdCount, 1);
    EXPECT_EQ(session.seekAds.SeekAds[0].AdName, "GUILTYKING");
    EXPECT_FALSE(modChess.gSoughtCapture);
    EXPECT_THAT(console, Not(HasSubstr("GUILTYKING")));
    EXPECT_THAT(console, Not(HasSubstr("ads displayed.")));
    EXPECT_THAT(events, IsEmpty()) << "the graph is off";
}

TEST_F(SessionAnswers, TheGraphIsDrawnWhenItsAnswerIsComplete) {
    load("frmSeek");
    modChess.gSeekOn = true;
    session.road.zSendMsg("sought");
    session.pipeline.zSetstate(6);
    arrive(Row + "\n\r");
    arrive("1 ads displayed.\n\rfics% ");
    EXPECT_THAT(events, ElementsAre("answer to frmSeek"));
}

TEST_F(SessionAnswers, TheVariablesAreTakenUntilTheLineOfThePrompt) {
    session.pipeline.zSetstate(3);
    arrive("Variable settings of Anders:\n\r\n\rtime=2 inc=12\n\rPrompt: fics% \n\r\n\rfics% ");
    EXPECT_EQ(modChess.VarsBlock, "time=2 inc=12\r\nPrompt: fics% \r\n");
    EXPECT_THAT(events, ElementsAre("variables"));
}

TEST_F(SessionAnswers, TheNotesAreTakenUntilThePrompt) {
    session.pipeline.zSetstate(7);
    arrive("Finger of Anders:\n\r\n\r 1: the first\n\r 3: the third\n\rfics% ");
    EXPECT_EQ(modChess.NotesText[0], "the first");
    EXPECT_EQ(modChess.NotesText[2], "the third");
    EXPECT_THAT(events, ElementsAre("notes"));
}

TEST_F(SessionAnswers, ThePagesOfAHelpFileAreFetchedOneByOneAndEachWaitedForAnew) {
    load("frmChessHelp");
    session.pipeline.zSetstate(8);
    arrive("one\n\r");
    running.clear();
    arrive("Type [next] to see next page.\n\rfics% ");
    EXPECT_THAT(sent, ElementsAre("Next\n"));
    EXPECT_EQ(running.at(SessionTimer::tmrState), 5000);
    EXPECT_THAT(events, IsEmpty());
    arrive("two\n\rfics% ");
    EXPECT_THAT(events, ElementsAre("answer to frmChessHelp"));
    EXPECT_EQ(modChess.HelpCount, 2);
    EXPECT_EQ(console, "");
}
