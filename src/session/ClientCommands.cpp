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
        if (chatOf(open)) return static_cast<const frmChat*>(open.window)->place();
    }
    return frmChat::startPlace();
}

} // namespace

void frmChessClient::connectKeys() {
    txtSend->keyDown = [this](int code, bool shift) {
        return code == KeyEnter ? session.typingKeys.zTxtSend(code) : session.typingKeys.typingKeyDown(code, shift);
    };
    txtOutput->keyDown = [this](int code) { return session.typingKeys.consoleKeyDown(code); };
    txtOutput->beep = [] { QApplication::beep(); };
    txtOutput->typed = [this](const QString& text) { typeOn(bytesOf(text)); };
    connectRow();
}

// What was typed elsewhere goes on in the typing line.
void frmChessClient::typeOn(const std::string& characters) {
    for (const char c : characters) {
        if (static_cast<unsigned char>(c) >= ' ' && c != 127)
            session.typingKeys.consoleKeyPress(static_cast<unsigned char>(c));
    }
    txtSend->setFocus();
}

void frmChessClient::connectRow() {
    row_->turnPage = [this](int pages) { txtOutput->turnPage(pages); };
    for (QToolButton* button : row_->cmdTell) {
        connect(button, &QToolButton::clicked, this,
                [this, button] { session.typingKeys.pressButton(bytesOf(button->toolTip())); });
    }
    connect(row_->cmdAcc, &QPushButton::clicked, this, [this] { session.typingKeys.pressButton("Accept"); });
    connect(row_->cmdDec, &QPushButton::clicked, this, [this] { session.typingKeys.pressButton("Decline"); });
}

void frmChessClient::connectMenus() {
    for (QAction* profile : menus.mnuConnect) {
        onChosen(profile, this, [this, profile] {
            session.connection.mnuConnectClick(static_cast<std::int16_t>(profile->data().toInt()));
        });
    }
    on(menus.mnuUseTS, [this] { session.connection.mnuUseTSClick(); });
    on(menus.mnuAutoCon, [this] { session.connection.mnuAutoConClick(); });
    on(menus.mnuAutoLogon, [this] { session.connection.mnuAutoLogonClick(); });
    on(menus.mnuClose, [this] { session.connection.mnuCloseClick(); });
    onChosen(menus.mnuExit, this, [this] { close(); });
    connectConsoleMenu();
    onChosen(menus.mnuBoard, this, [this] { session.routing.hooks.zNewBoard(); });
    onChosen(menus.mnuMatch, this, [this] {
        modChess.MatchMode = true;
        roads_.showMatch();
    });
    onChosen(menus.mnuHistory, this, [this] { roads_.showHistory(); });
    onChosen(menus.mnuSeekGrf, this, [this] { wantSeek(); });
    onChosen(menus.mnuVars, this, roads_.doors.showVars);
    onChosen(menus.mnuNotes, this, roads_.doors.showNotes);
    onChosen(menus.mnuOptions, this, roads_.doors.showOptions);
    onChosen(menus.mnuHelp, this, roads_.doors.showHelp);
    on(menus.mnuTest, [this] { dumpRegistry(); });
    onChosen(menus.mnuAbout, this, [this] { showAbout(this); });
}

void frmChessClient::connectConsoleMenu() {
    on(menus.mnuBlocked, [this] {
        session.mnuBlocked();
        menus.mnuBlocked->setChecked(session.classifier.menu.mnuBlocked);
    });
    on(menus.mnuStupid, [this] { session.serverLines.verbose = menus.mnuStupid->isChecked(); });
    on(menus.mnuClear, [this] { txtOutput->clearScreen(); });
    on(menus.mnuXP, [this] {
        resize(width() + 1, height()); // lets the new look take
        resize(width() - 1, height());
        fitMargins();
    });
}

// Chosen with the tick on, the entry shows the graph again and keeps its tick.
void frmChessClient::wantSeek() {
    tickSeek(true);
    roads_.showSeek();
}

void frmChessClient::tickSeek(bool wanted) {
    menus.mnuSeekGrf->setChecked(wanted);
    takeMenuTicks();
}

// The ticks that the connection and the classifier keep.
void frmChessClient::takeMenuTicks() {
    menus.mnuUseTS->setChecked(session.connection.mnuUseTS);
    menus.mnuAutoCon->setChecked(session.connection.mnuAutoCon);
    menus.mnuAutoLogon->setChecked(session.connection.mnuAutoLogon);
    session.classifier.menu.mnuSeekGrf = menus.mnuSeekGrf->isChecked();
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
