// Boards that close among others at any moment: as one opens, as positions arrive, all in turn, with the program.
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

// Which boards close, seen from the one whose game is next.
enum class Closing { Itself, TheOldest, TheNewest, AllOthers, All };

class BoardsClosingAtAMoment : public BoardsClosing, public testing::WithParamInterface<Closing> {
protected:
    void closeFrom(int game) {
        const frmChessBoard* own = rig.boardOf(game);
        const std::vector<frmChessBoard*> all = rig.boards();
        for (std::size_t place = 0; place < all.size(); ++place) {
            const bool itself = all[place] == own;
            const bool chosen = GetParam() == Closing::Itself      ? itself
                                : GetParam() == Closing::TheOldest ? place == 0
                                : GetParam() == Closing::TheNewest ? place == all.size() - 1
                                                                   : !itself || GetParam() == Closing::All;
            if (chosen) all[place]->close();
        }
    }
    // One idle board, and three games that begin and go on; the boards close at the event of that number.
    void openWithClosingAt(int moment) {
        for (frmChessBoard* board : rig.boards()) board->close();
        chooseEntry(*rig.client->menus.mnuBoard);
        ASSERT_EQ(rig.boards().size(), 1U);
        QCoreApplication::processEvents();
        games.clear();
        for (int number = 1; number <= 3; ++number) games.push_back(gameOf(number, std::to_string(moment) + "."));
        moments = 0;
        atEvent = [this, moment](int number, int game) {
            if (number == moment) closeFrom(game);
        };
        for (int round = 0; round < 3; ++round) read(nextOfAll());
        atEvent = nullptr;
    }
};

class ProgramClosingAtAMoment : public BoardsClosing, public testing::WithParamInterface<int> {};

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

TEST_F(BoardsClosing, SomeAtRandomMomentsOfManyUpdatesTheOthersMissNothing) {
    openAll();
    std::vector<int> closed;
    atEvent = [&](int number, int) {
        const int victim = dice(Forty) + 1;
        if (number % 5 != 0 || !rig.boardOf(victim)) return;
        closed.push_back(victim);
        rig.boardOf(victim)->close();
    };
    moments = 0;
    read(nextOfAll());
    atEvent = nullptr;
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

// At each event in turn that comes up while one board takes a game and two more open.
TEST_P(BoardsClosingAtAMoment, OfOpeningAllGamesAreThereWithTheirNextUpdate) {
    int moment = 1;
    do {
        SCOPED_TRACE(moment);
        openWithClosingAt(moment);
        read(nextOfAll());
        expectFaces();
        EXPECT_EQ(rig.fault, std::nullopt);
    } while (!HasFailure() && ++moment <= moments);
    EXPECT_GT(moment, 10) << "there are so many moments at least";
}

INSTANTIATE_TEST_SUITE_P(Of, BoardsClosingAtAMoment,
                         testing::Values(Closing::Itself, Closing::TheOldest, Closing::TheNewest, Closing::AllOthers,
                                         Closing::All),
                         nameOf);

// The batch is read to its end first.
TEST_P(ProgramClosingAtAMoment, OfABatchThatOpensBoardsClosesThemAll) {
    atEvent = [this](int number, int) {
        if (number == GetParam()) rig.client->close();
    };
    for (int number = 1; number <= 4; ++number) games.push_back(gameOf(number, "first"));
    moments = 0;
    rig.server.send(nextOfAll() + "\n\r<b1> game 4 white [P] black []\n\rfics% ");
    ASSERT_TRUE(waitUntil([] { return modChess.AppClosing; }, PatienceMs));
    EXPECT_TRUE(waitUntil([this] { return !rig.client->session.pipeline.ParseBusy; }));
    EXPECT_TRUE(rig.boards().empty());
    EXPECT_EQ(rig.updates.size(), 4U);
    EXPECT_EQ(rig.fault, std::nullopt);
    EXPECT_EQ(rig.values->texts.count({"Client", "Registry_OK"}), 1U) << "the settings are written";
}

INSTANTIATE_TEST_SUITE_P(Number, ProgramClosingAtAMoment, testing::Range(1, 8));

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

TEST_F(BoardsClosing, ABoardOpenedByHandRunsNothingAndLosesNoPositionThatArrivesMeanwhile) {
    for (frmChessBoard* board : rig.boards()) board->close();
    games.push_back(gameOf(5, "first"));
    rig.inDrain = [&](int game) {
        if (game == 0) rig.server.send(games.front().next());
    };
    rig.client->session.routing.hooks.zNewBoard(); // what the entry does
    EXPECT_EQ(rig.boards().size(), 1U);
    EXPECT_TRUE(rig.updates.empty());
    EXPECT_TRUE(waitUntil([this] { return !rig.updates.empty(); }));
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
