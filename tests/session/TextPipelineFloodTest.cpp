// Held text that becomes too much for one batch, and random arrivals beside a second writing of the pipeline.
#include "session/TextPipeline.h"

#include "SessionRig.h"

#include "common/Fault.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <numeric>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::size_t OneArrival = 8192;

std::string numbered(int from, int count, std::size_t length = 0) {
    std::string text;
    for (int i = from; i < from + count; ++i) {
        std::string line = "line " + std::to_string(i);
        line.resize(std::max(length, line.size()), '.');
        text += line + "\n\r";
    }
    return text;
}

struct TextPipelineFlood : SessionRig {
    std::vector<std::string> batches;
    int largest = 0; // lines

    TextPipelineFlood() {
        pipeline.hooks.dataParse = [this](const std::string& text) {
            batches.push_back(text);
            largest = std::max(largest, lines.zParse(text));
        };
    }
    std::string allBatches() const { return std::accumulate(batches.begin(), batches.end(), std::string()); }

    void arriveInPackets(const std::string& text, std::size_t packet = OneArrival) {
        for (std::size_t at = 0; at < text.size(); at += packet) arrive(text.substr(at, packet));
    }
};

} // namespace

TEST_F(TextPipelineFlood, AnAnswerOf40KilobytesWithoutAPromptInsideIsOneBatch) {
    const std::string answer = numbered(0, 640, 64) + "fics% ";
    ASSERT_GT(answer.size(), 40'000U);
    arriveInPackets(answer);
    EXPECT_THAT(batches, ElementsAre(answer));
}

TEST_F(TextPipelineFlood, AnAnswerOfAThousandUsersIsOneBatch) {
    const std::string answer = numbered(0, 1000, 78) + "fics% ";
    arriveInPackets(answer);
    EXPECT_THAT(batches, ElementsAre(answer));
    EXPECT_EQ(largest, 1001);
}

TEST_F(TextPipelineFlood, AnAnswerOf900KilobytesWithoutAPromptInsideIsOneBatch) {
    const std::string answer = numbered(0, 300, 3000) + "fics% ";
    arriveInPackets(answer);
    EXPECT_THAT(batches, ElementsAre(answer));
}

TEST_F(TextPipelineFlood, ALineWithoutEndGoesInBatchesOfAMegabyteAndIsHeldOn) {
    arriveInPackets(std::string(20'000'000, 'x'));
    EXPECT_EQ(batches.size(), 19U);
    for (const std::string& batch : batches) EXPECT_EQ(batch.size(), MostHeldBytes);
    EXPECT_LE(pipeline.PendingText.size(), MostHeldBytes);
    EXPECT_EQ(running.at(SessionTimer::tmrArrival), 3000);
    arrive("fics% ");
    EXPECT_TRUE(allBatches() == std::string(20'000'000, 'x') + "fics% ");
    EXPECT_EQ(pipeline.PendingText, "");
}

TEST_F(TextPipelineFlood, LongLinesGoAheadWholeOnceTheyAreAMegabyte) {
    arriveInPackets(numbered(0, 350, 3000));
    ASSERT_EQ(batches.size(), 1U);
    EXPECT_EQ(batches[0], numbered(0, 349, 3000));
    EXPECT_EQ(pipeline.PendingText, numbered(349, 1, 3000));
}

TEST_F(TextPipelineFlood, WithOneLineMoreTheFrontGoesAheadWhenItComes) {
    const std::string first = numbered(0, 1001);
    arriveInPackets(first);
    EXPECT_THAT(batches, IsEmpty());
    arrive("fics% ");
    EXPECT_THAT(batches, ElementsAre(numbered(0, 1000), numbered(1000, 1) + "fics% "));
}

TEST_F(TextPipelineFlood, OneHeldCharacterIsEnoughForTheFrontToGoAhead) {
    arrive("F");
    arrive("irst\n\r" + numbered(1, 1001));
    EXPECT_THAT(batches, ElementsAre("First\n\r" + numbered(1, 999)));
    EXPECT_EQ(pipeline.PendingText, numbered(1000, 2));
    arrive("fics% ");
    batches.clear();
    arrive("F");
    arrive("irst\n\r" + numbered(1, 1001) + "fics% ");
    EXPECT_THAT(batches, ElementsAre("First\n\r" + numbered(1, 999), numbered(1000, 2) + "fics% "));
}

TEST_F(TextPipelineFlood, AnEndlessAnswerGoesInBatchesAndIsHeldOn) {
    const std::string answer = numbered(0, 20000);
    arriveInPackets(answer, 700);
    EXPECT_EQ(largest, 1000);
    EXPECT_EQ(batches.size(), 19U);
    EXPECT_EQ(running.at(SessionTimer::tmrArrival), 3000);
    arrive("fics% ");
    EXPECT_TRUE(allBatches() == answer + "fics% ");
    EXPECT_EQ(pipeline.PendingText, "");
}

TEST_F(TextPipelineFlood, WhatIsLetGoIsReadUnderTheGuard) {
    int depth = 0;
    pipeline.hooks.dataParse = [&](const std::string& text) {
        EXPECT_EQ(++depth, 1);
        EXPECT_TRUE(pipeline.ParseBusy);
        batches.push_back(text);
        if (batches.size() == 1) arrive("came meanwhile fics% ");
        --depth;
    };
    arriveInPackets(numbered(0, 1001));
    arrive("end fics% ");
    EXPECT_THAT(batches, ElementsAre(numbered(0, 1000), numbered(1000, 1) + "end fics% came meanwhile fics% "));
    EXPECT_FALSE(pipeline.ParseBusy);
}

// What decides is all that waits, the part that goes ahead too.
TEST_F(TextPipelineFlood, APromptInThePartThatGoesAheadBringsTheRestToo) {
    arriveInPackets(numbered(0, 990));
    arrive("fics% " + numbered(990, 20));
    EXPECT_TRUE(allBatches() == numbered(0, 990) + "fics% " + numbered(990, 20));
    EXPECT_EQ(pipeline.PendingText, "");
    EXPECT_FALSE(running.contains(SessionTimer::tmrArrival));
}

TEST_F(TextPipelineFlood, APasswordQuestionInThePartThatGoesAheadCountsAsEver) {
    std::string handleAtDrain;
    modChess.gLastCmd = "Anders";
    pipeline.hooks.dataParse = [&](const std::string& text) {
        batches.push_back(text);
        if (batches.size() == 1) handleAtDrain = modChess.MyHandle;
    };
    arriveInPackets(numbered(0, 990));
    arrive("password: " + numbered(990, 20));
    EXPECT_EQ(batches.size(), 2U);
    EXPECT_EQ(handleAtDrain, "Anders");
    EXPECT_EQ(pipeline.PassThroughCount, 5);
    EXPECT_EQ(pipeline.PendingText, "");
}

TEST_F(TextPipelineFlood, OneArrivalOfMoreThan1001LinesEndsTheProgramAsEver) {
    EXPECT_THROW(arrive(std::string(1002, '\n') + "fics% "), Fault);
    EXPECT_FALSE(pipeline.ParseBusy);
}

TEST_F(TextPipelineFlood, OneArrivalOfMoreThan1001LinesThatIsHeldIsCutByTheNext) {
    arrive(std::string(1500, '\n'));
    EXPECT_THAT(batches, IsEmpty());
    arrive("fics% ");
    EXPECT_THAT(batches, ElementsAre(std::string(1000, '\n'), std::string(500, '\n') + "fics% "));
}

// A second writing of the pipeline, which keeps no account of what it has searched.

namespace {

struct Model {
    std::string pending;
    int passes = 0;
    bool timer = false;
    bool tail = false;
    std::string partial;
    std::string prompt = "fics% ";
    std::string handle;
    std::vector<std::string> batches;

    bool has(const std::string& text) const { return pending.find(text) != std::string::npos; }
    void drain() {
        batches.push_back(pending);
        const bool ends = !pending.empty() && (pending.back() == '\n' || pending.back() == '\r');
        if (!ends) {
            tail = true;
            partial = pending.substr(pending.find_last_of("\r\n") + 1);
            if (!partial.empty() && partial[0] >= 0 && partial[0] < ' ') partial.clear();
        }
        pending.clear();
    }
    void arrive(const std::string& text) {
        pending += text;
        tail = timer = false;
        if (passes > 0) {
            drain();
            --passes;
        } else if (has("login:")) {
            drain();
        } else if (has("password:")) {
            handle = modChess.gLastCmd;
            drain();
            passes = 5;
        } else if (has(prompt)) {
            drain();
        } else {
            timer = true;
        }
    }
    void silence() {
        timer = false;
        drain();
    }
    void second() {
        tail = false;
        if (partial.size() > 1 && partial.back() == ' ') prompt = partial;
    }
};

} // namespace

TEST_F(TextPipelineFlood, RandomArrivalsMakeTheBatchesOfASecondWriting) {
    const char* const given = std::getenv("BRIGHTRANK_STREAM_ROUNDS");
    const int rounds = given ? std::atoi(given) : 300;
    const std::vector<std::string> parts{"\n\r",  "\r\n",  "\n",     "fics% ", "fi",         "cs% ",
                                         "fics%", " ",     "login:", "log",    "in:",        "password:",
                                         "pass",  "word:", ":",      "x",      "a line\n\r", "aics% "};
    std::mt19937 random(1984);
    for (int round = 0; round < rounds; ++round) {
        Model model;
        pipeline.PendingText.clear();
        pipeline.PassThroughCount = 0;
        lines.PartialLine.clear();
        running.clear();
        batches.clear();
        modChess.MyHandle.clear();
        modChess.gPrompt = model.prompt = random() % 4 == 0 ? "" : "fics% ";
        for (int event = 0; event < 100; ++event) {
            if (running.contains(SessionTimer::tmrArrival) && random() % 8 == 0) {
                pipeline.tmrArrival();
                model.silence();
            } else if (running.contains(SessionTimer::tmrPrompt) && random() % 4 == 0) {
                pipeline.tmrPrompt();
                model.second();
            } else {
                std::string text;
                for (std::size_t i = random() % 4 + 1; i > 0; --i) text += parts[random() % parts.size()];
                modChess.gLastCmd = std::to_string(event);
                arrive(text);
                model.arrive(text);
            }
            ASSERT_EQ(batches, model.batches) << "round " << round << " event " << event;
            ASSERT_EQ(pipeline.PendingText, model.pending);
            ASSERT_EQ(pipeline.PassThroughCount, model.passes);
            ASSERT_EQ(running.contains(SessionTimer::tmrArrival), model.timer);
            ASSERT_EQ(running.contains(SessionTimer::tmrPrompt), model.tail);
            ASSERT_EQ(modChess.gPrompt, model.prompt);
            ASSERT_EQ(modChess.MyHandle, model.handle);
        }
    }
}

TEST_F(TextPipelineFlood, RandomFloodsLoseNoLineAndGoAheadOnlyWhereTheyMust) {
    std::mt19937 random(42);
    for (int round = 0; round < 60; ++round) {
        std::string text;
        batches.clear();
        for (int part = 0; part < 40; ++part) {
            const std::string arrival =
                numbered(part * 1000, static_cast<int>(random() % 120), random() % 60) + (random() % 30 == 0  ? "fics% "
                                                                                          : random() % 3 == 0 ? "tail"
                                                                                                              : "");
            text += arrival;
            const std::size_t before = batches.size();
            const std::string waited = pipeline.PendingText + arrival;
            arrive(arrival);
            LineCount count;
            count.add(waited);
            const bool prompted = waited.find("fics% ") != std::string::npos;
            ASSERT_EQ(batches.size() > before, prompted || count.overfull());
            ASSERT_EQ(batches.size() > before + 1, prompted && count.overfull());
        }
        pipeline.tmrArrival();
        ASSERT_TRUE(allBatches() == text) << round;
    }
}
