// A program that reads a game file onto a board; started by PgnFaultTest.
#include "board/QuietRoads.h"
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "platform/Application.h"
#include "platform/LoadedWindow.h"
#include "records/frmPGN.h"
#include "settings/MemoryStore.h"

#include <QTest>
#include <QTreeWidget>

#include <cstdio>
#include <string>

namespace {

void say(const std::string& text) {
    std::puts(text.c_str());
    std::fflush(stdout);
}

struct Program {
    CommandHistory history;
    BoardRoads roads = quietBoardRoads(memoryStore(std::make_shared<MemoryValues>()), history);
    frmChessBoard board{roads};

    // Chooses the game in `row`, or none.
    void choose(int row) const {
        auto* grid = loadedWindow<frmPGN>()->findChild<QTreeWidget*>();
        say("games " + std::to_string(grid->topLevelItemCount()));
        grid->setCurrentItem(grid->topLevelItem(row - 1));
        QTest::keyClick(grid, row > 0 ? Qt::Key_Return : Qt::Key_Escape);
        QTimer::singleShot(50, &board, [this] {
            say("last row " + std::to_string(board.game.LastRow));
            QCoreApplication::exit(0);
        });
    }
};

} // namespace

// Arguments: the file, the row to choose, and "again" to read the file once more without a choice before.
int main(int argc, char** argv) {
    Application application(argc, argv);
    if (argc < 3) return 2;
    Program program;
    return application.run([&] {
        program.board.load();
        if (argc > 3) {
            program.board.zLoadPGN(argv[1]);
            loadedWindow<frmPGN>()->close();
        }
        program.board.zLoadPGN(argv[1]);
        QTimer::singleShot(0, &program.board, [&program, argv] { program.choose(std::stoi(argv[2])); });
    });
}
