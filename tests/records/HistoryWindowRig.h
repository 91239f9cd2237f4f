// A window of listed games with lists of its own, and what it asks of the rest of the program.
#pragma once

#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/ChosenEntry.h"
#include "platform/Clock.h"
#include "platform/LoadedWindow.h"
#include "platform/StreamText.h"
#include "platform/WaitUntil.h"
#include "records/HistoryTable.h"
#include "records/ListCapture.h"
#include "records/ListLines.h"
#include "records/frmHistory.h"
#include "settings/MemoryStore.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

class HistoryWindowRig : public testing::Test {
protected:
    HistoryWindowRig() {
        modChess = {};
        modChess.gPrompt = "fics% ";
        openWindows.windows.clear();
        QDir::setCurrent(folder.path());
        boxes.popup = [this](QMenu& menu, const auto&) { popups.push_back(menu.objectName().toStdString()); };
    }
    ~HistoryWindowRig() override {
        delete window.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(startFolder);
        boxes = Boxes();
        wallClock = Clock();
        modChess = {};
        openWindows.windows.clear();
    }

    frmHistory& open() {
        window = &frmHistory::showIt(roads);
        return *window;
    }
    // The same behind its first tick, with nothing asked.
    frmHistory& opened() {
        open();
        tick();
        return *window;
    }
    // The tick of tmrHist, now.
    void tick() const {
        auto* timer = window->findChild<QTimer*>(QStringLiteral("tmrHist"));
        timer->start(0);
        ASSERT_TRUE(waitUntil([timer] { return !timer->isActive(); }));
    }
    void setPlayer(const char* name) const { txtPlayer().setText(QString::fromLatin1(name)); }
    void press(const char* button) const { part<QPushButton>(button).click(); }

    // The server's answer to what was asked last, as the session takes it.
    void answer(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            const auto read = modChess.HistoryKind == 0   ? zHistoryLines
                              : modChess.HistoryKind == 1 ? zJournalLines
                                                          : zStoredLines;
            read(lists, line);
        }
        openWindows.answer("frmHistory");
    }
    // A list of three games on the screen.
    void threeGames() {
        opened();
        setPlayer("foo");
        press("cmdHistory");
        answer({numbered(5, GameRow), numbered(6, GameRow), numbered(7, GameRow)});
        asked.clear();
    }
    void twoSlots() {
        opened();
        setPlayer("foo");
        press("cmdJournal");
        answer({SlotRow, "%02" + SlotRow.substr(3)});
        asked.clear();
    }
    void twoStored() {
        opened();
        setPlayer("foo");
        press("cmdStored");
        answer({numbered(1, StoredRow), StoredRow});
        asked.clear();
    }

    template <typename Part = QWidget>
    Part& part(const char* name) const {
        return *window->findChild<Part*>(QString::fromLatin1(name));
    }
    QLineEdit& txtPlayer() const { return part<QLineEdit>("txtPlayer"); }
    std::string player() const { return bytesOf(txtPlayer().text()); }
    HistoryTable& list() const { return part<HistoryTable>("lvwHistory"); }
    QMenu& menu() const { return part<QMenu>("mnuGame"); }
    std::string title() const { return bytesOf(window->windowTitle()); }
    void choose(const char* entry) const { chooseEntry(part<QAction>(entry)); }
    void chooseSlot(char letter) const {
        for (QAction* slot : window->findChildren<QAction*>(QStringLiteral("mnuAdd"))) {
            if (slot->text() == QString(QChar::fromLatin1(letter))) chooseEntry(*slot);
        }
    }
    QPoint placeOf(int row) const { return list().visualItemRect(list().topLevelItem(row)).center(); }
    // As the window system reports a press of the right button.
    void pressRight(QPoint at) const {
        QTest::mousePress(list().viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, list().viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(list().viewport(), &event);
        QTest::mouseRelease(list().viewport(), Qt::RightButton, {}, at);
    }
    void pressRight(int row) const { pressRight(placeOf(row)); }
    std::vector<std::string> cells(int row) const {
        std::vector<std::string> all;
        for (int column = 0; column < list().columnCount(); ++column) all.push_back(list().cell(row, column));
        return all;
    }
    void stored(const char* key, const char* text) {
        modChess.RegistryState = "Yes";
        values->texts[{"History", key}] = text;
    }
    std::string kept(const char* key) const {
        const auto found = values->texts.find({"History", key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    HistoryLists lists;
    std::vector<std::string> asked;
    std::vector<std::string> told;
    std::vector<std::string> popups;
    bool busy = false;
    HistoryRoads roads{
        .store = memoryStore(values),
        .lists = lists,
        .zSendMsg = [this](const std::string& text) { asked.push_back(text); },
        .BusyTest = [this] { return busy; },
        .zSetstate = [this](std::int16_t state) { asked.push_back("state " + std::to_string(state)); },
        .zGetMoves = [this](const std::string& arguments) { asked.push_back("moves of " + arguments); },
        .handle = [] { return std::string("Anders"); },
        .tell = [this](const std::string& text) { told.push_back(text); },
    };
    QPointer<frmHistory> window;
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};
