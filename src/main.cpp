// The program: the only place that knows every window. Builds them, joins them, and ends them.
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "platform/Application.h"
#include "platform/EndRequests.h"
#include "platform/OpenWindows.h"
#include "seek/frmMatch.h"
#include "session/frmChessClient.h"
#include "settings/IniStore.h"
#include "settings/Sounds.h"

#include <QIcon>

namespace {

// Every board window that is open, older ones first.
template <typename Act>
void eachBoard(Act act) {
    for (const OpenWindow& open : openWindows.windows) {
        if (open.game != nullptr) act(*open.game);
    }
}

MatchRoads matchRoads(frmChessClient& client, const SettingsStore& store) {
    MatchRoads roads;
    roads.store = store;
    roads.zSendMsg = [&client](const std::string& text) { client.road.zSendMsg(text); };
    return roads;
}

BoardRoads boardRoads(frmChessClient& client, Sounds& sounds, const SettingsStore& store) {
    BoardRoads roads;
    roads.store = store;
    roads.history = &client.road.history;
    roads.zSendMsg = [&client](const std::string& text) { client.road.zSendMsg(text); };
    roads.zSend = [&client](const std::string& text) {
        if (client.road.hooks.socketState() != ServerRoad::Connected) return false;
        client.road.zSend(text);
        return true;
    };
    roads.playSound = [&sounds](std::string_view name, std::int16_t mode) {
        sounds.zPlaySound(std::string(name), mode);
    };
    roads.tellText = [&client](int index) { return client.settings.Tell[index]; };
    roads.typingFont = [&client] { return client.typingFont(); };
    roads.enableBoardMenu = [&client] { client.menus.mnuBoard->setEnabled(true); };
    return roads;
}

const void* openBoard(const BoardRoads& roads, frmChessClient& client) {
    auto* board = new frmChessBoard(roads); // deletes itself after closing
    QObject::connect(board, &frmChessBoard::chatWanted, &client, [&client] { client.typingKeys.hooks.zNewChat(); });
    board->load();
    return board;
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("Brightrank"));
    Application::setApplicationDisplayName(QString());
    Application::setApplicationVersion(QStringLiteral(BRIGHTRANK_VERSION));
    Application::setWindowIcon(QIcon(QStringLiteral(":/icon/brightrank.svg")));
    Application::setQuitOnLastWindowClosed(false);

    Sounds sounds;
    BoardRoads boards;
    MatchRoads match;
    ClientRoads roads;
    roads.store = openIniStore();
    roads.playSound = [&sounds](const std::string& name, std::int16_t mode) { sounds.zPlaySound(name, mode); };
    roads.showMatch = [&match] { frmMatch::showIt(match); };
    roads.showHandle = [](const std::string& handle) {
        eachBoard([&handle](Game& game) { game.surface.setPanel(1, handle); });
    };

    frmChessClient client(roads);
    roads.openBoard = [&boards, &client] { return openBoard(boards, client); };
    boards = boardRoads(client, sounds, roads.store);
    boards.showMatch = roads.showMatch;
    match = matchRoads(client, roads.store);
    EndRequests endRequests([&client] { client.close(); });
    application.stopEverything = [&client, &endRequests] {
        endRequests.endAtOnce();
        client.stopEverything();
    };
    QObject::connect(&client, &frmChessClient::closed, &application, &Application::quit, Qt::QueuedConnection);
    return application.run([&client] { client.load(); });
}
