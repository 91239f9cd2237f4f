// Benchmarks the OK of the options dialog: with forty boards open, and on a console of a megabyte.
#include "BenchBoard.h"
#include "platform/Console.h"
#include "platform/LoadedWindow.h"
#include "settings/frmOptions.h"

#include <QAbstractButton>
#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

const OptionsRoads roads{
    .store = memoryStore(std::make_shared<MemoryValues>()),
    .account = [] { return OptionsAccount{}; },
    .takeAccount = [](const OptionsAccount&) {},
    .testWave = [](std::string_view) {},
    .testBeep = [] {},
    .showBoardColors = [](QPoint) {},
};

void paint() { QCoreApplication::processEvents(); }

frmOptions& open() {
    frmOptions& dialog = frmOptions::showIt(roads);
    paint();
    return dialog;
}

void closeIt(const char* button) {
    loadedWindow<frmOptions>()->findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void optionsOk(benchmark::State& state) {
    modChess = {};
    constexpr int Side = 54; // pixels of a square
    std::vector<std::unique_ptr<BenchBoard>> boards;
    for (int board = 0; board < state.range(0); ++board) boards.push_back(std::make_unique<BenchBoard>(Side));
    paint();
    for (auto _ : state) {
        state.PauseTiming();
        open();
        modChess.ColorBar ^= 0xFFFFFF; // so that there is something to do
        state.ResumeTiming();
        closeIt("cmdOK");
        paint();
    }
    if (openWindows.count("frmChessBoard") != state.range(0)) state.SkipWithError("not all boards are open");
}
BENCHMARK(optionsOk)->Arg(40)->Unit(benchmark::kMillisecond);

// What OK does to a console of a megabyte.
void consoleRecolored(benchmark::State& state) {
    Console console;
    console.resize(760, 400);
    console.show();
    for (int line = 0; line < 16000; ++line) {
        console.setColor(line % 9 == 0 ? 0x0000FF : 0xFFFFFF);
        console.insert("Rookery tells you: the quick brown fox jumps over the lazy dog\r\n");
    }
    console.flush();
    paint();
    std::int32_t color = 0;
    for (auto _ : state) {
        console.setAllColor(color ^= 0xFFFFFF);
        paint();
    }
}
BENCHMARK(consoleRecolored)->Unit(benchmark::kMillisecond);

} // namespace
