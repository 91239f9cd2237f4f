// Texts of moves: from what a player types to the engine's form, and from there to the forms shown.
#include "practice/chess/MoveText.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace practice {

namespace {

// A move text taken apart: blank fields were not typed.
struct MoveParts {
    char piece = 'P';
    char fromFile = 0;
    char fromRank = 0;
    std::string to;
    char promotion = 0;
    bool castleShort = false;
    bool castleLong = false;
    bool drop = false;
};

bool isFile(char c) { return c >= 'a' && c <= 'h'; }

bool isRank(char c) { return c >= '1' && c <= '8'; }

bool isOneOf(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

// "O-O", "0-0-0", "oo": letters or noughts, dashes or none.
std::optional<MoveParts> castlingParts(std::string_view text) {
    std::string plain = lower(text);
    std::replace(plain.begin(), plain.end(), '0', 'o');
    MoveParts parts;
    parts.piece = 'K';
    parts.castleShort = plain == "o-o" || plain == "oo";
    parts.castleLong = plain == "o-o-o" || plain == "ooo";
    if (!parts.castleShort && !parts.castleLong) return std::nullopt;
    return parts;
}

// Takes "=Q", "=q" or a bare "q" behind the last rank off the text.
char cutPromotion(std::string& text) {
    if (text.size() < 3 || !isOneOf(lowerOf(text.back()), "qrbnk")) return 0;
    const char before = text[text.size() - 2];
    if (before != '=' && before != '1' && before != '8') return 0;
    const char piece = lowerOf(text.back());
    text.resize(text.size() - (before == '=' ? 2U : 1U));
    return piece;
}

void cutCheckMarks(std::string& text) {
    while (!text.empty() && isOneOf(text.back(), "+#!?")) text.pop_back();
}

// Takes the piece letter off the front. A small "b" is always the file: "bxc3" is the pawn's move.
char cutPiece(std::string& text) {
    if (text.size() > 2 && isOneOf(text[0], "KQRBNPkqrn")) {
        const char piece = upperOf(text[0]);
        text.erase(0, 1);
        return piece;
    }
    return 'P';
}

// "N@f3", "p@e4".
std::optional<MoveParts> dropParts(std::string_view text) {
    const bool shaped = text.size() == 4 && text[1] == '@' && isFile(text[2]) && isRank(text[3]);
    if (!shaped || !isOneOf(lowerOf(text[0]), "qrbnp")) return std::nullopt;
    MoveParts parts;
    parts.piece = upperOf(text[0]);
    parts.to = std::string(text.substr(2));
    parts.drop = true;
    return parts;
}

bool isDrop(std::string_view move) { return move[1] == '@'; }

// Reads from the back: "Nb1xd2=Q+" ends in its marks, then the piece, the target, and what stands before it.
std::optional<MoveParts> takeApart(std::string_view typed) {
    std::string text(typed);
    cutCheckMarks(text);
    if (auto castling = castlingParts(text)) return castling;
    if (auto drop = dropParts(text)) return drop;
    MoveParts parts;
    parts.promotion = cutPromotion(text);
    parts.piece = cutPiece(text);
    if (text.size() < 2 || !isFile(text[text.size() - 2]) || !isRank(text.back())) return std::nullopt;
    parts.to = text.substr(text.size() - 2);
    text.resize(text.size() - 2);
    if (!text.empty() && isOneOf(text.back(), "x-:")) text.pop_back();
    if (!text.empty() && isRank(text.back())) {
        parts.fromRank = text.back();
        text.pop_back();
    }
    if (!text.empty() && isFile(text.back())) {
        parts.fromFile = text.back();
        text.pop_back();
    }
    if (!text.empty()) return std::nullopt;
    return parts;
}

enum class Castling { None, Short, Long };

// The engine writes castling as the king's move over two files, or as the king taking his own rook. A king on the
// d-file goes to b for the short side.
Castling castlingOf(const Position& position, std::string_view move) {
    const char king = position.at(move.substr(0, 2));
    const char target = position.at(move.substr(2, 2));
    if (upperOf(king) != 'K') return Castling::None;
    if (target == (king == 'K' ? 'R' : 'r')) return move[2] > move[0] ? Castling::Short : Castling::Long;
    if (std::abs(move[0] - move[2]) != 2) return Castling::None;
    return move[2] == 'g' || move[2] == 'b' ? Castling::Short : Castling::Long;
}

std::string castlingText(Castling castling, std::string_view one) {
    return std::string(one) + "-" + std::string(one) + (castling == Castling::Long ? "-" + std::string(one) : "");
}

// "e1g1" or "b1g1" for a castling that the engine calls "e1h1" or "b1h1".
bool goesKingsWay(const MoveParts& parts, std::string_view move, Castling castling) {
    const char file = castling == Castling::Short ? 'g' : 'c';
    return parts.fromFile == move[0] && parts.fromRank == move[1] && parts.to == std::string{file, move[1]} &&
           std::abs(move[0] - file) >= 2;
}

// A move typed by both its squares may leave out the piece: "g1f3" as well as "Ng1f3".
bool pieceFits(const MoveParts& parts, char piece) {
    return upperOf(piece) == parts.piece || (parts.piece == 'P' && parts.fromFile && parts.fromRank);
}

bool fits(const Position& position, const MoveParts& parts, std::string_view move) {
    if (parts.drop || isDrop(move))
        return parts.drop && isDrop(move) && move[0] == parts.piece && move.substr(2) == parts.to;
    const Castling castling = castlingOf(position, move);
    if (parts.castleShort) return castling == Castling::Short;
    if (parts.castleLong) return castling == Castling::Long;
    if (castling != Castling::None && goesKingsWay(parts, move, castling)) return true;
    if (move.substr(2, 2) != parts.to || !pieceFits(parts, position.at(move.substr(0, 2)))) return false;
    if (parts.fromFile && parts.fromFile != move[0]) return false;
    return !parts.fromRank || parts.fromRank == move[1];
}

// Of the four promotions that the engine lists for one step, only one is meant.
bool promotionFits(std::string_view move, char wanted, char standard) {
    return move.size() < 5 ? wanted == 0 : move[4] == (wanted ? wanted : standard);
}

// What has to stand between piece and target so that the text means this move alone.
std::string origin(const Position& position, const std::vector<std::string>& legal, std::string_view move) {
    const char piece = position.at(move.substr(0, 2));
    bool others = false;
    bool sameFile = false;
    bool sameRank = false;
    for (const std::string& other : legal) {
        const bool rival = other.substr(0, 2) != move.substr(0, 2) && other.substr(2, 2) == move.substr(2, 2) &&
                           position.at(std::string_view(other).substr(0, 2)) == piece;
        if (!rival) continue;
        others = true;
        sameFile = sameFile || other[0] == move[0];
        sameRank = sameRank || other[1] == move[1];
    }
    if (!others) return {};
    if (!sameFile) return std::string(1, move[0]);
    return sameRank ? std::string(move.substr(0, 2)) : std::string(1, move[1]);
}

std::string promotionMark(std::string_view move) {
    return move.size() > 4 ? std::string("=") + upperOf(move[4]) : std::string();
}

} // namespace

bool looksLikeMove(std::string_view text) { return takeApart(text).has_value(); }

TypedMove readMove(const PositionFacts& facts, std::string_view typed, char promotion) {
    const auto position = readFen(facts.fen);
    const auto parts = takeApart(typed);
    TypedMove result;
    if (!position || !parts) return result;
    for (const std::string& move : facts.legal) {
        if (!fits(*position, *parts, move) || !promotionFits(move, parts->promotion, promotion)) continue;
        if (result.reading == MoveReading::Legal) return {MoveReading::Ambiguous, {}};
        result = {MoveReading::Legal, move};
    }
    return result;
}

std::string shortForm(const Position& position, const std::vector<std::string>& legal, std::string_view move) {
    if (isDrop(move)) return std::string(move);
    if (const Castling castling = castlingOf(position, move); castling != Castling::None)
        return castlingText(castling, "O");
    const char piece = upperOf(position.at(move.substr(0, 2)));
    const std::string to(move.substr(2, 2));
    const bool capture = position.at(to) != '-' || (piece == 'P' && move[0] != move[2]);
    if (piece == 'P') {
        return (capture ? std::string(1, move[0]) + "x" : std::string()) + to + promotionMark(move);
    }
    return std::string(1, piece) + origin(position, legal, move) + (capture ? "x" : "") + to;
}

std::string verboseForm(const Position& position, std::string_view move) {
    if (isDrop(move)) return std::string(1, move[0]) + "/@@-" + std::string(move.substr(2));
    if (const Castling castling = castlingOf(position, move); castling != Castling::None)
        return castlingText(castling, "o");
    const char piece = upperOf(position.at(move.substr(0, 2)));
    return std::string(1, piece) + "/" + std::string(move.substr(0, 2)) + "-" + std::string(move.substr(2, 2)) +
           promotionMark(move);
}

int doublePushFile(const Position& position, std::string_view move) {
    const bool pawn = upperOf(position.at(move.substr(0, 2))) == 'P';
    return pawn && std::abs(move[1] - move[3]) == 2 ? move[0] - 'a' : -1;
}

} // namespace practice
