// An options dialog, and what it asks of the rest of the program written down.
#pragma once

#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/OpenWindows.h"
#include "settings/MemoryStore.h"
#include "settings/OptionsHand.h"
#include "settings/Settings.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class OptionsWindowRig : public testing::Test {
protected:
    OptionsWindowRig() {
        modChess = {};
        zStartValues();
        openWindows.windows.clear();
        QDir::setCurrent(folder.path());
        boxes.colour = [this](QWidget*, std::int32_t start) {
            proposals.push_back(start);
            if (whileChoosing) whileChoosing();
            return choice;
        };
    }
    ~OptionsWindowRig() override {
        delete loadedWindow<frmOptions>();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(startFolder);
        boxes = Boxes();
        modChess = {};
        openWindows.windows.clear();
    }

    frmOptions& open() { return frmOptions::showIt(roads); }
    void stored(const char* key, const char* text) {
        modChess.RegistryState = "Yes";
        values->texts[{"Options", key}] = text;
    }
    std::string kept(const char* key) const {
        const auto found = values->texts.find({"Options", key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }
    std::vector<std::string> takeSounds() { return std::exchange(sounds, {}); }

    OptionsHand hand;
    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    OptionsAccount account{"fred", "secret", {}};
    std::vector<std::string> sounds; // wave files, and "beep"
    std::vector<QPoint> boardColors; // where they were shown
    std::vector<std::string> effects;
    std::optional<std::int32_t> choice; // of the colour dialog
    std::vector<std::int32_t> proposals;
    std::function<void()> whileChoosing;
    OptionsRoads roads{
        .store = memoryStore(values),
        .account = [this] { return account; },
        .takeAccount =
            [this](const OptionsAccount& taken) {
                account = taken;
                effects.emplace_back("account");
            },
        .testWave = [this](std::string_view name) { sounds.emplace_back(name); },
        .testBeep = [this] { sounds.emplace_back("beep"); },
        .showBoardColors = [this](QPoint corner) { boardColors.push_back(corner); },
    };
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};
