// The whole program in a test: the real console and board windows, a scripted server, settings in memory.
#pragma once

#include "board/frmChessBoard.h"
#include "platform/Console.h"
#include "platform/TelnetFilter.h"
#include "session/QuietRoads.h"
#include "session/ScriptedServer.h"
#include "session/frmChessClient.h"
#include "settings/MemoryStore.h"

#include <QColor>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

inline constexpr const char* FicsPrompt = "fics% ";

// Joined as the program joins them, except that sounds are only noted and a fault is noted instead of ending the
// process; behind a fault the connection is closed, as it is then. The time of day stands still, so no clock counts.
class ProgramRig {
public:
    ProgramRig();
    ~ProgramRig();
    ProgramRig(const ProgramRig&) = delete;
    ProgramRig& operator=(const ProgramRig&) = delete;

    // Time for unfinished lines stands still from now on: a line that comes in pieces is never cut, however slowly
    // this machine runs the test.
    void holdTime();
    // Connects by the first tick of its timer; the server has its client on return.
    void connectNow();
    // The server sends its prompt and stays silent for the prescribed second, whose timer is fired by hand.
    void learnPrompt();
    // The server sends the messages of a script, each up to its prompt: the log-on with what passes at once behind it
    // in whole messages, then each in packets of `packet` bytes with `pauseMs` between them and `betweenMs` behind it;
    // with no pause between messages their packets end anywhere. `packet` 0 is a line. The time must be held; it passes
    // by hand.
    struct Pace {
        std::size_t packet;
        std::int64_t pauseMs;
        std::int64_t betweenMs;
    };
    void replayMessages(std::string_view script, const Pace& pace);
    // Everything sent has been classified, also what was held for the prompt.
    void settle();
    // The line ends without a goodbye while the client's system has all that `send` got; what the client holds of it
    // for its prompt is released, and the timers of what the connection had have run.
    void cutLine();
    // Connects as the menu's FICS does.
    void connectAgain();
    // The client has fetched all bytes that `send` got; they may still be held for the prompt.
    void fetchAll();
    void send(std::string_view bytes);

    Console& console() { return *client->findChild<Console*>(QStringLiteral("txtOutput")); }
    std::vector<frmChessBoard*> boards() const;
    // The board of a game; null if none.
    frmChessBoard* boardOf(int game) const;
    // The text of a label of a board: "lblMove", "stbGame(2)", ...
    static std::string labelOf(const frmChessBoard& board, const char* name);
    // What the boards show and hold at last, one item a line.
    std::string boardsText() const;
    // The console's lines, of one colour if one is given.
    std::vector<std::string> consoleLines(std::optional<QColor> color = std::nullopt);

    ScriptedServer server;
    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    ClientRoads roads = quietClientRoads(memoryStore(values));
    std::optional<BoardRoads> boardRoads; // of `client`
    std::unique_ptr<frmChessClient> client;

    std::vector<std::string> sounds;   // names, in order, whatever their switch
    std::vector<std::string> updates;  // each position that reached a board: "game 12 RNBQ...  ply 3 e4"
    std::vector<std::string> holdings; // each holdings line that reached a board: "game 12 [P] []"
    std::vector<std::string> batches;  // the text of each batch
    std::vector<std::string> messages; // boxes
    std::optional<std::string> fault;  // the first fault that would have ended the program
    int questions = 0;                 // yes/no boxes; answered with no

    // Called in the middle of a drain: a position has reached the board of this game, or a board is about to open (0).
    std::function<void(int game)> inDrain = [](int) {};

private:
    void fillStore();
    void noteTraffic();
    void answerLogOn();
    void awaitConnection();
    std::size_t replayLogOn(const std::vector<std::string_view>& script);
    void sendPackets(std::string_view text, const Pace& pace);
    bool hasRead() const;

    std::int64_t steady_ = 0;
    int looks_ = 0;     // at the time
    TelnetFilter wire_; // what is sent counts as text
    std::size_t sent_ = 0;
    std::size_t fetched_ = 0;
};
