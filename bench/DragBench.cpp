// Benchmarks one move of the pointer over a board, with a piece in hand and without, painting included.
#include "board/Style12Line.h"
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "settings/MemoryStore.h"

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

constexpr int MaxSquare = 76; // pixels, of the largest piece set

// A game on which white is to move, its squares `side` pixels wide.
std::unique_ptr<frmChessBoard> openBoard(const BoardRoads& roads, int side) {
    auto board = std::make_unique<frmChessBoard>(roads);
    board->load();
    auto* view = board->findChild<BoardView*>();
    board->resize(board->width(), board->height() + 8 * (side - view->geometry().SquarePixels));
    board->game.zBoardSetup(false);
    const auto line = cutStyle12(FixedStartLine, LineEnd::RestIsToken);
    readStyle12(line.value(), Style12Fields::All, modChess.Record);
    modChess.Record.Relation = 1;
    modChess.Record.Flip = false;
    modChess.NewGameFlag = true;
    board->game.zGS();
    board->game.zSetPosition(false);
    board->game.noPlay = false;
    return board;
}

void send(BoardView& view, QEvent::Type type, QPointF point, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, point, view.mapToGlobal(point), button, buttons, {});
    QCoreApplication::sendEvent(&view, &event);
}

// Counts how often the view is painted.
struct Paints : QObject {
    double count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
};

// The pointer goes round over the board, a few pixels at a time.
QPointF pointAt(std::int64_t step, int side) {
    const auto place = static_cast<double>(step % 200) / 200 * 6.28318;
    return {side * (4 + 3 * std::cos(place)), side * (4 + 3 * std::sin(place))};
}

void pointerMove(benchmark::State& state, bool dragging) {
    CommandHistory history;
    const BoardRoads roads{
        .store = memoryStore(std::make_shared<MemoryValues>()),
        .history = history,
        .zSendMsg = [](const std::string&) {},
        .zSend = [](const std::string&) { return false; },
        .playSound = [](std::string_view, std::int16_t) {},
        .tellText = [](int) { return std::string(); },
        .showMatch = [] {},
        .showSeek = [] {},
        .consoleFrame = [] { return QRect(); },
        .typingFont = [] { return QFont(); },
        .enableBoardMenu = [] {},
    };
    const auto side = static_cast<int>(state.range(0));
    const auto board = openBoard(roads, side);
    auto& view = *board->findChild<BoardView*>();
    const QPointF e2(4.5 * side, 6.5 * side);
    if (dragging) send(view, QEvent::MouseButtonPress, e2, Qt::LeftButton, Qt::LeftButton);
    if (board->game.hand.Dragging != dragging || view.geometry().SquarePixels != side) {
        state.SkipWithError("the board is not as it should be");
    }
    Paints paints;
    view.installEventFilter(&paints);
    std::int64_t step = 0;
    for (auto _ : state) {
        send(view, QEvent::MouseMove, pointAt(++step, side), Qt::NoButton, dragging ? Qt::LeftButton : Qt::NoButton);
        QCoreApplication::processEvents(); // paints
    }
    state.counters["paints"] = benchmark::Counter(paints.count, benchmark::Counter::kAvgIterations);
    view.removeEventFilter(&paints);
}

void dragStep(benchmark::State& state) { pointerMove(state, true); }
void hoverStep(benchmark::State& state) { pointerMove(state, false); }
BENCHMARK(dragStep)->Arg(24)->Arg(54)->Arg(MaxSquare);
BENCHMARK(hoverStep)->Arg(MaxSquare);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
