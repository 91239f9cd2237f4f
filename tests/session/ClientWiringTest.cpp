// The console window with its real socket and timers: what they do to the stream.
#include "session/ClientRig.h"

#include "board/BoardRig.h"
#include "common/Text.h"
#include "platform/MessageLoop.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ClientWiring : ClientRig {
    std::vector<std::string> batches;

    void SetUp() override {
        connected();
        client->session.pipeline.hooks.dataParse = [this](const std::string& batch) {
            batches.push_back(batch);
            client->session.classifier.zDataParse(batch);
        };
    }

    // One packet, and what it leads to.
    void packet(const std::string& text) {
        const auto before = batches.size();
        loopback.send(text);
        ASSERT_TRUE(waitUntil([&] { return batches.size() > before; })) << text;
    }
    std::string read() const {
        std::string all;
        for (const std::string& batch : batches) all += batch;
        return all;
    }
};

const LineOf E4{.ranks = AfterE4, .turn = "B", .relation = -1, .verbose = "P/e2-e4", .pretty = "e4"};

// Packets by what the client knows of the server's prompt.
struct Packets : ClientWiring, testing::WithParamInterface<const char*> {
    void SetUp() override {
        ClientWiring::SetUp();
        packet("\n\r" + LineOf{}.text("\n\rfics% "));
        modChess.gPrompt = GetParam();
        txtOutput().clearScreen();
    }
};

std::string answerOf(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "a line of a long answer, number " + std::to_string(i) + "\n\r";
    return text;
}

} // namespace

TEST_F(ClientWiring, AnAnswerLongerThanTheSocketGivesComesWholeAndWithoutAWaitForSilence) {
    modChess.gPrompt = "fics% ";
    client->session.pipeline.hooks.startTimer = [](SessionTimer, int) {}; // silence releases nothing
    const std::string text = answerOf(3000) + "fics% ";                   // 115,000 bytes, too many lines for one batch
    loopback.sendLater(text);
    ASSERT_TRUE(waitUntil([&] { return read().size() == text.size(); }, 20000));
    EXPECT_TRUE(read() == text);
    for (const std::string& batch : batches) EXPECT_LE(std::ranges::count(batch, '\n'), 1001);
    EXPECT_TRUE(batches.front().ends_with("\n\r")) << "cut between lines";
}

TEST_F(ClientWiring, TextWithoutThePromptIsReleasedByThreeSecondsOfSilence) {
    modChess.gPrompt = "fics% ";
    QElapsedTimer since;
    since.start();
    loopback.send("no prompt\n\r");
    ASSERT_TRUE(waitUntil([this] { return !client->session.pipeline.PendingText.empty(); }));
    EXPECT_THAT(batches, IsEmpty());
    ASSERT_TRUE(waitUntil([this] { return !batches.empty(); }, 20000));
    EXPECT_GE(since.elapsed(), 3000);
    EXPECT_THAT(batches, ElementsAre("no prompt\n\r"));
    EXPECT_EQ(console(), "no prompt\n");
}

TEST_F(ClientWiring, ATailThatStandsForASecondIsLearntAndShown) {
    loopback.send("\n\rfics% ");
    EXPECT_TRUE(waitUntil([this] { return lblPrompt().text() == QStringLiteral("fics% "); }, 20000));
    EXPECT_EQ(modChess.gPrompt, "fics% ");
}

TEST_F(ClientWiring, FivePacketsBehindPasswordPassWithoutThePromptAndTheSixthIsHeld) {
    modChess.gPrompt = "fics% ";
    client->session.pipeline.hooks.startTimer = [](SessionTimer, int) {}; // silence releases nothing
    packet("\n\rpassword: ");
    for (int number = 1; number <= 5; ++number) packet("line " + std::to_string(number) + "\n\rits tail");
    const auto passed = batches.size();
    EXPECT_EQ(passed, 6U);
    loopback.send("line 6\n\rits tail");
    ASSERT_TRUE(waitUntil([this] { return client->session.pipeline.PendingText == "line 6\n\rits tail"; }));
    EXPECT_EQ(batches.size(), passed);
}

// What becomes of a message in one packet

TEST_P(Packets, OfAnEmptyLineARecordAndAPromptNothingReachesTheConsole) {
    for (int time = 0; time < 3; ++time) packet("\n\r" + E4.text("\n\rfics% "));
    EXPECT_EQ(firstGame().Board[28], 6);
    EXPECT_EQ(console(), "");
}

TEST_P(Packets, OfARecordWithShortLinesAndPromptsBehindItNothingReachesTheConsole) {
    packet("\n\r" + E4.text("\n\rfics% \n\rshort\n\rfics% \n\r<b1> game 12 white [P] black []\n\rfics% "));
    EXPECT_EQ(firstGame().Holdings[4][0], 1);
    EXPECT_EQ(console(), "");
}

TEST_P(Packets, ALongLineBehindARecordIsPrinted) {
    packet("\n\r" + E4.text("\n\rfics% \n\rA line of ordinary text.\n\rfics% "));
    EXPECT_EQ(firstGame().Board[28], 6);
    EXPECT_TRUE(console().starts_with("A line of ordinary text.\n")) << console();
}

TEST_P(Packets, APromptBetweenATellAndMoreTextVanishes) {
    packet("\n\rBob tells you: hi\n\rfics% \n\rmore text\n\rfics% ");
    EXPECT_EQ(console(), "\nBob tells you: hi\nmore text\nfics% ");
    EXPECT_EQ(batches.size(), 2U) << "one packet is one batch, whatever prompts it holds";
}

TEST_P(Packets, AContinuationWithoutABoxLosesItsBackslashAndBlanks) {
    packet("\n\rBob tells you: a long\n\r\\   story\n\rfics% \n\rmore text\n\rfics% ");
    EXPECT_EQ(console(), "\nBob tells you: a long\nstory\nmore text\nfics% ");
}

TEST_P(Packets, AnEndOfAGameBehindAPromptInTheMiddleIsRead) {
    packet("\n\rAnn shouts: hello\n\rfics% \n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    EXPECT_EQ(firstGame().gameIndex, 0);
    EXPECT_EQ(batches.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Of, Packets, testing::Values("", "fics% "),
                         [](const auto& test) { return std::string(*test.param ? "ALearntPrompt" : "NoPrompt"); });

TEST_F(ClientWiring, TheLearntPromptAtTheEndOfThreePacketsIsPrintedOnce) {
    modChess.gPrompt = "fics% ";
    for (int time = 0; time < 3; ++time) packet("fics% ");
    EXPECT_EQ(console(), "fics% ");
}
