// Texts that tell of a game: board lines, move lists, tables.
#include "practice/games/GameTexts.h"

#include "practice/chess/Style12.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

std::string capitalised(std::string text) {
    if (!text.empty()) text[0] = upperOf(text[0]);
    return text;
}

// "e4      (0:00)     ".
std::string moveCell(const PlayedMove& move) {
    return padRight(move.pretty, 7) + " " + padRight(moveTimeText(move.taken), 10);
}

// "  2 (Exam. 1711 Ada        ++++ Bert      ) [ bu  5   0] W:  1".
std::string examinedRow(const Game& game) {
    return padLeft(game.number, 3) + " (Exam. " + padLeft(game.ratings[0], 4) + " " +
           padRight(game.names[0].substr(0, 10), 10) + " " + padLeft(game.ratings[1], 4) + " " +
           padRight(game.names[1].substr(0, 10), 10) + ") [ " + kindLetters(game.terms) +
           padLeft(game.terms.minutes, 3) + " " + padLeft(game.terms.increment, 3) + "] " +
           (game.toMove() == 0 ? "W" : "B") + ":" + padLeft(game.moveNumber(), 3);
}

} // namespace

std::string pairing(const Game& game) { return "(" + game.names[0] + " vs. " + game.names[1] + ")"; }

std::string gameLabel(const Game& game) { return "Game " + std::to_string(game.number) + ": "; }

std::string lineUp(const Game& game) {
    return game.names[0] + " (" + game.ratings[0] + ") " + game.names[1] + " (" + game.ratings[1] + ") " +
           termsText(game.terms);
}

std::string gameTitle(const Game& game) { return gameLabel(game) + lineUp(game); }

std::string boardLineFor(const Game& game, const std::string& viewer, std::int64_t now) {
    const int side = game.sideOf(viewer);
    BoardLine line;
    line.position = readFen(game.facts.fen).value_or(Position{});
    line.gameNumber = game.number;
    line.white = game.names[0];
    line.black = game.names[1];
    if (side >= 0) line.relation = side == game.toMove() ? 1 : -1;
    if (game.isExamined()) line.relation = game.isExaminer(viewer) ? 2 : -2;
    line.minutes = game.terms.minutes;
    line.increment = game.terms.increment;
    line.whiteClock = roundedSeconds(game.clock.remaining(0, game.toMove(), now));
    line.blackClock = roundedSeconds(game.clock.remaining(1, game.toMove(), now));
    line.flip = side == 1;
    line.ticking = game.clock.running();
    if (!game.moves.empty()) {
        const PlayedMove& last = game.moves.back();
        line.doublePushFile = last.doublePushFile;
        line.verboseMove = last.verbose;
        line.moveTime = moveTimeText(last.taken);
        line.prettyMove = last.pretty;
    }
    const bool drops = variantNamed(game.terms.variant).drops;
    return composeStyle12(line) + (drops ? "\n" + composeHoldings(game.number, line.position) : std::string());
}

std::string endLine(const Game& game, const std::string& reason, const std::string& result) {
    return "{Game " + std::to_string(game.number) + " " + pairing(game) + " " + reason + "} " + result;
}

std::string kindLetters(const Terms& terms) {
    const char letter = variantNamed(terms.variant).letter;
    return std::string(1, letter ? letter : kindText(terms)[0]) + (terms.rated ? "r" : "u");
}

// Clients read the two cells of a row by columns, so nothing here may shift.
std::string moveRows(const Game& game) {
    std::string text = game.names[0] + " (" + game.ratings[0] + ") vs. " + game.names[1] + " (" + game.ratings[1] +
                       ") --- " + game.startedAt + "\n" + capitalised(ratedText(game.terms)) + " " +
                       kindText(game.terms) + " match, initial time: " + std::to_string(game.terms.minutes) +
                       " minutes, increment: " + std::to_string(game.terms.increment) + " seconds.\n\n" + "Move  " +
                       padRight(game.names[0], 18) + " " + game.names[1] +
                       "\n----  ----------------   ----------------\n";
    for (std::size_t i = 0; i < game.moves.size(); i += 2) {
        text += padLeft(static_cast<int>(i / 2) + 1, 3) + ".  " + moveCell(game.moves[i]);
        if (i + 1 < game.moves.size()) text += " " + moveCell(game.moves[i + 1]);
        text += "\n";
    }
    return text;
}

std::string moveList(const Game& game) {
    return "Movelist for game " + std::to_string(game.number) + ":\n\n" + moveRows(game) +
           "      {Still in progress} *\n";
}

std::string gamesRow(const Game& game, std::int64_t now) {
    if (game.isExamined()) return examinedRow(game);
    const auto position = readFen(game.facts.fen).value_or(Position{});
    const auto clock = [&](int side) { return clockText(game.clock.remaining(side, game.toMove(), now)); };
    return padLeft(game.number, 3) + " " + padLeft(game.ratings[0], 4) + " " +
           padRight(game.names[0].substr(0, 11), 11) + " " + padLeft(game.ratings[1], 4) + " " +
           padRight(game.names[1].substr(0, 10), 10) + " [" + (game.isPrivate ? "p" : " ") + kindLetters(game.terms) +
           padLeft(game.terms.minutes, 3) + " " + padLeft(game.terms.increment, 3) + "] " + padLeft(clock(0), 6) +
           " -" + padLeft(clock(1), 6) + " (" + padLeft(materialStrength(position, true), 2) + "-" +
           padLeft(materialStrength(position, false), 2) + ") " + (game.toMove() == 0 ? "W" : "B") + ":" +
           padLeft(game.moveNumber(), 3);
}

} // namespace practice
