// What one arrival is: the rule case by case, and against a second writing of it.
#include "platform/ArrivalCutter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

const std::string Prompt = "fics% ";
constexpr std::int64_t Ms30 = 30;

// A cutter with a hand-driven time.
struct ArrivalCutterTest : testing::Test {
    ArrivalCutter cutter;
    std::int64_t now = 1000;
    std::string prompt = Prompt;

    void append(std::string_view bytes) { cutter.append(bytes, now); }
    std::string take() { return cutter.take(prompt, now); }
    std::string arrivals() { // all that can be had now, each followed by "|"
        std::string all;
        for (std::string arrival = take(); !arrival.empty(); arrival = take()) all += arrival + "|";
        return all;
    }
    std::string arrivalsOf(std::string_view bytes) {
        append(bytes);
        return arrivals();
    }
    std::string arrivalsAfter(std::int64_t ms, std::string_view bytes = {}) {
        now += ms;
        return arrivalsOf(bytes);
    }
};

std::string lines(std::size_t count, std::size_t length, std::string_view end = "\n\r") {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += std::string(length - end.size(), 'x').append(end);
    return text;
}

} // namespace

TEST_F(ArrivalCutterTest, NothingWaitingGivesNothing) {
    EXPECT_EQ(take(), "");
    append("");
    EXPECT_EQ(take(), "");
    EXPECT_FALSE(cutter.dueInMs(now).has_value());
    EXPECT_EQ(cutter.waiting(), 0U);
}

// What rests

TEST_F(ArrivalCutterTest, WhatEndsInTheLearntPromptGoesAtOnceAndWhole) {
    EXPECT_EQ(arrivalsOf("told Anders\n\rfics% "), "told Anders\n\rfics% |");
    EXPECT_EQ(arrivalsOf("fics% "), "fics% |");
    EXPECT_EQ(arrivalsOf("fics% fics% "), "fics% fics% |");
}

TEST_F(ArrivalCutterTest, APromptInTheMiddleOfALineDoesNotRest) {
    EXPECT_EQ(arrivalsOf("read it to.fics% "), "");
    EXPECT_EQ(arrivalsAfter(Ms30), "read it to.fics% |") << "it waits like any other text";
}

TEST_F(ArrivalCutterTest, ALineThatTellsOfThePromptComesWholeHoweverSmallItsPackets) {
    const std::string answer = "Lang=English   Prompt: fics% \n\r\n\rFormula: none\n\rfics% ";
    for (const char c : answer.substr(0, answer.size() - 1)) EXPECT_EQ(arrivalsAfter(1, {&c, 1}), "") << c;
    EXPECT_EQ(arrivalsOf(" "), answer + "|");
}

TEST_F(ArrivalCutterTest, PromptsWithinDoNotCutIt) {
    const std::string packet = "\n\rone\n\rfics% \n\rtwo\n\rfics% three\n\rfics% ";
    EXPECT_EQ(arrivalsOf(packet), packet + "|");
}

TEST_F(ArrivalCutterTest, LogOnQuestionsRestWhereverTheyStandInTheLastLine) {
    for (const std::string text :
         {"\n\rlogin: ", "password:", "fics% \n\rlast login: Monday", "a\rpassword: b", "a\nlogin:"}) {
        EXPECT_EQ(arrivalsOf(text), text + "|");
    }
}

TEST_F(ArrivalCutterTest, ALogOnQuestionInAnEarlierLineDoesNotRest) {
    EXPECT_EQ(arrivalsOf("login: \n\rpassword\n\r"), "");
    EXPECT_EQ(arrivalsAfter(Ms30), "login: \n\rpassword\n\r|");
}

TEST_F(ArrivalCutterTest, WholeLinesAloneDoNotRest) {
    EXPECT_EQ(arrivalsOf("one\n\rtwo\n\r"), "");
    EXPECT_EQ(cutter.dueInMs(now), 30);
}

TEST_F(ArrivalCutterTest, BeforeAPromptIsLearntNothingButTheLogOnQuestionsRests) {
    prompt.clear();
    EXPECT_EQ(arrivalsOf("\n\r<12> rnbq\n\rfics% "), "");
    EXPECT_EQ(arrivalsAfter(29), "");
    EXPECT_EQ(arrivalsAfter(1), "\n\r<12> rnbq\n\rfics% |") << "one packet, one arrival";
}

