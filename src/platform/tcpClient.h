// The one socket to the server.
#pragma once

#include "platform/ArrivalCutter.h"
#include "platform/TelnetFilter.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QTcpSocket;

// The states of `tcpClient::State`, numbered as the client's caption knows them.
enum class SocketStates {
    Closed = 0,
    Open = 1,
    Listening = 2,
    Pending = 3,
    Resolving = 4,
    Resolved = 5,
    Connecting = 6,
    Connected = 7,
    PeerClosing = 8,
    Error = 9,
};

// One TCP connection at a time. Events never run inside a call to this object or inside a slot of the operating
// system's socket, always from the message loop, so a handler may pump the loop and gets further events meanwhile.
// All received text comes as DataArrival before the Close or Error event that ends a connection.
class tcpClient : public QObject {
    Q_OBJECT

public:
    explicit tcpClient(QObject* parent = nullptr);
    ~tcpClient() override; // lets what was sent still go out, for at most half a second

    // Where `Connect` goes. The port counts 0 to 65535; others end in the Error event.
    std::string RemoteHost;
    std::int32_t RemotePort = 0;

    // Starts to connect and returns at once. A connection that exists or is being made is closed first.
    void Connect();

    // Ends the connection at once: the state is 0 on return and no further event of this connection fires; text not
    // yet delivered is dropped. What was sent before still goes out behind the scenes.
    void Close();

    // The text of the present arrival, 1 to 8192 bytes, one character a byte; empty when there is none. Until it is
    // called there is no further arrival.
    std::string GetData();

    // Sends the bytes as they are; does nothing unless the state is 7.
    void SendData(const std::string& bytes);

    // The state 0 to 9; 1, 2 and 3 never occur.
    int State() const { return static_cast<int>(state_); }

    // The events; each may be left empty. `onError` gets a description in English.
    std::function<void()> onConnect;
    std::function<void()> onClose;
    std::function<void(std::int32_t bytesTotal)> onDataArrival;
    std::function<void(const std::string& description)> onError;

    // The learnt prompt (`gPrompt`), empty before it is learnt.
    std::function<std::string()> prompt = [] { return std::string(); };

private:
    void listenTo(QTcpSocket& socket);
    void connected();
    void pull();
    void receive(std::string_view bytes);
    void peerClosed();
    void fail(const std::string& description);
    void endReceiving();
    void schedule() { delivery_.start(0); }
    void deliver();
    void deliverText();

    QTcpSocket* socket_ = nullptr; // null while there is no connection to end
    SocketStates state_ = SocketStates::Closed;
    TelnetFilter telnet_;
    ArrivalCutter cutter_;
    std::string arrived_;                // the arrival that was announced and not fetched
    std::optional<std::string> failure_; // the end to come is an Error event with this description
    bool connectDue_ = false;
    bool endDue_ = false; // the Close or Error event is to come after the text
    QTimer delivery_;     // 0 ms: deliver from the message loop; longer: what waits has not rested
};
