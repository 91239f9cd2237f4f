// The program: the only place that knows every window. Builds them, joins them, and ends them.
#include "board/frmChessBoard.h"
#include "panels/frmChessHelp.h"
#include "panels/frmICSVars.h"
#include "panels/frmNotes.h"
#include "panels/frmSelfCheck.h"
#include "platform/Application.h"
#include "platform/ContrastStyle.h"
#include "platform/EndRequests.h"
#include "platform/LoadedWindow.h"
#include "platform/OwnMemory.h"
#include "platform/OwnProcess.h"
#include "platform/RestingCaret.h"
#include "records/frmExamine.h"
#include "records/frmHistory.h"
#include "seek/frmMatch.h"
#include "seek/frmSeek.h"
#include "session/frmChessClient.h"
#include "settings/IniStore.h"
#include "settings/Sounds.h"
#include "settings/frmOptions.h"

#include <QIcon>

#include <cstdio>
#include <string>
#include <string_view>

namespace {

// What the dump of the settings asks of the windows.
RunningWindows runningWindows() {
    return {
        .place =
            [](const WindowSection& section) {
                const std::string_view name = section.name;
                const auto* match = loadedWindow<frmMatch>();
                if (name == MatchSection.name && match) return match->place();
                const auto* seek = loadedWindow<frmSeek>();
                if (name == SeekSection.name) return seek ? seek->place() : frmSeek::startPlace();
                const auto* help = loadedWindow<frmChessHelp>();
                if (name == HelpSection.name) return help ? help->place() : frmChessHelp::startPlace();
                const auto* vars = loadedWindow<frmICSVars>();
                if (name == VarsSection.name && vars) return vars->place();
                const auto* notes = loadedWindow<frmNotes>();
                if (name == NotesSection.name && notes) return notes->place();
                const auto* options = loadedWindow<frmOptions>();
                if (name == OptionsSection.name && options) return options->place();
                return WindowPlace{};
            },
        .match =
            [] {
                const auto* match = loadedWindow<frmMatch>();
                return match ? match->fields() : MatchSettings{};
            },
    };
}

// The console, and what it and the other windows need of each other.
struct Program {
    Sounds sounds;
    ClientRoads roads{
        .store = openIniStore(),
        .runningWindows = runningWindows(),
        .playSound = [this](std::string_view name, std::int16_t mode) { sounds.zPlaySound(name, mode); },
        .openBoard = [this] { openBoard(); },
        .showMatch = [this] { frmMatch::showIt(match); },
        .showSeek = [this] { frmSeek::showIt(seek); },
        .showHistory = [this] { frmHistory::showIt(history); },
        .startHistory = [this] { frmHistory::startIt(history); },
        .showExamine = [this](std::int32_t id) { frmExamine::showIt(examine, id); },
        .doors = panelDoors(),
        .zParseVars = [this] { loadedPanel<frmICSVars>(panels).zParseVars(); },
        .zParseNotes = [this] { loadedPanel<frmNotes>(panels).zParseNotes(); },
    };
    frmChessClient client{roads};
    BoardRoads boards = client.boardRoads();
    MatchRoads match{.store = roads.store, .zSendMsg = boards.zSendMsg};
    SeekRoads seek = client.seekRoads(match);
    ExamineRoads examine = client.examineRoads(&frmChessBoard::windowOf);
    HistoryRoads history = client.historyRoads();
    PanelRoads panels = client.panelRoads();
    HelpRoads help = client.helpRoads();
    OptionsRoads options = client.optionsRoads(sounds);

    PanelDoors panelDoors() {
        return {
            .showVars = [this] { showPanel<frmICSVars>(panels); },
            .showNotes = [this] { showPanel<frmNotes>(panels); },
            .showOptions = [this] { frmOptions::showIt(options); },
            .showHelp = [this] { frmChessHelp::showIt(help); },
            .startHelp = [this] { frmChessHelp::startIt(help); },
            .showSelfCheck = [](const QWidget* board) { frmSelfCheck::showIt(board); },
        };
    }

    void openBoard() {
        auto* board = new frmChessBoard(boards); // deletes itself after closing
        QObject::connect(board, &frmChessBoard::chatWanted, &client, [this] { client.session.showChat(); });
        board->load();
    }
};

} // namespace

int main(int argc, char** argv) {
    settleProcess();
    // It needs no display, and no file of settings comes of it.
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::puts("brightrank " BRIGHTRANK_VERSION);
        return 0;
    }
    keepLargeBlocksApart();
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("Brightrank"));
    Application::setApplicationDisplayName(QString()); // else it would be put behind every caption
    Application::setApplicationVersion(QStringLiteral(BRIGHTRANK_VERSION));
    Application::setDesktopFileName(QStringLiteral("net.brightrank.brightrank")); // whose icon a desktop then shows
    Application::setWindowIcon(QIcon(QStringLiteral(":/icon/brightrank.svg")));
    Application::setQuitOnLastWindowClosed(false);
    Application::setStyle(new ContrastStyle);

    const RestingCaret caret(application);
    Program program;
    frmChessClient& client = program.client;
    EndRequests endRequests([&client] { client.close(); });
    application.stopEverything = [&client, &endRequests] {
        endRequests.endAtOnce();
        client.stopEverything();
    };
    QObject::connect(&client, &frmChessClient::closed, &application, &Application::quit, Qt::QueuedConnection);
    return application.run([&client] { client.load(); });
}
