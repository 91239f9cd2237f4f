// Benchmarks reading a game file: 99 games of 80 moves up to the chooser, and one of them onto a board.
#include "BenchBoard.h"
#include "platform/OpenWindows.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <array>
#include <fstream>
#include <string>
#include <string_view>

namespace {

constexpr int DesignSquare = 54; // pixels
constexpr int Games = 99;
constexpr int Moves = 80;

// An opening with captures and castling, and then pieces that go there and back.
std::string gameText() {
    static constexpr std::array<std::string_view, 20> Opening{"e4",   "e5",   "Nf3",  "Nc6", "Bb5",  "a6",   "Bxc6",
                                                              "dxc6", "O-O",  "f6",   "d4",  "exd4", "Nxd4", "c5",
                                                              "Nb3",  "Qxd1", "Rxd1", "Bg4", "f3",   "Be6"};
    static constexpr std::array<std::string_view, 4> Rest{"Nc3", "Ne7", "Nb1", "Ng8"};
    std::string text;
    for (std::size_t half = 0; half < 2 * Moves; ++half) {
        if (half % 2 == 0) text += std::to_string(half / 2 + 1) + ". ";
        text += half < Opening.size() ? Opening[half] : Rest[half % 4];
        text += half % 12 == 11 ? "\r\n" : " ";
    }
    return text;
}

struct GameFile {
    QTemporaryDir folder;
    std::string path = folder.filePath(QStringLiteral("games.pgn")).toStdString();

    GameFile() {
        std::ofstream file(path, std::ios::binary);
        const std::string moves = gameText();
        for (int game = 0; game < Games; ++game) {
            for (const char* tag :
                 {"Event", "Site", "Date", "Time", "White", "Black", "WhiteElo", "BlackElo", "TimeControl", "Result"}) {
                file << "[" << tag << " \"" << tag << " of a game\"]\r\n";
            }
            file << "\r\n" << moves << "\r\n1-0\r\n\r\n";
        }
    }
};

// From the file's name to the chooser on the screen.
void readToChooser(benchmark::State& state) {
    const GameFile file;
    BenchBoard bench(DesignSquare);
    for (auto _ : state) {
        bench.board.zLoadPGN(file.path);
        QCoreApplication::processEvents(); // paints
        state.PauseTiming();
        if (bench.board.game.PgnGames[Games].Line == 0) state.SkipWithError("a game was not found");
        openWindows.unload("frmPGN");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(readToChooser)->Unit(benchmark::kMillisecond);

// The last game of the file, from its choice to the painted board.
void readOntoBoard(benchmark::State& state) {
    const GameFile file;
    BenchBoard bench(DesignSquare);
    for (auto _ : state) {
        state.PauseTiming();
        bench.board.zLoadPGN(file.path);
        QCoreApplication::processEvents();
        auto* grid = bench.board.findChild<QTreeWidget*>();
        grid->setCurrentItem(grid->topLevelItem(Games - 1));
        Q_EMIT grid->doubleClicked({});
        state.ResumeTiming();
        QCoreApplication::sendPostedEvents(&bench.board, QEvent::MetaCall);
        QCoreApplication::processEvents(); // paints
        if (bench.board.game.LastRow != Moves) state.SkipWithError("the game was not read");
    }
}
BENCHMARK(readOntoBoard)->Unit(benchmark::kMillisecond);

} // namespace
