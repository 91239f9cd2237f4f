// The panels of variables and notes, with a server that the test answers for.
#pragma once

#include "common/modChess.h"
#include "panels/frmICSVars.h"
#include "panels/frmNotes.h"
#include "platform/Clock.h"
#include "platform/StreamText.h"
#include "platform/WaitUntil.h"
#include "settings/MemoryStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

class PanelWindowRig : public testing::Test {
protected:
    PanelWindowRig() {
        modChess = {};
        openWindows.windows.clear();
        QDir::setCurrent(folder.path());
    }
    ~PanelWindowRig() override {
        delete window.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(startFolder);
        wallClock = Clock();
        modChess = {};
        openWindows.windows.clear();
    }

    template <typename Panel>
    Panel& open() {
        Panel& panel = showPanel<Panel>(roads);
        window = &panel;
        return panel;
    }
    // The same, its question asked.
    template <typename Panel>
    Panel& opened() {
        Panel& panel = open<Panel>();
        EXPECT_TRUE(waitUntil([this] { return !asked.empty(); }));
        asked.clear();
        return panel;
    }
    // Answers what was asked, as the session does.
    void answerVars(const std::string& block) {
        modChess.VarsBlock = block;
        loadedPanel<frmICSVars>(roads).zParseVars();
    }
    void answerNotes(const std::vector<std::string>& notes) {
        modChess.NotesText.fill({});
        long index = 0;
        for (const std::string& note : notes) modChess.NotesText[index++] = note;
        loadedPanel<frmNotes>(roads).zParseNotes();
    }

    template <typename Part>
    Part& part(const std::string& name) const {
        auto* found = window->findChild<Part*>(QString::fromStdString(name));
        if (found == nullptr) throw std::logic_error("no " + name);
        return *found;
    }
    QLineEdit& field(const std::string& name) const { return part<QLineEdit>(name); }
    QCheckBox& box(int index) const { return part<QCheckBox>("chkVar(" + std::to_string(index) + ")"); }
    std::string text(const std::string& name) const { return bytesOf(field(name).text()); }
    void type(const std::string& name, const char* typed) const {
        field(name).clear();
        QTest::keyClicks(&field(name), QString::fromLatin1(typed));
    }
    void press(const char* button) const { part<QPushButton>(button).click(); }
    // Whether the words are red.
    bool red(const std::string& name) const {
        const QColor color = part<QWidget>(name).palette().color(QPalette::WindowText);
        return color.red() > 200 && color.green() < 150 && color.blue() < 150;
    }
    // The names of all that is marked, red to the eye and in words alike.
    std::string marked() const {
        std::string all;
        for (const QWidget* each : window->findChildren<QWidget*>()) {
            const std::string name = each->objectName().toStdString();
            if (!each->accessibleDescription().isEmpty()) all += name + " ";
        }
        return all;
    }
    void stored(const char* section, const char* key, const char* value) {
        modChess.RegistryState = "Yes";
        values->texts[{section, key}] = value;
    }
    std::string kept(const char* section, const char* key) const {
        const auto found = values->texts.find({section, key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    std::vector<std::string> asked; // what went to the server, and "state 3"
    bool busy = false;
    bool connected = true;
    PanelRoads roads{
        .store = memoryStore(values),
        .zSendMsg =
            [this](const std::string& text) {
                if (!connected) return;
                asked.push_back(text);
                ++modChess.LinesSent;
            },
        .BusyTest = [this] { return busy; },
        .zSetstate = [this](std::int16_t state) { asked.push_back("state " + std::to_string(state)); },
    };
    QPointer<QDialog> window;
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};