TEST_F(ArrivalCutterTest, AMessageInManyPacketsIsOneArrivalAtItsPrompt) {
    const std::string message = "\n\rBob tells you: hi\n\rfics% ";
    for (const char c : message.substr(0, message.size() - 1)) EXPECT_EQ(arrivalsAfter(1, {&c, 1}), "");
    EXPECT_EQ(arrivalsOf(" "), message + "|");
}

TEST_F(ArrivalCutterTest, TheRestIsLookedForInAllThatWaits) {
    EXPECT_EQ(arrivalsOf("a\n\rfi"), "");
    EXPECT_EQ(arrivalsOf("cs% "), "a\n\rfics% |");
    EXPECT_EQ(arrivalsOf("pass"), "");
    EXPECT_EQ(arrivalsOf("word:"), "password:|");
}

// Silence

TEST_F(ArrivalCutterTest, WhatWaitsGoesWhole30MsAfterItsLastByte) {
    append("one\n\rfics% tw");
    EXPECT_EQ(arrivalsAfter(20, "o"), "");
    EXPECT_EQ(cutter.dueInMs(now), 10) << "then 30 ms are over since the first byte";
    EXPECT_EQ(arrivalsAfter(9), "");
    EXPECT_EQ(arrivalsAfter(1), "one\n\rfics% |");
    EXPECT_EQ(cutter.dueInMs(now), 20);
    EXPECT_EQ(arrivalsAfter(19), "");
    EXPECT_EQ(arrivalsAfter(1), "two|");
    EXPECT_FALSE(cutter.dueInMs(now).has_value());
}

TEST_F(ArrivalCutterTest, SilenceGivesAHalfPairAndAnUnfinishedLineToo) {
    append("one\n");
    EXPECT_EQ(arrivalsAfter(Ms30), "one\n|");
    append("\rtwo");
    EXPECT_EQ(arrivalsAfter(Ms30), "\rtwo|");
}

TEST_F(ArrivalCutterTest, APacketWithoutBytesIsNoneAndWhatHasWaitedIsDue) {
    append("one");
    now += 5;
    append("");
    now += 25;
    EXPECT_EQ(cutter.dueInMs(now), 0);
    now += 25;
    EXPECT_EQ(cutter.dueInMs(now), 0);
    EXPECT_EQ(take(), "one");
}

TEST_F(ArrivalCutterTest, WhatComesAfterAnArrivalHasItsWholeTime) {
    EXPECT_EQ(arrivalsOf("login:"), "login:|");
    EXPECT_EQ(arrivalsAfter(20, "two"), "");
    EXPECT_EQ(cutter.dueInMs(now), 30);
}

TEST_F(ArrivalCutterTest, WhatComesAfterALongSilenceHasItsTime) {
    append("one fics% ");
    take();
    EXPECT_EQ(arrivalsAfter(100000, "two\n\r"), "");
    EXPECT_EQ(cutter.dueInMs(now), 30);
}

// No rest and no silence

TEST_F(ArrivalCutterTest, WhileBytesKeepComingWholeLinesGoAheadAfter30Ms) {
    EXPECT_EQ(arrivalsOf("one\n\r"), "");
    EXPECT_EQ(arrivalsAfter(15, "two\n\rth"), "");
    EXPECT_EQ(arrivalsAfter(14, "r"), "");
    EXPECT_EQ(arrivalsAfter(1), "one\n\r|") << "the other line has not waited so long";
    EXPECT_EQ(arrivalsAfter(14, "ee\n\rfour\n\rfi"), "");
    EXPECT_EQ(arrivalsAfter(1), "two\n\r|");
    EXPECT_EQ(arrivalsAfter(28), "");
    EXPECT_EQ(arrivalsAfter(0, "ve"), "");
    EXPECT_EQ(arrivalsAfter(1), "three\n\rfour\n\r|");
}

