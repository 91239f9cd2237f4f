// Tests of tells, shouts and channels.
#include "practice/HallRig.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

struct TalkCommandsTest : testing::Test {
    HallRig rig;

    TalkCommandsTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
        rig.enter("Cora");
    }
};

TEST_F(TalkCommandsTest, ATellReachesOnePlayer) {
    EXPECT_EQ(rig.type("Ada", "tell bert hi there"), "(told Bert)");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada tells you: hi there");
    EXPECT_EQ(rig.takeShown("Cora"), "");
    EXPECT_EQ(rig.type("Bert", "t ada hello"), "(told Ada)");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert(U) tells you: hello");
}

TEST_F(TalkCommandsTest, APointTellsTheSameAgain) {
    EXPECT_EQ(rig.type("Ada", ".once more"), "You have told nobody anything yet.");
    rig.type("Ada", "tell bert hi");
    rig.takeShown("Bert");
    EXPECT_EQ(rig.type("Ada", ".once more"), "(told Bert)");
    EXPECT_EQ(rig.type("Ada", "tell . again"), "(told Bert)");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada tells you: once more|Ada tells you: again");
}

TEST_F(TalkCommandsTest, ATellSaysIfTheOtherPlays) {
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Cora", "tell ada hi"), "(told Ada, who is playing)");
    rig.type("Ada", "resign");
    rig.type("Ada", "examine");
    EXPECT_EQ(rig.type("Cora", "tell ada hi"), "(told Ada, who is examining a game)");
}

TEST_F(TalkCommandsTest, ATellToOneselfIsTheAnswer) {
    EXPECT_EQ(rig.type("Ada", "tell ada self"), "Ada tells you: self\n(told Ada)");
    EXPECT_EQ(rig.takeShown("Ada"), "");
}

TEST_F(TalkCommandsTest, WhoDoesNotListenToGuestsHearsRegisteredPlayers) {
    rig.type("Cora", "set tell 0");
    EXPECT_EQ(rig.type("Bert", "tell cora hi"), "Cora does not listen to unregistered users.");
    EXPECT_EQ(rig.takeShown("Cora"), "");
    EXPECT_EQ(rig.type("Ada", "tell cora hi"), "(told Cora)");
}

TEST_F(TalkCommandsTest, FirstLettersOfTwoNamesReachNobody) {
    rig.enter("Corinna");
    EXPECT_EQ(rig.type("Ada", "tell cor hi"), "No player named \"cor\" is online.");
    EXPECT_EQ(rig.type("Ada", "tell cora hi"), "(told Cora)");
    EXPECT_EQ(rig.type("Ada", "tell cori hi"), "(told Corinna)");
}

TEST_F(TalkCommandsTest, WhoSwitchedChannelsOrCommentsOffHearsNone) {
    rig.type("Bert", "set chanoff 1");
    EXPECT_EQ(rig.type("Ada", "tell 50 hello"), "Ada(50): hello\n(told 2 players in channel 50)");
    EXPECT_EQ(rig.takeShown("Bert"), "");
    rig.match("Ada", "Bert");
    rig.type("Bert", "set kibitz 0");
    EXPECT_EQ(rig.type("Ada", "kibitz hi"), "Ada(1711)[1] kibitzes: hi\n(kibitzed to 0 players)");
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(TalkCommandsTest, ATellToNobodyIsComplainedAbout) {
    EXPECT_EQ(rig.type("Ada", "tell zzzzz hi"), "No player named \"zzzzz\" is online.");
    EXPECT_EQ(rig.type("Ada", "tell bert"), "Usage: tell NAME|CHANNEL TEXT");
    EXPECT_EQ(rig.type("Ada", "tell"), "Usage: tell NAME|CHANNEL TEXT");
}

TEST_F(TalkCommandsTest, EverybodyIsInChannels1And50) {
    EXPECT_EQ(rig.type("Ada", "tell 50 hello"), "Ada(50): hello\n(told 3 players in channel 50)");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada(50): hello");
    EXPECT_EQ(rig.type("Bert", "tell 1 question"), "Bert(U)(1): question\n(told 3 players in channel 1)");
}

TEST_F(TalkCommandsTest, AChannelIsJoinedAndLeft) {
    EXPECT_EQ(rig.type("Ada", "tell 4 hello"), "(Not sent because you are not in channel 4.)");
    EXPECT_EQ(rig.type("Ada", "+channel 4"), "[4] added to your channel list.");
    EXPECT_EQ(rig.type("Ada", "+channel 4"), "[4] is already on your channel list.");
    EXPECT_EQ(rig.type("Ada", "tell 4 hello"), "Ada(4): hello\n(told 1 player in channel 4)");
    EXPECT_EQ(rig.type("Ada", "-chan 50"), "[50] removed from your channel list.");
    EXPECT_EQ(rig.type("Ada", "-chan 50"), "[50] is not in your channel list.");
    rig.type("Bert", "tell 50 hello");
    EXPECT_EQ(rig.takeShown("Ada"), "");
}

TEST_F(TalkCommandsTest, ChannelsHaveALimit) {
    EXPECT_EQ(rig.type("Ada", "+channel 256"), "Channels go from 0 to 255.");
    EXPECT_EQ(rig.type("Ada", "tell 256 x"), "Channels go from 0 to 255.");
    EXPECT_EQ(rig.type("Ada", "+channel"), "Channels go from 0 to 255.");
    EXPECT_EQ(rig.type("Ada", "+notify Bert"), "+notify: Command not found.");
}

TEST_F(TalkCommandsTest, ChannelListsAreShown) {
    EXPECT_EQ(rig.type("Ada", "inchannel 50"), "50: Ada Bert(U) Cora(U)");
    EXPECT_EQ(rig.type("Ada", "inchannel 9"), "Nobody is in that channel.");
    EXPECT_EQ(rig.type("Ada", "=channel"), "-- channel list: 2 channels --\n1  50  ");
    rig.type("Ada", "-channel 1");
    EXPECT_EQ(rig.type("Ada", "=channel"), "-- channel list: 1 channels --\n50  ");
    rig.type("Ada", "-channel 50");
    EXPECT_EQ(rig.type("Ada", "=chan"), "-- channel list: 0 channels --\n");
}

TEST_F(TalkCommandsTest, AShoutReachesThoseWhoListen) {
    rig.type("Cora", "set shout 0");
    EXPECT_EQ(rig.type("Ada", "shout hello all"), "Ada shouts: hello all\n(shouted to 1 player)");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada shouts: hello all");
    EXPECT_EQ(rig.takeShown("Cora"), "");
    EXPECT_EQ(rig.type("Ada", "it waves"), "--> Ada waves\n(it-shouted to 1 player)");
}

TEST_F(TalkCommandsTest, SayGoesToTheOpponentDuringAndAfterTheGame) {
    EXPECT_EQ(rig.type("Ada", "say hi"), "You have not played anybody.");
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Ada", "say gl"), "(told Bert, who is playing)");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada[1] says: gl");
    rig.type("Bert", "resign");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Bert", "say thanks"), "(told Ada)");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert(U) says: thanks");
}

