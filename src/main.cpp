// The program: the only place that knows every window. Builds them, joins them, and ends them.
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "platform/Application.h"
#include "platform/EndRequests.h"
#include "platform/OpenWindows.h"
#include "session/frmChessClient.h"
#include "settings/IniStore.h"
#include "settings/Sounds.h"

#include <QIcon>

namespace {

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
    roads.playSound = [&sounds](std::string_view name, std::int16_t mode) { sounds.zPlaySound(name, mode); };
    roads.tellText = [&client](int index) { return client.settings.Tell[index]; };
    roads.typingFont = [&client] { return client.typingFont(); };
    roads.enableBoardMenu = [&client] { client.menus.mnuBoard->setEnabled(true); };
    return roads;
}

const void* openBoard(const BoardRoads& roads) {
    auto* board = new frmChessBoard(roads); // deletes itself after closing
    board->load();
    return board;
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
    ClientRoads roads;
    roads.store = openIniStore();
    roads.playSound = [&sounds](std::string_view name, std::int16_t mode) { sounds.zPlaySound(name, mode); };
    roads.openBoard = [&boards] { return openBoard(boards); };
    roads.showHandle = [](const std::string& handle) {
        for (const OpenWindow& open : openWindows.windows) {
            if (open.game != nullptr) open.game->surface.setPanel(1, handle);
        }
    };

    frmChessClient client(roads);
    boards = boardRoads(client, sounds, roads.store);
    EndRequests endRequests([&client] { client.close(); });
    application.stopEverything = [&client, &endRequests] {
        endRequests.endAtOnce();
        client.stopEverything();
    };
    QObject::connect(&client, &frmChessClient::closed, &application, &Application::quit, Qt::QueuedConnection);
    return application.run([&client] { client.load(); });
}
