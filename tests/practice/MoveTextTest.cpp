// Tests of move texts: typed, short and long forms.
#include "practice/chess/MoveText.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

constexpr const char* promotionFen = "3r1k2/4P3/8/8/8/8/8/4K3 w - - 0 1";
constexpr const char* castlingFen = "4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1";
constexpr const char* knightsFen = "4k3/8/8/8/8/5N2/8/1N2K3 w - - 0 1";

PositionFacts promotionFacts() {
    return {promotionFen, {"e7e8q", "e7e8r", "e7e8b", "e7e8n", "e7d8q", "e7d8r", "e7d8b", "e7d8n", "e1e2"}, false};
}

std::string read(const PositionFacts& facts, const std::string& typed, char promotion = 'q') {
    const TypedMove move = readMove(facts, typed, promotion);
    if (move.reading == MoveReading::Ambiguous) return "ambiguous";
    return move.reading == MoveReading::Legal ? move.move : "illegal";
}

TEST(MoveText, WordsAreToldFromMoves) {
    for (const char* move : {"e2e4", "e2-e4", "e4", "Nf3", "exd5", "Nbd2", "N1d2", "R1xa3", "O-O", "o-o-o", "0-0",
                             "e8=Q", "e7e8=q", "e7-e8=Q", "e8Q", "Qh4#", "Bb5+", "nf3"}) {
        EXPECT_TRUE(looksLikeMove(move)) << move;
    }
    for (const char* word :
         {"", "e", "e9", "i4", "games", "draw", "abort", "obs 4", "say e4", "e2e4e5", "=Q", "+", "x"}) {
        EXPECT_FALSE(looksLikeMove(word)) << word;
    }
}

TEST(MoveText, SquaresMayStandWithAndWithoutADash) {
    const PositionFacts facts{std::string(startFen), {"e2e4", "g1f3"}, false};
    EXPECT_EQ(read(facts, "e2e4"), "e2e4");
    EXPECT_EQ(read(facts, "e2-e4"), "e2e4");
    EXPECT_EQ(read(facts, "e4"), "e2e4");
    EXPECT_EQ(read(facts, "g1f3"), "g1f3");
    EXPECT_EQ(read(facts, "Ng1-f3"), "g1f3");
    EXPECT_EQ(read(facts, "nf3"), "g1f3");
    EXPECT_EQ(read(facts, "e2e5"), "illegal");
    EXPECT_EQ(read(facts, "f3"), "illegal");
}

TEST(MoveText, ASmallBIsTheFileAndNotTheBishop) {
    const PositionFacts facts{"4k3/8/8/8/8/2p5/1P6/2B1K3 w - - 0 1", {"b2c3", "c1b2", "c1e3"}, false};
    EXPECT_EQ(read(facts, "bxc3"), "b2c3");
    EXPECT_EQ(read(facts, "be3"), "illegal");
    EXPECT_EQ(read(facts, "Be3"), "c1e3");
}

TEST(MoveText, CastlingIsTypedWithLettersOrNoughts) {
    const PositionFacts facts{castlingFen, {"e1g1", "e1c1", "e1d1"}, false};
    EXPECT_EQ(read(facts, "O-O"), "e1g1");
    EXPECT_EQ(read(facts, "o-o-o"), "e1c1");
    EXPECT_EQ(read(facts, "0-0"), "e1g1");
    EXPECT_EQ(read(facts, "e1g1"), "e1g1");
    EXPECT_EQ(read(facts, "Kd1"), "e1d1");
}

TEST(MoveText, PromotionIsTypedInFourWays) {
    for (const char* typed : {"e7e8=r", "e7-e8=R", "e8=R", "e8=R+", "e7e8r"}) {
        EXPECT_EQ(read(promotionFacts(), typed), "e7e8r") << typed;
    }
    EXPECT_EQ(read(promotionFacts(), "exd8=N"), "e7d8n");
}

