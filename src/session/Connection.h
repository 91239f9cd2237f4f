// The connection of the session: server profiles, the caption's view of the socket, and what a loss of it does.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

inline constexpr const char* FicsHost = "freechess.org";
inline constexpr std::int32_t FicsPort = 5000;
inline constexpr const char* IccHost = "chessclub.com";
inline constexpr std::int32_t IccPort = 6000;
inline constexpr std::int32_t BridgePort = 6000;
inline constexpr const char* ClientTitle = "Brightrank - Client  "; // the state text follows

// How the connection reaches its surroundings; what is not filled in does nothing.
struct ConnectionHooks {
    // The socket
    std::function<void(const std::string& host, std::int32_t port)> connectTo = [](const std::string&, std::int32_t) {};
    std::function<void()> closeSocket = [] {};
    std::function<int()> socketState = [] { return 0; };

    // The client window and its timers
    std::function<void(const std::string& caption)> setCaption = [](const std::string&) {};
    std::function<void()> checksChanged = [] {}; // one of the three check marks below has a new value
    std::function<void(int milliseconds)> setTickInterval = [](int) {}; // of `tmrTCP`
    std::function<void(bool on)> enableCloseTimer = [](bool) {};        // `tmrClose`, 550 ms
    std::function<void()> fillTestPanel = [] {};
    std::function<void(bool connected)> countIdle = [](bool) {}; // a tick that found the state of the tick before

    // The user
    std::function<void()> beep = [] {};
    std::function<void(const std::string& text)> message = [](const std::string&) {};
    std::function<bool(const std::string& text)> yesNo = [](const std::string&) { return false; };
    std::function<std::string(const std::string& prompt, const std::string& title)> input =
        [](const std::string&, const std::string&) { return std::string(); }; // empty on Cancel

    // Games and the seek graph
    std::function<void()> endAllGames = [] {}; // `zEndAllGames`
    std::function<void()> unloadSeek = [] {};  // `frmSeek`, if it is loaded
    // On every board: panels 1 to 3 of `stbGame` and `currentGame` empty, the caption "Brightrank - Board".
    std::function<void()> clearBoards = [] {};

    // The TimeSeal bridge
    std::function<void(double seconds)> wait = [](double) {};        // `zWait`; the message loop runs meanwhile
    std::function<void()> pump = [] {};                              // runs the message loop once
    std::function<bool()> bridgeProgramFound = [] { return false; }; // "timeseal.exe" in the current directory
    // Starts the program, hidden, with these arguments: host, port, "-p", "6000".
    std::function<void(const std::vector<std::string>& arguments)> startBridge = [](const std::vector<std::string>&) {};
    std::function<std::int32_t()> zTimeSealHandle = [] { return 0; }; // of a running bridge, 0 for none
    // Asks the bridge with this handle to end.
    std::function<void(std::int32_t handle)> closeTimeSeal = [](std::int32_t) {};
};

// One connection at a time. It keeps no state of its own about it but a copy of the socket's state at the latest tick,
// so a state that lasts less than a tick never shows.
struct Connection {
    ConnectionHooks hooks;

    std::string ConnectionLabel;  // "FICS", "ICC", "Timeseal", or host + " Port " + port
    std::string LabelAfterBridge; // taken over at the first text through the bridge
    std::int16_t SocketState = 0; // 0 to 9, as the latest tick saw it
    std::int16_t LastServer = 0;  // setting `Last_Server`; only loaded and saved
    bool ClosedByUser = true;     // keeps `tmrClose` off
    std::string StartDirectory;   // the working directory at start-up
    std::int16_t CloseTicks = 0;  // beeps of `tmrClose` so far
    bool FirstTickDone = false;

    // The check marks of the menu items of these names.
    bool mnuUseTS = true;
    bool mnuAutoCon = false;
    bool mnuAutoLogon = false;

    // Connects to the server profile `index`, 0 to 4; others do nothing, nor does any while the program closes. The
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

    // Gives a running bridge up to seven seconds to end by itself, the caption saying so, and then asks it once to end.
    // The message loop runs meanwhile; a bridge that is started there ends the wait and is left alone. Also runs at
    // close-down.
    void zTerminateTimeSeal();

    // To be called on every arrival: the first text through the bridge names the connection.
    void textArrived();

private:
    void direct(const std::string& host, std::int32_t port, const std::string& label);
    void throughBridge(const std::string& host, std::int32_t port);
    void askForServer();
    void stateChanged(int state);

    bool firstTickRunning_ = false;
    int wishes_ = 0;          // the user's so far: connections to set up, or to close
    int bridges_ = 0;         // started so far
    int tickInterval_ = 1000; // milliseconds
};

// The text that follows `ClientTitle` for the socket state `state`.
std::string stateText(int state, const std::string& connectionLabel);
