// The one socket to the server.
#include "platform/tcpClient.h"

#include "platform/Clock.h"
#include "platform/LineWatch.h"
#include "platform/StreamText.h"

#include <QNetworkProxy>
#include <QTcpSocket>

#include <array>
#include <utility>

#include <sys/socket.h>

namespace {

constexpr qint64 ReadBufferBytes = 65536;
constexpr int PartingMs = 3000; // how long a closed connection may take to send its rest
constexpr int LastChanceMs = 500;

// The client tells by "host not found" and "connection is" that a server could not be reached.
std::string describe(QAbstractSocket::SocketError error, const QString& systemText) {
    switch (error) {
    case QAbstractSocket::HostNotFoundError:
        return "Host not found";
    case QAbstractSocket::ConnectionRefusedError:
        return "Connection is forcefully rejected";
    case QAbstractSocket::RemoteHostClosedError:
        return "Connection is reset by remote side";
    case QAbstractSocket::SocketTimeoutError:
        return "Connection is aborted due to timeout or other failure";
    default:
        return bytesOf(systemText);
    }
}

int descriptorOf(const QTcpSocket& socket) { return static_cast<int>(socket.socketDescriptor()); }

// A handler may replace or destroy what calls it, so it runs on a copy.
template <typename Handler, typename... Arguments>
void fire(Handler handler, Arguments... arguments) {
    if (handler) handler(arguments...);
}

// Says that nothing more will be sent, as soon as all of it is with the system. A plain close would cut the connection
// hard while text of the server waits unread, and the peer could lose what was sent to it.
void endSending(QTcpSocket& socket) {
    if (socket.bytesToWrite() == 0) ::shutdown(descriptorOf(socket), SHUT_WR);
}

// Lets a closed connection send its rest and die by itself.
void part(QTcpSocket* socket) {
    socket->disconnect(socket->parent());
    if (socket->state() != QAbstractSocket::ConnectedState) {
        socket->abort();
        socket->deleteLater();
        return;
    }
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] { socket->readAll(); });
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket, [socket] { endSending(*socket); });
    QTimer::singleShot(PartingMs, socket, [socket] {
        socket->abort();
        socket->deleteLater();
    });
    socket->readAll();
    socket->flush();
    if (socket->state() == QAbstractSocket::ConnectedState) endSending(*socket);
}

} // namespace

tcpClient::tcpClient(QObject* parent) : QObject(parent) {
    delivery_.setSingleShot(true);
    delivery_.setTimerType(Qt::PreciseTimer);
    connect(&delivery_, &QTimer::timeout, this, &tcpClient::deliver);
}

tcpClient::~tcpClient() {
    Close();
    for (QTcpSocket* parting : findChildren<QTcpSocket*>()) {
        while (parting->bytesToWrite() > 0 && parting->waitForBytesWritten(LastChanceMs)) {
        }
    }
}

void tcpClient::Connect() {
    Close();
    state_ = SocketStates::Resolving;
    if (RemotePort < 0 || RemotePort > 65535) {
        fail("Port " + std::to_string(RemotePort) + " is outside 0 to 65535");
        return;
    }
    socket_ = new QTcpSocket(this);
    socket_->setProxy(QNetworkProxy::NoProxy);
    socket_->setReadBufferSize(ReadBufferBytes);
    listenTo(*socket_);
    socket_->connectToHost(shownText(RemoteHost), static_cast<quint16>(RemotePort));
}

void tcpClient::listenTo(QTcpSocket& socket) {
    connect(&socket, &QTcpSocket::stateChanged, this, [this](QAbstractSocket::SocketState state) {
        if (state == QAbstractSocket::ConnectingState) state_ = SocketStates::Connecting;
    });
    connect(&socket, &QTcpSocket::connected, this, &tcpClient::connected);
    connect(&socket, &QTcpSocket::readyRead, this, [this] {
        pull();
        schedule();
    });
    connect(&socket, &QTcpSocket::disconnected, this, &tcpClient::peerClosed);
    connect(&socket, &QTcpSocket::errorOccurred, this, [this](QAbstractSocket::SocketError error) {
        const bool connected = state_ == SocketStates::Connected;
        if (connected && error == QAbstractSocket::RemoteHostClosedError) return;  // `disconnected` follows
        const bool lineDied = connected && error == QAbstractSocket::NetworkError; // no road, no network
        fail(describe(lineDied ? QAbstractSocket::SocketTimeoutError : error, socket_->errorString()));
    });
}

void tcpClient::connected() {
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    watchLine(descriptorOf(*socket_));
    state_ = SocketStates::Connected;
    connectDue_ = true;
    schedule();
}

// Takes no more than the next arrival needs: what is left in the socket's bounded buffer makes the server wait.
void tcpClient::pull() {
    std::array<char, 16384> bytes;
    while (socket_ && cutter_.waiting() <= ArrivalCutter::Limit) {
        const auto count = socket_->isOpen() ? socket_->read(bytes.data(), static_cast<qint64>(bytes.size())) : 0;
        if (count <= 0) return;
        receive({bytes.data(), static_cast<std::size_t>(count)});
    }
}

void tcpClient::receive(std::string_view bytes) { cutter_.append(telnet_.filter(bytes), wallClock.steadyMs()); }

void tcpClient::peerClosed() {
    if (state_ == SocketStates::Connected) state_ = SocketStates::PeerClosing;
    endReceiving();
}

void tcpClient::fail(const std::string& description) {
    state_ = SocketStates::Error;
    if (!failure_) failure_ = description;
    endReceiving();
}

void tcpClient::endReceiving() {
    if (socket_ && socket_->isOpen()) {
        const QByteArray rest = socket_->readAll();
        receive({rest.data(), static_cast<std::size_t>(rest.size())});
    }
    cutter_.append(telnet_.finish(), wallClock.steadyMs());
    cutter_.finish();
    endDue_ = true;
    schedule();
}

void tcpClient::Close() {
    state_ = SocketStates::Closed;
    delivery_.stop();
    telnet_ = {};
    cutter_ = {};
    arrived_.clear();
    failure_.reset();
    connectDue_ = endDue_ = false;
    if (socket_) part(std::exchange(socket_, nullptr));
}

std::string tcpClient::GetData() {
    if (!arrived_.empty()) schedule();
    return std::exchange(arrived_, {});
}

// Writing to a dead connection would throw away what has come on it and was not read yet.
void tcpClient::SendData(const std::string& bytes) {
    if (state_ != SocketStates::Connected || lineIsDead(descriptorOf(*socket_))) return;
    socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket_->flush();
}

void tcpClient::deliver() {
    if (std::exchange(connectDue_, false)) {
        schedule();
        fire(onConnect);
        return;
    }
    pull();
    if (!arrived_.empty()) return; // `GetData` goes on
    if (cutter_.waiting() > 0) {
        deliverText();
    } else if (std::exchange(endDue_, false)) {
        if (failure_) {
            fire(onError, *failure_);
        } else {
            fire(onClose);
        }
    }
}

void tcpClient::deliverText() {
    const auto now = wallClock.steadyMs();
    arrived_ = cutter_.take(prompt(), now);
    if (arrived_.empty()) {
        delivery_.start(static_cast<int>(*cutter_.dueInMs(now)));
        return;
    }
    fire(onDataArrival, static_cast<std::int32_t>(arrived_.size()));
}