TEST(MoveText, PromotionWithoutAPieceTakesTheChosenOne) {
    EXPECT_EQ(read(promotionFacts(), "e7e8"), "e7e8q");
    EXPECT_EQ(read(promotionFacts(), "e8", 'n'), "e7e8n");
    EXPECT_EQ(read(promotionFacts(), "exd8", 'b'), "e7d8b");
}

TEST(MoveText, AnOrdinaryMoveCannotPromote) {
    EXPECT_EQ(read({std::string(startFen), {"e2e4"}, false}, "e2e4=q"), "illegal");
}

TEST(MoveText, AMoveThatTwoPiecesCanMakeIsAmbiguous) {
    const PositionFacts facts{knightsFen, {"b1d2", "f3d2", "b1c3"}, false};
    EXPECT_EQ(read(facts, "Nd2"), "ambiguous");
    EXPECT_EQ(read(facts, "Nbd2"), "b1d2");
    EXPECT_EQ(read(facts, "N3d2"), "f3d2");
    EXPECT_EQ(read(facts, "Nc3"), "b1c3");
}

TEST(MoveText, NothingIsReadAgainstABrokenPosition) { EXPECT_EQ(read({"", {"e2e4"}, false}, "e4"), "illegal"); }

TEST(MoveText, ShortFormNamesThePieceAndCaptures) {
    const auto start = readFen(startFen).value();
    EXPECT_EQ(shortForm(start, {"e2e4"}, "e2e4"), "e4");
    EXPECT_EQ(shortForm(start, {"g1f3"}, "g1f3"), "Nf3");
    const auto taking = readFen("3r1k2/4P3/8/8/8/8/3N4/4K3 w - - 0 1").value();
    EXPECT_EQ(shortForm(taking, {"e7d8q"}, "e7d8q"), "exd8=Q");
    EXPECT_EQ(shortForm(taking, {"e7e8n"}, "e7e8n"), "e8=N");
}

TEST(MoveText, ShortFormOfEnPassantIsACapture) {
    const auto position = readFen("4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2").value();
    EXPECT_EQ(shortForm(position, {"e5d6"}, "e5d6"), "exd6");
}

TEST(MoveText, ShortFormNamesTheOriginOnlyAsFarAsNeeded) {
    const auto files = readFen(knightsFen).value();
    EXPECT_EQ(shortForm(files, {"b1d2", "f3d2"}, "b1d2"), "Nbd2");
    const auto ranks = readFen("4k3/8/8/R7/8/8/8/R3K3 w - - 0 1").value();
    EXPECT_EQ(shortForm(ranks, {"a1a3", "a5a3"}, "a1a3"), "R1a3");
    const auto three = readFen("k7/8/8/8/Q6Q/8/8/K6Q w - - 0 1").value();
    EXPECT_EQ(shortForm(three, {"h4e1", "a4e1", "h1e1"}, "h4e1"), "Qh4e1");
}

TEST(MoveText, APinnedRivalNeedsNoMention) {
    const auto position = readFen(knightsFen).value();
    EXPECT_EQ(shortForm(position, {"b1d2"}, "b1d2"), "Nd2");
}

TEST(MoveText, VerboseFormHasPieceAndSquares) {
    const auto start = readFen(startFen).value();
    EXPECT_EQ(verboseForm(start, "e2e4"), "P/e2-e4");
    EXPECT_EQ(verboseForm(start, "g1f3"), "N/g1-f3");
    EXPECT_EQ(verboseForm(readFen(promotionFen).value(), "e7e8q"), "P/e7-e8=Q");
}

TEST(MoveText, CastlingIsSmallInTheLongFormAndLargeInTheShort) {
    const auto position = readFen(castlingFen).value();
    EXPECT_EQ(verboseForm(position, "e1g1"), "o-o");
    EXPECT_EQ(verboseForm(position, "e1c1"), "o-o-o");
    EXPECT_EQ(shortForm(position, {"e1g1"}, "e1g1"), "O-O");
    EXPECT_EQ(shortForm(position, {"e1c1"}, "e1c1"), "O-O-O");
}

