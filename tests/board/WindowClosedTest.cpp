// The window may close while a routine of the game lets the message loop run.
#include "board/BoardRig.h"

#include <gtest/gtest.h>

namespace {

using Routine = bool (*)(Game&);

struct NamedRoutine {
    const char* name;
    Routine run;
};

void PrintTo(const NamedRoutine& routine, std::ostream* out) { *out << routine.name; }

// A board on which each routine passes every pump it has.
struct ClosingRig : BoardRig {
    int pumps = 0;
    void closeAtPump(int n, bool destroy) {
        game.surface.pump = [this, n, destroy] {
            if (++pumps != n) return;
            effects.clear();
            if (destroy) {
                owned.reset();
            } else {
                game.windowClosed();
            }
        };
    }
};

class ClosedWhilePumping : public testing::TestWithParam<NamedRoutine> {};

} // namespace

TEST_P(ClosedWhilePumping, TheRoutineEndsAtOnceAndTouchesNothingMore) {
    for (const bool destroy : {false, true}) {
        for (int at = 1;; ++at) {
            ClosingRig rig;
            rig.game.Style12Record = recordOf({.flip = 1});
            modChess.NewGameFlag = true;
            rig.closeAtPump(at, destroy);
            const bool open = GetParam().run(rig.game);
            if (rig.pumps < at) {
                EXPECT_TRUE(open);
                EXPECT_GT(at, 1) << "the routine never pumped";
                break;
            }
            EXPECT_FALSE(open) << "pump " << at;
            EXPECT_TRUE(rig.effects.empty()) << "pump " << at << ": " << rig.effects.front();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryRoutine, ClosedWhilePumping,
                         testing::Values(NamedRoutine{"zSetPosition", [](Game& g) { return g.zSetPosition(false); }},
                                         NamedRoutine{"init", [](Game& g) { return g.zSetPosition(true); }},
                                         NamedRoutine{"zReceiveMove", [](Game& g) { return g.zReceiveMove(0); }},
                                         NamedRoutine{"zLoadPosition",
                                                      [](Game& g) { return g.zLoadPosition(FixedStartLine, false); }},
                                         NamedRoutine{"finishLoad", [](Game& g) { return g.finishLoad(); }},
                                         NamedRoutine{"zExitMove", [](Game& g) { return g.zExitMove(); }},
                                         NamedRoutine{"zUpdate", [](Game& g) { return g.zUpdate(); }},
                                         NamedRoutine{"zBoardSetup", [](Game& g) { return g.zBoardSetup(true); }},
                                         NamedRoutine{"mnuInvert", [](Game& g) { return g.mnuInvert(); }},
                                         NamedRoutine{"mnuClean", [](Game& g) { return g.mnuClean(); }},
                                         NamedRoutine{"mnuNew", [](Game& g) { return g.mnuNew(); }}),
                         [](const auto& routine) { return std::string(routine.param.name); });

TEST(WindowClosed, APreMoveThatClosesTheWindowEndsTheUpdate) {
    BoardRig rig;
    rig.open();
    rig.game.PreMoveSet = true;
    rig.game.Dragging = true;
    rig.game.surface.zSqFinish = [&rig](int) {
        rig.effects.clear();
        rig.owned.reset();
    };
    EXPECT_FALSE(rig.game.zSetPosition(false));
    EXPECT_TRUE(rig.effects.empty());
}

TEST(WindowClosed, AGameIsOpenUntilItsWindowCloses) {
    BoardRig rig;
    EXPECT_TRUE(rig.game.isOpen());
    rig.game.windowClosed();
    EXPECT_FALSE(rig.game.isOpen());
}
