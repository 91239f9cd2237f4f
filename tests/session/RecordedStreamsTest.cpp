// Recorded sessions, cut into packets of several sizes, through the pipeline and the classifier.
#include "SessionRig.h"

#include "TestPaths.h"
#include "common/Text.h"

#include <cctype>
#include <fstream>
#include <sstream>

namespace {

constexpr int WholeLines = 0;
constexpr int Everything = -1;

struct Recording {
    const char* name;
    int records;   // "<12> " lines
    int holdings;  // "<b1>" lines
    int ends;      // lines that tell the end of a game
    int starts;    // session starts and rulers of thirty underscores in the banner
    int shouts;    // but for one that stands right behind a tell when all is one batch
    bool password; // a registered player's log-on
    bool controls; // holds lines that begin with a control character, which are dropped
};

void PrintTo(const Recording& recording, std::ostream* out) { *out << recording.name; }

struct RecordedStreams : SessionRig, testing::WithParamInterface<Recording> {
    std::string stream;

    // Every game has a board: its own number.
    RecordedStreams() {
        classifier.hooks.zFindBoard = [](std::int16_t game) { return static_cast<int>(game); };
        classifier.hooks.zStyle12Line = [parse = classifier.hooks.zStyle12Line](const std::string& line) {
            parse(line);
            return true;
        };
        std::ifstream file(std::string(TEST_DATA "/streams/") + GetParam().name + ".raw", std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        stream = text.str();
    }

    void play(int packet) {
        ASSERT_FALSE(stream.empty());
        modChess.gLastCmd = "Anders";
        for (std::size_t place = 0; place < stream.size();) {
            std::size_t length = stream.size() - place;
            if (packet == WholeLines) length = std::min(stream.find("\n\r", place), stream.size() - 2) + 2 - place;
            if (packet > 0) length = std::min(length, static_cast<std::size_t>(packet));
            arrive(stream.substr(place, length));
            place += length;
        }
        if (!pipeline.PendingText.empty()) pipeline.tmrArrival();
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

    // The effects of a log-on whose prompts come one by one.
    void expectLogOn() {
        EXPECT_EQ(modChess.MyHandle, GetParam().password ? "Anders" : "");
        EXPECT_EQ(std::ranges::count(printed, ShoutColor, &Printed::color), GetParam().shouts);
    }

    int rawRecordsPrinted() const {
        return static_cast<int>(
            std::ranges::count_if(printed, [](const Printed& line) { return contains(line.text, "<12> "); }));
    }

    static std::string withoutControlLines(const std::string& text) {
        std::string result;
        for (std::size_t place = 0; place < text.size();) {
            const auto end = std::min(text.find("\n\r", place), text.size());
            if (end > place && static_cast<unsigned char>(text[place]) >= 32) result += text.substr(place, end - place);
            place = end + 2;
        }
        return result;
    }

    // `text` without prompts, line endings and the front of continuation lines.
    static std::string essence(const std::string& text) {
        std::string result;
        for (const char c : text) {
            if (c != '\r' && c != '\n' && c != ' ' && c != '\\') result += c;
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
    expectLogOn();
    EXPECT_EQ(rawRecordsPrinted(), 0);
}

TEST_P(RecordedStreams, LineByLineEveryRecordReachesItsBoard) {
    play(WholeLines);
    expectEffects();
    expectLogOn();
}

TEST_P(RecordedStreams, AsOnePieceEveryRecordReachesItsBoardAndNoneTheConsole) {
    play(Everything);
    expectEffects();
    EXPECT_EQ(rawRecordsPrinted(), 0);
    // "login:" is looked for first, so "password:" in the same arrival teaches nothing.
    EXPECT_EQ(modChess.MyHandle, "");
}

// A packet that ends behind a prompt may take the front of the next line along, so a record can be cut in two.
TEST_P(RecordedStreams, InPacketsOfSevenNoRecordComesTwice) {
    play(7);
    EXPECT_GT(times("position "), 0);
    EXPECT_LE(times("position "), GetParam().records);
    EXPECT_EQ(pipeline.PendingText, "");
}

TEST_P(RecordedStreams, InVerboseModeNoTextIsLost) {
    lines.verbose = true;
    for (const int packet : {1, 7, WholeLines, Everything}) {
        // A line that is cut into packets may get a control character in front, and is dropped from there on.
        if (GetParam().controls && packet > 0) continue;
        printed.clear();
        pipeline.PassThroughCount = 0;
        play(packet);
        EXPECT_TRUE(essence(console()) == essence(withoutControlLines(stream))) << "packets of " << packet;
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