TEST_F(ArrivalCutterTest, WhileBytesKeepComingTheCutIsBehindTheLastPromptAtALinesFront) {
    append("fics% one\n\rfics% two\n\rmy fics% 3");
    EXPECT_EQ(arrivalsAfter(20, "\n\r"), "");
    now += 10;
    EXPECT_EQ(take(), "fics% one\n\rfics% ") << "the prompt in the line does not count";
    EXPECT_EQ(take(), "two\n\r") << "without one, up to the last whole line";
    EXPECT_EQ(take(), "");
    EXPECT_EQ(arrivalsAfter(20), "my fics% 3\n\r|") << "30 ms after the last byte";
}

TEST_F(ArrivalCutterTest, APromptMayBeOneCharacter) {
    prompt = ">";
    append(">tw");
    EXPECT_EQ(arrivalsAfter(20, "o"), "");
    EXPECT_EQ(arrivalsAfter(10), ">|");
}

TEST_F(ArrivalCutterTest, APromptAtTheFrontOfWhatWaitsCounts) {
    append("fics% tw");
    EXPECT_EQ(arrivalsAfter(20, "o\n\r"), "");
    EXPECT_EQ(arrivalsAfter(10), "fics% |");
}

TEST_F(ArrivalCutterTest, AnUnfinishedLineAloneWaitsAsLongAsItGrows) {
    for (int i = 0; i < 100; ++i) EXPECT_EQ(arrivalsAfter(10, "x"), "");
    EXPECT_EQ(arrivalsAfter(10, "\n\r"), "");
    EXPECT_EQ(arrivalsAfter(29, "y"), "");
    EXPECT_EQ(arrivalsAfter(1), std::string(100, 'x') + "\n\r|");
}

TEST_F(ArrivalCutterTest, APairIsNotCutWhileBytesKeepComing) {
    append("one\n\rtwo\n");
    EXPECT_EQ(arrivalsAfter(20, "\rthree"), "");
    EXPECT_EQ(arrivalsAfter(10), "one\n\r|") << "the CR has not waited so long";
    EXPECT_EQ(arrivalsAfter(19, "x"), "");
    EXPECT_EQ(arrivalsAfter(1), "two\n\r|");
}

TEST_F(ArrivalCutterTest, SingleLineEndsAreLineEnds) {
    append("one\ntwo\n");
    EXPECT_EQ(arrivalsAfter(20, "three\r\r"), "");
    EXPECT_EQ(arrivalsAfter(10), "one\ntwo\n|");
    EXPECT_EQ(arrivalsAfter(19, "\r"), "");
    EXPECT_EQ(arrivalsAfter(1), "three\r\r|");
}

TEST_F(ArrivalCutterTest, EmptyLinesAreLines) {
    append("\n\r\n\rx");
    EXPECT_EQ(arrivalsAfter(20, "y"), "");
    EXPECT_EQ(arrivalsAfter(10), "\n\r\n\r|");
}

TEST_F(ArrivalCutterTest, TextThatRestsInTimeIsNotCut) {
    append("one\n\rtwo\n\r");
    EXPECT_EQ(arrivalsAfter(29, "fics% "), "one\n\rtwo\n\rfics% |");
}

// The limit

TEST_F(ArrivalCutterTest, Exactly8192BytesAreNotOverTheLimit) {
    append(lines(64, 128));
    EXPECT_EQ(take(), "");
    EXPECT_EQ(arrivalsAfter(Ms30).size(), 8193U);
}

TEST_F(ArrivalCutterTest, OverTheLimitTheLastWholeLineWithinItIsCutAtOnce) {
    EXPECT_EQ(arrivalsOf(lines(100, 100)), lines(81, 100) + "|");
    EXPECT_EQ(arrivalsAfter(Ms30), lines(19, 100) + "|");
}

TEST_F(ArrivalCutterTest, OverTheLimitTheLastPromptAtALinesFrontWithinItGoesFirst) {
    const std::string first = lines(40, 100) + "fics% ";
    const std::string second = "\n\r" + lines(60, 100) + "fics% ";
    EXPECT_EQ(arrivalsOf(first + second), first + "|" + second + "|");
}

TEST_F(ArrivalCutterTest, OverTheLimitAnEmptyLineAtTheFrontGoesAhead) {
    append("\n" + std::string(9000, 'x'));
    EXPECT_EQ(take(), "\n");
    EXPECT_EQ(take().size(), 8192U);
}