TEST_F(TalkCommandsTest, AKibitzReachesPlayersAndAWhisperObserversOnly) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    EXPECT_EQ(rig.type("Cora", "kibitz nice"), "Cora(U)(++++)[1] kibitzes: nice\n(kibitzed to 2 players)");
    EXPECT_EQ(rig.takeShown("Ada"), "|Cora(U)(++++)[1] kibitzes: nice");
    EXPECT_EQ(rig.type("Ada", "whisper plan"), "Ada(1711)[1] whispers: plan\n(whispered to 1 player)");
    rig.takeShown("Bert");
    EXPECT_EQ(rig.type("Ada", "xwhisper 1 more"), "Ada(1711)[1] whispers: more\n(whispered to 1 player)");
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(TalkCommandsTest, LongTalkIsWrappedToTheReadersWidth) {
    rig.type("Bert", "set width 40");
    rig.type("Ada", "tell bert " + std::string("word word word word word word word word word word"));
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada tells you: word word word word word \n\\   word word word word word");
}

TEST_F(TalkCommandsTest, WhoCommentsReadsHisOwnWordsWrappedToo) {
    rig.match("Ada", "Bert");
    rig.type("Ada", "set width 40");
    EXPECT_EQ(rig.type("Ada", "kibitz word word word word word"), "Ada(1711)[1] kibitzes: word word word \n"
                                                                  "\\   word word\n(kibitzed to 1 player)");
}

TEST_F(TalkCommandsTest, WhoPlaysInSilenceHearsNeitherShoutsNorChannels) {
    rig.type("Ada", "set silence 1");
    rig.type("Bert", "shout before");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert(U) shouts: before");
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Bert", "shout hello"), "Bert(U) shouts: hello\n(shouted to 1 player)");
    EXPECT_EQ(rig.type("Bert", "tell 50 hello"), "Bert(U)(50): hello\n(told 2 players in channel 50)");
    rig.type("Bert", "tell ada gl");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert(U) tells you: gl");
}

TEST_F(TalkCommandsTest, WithoutCTellGuestsAreNotHeardInChannels) {
    rig.type("Cora", "set ctell 0");
    rig.type("Bert", "tell 50 from a guest");
    rig.type("Ada", "tell 50 from a member");
    EXPECT_EQ(rig.takeShown("Cora"), "|Ada(50): from a member");
}

TEST_F(TalkCommandsTest, KibitzesOfLowerRatingsThanTheLevelAreNotHeard) {
    rig.match("Ada", "Bert");
    rig.type("Bert", "set kiblevel 1711");
    rig.type("Ada", "kibitz equal");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada(1711)[1] kibitzes: equal");
    rig.type("Bert", "set kiblevel 1712");
    EXPECT_EQ(rig.type("Ada", "kibitz lower"), "Ada(1711)[1] kibitzes: lower\n(kibitzed to 0 players)");
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(TalkCommandsTest, ControlCharactersNeverReachAnotherScreen) {
    rig.type("Ada", "tell bert a\x1b[2J\x07"
                    "b");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada tells you: a[2Jb");
}

} // namespace
} // namespace practice
