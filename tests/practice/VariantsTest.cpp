// Tests of the kinds of chess: their names and where their games start.
#include "practice/chess/Variants.h"
#include "practice/chess/Position.h"
#include "practice/chess/StartPositions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace practice {
namespace {

std::string nameRead(const std::vector<std::string>& words, std::size_t at = 0) {
    const VariantReading reading = readVariant(words, at);
    return reading.variant ? reading.variant->name : std::string();
}

Position startOf(const std::string& name, unsigned seed = 1) {
    std::mt19937 dice(seed);
    return readFen(drawSetup(variantNamed(name), dice).fen).value();
}

std::string sorted(std::string text) {
    std::sort(text.begin(), text.end());
    return text;
}

TEST(Variants, WordsOfTheComposerNameTheirKind) {
    EXPECT_EQ(nameRead({"Crazyhouse"}), "crazyhouse");
    EXPECT_EQ(nameRead({"Losers"}), "losers");
    EXPECT_EQ(nameRead({"Suicide"}), "suicide");
    EXPECT_EQ(nameRead({"2", "12", "Wild", "fr", "u"}, 2), "wild/fr");
    EXPECT_EQ(nameRead({"Wild", "0"}), "wild/0");
    EXPECT_EQ(nameRead({"Wild", "8a"}), "wild/8a");
}

TEST(Variants, AWildGameTakesTwoWordsOrOne) {
    EXPECT_EQ(readVariant({"wild", "5", "r"}, 0).words, 2U);
    EXPECT_EQ(readVariant({"wild/5", "r"}, 0).words, 1U);
    EXPECT_EQ(nameRead({"wild/5"}), "wild/5");
}

TEST(Variants, CustomaryShortNamesAreKnown) {
    EXPECT_EQ(nameRead({"zh"}), "crazyhouse");
    EXPECT_EQ(nameRead({"fr"}), "wild/fr");
    EXPECT_EQ(nameRead({"los"}), "losers");
}

TEST(Variants, OtherWordsNameNoKind) {
    for (const char* word : {"r", "u", "white", "w", "5", "blitz", "lo", "wil"}) {
        const VariantReading reading = readVariant({word}, 0);
        EXPECT_EQ(reading.variant, nullptr) << word;
        EXPECT_EQ(reading.refusal, "") << word;
    }
}

TEST(Variants, KindsThatAreNotPlayedHereAreRefusedByName) {
    EXPECT_EQ(readVariant({"Bughouse"}, 0).refusal, "You have no partner for bughouse.");
    EXPECT_NE(readVariant({"Atomic"}, 0).refusal.find("Atomic is not played here"), std::string::npos);
    EXPECT_EQ(readVariant({"Wild", "6"}, 0).refusal, "No such category/board: wild/6");
    EXPECT_EQ(readVariant({"Wild", "7"}, 0).refusal, "No such category/board: wild/7");
    EXPECT_EQ(readVariant({"wild"}, 0).refusal, "No such category/board: wild/");
}

TEST(Variants, ASeedDrawsTheSameStartAgain) {
    for (const Variant& variant : variants()) {
        std::mt19937 first(7);
        std::mt19937 second(7);
        EXPECT_EQ(drawSetup(variant, first).fen, drawSetup(variant, second).fen) << variant.name;
    }
}

TEST(Variants, EachStartHasAKingOnEitherSideAndWhiteToMove) {
    for (const Variant& variant : variants()) {
        const Position position = startOf(variant.name);
        EXPECT_EQ(std::count(position.board.begin(), position.board.end(), 'K'), 1) << variant.name;
        EXPECT_EQ(std::count(position.board.begin(), position.board.end(), 'k'), 1) << variant.name;
        EXPECT_TRUE(position.whiteToMove) << variant.name;
    }
}

TEST(Variants, SuicideHasNoCastling) { EXPECT_EQ(startOf("suicide").castling, "-"); }

TEST(StartPositions, Wild0SwapsKingsAndQueens) {
    EXPECT_EQ(startOf("wild/0").rank(1), "RNBKQBNR");
    EXPECT_EQ(startOf("wild/0").rank(8), "rnbkqbnr");
}

TEST(StartPositions, Wild1KeepsRooksInTheCornersAndBishopsOnBothColours) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        const Position position = startOf("wild/1", seed);
        for (const int which : {1, 8}) {
            const std::string rank = position.rank(which);
            EXPECT_EQ(std::toupper(rank[0]), 'R');
            EXPECT_EQ(std::toupper(rank[7]), 'R');
            const auto first = rank.find_first_of("Bb");
            EXPECT_NE(first % 2, rank.find_first_of("Bb", first + 1) % 2) << rank;
            EXPECT_EQ(rank.find_first_of("Kk"), position.rank(1).find('K')) << "both kings on one file";
        }
    }
}