TEST_F(ArrivalCutterTest, ALineThatEndsRightAtTheLimitIsWithinIt) {
    EXPECT_EQ(arrivalsOf(lines(64, 128, "\n") + "x"), lines(64, 128, "\n") + "|");
}

TEST_F(ArrivalCutterTest, APairIsNotCutAtTheLimit) {
    EXPECT_EQ(arrivalsOf(lines(1, 91) + std::string(8100, 'x') + "\n\rfics% "),
              lines(1, 91) + "|" + std::string(8100, 'x') + "\n\rfics% |");
    EXPECT_EQ(arrivalsOf(std::string(8191, 'x') + "\n\rfics% "), std::string(8191, 'x') + "|\n\rfics% |");
}

TEST_F(ArrivalCutterTest, ALineWithoutEndGoesInPiecesOfTheLimit) {
    append(std::string(20000, 'x'));
    EXPECT_EQ(take().size(), 8192U);
    EXPECT_EQ(take().size(), 8192U);
    EXPECT_EQ(take(), "") << "the last piece waits for its rest";
    EXPECT_EQ(arrivalsAfter(Ms30).size(), 20000U - 2 * 8192U + 1);
}

TEST_F(ArrivalCutterTest, NothingButLineEndsBeyondTheLimitGoesOn) {
    append(std::string(20000, '\n'));
    std::string all = take();
    EXPECT_EQ(all.size(), 8192U);
    all += take();
    EXPECT_EQ(all.size(), 16384U);
    EXPECT_EQ(take(), "");
    now += Ms30;
    EXPECT_EQ(take().size(), 20000U - 16384U);
}

// The rest

TEST_F(ArrivalCutterTest, AfterTheEndNothingWaits) {
    append("half a li");
    EXPECT_EQ(take(), "");
    cutter.finish();
    EXPECT_EQ(take(), "half a li");
}

TEST_F(ArrivalCutterTest, NulBytesPassUnchanged) {
    const std::string text("a\0b\0\nfics% ", 11);
    append(text);
    EXPECT_EQ(take(), text);
}

TEST_F(ArrivalCutterTest, OneByteASecondArrivesByteForByte) {
    std::string all;
    const std::string text = "ab\n\rfics% \n\r<12> x\n\r";
    for (const char c : text) {
        append({&c, 1});
        all += take();
        now += Ms30;
        all += take();
        now += 970;
        EXPECT_EQ(cutter.waiting(), 0U);
    }
    EXPECT_EQ(all, text);
}

// A second writing of the rule, from its front to its end: each byte keeps when it came.

namespace {

struct Model {
    struct Byte {
        char c;
        std::int64_t cameMs;
    };
    std::vector<Byte> waits;
    bool finished = false;

