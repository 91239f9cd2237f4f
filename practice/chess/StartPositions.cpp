// Start positions of the kinds of chess that do not start as usual, as FEN texts with white to move.
#include "practice/chess/StartPositions.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace practice {

namespace {

constexpr std::string_view usualRank = "RNBQKBNR";

// Both back ranks as capitals, white's first.
std::string fenOf(const std::string& white, const std::string& black, std::string_view castling) {
    return lower(black) + "/pppppppp/8/8/8/8/PPPPPPPP/" + white + " w " + std::string(castling) + " - 0 1";
}

// The library's own shuffle differs between libraries, and a seed's games must not.
void shuffle(std::string& text, std::mt19937& dice) {
    for (std::size_t i = text.size(); i > 1; --i) std::swap(text[i - 1], text[dice() % i]);
}

// Bishops of a back rank on squares of even and of odd files.
std::pair<int, int> bishopsByFile(const std::string& rank) {
    std::pair<int, int> count{0, 0};
    for (std::size_t file = 0; file < rank.size(); ++file) {
        if (rank[file] == 'B') ++(file % 2 == 0 ? count.first : count.second);
    }
    return count;
}

std::string shuffledPieces(std::mt19937& dice, std::size_t kingFile) {
    std::string rank;
    do {
        std::string rest = "QBBNN";
        shuffle(rest, dice);
        rest.insert(kingFile - 1, 1, 'K');
        rank = "R" + rest + "R";
    } while (bishopsByFile(rank) != std::pair{1, 1});
    return rank;
}

std::string randomRank(std::mt19937& dice) {
    constexpr std::array<char, 4> kinds{'Q', 'R', 'B', 'N'};
    std::string rank = "K";
    while (rank.size() < 8) rank += kinds[dice() % kinds.size()];
    shuffle(rank, dice);
    return rank;
}

// Puts a piece on the empty square that has `skip` empty ones before it.
void putOnEmpty(std::string& rank, int skip, char piece) {
    for (char& square : rank) {
        if (square != ' ' || skip-- > 0) continue;
        square = piece;
        return;
    }
}

// The two of five empty squares that a number 0..9 stands for.
std::pair<int, int> knightSquares(int number) {
    int first = 0;
    for (int others = 4; number >= others; --others) {
        number -= others;
        ++first;
    }
    return {first, first + 1 + number};
}

} // namespace

std::string standardStart(std::string_view castling) {
    return fenOf(std::string(usualRank), std::string(usualRank), castling);
}

std::string kingsAndQueensSwapped() { return fenOf("RNBKQBNR", "RNBKQBNR", "KQkq"); }

std::string shuffledBetweenRooks(std::size_t kingFile, std::mt19937& dice) {
    const std::string white = shuffledPieces(dice, kingFile);
    return fenOf(white, shuffledPieces(dice, kingFile), "KQkq");
}

std::string shuffledMirrored(std::mt19937& dice) {
    std::string rank(usualRank);
    shuffle(rank, dice);
    return fenOf(rank, rank, "-");
}

std::string randomMirrored(std::mt19937& dice) {
    const std::string rank = randomRank(dice);
    return fenOf(rank, rank, "-");
}

std::string randomBalanced(std::mt19937& dice) {
    std::string white;
    std::string black;
    do {
        white = randomRank(dice);
        black = randomRank(dice);
        // A file's squares on the first and the eighth rank differ in colour.
    } while (bishopsByFile(white) != std::pair{bishopsByFile(black).second, bishopsByFile(black).first});
    return fenOf(white, black, "-");
}

std::string pawnsNearPromotion() { return "RNBKQBNR/PPPPPPPP/8/8/8/8/pppppppp/rnbkqbnr w - - 0 1"; }

std::string advancedPawns(bool passed) {
    const std::string middle = passed ? "PPPPPPPP/pppppppp" : "pppppppp/PPPPPPPP";
    return "rnbqkbnr/8/8/" + middle + "/8/8/RNBQKBNR w KQkq - 0 1";
}

std::string fischerRandom(int number) {
    std::string rank(8, ' ');
    rank[static_cast<std::size_t>(1 + 2 * (number % 4))] = 'B';
    number /= 4;
    rank[static_cast<std::size_t>(2 * (number % 4))] = 'B';
    number /= 4;
    putOnEmpty(rank, number % 6, 'Q');
    const auto [first, second] = knightSquares(number / 6);
    putOnEmpty(rank, second, 'N');
    putOnEmpty(rank, first, 'N');
    for (const char piece : {'R', 'K', 'R'}) putOnEmpty(rank, 0, piece);
    return fenOf(rank, rank, "KQkq");
}

} // namespace practice
