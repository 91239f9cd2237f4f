// Benchmarks one answer to the seek graph's poll: read by the session, placed, and painted; and a mere repaint.
#include "common/modChess.h"
#include "platform/OpenWindows.h"
#include "seek/frmSeek.h"
#include "session/QuietSurface.h"
#include "session/Session.h"
#include "settings/MemoryStore.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <string>

namespace {

// So many ads of all kinds, over the whole graph.
std::string table(int ads) {
    std::string text;
    for (int ad = 1; ad <= ads; ++ad) {
        char row[96];
        std::snprintf(row, sizeof row, "%3d %4d Seeker%-12d%3d %3d %-8s%-20s   0-9999 \n\r", ad, 700 + ad * 37 % 2100,
                      ad, 1 + ad * 7 % 60, ad % 13, ad % 3 == 0 ? "unrated" : "rated",
                      ad % 5 == 0 ? "wild/fr" : "blitz");
        text += row;
    }
    return text + std::to_string(ads) + " ads displayed.\n\rfics% ";
}

// A session that gets its text from here, and the graph in front of it.
struct SeekProgram {
    std::string waiting;
    Session session;
    MatchRoads match{.store = memoryStore(std::make_shared<MemoryValues>()), .zSendMsg = [](const std::string&) {}};
    SeekRoads roads{
        .store = match.store,
        .ads = session.seekAds,
        .match = match,
        .zSendMsg = [](const std::string& text) { modChess.gLastCmd = text; },
        .BusyTest = TextPipeline::BusyTest,
        .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); },
        .typeInConsole = [](const std::string&) {},
        .tallTitleBars = [] { return false; },
        .startHistory = [] {},
        .closedByUser = [] {},
    };

    explicit SeekProgram(QSize size) : session(surface()) {
        modChess.gPrompt = "fics% ";
        frmSeek::showIt(roads);
        window().resize(size);
        answer({});
    }
    ~SeekProgram() { delete &window(); }
    SeekProgram(const SeekProgram&) = delete;
    SeekProgram& operator=(const SeekProgram&) = delete;

    static frmSeek& window() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* graph = qobject_cast<frmSeek*>(widget)) return *graph;
        }
        std::abort();
    }
    static SeekPlot& plot() { return *window().findChild<SeekPlot*>(); }

    SessionSurface surface() {
        SessionSurface outside = quietSurface();
        outside.socket.getData = [this] { return std::exchange(waiting, {}); };
        return outside;
    }
    void answer(const std::string& text) {
        modChess.gLastCmd = "sought";
        session.pipeline.zSetstate(6);
        waiting = text;
        session.zDataArrival();
        QCoreApplication::processEvents(); // paints
    }
};

void pollAnswer(benchmark::State& state) {
    SeekProgram program(QSize(static_cast<int>(state.range(1)), static_cast<int>(state.range(2))));
    const std::string text = table(static_cast<int>(state.range(0)));
    for (auto _ : state) program.answer(text);
    if (SeekProgram::plot().graph().DotsDrawn != state.range(0)) state.SkipWithError("the ads are not drawn");
}
BENCHMARK(pollAnswer)
    ->Args({0, 520, 460})
    ->Args({200, 520, 460})
    ->Args({200, 1280, 970})
    ->Unit(benchmark::kMicrosecond);

void repaint(benchmark::State& state) {
    SeekProgram program(QSize(520, 460));
    program.answer(table(200));
    for (auto _ : state) {
        SeekProgram::plot().update();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(repaint)->Unit(benchmark::kMicrosecond);

} // namespace
