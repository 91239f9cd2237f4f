// Benchmarks each window of the program: from its being asked for until it is painted, and its close; and what is left
// of its memory.
#include "panels/frmChessHelp.h"
#include "panels/frmICSVars.h"
#include "panels/frmNotes.h"
#include "panels/frmSelfCheck.h"
#include "records/frmHistory.h"
#include "seek/frmMatch.h"
#include "seek/frmSeek.h"
#include "session/QuietRoads.h"
#include "session/frmChessClient.h"
#include "settings/MemoryStore.h"
#include "settings/Sounds.h"
#include "settings/frmOptions.h"
#include "view/frmBoardColors.h"

#include "BenchBoard.h"

#include <QCoreApplication>
#include <QPixmapCache>

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

// A console that is not connected, with what it gives the other windows.
struct Program {
    Sounds sounds;
    ClientRoads roads = quietClientRoads(memoryStore(std::make_shared<MemoryValues>()));
    frmChessClient client{roads};
    BoardRoads boards = client.boardRoads();
    MatchRoads match{.store = roads.store, .zSendMsg = boards.zSendMsg};
    SeekRoads seek = client.seekRoads(match);
    ExamineRoads examine = client.examineRoads([](std::int32_t) { return nullptr; });
    HistoryRoads history = client.historyRoads();
    PanelRoads panels = client.panelRoads();
    HelpRoads help = client.helpRoads();
    OptionsRoads options = client.optionsRoads(sounds);
};

template <typename Open>
void openAndClose(Open open) {
    QWidget& window = open();
    QCoreApplication::processEvents(); // paints
    modChess.gVarsCapture = false;     // nobody answers
    modChess.gNotesCapture = false;
    window.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWidget& open(Program& program, const std::string& name) {
    if (name == "frmHistory") return frmHistory::showIt(program.history);
    if (name == "frmMatch") return frmMatch::showIt(program.match);
    if (name == "frmExamine") return frmExamine::showIt(program.examine, 0);
    if (name == "frmOptions") return frmOptions::showIt(program.options);
    if (name == "frmICSVars") return showPanel<frmICSVars>(program.panels);
    if (name == "frmNotes") return showPanel<frmNotes>(program.panels);
    if (name == "frmChessHelp") return frmChessHelp::showIt(program.help);
    if (name == "frmSelfCheck") return frmSelfCheck::showIt(nullptr);
    if (name == "frmBoardColors") {
        frmBoardColors::showAt({});
        return frmBoardColors::loaded();
    }
    if (name == "frmSeek") {
        frmSeek::showIt(program.seek);
        return *loadedWindow<frmSeek>();
    }
    auto* board = new frmChessBoard(program.boards); // deletes itself after closing
    board->load();
    return *board;
}

// The pictures of controls that the toolkit keeps, 10 MB of them otherwise, are all there behind the first times.
void openWindow(benchmark::State& state, const std::string& name) {
    QPixmapCache::setCacheLimit(512); // kilobytes
    modChess = {};
    Program program;
    const auto once = [&] { openAndClose([&]() -> QWidget& { return open(program, name); }); };
    for (int time = 0; time < Warm; ++time) once();
    const long before = residentNow();
    for (auto _ : state) once();
    state.counters["kB more"] = static_cast<double>(residentNow() - before);
    modChess = {};
}

[[maybe_unused]] const int registered = [] {
    for (const char* name : {"frmOptions", "frmICSVars", "frmNotes", "frmChessHelp", "frmSelfCheck", "frmHistory",
                             "frmMatch", "frmSeek", "frmExamine", "frmBoardColors", "frmChessBoard"}) {
        benchmark::RegisterBenchmark(name, openWindow, std::string(name))
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1000);
    }
    return 0;
}();

} // namespace