    std::string text() const {
        std::string all;
        for (const Byte& byte : waits) all += byte.c;
        return all;
    }
    // Where each line of what waits ends, in order; an unfinished or unsure one is not among them.
    std::vector<std::size_t> lineEnds() const {
        std::vector<std::size_t> ends;
        for (std::size_t at = 0; at < waits.size(); ++at) {
            const char c = waits[at].c;
            if (c != '\r' && c != '\n') continue;
            if (at + 1 == waits.size()) break;
            const char partner = c == '\r' ? '\n' : '\r';
            if (waits[at + 1].c == partner) ++at;
            ends.push_back(at + 1);
        }
        return ends;
    }
    std::size_t cutWithin(std::size_t limit, const std::string& prompt) const {
        const std::string all = text();
        std::size_t behindPrompt = 0;
        std::size_t behindLine = 0;
        std::vector<std::size_t> fronts{0};
        for (const std::size_t end : lineEnds()) {
            fronts.push_back(end);
            if (end <= limit) behindLine = end;
        }
        for (const std::size_t front : fronts) {
            const bool stands = !prompt.empty() && all.compare(front, prompt.size(), prompt) == 0;
            if (stands && front + prompt.size() <= limit) behindPrompt = front + prompt.size();
        }
        return behindPrompt != 0 ? behindPrompt : behindLine;
    }
    bool rests(const std::string& prompt) const {
        const std::string all = text();
        std::size_t front = all.size(); // of the prompts at the end
        const auto isPrompt = [&](std::size_t at) { return all.compare(at, prompt.size(), prompt) == 0; };
        while (!prompt.empty() && front >= prompt.size() && isPrompt(front - prompt.size())) front -= prompt.size();
        const bool atFront = front == 0 || all[front - 1] == '\r' || all[front - 1] == '\n';
        if (front < all.size() && atFront) return true;
        const std::string lastLine = all.substr(all.find_last_of("\r\n") + 1);
        return lastLine.find("login:") != all.npos || lastLine.find("password:") != all.npos;
    }
    std::size_t next(const std::string& prompt, std::int64_t nowMs) const {
        if (waits.empty()) return 0;
        if (waits.size() > 8192) {
            const std::size_t cut = cutWithin(8192, prompt);
            if (cut != 0) return cut;
            const bool pair = isBreak(8191) && isBreak(8192) && waits[8191].c != waits[8192].c;
            return pair ? 8191 : 8192; // the first line is too long; its end is not cut in two
        }
        if (finished || rests(prompt) || nowMs - waits.back().cameMs >= 30) return waits.size();
        return cutWithin(waitedLong(nowMs), prompt);
    }
    std::size_t waitedLong(std::int64_t nowMs) const {
        return static_cast<std::size_t>(
            std::ranges::count_if(waits, [&](const Byte& byte) { return nowMs - byte.cameMs >= 30; }));
    }
    bool isBreak(std::size_t at) const { return waits[at].c == '\r' || waits[at].c == '\n'; }

    void append(std::string_view bytes, std::int64_t nowMs) {
        for (const char c : bytes) waits.push_back({c, nowMs});
    }
    std::string take(const std::string& prompt, std::int64_t nowMs) {
        const std::size_t count = next(prompt, nowMs);
        if (count == 0) return {};
        const std::string given = text().substr(0, count);
        waits.erase(waits.begin(), waits.begin() + static_cast<std::ptrdiff_t>(count));
        return given;
    }
};

// A stream of random parts that comes in random packets; a loop asks for arrivals as the socket does: at each packet,
// and when it is told to.
struct RandomStream : ArrivalCutterTest {
    std::mt19937 random{20211122};
    Model model;
    int events = 0;

    std::size_t dice(std::size_t sides) { return random() % sides; }
    std::string part() {
        static const std::vector<std::string> parts{"\n\r",
                                                    "\n\r",
                                                    "\n\rfics% ",
                                                    "\n\rfics% ",
                                                    "\r\n",
                                                    "\n",
                                                    "\r",
                                                    "fics% ",
                                                    "fics%",
                                                    " ",
                                                    "login:",
                                                    "pass",
                                                    "word:",
                                                    "x",
                                                    "a line",
                                                    std::string(1, '\0'),
                                                    "\n\r<12> rnbqkbnr"};
        return parts[dice(parts.size())];
    }
    // More than one arrival can hold.
    std::string longPart() {
        return dice(2) == 0 ? std::string(dice(9000), 'x')
                            : lines(dice(120), 2 + dice(100), dice(2) == 0 ? "\n\r" : "\n");
    }
    void expectSameArrivals() {
        for (;;) {
            const std::string given = take();
            ++events;
            const std::string expected = model.take(prompt, now);
            ASSERT_TRUE(given == expected)
                << "event " << events << ": " << given.size() << " bytes for " << expected.size();
            ASSERT_LE(given.size(), 8192U);
            if (given.empty()) return;
        }
    }
    // Lets the time go by, and asks whenever the cutter wants to be asked; by then nothing was to be had.
    void pass(std::int64_t ms) {
        auto due = dueAt();
        for (const std::int64_t end = now + ms; now < end;) {
            ++now;
            if (now < due) {
                ASSERT_EQ(model.next(prompt, now), 0U) << "it wants to be asked too late, event " << events;
            } else {
                ASSERT_NO_FATAL_FAILURE(expectSameArrivals());
                due = dueAt();
            }
        }
    }
    std::int64_t dueAt() const { return now + cutter.dueInMs(now).value_or(1000000); }
};

} // namespace

