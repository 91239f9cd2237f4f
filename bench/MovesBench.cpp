// Benchmarks the answer to "moves": 200 moves from their bytes to the filled and painted list of a joined game.
#include "BenchBoard.h"

#include "session/QuietSurface.h"
#include "session/Session.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <string_view>

namespace {

constexpr int DesignSquare = 54; // pixels
constexpr int Moves = 200;       // the last one White's alone

std::string padded(std::string_view text) { return std::string(text) + std::string(8 - text.size(), ' '); }

// An opening, and then pieces that go there and back.
std::string block(int game) {
    static constexpr std::array<std::string_view, 10> Opening{"e4", "e5",   "Nf3",  "Nc6", "Bb5",
                                                              "a6", "Bxc6", "dxc6", "O-O", "f6"};
    static constexpr std::array<std::string_view, 4> Rest{"Nc3", "Ne7", "Nb1", "Ng8"};
    const auto move = [](std::size_t half) {
        return padded(half < Opening.size() ? Opening[half] : Rest[(half + 2) % 4]);
    };
    std::string text = "\n\rMovelist for game " + std::to_string(game) +
                       ":\n\r\n\rquillfen (1500) vs. Marrowdale (1600) --- Thu Oct 14, 20:36 PDT 2010\n\r"
                       "Rated blitz match, initial time: 5 minutes, increment: 12 seconds.\n\r\n\r"
                       "Move  quillfen           Marrowdale\n\r----  ----------------   ----------------\n\r";
    for (int number = 1; number <= Moves; ++number) {
        const auto half = static_cast<std::size_t>(2 * (number - 1));
        const std::string digits = std::to_string(number);
        text += std::string(3 - digits.size(), ' ') + digits + ".  " + move(half) + "(0:00)";
        if (number < Moves) text += "     " + move(half + 1) + "(0:00)";
        text += "  \n\r";
    }
    return text + "      {Still in progress} *\n\r\n\rfics% ";
}

void joinedGame(benchmark::State& state) {
    BenchBoard joined(DesignSquare);
    Game& game = joined.board.game;
    const std::string text = block(game.gameIndex);
    std::string waiting;
    SessionSurface surface = quietSurface();
    surface.socket.getData = [&waiting] { return std::exchange(waiting, {}); };
    Session session(std::move(surface));
    modChess.gPrompt = "fics% ";
    for (auto _ : state) {
        state.PauseTiming();
        game.zGridSetup();
        QCoreApplication::processEvents();
        session.zGetMoves(0, std::to_string(game.gameIndex));
        modChess.MovesTarget = game.gameIndex;
        waiting = text;
        state.ResumeTiming();
        session.zDataArrival();
        QCoreApplication::processEvents(); // paints
    }
    if (game.LastRow != Moves || game.PositionStore.plies[2 * Moves - 1][28] != 6) state.SkipWithError("no list came");
}
BENCHMARK(joinedGame)->Unit(benchmark::kMicrosecond);

} // namespace
