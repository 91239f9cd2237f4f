// The connection of the session: server profiles, the caption's view of the socket, and what a loss of it does.
#include "session/Connection.h"

#include "common/Numbers.h"
#include "common/ServerRoad.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <cmath>
#include <filesystem>
#include <optional>
#include <utility>

namespace {

constexpr int CloseBeeps = 3;

struct Server {
    std::string host;
    std::int32_t port;
};

// "host,5001"; the host is not trimmed. A number past 32 bits becomes -1, which is no port either.
std::optional<Server> serverOf(const std::string& answer) {
    const auto comma = find(1, answer, ",");
    if (comma <= 1 || comma >= static_cast<long>(answer.size())) return std::nullopt;
    const double port = roundHalfEven(leadingNumber(mid(answer, comma + 1)));
    const bool fits = std::abs(port) <= 2147483647.0;
    return Server{std::string(mid(answer, 1, comma - 1)), fits ? static_cast<std::int32_t>(port) : -1};
}

} // namespace

std::string stateText(int state, const std::string& connectionLabel) {
    switch (state) {
    case 0:
        return "   Closed";
    case 1:
        return "   Open";
    case 2:
        return "Listening";
    case 3:
        return "   Connection pending";
    case 4:
        return "   Resolving host";
    case 5:
        return "   Host resolved";
    case 6:
        return "   Connecting";
    case 7:
        return "   Connected to " + connectionLabel;
    case 8:
        return "   Peer is closing the connection";
    default:
        return "   Error";
    }
}

void Connection::mnuConnectClick(std::int16_t index) {
    if (modChess.AppClosing) return;
    std::error_code ignored; // a folder that has gone leaves the current one
    if (!StartDirectory.empty()) std::filesystem::current_path(StartDirectory, ignored);
    const Server own{modChess.ServerIP, modChess.ServerPort};
    switch (index) {
    case 0:
    case 1:
        if (!mnuUseTS) return direct(own.host, own.port, "FICS");
        return index == 0 ? throughBridge(own.host, own.port) : throughBridge(FicsHost, FicsPort);
    case 2:
        return askForServer();
    case 3:
        return throughBridge(own.host, own.port);
    case 4:
        return direct(IccHost, IccPort, "ICC");
    }
}

void Connection::direct(const std::string& host, std::int32_t port, const std::string& label) {
    ++wishes_;
    if (hooks.socketState() != 0 || SocketState != 0) {
        SocketState = Unseen; // one that fails within the tick is a change too
        sessionEnded();
    }
    hooks.connectTo(host, port);
    ConnectionLabel = label;
}

void Connection::throughBridge(const std::string& host, std::int32_t port) {
    const int wish = ++wishes_;
    const auto overtaken = [&] { return modChess.AppClosing || wish != wishes_; };
    bridge.makeRoom();
    if (overtaken()) return;
    if (!bridge.hooks.programFound()) {
        hooks.message("Timeseal.exe not found. TimeSeal is not activated.");
        mnuUseTS = false;
        hooks.checksChanged();
        if (!overtaken()) direct(host, port, "FICS"); // the message lets the loop run too
        return;
    }
    bridge.start(host, port);
    if (overtaken()) return;
    direct("localhost", BridgePort, "Timeseal");
    LabelAfterBridge = "FICS";
}

void Connection::askForServer() {
    const auto server = serverOf(hooks.input("Enter IP, Port", "Alternate Server"));
    if (server) direct(server->host, server->port, server->host + " Port " + std::to_string(server->port));
}

void Connection::mnuCloseClick() {
    ++wishes_;
    hooks.closeSocket();
    ClosedByUser = true;
    bridge.zTerminateTimeSeal();
}

void Connection::mnuAutoConClick() {
    mnuAutoCon = !mnuAutoCon;
    hooks.checksChanged();
    if (mnuAutoCon && hooks.socketState() == 0) mnuConnectClick(LastServer);
}

void Connection::mnuAutoLogonClick() {
    mnuAutoLogon = !mnuAutoLogon;
    hooks.checksChanged();
}

void Connection::mnuUseTSClick() {
    mnuUseTS = !mnuUseTS;
    hooks.checksChanged();
}

void Connection::tmrTCPTimer() {
    // The bridge's waits run the message loop, so this tick may come again within the first.
    if (!FirstTickDone && !std::exchange(firstTickRunning_, true)) {
        if (mnuAutoCon) mnuConnectClick(LastServer);
        FirstTickDone = true;
    }
    const int state = hooks.socketState();
    if (state == SocketState) {
        hooks.countIdle(state == ServerRoad::Connected);
    } else {
        stateChanged(state);
    }
    const int interval = modChess.gTestOpen ? 200 : 1000;
    if (interval != std::exchange(tickInterval_, interval)) hooks.setTickInterval(interval);
}

void Connection::stateChanged(int state) {
    SocketState = static_cast<std::int16_t>(state);
    const std::string text = stateText(state, ConnectionLabel);
    if (state == 0) {
        sessionEnded();
        if (!ClosedByUser) hooks.enableCloseTimer(true);
    }
    hooks.setCaption(ClientTitle + text);
}

void Connection::sessionEnded() {
    hooks.beep();
    modChess.MyHandle.clear();
    hooks.endAllGames();
    hooks.unloadSeek();
}

void Connection::tmrCloseTimer() {
    hooks.beep();
    if (++CloseTicks < CloseBeeps) return;
    CloseTicks = 0;
    hooks.enableCloseTimer(false);
    hooks.clearBoards();
    if (LastServer == 0 && hooks.yesNo("Connection to ICS Closed.  Reconnect?")) mnuConnectClick(0);
}

void Connection::socketClosed() { hooks.closeSocket(); }

void Connection::socketError(const std::string& description) {
    const std::string small = lower(description);
    const bool unreachable = contains(small, "host not found") || contains(small, "connection is");
    hooks.message(unreachable ? "Server not found\nCheck Internet connection" : description);
    hooks.closeSocket();
}

void Connection::textArrived() {
    if (ConnectionLabel != "Timeseal") return;
    ConnectionLabel = LabelAfterBridge;
    hooks.setCaption("Connected to " + ConnectionLabel);
}
