// One client at its socket.
#include "practice/server/Connection.h"

#include "practice/commands/Commands.h"
#include "practice/play/Departure.h"
#include "practice/wire/Telnet.h"

#include <QTimer>

#include <utility>

namespace practice {

Connection::Connection(QTcpSocket* socket, Hall& hall, Host& host) : socket_(socket), hall_(hall), host_(host) {
    socket_->setReadBufferSize(readLimit);
    // Else a computer's move waits until the client's system has acknowledged the one before.
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(socket_, &QTcpSocket::readyRead, socket_, [this] { work(); });
    QObject::connect(socket_, &QTcpSocket::bytesWritten, socket_, [this] { work(); });
    QObject::connect(
        socket_, &QTcpSocket::disconnected, socket_, [this] { host_.closed(*this); }, Qt::QueuedConnection);
}

Connection::~Connection() {
    socket_->disconnect();
    socket_->abort();
    socket_->deleteLater();
}

void Connection::begin() {
    write(LoginDialog::greeting());
    work();
}

std::string Connection::startSession(Player& player) {
    handle_ = player.name;
    player.show = [this](const std::string& text) { show(text); };
    player.resume = [this] { work(); };
    return welcome(player.titled()) + prompt();
}

void Connection::finish(const std::string& text) { hangUp(wireText(text)); }

void Connection::hangUp(const std::string& bytes) {
    if (finished_) return;
    finished_ = true;
    handle_.clear();
    lines_.clear();
    send(bytes);
    socket_->disconnectFromHost();
    // A client that does not read would keep its socket open for ever.
    QTimer::singleShot(closingTime, socket_, [socket = socket_] { socket->abort(); });
}

// While a move is judged its players' lines wait, so that answers come in the order of the commands.
bool Connection::mayWork() {
    if (finished_ || socket_->bytesToWrite() > writePause) return false;
    const Player* player = handle_.empty() ? nullptr : hall_.find(handle_);
    const Game* game = player ? hall_.gameAtBoard(*player) : nullptr;
    return !game || !game->pending;
}

// Small portions leave the rest in the socket while the client is made to wait.
bool Connection::readMore() {
    constexpr qint64 portion = 4096;
    const QByteArray bytes = socket_->read(portion);
    const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    host_.log.take(handle_, view, unlogged_);
    for (std::string& line : reader_.take(view)) {
        lines_.push_back(std::move(line));
    }
    return !bytes.isEmpty();
}

void Connection::work() {
    // Running a line may write, and that may call here again.
    if (working_) return;
    working_ = true;
    while (mayWork()) {
        if (lines_.empty() && !readMore()) break;
        if (lines_.empty()) continue;
        const std::string line = std::move(lines_.front());
        lines_.pop_front();
        takeLine(line);
    }
    working_ = false;
}

void Connection::takeLine(const std::string& line) {
    if (handle_.empty()) return logOn(line);
    if (Player* player = hall_.find(handle_)) run(*player, line);
}

// Typing is hidden behind the question for it and shown ahead of what follows.
void Connection::logOn(const std::string& line) {
    LoginDialog::Step step = login_.take(line, host_.questions);
    if (step.course == LoginDialog::Course::Entered) step.text += startSession(host_.enter(*this));
    std::string bytes = wireText(step.text);
    if (step.typing == LoginDialog::Typing::Shown) bytes.insert(0, showTyping);
    if (step.typing == LoginDialog::Typing::Hidden) bytes += hideTyping;
    if (step.course == LoginDialog::Course::Refused) return hangUp(bytes);
    send(bytes);
}

// Text, line break, prompt: an answer begins right behind what the client typed.
void Connection::run(Player& player, const std::string& line) {
    running_ = true;
    const Answer result = runCommand(hall_, player, line);
    running_ = false;
    if (result.leaving) {
        const std::string name = handle_;
        finish(result.text);
        return leaveHall(hall_, name);
    }
    const std::string text = (result.text.empty() ? result.text : result.text + "\n") + std::exchange(blocks_, {});
    write(text + (result.prompt || !text.empty() ? prompt() : std::string()));
}

// A block that nobody asked for stands behind a pending prompt and so begins with a line break.
void Connection::show(const std::string& text) {
    const std::string block = "\n" + text + "\n";
    if (running_) {
        blocks_ += block;
    } else {
        write(block + prompt());
    }
}

void Connection::write(const std::string& text) { send(wireText(text)); }

void Connection::send(const std::string& bytes) {
    if (bytes.empty() || socket_->state() != QAbstractSocket::ConnectedState) return;
    if (socket_->bytesToWrite() > outputLimit) {
        // Not at once: the caller may be in the middle of a walk through all players.
        finished_ = true;
        QTimer::singleShot(0, socket_, [socket = socket_] { socket->abort(); });
        return;
    }
    socket_->write(QByteArray::fromStdString(bytes));
}

std::string Connection::prompt() {
    const Player* player = hall_.find(handle_);
    return player ? player->variables.prompt : std::string();
}

} // namespace practice
