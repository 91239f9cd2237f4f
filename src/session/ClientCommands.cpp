// The console window: its keys, buttons and menu entries.
#include "session/frmChessClient.h"

#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/MenuEntry.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace {

// Of the oldest chat box.
WindowPlace runningChatPlace() {
    for (const OpenWindow& open : openWindows.windows) {
        if (open.chat) return static_cast<const frmChat*>(open.window)->place();
    }
    return frmChat::startPlace();
}

} // namespace

void frmChessClient::wireKeys() {
    TypingHooks& hooks = typingKeys.hooks;
    hooks.text = [this] { return txtSend->line(); };
    hooks.setText = [this](const std::string& text) { txtSend->setLine(text); };
    hooks.caretToEnd = [this] { txtSend->end(false); };
    hooks.focus = [this] { txtSend->setFocus(); };
    txtSend->keyDown = [this](int code, bool shift) {
        return code == KeyEnter ? typingKeys.zTxtSend(code) : typingKeys.typingKeyDown(code, shift);
    };
    txtOutput->keyDown = [this](int code) { return typingKeys.consoleKeyDown(code); };
    txtOutput->beep = [] { QApplication::beep(); };
    txtOutput->typed = [this](const QString& text) {
        for (const char c : bytesOf(text)) {
            if (static_cast<unsigned char>(c) >= ' ' && c != 127)
                typingKeys.consoleKeyPress(static_cast<unsigned char>(c));
        }
        txtSend->setFocus();
    };
    for (QToolButton* button : cmdTell) {
        connect(button, &QToolButton::clicked, this,
                [this, button] { typingKeys.pressButton(bytesOf(button->toolTip())); });
    }
    connect(cmdAcc, &QPushButton::clicked, this, [this] { typingKeys.pressButton("Accept"); });
    connect(cmdDec, &QPushButton::clicked, this, [this] { typingKeys.pressButton("Decline"); });
}

void frmChessClient::wireMenus() {
    for (QAction* profile : menus.mnuConnect) {
        onChosen(profile, this,
                 [this, profile] { connection.mnuConnectClick(static_cast<std::int16_t>(profile->data().toInt())); });
    }
    on(menus.mnuUseTS, [this] { connection.mnuUseTSClick(); });
    on(menus.mnuAutoCon, [this] { connection.mnuAutoConClick(); });
    on(menus.mnuAutoLogon, [this] { connection.mnuAutoLogonClick(); });
    on(menus.mnuClose, [this] { connection.mnuCloseClick(); });
    onChosen(menus.mnuExit, this, [this] { close(); });
    wireConsoleMenu();
    onChosen(menus.mnuBoard, this, [this] { routing.zNewBoard(); });
    onChosen(menus.mnuMatch, this, [this] {
        modChess.MatchMode = true;
        roads_.showMatch();
    });
    on(menus.mnuTest, [this] { dumpRegistry(); });
    onChosen(menus.mnuAbout, this, [this] {
        boxes.message(this, "Brightrank", "Brightrank " + bytesOf(QApplication::applicationVersion()));
    });
}

void frmChessClient::wireConsoleMenu() {
    blockMode.hooks.caption = [this] { return bytesOf(windowTitle()); };
    blockMode.hooks.setCaption = [this](const std::string& caption) { setWindowTitle(shownText(caption)); };
    blockMode.hooks.insertAtEnd = [this](const std::string& text) {
        txtOutput->moveToEnd();
        txtOutput->insert(text);
    };
    on(menus.mnuBlocked, [this] {
        blockMode.toggle(classifier.menu.mnuBlocked);
        menus.mnuBlocked->setChecked(classifier.menu.mnuBlocked);
    });
    on(menus.mnuStupid, [this] { serverLines.verbose = menus.mnuStupid->isChecked(); });
    on(menus.mnuClear, [this] { txtOutput->clearScreen(); });
    on(menus.mnuXP, [this] {
        resize(width() + 1, height()); // lets the new look take
        resize(width() - 1, height());
        fitMargins();
    });
}

// The ticks that the connection and the classifier keep.
void frmChessClient::takeMenuTicks() {
    menus.mnuUseTS->setChecked(connection.mnuUseTS);
    menus.mnuAutoCon->setChecked(connection.mnuAutoCon);
    menus.mnuAutoLogon->setChecked(connection.mnuAutoLogon);
    classifier.menu.mnuAutoLogon = connection.mnuAutoLogon;
    classifier.menu.mnuSeekGrf = menus.mnuSeekGrf->isChecked();
}

void frmChessClient::dumpRegistry() {
    collectSettings();
    RunningWindows windows = roads_.runningWindows;
    windows.place = [this](const WindowSection& section) {
        const bool chat = std::string_view(section.name) == ChatSection.name;
        return chat ? runningChatPlace() : roads_.runningWindows.place(section);
    };
    if (writeRegDump(zDumpReg(roads_.store, settings, windows))) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QDir::current().filePath(QString::fromLatin1(RegDumpFile))));
    }
}
