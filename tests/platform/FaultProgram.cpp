// A program that meets a fault in the way its argument names; started by ApplicationTest.
#include "common/FixedArray.h"
#include "platform/Application.h"
#include "platform/Boxes.h"
#include "platform/MessageLoop.h"
#include "platform/tcpClient.h"

#include <QDeadlineTimer>
#include <QLabel>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <map>
#include <memory>
#include <stdexcept>

namespace {

FixedArray<int, 1000> lines;

void meetFault() { lines[1001] = 1; }

void say(const char* text) {
    std::puts(text);
    std::fflush(stdout);
}

// One connection to the program itself, with text on the way to `client`.
struct Loopback {
    QTcpServer server;
    tcpClient client;

    Loopback() {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server,
                         [this] { server.nextPendingConnection()->write("text\n\r"); });
        client.RemoteHost = "127.0.0.1";
        client.RemotePort = server.serverPort();
        client.Connect();
    }
};

struct FaultyPaint : QWidget {
    void paintEvent(QPaintEvent*) override { meetFault(); }
};

struct FaultyEnd : QObject {
    ~FaultyEnd() override {
        QObject other;
        QObject::connect(&other, &QObject::destroyed, [] { meetFault(); });
    }
};

std::unique_ptr<Loopback> loopback;
std::unique_ptr<QTcpSocket> rawSocket;
std::unique_ptr<FaultyPaint> window;
QTimer ticker;

void inATimer() { QTimer::singleShot(1, meetFault); }

void inADataArrival() {
    loopback = std::make_unique<Loopback>();
    loopback->client.onDataArrival = [](std::int32_t) { meetFault(); };
}

void inASlotOfTheSystemsSocket() {
    loopback = std::make_unique<Loopback>();
    rawSocket = std::make_unique<QTcpSocket>();
    QObject::connect(rawSocket.get(), &QTcpSocket::readyRead, meetFault);
    rawSocket->connectToHost(QHostAddress::LocalHost, loopback->server.serverPort());
}

void inANestedPump() {
    QTimer::singleShot(0, [] {
        QTimer::singleShot(1, [] {
            QTimer::singleShot(1, meetFault);
            zWait(5);
        });
        zWait(5);
        say("the outer routine went on");
    });
}

void inAPumpWithinADataArrival() {
    loopback = std::make_unique<Loopback>();
    loopback->client.onDataArrival = [](std::int32_t) {
        QTimer::singleShot(1, meetFault);
        while (true) pumpMessages();
    };
}

void inAQueuedCall() { QMetaObject::invokeMethod(qApp, meetFault, Qt::QueuedConnection); }

void inAPainting() {
    window = std::make_unique<FaultyPaint>();
    window->show();
}

void inADestructor() {
    QTimer::singleShot(1, [] { const FaultyEnd end; });
}

void byAnotherException() {
    QTimer::singleShot(1, [] { throw std::out_of_range("another limit"); });
}

void byAnUnknownException() {
    QTimer::singleShot(1, [] { throw 5; });
}

// The last box runs a message loop of its own; nothing of the stopped program may run in it.
void withABox() {
    auto* application = static_cast<Application*>(qApp);
    application->interactive = [] { return true; };
    application->stopEverything = [] { // it may meet faults of its own
        say("stopped");
        meetFault();
    };
    boxes.message = [](QWidget*, const std::string&, const std::string& text) {
        say("box up");
        QTimer::singleShot(1, [] { say("a timer ran"); });
        const QDeadlineTimer deadline(200);
        while (!deadline.hasExpired()) pumpMessages();
        say(text.c_str());
    };
    window = std::make_unique<FaultyPaint>();
    QObject::connect(&ticker, &QTimer::timeout, [] { say("tick"); });
    QTimer::singleShot(20, [] {
        ticker.start(1);
        window->show();
        meetFault();
    });
}

// The start may pump, and the program be closed in that pump.
void endWhileStarting() {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    pumpMessages();
    say("started");
}

void withCommandsOfATerminal() {
    QTimer::singleShot(1, [] {
        throw Fault(FaultKind::TypeMismatch, "\"\x1b]0;title\x07\x9b"
                                             "2Jx\n\xfc\" is no number");
    });
}

void showALabel() {
    QLabel label(QStringLiteral("<b>text</b>"));
    label.show();
    say(label.textFormat() == Qt::PlainText ? "plain" : "markup");
    QCoreApplication::exit(0);
}

const std::map<std::string, void (*)()> ways{
    {"start", meetFault},
    {"timer", inATimer},
    {"arrival", inADataArrival},
    {"socket", inASlotOfTheSystemsSocket},
    {"nested", inANestedPump},
    {"nestedArrival", inAPumpWithinADataArrival},
    {"queued", inAQueuedCall},
    {"painting", inAPainting},
    {"destructor", inADestructor},
    {"exception", byAnotherException},
    {"unknown", byAnUnknownException},
    {"box", withABox},
    {"endWhileStarting", endWhileStarting},
    {"label", showALabel},
    {"terminal", withCommandsOfATerminal},
    {"none", [] { QTimer::singleShot(1, [] { QCoreApplication::exit(7); }); }},
};

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    application.stopEverything = [] { say("stopped"); };
    const auto way = argc > 1 ? ways.find(argv[1]) : ways.end();
    if (way == ways.end()) return 2;
    return application.run(way->second);
}