TEST(MoveText, OnlyAPawnsDoubleStepHasAFile) {
    const auto start = readFen(startFen).value();
    EXPECT_EQ(doublePushFile(start, "e2e4"), 4);
    EXPECT_EQ(doublePushFile(start, "a2a3"), -1);
    EXPECT_EQ(doublePushFile(start, "g1f3"), -1);
}

TEST(MoveText, ADropIsTypedWithAnAtSign) {
    const PositionFacts facts{"4k3/8/8/8/8/8/8/4K3[Qp] w - - 0 1", {"e1e2", "Q@e4", "Q@d4"}};
    EXPECT_EQ(read(facts, "Q@e4"), "Q@e4");
    EXPECT_EQ(read(facts, "q@d4"), "Q@d4");
    EXPECT_EQ(read(facts, "Q@h8"), "illegal");
    EXPECT_EQ(read(facts, "P@e4"), "illegal");
    EXPECT_EQ(read(facts, "Qe4"), "illegal");
    EXPECT_TRUE(looksLikeMove("P@e4"));
    EXPECT_FALSE(looksLikeMove("K@e4"));
    EXPECT_FALSE(looksLikeMove("Q@e9"));
}

TEST(MoveText, ADropHasNoFromSquareInTheLongForm) {
    const Position position = readFen("4k3/8/8/8/8/8/8/4K3[Qp] w - - 0 1").value();
    EXPECT_EQ(verboseForm(position, "Q@e4"), "Q/@@-e4");
    EXPECT_EQ(shortForm(position, {"Q@e4"}, "Q@e4"), "Q@e4");
    EXPECT_EQ(doublePushFile(position, "P@e4"), -1);
}

TEST(MoveText, CastlingByTakingTheRookIsTypedInAllForms) {
    const PositionFacts facts{"1r3k1r/8/8/8/8/8/8/1R3K1R w HBhb - 0 1", {"f1h1", "f1b1", "f1g1", "f1e1", "h1h8"}};
    EXPECT_EQ(read(facts, "O-O"), "f1h1");
    EXPECT_EQ(read(facts, "O-O-O"), "f1b1");
    EXPECT_EQ(read(facts, "f1h1"), "f1h1");
    EXPECT_EQ(read(facts, "f1-c1"), "f1b1") << "the king's own way";
    EXPECT_EQ(read(facts, "f1g1"), "f1g1") << "one step is a plain move";
    const Position position = readFen(facts.fen).value();
    EXPECT_EQ(shortForm(position, facts.legal, "f1h1"), "O-O");
    EXPECT_EQ(shortForm(position, facts.legal, "f1b1"), "O-O-O");
    EXPECT_EQ(verboseForm(position, "f1h1"), "o-o");
    EXPECT_EQ(shortForm(position, facts.legal, "f1e1"), "Ke1");
}

TEST(MoveText, AKingOnTheDFileHasHisShortSideOnTheLeft) {
    const PositionFacts facts{"3k4/8/8/8/8/8/8/R2K3R w KQ - 0 1", {"d1b1", "d1f1", "d1c1"}};
    EXPECT_EQ(read(facts, "O-O"), "d1b1");
    EXPECT_EQ(read(facts, "O-O-O"), "d1f1");
    EXPECT_EQ(shortForm(readFen(facts.fen).value(), facts.legal, "d1b1"), "O-O");
}

TEST(MoveText, WherePiecesAreLostAPawnMayBecomeAKing) {
    const PositionFacts facts{"8/4P3/8/8/8/8/8/8 w - - 0 1", {"e7e8q", "e7e8k"}};
    EXPECT_EQ(read(facts, "e8=K"), "e7e8k");
    EXPECT_EQ(read(facts, "e8"), "e7e8q");
}

} // namespace
} // namespace practice
