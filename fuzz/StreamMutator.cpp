// Changes inputs of fuzz_stream by whole segments: events come and go and change places, and positions of games arrive
// in between, whole or in pieces.
#include "Events.h"
#include "Tape.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using Random = std::minstd_rand;

int below(Random& random, std::size_t limit) { return static_cast<int>(random() % limit); }

template <typename Array>
const auto& oneOf(const Array& choices, Random& random) {
    return choices[random() % choices.size()];
}

// The segments of an input as they are written, with their marks; the first may have none.
std::vector<std::string> segmentsOf(std::string_view input) {
    std::vector<std::string> segments(1);
    for (std::size_t at = 0; at < input.size(); ++at) {
        const bool mark = input[at] == Tape::Mark && at + 1 < input.size();
        const bool begins = mark && input[at + 1] != Tape::Mark;
        if (begins) segments.emplace_back();
        const std::size_t length = begins ? std::min<std::size_t>(3, input.size() - at) : mark ? 2 : 1;
        segments.back() += input.substr(at, length);
        at += length - 1;
    }
    return segments;
}

std::string event(int kind, int argument) { return {Tape::Mark, static_cast<char>(kind), static_cast<char>(argument)}; }

// A position of one of two games, with every relation that lets the user move and some that do not.
std::string record(std::string_view ranks, Random& random) {
    static constexpr std::array<std::string_view, 6> Relations{"1", "1", "-1", "-1", "2", "0"};
    static constexpr std::array<std::string_view, 5> Rows{"1", "2", "3", "4", "200"};
    static constexpr std::array<std::string_view, 4> Moves{"none (0:00) none", "P/e2-e4 (0:03) e4", "o-o (0:01) O-O",
                                                           "P/@@-e5 (0:01) P@e5"};
    std::string line = "\n\r<12> ";
    line.append(ranks).append(below(random, 3) > 0 ? " W" : " B").append(" -1 1 1 1 1 0 ");
    line.append(below(random, 4) == 0 ? "13" : "12").append(" Anders Berta ").append(oneOf(Relations, random));
    line.append(" 5 2 39 39 300 300 ").append(oneOf(Rows, random)).append(" ").append(oneOf(Moves, random));
    return line.append(below(random, 4) == 0 ? " 1" : " 0").append(" 0 0\n\rfics% ");
}

std::string position(Random& random) {
    static constexpr std::array<std::string_view, 7> Ranks{
        "rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR",
        "rnbqkbnr pppppppp -------- -------- ----P--- -------- PPPP-PPP RNBQKBNR",
        "rnbqkbnr pppp-ppp -------- ----p--- ----P--- -------- PPPP-PPP RNBQKBNR",
        "r-bqkbnr pppp-ppp --n----- ----p--- ----P--- -----N-- PPPP-PPP RNBQKB-R",
        "-------k P------- -------- -------- -------- -------- p------- K-------",
        "-------k -------- -------- -------- -------- -------- p------- K-------",
        "r---k--r -------- -------- -pP----- ------Pp -------- -------- R---K--R"};
    return record(oneOf(Ranks, random), random);
}

// A piece is taken up and landed, by squares of the screen that suit one of the positions above.
std::string move(Random& random) {
    static constexpr std::array Pairs{std::pair{12, 28}, std::pair{6, 21},  std::pair{1, 18},  std::pair{52, 36},
                                      std::pair{57, 42}, std::pair{48, 56}, std::pair{8, 0},   std::pair{4, 6},
                                      std::pair{60, 58}, std::pair{35, 42}, std::pair{30, 23}, std::pair{11, 27}};
    const auto& [from, to] = oneOf(Pairs, random);
    const int turned = below(random, 8) == 0 ? 63 : 0;
    return event(Event::Lift, from ^ turned) + event(Event::Land, to ^ turned);
}

// Drag or click style, with and without moves in advance, asked-for promotions and delays.
std::string options(Random& random) {
    static constexpr std::array<int, 7> Options{5, 5, 7, 1, 4, 0x35, 0xB5};
    return event(Event::Options, oneOf(Options, random));
}

// A pawn reaches the end, something comes while its menu is up, and the menu is answered.
std::string promotion(Random& random) {
    static constexpr std::array Between{Event::Nothing, Event::Nothing,  Event::New,    Event::CloseLater,
                                        Event::HangUp,  Event::ExitMove, Event::Invert, Event::Lift};
    static constexpr std::array<std::string_view, 4> Ranks{
        "-------k P------- -------- -------- -------- -------- p------- K-------",
        "-------k P------- -------- -------- -------- -------- -------- K-------",
        "P------k -------- -------- -------- -------- -------- p------- K-------",
        "-------k -------- -------- -------- -------- -------- p------- K-------"};
    const int between = oneOf(Between, random);
    return event(Event::Options, 5) + event(Event::Nothing, 0) + record(Ranks[0], random) +
           event(Event::NoPlayOver, 0) + event(Event::Lift, 48) + event(Event::Land, 56) +
           event(between, below(random, 64)) + (between == Event::Nothing ? record(oneOf(Ranks, random), random) : "") +
           event(Event::PromotionAnswer, below(random, 6));
}

