// The console window with its real socket and timers: what they do to the stream.
#include "session/ClientRig.h"

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

    std::string read() const {
        std::string all;
        for (const std::string& batch : batches) all += batch;
        return all;
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
