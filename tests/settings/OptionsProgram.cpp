// A program that types into one live box of the options dialog; started by OptionsFaultTest.
#include "common/modChess.h"
#include "platform/Application.h"
#include "settings/MemoryStore.h"
#include "settings/frmOptions.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <cstdio>

namespace {

// As the window system brings them.
void type(QLineEdit& box, const QString& text) {
    box.selectAll();
    if (text.isEmpty()) {
        QKeyEvent remove(QEvent::KeyPress, Qt::Key_Delete, {});
        QCoreApplication::sendEvent(&box, &remove);
    }
    for (const QChar c : text) {
        QKeyEvent key(QEvent::KeyPress, 0, {}, QString(c));
        QCoreApplication::sendEvent(&box, &key);
    }
}

} // namespace

// Arguments: the box, and its text.
int main(int argc, char** argv) {
    Application application(argc, argv);
    if (argc < 3) return 2;
    const auto values = std::make_shared<MemoryValues>();
    const OptionsRoads roads{
        .store = memoryStore(values),
        .account = [] { return OptionsAccount{}; },
        .takeAccount = [](const OptionsAccount&) {},
        .testWave = [](std::string_view) {},
        .testBeep = [] {},
        .showBoardColors = [](QPoint) {},
    };
    return application.run([&] {
        frmOptions& dialog = frmOptions::showIt(roads);
        type(*dialog.findChild<QLineEdit*>(QString::fromLatin1(argv[1])), QString::fromLocal8Bit(argv[2]));
        dialog.close();
        std::printf("port %d warning %d keys written %zu\n", modChess.ServerPort, modChess.WarnTime,
                    values->keysWritten.size());
        QCoreApplication::exit(0);
    });
}
