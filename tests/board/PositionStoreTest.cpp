// The store of positions: its limits, and fetching a position back.
#include "board/BoardRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

FaultKind kindOfFault(const std::function<void()>& action) {
    try {
        action();
    } catch (const Fault& fault) {
        return fault.kind();
    }
    ADD_FAILURE() << "no fault";
    return FaultKind::File;
}

} // namespace

TEST(PositionStore, Ply400IsStoredAndPly401Faults) {
    BoardRig rig;
    rig.game.Board[63] = -6;
    rig.game.zStorePos(400);
    EXPECT_EQ(rig.game.PositionStore.plies[400][63], -6);
    EXPECT_EQ(kindOfFault([&] { rig.game.zStorePos(401); }), FaultKind::Subscript);
    EXPECT_EQ(kindOfFault([&] { rig.game.zStorePos(-1); }), FaultKind::Subscript);
}

TEST(PositionStore, HoldsSquaresZeroTo63AndNotTheHand) {
    BoardRig rig;
    for (int square = 0; square < 64; ++square) rig.game.Board[square] = static_cast<std::int16_t>(square - 32);
    rig.game.Board[64] = 5;
    rig.game.zStorePos(3);
    for (int square = 0; square < 64; ++square) EXPECT_EQ(rig.game.PositionStore.plies[3][square], square - 32);
    rig.game.zGetPos(3, true, false);
    EXPECT_EQ(rig.game.Board[64], 5);
}

TEST(PositionStore, ZGetPosTouchesOnlyTheSquaresThatDiffer) {
    BoardRig rig;
    rig.game.Board[12] = 0;
    rig.game.Board[28] = 6;
    rig.game.zGetPos(0, false, true);
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"draw 12 0", "draw 28 0"}));
    EXPECT_EQ(rig.game.Board[12], 6);
    EXPECT_EQ(rig.game.Board[28], 0);
}

TEST(PositionStore, ZGetPosThoroughPaintsAllSquares) {
    BoardRig rig;
    rig.game.zGetPos(0, true, true);
    EXPECT_EQ(rig.effects.size(), 64U);
}

TEST(PositionStore, ZGetPosPaintsNothingUnlessAsked) {
    BoardRig rig;
    rig.game.Board[12] = 0;
    rig.game.zGetPos(0, true, false);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.game.Board[12], 6);
}

TEST(PositionStore, ZGetPosPast400Faults) {
    BoardRig rig;
    EXPECT_EQ(kindOfFault([&] { rig.game.zGetPos(401, false, true); }), FaultKind::Subscript);
}
