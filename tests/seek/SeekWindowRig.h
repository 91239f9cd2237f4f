// A seek graph with a table of its own, and what it asks of the rest of the program.
#pragma once

#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/ChosenEntry.h"
#include "platform/LoadedWindow.h"
#include "platform/StreamText.h"
#include "platform/WaitUntil.h"
#include "seek/frmSeek.h"
#include "settings/MemoryStore.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

class SeekWindowRig : public testing::Test {
protected:
    SeekWindowRig() {
        modChess = {};
        openWindows.windows.clear();
        QDir::setCurrent(folder.path());
        boxes.popup = [this](QMenu& menu, const auto&) { popups.push_back(menu.objectName().toStdString()); };
    }
    ~SeekWindowRig() override {
        delete seek.data();
        if (auto* dialog = loadedWindow<frmMatch>()) delete dialog;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(startFolder);
        boxes = Boxes();
        modChess = {};
        openWindows.windows.clear();
    }

    frmSeek& open() {
        frmSeek::showIt(roads);
        seek = loadedWindow<frmSeek>();
        return *seek;
    }
    void stored(const char* key, const char* text) {
        modChess.RegistryState = "Yes";
        values->texts[{"Seek", key}] = text;
    }
    std::string kept(const char* key) const {
        const auto found = values->texts.find({"Seek", key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }

    void add(int number, const char* name, int time, int rating = 1540) {
        SeekAd& ad = table.SeekAds[table.SeekAdCount++];
        ad = {static_cast<std::int16_t>(number),
              static_cast<std::int16_t>(rating),
              name,
              static_cast<std::int16_t>(time),
              0,
              "rated",
              "blitz",
              "   0-9999",
              false};
    }
    // The answer is complete, as the session tells it.
    static void answer() { openWindows.answer("frmSeek"); }
    // Three ads, drawn: at 5, 15 and 30 minutes.
    void threeAds() {
        add(11, "Anders(C)", 5);
        add(12, "Berta", 15);
        add(13, "Carla", 30);
        answer();
    }

    template <typename Part = QWidget>
    Part& part(const char* name) const {
        return *seek->findChild<Part*>(QString::fromLatin1(name));
    }
    SeekPlot& plot() const { return part<SeekPlot>("picSeek"); }
    std::string status() const { return bytesOf(part<QLabel>("stbSeek").text()); }
    void choose(const char* entry) const { chooseEntry(part<QAction>(entry)); }
    QPoint dot(int index) const { return plot().squareOf(index).center().toPoint(); }
    void press(QPoint point, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mousePress(&plot(), button, {}, point);
        QTest::mouseRelease(&plot(), button, {}, point);
    }
    void point(QPoint point) const {
        QMouseEvent move(QEvent::MouseMove, point, plot().mapToGlobal(point), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&plot(), &move);
    }
    // The first tick of the poll.
    void tick() const {
        ASSERT_TRUE(waitUntil([this] { return part("cmdSeek").isEnabled(); }));
    }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    SeekTable table;
    std::vector<std::string> sent;
    std::vector<std::string> popups;
    std::string typed;
    bool tall = false;
    bool busy = false;
    int closedByUser = 0;
    std::vector<std::string> historyAsked; // topics
    MatchRoads match{.store = memoryStore(values), .zSendMsg = [](const std::string&) {}};
    SeekRoads roads{
        .store = memoryStore(values),
        .ads = table,
        .match = match,
        .zSendMsg = [this](const std::string& text) { sent.push_back(text); },
        .BusyTest = [this] { return busy; },
        .zSetstate = [this](std::int16_t state) { sent.push_back("state " + std::to_string(state)); },
        .typeInConsole = [this](const std::string& characters) { typed += characters; },
        .tallTitleBars = [this] { return tall; },
        .startHistory = [this] { historyAsked.push_back(modChess.gHelpTopic); },
        .closedByUser = [this] { ++closedByUser; },
    };
    QPointer<frmSeek> seek;
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};