TEST_F(RandomStream, IsCutAsASecondWritingOfTheRuleCutsIt) {
    const char* const rounds = std::getenv("BRIGHTRANK_STREAM_ROUNDS");
    const int all = rounds ? std::atoi(rounds) : 150;
    for (int round = 0; round < all; ++round) {
        cutter = {};
        model = {};
        prompt = dice(4) == 0 ? "" : Prompt;
        const std::size_t longestPause = std::vector<std::size_t>{1, 4, 12, 45}[dice(4)];
        const std::size_t longestPacket = std::vector<std::size_t>{1, 3, 30, 3000}[dice(4)];
        std::string text;
        while (text.size() < 600) text += part();
        while (longestPacket == 3000 && text.size() < 30000) text += dice(9) == 0 ? longPart() : part();
        for (std::size_t at = 0; at < text.size();) {
            const std::string packet = text.substr(at, 1 + dice(longestPacket));
            append(packet);
            model.append(packet, now);
            at += packet.size();
            ASSERT_NO_FATAL_FAILURE(expectSameArrivals()) << "round " << round;
            ASSERT_NO_FATAL_FAILURE(pass(static_cast<std::int64_t>(dice(longestPause)))) << "round " << round;
        }
        cutter.finish();
        model.finished = true;
        ASSERT_NO_FATAL_FAILURE(expectSameArrivals());
        ASSERT_EQ(cutter.waiting(), 0U);
    }
    RecordProperty("events", events);
}

namespace {

struct Waited {
    std::int64_t longestMs = 0;
    int messages = 0;
    std::string text;
};

// How long messages wait between their last byte and their arrival when they follow each other without a pause,
// `packet` bytes each `everyMs`.
Waited waitOfMessages(std::size_t packet, std::int64_t everyMs) {
    std::string stream;
    while (stream.size() < 40000) stream += "\n\rmessage " + std::to_string(stream.size()) + "\n\rfics% ";
    ArrivalCutter cutter;
    std::vector<std::int64_t> cameMs;
    Waited waited;
    std::int64_t now = 0;
    const auto ask = [&] {
        for (auto given = cutter.take(Prompt, now); !given.empty(); given = cutter.take(Prompt, now)) {
            const std::size_t from = waited.text.size();
            waited.text += given;
            for (auto at = waited.text.find(Prompt, from); at != given.npos; at = waited.text.find(Prompt, at + 1)) {
                waited.longestMs = std::max(waited.longestMs, now - cameMs[at + Prompt.size() - 1]);
                ++waited.messages;
            }
        }
    };
    for (std::size_t at = 0; at < stream.size(); at += packet, now += everyMs) {
        const auto bytes = std::string_view(stream).substr(at, packet);
        cutter.append(bytes, now);
        cameMs.insert(cameMs.end(), bytes.size(), now);
        ask();
        const std::int64_t next = now + everyMs;
        for (auto due = cutter.dueInMs(now); due && now + *due < next; due = cutter.dueInMs(now)) {
            now += *due;
            ask();
        }
        now = next - everyMs;
    }
    now += Ms30;
    ask();
    EXPECT_TRUE(waited.text == stream);
    return waited;
}

} // namespace

TEST_F(ArrivalCutterTest, UnderAnEndlessStreamNoMessageWaitsLongerThan30Ms) {
    for (const std::size_t packet : {1U, 7U, 26U, 100U, 1460U}) {
        for (const std::int64_t everyMs : {1, 2, 10, 29}) {
            const Waited waited = waitOfMessages(packet, everyMs);
            EXPECT_LE(waited.longestMs, 30) << packet << " bytes each " << everyMs << " ms";
            EXPECT_GT(waited.messages, 1000);
        }
    }
}

TEST_F(ArrivalCutterTest, ATenMegabyteLineComesThroughWhole) {
    std::string text;
    for (int i = 0; text.size() < 10'000'000; ++i) text += std::to_string(i);
    append(text);
    std::string all;
    for (std::string arrival = take(); !arrival.empty(); arrival = take()) all += arrival;
    now += Ms30;
    all += take();
    EXPECT_TRUE(all == text);
}
