// Boards that close among others at any moment: while one opens, while positions arrive, all in turn, with the program.
#include "session/ManyBoardsRig.h"

#include "common/modChess.h"
#include "platform/ChosenEntry.h"
#include "session/RunningProgram.h"

#include <QAction>
#include <QTimer>

#include <algorithm>
#include <array>

#include <csignal>

namespace {

class BoardsClosing : public ManyBoards {
protected:
    bool gotUnob(int number) const {
        return rig.server.received.find("unob " + std::to_string(number) + "\n") != std::string::npos;
    }
    // A server sends what it has until it hears "unob"; what was under way then may open the board once more.
    void tellOn() {
        for (int turn = 0; turn < 4; ++turn) {
            WatchedGame& next = games[static_cast<std::size_t>(dice(static_cast<int>(games.size())))];
            if (!gotUnob(next.number())) rig.server.sendLater(next.next());
        }
    }
    void closeOne() {
        const auto boards = rig.boards();
        if (!boards.empty()) boards[static_cast<std::size_t>(dice(static_cast<int>(boards.size())))]->close();
    }
};

class BoardsClosingInTurn : public BoardsClosing, public testing::WithParamInterface<unsigned> {};

// Which boards close, seen from the one that was updated.
enum class Closing { Itself, TheOldest, TheNewest, AllOthers, All };

class BoardsClosingInAPump : public BoardsClosing, public testing::WithParamInterface<Closing> {
protected:
    void closeFrom(const QPointer<frmChessBoard>& own) {
        std::vector<QPointer<frmChessBoard>> all;
        for (frmChessBoard* board : rig.boards()) all.emplace_back(board);
        const std::size_t last = all.empty() ? 0 : all.size() - 1;
        for (std::size_t place = 0; place < all.size(); ++place) {
            const bool itself = all[place] == own;
            const bool chosen = GetParam() == Closing::Itself      ? itself
                                : GetParam() == Closing::TheOldest ? place == 0
                                : GetParam() == Closing::TheNewest ? place == last
                                                                   : !itself || GetParam() == Closing::All;
            if (chosen) close(all[place]);
        }
    }
    // One idle board and three games that begin at once; the boards close behind the update of that number.
    void openWithClosingAt(int moment) {
        for (frmChessBoard* board : rig.boards()) board->close();
        chooseEntry(*rig.client->menus.mnuBoard);
        ASSERT_EQ(rig.boards().size(), 1U);
        games.clear();
        for (int number = 1; number <= 3; ++number) games.push_back(gameOf(number, std::to_string(moment) + "."));
        updates = 0;
        behindUpdate = [this, moment](int number, const QPointer<frmChessBoard>& own) {
            if (number == moment) closeFrom(own);
        };
        read(nextOfAll());
        behindUpdate = nullptr;
    }
};

class ProgramClosingInAPump : public BoardsClosing, public testing::WithParamInterface<int> {};

std::string nameOf(const testing::TestParamInfo<Closing>& info) {
    static const std::array names{"Itself", "TheOldest", "TheNewest", "AllOthers", "All"};
    return names.at(static_cast<std::size_t>(info.param));
}

} // namespace

TEST_P(BoardsClosingInTurn, InAnyOrderWhileUpdatesStreamLeavesNone) {
    random.seed(GetParam());
    openAll();
    QTimer feeding;
    QTimer closing;
    QObject::connect(&feeding, &QTimer::timeout, &feeding, [this] { tellOn(); });
    QObject::connect(&closing, &QTimer::timeout, &closing, [this] { closeOne(); });
    feeding.start(1);
    closing.start(7);
    EXPECT_TRUE(waitUntil(
        [this] {
            return rig.boards().empty() &&
                   std::ranges::all_of(games, [this](const WatchedGame& each) { return gotUnob(each.number()); });
        },
        PatienceMs));
    feeding.stop();
    closing.stop();
    read("");
    while (!rig.boards().empty()) closeOne(); // opened by what was still under way
    games.clear();
    openAll(3);
    expectFaces();
}

INSTANTIATE_TEST_SUITE_P(Seed, BoardsClosingInTurn, testing::Values(1U, 2U, 3U));

TEST_F(BoardsClosing, SomeAtRandomMomentsOfOneDrainTheOthersMissNothing) {
    openAll();
    std::vector<int> closed;
    behindUpdate = [&](int number, const QPointer<frmChessBoard>&) {
        const int victim = dice(Forty) + 1;
        if (number % 5 != 0 || !rig.boardOf(victim)) return;
        closed.push_back(victim);
        rig.boardOf(victim)->close();
    };
    updates = 0;
    read(nextOfAll());
    behindUpdate = nullptr;
    EXPECT_GT(closed.size(), 3U);
    const auto wasClosed = [&](const WatchedGame& each) { return std::ranges::count(closed, each.number()) > 0; };
    for (const WatchedGame& each : games) {
        if (!wasClosed(each)) continue;
        EXPECT_TRUE(serverGot("unob " + std::to_string(each.number())));
    }
    std::vector<WatchedGame> kept;
    std::ranges::remove_copy_if(games, std::back_inserter(kept), wasClosed);
    games.swap(kept);
    expectFaces();
    read(nextOfAll());
    expectFaces();
    expectMoves();
}

