// The whole program in a test: how it is joined, driven and watched.
#include "session/ProgramRig.h"

#include "common/modChess.h"
#include "platform/Application.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/OpenWindows.h"
#include "platform/WaitUntil.h"
#include "session/Messages.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <sys/ioctl.h>
#include <utility>

namespace {

constexpr std::int64_t LinePatienceMs = 30;

} // namespace

ProgramRig::ProgramRig() {
    modChess = ModChess{};
    wallClock.secondsOfDay = [] { return 0.0; }; // where a board's clock starts to look for the next second
    boxes.message = [this](QWidget*, const std::string&, const std::string& text) { messages.push_back(text); };
    boxes.yesNo = [this](QWidget*, const std::string&, const std::string&) {
        ++questions;
        return false;
    };
    boxes.confirm = boxes.yesNo;
    roads.playSound = [this](std::string_view name, std::int16_t) { sounds.emplace_back(name); };
    roads.openBoard = [this] {
        inDrain(0);
        auto* board = new frmChessBoard(*boardRoads);
        board->load();
    };
    fillStore();
    client = std::make_unique<frmChessClient>(roads);
    boardRoads.emplace(client->boardRoads());
    boardRoads->consoleFrame = [] { return QRect(); }; // the first board stands at the corner of the screen
    noteTraffic();
    client->load();
}

ProgramRig::~ProgramRig() {
    client->queryUnload();
    client.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    openWindows.windows.clear();
    wallClock = Clock{};
    boxes = Boxes{};
    modChess = ModChess{};
}

void ProgramRig::fillStore() {
    const auto set = [this](const char* key, const std::string& text) { values->texts[{"Client", key}] = text; };
    set("Registry_OK", "Yes");
    set("Width", "11400");
    set("Height", "8400");
    set("Handle", "Anders");
    set("Password", "secret");
    set("IP", "127.0.0.1");
    set("Port", std::to_string(server.port()));
    set("Auto_Connect", "True");
    set("Auto_Logon", "True");
    set("Use_Timeseal", "False");
}

// The client's own roads stay in place; the rig listens on them.
void ProgramRig::noteTraffic() {
    PipelineHooks& pipeline = client->session.pipeline.hooks;
    pipeline.getData = [this, real = pipeline.getData] {
        std::string text = real();
        fetched_ += text.size();
        return text;
    };
    pipeline.dataParse = [this, real = pipeline.dataParse](const std::string& batch) {
        if (fault) return;
        batches.push_back(batch);
        try {
            real(batch);
        } catch (...) {
            fault = currentFaultLine();
            client->stopEverything();
        }
    };
    ClassifierHooks& classifier = client->session.classifier.hooks;
    classifier.zSetPosition = [this, real = classifier.zSetPosition](int board) {
        const Style12Record record = boardAt(board).Style12Record;
        real(board);
        updates.push_back("game " + std::to_string(record.GameNumber) + " " + record.Position + " ply " +
                          std::to_string(2 * record.MoveNumber + record.SideToMove) + " " + record.PrettyMove);
        inDrain(record.GameNumber);
    };
    classifier.zSetBughouse = [this, real = classifier.zSetBughouse](int board, const std::string& line) {
        real(board, line);
        holdings.push_back("game " + std::to_string(boardAt(board).gameIndex) + " " + line);
    };
}

void ProgramRig::holdTime() {
    wallClock.steadyMs = [this] {
        ++looks_;
        return steady_;
    };
}

void ProgramRig::connectNow() {
    client->session.connection.tmrTCPTimer();
    awaitConnection();
}

void ProgramRig::awaitConnection() {
    ASSERT_TRUE(waitUntil([this] { return server.hasClient() && client->session.road.hooks.socketState() == 7; }));
}

void ProgramRig::cutLine() {
    sent_ += std::exchange(wire_, {}).finish().size();
    server.cutOff();
    EXPECT_TRUE(waitUntil([this] {
        steady_ += LinePatienceMs;
        return client->session.road.hooks.socketState() == 0 || fault;
    }));
    EXPECT_EQ(fetched_, sent_) << "bytes that came and were not read";
    client->session.timerFired(SessionTimer::tmrTCP);
    if (!client->session.pipeline.PendingText.empty()) client->session.timerFired(SessionTimer::tmrArrival);
    client->session.timerFired(SessionTimer::tmrState);
}

