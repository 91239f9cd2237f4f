// Recorded sessions, each message in packets of every size with every pause: what packets must not change.
#include "session/LinesByBatch.h"
#include "session/SlowWire.h"

#include "common/RecordedText.h"
#include "common/Text.h"
#include "session/TellLine.h"

#include <array>
#include <cctype>
#include <numeric>
#include <set>

namespace {

constexpr std::int64_t BetweenMessagesMs = 50;
constexpr std::array<std::size_t, 4> Sizes{1, 7, 100, OneLine};
constexpr std::array<std::int64_t, 3> Pauses{0, 2, 10};
constexpr std::size_t Whole = 1'000'000; // a size of packets: one

// Each game has a board: its own number. All effects are events, in their order.
struct Replay : SlowWire {
    void TestBody() override {}

    Replay() {
        auto& hooks = classifier.hooks;
        hooks.zFindBoard = [](std::int16_t game) { return static_cast<int>(game); };
        hooks.zStyle12Line = [this, parse = hooks.zStyle12Line](const std::string& line) {
            parse(line);
            event("record " + line);
            return true;
        };
        hooks.insert = [this](const std::string& text) {
            printed.push_back({text, insertionColor});
            console += text;
            if (contains(text, "<12> ")) ++rawRecords;
        };
        modChess.gLastCmd = "Anders";
        modChess.gPrompt.clear();
    }

    // Up to the moment from which packets change nothing: the prompt is learnt, and the arrivals that pass at once are
    // over. Gives how many messages that took.
    std::size_t logOn(const std::vector<std::string_view>& messages) {
        std::size_t count = 0;
        while (count < messages.size() && (modChess.gPrompt.empty() || pipeline.PassThroughCount > 0)) {
            const auto password = messages[count].find("password: ");
            if (password != std::string_view::npos) {
                packet(messages[count].substr(0, password + 10));
                pass(BetweenMessagesMs);
                packet(messages[count].substr(password + 10));
            } else {
                packet(messages[count]);
            }
            ++count;
            pass(modChess.gPrompt.empty() ? 1100 : BetweenMessagesMs);
        }
        loggedOn = batches.size();
        return count;
    }

    void play(const std::string& stream, std::size_t size, std::int64_t pauseMs, std::int64_t betweenMs) {
        const auto messages = messagesOf(stream);
        for (std::size_t place = logOn(messages); place < messages.size(); ++place) {
            message(messages[place], size, pauseMs);
            pass(betweenMs);
        }
        silence();
    }

    // All that follows the log-on as one text without a pause for its messages, in packets that end anywhere.
    void playOn(const std::string& stream, std::size_t size, std::int64_t pauseMs) {
        const auto messages = messagesOf(stream);
        std::string rest;
        for (std::size_t place = logOn(messages); place < messages.size(); ++place) rest += messages[place];
        message(rest, size, pauseMs);
        silence();
    }

    // The effects of one kind, such as "position ", in order, without a prompt in their line.
    std::vector<std::string> only(const char* front) const {
        std::vector<std::string> some;
        for (std::string each : events) {
            if (!each.starts_with(front)) continue;
            if (const auto prompt = each.find("fics% "); prompt != each.npos) each.erase(prompt, 6);
            some.push_back(each);
        }
        return some;
    }

    std::string console;
    int rawRecords = 0;
    std::size_t loggedOn = 0; // batches of the log-on
};

std::string withoutTelnet(const std::string& stream) {
    TelnetFilter filter;
    return filter.filter(stream) + filter.finish();
}

struct MessagesInPackets : testing::TestWithParam<const char*> {
    std::string stream = recordedText(GetParam() + std::string(".raw"));
};

std::string nameOf(const testing::TestParamInfo<const char*>& info) {
    std::string name = info.param;
    std::ranges::replace_if(
        name, [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

} // namespace

TEST_P(MessagesInPackets, WithPausesBetweenThemChangeNothing) {
    Replay whole;
    whole.play(stream, Whole, 0, BetweenMessagesMs);
    EXPECT_GT(whole.batches.size(), whole.loggedOn);
    EXPECT_EQ(whole.rawRecords, 0);
    for (const std::size_t size : Sizes) {
        for (const std::int64_t pauseMs : Pauses) {
            SCOPED_TRACE(std::to_string(size) + " bytes a packet, " + std::to_string(pauseMs) + " ms between them");
            Replay cut;
            cut.play(stream, size, pauseMs, BetweenMessagesMs);
            EXPECT_TRUE(cut.console == whole.console);
            EXPECT_EQ(cut.printed, whole.printed);
            EXPECT_EQ(cut.events, whole.events);
            EXPECT_EQ(cut.pipeline.PendingText, "");
        }
    }
}

TEST_P(MessagesInPackets, WithoutPausesLoseAndDoubleNothing) {
    Replay whole;
    whole.play(stream, Whole, 0, BetweenMessagesMs);
    const auto lines = shownLines(whole.console);
    const LinesByBatch byBatch(stream);
    for (const std::size_t size :
         {std::size_t{1}, std::size_t{7}, std::size_t{100}, OneLine, std::size_t{1460}, Whole}) {
        for (const std::int64_t pauseMs : Pauses) {
            SCOPED_TRACE(std::to_string(size) + " bytes a packet, " + std::to_string(pauseMs) + " ms between them");
            Replay cut;
            cut.playOn(stream, size, pauseMs);
            EXPECT_EQ(cut.rawRecords, 0);
            EXPECT_TRUE(std::accumulate(cut.batches.begin(), cut.batches.end(), std::string()) ==
                        withoutTelnet(stream));
            for (const char* kind : {"record ", "position ", "bughouse ", "end ", "send ", "login "}) {
                EXPECT_EQ(cut.only(kind), whole.only(kind));
            }
            const auto shown = shownLines(cut.console);
            for (const auto& line : missingIn(shown, lines)) EXPECT_TRUE(byBatch.contain(line)) << "lost: " << line;
            for (const auto& line : missingIn(lines, shown)) EXPECT_TRUE(byBatch.contain(line)) << "more: " << line;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Recorded, MessagesInPackets,
                         testing::Values("server-a/01_anders_registered", "server-a/02_berta_registered",
                                         "server-a/03_guest_observer", "server-a/10_login_wrong_password",
                                         "server-a/12_login_unregistered_name", "server-a/13_login_odd_names",
                                         "server-a/14_block_mode_and_styles", "server-a/20_bughouse_GuestABCD",
                                         "server-a/21_bughouse_GuestEFGH", "server-a/24_bughouse_observer",
                                         "server-a/45_observer_two_games", "server-b/01_anders_registered",
                                         "server-b/02_berta_registered", "server-b/03_long_game_smoves",
                                         "server-b/10_examine_journal", "server-b/20_bughouse_GuestEFGH"),
                         nameOf);