// At each moment in turn at which events run while one board takes a game and two more open.
TEST_P(BoardsClosingInAPump, AtEachMomentOfOpeningAllGamesAreThereWithTheirNextUpdate) {
    int moment = 1;
    do {
        SCOPED_TRACE(moment);
        openWithClosingAt(moment);
        read(nextOfAll());
        expectFaces();
        EXPECT_EQ(rig.fault, std::nullopt);
    } while (!HasFailure() && ++moment <= updates);
    EXPECT_GT(moment, 10) << "there are so many moments at least";
}

INSTANTIATE_TEST_SUITE_P(Of, BoardsClosingInAPump,
                         testing::Values(Closing::Itself, Closing::TheOldest, Closing::TheNewest, Closing::AllOthers,
                                         Closing::All),
                         nameOf);

TEST_P(ProgramClosingInAPump, OpensNoBoardFromTheRestOfTheBatch) {
    behindUpdate = [this](int number, const QPointer<frmChessBoard>&) {
        if (number == GetParam()) rig.client->close();
    };
    for (int number = 1; number <= 4; ++number) games.push_back(gameOf(number, "first"));
    updates = 0;
    rig.server.send(nextOfAll() + "\n\r<b1> game 4 white [P] black []\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return modChess.AppClosing; }, PatienceMs));
    EXPECT_TRUE(waitUntil([this] { return !rig.client->session.pipeline.ParseBusy; }));
    EXPECT_TRUE(rig.boards().empty());
    EXPECT_EQ(rig.fault, std::nullopt) << "holdings of a game whose board is gone end nothing any more";
    EXPECT_EQ(rig.values->texts.count({"Client", "Registry_OK"}), 1U) << "the settings are written";
}

INSTANTIATE_TEST_SUITE_P(Number, ProgramClosingInAPump, testing::Range(1, 20));

TEST_F(BoardsClosing, WithTheProgramAllFortyLeaveTheirGamesAndTheirSettings) {
    openAll();
    read(nextOfAll());
    rig.server.sendLater(nextOfAll()); // what is under way is lost, and does no harm
    rig.client->close();
    EXPECT_TRUE(rig.boards().empty());
    for (const WatchedGame& each : games) EXPECT_TRUE(serverGot("unob " + std::to_string(each.number())));
    EXPECT_EQ(rig.values->texts.count({"Board", "Left"}), 1U);
    runFor(50);
    EXPECT_TRUE(rig.boards().empty());
}

// The menu's board runs the loop while it loads, and is no free board before it is ready.
TEST_F(BoardsClosing, ABoardOpenedByHandLosesNoPositionThatArrivesMeanwhile) {
    for (frmChessBoard* board : rig.boards()) board->close();
    games.push_back(gameOf(5, "first"));
    bool arrived = false;
    behindUpdate = [&](int number, const QPointer<frmChessBoard>&) {
        if (number != 1) return;
        rig.server.send(games.front().next());
        arrived = waitUntil([this] { return !rig.updates.empty(); });
    };
    updates = 0;
    QTimer hang; // ends what would never come back
    QObject::connect(&hang, &QTimer::timeout, &hang, [this] { rig.client->close(); });
    hang.start(PatienceMs / 10);
    chooseEntry(*rig.client->menus.mnuBoard);
    hang.stop();
    EXPECT_TRUE(arrived);
    EXPECT_FALSE(modChess.AppClosing) << "the menu's entry came back by itself";
    expectFaces();
    read(nextOfAll());
    expectFaces();
}

// The built program

TEST(ProgramWithFortyBoards, EndsInOrderBySignalWhileTheyOpenAndWhenAllStand) {
    for (const bool standing : {false, true}) {
        RunningProgram program;
        ASSERT_TRUE(program.start());
        std::string text;
        for (int number = 1; number <= Forty; ++number) text += gameOf(number, "of").next();
        program.server.sendLater(text + "\n\r" + std::string(30, '_') + "\n\rfics% ");
        runFor(standing ? 0 : 200);
        const auto& got = program.server.received;
        const auto allRead = [&] { return got.find("Set Style 12") != got.npos; };
        EXPECT_TRUE(!standing || waitUntil(allRead, PatienceMs));
        program.signal(SIGTERM);
        ASSERT_TRUE(program.ended());
        EXPECT_EQ(program.process.exitCode(), 0);
        EXPECT_EQ(program.errorLines(), "");
        EXPECT_NE(program.settingsText().find("Registry_OK=Yes"), std::string::npos);
    }
}
