// The computer players: who they are, how strong, how they choose among an engine's proposals, and what they agree to.
#include "practice/hall/Computers.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <array>

namespace practice {

namespace {

// The three figures of a player of a rating below `below`.
struct Strength {
    int below;
    int depth;
    int proposals;
    int margin;
};

constexpr std::array<Strength, 8> strengths{{
    {800, 1, 12, 600},
    {1200, 1, 8, 220},
    {1500, 2, 6, 120},
    {1750, 4, 4, 60},
    {2000, 6, 4, 35},
    {2300, 9, 2, 12},
    {2600, 12, 1, 0},
    {9999, 14, 1, 0},
}};

Terms offerOf(const char* text) { return readTerms(words(text), {}).terms; }

Computer host(const char* name, int rating, Strength strength, const char* offer, const char* about) {
    Computer computer;
    computer.name = name;
    computer.rating = rating;
    computer.depth = strength.depth;
    computer.proposals = strength.proposals;
    computer.margin = strength.margin;
    computer.offer = offerOf(offer);
    computer.about = about;
    return computer;
}

Computer promptHost(Computer computer) {
    computer.prompt = true;
    return computer;
}

Computer ofPair(Computer computer) {
    computer.role = Role::Pair;
    return computer;
}

// It plays as `plays` says; its rating may be unknown to others.
Computer visitor(const char* name, const char* title, int plays, const char* offer, const char* about) {
    const auto* strength =
        std::find_if(strengths.begin(), strengths.end(), [&](const Strength& each) { return plays < each.below; });
    Computer computer = host(name, plays, *strength, offer, about);
    computer.title = title;
    computer.role = Role::Visitor;
    return computer;
}

Computer unratedVisitor(const char* name, const char* title, int plays, const char* offer, const char* about) {
    Computer computer = visitor(name, title, plays, offer, about);
    computer.rating = 0;
    return computer;
}

} // namespace

const std::vector<Computer>& computers() {
    static const std::vector<Computer> all{
        host("Sprout", 1050, {0, 1, 8, 220}, "3 0", "I look one move ahead and forget the rest."),
        host("Willow", 1560, {0, 4, 4, 60}, "5 5", "A club player's strength, on a good day."),
        host("Granite", 2210, {0, 11, 2, 12}, "15 10", "Patient and hard to move."),
        promptHost(host("Spark", 1400, {0, 1, 1, 0}, "1 0", "I move before you see it, and always the same move.")),
        ofPair(host("Skipper", 1850, {0, 6, 4, 35}, "10 5", "Always at the board with Harbour.")),
        ofPair(host("Harbour", 1830, {0, 6, 4, 40}, "10 5", "Always at the board with Skipper.")),
        visitor("Pebble", "", 640, "10 0 unrated", "Still learning how the knight goes."),
        visitor("Thimble", "", 815, "5 0 rated", "I like short games and long stories."),
        visitor("Bracken", "", 1165, "15 10 rated 800-1300", "Looking for opponents of my own strength."),
        visitor("Tinker", "(C)", 1240, "0 1 unrated", "A second a move is plenty."),
        visitor("Weatherforecaster", "", 1340, "4 3 rated black", "Sunny at first, later a few blunders."),
        visitor("Sundial", "", 1480, "0 0 unrated", "Without a clock, please."),
        visitor("Pauper", "", 1505, "2 0 rated losers", "I have nothing and want less."),
        visitor("Reed", "(C)", 1560, "5 5 unrated", "I stand beside Willow."),
        visitor("Mosaic", "(C)", 1620, "3 0 rated crazyhouse", "Everything comes back."),
        visitor("Backhand", "(C)", 1735, "3 0 rated suicide m f", "Take my pieces."),
        visitor("Orchard", "", 1810, "3 0 rated wild 2 m", "Old trees in a new order."),
        visitor("Shuffle", "(C)", 1930, "2 12 unrated wild fr", "No opening book helps here."),
        visitor("Vesper", "", 2040, "30 20 rated white", "An evening for one game."),
        visitor("Thunderclapper", "(C)", 2180, "1 2 rated", "Fast and loud."),
        visitor("Counterbalancer", "(C)", 2350, "10 10 unrated black", "I wait for your mistake."),
        visitor("Anvil", "(C)", 2520, "45 45 rated 2000-9999 f", "Heavy, and in no hurry."),
        visitor("Zenith", "(C)", 2790, "5 0 unrated m f", "As good as it gets here."),
        unratedVisitor("Driftwood", "", 1450, "5 5 unrated black", "Washed ashore today."),
        unratedVisitor("Lantern", "(U)", 1100, "2 12 unrated", "Just looking in."),
        unratedVisitor("Marigold", "(U)", 1300, "5 0 unrated white", "Just passing."),
        unratedVisitor("Meadow", "(U)", 900, "10 5 unrated suicide", "A guest who likes to lose."),
    };
    return all;
}

const Computer* computerNamed(const std::string& name) {
    const auto& all = computers();
    const auto at = std::find_if(all.begin(), all.end(), [&](const Computer& c) { return c.name == name; });
    return at == all.end() ? nullptr : &*at;
}

std::string Computer::ratingText() const {
    if (title == "(U)") return "++++";
    return rating == 0 ? "----" : padLeft(rating, 4);
}

std::string chooseMove(const std::vector<Candidate>& proposals, int margin, std::mt19937& random) {
    if (proposals.empty()) return {};
    const int best = proposals.front().score;
    if (best >= mateInSight) return proposals.front().move;
    std::size_t near = 1;
    while (near < proposals.size() && proposals[near].score >= best - margin) ++near;
    // The remainder keeps a seed's games the same with every standard library.
    return proposals[random() % near].move;
}

bool acceptsInGame(const Game& game, OfferKind kind) {
    const int score = game.computerScore;
    return kind != OfferKind::Draw || score <= -150 || (game.moveNumber() > 40 && score > -30 && score < 30);
}

} // namespace practice
