// The program: the only place that knows every window. Builds them, joins them, and ends them.
#include "board/frmChessBoard.h"
#include "platform/Application.h"
#include "platform/EndRequests.h"
#include "platform/LoadedWindow.h"
#include "seek/frmMatch.h"
#include "session/frmChessClient.h"
#include "settings/IniStore.h"
#include "settings/Sounds.h"

#include <QIcon>

#include <string>
#include <string_view>

namespace {

void openBoard(const BoardRoads& roads, frmChessClient& client) {
    auto* board = new frmChessBoard(roads); // deletes itself after closing
    QObject::connect(board, &frmChessBoard::chatWanted, &client, [&client] { client.session.showChat(); });
    board->load();
}

// What the dump of the settings asks of the windows.
RunningWindows runningWindows() {
    RunningWindows windows;
    windows.place = [](const WindowSection& section) {
        const auto* match = loadedWindow<frmMatch>();
        return match && std::string_view(section.name) == MatchSection.name ? match->place() : WindowPlace{};
    };
    windows.match = [] {
        const auto* match = loadedWindow<frmMatch>();
        return match ? match->fields() : MatchSettings{};
    };
    return windows;
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("Brightrank"));
    Application::setApplicationDisplayName(QString()); // else it would be put behind every caption
    Application::setApplicationVersion(QStringLiteral(BRIGHTRANK_VERSION));
    Application::setWindowIcon(QIcon(QStringLiteral(":/icon/brightrank.svg")));
    Application::setQuitOnLastWindowClosed(false);

    Sounds sounds;
    BoardRoads boards;
    MatchRoads match;
    ClientRoads roads;
    roads.store = openIniStore();
    roads.playSound = [&sounds](std::string_view name, std::int16_t mode) { sounds.zPlaySound(name, mode); };
    roads.showMatch = [&match] { frmMatch::showIt(match); };
    roads.runningWindows = runningWindows();

    frmChessClient client(roads);
    roads.openBoard = [&boards, &client] { openBoard(boards, client); };
    boards = client.boardRoads();
    match = {roads.store, boards.zSendMsg};
    EndRequests endRequests([&client] { client.close(); });
    application.stopEverything = [&client, &endRequests] {
        endRequests.endAtOnce();
        client.stopEverything();
    };
    QObject::connect(&client, &frmChessClient::closed, &application, &Application::quit, Qt::QueuedConnection);
    return application.run([&client] { client.load(); });
}
