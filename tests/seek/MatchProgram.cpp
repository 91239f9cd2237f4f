// A program that fills one box of the match dialog and presses OK; started by MatchFaultTest.
#include "common/modChess.h"
#include "platform/Application.h"
#include "seek/frmMatch.h"
#include "settings/MemoryStore.h"

#include <QAbstractButton>
#include <QTimer>

#include <cstdio>
#include <string>

namespace {

void say(const std::string& text) {
    std::puts(text.c_str());
    std::fflush(stdout);
}

} // namespace

// Arguments: "match" or "seek", the box, its text, and "server" to tick the server's settings.
int main(int argc, char** argv) {
    Application application(argc, argv);
    if (argc < 4) return 2;
    const auto values = std::make_shared<MemoryValues>();
    const MatchRoads roads{
        .store = memoryStore(values),
        .zSendMsg = [](const std::string& line) { say("sent " + line); },
    };
    modChess.MatchMode = argv[1] == std::string("match");
    return application.run([&] {
        frmMatch& dialog = frmMatch::showIt(roads);
        dialog.findChild<QLineEdit*>(QString::fromLatin1(argv[2]))->setText(QString::fromLatin1(argv[3]));
        if (argc > 4) dialog.findChild<QAbstractButton*>(QStringLiteral("chkServer"))->click();
        QTimer::singleShot(0, &dialog, [&dialog, values] {
            dialog.findChild<QAbstractButton*>(QStringLiteral("cmdOK"))->click();
            say("keys written " + std::to_string(values->keysWritten.size()));
            QCoreApplication::exit(0);
        });
    });
}
