// The connection of the session: server profiles, the caption's view of the socket, and what a loss of it does.
#pragma once

#include "common/Needed.h"
#include "session/Bridge.h"

#include <cstdint>
#include <string>
#include <utility>

inline constexpr const char* FicsHost = "freechess.org";
inline constexpr std::int32_t FicsPort = 5000;
inline constexpr const char* IccHost = "chessclub.com";
inline constexpr std::int32_t IccPort = 6000;
inline constexpr const char* ClientTitle = "Brightrank - Client  "; // the state text follows

// How the connection reaches its surroundings.
struct ConnectionHooks {
    // The socket
    Needed<void(const std::string& host, std::int32_t port)> connectTo;
    Needed<void()> closeSocket;
    Needed<int()> socketState;

    // The client window and its timers
    Needed<void(const std::string& caption)> setCaption;
    Needed<void()> checksChanged;                   // one of the three check marks below has a new value
    Needed<void(int milliseconds)> setTickInterval; // of `tmrTCP`
    Needed<void(bool on)> enableCloseTimer;         // `tmrClose`, 550 ms
    Needed<void(bool connected)> countIdle;         // a tick that found the state of the tick before

    // The user
    Needed<void()> beep;
    Needed<void(const std::string& text)> message;
    Needed<bool(const std::string& text)> yesNo;
    Needed<std::string(const std::string& prompt, const std::string& title)> input; // empty on Cancel

    // Games and the seek graph
    Needed<void()> endAllGames; // `zEndAllGames`
    Needed<void()> unloadSeek;  // `frmSeek`, if it is loaded
    // On every board: panels 1 to 3 of `stbGame` and `currentGame` empty, the caption "Brightrank - Board".
    Needed<void()> clearBoards;
};

// One connection at a time. It keeps no state of its own about it but a copy of the socket's state at the latest tick,
// so a state that lasts less than a tick never shows.
struct Connection {
    ConnectionHooks hooks;
    Bridge bridge;

    static constexpr std::int16_t Unseen = -1;

    Connection(ConnectionHooks reachedOut, BridgeHooks ofBridge)
        : hooks(std::move(reachedOut)), bridge(std::move(ofBridge)) {}

    std::string ConnectionLabel;  // "FICS", "ICC", "Timeseal", or host + " Port " + port
    std::string LabelAfterBridge; // taken over at the first text through the bridge
    std::int16_t SocketState = 0; // 0 to 9, as the latest tick saw it; `Unseen` until a tick sees a new connection
    std::int16_t LastServer = 0;  // setting `Last_Server`; only loaded and saved
    bool ClosedByUser = true;     // keeps `tmrClose` off
    std::string StartDirectory;   // the working directory at start-up
    std::int16_t CloseTicks = 0;  // beeps of `tmrClose` so far
    bool FirstTickDone = false;

    // The check marks of the menu items of these names.
    bool mnuUseTS = true;
    bool mnuAutoCon = false;
    bool mnuAutoLogon = false;

    // Connects to the server profile `index`, 0 to 4; others do nothing, nor does any while the program closes. What a
    // connection that stands still had, its games and its handle, ends as if it had been closed. The
    // bridge takes seconds; what the user asks for meanwhile, another connection or none, ends its setting up.
    void mnuConnectClick(std::int16_t index);
    void mnuCloseClick();
    void mnuAutoConClick();
    void mnuAutoLogonClick();
    void mnuUseTSClick();

    void tmrTCPTimer();   // every 1000 ms for the life of the program, 200 ms while the diagnostics panel is up
    void tmrCloseTimer(); // every 550 ms while enabled

    void socketClosed();                              // the Close event of the socket
    void socketError(const std::string& description); // the Error event of the socket

    // To be called on every arrival: the first text through the bridge names the connection.
    void textArrived();

private:
    void direct(const std::string& host, std::int32_t port, const std::string& label);
    void throughBridge(const std::string& host, std::int32_t port);
    void askForServer();
    void stateChanged(int state);
    void sessionEnded();

    bool firstTickRunning_ = false;
    int wishes_ = 0;          // the user's so far: connections to set up, or to close
    int tickInterval_ = 1000; // milliseconds
};

// The text that follows `ClientTitle` for the socket state `state`.
std::string stateText(int state, const std::string& connectionLabel);
