// A help panel, and what it asks of the rest of the program.
#pragma once

#include "common/modChess.h"
#include "panels/HelpPage.h"
#include "panels/frmChessHelp.h"
#include "platform/Console.h"
#include "platform/LoadedWindow.h"
#include "platform/StreamText.h"
#include "platform/TypingLine.h"
#include "platform/WaitUntil.h"
#include "settings/MemoryStore.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

class HelpWindowRig : public testing::Test {
protected:
    HelpWindowRig() {
        modChess = {};
        modChess.gPrompt = "fics% ";
        modChess.ColorMain = 0x112233;
        modChess.ColorBackground = 0xF0E0D0;
        modChess.ColorBar = 0x102030;
        modChess.ColorType = 0xA0B0C0;
        openWindows.windows.clear();
        QDir::setCurrent(folder.path());
    }
    ~HelpWindowRig() override {
        delete window.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(startFolder);
        modChess = {};
        openWindows.windows.clear();
    }

    frmChessHelp& open() {
        window = &frmChessHelp::showIt(roads);
        return *window;
    }
    // The same behind its first tick.
    frmChessHelp& opened() {
        open();
        tick();
        return *window;
    }
    // The tick of tmrHelp, now.
    void tick() const {
        ASSERT_TRUE(waitUntil([this] { return !part<QTimer>("tmrHelp").isActive(); }));
    }
    void setTopic(const char* topic) const { txtHelp().setLine(topic); }
    // The answer of the server is complete, as the session tells it.
    void answer(const std::vector<std::string>& lines) {
        modChess.HelpCount = 0;
        for (const std::string& line : lines) modChess.HelpLines[modChess.HelpCount++] = line;
        openWindows.answer("frmChessHelp");
    }

    template <typename Part = QWidget>
    Part& part(const char* name) const {
        return *window->findChild<Part*>(QString::fromLatin1(name));
    }
    TypingLine& txtHelp() const { return part<TypingLine>("txtHelp"); }
    Console& pane() const { return part<Console>("txtHelpInfo"); }
    QLabel& label() const { return part<QLabel>("lblRcvData"); }
    void press(const char* button) const { part<QPushButton>(button).click(); }
    std::string progress() const { return label().isHidden() ? "(hidden)" : label().text().toStdString(); }

    void stored(const char* key, const char* text) {
        modChess.RegistryState = "Yes";
        values->texts[{"Help", key}] = text;
    }
    std::string kept(const char* key) const {
        const auto found = values->texts.find({"Help", key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    HelpCapture capture;
    std::vector<std::string> asked;
    bool busy = false;
    HelpRoads roads{
        .panel = {.store = memoryStore(values),
                  .zSendMsg = [this](const std::string& text) { asked.push_back(text); },
                  .BusyTest = [this] { return busy; },
                  .zSetstate = [this](std::int16_t state) { asked.push_back("state " + std::to_string(state)); }},
        .capture = capture,
    };
    QPointer<frmChessHelp> window;
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};
