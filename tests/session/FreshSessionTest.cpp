// What a session holds before it is connected, and the figures that it is built with.
#include "common/modChess.h"
#include "session/Connection.h"
#include "session/FullBatch.h"
#include "session/LinePhrases.h"
#include "session/QuietSurface.h"
#include "session/Session.h"
#include "session/TellLine.h"

#include <gtest/gtest.h>

TEST(FreshSession, IsNotConnectedAndWasNotLeftByAnybodyElse) {
    const Session session{quietSurface()};
    const Connection& connection = session.connection;
    EXPECT_EQ(connection.SocketState, 0);
    EXPECT_EQ(connection.LastServer, 0);
    EXPECT_EQ(connection.CloseTicks, 0);
    EXPECT_TRUE(connection.ClosedByUser);
    EXPECT_FALSE(connection.FirstTickDone);
    EXPECT_EQ(session.road.idleSeconds, -1);
}

TEST(FreshSession, TicksTimeSealAlone) {
    const Session session{quietSurface()};
    EXPECT_TRUE(session.connection.mnuUseTS);
    EXPECT_FALSE(session.connection.mnuAutoCon);
    EXPECT_FALSE(session.connection.mnuAutoLogon);
    EXPECT_FALSE(session.classifier.menu.mnuBlocked);
    EXPECT_FALSE(session.classifier.menu.mnuSeekGrf);
    EXPECT_FALSE(session.serverLines.verbose);
}

TEST(FreshSession, HoldsNothingBackAndAwaitsNoAnswerToAPrompt) {
    const Session session{quietSurface()};
    EXPECT_FALSE(session.pipeline.ParseBusy);
    EXPECT_EQ(session.pipeline.PassThroughCount, 0);
    EXPECT_EQ(session.pipeline.login, 0);
    EXPECT_FALSE(session.helpCapture.NextPending);
}

TEST(FreshSession, PrintsInBlackWithNothingEaten) {
    const Session session{quietSurface()};
    EXPECT_EQ(session.classifier.SuppressCount, 0);
    EXPECT_EQ(session.classifier.LineColor, 0);
    EXPECT_EQ(session.classifier.PreviousColor, 0);
    EXPECT_FALSE(session.classifier.TellToChat);
    EXPECT_FALSE(session.classifier.PromptShown);
    EXPECT_EQ(PhraseSet{}.bits, 0U);
}

TEST(FreshSession, KnowsTheTwoServersTheRelaysPortAndItsTitle) {
    EXPECT_STREQ(FicsHost, "freechess.org");
    EXPECT_EQ(FicsPort, 5000);
    EXPECT_STREQ(IccHost, "chessclub.com");
    EXPECT_EQ(IccPort, 6000);
    EXPECT_EQ(BridgePort, 6000);
    EXPECT_STREQ(ClientTitle, "Brightrank - Client  ");
    EXPECT_EQ(ServerRoad::Connected, 7);
    EXPECT_EQ(SessionTimers, 7);
}

TEST(FreshSession, NumbersTheTells) {
    EXPECT_EQ(NoTell, 0);
    EXPECT_EQ(PersonalTell, 1);
    EXPECT_EQ(WouldLikeTo, 2);
    EXPECT_EQ(Says, 3);
    EXPECT_EQ(DrawOffer, 4);
    EXPECT_EQ(Shout, 5);
    EXPECT_EQ(ChannelTell, 1000);
}
