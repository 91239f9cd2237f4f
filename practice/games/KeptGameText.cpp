// Kept games as texts, for files.
#include "practice/games/KeptGameText.h"

#include <sstream>

namespace practice {

namespace {

constexpr std::string_view heading = "brightrank-practice game 1";
constexpr std::string_view ending = "over"; // a text without it was cut off

void writePlayer(std::ostream& out, const char* colour, const Game& game, std::size_t side) {
    out << colour << ' ' << game.names[side] << ' ' << game.ratings[side] << '\n';
}

void writeMove(std::ostream& out, const PlayedMove& move) {
    out << "move " << move.engineForm << ' ' << move.verbose << ' ' << move.pretty << ' ' << move.taken << ' '
        << move.doublePushFile << ' ' << move.clock.left[0] << ' ' << move.clock.left[1] << ' ' << move.clock.halfmoves
        << ' ' << move.fen << '\n';
}

// What stands behind the words already read, up to the line's end.
std::string restOf(std::istream& line) {
    std::string rest;
    std::getline(line >> std::ws, rest);
    return rest;
}

bool readPlayer(std::istream& line, Game& game, std::size_t side) {
    return static_cast<bool>(line >> game.names[side] >> game.ratings[side]);
}

bool readTerms(std::istream& line, Terms& terms) {
    std::string rated;
    std::string variant;
    if (!(line >> terms.minutes >> terms.increment >> rated >> variant)) return false;
    terms.rated = rated == "rated";
    if (variant != "-") terms.variant = variant;
    return terms.minutes >= 0 && terms.minutes <= mostMinutes && terms.increment >= 0 &&
           terms.increment <= mostIncrement && variantNamed(terms.variant).name == terms.variant;
}

bool readClock(std::istream& line, GameClock& clock) {
    return static_cast<bool>(line >> clock.left[0] >> clock.left[1] >> clock.increment >> clock.halfmoves >>
                             clock.timed);
}

bool readMove(std::istream& line, Game& game) {
    PlayedMove move;
    move.clock = game.firstClock;
    if (!(line >> move.engineForm >> move.verbose >> move.pretty >> move.taken >> move.doublePushFile >>
          move.clock.left[0] >> move.clock.left[1] >> move.clock.halfmoves))
        return false;
    move.fen = restOf(line);
    game.moves.push_back(move);
    return readFen(move.fen).has_value() && game.moves.size() <= Game::plyLimit;
}

bool readEnd(std::istream& line, KeptGame& kept) {
    if (!(line >> kept.result)) return false;
    kept.reason = restOf(line);
    return true;
}

bool readText(std::istream& line, std::string& text) {
    text = restOf(line);
    return !text.empty();
}

bool readLine(std::istream& line, KeptGame& kept) {
    Game& game = kept.game;
    std::string word;
    line >> word;
    if (word == "white") return readPlayer(line, game, 0);
    if (word == "black") return readPlayer(line, game, 1);
    if (word == "terms") return readTerms(line, game.terms);
    if (word == "rules") return static_cast<bool>(line >> game.rules.engineName >> game.rules.chess960);
    if (word == "start") return readText(line, game.startFen) && readFen(game.startFen).has_value();
    if (word == "began") return readText(line, game.startedAt);
    if (word == "ended") return readText(line, kept.ended);
    if (word == "end") return readEnd(line, kept);
    if (word == "clock") return readClock(line, game.firstClock);
    return word == "move" && readMove(line, game);
}

// Whatever a table or a board shows is there.
bool isWhole(const KeptGame& kept) {
    const Game& game = kept.game;
    return !game.names[0].empty() && !game.names[1].empty() && !game.startFen.empty() && !game.startedAt.empty() &&
           !kept.ended.empty() && !kept.result.empty();
}

} // namespace

std::string keptGameText(const KeptGame& kept) {
    const Game& game = kept.game;
    std::ostringstream out;
    out << heading << '\n';
    writePlayer(out, "white", game, 0);
    writePlayer(out, "black", game, 1);
    out << "terms " << game.terms.minutes << ' ' << game.terms.increment << ' ' << ratedText(game.terms) << ' '
        << (game.terms.variant.empty() ? "-" : game.terms.variant) << '\n'
        << "rules " << game.rules.engineName << ' ' << game.rules.chess960 << '\n'
        << "start " << game.startFen << '\n'
        << "began " << game.startedAt << '\n'
        << "ended " << kept.ended << '\n'
        << "end " << kept.result << ' ' << kept.reason << '\n'
        << "clock " << game.firstClock.left[0] << ' ' << game.firstClock.left[1] << ' ' << game.firstClock.increment
        << ' ' << game.firstClock.halfmoves << ' ' << game.firstClock.timed << '\n';
    for (const PlayedMove& move : game.moves) writeMove(out, move);
    out << ending << '\n';
    return out.str();
}

std::optional<KeptGame> readKeptGame(const std::string& text) {
    std::istringstream in(text);
    std::string line;
    if (!std::getline(in, line) || line != heading) return std::nullopt;
    KeptGame kept;
    while (std::getline(in, line) && line != ending) {
        std::istringstream words(line);
        if (!readLine(words, kept)) return std::nullopt;
    }
    if (line != ending || !isWhole(kept)) return std::nullopt;
    Game& game = kept.game;
    game.clock = game.moves.empty() ? game.firstClock : game.moves.back().clock;
    game.facts.fen = game.moves.empty() ? game.startFen : game.moves.back().fen;
    return kept;
}

} // namespace practice
