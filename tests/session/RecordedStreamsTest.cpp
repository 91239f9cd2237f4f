// Recorded sessions, cut into packets of several sizes, through the pipeline and the classifier.
#include "session/SlowWire.h"

#include "common/RecordedText.h"
#include "common/Text.h"

#include <cctype>

namespace {

constexpr std::size_t Everything = 1'000'000; // a size of packets

struct Recording {
    const char* name;
    int records;   // "<12> " lines
    int holdings;  // "<b1>" lines
    int ends;      // lines that tell the end of a game
    int starts;    // session starts and rulers of thirty underscores in the banner
    int shouts;    // one of them stands right behind a tell and counts in a batch of its own only
    bool password; // a registered player's log-on
    bool controls; // holds lines that begin with a control character, which are dropped
};

void PrintTo(const Recording& recording, std::ostream* out) { *out << recording.name; }

struct RecordedStreams : SlowWire, testing::WithParamInterface<Recording> {
    std::string stream = recordedText(GetParam().name + std::string(".raw"));

    // Every game has a board: its own number.
    RecordedStreams() {
        classifier.hooks.zFindBoard = [](std::int16_t game) { return static_cast<int>(game); };
        classifier.hooks.zStyle12Line = [parse = classifier.hooks.zStyle12Line](const std::string& line) {
            parse(line);
            return true;
        };
    }

    void play(std::size_t size) {
        ASSERT_FALSE(stream.empty());
        modChess.gLastCmd = "Anders";
        std::string_view rest = stream;
        for (const std::string_view question : {"login: ", "password: "}) {
            const auto place = rest.find(question);
            if (size == Everything || place == rest.npos) continue;
            message(rest.substr(0, place + question.size()), size, 0);
            pass(100); // the server waits for its client
            rest.remove_prefix(place + question.size());
        }
        message(rest, size, 0);
        silence();
    }

    // The effects of the whole recording, wherever its batches were cut.
    void expectEffects() {
        EXPECT_EQ(times("position "), GetParam().records);
        EXPECT_EQ(times("bughouse "), GetParam().holdings);
        EXPECT_EQ(times("end "), GetParam().ends);
        EXPECT_EQ(times("login 1"), 1);
        EXPECT_EQ(times("login 2"), GetParam().password ? 1 : 0);
        EXPECT_EQ(times("send Set Style 12"), GetParam().starts);
        EXPECT_EQ(pipeline.PendingText, "");
        EXPECT_FALSE(pipeline.ParseBusy);
    }

    // The effect of a log-on whose questions come one by one.
    void expectHandle() { EXPECT_EQ(modChess.MyHandle, GetParam().password ? "Anders" : ""); }

    int rawRecordsPrinted() const {
        return static_cast<int>(
            std::ranges::count_if(printed, [](const Printed& line) { return contains(line.text, "<12> "); }));
    }

    static std::string filtered(const std::string& stream) { return TelnetFilter().filter(stream); }
    static std::string withoutControlLines(const std::string& text) {
        std::string result;
        for (std::size_t place = 0; place < text.size();) {
            const auto end = std::min(text.find("\n\r", place), text.size());
            if (end > place && static_cast<unsigned char>(text[place]) >= 32) result += text.substr(place, end - place);
            place = end + 2;
        }
        return result;
    }

    // `text` without prompts, control characters and the front of continuation lines.
    static std::string essence(const std::string& text) {
        std::string result;
        for (const char c : text) {
            if ((c < 0 || c > ' ') && c != '\\') result += c;
        }
        for (auto prompt = result.find("fics%"); prompt != result.npos; prompt = result.find("fics%", prompt)) {
            result.erase(prompt, 5);
        }
        return result;
    }
};

} // namespace

TEST_P(RecordedStreams, ByteByByteEveryRecordReachesItsBoardAndNoneTheConsole) {
    play(1);
    expectEffects();
    expectHandle();
    EXPECT_EQ(std::ranges::count(printed, ShoutColor, &Printed::color), GetParam().shouts);
    EXPECT_EQ(rawRecordsPrinted(), 0);
}

TEST_P(RecordedStreams, LineByLineEveryRecordReachesItsBoardAndNoneTheConsole) {
    play(OneLine);
    expectEffects();
    expectHandle();
    EXPECT_EQ(rawRecordsPrinted(), 0);
}

TEST_P(RecordedStreams, AsOnePieceEveryRecordReachesItsBoardAndNoneTheConsole) {
    play(Everything);
    expectEffects();
    EXPECT_EQ(rawRecordsPrinted(), 0);
    // "login:" is looked for first, so "password:" in the same arrival teaches nothing.
    EXPECT_EQ(modChess.MyHandle, "");
}

TEST_P(RecordedStreams, InPacketsOfSevenEveryRecordReachesItsBoardOnceAndNoneTheConsole) {
    play(7);
    expectEffects();
    expectHandle();
    EXPECT_EQ(rawRecordsPrinted(), 0);
}

TEST_P(RecordedStreams, InVerboseModeNoTextIsLost) {
    lines.verbose = true;
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, OneLine, Everything}) {
        // A line that is cut into packets may get a control character in front, and is dropped from there on.
        if (GetParam().controls && size != Everything) continue;
        printed.clear();
        pipeline.PassThroughCount = 0;
        play(size);
        EXPECT_TRUE(essence(console()) == essence(withoutControlLines(filtered(stream)))) << "packets of " << size;
    }
}

INSTANTIATE_TEST_SUITE_P(All, RecordedStreams,
                         testing::Values(Recording{"server-a/03_guest_observer", 24, 11, 4, 1, 1, false, false},
                                         Recording{"server-a/24_bughouse_observer", 20, 27, 4, 1, 0, false, false},
                                         Recording{"server-a/45_observer_two_games", 7, 0, 4, 1, 0, false, false},
                                         Recording{"server-a/14_block_mode_and_styles", 1, 0, 1, 1, 0, true, true},
                                         Recording{"server-a/01_anders_registered", 50, 11, 9, 1, 1, true, true},
                                         Recording{"server-b/10_examine_journal", 40, 8, 7, 3, 0, true, true},
                                         Recording{"server-b/03_long_game_smoves", 419, 0, 1, 3, 0, true, true}),
                         [](const auto& test) {
                             std::string name = test.param.name;
                             for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             return name;
                         });
