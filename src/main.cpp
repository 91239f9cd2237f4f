// The program: the only place that knows every window. Builds them, joins them, and ends them.
#include "board/frmChessBoard.h"
#include "platform/Application.h"
#include "platform/EndRequests.h"
#include "session/frmChessClient.h"
#include "settings/IniStore.h"
#include "settings/Sounds.h"

#include <QIcon>

#include <string>
#include <string_view>

namespace {

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

    frmChessClient client(roads);
    boards = client.boardRoads();
    EndRequests endRequests([&client] { client.close(); });
    application.stopEverything = [&client, &endRequests] {
        endRequests.endAtOnce();
        client.stopEverything();
    };
    QObject::connect(&client, &frmChessClient::closed, &application, &Application::quit, Qt::QueuedConnection);
    return application.run([&client] { client.load(); });
}
