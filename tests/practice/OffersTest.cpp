// Tests of the table of open offers.
#include "practice/games/Offers.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

PendingOffer offerOf(OfferKind kind, const std::string& from, const std::string& to) {
    PendingOffer offer;
    offer.kind = kind;
    offer.from = from;
    offer.to = to;
    return offer;
}

TEST(Offers, ANewOfferTakesTheLowestFreeNumber) {
    OfferTable table;
    EXPECT_EQ(table.post(offerOf(OfferKind::Match, "Ada", "Bert")), 1);
    EXPECT_EQ(table.post(offerOf(OfferKind::Match, "Ada", "Cora")), 2);
    table.open.erase(1);
    EXPECT_EQ(table.post(offerOf(OfferKind::Draw, "Bert", "Ada")), 1);
    EXPECT_EQ(table.madeBy("Ada"), std::vector<int>{2});
    EXPECT_EQ(table.madeTo("Ada"), std::vector<int>{1});
}

TEST(Offers, ASerialFindsItsOfferOnly) {
    OfferTable table;
    table.post(offerOf(OfferKind::Match, "Ada", "Bert"));
    const auto serial = table.open.at(1).serial;
    EXPECT_EQ(table.numberOf(serial), 1);
    table.open.erase(1);
    table.post(offerOf(OfferKind::Match, "Ada", "Bert"));
    EXPECT_EQ(table.numberOf(serial), 0);
}

TEST(Offers, NobodyFillsTheTable) {
    OfferTable table;
    for (std::size_t i = 0; i < OfferTable::limit; ++i) {
        EXPECT_NE(table.post(offerOf(OfferKind::Match, "Ada", "Bert")), 0);
    }
    EXPECT_EQ(table.post(offerOf(OfferKind::Match, "Ada", "Bert")), 0);
    EXPECT_NE(table.post(offerOf(OfferKind::Match, "Bert", "Ada")), 0);
}

TEST(Offers, TheEndOfAGameLeavesChallenges) {
    OfferTable table;
    table.post(offerOf(OfferKind::Draw, "Ada", "Bert"));
    table.post(offerOf(OfferKind::Abort, "Bert", "Ada"));
    table.post(offerOf(OfferKind::Match, "Cora", "Bert"));
    table.dropWithinGame("Ada", "Bert");
    EXPECT_EQ(table.open.size(), 1U);
    EXPECT_EQ(table.find(OfferKind::Match, "Cora", "Bert"), 3);
}

TEST(Offers, AMoveDropsWhatItsMakerGotAndNotWhatHeMade) {
    OfferTable table;
    table.post(offerOf(OfferKind::Draw, "Ada", "Bert"));
    table.post(offerOf(OfferKind::Abort, "Bert", "Ada"));
    table.dropForMover("Bert", "Ada");
    EXPECT_EQ(table.find(OfferKind::Draw, "Ada", "Bert"), 0);
    EXPECT_EQ(table.find(OfferKind::Abort, "Bert", "Ada"), 2);
}

TEST(Offers, EachKindHasItsSentence) {
    PendingOffer offer = offerOf(OfferKind::Takeback, "Ada", "Bert");
    offer.halfmoves = 2;
    EXPECT_EQ(offerSentence(offer, ""), "Ada is offering to takeback the last 2 half-move(s).");
    offer.kind = OfferKind::Draw;
    EXPECT_EQ(offerSentence(offer, ""), "Ada is offering a draw.");
    offer.kind = OfferKind::Match;
    EXPECT_EQ(offerSentence(offer, "TERMS"), "Ada is offering a challenge: TERMS");
}

} // namespace
} // namespace practice
