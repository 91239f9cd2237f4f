// Benchmarks walking through a game: one step on a board with its painting, and all moves of a long game at once.
#include "BenchBoard.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <array>
#include <string_view>

namespace {

constexpr int DesignSquare = 54; // pixels
constexpr int HalfMoves = 399;   // as many as a board makes from texts: the 200th move of white is the last

// An opening with captures, castling and checks, and then pieces that go there and back.
void writeGame(Game& game) {
    static constexpr std::array<std::string_view, 20> Opening{"e4",   "e5",   "Nf3",  "Nc6", "Bb5",  "a6",   "Bxc6",
                                                              "dxc6", "O-O",  "f6",   "d4",  "exd4", "Nxd4", "c5",
                                                              "Nb3",  "Qxd1", "Rxd1", "Bg4", "f3",   "Be6"};
    static constexpr std::array<std::string_view, 4> Rest{"Nc3", "Ne7", "Nb1", "Ng8"};
    for (std::size_t half = 0; half < HalfMoves; ++half) {
        game.MoveText[static_cast<long>(half / 2 + 1)][static_cast<long>(half % 2)] =
            half < Opening.size() ? Opening[half] : Rest[half % 4];
    }
    game.LastRow = LastMoveRow;
}

struct LongGame : BenchBoard {
    Game& game = board.game;

    LongGame() : BenchBoard(DesignSquare) {
        game.zEndParms();
        writeGame(game);
        game.zStart();
    }
};

// From the start to the end and again.
void stepForward(benchmark::State& state) {
    LongGame long_;
    QCoreApplication::processEvents();
    int ply = 0;
    for (auto _ : state) {
        if (ply == HalfMoves) {
            state.PauseTiming();
            long_.game.zReposition(-2);
            QCoreApplication::processEvents();
            ply = 0;
            state.ResumeTiming();
        }
        long_.game.zReposition(1);
        QCoreApplication::processEvents(); // paints
        ++ply;
    }
    if (long_.game.zDevMove() != ply) state.SkipWithError("a step was not made");
}
BENCHMARK(stepForward);

void stepBack(benchmark::State& state) {
    LongGame long_;
    int ply = 0;
    for (auto _ : state) {
        if (ply == 0) {
            state.PauseTiming();
            long_.game.LastRow = 0;
            long_.game.zEnd();
            QCoreApplication::processEvents();
            ply = HalfMoves;
            state.ResumeTiming();
        }
        long_.game.zReposition(-1);
        QCoreApplication::processEvents(); // paints
        --ply;
    }
    if (long_.game.zDevMove() != ply) state.SkipWithError("a step was not taken back");
}
BENCHMARK(stepBack);

// All moves from the start, without the loading of the start position.
void zEnd(benchmark::State& state) {
    LongGame long_;
    long_.game.LastRow = 0;
    for (auto _ : state) {
        state.PauseTiming();
        long_.game.zStart();
        state.ResumeTiming();
        long_.game.zEnd();
    }
    if (long_.game.zDevMove() != HalfMoves) state.SkipWithError("not all moves were made");
}
BENCHMARK(zEnd)->Unit(benchmark::kMicrosecond);

} // namespace
