// Tests of the computers' ads and of examining at the server's socket, with the real engine.
#include "practice/ServerRig.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const std::string board = "\n\r<12> ";

std::vector<std::vector<std::string>> adsOf(TestClient& client) {
    std::istringstream text(client.ask("sought"));
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(text, line);) {
        auto row = practice::words(line);
        if (row.size() >= 8) rows.push_back(std::move(row));
    }
    return rows;
}

// Plays until the opponent has moved once; false if the ad is not for this client.
bool playOneMove(TestClient& client, const std::string& number) {
    client.line("play " + number);
    const std::string answer = client.until("fics% ");
    if (answer.find("Your rating is outside of what this ad asks for.") != std::string::npos) return false;
    EXPECT_NE(answer.find("Creating: "), std::string::npos) << answer;
    if (answer.find("Creating: Tester ") != std::string::npos) {
        client.line("e4");
        client.until(" e4 0 ");
    }
    client.until(board);
    const auto tokens = practice::words(client.until("\n\r"));
    EXPECT_EQ(tokens.at(18), "1") << "the opponent has moved";
    client.line("resign");
    client.until("Tester resigns} ");
    client.until("fics% ");
    return true;
}

TEST(ServerAds, EachAdIsAGameAgainstTheEngine) {
    TestServer server;
    TestClient client(server.port());
    client.enterRegistered("Tester");
    client.ask("set seek 0");
    int played = 0;
    const auto ads = adsOf(client);
    EXPECT_EQ(ads.size(), 25U);
    for (const auto& ad : ads) {
        SCOPED_TRACE(ad[2]);
        played += playOneMove(client, ad[0]) ? 1 : 0;
    }
    EXPECT_EQ(played, 23) << "two look for others";
}

TEST(ServerAds, AnnouncementsComeInWholePiecesToThoseWhoWantThem) {
    TestServer server({"--seed", "5", "--ad-pace", "100"});
    TestClient quiet(server.port());
    quiet.enterAsGuest("Ada");
    quiet.ask("set seek 0");
    quiet.takePackets();
    TestClient client(server.port());
    client.enterAsGuest("Bert");
    client.takePackets();
    for (int i = 0; i < 5; ++i) client.until(" to respond)\n\rfics% ");
    for (const std::string& piece : client.takePackets()) {
        EXPECT_TRUE(piece.starts_with("\n\r") && piece.ends_with(" to respond)\n\rfics% ")) << piece;
    }
    EXPECT_EQ(quiet.ask("finger nobody"), "There is no player matching the name nobody.\n\rfics% ");
}

// Two players who examine one game of the history and one who watches.
TEST(ServerAds, AnswersToExaminersAndWhatOthersSeeAreOnePieceEach) {
    TestServer server;
    TestClient tester(server.port());
    TestClient partner(server.port());
    TestClient observer(server.port());
    tester.enterRegistered("Tester");
    partner.enterRegistered("Partner");
    observer.enterAsGuest("Ada");
    tester.line("match partner 5 0 u white");
    partner.until("Challenge: ");
    partner.line("accept");
    for (TestClient* client : {&tester, &partner}) client->until(board);
    tester.line("e4");
    partner.until(" e4 1 0 0\n\r");
    partner.line("resign");
    tester.until("Partner resigns} 1-0\n\rfics% ");
    tester.ask("examine tester 0");
    partner.ask("observe tester");
    observer.ask("observe tester");
    for (TestClient* client : {&tester, &partner, &observer}) client->takePackets();
    EXPECT_EQ(tester.ask("mexamine partner"), "Partner is now an examiner of game 2.\n\rfics% ");
    partner.until("\n\rTester has made you an examiner of game 2.\n\r\n\r<12> ");
    partner.until("fics% ");
    observer.until("\n\rPartner is now an examiner of game 2.\n\rfics% ");
    const std::string forward = partner.ask("For 999");
    EXPECT_TRUE(forward.ends_with(" P/e2-e4 (0:00) e4 0 0 0\n\rGame 2: Partner resigns 1-0\n\rfics% ")) << forward;
    EXPECT_EQ(tester.until("fics% "), "\n\r" + forward);
    observer.until(" Tester Partner -2 5 0 ");
    observer.until("Partner resigns 1-0\n\rfics% ");
    EXPECT_EQ(partner.ask("For"), "You're at the end of the game.\n\rfics% ");
    tester.line("c5");
    for (TestClient* client : {&tester, &partner, &observer})
        client->until("P/c7-c5 (0:00) c5 0 0 0\n\rGame 2: Tester moves: c5\n\rfics% ");
    EXPECT_TRUE(partner.ask("Revert").starts_with("Game 2: Partner reverts to main line move 1.\n\r\n\r<12> "));
    for (TestClient* client : {&tester, &observer}) client->until("reverts to main line move 1.");
    EXPECT_TRUE(tester.ask("Back 999").find("fics% ") != std::string::npos);
    tester.ask("unexamine");
    partner.ask("unexamine");
    observer.until("Partner stopped examining game 2.\n\rRemoving game 2 from observation list.\n\rfics% ");
    for (TestClient* client : {&tester, &partner, &observer}) {
        const auto pieces = client->takePackets();
        EXPECT_GE(pieces.size(), 3U);
        for (const std::string& piece : pieces) EXPECT_TRUE(piece.ends_with("fics% ")) << piece;
    }
}

} // namespace
