// Benchmarks the help panel: a page of 400 lines from the server's bytes to the painted pane.
#include "panels/HelpPage.h"
#include "panels/frmChessHelp.h"
#include "platform/OpenWindows.h"
#include "session/QuietSurface.h"
#include "session/Session.h"
#include "settings/MemoryStore.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

// A session whose server is the benchmark, with the panel open.
struct Panel {
    std::string waiting;
    Session session{surface()};
    HelpRoads roads{
        .panel = {.store = memoryStore(std::make_shared<MemoryValues>()),
                  .zSendMsg = [](const std::string&) {},
                  .BusyTest = [] { return false; },
                  .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); }},
        .capture = session.helpCapture,
    };

    Panel() {
        modChess = {};
        openWindows = {};
        modChess.gPrompt = "fics% ";
    }
    ~Panel() {
        openWindows = {};
        modChess = {};
    }

    SessionSurface surface() {
        SessionSurface outside = quietSurface();
        outside.socket.getData = [this] { return std::exchange(waiting, {}); };
        return outside;
    }
};

void end(QWidget& window) {
    window.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void showPage(benchmark::State& state) {
    Panel panel;
    frmChessHelp& window = frmChessHelp::showIt(panel.roads);
    QCoreApplication::processEvents();
    std::vector<std::string> page;
    for (const std::string& line : helpLines(400)) {
        page.push_back("a page with as many words as a line of a help page has, " + line);
    }
    const std::string text = onWire(page) + modChess.gPrompt;
    auto* clear = window.findChild<QWidget*>(QStringLiteral("cmdClear"));
    for (auto _ : state) {
        state.PauseTiming();
        QMetaObject::invokeMethod(clear, "click");
        QCoreApplication::processEvents();
        modChess.HelpCount = 0;
        panel.session.pipeline.zSetstate(HelpState);
        panel.waiting = text;
        state.ResumeTiming();
        panel.session.zDataArrival();
        QCoreApplication::processEvents(); // paints
    }
    if (modChess.HelpCount != 400 || modChess.gHelpCapture) state.SkipWithError("the page was not shown");
    end(window);
}
BENCHMARK(showPage)->Unit(benchmark::kMillisecond);

} // namespace
