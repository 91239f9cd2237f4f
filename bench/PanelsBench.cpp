// Benchmarks the panels of variables and notes: from the menu until one is painted, and its close.
#include "common/modChess.h"
#include "panels/frmICSVars.h"
#include "panels/frmNotes.h"
#include "settings/MemoryStore.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr int Warm = 100; // times, behind which memory is compared

// Resident, in kilobytes.
long residentNow() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::stol(line.substr(6));
    }
    return 0;
}

template <typename Panel>
void openAndClose(const PanelRoads& roads) {
    Panel& panel = showPanel<Panel>(roads);
    QCoreApplication::processEvents(); // paints, and asks
    panel.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

template <typename Panel>
void openPanel(benchmark::State& state) {
    const PanelRoads roads{
        .store = memoryStore(std::make_shared<MemoryValues>()),
        .zSendMsg = [](const std::string&) {},
        .BusyTest = [] { return false; },
        .zSetstate = [](std::int16_t) {},
    };
    for (int time = 0; time < Warm; ++time) openAndClose<Panel>(roads);
    const long before = residentNow();
    for (auto _ : state) openAndClose<Panel>(roads);
    state.counters["kB more"] = static_cast<double>(residentNow() - before);
}
BENCHMARK(openPanel<frmICSVars>)->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK(openPanel<frmNotes>)->Unit(benchmark::kMillisecond)->Iterations(1000);

} // namespace