void ProgramRig::connectAgain() {
    client->session.connection.mnuConnectClick(1);
    awaitConnection();
}

void ProgramRig::learnPrompt() {
    send(FicsPrompt);
    settle();
    ASSERT_EQ(client->session.serverLines.PartialLine, FicsPrompt);
    client->session.pipeline.tmrPrompt();
    ASSERT_EQ(modChess.gPrompt, FicsPrompt);
    console().clearScreen();
}

void ProgramRig::send(std::string_view bytes) {
    server.send(bytes);
    sent_ += wire_.filter(bytes).size();
}

// A server of the real kind waits for the answer at this place. The first key of each kind comes at once, a further one
// after a pause that nobody sits out here.
void ProgramRig::answerLogOn() {
    const std::int16_t& login = client->session.pipeline.login;
    if (login == 0) return;
    const std::size_t before = server.received.size();
    QCoreApplication::processEvents();
    if (login != 0) client->session.timerFired(SessionTimer::AutoLogon);
    EXPECT_TRUE(waitUntil([&] { return server.received.size() > before; })) << "no answer to the log-on question";
}

// Gives the number of messages up to the one from which packets change nothing.
std::size_t ProgramRig::replayLogOn(const std::vector<std::string_view>& script) {
    std::size_t count = 0;
    bool loggedOn = false;
    while (count < script.size() && (!loggedOn || client->session.pipeline.PassThroughCount > 0)) {
        for (const std::string_view part : packetsOf(script[count], Packets::UpToAPause)) {
            send(part);
            fetchAll();
            answerLogOn();
        }
        loggedOn = script[count++].ends_with(FicsPrompt);
    }
    return count;
}

// Each packet is read, and what is due with it given, before the next one comes.
void ProgramRig::sendPackets(std::string_view text, const Pace& pace) {
    for (const std::string_view packet : inPackets(text, pace.packet)) {
        send(packet);
        EXPECT_TRUE(waitUntil([this] { return hasRead() || fault; }));
        for (int looks = -1; std::exchange(looks, looks_) != looks_;) QCoreApplication::processEvents();
        steady_ += pace.pauseMs;
    }
}

// Nothing that was sent is left with the system or in the socket.
bool ProgramRig::hasRead() const {
    const auto* socket = client->findChild<QTcpSocket*>();
    int left = 0;
    return socket && ioctl(static_cast<int>(socket->socketDescriptor()), FIONREAD, &left) == 0 && left == 0 &&
           socket->bytesAvailable() == 0;
}

void ProgramRig::replayMessages(std::string_view script, const Pace& pace) {
    const auto all = messagesOf(script, FicsPrompt);
    const std::size_t first = replayLogOn(all);
    std::string rest;
    for (std::size_t place = first; place < all.size() && !fault; ++place) {
        rest += all[place];
        if (pace.betweenMs == 0) continue;
        sendPackets(std::exchange(rest, {}), pace);
        if (all[place].ends_with(FicsPrompt)) fetchAll();
        steady_ += pace.betweenMs;
    }
    sendPackets(rest, pace);
    settle();
}

// Lets the time for unfinished lines pass.
void ProgramRig::fetchAll() {
    const bool done = waitUntil([this] {
        steady_ += LinePatienceMs;
        return fetched_ == sent_ || fault;
    });
    EXPECT_TRUE(done) << fetched_ << " of " << sent_ << " bytes were fetched";
}

void ProgramRig::settle() {
    fetchAll();
    if (!fault && !client->session.pipeline.PendingText.empty()) client->session.pipeline.tmrArrival();
    answerLogOn();
    const auto all = static_cast<std::size_t>(modChess.LinesSent);
    EXPECT_TRUE(waitUntil([&] { return server.commands().size() == all; })) << "commands are still under way";
}
