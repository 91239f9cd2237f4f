// Benchmarks one answer to the window of listed games: read by the session, put into the list, and painted.
#include "common/modChess.h"
#include "platform/LoadedWindow.h"
#include "records/HistoryTable.h"
#include "records/frmHistory.h"
#include "session/QuietSurface.h"
#include "session/Session.h"
#include "settings/MemoryStore.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

std::string tenGames() {
    std::string text = "History for Anders:\n\r                  Opponent      Type         ECO End Date\n\r";
    for (int game = 0; game < 10; ++game) {
        text += "6" + std::to_string(game) +
                ": + 1677 B 1595 SacredVision  [ sr 30  30] B07 Res Sat Aug 16, 19:15 EST 2003\n\r";
    }
    return text + "fics% ";
}

// A session that gets its text from here, and the window in front of it.
struct HistoryProgram {
    std::string waiting;
    Session session{surface()};
    HistoryRoads roads{
        .store = memoryStore(std::make_shared<MemoryValues>()),
        .lists = session.historyLists,
        .zSendMsg = [](const std::string&) {},
        .BusyTest = TextPipeline::BusyTest,
        .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); },
        .zGetMoves = [](const std::string&) {},
        .handle = [] { return std::string("Anders"); },
        .tell = [](const std::string&) {},
    };
    frmHistory& window = frmHistory::showIt(roads);

    HistoryProgram() {
        modChess.gPrompt = "fics% ";
        modChess.HistoryKind = HistoryKindGames;
        window.zSetHistory();
        QCoreApplication::processEvents();
    }
    ~HistoryProgram() { delete &window; }
    HistoryProgram(const HistoryProgram&) = delete;
    HistoryProgram& operator=(const HistoryProgram&) = delete;

    SessionSurface surface() {
        SessionSurface outside = quietSurface();
        outside.socket.getData = [this] { return std::exchange(waiting, {}); };
        return outside;
    }
    void answer(const std::string& text) {
        session.historyLists.HistCount = 0;
        session.pipeline.zSetstate(9);
        waiting = text;
        session.zDataArrival();
        QCoreApplication::processEvents(); // paints
    }
};

void listAnswer(benchmark::State& state) {
    HistoryProgram program;
    const std::string text = tenGames();
    for (auto _ : state) program.answer(text);
    const auto* list = program.window.findChild<HistoryTable*>();
    if (list->topLevelItemCount() != 10) state.SkipWithError("the games are not listed");
}
BENCHMARK(listAnswer)->Unit(benchmark::kMicrosecond);

} // namespace
