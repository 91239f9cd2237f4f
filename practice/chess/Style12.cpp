// The board line "<12> ..." that clients read.
#include "practice/chess/Style12.h"

#include <initializer_list>

namespace practice {

namespace {

void add(std::string& text, const std::string& token) {
    text += ' ';
    text += token;
}

void addNumbers(std::string& text, std::initializer_list<int> values) {
    for (const int value : values) add(text, std::to_string(value));
}

int may(const Position& position, bool white, bool shortSide) { return position.mayCastle(white, shortSide) ? 1 : 0; }

} // namespace

std::string composeStyle12(const BoardLine& line) {
    const Position& at = line.position;
    std::string text = "<12>";
    for (int rank = 8; rank >= 1; --rank) add(text, at.rank(rank));
    add(text, at.whiteToMove ? "W" : "B");
    addNumbers(text, {line.doublePushFile, may(at, true, true), may(at, true, false), may(at, false, true),
                      may(at, false, false), at.halfmoves, line.gameNumber});
    add(text, line.white);
    add(text, line.black);
    addNumbers(text, {line.relation, line.minutes, line.increment, materialStrength(at, true),
                      materialStrength(at, false), line.whiteClock, line.blackClock, at.moveNumber});
    add(text, line.verboseMove);
    add(text, line.moveTime);
    add(text, line.prettyMove);
    // The last token is the lag of the connection, which the loopback interface has none of.
    addNumbers(text, {line.flip ? 1 : 0, line.ticking ? 1 : 0, 0});
    return text;
}

std::string composeHoldings(int gameNumber, const Position& position) {
    return "<b1> game " + std::to_string(gameNumber) + " white [" + position.handOf(true) + "] black [" +
           position.handOf(false) + "]";
}

} // namespace practice
