// The conversation with the server, whole and without a window: its parts, and how they are joined.
#pragma once

#include "board/GameRouting.h"
#include "common/GameRecord.h"
#include "common/ServerRoad.h"
#include "panels/HelpCapture.h"
#include "records/HistoryLists.h"
#include "seek/SeekAds.h"
#include "session/BlockMode.h"
#include "session/Captures.h"
#include "session/ChatRouting.h"
#include "session/Connection.h"
#include "session/LineClassifier.h"
#include "session/LogOn.h"
#include "session/ServerLines.h"
#include "session/SessionSurface.h"
#include "session/TextPipeline.h"
#include "session/TypingKeys.h"

#include <deque>
#include <string>

// One instance. The constructor is the one place where the parts are joined; a part's hooks may be replaced afterwards
// by whoever wants to look on. The boards and chat boxes are those of openWindows.
struct Session {
    explicit Session(SessionSurface surface);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    SessionSurface outside;
    ServerLines serverLines;
    SeekTable seekAds;
    HistoryLists historyLists;
    HelpCapture helpCapture;
    Captures captures;
    TextPipeline pipeline;
    LineClassifier classifier;
    ServerRoad road;
    LogOn logOn;
    TypingKeys typingKeys;
    BlockMode blockMode;
    Connection connection;
    GameRouting routing;
    ChatRouting chatRouting;

    // Text has come at the socket (DataArrival), the socket's Close and Error events, and the timers.
    void zDataArrival() { pipeline.zDataArrival(); }
    void socketClosed() { connection.socketClosed(); }
    void socketError(const std::string& description) { connection.socketError(description); }
    void timerFired(SessionTimer timer);

    // Tells the user something in a box. What is told while a batch is being read comes up behind it; what is told
    // while a box is up, behind that one; nothing once the program closes.
    void tell(const std::string& text);
    // Asks for a move list, see records/MoveListRequest.h.
    void zGetMoves(std::int16_t relation, const std::string& gameOrArguments);
    // Adds a game to a PGN file, see records/PgnWriter.h.
    void zWriteGame(const std::string& fileName, const GameRecord& record);
    // Puts text, with its own line ends, at the end of the console in Color_Main.
    void print(const std::string& text);
    // Opens a chat box, which proposes the sender of the latest tell; none while the program closes.
    void zNewChat();
    // The chat box of modChess.TellTarget comes up; where there is none, one opens.
    void showChat();
    // The Click of mnuBlocked.
    void mnuBlocked() { blockMode.toggle(classifier.menu.mnuBlocked); }

private:
    std::function<bool(std::string& line, int index)> readerOf(bool (*lines)(HistoryLists& lists,
                                                                             const std::string& line));
    PipelineHooks pipelineHooks();
    ClassifierHooks classifierHooks();
    RoadHooks roadHooks();
    LogOnHooks logOnHooks();
    TypingHooks typingHooks();
    BlockModeHooks blockModeHooks();
    ConnectionHooks connectionHooks();
    BridgeHooks bridgeHooks();
    GameRoutingHooks routingHooks();
    void readMoveLists();
    void readHelp();
    void readBatch(const std::string& batch);
    void showMessages();
    void takeKeyboard();
    void insertAtEnd(const std::string& text, std::int32_t color);

    bool reading_ = false;             // a batch
    bool telling_ = false;             // a box is up
    std::deque<std::string> messages_; // to be told, in order
};
