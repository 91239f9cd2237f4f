// A chess server on the loopback interface that says what a test tells it to, in packets of the test's choice.
#include "session/ScriptedServer.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <algorithm>
#include <sstream>
#include <utility>

#include <sys/socket.h>

namespace {

constexpr auto None = std::string_view::npos;

// Where the server waits for its client, counted from 0: behind the next question, or at the end.
std::size_t nextPause(std::string_view text) {
    std::size_t pause = text.size();
    for (const std::string_view question : {"login: ", "password: "}) {
        const auto place = text.find(question);
        if (place != None) pause = std::min(pause, place + question.size());
    }
    return pause;
}

// Behind the LF of the next line and the CR that belongs to it.
std::size_t nextLine(std::string_view text) {
    const auto feed = text.find('\n');
    if (feed == None) return text.size();
    return feed + (feed + 1 < text.size() && text[feed + 1] == '\r' ? 2 : 1);
}

std::size_t nextPacket(std::string_view text, Packets packets) {
    const std::size_t pause = nextPause(text);
    switch (packets) {
    case Packets::OneByte:
        return 1;
    case Packets::SevenBytes:
        return std::min<std::size_t>(pause, 7);
    case Packets::OneLine:
        return std::min(pause, nextLine(text));
    case Packets::UpToAPause:
        return pause;
    }
    return pause;
}

} // namespace

std::vector<std::string_view> packetsOf(std::string_view script, Packets packets) {
    std::vector<std::string_view> all;
    while (!script.empty()) {
        const std::size_t length = nextPacket(script, packets);
        all.push_back(script.substr(0, length));
        script.remove_prefix(length);
    }
    return all;
}

ScriptedServer::ScriptedServer() {
    QObject::connect(&listener_, &QTcpServer::newConnection, &listener_, [this] { takeClient(); });
    listener_.listen(QHostAddress::LocalHost);
}

ScriptedServer::~ScriptedServer() { cutOff(); }

void ScriptedServer::takeClient() {
    cutOff();
    client_ = listener_.nextPendingConnection();
    client_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(client_, &QTcpSocket::readyRead, client_,
                     [this, from = client_] { received += from->readAll().toStdString(); });
    QObject::connect(client_, &QTcpSocket::disconnected, client_, [this, from = client_] {
        if (client_ == from) client_ = nullptr;
        from->deleteLater();
    });
}

void ScriptedServer::send(std::string_view bytes) {
    sendLater(bytes);
    while (client_ && client_->bytesToWrite() > 0 && client_->flush()) {
    }
}

void ScriptedServer::sendLater(std::string_view bytes) {
    if (client_) client_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::int64_t ScriptedServer::unsent() const { return client_ ? client_->bytesToWrite() : 0; }

void ScriptedServer::hangUp() {
    if (client_) client_->disconnectFromHost();
}

void ScriptedServer::cutOff() {
    QTcpSocket* const client = std::exchange(client_, nullptr);
    if (!client) return;
    client->disconnect(client);
    const linger none{1, 0}; // without a goodbye
    setsockopt(static_cast<int>(client->socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    client->abort();
    client->deleteLater();
}

std::vector<std::string> ScriptedServer::commands() const {
    std::istringstream text(received);
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}
