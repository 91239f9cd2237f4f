// A move's text to its squares, for every stored game: the texts of servers and of our own files, and what else passes.
#include "records/MoveDecoder.h"

#include "common/Squares.h"
#include "common/Text.h"

namespace {

constexpr int Pawn = 6;
constexpr std::string_view Pieces = "KQRBN"; // 1 to 5

unsigned char byteOf(char letter) { return static_cast<unsigned char>(letter); }

// The byte in a column, 0 behind the end.
char at(std::string_view text, long column) {
    const std::string_view found = mid(text, column, 1);
    return found.empty() ? '\0' : found.front();
}

int fileNumber(char letter) { return byteOf(letter) - 'a'; }

std::optional<std::int16_t> targetAt(std::string_view text, long column) {
    const char digit = at(text, column + 1);
    if (digit < '0' || digit > '9') return std::nullopt;
    return static_cast<std::int16_t>(fileNumber(at(text, column)) + 8 * (digit - '1'));
}

// The code of a letter; none for one that is no piece, the pawn's included.
std::optional<int> pieceOf(char letter) {
    const auto place = Pieces.find(letter);
    if (place == Pieces.npos) return std::nullopt;
    return static_cast<int>(place) + 1;
}

// "=Q" or "Q" in a column. A king is not promoted to.
std::int16_t promotionAt(std::string_view text, long column) {
    const int piece = pieceOf(at(text, at(text, column) == '=' ? column + 1 : column)).value_or(0);
    return static_cast<std::int16_t>(piece == 1 ? 0 : piece);
}

void readPawn(std::string_view text, MoveReading& reading) {
    const long target = at(text, 2) == 'x' ? 3 : 1;
    const char digit = at(text, target + 1);
    if (digit == '1' || digit == '8') reading.promotion = promotionAt(text, target + 2);
    reading.to = targetAt(text, target);
}

void readPiece(std::string_view text, MoveReading& reading) {
    const char second = at(text, 2);
    const char third = at(text, 3);
    long target = third == 'x' ? 4 : 3;
    if (second == 'x') {
        target = 3;
    } else if (second >= '1' && second <= '8') {
        reading.rank = second - '1';
    } else if (byteOf(third) > 'Z') {
        reading.file = fileNumber(second);
    } else {
        target = 2;
    }
    reading.to = targetAt(text, target);
}

// The squares that the reading's filter leaves, in the order of the search.
struct Squares {
    int first;
    int last;
    int step;
};

Squares squaresToSearch(const MoveReading& reading) {
    if (reading.file >= 0) return {reading.file, reading.file + 56, 8};
    if (reading.rank >= 0) return {8 * reading.rank, 8 * reading.rank + 7, 1};
    return {0, 63, 1};
}

} // namespace

MoveReading readMoveText(std::string_view text) {
    MoveReading reading;
    if (text.empty()) return reading;
    const char first = text.front();
    if (first == 'O' || first == 'o') {
        reading.castling = lower(text) == "o-o" ? MoveReading::Castling::Short : MoveReading::Castling::Long;
        return reading;
    }
    const auto piece = pieceOf(first);
    reading.piece = piece.value_or(Pawn);
    if (!piece) reading.file = fileNumber(first);
    reading.drop = at(text, 2) == '@';
    if (reading.drop) {
        reading.to = targetAt(text, 3);
    } else if (piece) {
        readPiece(text, reading);
    } else {
        readPawn(text, reading);
    }
    return reading;
}

// A file beyond the board runs into a subscript that is not there, which ends the search like every other failure.
MoveSquares findMove(const MoveReading& reading, std::int16_t colour, std::int16_t from,
                     const FixedArray<std::int16_t, 64>& board, const Needed<bool(int from, int to)>& mayMove) {
    if (reading.castling != MoveReading::Castling::None) {
        const int king = colour == 1 ? 4 : 60;
        const int side = reading.castling == MoveReading::Castling::Short ? 2 : -2;
        return {static_cast<std::int16_t>(king), static_cast<std::int16_t>(king + side), true};
    }
    MoveSquares found{reading.drop ? std::int16_t{HandSquare} : from, reading.to.value_or(0), false};
    if (!reading.to || found.from == -1) return found;
    const Squares search = squaresToSearch(reading);
    found.ok = passOver([&] {
        for (int square = search.first; square <= search.last; square += search.step) {
            if (board[square] != colour * reading.piece || !mayMove(square, found.to)) continue;
            found.from = static_cast<std::int16_t>(square);
            return;
        }
    });
    return found;
}