TEST(StartPositions, Wild1BringsBothKingsToBothMiddleFiles) {
    std::set<std::size_t> files;
    std::set<std::string> rules;
    for (unsigned seed = 0; seed < 30; ++seed) {
        std::mt19937 dice(seed);
        const auto setup = drawSetup(variantNamed("wild/1"), dice);
        const auto file = readFen(setup.fen)->rank(1).find('K');
        files.insert(file);
        EXPECT_EQ(setup.rules.engineName, file == 3 ? "kingond" : "chess");
    }
    EXPECT_EQ(files, (std::set<std::size_t>{3, 4}));
}

TEST(StartPositions, Wild2MirrorsAShuffleOfTheUsualPieces) {
    const Position position = startOf("wild/2");
    EXPECT_EQ(sorted(position.rank(1)), "BBKNNQRR");
    EXPECT_EQ(sorted(position.rank(8)), "bbknnqrr");
    for (std::size_t file = 0; file < 8; ++file) EXPECT_EQ(position.rank(1)[file] | 0x20, position.rank(8)[file]);
    EXPECT_EQ(position.castling, "-");
}

TEST(StartPositions, Wild3MirrorsRandomPieces) {
    const Position position = startOf("wild/3", 4);
    for (std::size_t file = 0; file < 8; ++file) EXPECT_EQ(position.rank(1)[file] | 0x20, position.rank(8)[file]);
    EXPECT_EQ(position.castling, "-");
}

TEST(StartPositions, Wild4BalancesBishopsByTheColourOfTheirSquares) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        const Position position = startOf("wild/4", seed);
        int difference = 0;
        for (std::size_t file = 0; file < 8; ++file) {
            if (position.rank(1)[file] == 'B') difference += file % 2 == 0 ? 100 : 1;
            if (position.rank(8)[file] == 'b') difference -= file % 2 == 0 ? 1 : 100;
        }
        EXPECT_EQ(difference, 0) << seed;
    }
}

TEST(StartPositions, Wild5PutsAllPawnsOneStepFromPromotion) {
    EXPECT_EQ(pawnsNearPromotion(), "RNBKQBNR/PPPPPPPP/8/8/8/8/pppppppp/rnbkqbnr w - - 0 1");
}

TEST(StartPositions, Wild8AdvancesThePawnsAnd8aPassesThem) {
    EXPECT_EQ(startOf("wild/8").rank(4), "PPPPPPPP");
    EXPECT_EQ(startOf("wild/8").rank(5), "pppppppp");
    EXPECT_EQ(startOf("wild/8a").rank(5), "PPPPPPPP");
    EXPECT_EQ(startOf("wild/8a").rank(4), "pppppppp");
}

TEST(StartPositions, FischersNumber518IsTheUsualStart) {
    EXPECT_EQ(fischerRandom(518), startFen);
    EXPECT_EQ(readFen(fischerRandom(0))->rank(1), "BBQNNRKR");
    EXPECT_EQ(readFen(fischerRandom(959))->rank(1), "RKRNNQBB");
}

TEST(StartPositions, AllFischersPositionsDiffer) {
    std::set<std::string> all;
    for (int number = 0; number < 960; ++number) {
        all.insert(fischerRandom(number));
        EXPECT_EQ(sorted(readFen(fischerRandom(number))->rank(1)), "BBKNNQRR") << number;
    }
    EXPECT_EQ(all.size(), 960U);
}

} // namespace
} // namespace practice
