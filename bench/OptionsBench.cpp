// Benchmarks the options dialog: until it stands, its OK with forty boards open, and what is left of it after closing.
#include "BenchBoard.h"
#include "platform/Console.h"
#include "platform/LoadedWindow.h"
#include "settings/frmOptions.h"

#include <QAbstractButton>
#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <fstream>
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

// Resident, in kilobytes.
double resident() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != "VmRSS:") continue;
        double kilobytes = 0;
        status >> kilobytes;
        return kilobytes;
    }
    return 0;
}

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

void optionsOpened(benchmark::State& state) {
    modChess = {};
    for (auto _ : state) {
        open();
        state.PauseTiming();
        closeIt("cmdCancel");
        state.ResumeTiming();
    }
    if (loadedWindow<frmOptions>()) state.SkipWithError("the dialog did not close");
}
BENCHMARK(optionsOpened)->Unit(benchmark::kMillisecond);

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

// A thousand times, the first hundred of which fill what is kept for good.
void optionsClosed(benchmark::State& state) {
    modChess = {};
    for (auto _ : state) {
        for (int time = 0; time < 100; ++time) {
            open();
            closeIt("cmdCancel");
        }
        const double before = resident();
        for (int time = 0; time < 900; ++time) {
            open();
            closeIt("cmdCancel");
        }
        state.counters["growth_kB"] = resident() - before;
    }
}
BENCHMARK(optionsClosed)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