// A wait as long as it matters to arrivals.
std::string wait(Random& random) {
    static constexpr std::array Times{1, 10, 29, 29, 30, 31};
    return event(Event::TimePasses, oneOf(Times, random));
}

// The server's text comes in packets, with waits between.
std::string inPieces(std::string text, Random& random) {
    std::string result = event(Event::Nothing, 0);
    for (int pieces = 1 + below(random, 4); pieces > 0 && !text.empty(); --pieces) {
        const auto cut = static_cast<std::size_t>(below(random, text.size()));
        result += text.substr(0, cut) + wait(random);
        text.erase(0, cut);
    }
    return result + text;
}

// What is said behind the prompt is held until it shows again: a few lines, or about as many as go into a batch.
std::string held(Random& random) {
    static constexpr std::array<std::string_view, 4> Texts{"\n\r", "word", "\n\rheld\n\r", "a\n\rb\n\r"};
    constexpr int Quarter = 249; // times more: 250 lines
    const int times = below(random, 2) == 0 ? 4 : 0;
    std::string result = event(Event::TmrPrompt, 0);
    for (int time = 0; time < times; ++time) result += event(Event::Burst, Quarter) + "\n\r" + wait(random);
    return result + event(Event::Burst, below(random, 8)).append(oneOf(Texts, random)) + wait(random);
}

std::string lineSegment(Random& random) {
    static constexpr std::array Events{Event::TmrPrompt,  Event::TmrArrival,        Event::TmrState,    Event::Connect,
                                       Event::HangUp,     Event::Disconnect,        Event::SocketError, Event::TmrTCP,
                                       Event::TmrClose,   Event::ConnectionOptions, Event::AutoLogon,   Event::Burst,
                                       Event::VerboseMode};
    static constexpr std::array<std::string_view, 9> Texts{
        "",         "fics% ", "\n\rfics% \n\r", "login: ", "password: ", "\xFF\xFB\x01", "\xFF\xFA\x18\x01\xFF",
        "\xFF\xF0", "\xFF"};
    return event(oneOf(Events, random), below(random, 64)).append(oneOf(Texts, random));
}

std::string handSegment(Random& random) {
    static constexpr std::array Hands{
        Event::Lift,         Event::Land,          Event::Walk,       Event::ClickMove,
        Event::LeftPress,    Event::LeftRelease,   Event::RightPress, Event::TmrSlip,
        Event::PointerMoves, Event::PointerLeaves, Event::DropAnswer, Event::PromotionAnswer,
        Event::NewChat,      Event::NameChat,      Event::TypeTell,   Event::TellEnter,
        Event::CloseChat,    Event::TellKey,       Event::Options,    Event::NoPlayOver,
        Event::ExitMove,     Event::Invert,        Event::Resized,    Event::CloseAtOnce,
        Event::CloseLater,   Event::AskForBuddy,   Event::Nothing,    Event::CloseByUser};
    static constexpr std::array<std::string_view, 7> Texts{
        "",
        "",
        "\n\rBobby tells you: hello\n\r\\   and more\n\rfics% ",
        "\n\rBobby(50): hello\n\rfics% ",
        "\n\r<b1> game 12 white [PNQ] black [rp]\n\rfics% ",
        "\n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ",
        "bo"};
    const int which = below(random, 8) == 0 ? 64 : 0;
    return event(oneOf(Hands, random), below(random, 64) | which).append(oneOf(Texts, random));
}

std::string newSegment(Random& random) {
    switch (below(random, 16)) {
    case 0:
    case 1:
        return event(Event::Nothing, 0) + position(random);
    case 2:
        return inPieces(position(random), random);
    case 3:
        return event(Event::TmrPrompt, 0) + inPieces("word\n\rfics% " + position(random), random);
    case 4:
    case 5:
        return move(random);
    case 6:
        return promotion(random);
    case 7:
        return options(random);
    case 8:
        return wait(random);
    case 9:
        return held(random);
    case 10:
    case 11:
        return lineSegment(random);
    default:
        return handSegment(random);
    }
}

void change(std::vector<std::string>& segments, Random& random) {
    const auto at = segments.begin() + below(random, segments.size());
    const auto other = segments.begin() + below(random, segments.size());
    switch (below(random, 5)) {
    case 0:
        segments.erase(at);
        return;
    case 1:
        std::swap(*at, *other);
        return;
    case 2:
        if (at->size() > 2) (*at)[2] = static_cast<char>(random());
        return;
    default:
        segments.insert(at, newSegment(random));
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    Random random(seed + 1);
    if (below(random, 2) == 0) return LLVMFuzzerMutate(data, size, maxSize);
    std::vector<std::string> segments = segmentsOf({reinterpret_cast<const char*>(data), size});
    for (int changes = 1 + below(random, 4); changes > 0 && !segments.empty(); --changes) change(segments, random);
    std::string result;
    for (const std::string& segment : segments) result += segment;
    const std::size_t length = std::min(result.size(), maxSize);
    std::copy_n(result.begin(), length, data);
    return length;
}
