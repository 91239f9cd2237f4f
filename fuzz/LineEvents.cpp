// The program without its windows: time, and what the line to the server does in it.
#include "StreamRig.h"

#include "Events.h"
#include "Require.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>
#include <array>
#include <limits>

void StreamRig::lineEvent(const Tape::Segment& segment) {
    switch (segment.kind) {
    case Event::Options:
        return setOptions(segment.argument);
    case Event::ConnectionOptions:
        return setConnectionOptions(segment.argument);
    case Event::TimePasses:
        return pass(segment.argument);
    case Event::Connect:
        return session_.connection.mnuConnectClick(static_cast<std::int16_t>(segment.choice()));
    case Event::Disconnect:
        return session_.connection.mnuCloseClick();
    case Event::SocketError:
        return failSocket(segment.choice());
    case Event::TmrTCP:
        return quietUntil(SessionTimer::tmrTCP);
    case Event::TmrClose:
        return quietUntil(SessionTimer::tmrClose);
    case Event::ProgramCloses:
        modChess.AppClosing = true;
        return;
    case Event::Lists:
        return listsEvent(segment.choice());
    case Event::Help:
        return helpEvent(segment.choice());
    case Event::SelfCheck:
        return selfCheckEvent(segment.choice());
    case Event::Panels:
        return panelsEvent(segment.choice());
    default:
        return;
    }
}

void StreamRig::setConnectionOptions(unsigned bits) {
    const auto bit = [bits](unsigned number) { return (bits >> number & 1U) != 0; };
    session_.connection.mnuUseTS = bit(0);
    session_.connection.mnuAutoCon = bit(1);
    session_.connection.ClosedByUser = !bit(2);
    modChess.gTestOpen = bit(3);
    userSaysYes_ = bit(4);
    programFound_ = bit(5);
}

// May run within itself, when what happens waits for something.
void StreamRig::pass(std::int64_t milliseconds) {
    const std::int64_t until = clock_.now + milliseconds;
    while (takeStep(until)) {
    }
    clock_.now = std::max(clock_.now, until);
}

// The first of what happens up to `until`; false if nothing does.
bool StreamRig::takeStep(std::int64_t until) {
    const auto text = socket_.due(clock_.now);
    const auto firing = clock_.next();
    const auto poll = seek_ ? seek_->due : std::nullopt;
    const auto asking = history_ ? history_->due : std::nullopt;
    const auto helping = help_ ? help_->due : std::nullopt;
    constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();
    const std::int64_t at =
        std::min({text.value_or(Never), firing ? firing->at : Never, poll.value_or(Never), asking.value_or(Never),
                  helping.value_or(Never), vars_.due.value_or(Never), notes_.due.value_or(Never)});
    if (at == Never || at > until) return false;
    const bool textFirst = text == at;
    clock_.now = std::max(clock_.now, at);
    if (textFirst) {
        const std::size_t before = socket_.given();
        deliver();
        const auto due = socket_.due(clock_.now);
        require(socket_.given() > before || (due && *due > clock_.now), "text that is due is given, or waits on");
        return true;
    }
    if (firing && firing->at == at) {
        fire(firing->timer);
    } else if (poll == at) {
        seek_->fire();
    } else if (asking == at) {
        tmrHist();
    } else if (!panelAsks(at)) {
        tmrHelp();
    }
    return true;
}

void StreamRig::fire(SessionTimer timer) {
    clock_.fired(timer);
    const auto linesSent = modChess.LinesSent;
    const auto before = session_.connection.SocketState;
    session_.timerFired(timer);
    const TextPipeline& pipeline = session_.pipeline;
    switch (timer) {
    case SessionTimer::tmrArrival:
        return require(pipeline.PendingText.empty(), "three seconds of silence let go what is held");
    case SessionTimer::tmrPrompt:
        return;
    case SessionTimer::tmrState:
        return require(!TextPipeline::BusyTest(), "five seconds end a capture");
    case SessionTimer::tmrTCP:
        require(session_.connection.SocketState == socket_.state(), "a tick sees the socket's state");
        if (before != RigSocket::Closed && socket_.state() == RigSocket::Closed) checkLost();
        return;
    case SessionTimer::tmrClose:
        return;
    case SessionTimer::AutoLogon:
        return require(pipeline.login == 0 || modChess.LinesSent == linesSent,
                       "a prompt that is answered is none any longer, and a key whose time has gone sends nothing");
    case SessionTimer::Messages:
        return;
    }
}

// Time passes until the timer has fired, if it runs when all text has been given.
void StreamRig::quietUntil(SessionTimer timer) {
    while (socket_.waits()) pass(1);
    while (clock_.runs(timer)) {
        const auto firing = clock_.next();
        pass(std::max<std::int64_t>(0, firing->at - clock_.now));
        if (firing->timer == timer) return;
    }
}

void StreamRig::deliver() {
    while (socket_.deliver(modChess.gPrompt, clock_.now)) {
        session_.zDataArrival();
        require(socket_.taken() == socket_.given(), "an arrival is taken when it is told");
    }
}

// What the peer sent still comes; the tick that sees the closed socket ends all games.
void StreamRig::hangUp() {
    if (!socket_.connected()) return;
    socket_.endReceiving(RigSocket::PeerClosing, clock_.now);
    deliver();
    session_.socketClosed();
    require(socket_.state() == RigSocket::Closed, "a connection that the peer closed is closed");
    quietUntil(SessionTimer::tmrTCP);
}

void StreamRig::failSocket(int choice) {
    static constexpr std::array Descriptions{"Host not found", "Connection is reset by remote side", "Weather"};
    if (!socket_.connected()) return;
    socket_.endReceiving(RigSocket::Error, clock_.now);
    deliver();
    session_.socketError(Descriptions[static_cast<std::size_t>(choice) % Descriptions.size()]);
    require(socket_.state() == RigSocket::Closed, "a connection that failed is closed");
}

// As soon as a tick has seen it: text that is still held then may bring a game all the same.
void StreamRig::checkLost() const noexcept {
    require(modChess.MyHandle.empty(), "a lost connection has no handle");
    for (const auto& board : boards_) {
        require(board->game.Style12Record.Relation == -100 && !board->game.icsMode, "a lost connection has no game");
    }
}
