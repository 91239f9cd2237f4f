// What the tests of the settings start from: fresh program variables and a store in memory.
#pragma once

#include "common/modChess.h"
#include "settings/MemoryStore.h"
#include "settings/Settings.h"

#include <gtest/gtest.h>

// A client window of designed size 9000 x 6000 over an empty store; modChess is as it was afterwards.
class SettingsFixture : public testing::Test {
protected:
    SettingsFixture() {
        modChess = {};
        client.Width = 9000;
        client.Height = 6000;
    }
    ~SettingsFixture() override { modChess = {}; }

    // Puts a text into the section Client.
    void stored(const std::string& key, const std::string& text) { values->texts[{"Client", key}] = text; }

    std::string written(const std::string& key) { return values->texts.at({"Client", key}); }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    SettingsStore store = memoryStore(values);
    ClientSettings client;
};
